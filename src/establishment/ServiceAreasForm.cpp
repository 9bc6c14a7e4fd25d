#include "establishment/ServiceAreasForm.h"

#include "store/Database.h"
#include "store/RowWriter.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/Session.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>

namespace establishment {

namespace {

using ui::Check;
using ui::Field;
using ui::FieldKind;
using ui::Refusal;

struct Paving {
    const char* column;
    const char* caption;
};
const Paving kPaving[] = {{"SSEMPAVMN", "S/Pavimento"}, {"SCONCR", "Concreto"},
                          {"SASFLT", "Asfalto"},        {"SBLOCR", "Blocrete"},
                          {"SPARLL", "Paralelepípedo"}, {"SOUTRO", "Outros"}};

struct QuestionText {
    const char* column;
    const char* label;
    const char* required;
    int dependsOn; // index of the question whose "Sim" shows this one, or -1
};

struct AreaText {
    const char* table;
    const char* caption;
    const char* frame;
    const char* prefix; // of the paving boxes: chkS..., chkTrocaS..., chkLavagS..., chkDescarS...
    const char* optionPrefix;
    bool unpaved; // whether the area may have no pavement
    std::vector<QuestionText> questions;
    const char* deleteQuestion;
};

const std::vector<AreaText>& areaTexts() {
    static const std::vector<AreaText> texts = {
        {"TB_POSTOAREAABAST",
         "Área Operacional",
         "fra1",
         "chk",
         "opt",
         true,
         {{"SDRENG", "Área de Operação c/ Canaletas de Drenagem :",
           "Preenchimento Obrigatório da Opção Área de Operação c/ Canaletas de Drenagem.", -1},
          {"SDRENGSAO", "Interligadas ao S.A.O : ",
           "Preenchimento Obrigatório da Opção Interligadas ao S.A.O.", 0},
          {"SDRENGDEMAS", "Demais Áreas  c/ Canaletas de Drenagem :",
           "Preenchimento Obrigatório da Opção Demais Áreas  c/ Canaletas de Drenagem.", -1},
          {"SDRENGDEMASSAO", "Interligadas ao S.A.O : ",
           "Preenchimento Obrigatório da Opção Interligadas ao S.A.O.", 2}},
         "Deseja Excluir os Ítens de Área Operacional?."},
        {"TB_POSTOAREATROCAOLEO",
         "Troca de Óleo",
         "fra2",
         "chkTroca",
         "optTroca",
         true,
         {},
         "Deseja Excluir os Ítens de Troca de Óleo?."},
        {"TB_POSTOAREALAVAGEM",
         "Lavagem de Veículos",
         "fra3",
         "chkLavag",
         "optLavag",
         true,
         {{"SCOLTAAGUASERVD", "Coleta de Águas Servidas :",
           "Preenchimento Obrigatório da Opção Coleta de Águas Servidas.", -1},
          {"SCAIXARETNCSOLDO", "Caixa de Retenção de Sólidos : ",
           "Preenchimento Obrigatório da Opção Caixa de Retenção de Sólidos.", 0},
          {"SSAO", "Interligadas ao S.A.O. :",
           "Preenchimento Obrigatório da Opção Interligadas ao S.A.O.", 0},
          {"SSAOPROPR", "S.A.O. Próprio :", "Preenchimento Obrigatório da Opção S.A.O. Próprio.",
           2},
          {"SSAOPISTA", "S.A.O. da Pista :", "Preenchimento Obrigatório da Opção S.A.O. da Pista.",
           2}},
         "Deseja Excluir os Ítens de Lavagem de Veículos?."},
        {"TB_POSTOAREADESCARGA",
         "Área de Descarga",
         "fra4",
         "chkDescar",
         "optDescar",
         false,
         {{"SDRENG", "Área de Descarga c/ Canaletas de Drenagem :",
           "Preenchimento Obrigatório da Opção Área de Descarga c/ Canaletas de Drenagem.", -1},
          {"SDRENGSAO", "Interligadas ao S.A.O. :",
           "Preenchimento Obrigatório da Opção Interligadas ao S.A.O.", 0}},
         "Deseja Excluir os Ítens de Área de Descarga?."},
    };
    return texts;
}

QString latin(const char* text) {
    return QString::fromLatin1(text);
}

const QString kSimNao = QStringLiteral("SIMNAO.LOGICO");

} // namespace

struct ServiceAreasForm::Question {
    QString name;           // optSDRENG ...
    QWidget* box = nullptr; // the row of the question: picSDRENGSAO for a dependent one
    int dependsOn = -1;
};

struct ServiceAreasForm::Area {
    Area(const AreaText& t, QWidget* owner)
        : text(t)
        , fields(t.table, owner) {}
    const AreaText& text;
    ui::FieldSet fields;
    QGroupBox* frame = nullptr;
    QStringList paving; // names of the paving boxes
    std::vector<Question> questions;
};

ServiceAreasForm::ServiceAreasForm(ui::ScreenHost& host, const ui::Sequence::Place& place,
                                   QWidget* parent)
    : ui::FormScreen(host, place, parent) {
    setWindowTitle(QStringLiteral("Áreas de Serviços"));
    m_choice = new QWidget(this);
    m_choice->setObjectName(QStringLiteral("picOperacao"));
    auto* row = new QHBoxLayout(m_choice);
    row->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 4; ++i) {
        m_options[i] =
            new QRadioButton(QString::fromUtf8(areaTexts()[std::size_t(i)].caption), m_choice);
        m_options[i]->setObjectName(QStringLiteral("optOperacao_%1").arg(i));
        row->addWidget(m_options[i]);
        connect(m_options[i], &QRadioButton::clicked, this, [this, i] { choose(i); });
    }
    row->addStretch(1);
    m_options[0]->setChecked(true);
    body()->addWidget(m_choice);
    // The areas' frames lie on one another: the chosen one is in front.
    for (int i = 0; i < 4; ++i) {
        buildArea(i);
        body()->addWidget(m_areas.back()->frame);
        m_areas.back()->frame->setVisible(i == 0);
    }
    body()->addStretch(1);
    addExcluir();
}

ServiceAreasForm::~ServiceAreasForm() = default;

void ServiceAreasForm::buildArea(int index) {
    const AreaText& t = areaTexts()[std::size_t(index)];
    auto area = std::make_unique<Area>(t, this);
    area->frame = new QGroupBox(QString::fromUtf8(t.caption), this);
    area->frame->setObjectName(latin(t.frame));
    auto* layout = new QGridLayout(area->frame);
    layout->setVerticalSpacing(2);
    int place = 0;
    for (const Paving& p : kPaving) {
        if (!t.unpaved && QLatin1String(p.column) == QLatin1String("SSEMPAVMN"))
            continue;
        const QString name = latin(t.prefix) + latin(p.column);
        QWidget* box = area->fields.add({.name = name,
                                         .label = QString::fromUtf8(p.caption),
                                         .kind = FieldKind::Check,
                                         .column = p.column},
                                        area->frame);
        layout->addWidget(box, place / 3, place % 3);
        area->paving << name;
        ++place;
    }
    int line = 2;
    for (const QuestionText& q : t.questions) {
        Question question;
        question.name = latin(t.optionPrefix) + latin(q.column);
        question.dependsOn = q.dependsOn;
        question.box = new QWidget(area->frame);
        if (q.dependsOn >= 0)
            question.box->setObjectName(QStringLiteral("pic") + question.name.mid(3));
        auto* rowLayout = new QHBoxLayout(question.box);
        rowLayout->setContentsMargins(q.dependsOn >= 0 ? 16 : 0, 0, 0, 0);
        auto* label = new QLabel(QString::fromUtf8(q.label), question.box);
        rowLayout->addWidget(label);
        QWidget* pair = area->fields.add({.name = question.name,
                                          .label = QString::fromUtf8(q.label).trimmed(),
                                          .kind = FieldKind::Choice,
                                          .column = q.column,
                                          .required = QString::fromUtf8(q.required),
                                          .codes = "SIMNAO.LOGICO"},
                                         question.box);
        rowLayout->addWidget(pair);
        label->setBuddy(pair);
        layout->addWidget(question.box, ++line, 0, 1, 3);
        area->questions.push_back(question);
    }
    Area* a = area.get();
    for (const Question& question : a->questions) {
        for (QAbstractButton* option :
             a->fields.widget(question.name)->findChildren<QAbstractButton*>())
            connect(option, &QAbstractButton::toggled, this, [this, a, name = question.name] {
                for (const Question& q : a->questions) {
                    if (q.name == name)
                        answered(*a, q);
                }
            });
    }
    m_areas.push_back(std::move(area));
}

int ServiceAreasForm::area() const {
    for (int i = 0; i < 4; ++i) {
        if (m_options[i]->isChecked())
            return i;
    }
    return 0;
}

// A question's "Sim" shows the questions that depend on it; anything else hides them and clears
// their answers, and with them the answers that depend on those.
void ServiceAreasForm::answered(const Area& area, const Question& question) {
    const bool yes = area.fields.value(question.name).toInt() == -1;
    const int index = int(&question - area.questions.data());
    for (const Question& dependent : area.questions) {
        if (dependent.dependsOn != index)
            continue;
        const bool asked = question.box->isVisibleTo(area.frame);
        dependent.box->setVisible(yes && asked);
        if (!yes || !asked) {
            for (QAbstractButton* option :
                 area.fields.widget(dependent.name)->findChildren<QAbstractButton*>()) {
                option->setAutoExclusive(false);
                option->setChecked(false);
                option->setAutoExclusive(true);
            }
            answered(area, dependent);
        }
    }
}

void ServiceAreasForm::loadArea(Area& area) {
    area.fields.clear();
    for (const Question& q : area.questions) {
        if (q.dependsOn >= 0)
            q.box->hide();
    }
    std::optional<store::Row> row = store::readRow(database(), area.text.table, session().keyRow());
    if (!row)
        return;
    // -1 answers "Sim"; any other value, "Não".
    for (const Question& q : area.questions) {
        const QString column = area.fields.field(q.name).column.data();
        if (row->value(column).toInt() != -1)
            row->insert(column, 0);
    }
    area.fields.load(*row);
}

void ServiceAreasForm::load() {
    // In this order, so that every area's presence is known.
    for (int index : {TrocaOleo, Lavagem, Descarga, Operacional})
        loadArea(*m_areas[std::size_t(index)]);
}

void ServiceAreasForm::choose(int index) {
    for (int i = 0; i < 4; ++i)
        m_areas[std::size_t(i)]->frame->setVisible(i == index);
    ui::runGuarded([&] { loadArea(*m_areas[std::size_t(index)]); });
    showReading();
}

bool ServiceAreasForm::filled(int index) const {
    return store::rowExists(database(), areaTexts()[std::size_t(index)].table, session().keyRow());
}

bool ServiceAreasForm::stored() const {
    return filled(area());
}

void ServiceAreasForm::setEditable(bool editable) {
    // The area cannot change during an edit.
    m_choice->setEnabled(!editable);
    for (int i = 0; i < 4; ++i)
        m_areas[std::size_t(i)]->frame->setEnabled(editable && i == area());
}

QWidget* ServiceAreasForm::beginEdit() {
    const Area& a = *m_areas[std::size_t(area())];
    return a.fields.widget(a.paving.first());
}

ui::Check ServiceAreasForm::validate() {
    const Area& a = *m_areas[std::size_t(area())];
    bool paved = false;
    for (const QString& name : a.paving)
        paved = paved || a.fields.value(name).toInt() != 0;
    if (!paved)
        return Refusal{a.fields.widget(a.paving.first()),
                       QStringLiteral("Seleção Obrigatório de Pelo Menos Um Tipo de Pavimento.")};
    return a.fields.validate();
}

void ServiceAreasForm::write(store::Database& db) {
    const Area& a = *m_areas[std::size_t(area())];
    store::Row row = session().newRow();
    const store::Row values = a.fields.values();
    for (auto it = values.begin(); it != values.end(); ++it)
        row.insert(it.key(), it.value().isNull() ? QVariant(0) : it.value());
    store::deleteRows(db, a.text.table, session().keyRow());
    store::insertRow(db, a.text.table, row);
}

void ServiceAreasForm::remove() {
    Area& a = *m_areas[std::size_t(area())];
    if (!ui::dialogs().ask(ui::kTitle, QString::fromUtf8(a.text.deleteQuestion), ui::Icon::Question,
                           false))
        return;
    const bool done = ui::runGuarded([&] {
        store::Transaction transaction(database());
        store::deleteRows(database(), a.text.table, session().keyRow());
        transaction.commit();
    });
    if (!done)
        return;
    ui::dialogs().message(ui::kTitle, QStringLiteral("Excluído com Sucesso."),
                          ui::Icon::Information);
    choose(area());
}

bool ServiceAreasForm::mayLeave() {
    bool abast = false;
    bool descarga = false;
    bool any = false;
    if (!ui::runGuarded([&] {
            abast = filled(Operacional);
            descarga = filled(Descarga);
            any = abast || descarga || filled(TrocaOleo) || filled(Lavagem);
        }))
        return false;
    if ((abast && descarga) || !any)
        return true;
    const int missing = abast ? Descarga : Operacional;
    ui::dialogs().message(ui::kTitle,
                          abast ? QStringLiteral("Preenchimento Obrigatório dos Dados da Área de "
                                                 "Descarga")
                                : QStringLiteral("Preenchimento Obrigatório dos Dados da Área "
                                                 "Operacional"),
                          ui::Icon::Information);
    m_options[missing]->setChecked(true);
    choose(missing);
    return false;
}

} // namespace establishment
