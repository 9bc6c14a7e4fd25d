#include "fuel/OwnerPanel.h"

#include "fuel/FieldSupport.h"
#include "rules/NumberPattern.h"
#include "store/Database.h"
#include "ui/Dialogs.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSqlQuery>

namespace fuel {

namespace {

QLineEdit* lineEdit(const QString& name, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    return edit;
}

QVariant orNull(const QString& text) {
    return text.trimmed().isEmpty() ? QVariant() : QVariant(text);
}

QVariant numberOrNull(const QString& digits) {
    return digits.isEmpty() ? QVariant() : QVariant(digits.toLongLong());
}

// A telephone number as the mask "####-####" shows it: the digits from the right.
QString phoneText(const QVariant& value) {
    if (value.isNull())
        return {};
    const QString digits = value.toString().rightJustified(8, QLatin1Char(' '));
    return digits.left(4) + QLatin1Char('-') + digits.mid(4);
}

// At most 999999 is no telephone number: the number has six digits or fewer.
bool tooShortPhone(const QString& digits) {
    return !digits.isEmpty() && digits.toLongLong() <= 999999;
}

} // namespace

OwnerPanel::OwnerPanel(QString table, QString keyColumn, Texts texts, QWidget* parent)
    : QGroupBox(QStringLiteral("Proprietário"), parent)
    , m_table(std::move(table))
    , m_keyColumn(std::move(keyColumn))
    , m_texts(std::move(texts)) {
    setObjectName(QStringLiteral("fraProp"));
    m_razaoSocial = lineEdit(QStringLiteral("txtDRAZAOSOCIL"), this);
    m_contato = lineEdit(QStringLiteral("txtDCONTT"), this);
    m_logradouro = lineEdit(QStringLiteral("txtDLOGRD"), this);
    m_numero = lineEdit(QStringLiteral("txtNLOGRD"), this);
    m_complemento = lineEdit(QStringLiteral("txtDLOGRDCOMPM"), this);
    m_bairro = lineEdit(QStringLiteral("txtDBAIRR"), this);
    m_cep = lineEdit(QStringLiteral("txtCCEP"), this);
    m_municipio = new QComboBox(this);
    m_municipio->setObjectName(QStringLiteral("cmbNMUNCP"));
    m_municipio->setEditable(true);
    m_municipio->setInsertPolicy(QComboBox::NoInsert);
    m_uf = lineEdit(QStringLiteral("txtUFMUNCP"), this);
    m_uf->setReadOnly(true);
    m_uf->setFocusPolicy(Qt::NoFocus);
    m_ddd = lineEdit(QStringLiteral("txtNDDD"), this);
    m_telefone = lineEdit(QStringLiteral("txtNTELFN"), this);
    m_fax = lineEdit(QStringLiteral("txtNFAX"), this);
    m_email = lineEdit(QStringLiteral("txtDEMAIL"), this);

    textField(m_razaoSocial, 50);
    textField(m_contato, 50);
    textField(m_logradouro, 50);
    textField(m_numero, 5);
    textField(m_complemento, 17);
    textField(m_bairro, 17);
    maskedField(m_cep, QStringLiteral("########"));
    textField(m_uf, 2);
    digitsField(m_ddd, 4);
    maskedField(m_telefone, QStringLiteral("####-####"));
    maskedField(m_fax, QStringLiteral("####-####"));
    textField(m_email, 50);

    auto* grid = new QGridLayout(this);
    auto label = [this](const QString& text) { return new QLabel(text, this); };
    grid->addWidget(label(QStringLiteral("Razão Social:")), 0, 0);
    grid->addWidget(m_razaoSocial, 0, 1, 1, 5);
    grid->addWidget(label(QStringLiteral("Nome para contato:")), 1, 0);
    grid->addWidget(m_contato, 1, 1, 1, 5);
    grid->addWidget(label(QStringLiteral("Endereço:")), 2, 0);
    grid->addWidget(m_logradouro, 2, 1, 1, 3);
    grid->addWidget(label(QStringLiteral("Número:")), 2, 4);
    grid->addWidget(m_numero, 2, 5);
    grid->addWidget(label(QStringLiteral("Complemento:")), 3, 0);
    grid->addWidget(m_complemento, 3, 1);
    grid->addWidget(label(QStringLiteral("Bairro:")), 3, 2);
    grid->addWidget(m_bairro, 3, 3);
    grid->addWidget(label(QStringLiteral("CEP:")), 3, 4);
    grid->addWidget(m_cep, 3, 5);
    grid->addWidget(label(QStringLiteral("Município:")), 4, 0);
    grid->addWidget(m_municipio, 4, 1, 1, 3);
    grid->addWidget(label(QStringLiteral("UF:")), 4, 4);
    grid->addWidget(m_uf, 4, 5);
    grid->addWidget(label(QStringLiteral("DDD:")), 5, 0);
    grid->addWidget(m_ddd, 5, 1);
    grid->addWidget(label(QStringLiteral("Telefone:")), 5, 2);
    grid->addWidget(m_telefone, 5, 3);
    grid->addWidget(label(QStringLiteral("Fax:")), 5, 4);
    grid->addWidget(m_fax, 5, 5);
    grid->addWidget(label(QStringLiteral("Correio Eletrônico:")), 6, 0);
    grid->addWidget(m_email, 6, 1, 1, 5);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 2);
    grid->setColumnStretch(5, 1);

    connect(m_municipio, &QComboBox::currentIndexChanged, this, &OwnerPanel::showState);
}

void OwnerPanel::prepare(store::Database& db) {
    QSqlQuery rows =
        db.run(QStringLiteral("Select NMUNCP, DMUNCP, DRESMDMUNCP From MUNCP Order By DMUNCP"));
    while (rows.next())
        m_municipio->addItem(rows.value(1).toString(), rows.value(0));
    m_municipio->setCurrentIndex(-1);
}

void OwnerPanel::showState() {
    const QVariant code = chosenCode(m_municipio);
    if (!code.isValid()) {
        m_uf->clear();
        return;
    }
    // Municipalities from 100 on are those of São Paulo; the numbers below stand for the other
    // states, whose abbreviation the row holds.
    m_uf->setText(code.toInt() >= 100 ? QStringLiteral("SP") : QString());
}

void OwnerPanel::load(store::Database& db, const ui::Session& session, const QString& itanqu,
                      const QVariant& key) {
    QSqlQuery row = db.run(
        QStringLiteral("Select DRAZAOSOCIL, DCONTT, DLOGRD, NLOGRD, DLOGRDCOMPM, DBAIRR, CCEP,"
                       " NMUNCPDISTRFORNC, DMUNCPDISTRFORNC, NDDD, NTELFN, NFAX, DEMAIL From ") +
            m_table + QStringLiteral(" Where NMUNCP = ? And NSEQNC = ? And ITANQU = ? And ") +
            m_keyColumn + QStringLiteral(" = ?"),
        {session.nmuncp, session.nseqnc, itanqu, key});
    if (!row.next()) {
        ui::dialogs().message(QStringLiteral("VOR-Posto"),
                              QStringLiteral("Cadastrar dados do proprietário"),
                              ui::Icon::Critical);
        return;
    }
    m_razaoSocial->setText(row.value(0).toString());
    m_contato->setText(row.value(1).toString());
    m_logradouro->setText(row.value(2).toString());
    m_numero->setText(row.value(3).toString());
    m_complemento->setText(row.value(4).toString());
    m_bairro->setText(row.value(5).toString());
    m_cep->setText(rules::formatDigits(row.value(6), QStringLiteral("00000000")));
    const QVariant municipio = row.value(7);
    QString name = row.value(8).toString();
    QString uf;
    QSqlQuery muncp = db.run(
        QStringLiteral("Select DMUNCP, DRESMDMUNCP From MUNCP Where NMUNCP = ?"), {municipio});
    if (muncp.next()) {
        if (row.value(8).isNull())
            name = muncp.value(0).toString();
        uf = muncp.value(1).toString();
    }
    const int index = m_municipio->findData(municipio);
    if (index >= 0 && m_municipio->itemText(index) == name)
        m_municipio->setCurrentIndex(index);
    else
        chooseText(m_municipio, name);
    m_uf->setText(municipio.toInt() >= 100 ? QStringLiteral("SP") : uf);
    m_ddd->setText(rules::formatDigits(row.value(9), QStringLiteral("0##")));
    m_telefone->setText(phoneText(row.value(10)));
    m_fax->setText(phoneText(row.value(11)));
    m_email->setText(row.value(12).toString());
}

ui::Check OwnerPanel::validate() const {
    using ui::Refusal;
    if (m_razaoSocial->text().isEmpty())
        return Refusal{m_razaoSocial, QStringLiteral("Preenchimento Obrigatório da Razão Social")};
    if (m_contato->text().isEmpty())
        return Refusal{m_contato, QStringLiteral("Preenchimento Obrigatório do Nome para Contato")};
    if (m_logradouro->text().isEmpty())
        return Refusal{m_logradouro, QStringLiteral("Preenchimento Obrigatório do Endereço")};
    if (m_numero->text().isEmpty() && m_complemento->text().isEmpty())
        return Refusal{m_numero,
                       QStringLiteral("Preenchimento Obrigatório do Número ou do Complemento")};
    if (clipText(m_cep).isEmpty())
        return Refusal{m_cep, m_texts.cepRequired};
    if (m_municipio->currentText().isEmpty())
        return Refusal{m_municipio, QStringLiteral("Preenchimento Obrigatório do Município")};
    if (m_ddd->text().isEmpty())
        return Refusal{m_ddd, QStringLiteral("Preenchimento Obrigatório do DDD")};
    if (clipText(m_telefone).isEmpty())
        return Refusal{m_telefone, QStringLiteral("Preenchimento Obrigatório do Telefone")};
    if (tooShortPhone(clipText(m_telefone)))
        return Refusal{m_telefone, QStringLiteral("Preenchimento Incorreto do Telefone.")};
    if (tooShortPhone(clipText(m_fax)))
        return Refusal{m_fax, QStringLiteral("Preenchimento Incorreto do FAX.")};
    return {};
}

ui::Check OwnerPanel::leaveCheck(QWidget* field) {
    using ui::Refusal;
    if (field == m_cep) {
        const QString cep = clipText(m_cep);
        if (cep.isEmpty())
            return Refusal{m_cep, QStringLiteral("Preenchimento Obrigatório do CEP.")};
        if (cep.size() < 8)
            return Refusal{m_cep, m_texts.cepWrongOnLeave};
    } else if (field == m_ddd) {
        const QString ddd = m_ddd->text();
        if (ddd.size() == 1 || (ddd.size() > 1 && ddd.toInt() < 10))
            return Refusal{m_ddd, QStringLiteral("Preenchimento Incorreto do DDD.")};
    } else if (field == m_telefone) {
        if (tooShortPhone(clipText(m_telefone)))
            return Refusal{m_telefone, QStringLiteral("Preenchimento Incorreto do Telefone.")};
    } else if (field == m_fax) {
        if (tooShortPhone(clipText(m_fax)))
            return Refusal{m_fax, QStringLiteral("Preenchimento Incorreto do FAX.")};
    }
    return {};
}

void OwnerPanel::write(store::Database& db, const ui::Session& session, const QString& itanqu,
                       const QVariant& key) const {
    const QVariant municipio = chosenCode(m_municipio);
    db.run(QStringLiteral("Insert Into ") + m_table +
               QStringLiteral(" (NMUNCP, NSEQNC, AINFRM, ITANQU, ") + m_keyColumn +
               QStringLiteral(", DRAZAOSOCIL, DCONTT, DLOGRD, NLOGRD, DLOGRDCOMPM, DBAIRR, CCEP,"
                              " NMUNCPDISTRFORNC, DMUNCPDISTRFORNC, NDDD, NTELFN, NFAX, DEMAIL)"
                              " Values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
           {session.nmuncp, session.nseqnc, session.ainfrm.toString(Qt::ISODate), itanqu, key,
            m_razaoSocial->text(), m_contato->text(), m_logradouro->text(),
            orNull(m_numero->text()), orNull(m_complemento->text()), orNull(m_bairro->text()),
            numberOrNull(clipText(m_cep)), municipio, orNull(m_municipio->currentText()),
            numberOrNull(m_ddd->text()), numberOrNull(clipText(m_telefone)),
            numberOrNull(clipText(m_fax)), orNull(m_email->text())});
}

QList<QWidget*> OwnerPanel::fields() const {
    return {m_razaoSocial, m_contato, m_logradouro, m_numero,   m_complemento, m_bairro, m_cep,
            m_municipio,   m_uf,      m_ddd,        m_telefone, m_fax,         m_email};
}

} // namespace fuel
