#include "establishment/DistributorForm.h"

#include "establishment/AddressRow.h"
#include "rules/Address.h"
#include "store/Database.h"
#include "store/RowWriter.h"
#include "store/SqlValues.h"
#include "ui/AddressPanel.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/FieldBehaviour.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace establishment {

namespace {

using ui::Check;
using ui::Refusal;

const char* const kTable = "TB_POSTODISTRFORNC";
const AddressColumns kColumns{QStringLiteral("NMUNCPDISTRFORNC"),
                              QStringLiteral("DMUNCPDISTRFORNC")};
const QString kOneDistributor = QStringLiteral("Só Pode Existir uma Distribuidora para este Posto");

} // namespace

DistributorForm::DistributorForm(ui::ScreenHost& host, QWidget* parent)
    : ui::MaintenanceScreen(host, QStringLiteral("frmPostoDistrConsl"),
                            {{ui::kIncluir, 0, true}, {ui::kAlterar, 0, false}}, parent) {
    setObjectName(QStringLiteral("frmPostoDistr"));
    setWindowTitle(QStringLiteral("Cadastro das Distribuidora/Fornecedoras:"));

    auto* company = new QHBoxLayout;
    auto* registered = new QLineEdit(this);
    registered->setObjectName(QStringLiteral("txtNomeEmpresa"));
    registered->setReadOnly(true);
    registered->setFocusPolicy(Qt::NoFocus);
    registered->setText(host.session().razaoSocial);
    auto* caption = new QLabel(QStringLiteral("Empresa Cadastrada"), this);
    caption->setObjectName(QStringLiteral("lblIdentForm"));
    caption->setBuddy(registered);
    company->addWidget(caption);
    company->addWidget(registered, 1);
    body()->addLayout(company);

    auto* type = new QGroupBox(QStringLiteral("Tipo:"), this);
    type->setObjectName(QStringLiteral("fraTipo"));
    auto* typeLayout = new QHBoxLayout(type);
    const QString captions[2] = {QStringLiteral("Distribuidora"), QStringLiteral("Fornecedora")};
    for (int i = 0; i < 2; ++i) {
        m_options[i] = new QRadioButton(captions[i], type);
        m_options[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
        typeLayout->addWidget(m_options[i]);
    }
    typeLayout->addStretch(1);
    connect(m_options[0], &QRadioButton::clicked, this, &DistributorForm::distributorChosen);
    connect(m_options[1], &QRadioButton::clicked, this, [this] { verifyChange(); });

    ui::AddressPanelOptions options;
    options.stateName = QStringLiteral("txtMUNCPUF");
    options.stateLength = 70;
    options.municipalityNumberField = true;
    m_address = new ui::AddressPanel(database(), options, this);
    // The street's caption on this form names the mail.
    for (QLabel* label : m_address->findChildren<QLabel*>()) {
        if (label->buddy() == m_address->fields().street)
            label->setText(QStringLiteral("Endereço P/ Correspondência:"));
    }
    auto* fields = new QGroupBox(this);
    fields->setObjectName(QStringLiteral("fraDistr"));
    auto* fieldsLayout = new QVBoxLayout(fields);
    fieldsLayout->addWidget(m_address);
    body()->addWidget(fields);
    body()->addWidget(type);
    body()->addStretch(1);
}

void DistributorForm::copyFromList(const ui::ListSelection& rows) {
    m_nident.clear();
    m_options[1]->setChecked(true);
    if (operation().insert)
        return;
    // The firm is read again by its identity, never looked for by its name.
    m_nident = rows.main.value(0);
    store::Row key = session().keyRow();
    key.insert(QStringLiteral("NIDENT"), m_nident.toLongLong());
    const std::optional<store::Row> row = store::readRow(database(), kTable, key);
    if (!row)
        return;
    ui::AddressValues values = addressOf(*row, kColumns);
    values.company = row->value(QStringLiteral("DRAZAOSOCIL")).toString();
    values.contact = row->value(QStringLiteral("DCONTT")).toString();
    m_address->setValues(values);
    m_options[row->value(QStringLiteral("IDISTRFORNC")).toString() == QLatin1String("D") ? 0 : 1]
        ->setChecked(true);
}

QWidget* DistributorForm::arrangePanels() {
    return m_address->company();
}

QString DistributorForm::savedMessage() const {
    // The change's message ends with a full stop, the insert's does not.
    return operation().insert ? QStringLiteral("Incluído com Sucesso")
                              : QStringLiteral("Alterado com Sucesso.");
}

QList<QWidget*> DistributorForm::snapshotFields() const {
    QList<QWidget*> fields;
    for (QWidget* w : watchedFields()) {
        if (m_address->isAncestorOf(w))
            fields << w;
    }
    fields << m_options[0];
    return fields;
}

QString DistributorForm::kind() const {
    return m_options[0]->isChecked() ? QStringLiteral("D") : QStringLiteral("F");
}

bool DistributorForm::otherDistributor() const {
    // The firm being changed is no obstacle to itself.
    return !database()
                .scalar(QStringLiteral("SELECT IDISTRFORNC FROM TB_POSTODISTRFORNC WHERE "
                                       "NMUNCP = ? AND NSEQNC = ? AND IDISTRFORNC = 'D' AND "
                                       "NIDENT <> ?"),
                        {session().nmuncp, session().nseqnc,
                         m_nident.isEmpty() ? -1 : m_nident.toLongLong()})
                .isNull();
}

void DistributorForm::distributorChosen() {
    bool taken = false;
    if (!ui::runGuarded([&] { taken = otherDistributor(); }))
        return;
    if (taken) {
        ui::dialogs().message(ui::kTitle, kOneDistributor, ui::Icon::Critical);
        m_options[1]->setChecked(true);
    }
    verifyChange();
}

ui::Check DistributorForm::validate() {
    const ui::AddressFields& f = m_address->fields();
    const ui::AddressValues v = m_address->values();
    const auto must = [](QWidget* field, const char* message) {
        return Check{Refusal{field, QString::fromUtf8(message)}};
    };
    if (m_address->company()->text().isEmpty())
        return must(m_address->company(), "Preenchimento Obrigatório da Razão Social");
    if (m_address->contact()->text().isEmpty())
        return must(m_address->contact(), "Preenchimento Obrigatório do Nome para Contato");
    if (f.street->text().isEmpty())
        return must(f.street, "Preenchimento Obrigatório do Endereço");
    if (f.number->text().isEmpty() && f.complement->text().isEmpty())
        return must(f.number, "Preenchimento Obrigatório do Número ou do Complemento");
    if (v.cep.isEmpty())
        return must(f.cep, "Preenchimento Obrigatório do CEP");
    if (!rules::cepCompleto(v.cep))
        return must(f.cep, "Preenchimento Incorreto do CEP.");
    if (!v.municipality)
        return must(f.municipality, "Preenchimento Obrigatório do Município");
    if (!m_address->block().checkCep().valid())
        return must(f.cep, "CEP Inválido para o Município");
    if (f.ddd->text().isEmpty())
        return must(f.ddd, "Preenchimento Obrigatório do DDD.");
    if (v.telephone.isEmpty())
        return must(f.telephone, "Preenchimento Obrigatório do Telefone.");
    if (rules::telefoneIncompleto(v.telephone))
        return must(f.telephone, "Preenchimento Incorreto do Telefone.");
    if (rules::faxIncompleto(v.fax))
        return must(f.fax, "Preenchimento Incorreto do FAX.");
    if (m_options[0]->isChecked() && otherDistributor()) {
        // The firm falls back to a supplier; the next Ok saves it as one.
        m_options[1]->setChecked(true);
        return Refusal{m_options[1], kOneDistributor};
    }
    return {};
}

void DistributorForm::write(store::Database& db) {
    const ui::AddressValues v = m_address->values();
    const QString uf = m_address->fields().state->text().trimmed();
    const bool insert = operation().insert;
    // The name column keeps the UF box's text; a change leaves it empty for the state served.
    const QVariant name = insert || uf != rules::kUfAtendida ? store::textValue(uf) : QVariant();
    store::Row row = addressRow(v, kColumns, name);
    row.insert(QStringLiteral("DRAZAOSOCIL"), v.company);
    row.insert(QStringLiteral("DCONTT"), v.contact);
    row.insert(QStringLiteral("IDISTRFORNC"), kind());
    if (insert) {
        // The identity runs over every register of the table.
        const QVariant max =
            db.scalar(QStringLiteral("SELECT MAX(NIDENT) + 1 FROM TB_POSTODISTRFORNC"));
        m_nident = QString::number(max.isNull() ? 1 : max.toLongLong());
        const store::Row start = session().newRow();
        for (auto it = start.begin(); it != start.end(); ++it)
            row.insert(it.key(), it.value());
        row.insert(QStringLiteral("NIDENT"), m_nident.toLongLong());
        store::insertRow(db, kTable, row);
        return;
    }
    store::Row key = session().keyRow();
    key.insert(QStringLiteral("NIDENT"), m_nident.toLongLong());
    store::updateRow(db, kTable, key, row);
}

} // namespace establishment
