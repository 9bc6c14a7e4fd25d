#include "environment/WaterUse.h"

#include "environment/FieldRules.h"
#include "environment/KindFamily.h"
#include "environment/WaterTotal.h"
#include "store/CodeLists.h"
#include "store/Database.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <algorithm>

namespace environment {

namespace {

using ui::FieldKind;

const char* const kTable = "TB_POSTOBALNCHIDRC";
const QString kIncluirAgua = QStringLiteral("Incluir Água");
const QString kAlterarAgua = QStringLiteral("Alterar Água");
const QString kSource = QStringLiteral("cmbIFONTEABAST");
const QString kNumber = QStringLiteral("txtNFONTEABASTIDENT");
const QString kSanitary = QStringLiteral("txtQCONSMSANTR");
const QString kCommercial = QStringLiteral("txtQCONSMCOMRC");

// A quantity as the grid shows it: a whole number bare, a fraction with its comma.
QString quantityShown(const QString& expression) {
    return QStringLiteral(
               "Case When (%1) Is Null Then Null"
               " When (%1) = Cast((%1) As Integer) Then Cast(Cast((%1) As Integer) As Text)"
               " Else replace(Cast((%1) As Text), '.', ',') End")
        .arg(expression);
}

double quantity(const QLineEdit* edit) {
    return QString(edit->text()).replace(QLatin1Char(','), QLatin1Char('.')).toDouble();
}

} // namespace

ui::ListDefinition waterList() {
    ui::ListDefinition def;
    def.name = QStringLiteral("frmPostoConsmAgua");
    def.caption = QStringLiteral("Informacões Sobre Utilização de Água");
    ui::ListLevel sources;
    sources.gridName = QStringLiteral("fgrPostoConsmAgua");
    sources.frameTitle = QStringLiteral("Consumo Mensal de Água");
    sources.columns = {
        {QStringLiteral("Fonte de Abastecimento"), 150, ui::GridColumn::Kind::Text,
         ui::codeLabels("IFONTEABAST")},
        {QString(), 30},
        {QStringLiteral("Identificação"), 200},
        {QStringLiteral("Sanitário"), 80},
        {QStringLiteral("Comercial"), 80},
        {QStringLiteral("Total (m³/mês)"), 100},
    };
    sources.query = [](const ui::Session& s, const QStringList&) {
        return ui::Query{QStringLiteral("Select IFONTEABAST, NFONTEABASTIDENT, DFONTEABAST, ") +
                             quantityShown(QStringLiteral("QCONSMSANTR")) + QStringLiteral(", ") +
                             quantityShown(QStringLiteral("QCONSMCOMRC")) + QStringLiteral(", ") +
                             quantityShown(QStringLiteral("QCONSMSANTR+QCONSMCOMRC")) +
                             QStringLiteral(" From TB_POSTOBALNCHIDRC Where NMUNCP = ?"
                                            " And NSEQNC = ? Order By IFONTEABAST,"
                                            " NFONTEABASTIDENT"),
                         {s.nmuncp, s.nseqnc}};
    };
    sources.insertOperation = kIncluirAgua;
    sources.alterOperation = kAlterarAgua;
    sources.deleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado?");
    // The total follows its sources: it is never opened, changed or deleted from the list.
    const QString totalCaption = store::labelOf("IFONTEABAST", kWaterTotal);
    sources.fixedRow = [totalCaption](const QStringList& row) {
        return row.value(0) == totalCaption;
    };
    sources.cascade = [](store::Database& db, const ui::Session& s, const ui::ListSelection& rows) {
        store::Row key = s.keyRow();
        key.insert(QStringLiteral("IFONTEABAST"), rows.mainStored.value(0));
        key.insert(QStringLiteral("NFONTEABASTIDENT"), rows.mainStored.value(1));
        store::deleteRow(db, kTable, key);
        rebuildWaterTotal(db, s.keyRow(), s.newRow().value(QStringLiteral("AINFRM")));
    };
    def.levels = {sources};
    def.maintenance = [](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new WaterMaintenance(host);
    };
    return def;
}

// ---- the maintenance screen -------------------------------------------------------------

WaterMaintenance::WaterMaintenance(ui::ScreenHost& host, QWidget* parent)
    : ui::MaintenanceScreen(host, QStringLiteral("frmPostoConsmAgua"),
                            {{kIncluirAgua, 0, true, true}, {kAlterarAgua, 0, false, true}}, parent)
    , m_fields(kTable, this) {
    setObjectName(QStringLiteral("frmPostoConsmAguaM"));
    setWindowTitle(QStringLiteral("Informacões Sobre Utilização de Água"));
    auto* frame = new QGroupBox(QStringLiteral("Consumo Mensal de Água (m³/mês)"), this);
    frame->setObjectName(QStringLiteral("fraConsumo"));

    auto* source = qobject_cast<QComboBox*>(m_fields.add(
        {.name = kSource,
         .label = QStringLiteral("Fonte de Abastecimento"),
         .kind = FieldKind::Codes,
         .column = "IFONTEABAST",
         .required = QStringLiteral("Preenchimento Obrigatório da Fonte de Abastecimento.")},
        frame));
    // The total is no source to choose.
    source->removeItem(source->findData(kWaterTotal));
    source->setCurrentIndex(-1);
    // The number is shown whole, however many digits it has.
    QWidget* number = m_fields.add(
        {.name = kNumber, .kind = FieldKind::Number, .column = "NFONTEABASTIDENT"}, frame);
    number->setEnabled(false);
    number->setAccessibleName(QStringLiteral("Fonte de Abastecimento"));
    m_fields.add({.name = QStringLiteral("txtDFONTEABAST"),
                  .label = QStringLiteral("Identificação"),
                  .column = "DFONTEABAST",
                  .required = QStringLiteral("Preenchimento Obrigatório da Identificação."),
                  .length = 50},
                 frame);
    m_fields.add({.name = kSanitary,
                  .label = QStringLiteral("Sanitário"),
                  .kind = FieldKind::Decimal,
                  .column = "QCONSMSANTR",
                  .length = 5,
                  .check = [this] { return oneQuantity(); },
                  .leave = [this] { return quantityLeft(kSanitary); }},
                 frame);
    m_fields.add({.name = kCommercial,
                  .label = QStringLiteral("Comercial"),
                  .kind = FieldKind::Decimal,
                  .column = "QCONSMCOMRC",
                  .length = 5,
                  .leave = [this] { return quantityLeft(kCommercial); }},
                 frame);
    m_total = qobject_cast<QLineEdit*>(m_fields.add(
        {.name = QStringLiteral("txtTotal"), .label = QStringLiteral("Total"), .length = 20},
        frame));
    m_total->setReadOnly(true);
    m_total->setFocusPolicy(Qt::NoFocus);
    for (const QString& name : {kSanitary, kCommercial})
        waterQuantityField(m_fields.edit(name));

    auto* grid = new QGridLayout(frame);
    m_fields.place(grid, 0, 0, kSource);
    // The number beside its source, at the end of the identification's width.
    grid->addWidget(number, 0, 1, Qt::AlignRight);
    m_fields.place(grid, 1, 0, QStringLiteral("txtDFONTEABAST"));
    m_fields.place(grid, 2, 0, kSanitary);
    m_fields.place(grid, 3, 0, kCommercial);
    m_fields.place(grid, 4, 0, QStringLiteral("txtTotal"));
    grid->setColumnStretch(2, 1);
    source->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const int character = fontMetrics().averageCharWidth();
    number->setFixedWidth(character * 8 + 16);
    m_fields.widget(QStringLiteral("txtDFONTEABAST"))->setFixedWidth(character * 50 + 16);
    for (const QString& name : {kSanitary, kCommercial})
        m_fields.widget(name)->setFixedWidth(character * 10 + 16);
    m_total->setFixedWidth(character * 20 + 16);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    body()->addWidget(frame);
    body()->addStretch(1);

    connect(source, &QComboBox::currentIndexChanged, this, &WaterMaintenance::sourceChosen);
}

void WaterMaintenance::copyFromList(const ui::ListSelection& rows) {
    if (inserting())
        return;
    m_key = session().keyRow();
    m_key.insert(QStringLiteral("IFONTEABAST"), rows.mainStored.value(0));
    m_key.insert(QStringLiteral("NFONTEABASTIDENT"), rows.mainStored.value(1));
    const std::optional<store::Row> stored = store::readRow(database(), kTable, m_key);
    if (!stored)
        return;
    // A stored quantity may be longer than the five digits a new one takes.
    for (const QString& name : {kSanitary, kCommercial}) {
        if (!stored
                 ->value(QString::fromLatin1(m_fields.field(name).column.data(),
                                             qsizetype(m_fields.field(name).column.size())))
                 .isNull())
            m_fields.edit(name)->setMaxLength(32);
    }
    m_fields.load(*stored);
    for (const QString& name : {kSanitary, kCommercial}) {
        QLineEdit* edit = m_fields.edit(name);
        if (!edit->text().isEmpty())
            edit->setMaxLength(std::max(8, int(edit->text().size())));
    }
    m_total->setText(rows.main.value(5));
}

QWidget* WaterMaintenance::arrangePanels() {
    m_fields.widget(kSource)->setEnabled(inserting());
    return inserting() ? m_fields.widget(kSource)
                       : m_fields.widget(QStringLiteral("txtDFONTEABAST"));
}

void WaterMaintenance::sourceChosen() {
    if (!inserting() || m_fields.isEmpty(kSource))
        return;
    // The numbers of a kind run on over every register of the database.
    const QVariant next =
        database().scalar(QStringLiteral("Select Max(NFONTEABASTIDENT)+1 From TB_POSTOBALNCHIDRC"
                                         " Where IFONTEABAST = ?"),
                          {m_fields.value(kSource)});
    m_fields.setValue(kNumber, next.isNull() ? QVariant(1) : next);
}

QList<QWidget*> WaterMaintenance::snapshotFields() const {
    return m_fields.shownWidgets();
}

ui::Check WaterMaintenance::quantityLeft(const QString& name) {
    if (!m_fields.edit(name)->text().isEmpty()) {
        const double sum =
            quantity(m_fields.edit(kSanitary)) + quantity(m_fields.edit(kCommercial));
        m_total->setText(QString::number(sum, 'g', 15).replace(QLatin1Char('.'), QLatin1Char(',')));
    }
    return {};
}

ui::Check WaterMaintenance::oneQuantity() const {
    if (m_fields.isEmpty(kSanitary) && m_fields.isEmpty(kCommercial))
        return ui::Refusal{m_fields.widget(kSanitary),
                           QStringLiteral("Preenchimento Obrigatório de um dos Campos: Consumo "
                                          "Sanitário em m³/mes ou Consumo Comercial em m³/mes.")};
    return {};
}

ui::Check WaterMaintenance::validate() {
    return m_fields.validate();
}

ui::Check WaterMaintenance::leaveCheck(QWidget* field) {
    return m_fields.leave(field);
}

void WaterMaintenance::write(store::Database& db) {
    const QStringList typed = {QStringLiteral("txtDFONTEABAST"), kSanitary, kCommercial};
    if (inserting()) {
        store::Row row = session().newRow();
        row.insert(m_fields.values(QStringList(typed) << kSource << kNumber));
        store::insertRow(db, kTable, row);
    } else {
        // The source and its number stay as they were created; the row goes by its stored key.
        store::updateRow(db, kTable, m_key, m_fields.values(typed));
    }
    rebuildWaterTotal(db, session().keyRow(), session().newRow().value(QStringLiteral("AINFRM")));
}

QString WaterMaintenance::newKey() const {
    return store::labelOf("IFONTEABAST", m_fields.value(kSource));
}

} // namespace environment
