#include "fuel/OwnerPanel.h"

#include "fuel/FieldSupport.h"
#include "rules/NumberPattern.h"
#include "store/Database.h"
#include "ui/Dialogs.h"
#include "ui/FieldBehaviour.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSqlQuery>
#include <QVBoxLayout>

namespace fuel {

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

ui::AddressPanelOptions panelOptions(const OwnerPanel::Texts& texts) {
    ui::AddressPanelOptions options;
    options.texts.cepIncorrect = texts.cepWrongOnLeave;
    return options;
}

} // namespace

OwnerPanel::OwnerPanel(store::Database& db, QString table, QString keyColumn, Texts texts,
                       QWidget* parent)
    : QGroupBox(QStringLiteral("Proprietário"), parent)
    , m_table(std::move(table))
    , m_keyColumn(std::move(keyColumn))
    , m_texts(std::move(texts)) {
    setObjectName(QStringLiteral("fraProp"));
    m_address = new ui::AddressPanel(db, panelOptions(m_texts), this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_address);
}

void OwnerPanel::load(store::Database& db, const ui::Session& session, const QString& itanqu,
                      const QVariant& key) {
    QSqlQuery row = db.run(
        QStringLiteral("Select DRAZAOSOCIL, DCONTT, DLOGRD, NLOGRD, DLOGRDCOMPM, DBAIRR, CCEP,"
                       " NMUNCPDISTRFORNC, NDDD, NTELFN, NFAX, DEMAIL, DMUNCPDISTRFORNC From ") +
            m_table + QStringLiteral(" Where NMUNCP = ? And NSEQNC = ? And ITANQU = ? And ") +
            m_keyColumn + QStringLiteral(" = ?"),
        {session.nmuncp, session.nseqnc, itanqu, key});
    if (!row.next()) {
        ui::dialogs().message(QStringLiteral("VOR-Posto"),
                              QStringLiteral("Cadastrar dados do proprietário"),
                              ui::Icon::Critical);
        return;
    }
    ui::AddressValues v;
    v.company = row.value(0).toString();
    v.contact = row.value(1).toString();
    v.street = row.value(2).toString();
    v.number = row.value(3).toString();
    v.complement = row.value(4).toString();
    v.district = row.value(5).toString();
    v.cep = rules::formatDigits(row.value(6), QStringLiteral("00000000"));
    if (!row.value(7).isNull()) {
        v.municipality = row.value(7).toInt();
    } else if (const QString name = row.value(12).toString().trimmed(); !name.isEmpty()) {
        // A row that holds the municipality by its name alone (as an older file may bring it)
        // shows that name, as the entry of the list that bears it.
        const QVariant number = db.scalar(
            QStringLiteral("Select NMUNCP From MUNCP Where DMUNCP = ? Order By NMUNCP Desc"),
            {name});
        if (!number.isNull())
            v.municipality = number.toInt();
    }
    v.ddd = row.value(8).toString();
    v.telephone = row.value(9).toString();
    v.fax = row.value(10).toString();
    v.email = row.value(11).toString();
    m_address->setValues(v);
}

ui::Check OwnerPanel::validate() const {
    using ui::Refusal;
    const ui::AddressFields& f = m_address->fields();
    const ui::AddressValues v = m_address->values();
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

void OwnerPanel::write(store::Database& db, const ui::Session& session, const QString& itanqu,
                       const QVariant& key) const {
    const ui::AddressValues v = m_address->values();
    db.run(QStringLiteral("Insert Into ") + m_table +
               QStringLiteral(" (NMUNCP, NSEQNC, AINFRM, ITANQU, ") + m_keyColumn +
               QStringLiteral(", DRAZAOSOCIL, DCONTT, DLOGRD, NLOGRD, DLOGRDCOMPM, DBAIRR, CCEP,"
                              " NMUNCPDISTRFORNC, DMUNCPDISTRFORNC, NDDD, NTELFN, NFAX, DEMAIL)"
                              " Values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
           {session.nmuncp, session.nseqnc, session.ainfrm.toString(Qt::ISODate), itanqu, key,
            v.company, v.contact, v.street, orNull(v.number), orNull(v.complement),
            orNull(v.district), numberOrNull(v.cep),
            v.municipality ? QVariant(*v.municipality) : QVariant(),
            orNull(m_address->fields().municipality->currentText()), numberOrNull(v.ddd),
            numberOrNull(v.telephone), numberOrNull(v.fax), orNull(v.email)});
}

void OwnerPanel::followOwnerChoice(const QComboBox* ipropr) {
    if (chosenCode(ipropr).toString() == QLatin1String("O")) {
        setEnabled(true);
        show();
    } else {
        hide();
    }
}

QList<QWidget*> OwnerPanel::fields() const {
    const ui::AddressFields& f = m_address->fields();
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

} // namespace fuel
