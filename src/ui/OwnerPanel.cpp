#include "ui/OwnerPanel.h"

#include "rules/NumberPattern.h"
#include "store/Database.h"
#include "ui/Dialogs.h"
#include "ui/FieldBehaviour.h"
#include "ui/FieldSupport.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QLineEdit>
#include <QVBoxLayout>

namespace ui {

namespace {

QVariant orNull(const QString& text) {
    return text.trimmed().isEmpty() ? QVariant() : QVariant(text);
}

QVariant numberOrNull(const QString& digits) {
    return digits.isEmpty() ? QVariant() : QVariant(digits.toLongLong());
}

// At most 999999 is no telephone number: the number has six digits or fewer.
bool tooShortPhone(const QString& digits) {
    return !digits.isEmpty() && digits.toLongLong() <= 999999;
}

AddressPanelOptions panelOptions(const OwnerPanel::Texts& texts) {
    AddressPanelOptions options;
    options.texts.cepIncorrect = texts.cepWrongOnLeave;
    return options;
}

} // namespace

OwnerPanel::OwnerPanel(store::Database& db, std::string_view table, Texts texts, QWidget* parent)
    : QGroupBox(QStringLiteral("Proprietário"), parent)
    , m_table(table)
    , m_texts(std::move(texts)) {
    setObjectName(QStringLiteral("fraProp"));
    m_address = new AddressPanel(db, panelOptions(m_texts), this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_address);
}

void OwnerPanel::load(store::Database& db, const store::Row& key) {
    const std::optional<store::Row> row = store::readRow(db, m_table, key);
    if (!row) {
        dialogs().message(QStringLiteral("VOR-Posto"),
                          QStringLiteral("Cadastrar dados do proprietário"), Icon::Critical);
        return;
    }
    const auto text = [&](const char* column) {
        return row->value(QLatin1String(column)).toString();
    };
    AddressValues v;
    v.company = text("DRAZAOSOCIL");
    v.contact = text("DCONTT");
    v.street = text("DLOGRD");
    v.number = text("NLOGRD");
    v.complement = text("DLOGRDCOMPM");
    v.district = text("DBAIRR");
    v.cep = rules::formatDigits(row->value(QStringLiteral("CCEP")), QStringLiteral("00000000"));
    if (const QVariant number = row->value(QStringLiteral("NMUNCPDISTRFORNC")); !number.isNull()) {
        v.municipality = number.toInt();
    } else if (const QString name = text("DMUNCPDISTRFORNC").trimmed(); !name.isEmpty()) {
        // A row that holds the municipality by its name alone (as an older file may bring it)
        // shows that name, as the entry of the list that bears it.
        const QVariant found = db.scalar(
            QStringLiteral("Select NMUNCP From MUNCP Where DMUNCP = ? Order By NMUNCP Desc"),
            {name});
        if (!found.isNull())
            v.municipality = found.toInt();
    }
    v.ddd = text("NDDD");
    v.telephone = text("NTELFN");
    v.fax = text("NFAX");
    v.email = text("DEMAIL");
    m_address->setValues(v);
}

Check OwnerPanel::validate() const {
    const AddressFields& f = m_address->fields();
    const AddressValues v = m_address->values();
    if (m_address->company()->text().isEmpty())
        return Refusal{m_address->company(),
                       QStringLiteral("Preenchimento Obrigatório da Razão Social")};
    if (m_address->contact()->text().isEmpty())
        return Refusal{m_address->contact(),
                       QStringLiteral("Preenchimento Obrigatório do Nome para Contato")};
    if (f.street->text().isEmpty())
        return Refusal{f.street, QStringLiteral("Preenchimento Obrigatório do Endereço")};
    if (f.number->text().isEmpty() && f.complement->text().isEmpty())
        return Refusal{f.number,
                       QStringLiteral("Preenchimento Obrigatório do Número ou do Complemento")};
    if (v.cep.isEmpty())
        return Refusal{f.cep, m_texts.cepRequired};
    if (f.municipality->currentText().isEmpty())
        return Refusal{f.municipality, QStringLiteral("Preenchimento Obrigatório do Município")};
    if (!m_address->block().checkCep().valid())
        return Refusal{f.cep, QStringLiteral("CEP Inválido para o Município")};
    if (f.ddd->text().isEmpty())
        return Refusal{f.ddd, QStringLiteral("Preenchimento Obrigatório do DDD")};
    if (v.telephone.isEmpty())
        return Refusal{f.telephone, QStringLiteral("Preenchimento Obrigatório do Telefone")};
    if (tooShortPhone(v.telephone))
        return Refusal{f.telephone, QStringLiteral("Preenchimento Incorreto do Telefone.")};
    if (tooShortPhone(v.fax))
        return Refusal{f.fax, QStringLiteral("Preenchimento Incorreto do FAX.")};
    return {};
}

void OwnerPanel::write(store::Database& db, const store::Row& key) const {
    const AddressValues v = m_address->values();
    store::Row row = key;
    row.insert(QStringLiteral("DRAZAOSOCIL"), v.company);
    row.insert(QStringLiteral("DCONTT"), v.contact);
    row.insert(QStringLiteral("DLOGRD"), v.street);
    row.insert(QStringLiteral("NLOGRD"), orNull(v.number));
    row.insert(QStringLiteral("DLOGRDCOMPM"), orNull(v.complement));
    row.insert(QStringLiteral("DBAIRR"), orNull(v.district));
    row.insert(QStringLiteral("CCEP"), numberOrNull(v.cep));
    row.insert(QStringLiteral("NMUNCPDISTRFORNC"),
               v.municipality ? QVariant(*v.municipality) : QVariant());
    row.insert(QStringLiteral("DMUNCPDISTRFORNC"),
               orNull(m_address->fields().municipality->currentText()));
    row.insert(QStringLiteral("NDDD"), numberOrNull(v.ddd));
    row.insert(QStringLiteral("NTELFN"), numberOrNull(v.telephone));
    row.insert(QStringLiteral("NFAX"), numberOrNull(v.fax));
    row.insert(QStringLiteral("DEMAIL"), orNull(v.email));
    store::insertRow(db, m_table, row);
}

void OwnerPanel::remove(store::Database& db, const store::Row& key) const {
    store::deleteRows(db, m_table, key);
}

void OwnerPanel::follow(const QComboBox* ipropr) {
    m_ownerList = ipropr;
    connect(ipropr, &QComboBox::activated, this, &OwnerPanel::followOwnerChoice);
}

void OwnerPanel::followOwnerChoice() {
    if (m_ownerList && chosenCode(m_ownerList).toString() == QLatin1String("O")) {
        setEnabled(true);
        show();
    } else {
        hide();
    }
}

QList<QWidget*> OwnerPanel::fields() const {
    const AddressFields& f = m_address->fields();
    return {m_address->company(),
            m_address->contact(),
            f.street,
            f.number,
            f.complement,
            f.district,
            f.cep,
            f.municipality,
            f.state,
            f.ddd,
            f.telephone,
            f.fax,
            f.email};
}

} // namespace ui
