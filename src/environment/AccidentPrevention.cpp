#include "environment/AccidentPrevention.h"

#include "environment/FieldRules.h"
#include "store/Database.h"
#include "store/RowWriter.h"
#include "store/SqlValues.h"
#include "ui/BusyCursor.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/FieldSupport.h"
#include "ui/FormParts.h"
#include "ui/Session.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace environment {

namespace {

using ui::FieldKind;

const char* const kTable = "TB_POSTOPREVNACIDN";

// The telephones: a mask of 8 places, stored as the number typed.
struct Phone {
    const char* name;
    const char* column;
    const char* incorrect;
};
const Phone kPhones[] = {
    {"mskNTELFN", "NTELFN", "Preenchimento Incorreto do Número do Telefone."},
    {"mskNCELLR", "NCELLR", "Preenchimento Incorreto do Número do Telefone Celular."},
    {"mskNPAGER", "NPAGER", "Preenchimento Incorreto do Número do Pager."},
    {"mskNTELFNACINM", "NTELFNACINM",
     "Preenchimento Incorreto do Número do Telefone de Acionamento."},
};

} // namespace

AccidentPrevention::AccidentPrevention(ui::ScreenHost& host, ui::Sequence::Place place,
                                       QWidget* parent)
    : ui::FormScreen(host, std::move(place), parent)
    , m_fields(kTable, this) {
    setWindowTitle(QStringLiteral("Prevenção de Acidentes e Atendimentos Emergenciais"));

    m_fra1 = new QGroupBox(QStringLiteral("Sistema de Combate a Incêndios"), this);
    m_fra1->setObjectName(QStringLiteral("fra1"));
    m_picSEQUPEEMERG = new QWidget(this);
    m_picSEQUPEEMERG->setObjectName(QStringLiteral("picSEQUPEEMERG"));
    m_fra2 = new QGroupBox(QStringLiteral("Equipe de Pronto Atendimento à Emergência"), this);
    m_fra2->setObjectName(QStringLiteral("fra2"));
    m_fra3 = new QGroupBox(this);
    m_fra3->setObjectName(QStringLiteral("fra3"));

    // Declared in the order of the checks of Ok.
    m_aaprvc = qobject_cast<QLineEdit*>(
        m_fields.add({.name = QStringLiteral("mskAAPRVC"),
                      .label = QStringLiteral("Data da Aprovação pelo Corpo de Bombeiros : "),
                      .kind = FieldKind::Date,
                      .column = "AAPRVC",
                      .required = QStringLiteral(
                          "Preenchimento Obrigatório da Data da Aprovação pelo Corpo de Bombeiros"),
                      .check = [this] { return approvalDate(); },
                      .leave = [this] { return approvalDate(); }},
                     m_fra1));
    QWidget* team = m_fields.add(
        {.name = QStringLiteral("optSEQUPEEMERG"),
         .label = QStringLiteral("Possui Equipe de Pronto Atendimento à Emergência :"),
         .kind = FieldKind::Choice,
         .column = "SEQUPEEMERG",
         .applies = [] { return true; },
         .check = [this]() -> ui::Check {
             if (!m_fields.value(QStringLiteral("optSEQUPEEMERG")).isNull())
                 return {};
             return ui::Refusal{
                 findChild<QWidget*>(QStringLiteral("optSEQUPEEMERG_1")),
                 QStringLiteral(
                     "Preenchimento Obrigatório de Equipe de Pronto Atendimento à Emergência.")};
         }},
        m_picSEQUPEEMERG);
    m_fields.add(
        {.name = QStringLiteral("txtNAUTOVISTR"),
         .label = QStringLiteral("Nº do Auto de Vistoria :"),
         .kind = FieldKind::Number,
         .column = "NAUTOVISTR",
         .required = QStringLiteral("Preenchimento Obrigatório do Número do Auto de Vistoria."),
         .length = 9},
        m_fra1);
    m_aautovistr = qobject_cast<QLineEdit*>(
        m_fields.add({.name = QStringLiteral("mskAAUTOVISTR"),
                      .label = QStringLiteral("Validade :"),
                      .kind = FieldKind::Date,
                      .column = "AAUTOVISTR",
                      .required = QStringLiteral("Preenchimento Obrigatório da Validade"),
                      .check = [this] { return validityDate(); },
                      .leave = [this] { return validityDate(); }},
                     m_fra1));
    const auto box = [this](const char* name, const char* caption, const char* column) {
        return qobject_cast<QCheckBox*>(m_fields.add({.name = QString::fromLatin1(name),
                                                      .label = QString::fromUtf8(caption),
                                                      .kind = FieldKind::Check,
                                                      .column = column,
                                                      .codes = "SEQUPEEMERG"},
                                                     m_fra2));
    };
    m_propr = box("chkSEQUPEEMERGPROPR", "Própria", "SEQUPEEMERGPROPR");
    m_tercr = box("chkSEQUPEEMERGTERCR", "Terceirizada", "SEQUPEEMERGTERCR");
    m_distr = box("chkSEQUPEEMERGDISTR", "Companhia Distribuidora", "SEQUPEEMERGDISTR");

    // The outside firm counts only for a team with "Terceirizada" ticked.
    const auto firm = [this] { return hasTeam() && outsourced(); };
    const auto text = [&](const char* name, const char* label, const char* column,
                          const char* required) {
        m_fields.add({.name = QString::fromLatin1(name),
                      .label = QString::fromUtf8(label),
                      .column = column,
                      .required = QString::fromUtf8(required),
                      .length = 50,
                      .applies = firm},
                     m_fra3);
    };
    text("txtDRAZAOSOCIL", "Empresa  :", "DRAZAOSOCIL", "Preenchimento Obrigatório da Empresa.");
    text("txtDCONTT", "Contato :", "DCONTT", "Preenchimento Obrigatório do Contato.");
    text("txtDCARGO", "Cargo :", "DCARGO", "Preenchimento Obrigatório do Cargo.");
    const auto ddd = [&](const char* name, const char* label, const char* column,
                         const char* required, const char* incorrect) {
        const QString name_ = QString::fromLatin1(name);
        const QString incorrect_ = QString::fromUtf8(incorrect);
        m_fields.add({.name = name_,
                      .label = QString::fromUtf8(label),
                      .kind = FieldKind::Number,
                      .column = column,
                      .required = QString::fromUtf8(required),
                      .applies = firm,
                      .leave = [this, name_,
                                incorrect_] { return leaveDdd(m_fields.edit(name_), incorrect_); }},
                     m_fra3);
    };
    const auto phone = [&](const Phone& p, const char* label, const char* required) {
        const QString name = QString::fromLatin1(p.name);
        const QString incorrect = QString::fromUtf8(p.incorrect);
        auto* edit = ui::lineEdit(name, m_fra3);
        ui::attachMask(edit, ui::Mask::Telephone);
        // Not a column of the set: a telephone is stored as the digits of its mask.
        const QString required_ = QString::fromUtf8(required);
        m_fields.add({.name = name,
                      .label = QString::fromUtf8(label),
                      .kind = FieldKind::Text,
                      .applies = firm,
                      .check = [this, name, incorrect, required_]() -> ui::Check {
                          QLineEdit* edit = m_fields.edit(name);
                          if (!required_.isEmpty() && ui::clipText(edit).isEmpty())
                              return ui::Refusal{edit, required_};
                          return leavePhone(edit, incorrect);
                      },
                      .leave = [this, name,
                                incorrect] { return leavePhone(m_fields.edit(name), incorrect); }},
                     m_fra3);
        m_phones << edit;
    };
    ddd("txtNDDD", "Tel. Com. :", "NDDD", "Preenchimento Obrigatório do DDD.",
        "Preenchimento Incorreto do Número de DDD da Empresa de Emergência Terceirizada");
    phone(kPhones[0], "", "Preenchimento Obrigatório do Telefone.");
    phone(kPhones[1], "Celular:", "");
    phone(kPhones[2], "Pager Cod.:", "");
    ddd("txtNDDDACINM", "Tel. Acionamento:", "NDDDACINM", "",
        "Preenchimento Incorreto do DDD de Acionamento da Empresa de Emergência Terceirizada");
    phone(kPhones[3], "", "");

    // fra1: the approval and the inspection.
    auto* fire = new QGridLayout(m_fra1);
    m_fields.place(fire, 0, 0, QStringLiteral("mskAAPRVC"));
    m_fields.place(fire, 1, 0, QStringLiteral("txtNAUTOVISTR"));
    m_fields.place(fire, 1, 2, QStringLiteral("mskAAUTOVISTR"));
    fire->setColumnStretch(4, 1);
    // picSEQUPEEMERG: the question and its two answers.
    auto* question = new QHBoxLayout(m_picSEQUPEEMERG);
    question->setContentsMargins(0, 0, 0, 0);
    auto* questionLabel = new QLabel(
        QStringLiteral("Possui Equipe de Pronto Atendimento à Emergência :"), m_picSEQUPEEMERG);
    questionLabel->setBuddy(findChild<QWidget*>(QStringLiteral("optSEQUPEEMERG_0")));
    question->addWidget(questionLabel);
    question->addWidget(team);
    question->addStretch(1);
    // fra2: the three kinds of team.
    auto* kinds = new QHBoxLayout(m_fra2);
    for (QCheckBox* b : {m_propr, m_tercr, m_distr})
        kinds->addWidget(b);
    kinds->addStretch(1);
    // fra3: the outside firm.
    auto* outside = new QGridLayout(m_fra3);
    m_fields.place(outside, 0, 0, QStringLiteral("txtDRAZAOSOCIL"), 3);
    m_fields.place(outside, 1, 0, QStringLiteral("txtDCONTT"), 3);
    m_fields.place(outside, 2, 0, QStringLiteral("txtDCARGO"), 3);
    m_fields.place(outside, 3, 0, QStringLiteral("txtNDDD"));
    outside->addWidget(m_phones.at(0), 3, 2);
    m_fields.place(outside, 4, 0, QStringLiteral("mskNCELLR"));
    m_fields.place(outside, 4, 2, QStringLiteral("mskNPAGER"));
    m_fields.place(outside, 5, 0, QStringLiteral("txtNDDDACINM"));
    outside->addWidget(m_phones.at(3), 5, 2);
    for (const QString& name : {QStringLiteral("txtNDDD"), QStringLiteral("txtNDDDACINM")})
        m_fields.widget(name)->setMaximumWidth(50);
    for (QLineEdit* p : std::as_const(m_phones))
        p->setMaximumWidth(90);
    outside->setColumnStretch(4, 1);
    // The telephone of a DDD is named by the DDD's label.
    m_phones.at(0)->setAccessibleName(QStringLiteral("Tel. Com. :"));
    m_phones.at(3)->setAccessibleName(QStringLiteral("Tel. Acionamento:"));

    for (QWidget* frame : {static_cast<QWidget*>(m_fra1), m_picSEQUPEEMERG,
                           static_cast<QWidget*>(m_fra2), static_cast<QWidget*>(m_fra3)}) {
        frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        body()->addWidget(frame);
    }
    body()->addStretch(1);

    // The screen's order: approval, inspection, validity, the question, the team, the firm.
    const QList<QWidget*> order = {
        m_aaprvc,
        m_fields.widget(QStringLiteral("txtNAUTOVISTR")),
        m_aautovistr,
        findChild<QWidget*>(QStringLiteral("optSEQUPEEMERG_0")),
        findChild<QWidget*>(QStringLiteral("optSEQUPEEMERG_1")),
        m_propr,
        m_tercr,
        m_distr,
        m_fields.widget(QStringLiteral("txtDRAZAOSOCIL")),
        m_fields.widget(QStringLiteral("txtDCONTT")),
        m_fields.widget(QStringLiteral("txtDCARGO")),
        m_fields.widget(QStringLiteral("txtNDDD")),
        m_phones.at(0),
        m_phones.at(1),
        m_phones.at(2),
        m_fields.widget(QStringLiteral("txtNDDDACINM")),
        m_phones.at(3),
    };
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));

    m_excluir = new QPushButton(QStringLiteral("&Excluir"), this);
    m_excluir->setObjectName(QStringLiteral("cmdExcluir"));
    m_excluir->setFocusPolicy(Qt::TabFocus);
    operationButtons()->insertWidget(2, m_excluir);
    // A button of the frame as it has always been drawn, with nothing behind it.
    auto* command6 = new QPushButton(QStringLiteral("&Excluir"), this);
    command6->setObjectName(QStringLiteral("Command6"));
    command6->setFocusPolicy(Qt::TabFocus);
    operationButtons()->addWidget(command6);

    connect(m_excluir, &QPushButton::clicked, this, &AccidentPrevention::remove);
    for (QObject* option : team->children()) {
        if (auto* radio = qobject_cast<QRadioButton*>(option))
            connect(radio, &QRadioButton::clicked, this, &AccidentPrevention::teamAnswered);
    }
    for (QCheckBox* b : {m_propr, m_tercr, m_distr})
        connect(b, &QCheckBox::clicked, this, [this, b] { boxTicked(b); });
}

bool AccidentPrevention::hasTeam() const {
    return m_fields.value(QStringLiteral("optSEQUPEEMERG")).toInt() == -1;
}

bool AccidentPrevention::outsourced() const {
    return m_tercr->isChecked();
}

void AccidentPrevention::load() {
    m_fields.clear();
    m_fra2->hide();
    m_fra3->hide();
    const std::optional<store::Row> row = store::readRow(database(), kTable, session().keyRow());
    if (!row)
        return;
    m_fields.load(*row);
    // A stored 0 is "Não"; anything else, even nothing, is "Sim".
    const bool no = !row->value(QStringLiteral("SEQUPEEMERG")).isNull() &&
                    row->value(QStringLiteral("SEQUPEEMERG")).toInt() == 0;
    findChild<QRadioButton*>(no ? QStringLiteral("optSEQUPEEMERG_1")
                                : QStringLiteral("optSEQUPEEMERG_0"))
        ->setChecked(true);
    for (const Phone& p : kPhones) {
        const QVariant number = row->value(QString::fromLatin1(p.column));
        ui::setClipText(findChild<QLineEdit*>(QString::fromLatin1(p.name)),
                        number.isNull() ? QString() : QString::number(number.toLongLong()));
    }
    m_fra2->setVisible(!no);
    m_fra3->setVisible(!no && outsourced());
}

bool AccidentPrevention::stored() const {
    return store::rowExists(database(), kTable, session().keyRow());
}

void AccidentPrevention::setEditable(bool editable) {
    m_fra1->setEnabled(editable);
    m_picSEQUPEEMERG->setEnabled(editable);
    m_fra2->setEnabled(false);
    m_fra3->setEnabled(false);
    bool completed = false;
    if (!editable)
        ui::runGuarded([&] { completed = stored(); });
    m_excluir->setEnabled(completed);
}

QWidget* AccidentPrevention::beginEdit() {
    if (operation() == ui::kAlterar) {
        m_fra2->setEnabled(!m_fra2->isHidden());
        m_fra3->setEnabled(!m_fra3->isHidden());
    }
    return m_aaprvc;
}

QString AccidentPrevention::savedMessage() const {
    return operation() == ui::kIncluir ? QStringLiteral("Incluído com Sucesso.")
                                       : QStringLiteral("Alterado com Sucesso.");
}

void AccidentPrevention::teamAnswered() {
    const bool yes = hasTeam();
    m_fra2->setVisible(yes);
    m_fra2->setEnabled(yes);
}

void AccidentPrevention::boxTicked(QCheckBox* box) {
    if (!box->isChecked())
        return;
    for (QCheckBox* other : {m_propr, m_tercr, m_distr}) {
        if (other != box)
            other->setChecked(false);
    }
    const bool firm = box == m_tercr;
    m_fra3->setVisible(firm);
    m_fra3->setEnabled(firm);
}

ui::Check AccidentPrevention::approvalDate() const {
    if (ui::Check refused = leaveDate(
            m_aaprvc,
            QStringLiteral("Preenchimento Incorreto da Data da Aprovação pelo Corpo de Bombeiros"),
            QStringLiteral("Preenchimento Incorreto da Aprovação pelo Corpo de Bombeiros")))
        return refused;
    const QDate approval = ui::dateOf(m_aaprvc);
    if (approval.isValid() && approval > QDate::currentDate()) {
        ui::clearMasked(m_aaprvc);
        return ui::Refusal{m_aaprvc, QStringLiteral("Data da Aprovação pelo Corpo de Bombeiros não "
                                                    "deve ser maior que a Data Atual.")};
    }
    return {};
}

ui::Check AccidentPrevention::validityDate() const {
    if (ui::Check refused =
            leaveDate(m_aautovistr, QStringLiteral("Preenchimento Incorreto da Data de Validade."),
                      QStringLiteral("Preenchimento Incorreto da Data de Validade")))
        return refused;
    const QDate validity = ui::dateOf(m_aautovistr);
    const QDate approval = ui::dateOf(m_aaprvc);
    if (validity.isValid() && approval.isValid() && validity < approval) {
        ui::clearMasked(m_aautovistr);
        return ui::Refusal{m_aautovistr,
                           QStringLiteral("Data de Validade Deve Ser Maior ou Igual a Data da "
                                          "Aprovação pelo Corpo de Bombeiros.")};
    }
    return {};
}

ui::Check AccidentPrevention::teamChosen() const {
    if (hasTeam() && !outsourced() && !m_propr->isChecked() && !m_distr->isChecked())
        return ui::Refusal{m_propr,
                           QStringLiteral("Preenchimento Obrigatório da Equipe de Emergência")};
    return {};
}

ui::Check AccidentPrevention::validate() {
    if (ui::Check refused = m_fields.validate())
        return refused;
    if (ui::Check refused = callNumber())
        return refused;
    return teamChosen();
}

ui::Check AccidentPrevention::callNumber() const {
    if (!hasTeam() || !outsourced())
        return {};
    QLineEdit* ddd = m_fields.edit(QStringLiteral("txtNDDDACINM"));
    const bool number = !ui::clipText(m_phones.at(3)).isEmpty();
    if (!ddd->text().isEmpty() && !number)
        return ui::Refusal{m_phones.at(3),
                           QStringLiteral("Preenchimento Obrigatório do Telefone de Acionamento.")};
    if (ddd->text().isEmpty() && number)
        return ui::Refusal{ddd, QStringLiteral("Preenchimento Obrigatório do DDD de Acionamento")};
    return {};
}

ui::Check AccidentPrevention::leaveCheck(QWidget* field) {
    return m_fields.leave(field);
}

void AccidentPrevention::write(store::Database& db) {
    store::deleteRows(db, kTable, session().keyRow());
    store::Row row = session().newRow();
    row.insert(m_fields.values());
    for (const Phone& p : kPhones) {
        const QString digits = ui::clipText(findChild<QLineEdit*>(QString::fromLatin1(p.name)));
        row.insert(QString::fromLatin1(p.column),
                   digits.isEmpty() ? store::nullValue() : QVariant(digits.toLongLong()));
    }
    store::insertRow(db, kTable, row);
}

void AccidentPrevention::remove() {
    if (!ui::dialogs().ask(ui::kTitle, QStringLiteral("Deseja Excluir os Itens?."),
                           ui::Icon::Question, false))
        return;
    {
        ui::BusyCursor busy;
        ui::runGuarded([&] {
            store::Transaction transaction(database());
            store::deleteRows(database(), kTable, session().keyRow());
            transaction.commit();
        });
    }
    enter();
}

} // namespace environment
