#include "establishment/CharacteristicsForm.h"

#include "store/CodeLists.h"
#include "store/Database.h"
#include "ui/FieldBehaviour.h"
#include "ui/Session.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlQuery>

namespace establishment {

namespace {

using ui::Check;
using ui::Field;
using ui::FieldKind;
using ui::Refusal;

const QString kTerreno = QStringLiteral("txtQAREATERRN");
const QString kConstruida = QStringLiteral("txtQAREACONST");
const QString kArLivre = QStringLiteral("txtQAREAARLIVRE");
const QString kAdministracao = QStringLiteral("txtQFUNCNADMNS");
const QString kOperacao = QStringLiteral("txtQFUNCNOPERC");
const QString kHoras = QStringLiteral("txtNHORASJORNDDIA");
const QString kDiasMes = QStringLiteral("txtNDIASJORNDMES");
const QString kDiasAno = QStringLiteral("txtNDOASJORNDANO");
const QString kInicio = QStringLiteral("mskHINICIFUNCM");
const QString kTermino = QStringLiteral("mskHTERMNFUNCM");
const QString kClasse = QStringLiteral("optClasse");
const QString kZona = QStringLiteral("optLocAtiv");
const QString kOutros = QStringLiteral("txtDCOMRCSERVC");

// The value of a number or decimal field as the checks compare it; an empty field is 0.
double valueOf(const QLineEdit* edit) {
    QString text = edit->text().trimmed();
    return text.replace(QLatin1Char(','), QLatin1Char('.')).toDouble();
}

// The numbers that show empty when they are 0.
const char* const kBlankWhenZero[] = {"QAREATERRN",    "QAREACONST",   "QAREAARLIVRE",
                                      "QFUNCNADMNS",   "QFUNCNOPERC",  "NHORASJORNDDIA",
                                      "NDIASJORNDMES", "NDIASJORNDANO"};

// A whole-number field of the working days and hours: a value over its limit, or a value of 0,
// is refused on leaving it; an empty field is left to the validation.
Check dayLimit(QLineEdit* edit, int limit, const QString& incorrect, const QString& required) {
    if (edit->text().isEmpty())
        return {};
    const double value = valueOf(edit);
    if (value > limit)
        return Refusal{edit, incorrect};
    if (value == 0)
        return Refusal{edit, required};
    return {};
}

// A time of the working hours on leaving it: empty passes; otherwise four digits, hours up to
// 23 and minutes up to 59.
Check workingTime(QLineEdit* edit) {
    const QString digits = ui::clipText(edit);
    if (digits.isEmpty())
        return {};
    if (digits.size() < 4 || digits.left(2).toInt() > 23 || digits.mid(2, 2).toInt() > 59)
        return Refusal{edit,
                       QStringLiteral("Preenchimento Incorreto do Horário de Funcionamento.")};
    return {};
}

QGroupBox* frame(const QString& name, const QString& title, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    box->setObjectName(name);
    return box;
}

} // namespace

CharacteristicsForm::CharacteristicsForm(ui::ScreenHost& host, const ui::Sequence::Place& place,
                                         QWidget* parent)
    : ui::FormScreen(host, place, parent)
    , m_post("TB_POSTO", this)
    , m_commerce("TB_POSTOCOMRCSERVC", this) {
    setWindowTitle(QStringLiteral("Características Gerais"));
    build();
    // The third button of the frame, as it was always drawn: the row goes only with the register.
    auto* excluir = new QPushButton(QStringLiteral("&Excluir"), this);
    excluir->setObjectName(QStringLiteral("Command6"));
    excluir->setFocusPolicy(Qt::TabFocus);
    operationButtons()->insertWidget(2, excluir);
}

void CharacteristicsForm::declareFields() {
    const auto area = [](const QString& name, const char* label, std::string_view column,
                         const char* required) {
        return Field{.name = name,
                     .label = QString::fromUtf8(label),
                     .kind = FieldKind::Decimal,
                     .column = column,
                     .required = QString::fromUtf8(required),
                     .length = 8};
    };
    const auto number = [](const QString& name, const char* label, std::string_view column,
                           int length) {
        return Field{.name = name,
                     .label = QString::fromUtf8(label),
                     .kind = FieldKind::Number,
                     .column = column,
                     .length = length};
    };
    // Declared in the order of the validation.
    Field terreno = area(kTerreno, "Total do Terreno : ", "QAREATERRN",
                         "Preenchimento Obrigatório da Área Total do Terreno.");
    terreno.leave = [this]() -> Check {
        if (edit(kTerreno)->text().trimmed().isEmpty() || valueOf(edit(kTerreno)) == 0)
            return Refusal{edit(kTerreno),
                           QStringLiteral("Preenchimento Obrigatório da Área Total do Terreno")};
        return {};
    };
    m_post.add(terreno);
    m_post.add(area(kConstruida, "Construída : ", "QAREACONST",
                    "Preenchimento Obrigatório da Área Construída."));
    Field livre = area(kArLivre, "Atividade ao Ar Livre : ", "QAREAARLIVRE",
                       "Preenchimento Obrigatório da Área de Atividade ao Ar Livre.");
    // The built area is compared with nothing: it may exceed the plot.
    livre.check = [this]() -> Check {
        if (valueOf(edit(kTerreno)) < valueOf(edit(kArLivre)))
            return Refusal{
                edit(kArLivre),
                QStringLiteral("A Área Livre não deve ser maior que a Área do Terreno.")};
        return {};
    };
    m_post.add(livre);

    const auto journey = [&](const QString& name, const char* label, std::string_view column,
                             int length, int limit, const char* required, const char* over,
                             const char* leaveIncorrect, const char* leaveRequired) {
        Field field = number(name, label, column, length);
        field.required = QString::fromUtf8(required);
        field.check = [this, name, limit, over]() -> Check {
            if (valueOf(edit(name)) > limit)
                return Refusal{edit(name), QString::fromUtf8(over)};
            return {};
        };
        field.leave = [this, name, limit, leaveIncorrect, leaveRequired] {
            return dayLimit(edit(name), limit, QString::fromUtf8(leaveIncorrect),
                            QString::fromUtf8(leaveRequired));
        };
        m_post.add(field);
    };
    journey(kHoras, "HORAS/DIA", "NHORASJORNDDIA", 2, 24,
            "Preenchimento Obrigatório do Número de Horas de Jornada de Trabalho por Dia.",
            "Número de Horas de Jornada de Trabalho por Dia não pode ser maior que 24.",
            "Preenchimento Incorreto do Número de Horas de Jornada de Trabalho.",
            "Preenchimento Obrigatório do Número de Horas de Jornada de Trabalho.");
    journey(kDiasMes, "DIAS/MÊS", "NDIASJORNDMES", 2, 31,
            "Preenchimento Obrigatório do Número de Dias de Jornada de Trabalho por Mês.",
            "Número de Dias de Jornada de Trabalho por Mês não pode ser maior que 31.",
            "Preenchimento Incorreto do Número de Dias de Jornada de Trabalho por Mês.",
            "Preenchimento Obrigatório do Número de Dias de Jornada de Trabalho por Mês.");
    journey(kDiasAno, "DIAS/ANO", "NDIASJORNDANO", 3, 365,
            "Preenchimento Obrigatório do Número de Dias de Jornada de Trabalho por Ano.",
            "Número de Dias de Jornada de Trabalho por Ano não pode ser maior que 365.",
            "Preenchimento Incorreto do Número de Dias de Jornada de Trabalho por Ano.",
            "Preenchimento Obrigatório do Número de Dias de Jornada de Trabalho por Ano.");

    m_post.add(
        {.name = kInicio,
         .label = QStringLiteral("Das"),
         .kind = FieldKind::Time,
         .column = "HINICIFUNCM",
         .required = QStringLiteral("Preenchimento Obrigatório da Hora Início de Funcionamento."),
         .leave = [this] { return workingTime(edit(kInicio)); }});
    m_post.add(
        {.name = kTermino,
         .label = QStringLiteral("às"),
         .kind = FieldKind::Time,
         .column = "HTERMNFUNCM",
         .required = QStringLiteral("Preenchimento Obrigatório da Hora Término de Funcionamento."),
         .leave = [this] { return workingTime(edit(kTermino)); }});

    // One of the two staff numbers is enough; leaving either shows the total, but only when the
    // administration's number is filled, as it always did.
    Field administracao = number(kAdministracao, "Administração : ", "QFUNCNADMNS", 4);
    administracao.check = [this]() -> Check {
        if (edit(kAdministracao)->text().isEmpty() && edit(kOperacao)->text().isEmpty())
            return Refusal{
                edit(kAdministracao),
                QStringLiteral(
                    "Preenchimento Obrigatório do Número de Funcionários Administrativos.")};
        return {};
    };
    administracao.leave = [this]() -> Check {
        showTotal();
        return {};
    };
    m_post.add(administracao);
    Field operacao = number(kOperacao, "Operação : ", "QFUNCNOPERC", 4);
    operacao.leave = administracao.leave;
    m_post.add(operacao);

    m_post.add({.name = kClasse,
                .label = QStringLiteral("Classe"),
                .kind = FieldKind::Choice,
                .column = "ICLASSABNT"});
    m_post.add({.name = kZona,
                .label = QStringLiteral("Localização da Atividade"),
                .kind = FieldKind::Choice,
                .column = "ILOCLZATIVD"});

    m_commerce.add(
        {.name = kOutros,
         .label = QStringLiteral("Especificar"),
         .column = "DCOMRCSERVC",
         .required = QStringLiteral("Preenchimento Obrigatório do Comércio e Serviços Agregados."),
         .letterCase = ui::Case::AsTyped,
         .applies = [this] { return m_checks[kOtherCommerce]->isChecked(); }});
}

void CharacteristicsForm::build() {
    declareFields();

    auto* classe = frame(QStringLiteral("fraClasse"),
                         QStringLiteral("CLASSIFICAÇÃO: (Conforme NBR 13.786, da ABNT - Associação "
                                        "Brasileira de Normas Técnicas)"),
                         this);
    auto* classLayout = new QHBoxLayout(classe);
    classLayout->addWidget(m_post.widget(kClasse));
    body()->addWidget(classe);

    auto* middle = new QHBoxLayout;
    auto* areas = frame(QStringLiteral("fraAreas"), QStringLiteral("Áreas (m²)"), this);
    auto* areaGrid = new QGridLayout(areas);
    m_post.place(areaGrid, 0, 0, kTerreno);
    m_post.place(areaGrid, 1, 0, kConstruida);
    m_post.place(areaGrid, 2, 0, kArLivre);
    middle->addWidget(areas);

    auto* jornada =
        frame(QStringLiteral("fraJornada"), QStringLiteral("Jornada de Trabalho"), this);
    auto* journeyGrid = new QGridLayout(jornada);
    m_post.place(journeyGrid, 0, 0, kHoras);
    m_post.place(journeyGrid, 1, 0, kDiasMes);
    m_post.place(journeyGrid, 2, 0, kDiasAno);
    middle->addWidget(jornada);

    auto* staff =
        frame(QStringLiteral("fraFuncionarios"), QStringLiteral("Número de Funcionários"), this);
    auto* staffGrid = new QGridLayout(staff);
    m_post.place(staffGrid, 0, 0, kAdministracao);
    m_post.place(staffGrid, 1, 0, kOperacao);
    // The total is a display: it lies in a container of its own that is never enabled.
    auto* totalBox = new QWidget(staff);
    totalBox->setObjectName(QStringLiteral("picTotal"));
    auto* totalLayout = new QHBoxLayout(totalBox);
    totalLayout->setContentsMargins(0, 0, 0, 0);
    m_total = new QLineEdit(totalBox);
    m_total->setObjectName(QStringLiteral("txtTotal"));
    m_total->setMaxLength(5);
    ui::attachDigits(m_total);
    totalLayout->addWidget(m_total);
    totalBox->setEnabled(false);
    auto* totalLabel = new QLabel(QStringLiteral("Total : "), staff);
    totalLabel->setBuddy(m_total);
    staffGrid->addWidget(totalLabel, 2, 0);
    staffGrid->addWidget(totalBox, 2, 1);
    middle->addWidget(staff);
    body()->addLayout(middle);

    auto* lower = new QHBoxLayout;
    auto* horario =
        frame(QStringLiteral("fraHorario"), QStringLiteral("Horário de Funcionamento"), this);
    auto* hours = new QGridLayout(horario);
    m_post.place(hours, 0, 0, kInicio);
    m_post.place(hours, 0, 2, kTermino);
    hours->addWidget(new QLabel(QStringLiteral("horas"), horario), 0, 4);
    lower->addWidget(horario);
    auto* zona =
        frame(QStringLiteral("fraLocalizacao"), QStringLiteral("Localização da Atividade"), this);
    auto* zoneLayout = new QHBoxLayout(zona);
    zoneLayout->addWidget(m_post.widget(kZona));
    lower->addWidget(zona, 1);
    body()->addLayout(lower);

    auto* comercio = frame(QStringLiteral("fraComercio"),
                           QStringLiteral("COMÉRCIO E SERVIÇOS AGREGADOS AO EMPREENDIMENTO"), this);
    auto* checks = new QGridLayout(comercio);
    checks->setVerticalSpacing(2);
    const store::CodeList& captions = store::codeList("NCOMRCSERVC");
    constexpr int kRows = 6;
    for (int code = 1; code <= kCommerceCount; ++code) {
        auto* box = new QCheckBox(captions.at(std::size_t(code - 1)).label, comercio);
        box->setObjectName(QStringLiteral("Check1_%1").arg(code));
        m_checks[std::size_t(code)] = box;
        checks->addWidget(box, (code - 1) % kRows, (code - 1) / kRows);
        connect(box, &QCheckBox::clicked, this, [this, code] { commerceClicked(code); });
    }
    QWidget* outros = m_commerce.widget(kOutros);
    outros->setParent(comercio);
    outros->setAccessibleName(m_commerce.label(kOutros)->text());
    m_commerce.label(kOutros)->hide(); // the box's own caption asks for the text
    checks->addWidget(outros, 5, 2);
    body()->addWidget(comercio);
    body()->addStretch(1);

    m_frames = {classe, areas, jornada, staff, horario, zona, comercio};
    connect(m_total, &QLineEdit::textChanged, this, &CharacteristicsForm::totalChanged);

    // Keyboard order: the frames as they stand, left to right and top to bottom.
    QList<QWidget*> order;
    for (QWidget* option : m_post.widget(kClasse)->findChildren<QRadioButton*>())
        order << option;
    order << edit(kTerreno) << edit(kConstruida) << edit(kArLivre) << edit(kHoras) << edit(kDiasMes)
          << edit(kDiasAno) << edit(kAdministracao) << edit(kOperacao) << edit(kInicio)
          << edit(kTermino);
    for (QWidget* option : m_post.widget(kZona)->findChildren<QRadioButton*>())
        order << option;
    for (int code = 1; code <= kCommerceCount; ++code)
        order << m_checks[std::size_t(code)];
    order << outros;
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));
}

bool CharacteristicsForm::classImposed() const {
    const QVariant wells = database().scalar(
        QStringLiteral("SELECT NPOCO FROM MUNCPPOCO WHERE NMUNCP = ?"), {session().nmuncp});
    return !wells.isNull() && wells.toDouble() > 0;
}

void CharacteristicsForm::imposeClass() {
    m_post.setValue(kClasse, 3);
    m_frames.first()->setEnabled(false);
}

void CharacteristicsForm::load() {
    m_post.clear();
    for (std::size_t code = 1; code < m_checks.size(); ++code)
        m_checks[code]->setChecked(false);
    m_commerce.clear();

    std::optional<store::Row> row = store::readRow(database(), "TB_POSTO", session().keyRow());
    if (row) {
        for (const char* column : kBlankWhenZero) {
            const QString name = QString::fromLatin1(column);
            if (!row->value(name).isNull() && row->value(name).toDouble() == 0)
                row->insert(name, QVariant());
        }
        const bool imposed = classImposed();
        if (imposed)
            row->remove(QStringLiteral("ICLASSABNT")); // the stored class is not shown
        m_post.load(*row);
        if (imposed)
            imposeClass();
    }
    // A row not completed yet shows the zone drawn as the first choice.
    if (m_post.value(kZona).isNull())
        m_post.setValue(kZona, store::codeList("ILOCLZATIVD").front().code);
    if (!edit(kAdministracao)->text().isEmpty())
        showTotal();

    QSqlQuery rows =
        database().run(QStringLiteral("SELECT NCOMRCSERVC, DCOMRCSERVC FROM TB_POSTOCOMRCSERVC "
                                      "WHERE NMUNCP = ? AND NSEQNC = ? ORDER BY NCOMRCSERVC"),
                       {session().nmuncp, session().nseqnc});
    while (rows.next()) {
        const int code = rows.value(0).toInt();
        if (code < 1 || code > kCommerceCount)
            continue;
        m_checks[std::size_t(code)]->setChecked(true);
        if (code == kOtherCommerce)
            m_commerce.setValue(kOutros, rows.value(1));
    }
}

bool CharacteristicsForm::stored() const {
    // The register form leaves the zone empty; only a chosen zone completes the row.
    const QVariant zone = database().scalar(
        QStringLiteral("SELECT ILOCLZATIVD FROM TB_POSTO WHERE NMUNCP = ? AND NSEQNC = ?"),
        {session().nmuncp, session().nseqnc});
    return !store::labelOf("ILOCLZATIVD", zone).isEmpty();
}

void CharacteristicsForm::setEditable(bool editable) {
    for (QGroupBox* f : m_frames)
        f->setEnabled(editable);
    if (editable && classImposed())
        imposeClass();
    m_commerce.widget(kOutros)->setEnabled(editable && m_checks[kOtherCommerce]->isChecked());
}

QWidget* CharacteristicsForm::beginEdit() {
    if (operation() == ui::kIncluir && m_frames.first()->isEnabled())
        return m_post.widget(kClasse)->findChild<QRadioButton*>(kClasse + QStringLiteral("_0"));
    return edit(kTerreno);
}

QString CharacteristicsForm::savedMessage() const {
    return operation() == ui::kIncluir ? QStringLiteral("Dados Incluídos com Sucesso.")
                                       : QStringLiteral("Dados Alterados com Sucesso.");
}

ui::Check CharacteristicsForm::validate() {
    if (Check refused = m_post.validate())
        return refused;
    return m_commerce.validate();
}

ui::Check CharacteristicsForm::leaveCheck(QWidget* field) {
    if (Check refused = m_post.leave(field))
        return refused;
    return m_commerce.leave(field);
}

void CharacteristicsForm::write(store::Database& db) {
    store::Row values = m_post.values();
    const auto zeroWhenEmpty = [&](const char* column) {
        const QString name = QString::fromLatin1(column);
        if (values.value(name).isNull())
            values.insert(name, 0);
    };
    zeroWhenEmpty("QFUNCNADMNS");
    zeroWhenEmpty("QFUNCNOPERC");
    // A class never chosen is written as the first one.
    if (classImposed())
        values.insert(QStringLiteral("ICLASSABNT"), 3);
    zeroWhenEmpty("ICLASSABNT");
    store::updateRow(db, "TB_POSTO", session().keyRow(), values);

    // The check list is rewritten in the same transaction: a failure keeps the old one.
    store::deleteRows(db, "TB_POSTOCOMRCSERVC", session().keyRow());
    for (int code = 1; code <= kCommerceCount; ++code) {
        if (!m_checks[std::size_t(code)]->isChecked())
            continue;
        store::Row row = session().newRow();
        row.insert(QStringLiteral("NCOMRCSERVC"), code);
        row.insert(QStringLiteral("DCOMRCSERVC"),
                   code == kOtherCommerce ? m_commerce.value(kOutros) : QVariant());
        store::insertRow(db, "TB_POSTOCOMRCSERVC", row);
    }
}

void CharacteristicsForm::commerceClicked(int code) {
    if (!editing() || code != kOtherCommerce)
        return;
    QWidget* outros = m_commerce.widget(kOutros);
    if (m_checks[kOtherCommerce]->isChecked()) {
        outros->setEnabled(true);
        outros->setFocus(Qt::OtherFocusReason);
    } else {
        outros->setEnabled(false);
        m_commerce.edit(kOutros)->clear();
    }
}

void CharacteristicsForm::showTotal() {
    if (edit(kAdministracao)->text().isEmpty())
        return;
    const qint64 total =
        edit(kAdministracao)->text().toLongLong() + edit(kOperacao)->text().toLongLong();
    m_total->setText(QString::number(total));
}

void CharacteristicsForm::totalChanged() {
    if (m_total->text().isEmpty() || m_total->text().toLongLong() != 0)
        return;
    // A warning only: the save goes on with no staff.
    ui::showRefusal(
        Refusal{edit(kAdministracao), QStringLiteral("Total de Funcionários Não Pode ser Zero")},
        this);
}

} // namespace establishment
