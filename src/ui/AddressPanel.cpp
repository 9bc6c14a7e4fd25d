#include "ui/AddressPanel.h"

#include "rules/Address.h"
#include "ui/FieldBehaviour.h"
#include "ui/FieldSupport.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace ui {

namespace {

QLineEdit* lineEdit(QWidget* parent, const QString& name, int maxLength) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    if (maxLength > 0)
        edit->setMaxLength(maxLength);
    return edit;
}

QLabel* label(QWidget* parent, const QString& text, QWidget* buddy) {
    auto* l = new QLabel(text, parent);
    l->setBuddy(buddy);
    return l;
}

} // namespace

AddressPanel::AddressPanel(store::Database& db, const AddressPanelOptions& options, QWidget* parent)
    : QWidget(parent) {
    AddressFields f;
    auto* grid = new QGridLayout(this);
    int row = 0;
    if (options.companyAndContact) {
        m_company = lineEdit(this, QStringLiteral("txtDRAZAOSOCIL"), 50);
        m_contact = lineEdit(this, QStringLiteral("txtDCONTT"), 50);
        attachText(m_company, Case::Upper);
        attachText(m_contact, Case::Upper);
        grid->addWidget(label(this, QStringLiteral("Razão Social:"), m_company), row, 0);
        grid->addWidget(m_company, row++, 1, 1, 5);
        grid->addWidget(label(this, QStringLiteral("Nome para contato:"), m_contact), row, 0);
        grid->addWidget(m_contact, row++, 1, 1, 5);
    }
    f.street = lineEdit(this, QStringLiteral("txtDLOGRD"), 50);
    f.number = lineEdit(this, QStringLiteral("txtNLOGRD"), 5);
    f.complement = lineEdit(this, QStringLiteral("txtDLOGRDCOMPM"), 17);
    f.district = lineEdit(this, QStringLiteral("txtDBAIRR"), 17);
    f.cep = lineEdit(this, QStringLiteral("txtCCEP"), 0);
    f.municipality = new QComboBox(this);
    f.municipality->setObjectName(QStringLiteral("cmbNMUNCP"));
    f.municipality->setEditable(true);
    f.municipality->setMinimumContentsLength(24);
    f.state = lineEdit(this, options.stateName, options.stateLength);
    f.state->setMaximumWidth(f.state->fontMetrics().horizontalAdvance(QStringLiteral("MMMM")));
    f.ddd = lineEdit(this, QStringLiteral("txtNDDD"), rules::kDddMaximo);
    f.ddd->setMaximumWidth(f.ddd->fontMetrics().horizontalAdvance(QStringLiteral("00000")));
    f.telephone = lineEdit(this, QStringLiteral("txtNTELFN"), 0);
    f.fax = lineEdit(this, QStringLiteral("txtNFAX"), 0);
    f.email = lineEdit(this, QStringLiteral("txtDEMAIL"), 50);
    if (options.municipalityNumberField) {
        f.municipalityNumber = lineEdit(this, QStringLiteral("txtnMuncp"), 0);
        f.municipalityNumber->hide();
    }

    grid->addWidget(label(this, QStringLiteral("Endereço:"), f.street), row, 0);
    grid->addWidget(f.street, row, 1, 1, 3);
    grid->addWidget(label(this, QStringLiteral("Número:"), f.number), row, 4);
    grid->addWidget(f.number, row++, 5);
    grid->addWidget(label(this, QStringLiteral("Complemento:"), f.complement), row, 0);
    grid->addWidget(f.complement, row, 1);
    grid->addWidget(label(this, QStringLiteral("Bairro:"), f.district), row, 2);
    grid->addWidget(f.district, row++, 3, 1, 3);
    grid->addWidget(label(this, QStringLiteral("CEP:"), f.cep), row, 0);
    grid->addWidget(f.cep, row, 1);
    grid->addWidget(label(this, QStringLiteral("Município:"), f.municipality), row, 2);
    grid->addWidget(f.municipality, row, 3);
    grid->addWidget(label(this, QStringLiteral("UF:"), f.state), row, 4);
    grid->addWidget(f.state, row++, 5);
    auto* phone = new QHBoxLayout;
    phone->addWidget(f.ddd);
    phone->addWidget(f.telephone);
    grid->addWidget(label(this, QStringLiteral("Tel.:"), f.ddd), row, 0);
    grid->addLayout(phone, row, 1);
    grid->addWidget(label(this, QStringLiteral("Fax:"), f.fax), row, 2);
    grid->addWidget(f.fax, row++, 3);
    grid->addWidget(label(this, QStringLiteral("Correio Eletrônico:"), f.email), row, 0);
    grid->addWidget(f.email, row++, 1, 1, 5);

    // Entry order: the fields as they stand, line by line, DDD before the telephone.
    QWidget* order[] = {m_company,   m_contact, f.street,       f.number, f.complement,
                        f.district,  f.cep,     f.municipality, f.state,  f.ddd,
                        f.telephone, f.fax,     f.email};
    QWidget* previous = nullptr;
    for (QWidget* w : order) {
        if (!w)
            continue;
        if (previous)
            setTabOrder(previous, w);
        previous = w;
    }
    m_block = AddressBlock::attach(db, f, options.list, options.texts);
}

AddressValues AddressPanel::values() const {
    const AddressFields& f = fields();
    AddressValues v;
    if (m_company)
        v.company = m_company->text().trimmed();
    if (m_contact)
        v.contact = m_contact->text().trimmed();
    v.street = f.street->text().trimmed();
    v.number = f.number->text().trimmed();
    v.complement = f.complement->text().trimmed();
    v.district = f.district->text().trimmed();
    v.cep = clipText(f.cep);
    v.municipality = m_block->municipalityNumber();
    v.state = f.state->text().trimmed();
    v.ddd = f.ddd->text().trimmed();
    v.telephone = clipText(f.telephone);
    v.fax = clipText(f.fax);
    v.email = f.email->text().trimmed();
    return v;
}

void AddressPanel::setValues(const AddressValues& v) {
    const AddressFields& f = fields();
    if (m_company)
        showWhole(m_company, v.company);
    if (m_contact)
        showWhole(m_contact, v.contact);
    showWhole(f.street, v.street);
    showWhole(f.number, v.number);
    showWhole(f.complement, v.complement);
    showWhole(f.district, v.district);
    setClipText(f.cep, v.cep);
    if (v.municipality)
        m_block->setMunicipality(*v.municipality);
    else
        f.municipality->setCurrentIndex(-1);
    if (!v.state.isEmpty())
        showWhole(f.state, v.state);
    f.ddd->setText(rules::formataDdd(v.ddd));
    setClipText(f.telephone, v.telephone);
    setClipText(f.fax, v.fax);
    showWhole(f.email, v.email);
}

void AddressPanel::clear() {
    setValues(AddressValues{});
    fields().state->clear();
    if (fields().municipality->isEditable())
        fields().municipality->clearEditText();
}

} // namespace ui
