#include "fuel/Movement.h"

#include "store/Database.h"
#include "ui/FormParts.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>

namespace fuel {

namespace {

using Kind = ui::GridColumn::Kind;
using ui::FieldKind;

const char* const kTable = "TB_POSTOMOVMN";
const QString kIncluir = QStringLiteral("Incluir Movimentação");
const QString kAlterar = QStringLiteral("Alterar Movimentação");
const QString kProduct = QStringLiteral("cmbNCOMBS");
const QString kOtherText = QStringLiteral("txtDCOMBS");

// The products that are named by the text typed beside them: the "others" of each group and
// of the whole list.
bool namedByText(int ncombs) {
    return ncombs == 108 || ncombs == 118 || ncombs == 128 || ncombs == 135;
}

// The first and last product of the group of `ncombs` and the code of its total; a product
// outside the groups gives 0 for all three.
struct Group {
    int first = 0;
    int last = 0;
    int total = 0;
};
Group groupOf(int ncombs) {
    for (const Group g : {Group{101, 108, 109}, Group{110, 118, 119}, Group{120, 128, 129}}) {
        if (ncombs >= g.first && ncombs <= g.total)
            return g;
    }
    return {};
}

store::Row movementKey(const ui::Session& s, const QVariant& ncombs, const QVariant& nseqnc) {
    store::Row key = s.keyRow();
    key.insert(QStringLiteral("NCOMBS"), ncombs);
    key.insert(QStringLiteral("NSEQNCCOMBS"), nseqnc);
    return key;
}

} // namespace

bool isGroupTotal(int ncombs) {
    return ncombs == 109 || ncombs == 119 || ncombs == 129;
}

void recomputeGroupTotal(store::Database& db, const ui::Session& s, int ncombs) {
    const Group g = groupOf(ncombs);
    if (g.total == 0)
        return;
    const QVariantList range = {g.first, g.last, s.nmuncp, s.nseqnc};
    const QVariant sum =
        db.scalar(QStringLiteral("Select Sum(QCOMBS) As Total From TB_POSTOMOVMN Where NCOMBS >= ?"
                                 " And NCOMBS <= ? And NMUNCP = ? And NSEQNC = ?"),
                  range);
    store::Row total = s.keyRow();
    total.insert(QStringLiteral("NCOMBS"), g.total);
    store::deleteRows(db, kTable, total);
    if (sum.isNull())
        return;
    // The total is shown in the unit of the group's first product.
    const QVariant unit = db.scalar(
        QStringLiteral("Select CUNIDDMEDDA From TB_POSTOMOVMN Where NCOMBS >= ? And NCOMBS <= ?"
                       " And NMUNCP = ? And NSEQNC = ? Order By NCOMBS, NSEQNCCOMBS Limit 1"),
        range);
    store::Row row = s.newRow();
    row.insert(QStringLiteral("NCOMBS"), g.total);
    row.insert(QStringLiteral("NSEQNCCOMBS"), 1);
    row.insert(QStringLiteral("DCOMBS"), QVariant());
    row.insert(QStringLiteral("QCOMBS"), sum);
    row.insert(QStringLiteral("CUNIDDMEDDA"), unit);
    store::insertRow(db, kTable, row);
}

ui::ListDefinition movementList() {
    ui::ListDefinition def;
    def.name = QStringLiteral("frmPostoMovmn");
    def.caption = QStringLiteral("Movimentação Mensal Média");
    ui::ListLevel products;
    products.gridName = QStringLiteral("fgrPostoMovmn");
    products.frameTitle = QStringLiteral("Movimentação Mensal Média");
    products.columns = {
        {QStringLiteral("Produto"), 260},
        {QStringLiteral("Produto - Outros"), 200},
        {QStringLiteral("Quantidade"), 110, Kind::Decimal},
        {QStringLiteral("Unidade"), 90},
        {QStringLiteral("NCOMBS"), 0},
        {QStringLiteral("NSEQNCCOMBS"), 0},
    };
    products.query = [](const ui::Session& s, const QStringList&) {
        return ui::Query{
            QStringLiteral("Select c.DCOMBS, m.DCOMBS, m.QCOMBS, u.CSIGLAUNIDDMEDDA, m.NCOMBS,"
                           " m.NSEQNCCOMBS From TB_POSTOMOVMN m, DICNRCOMBS c, DICNRUNIDDMEDDA u"
                           " Where m.NMUNCP = ? And m.NSEQNC = ? And m.NCOMBS = c.NCOMBS"
                           " And m.CUNIDDMEDDA = u.CUNIDDMEDDA Order By m.NCOMBS, m.NSEQNCCOMBS"),
            {s.nmuncp, s.nseqnc}};
    };
    products.insertOperation = kIncluir;
    products.alterOperation = kAlterar;
    products.deleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado?");
    products.cascade = [](store::Database& db, const ui::Session& s,
                          const ui::ListSelection& rows) {
        const int ncombs = rows.main.value(4).toInt();
        store::deleteRow(db, kTable, movementKey(s, ncombs, rows.main.value(5).toInt()));
        recomputeGroupTotal(db, s, ncombs);
    };
    // The totals are the program's: none is opened, changed or deleted by hand.
    products.fixedRow = [](const QStringList& row) { return isGroupTotal(row.value(4).toInt()); };
    def.levels = {products};
    def.maintenance = [](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new MovementMaintenance(host);
    };
    return def;
}

MovementMaintenance::MovementMaintenance(ui::ScreenHost& host, QWidget* parent)
    : ui::MaintenanceScreen(host, QStringLiteral("frmPostoMovmn"),
                            {{kIncluir, 0, true, true}, {kAlterar, 0, false, true}}, parent)
    , m_fields(kTable, this) {
    setObjectName(QStringLiteral("frmPostoMovmnM"));
    setWindowTitle(QStringLiteral("Movimentação Mensal Média"));
    auto* frame = new QGroupBox(QStringLiteral("Movimentação Mensal Média"), this);
    frame->setObjectName(QStringLiteral("fraMovmn"));
    ui::keyBox(QStringLiteral("picNCOMBS"), ui::comboBox(kProduct, frame), frame);
    m_fields.add(
        {.name = kProduct,
         .label = QStringLiteral("Produto"),
         .kind = FieldKind::Dictionary,
         .column = "NCOMBS",
         .required = QStringLiteral("Preenchimento Obrigatório do Produto."),
         .dictionary = QStringLiteral("Select NCOMBS, DCOMBS From DICNRCOMBS Where NCOMBS > 100"
                                      " And NCOMBS <> 109 And NCOMBS <> 119 And NCOMBS <> 129"
                                      " Order By NCOMBS"),
         .check = [this]() -> ui::Check {
             store::Row where = session().keyRow();
             where.insert(QStringLiteral("NCOMBS"), m_fields.value(kProduct));
             if (operation().insert && store::rowExists(database(), kTable, where))
                 return ui::Refusal{m_fields.widget(kProduct),
                                    QStringLiteral("Este Produto já está cadastrado.")};
             return {};
         }},
        frame);
    m_fields.add({.name = kOtherText,
                  .label = QStringLiteral("Produto - Outros"),
                  .column = "DCOMBS",
                  .required = QStringLiteral(
                      "Preenchimento Obrigatório da Descrição do Produto (Produto-Outros)."),
                  .length = 60,
                  .applies = [this] { return otherProduct(); }},
                 frame);
    m_fields.add({.name = QStringLiteral("txtQCOMBS"),
                  .label = QStringLiteral("Quantidade"),
                  .kind = FieldKind::Decimal,
                  .column = "QCOMBS",
                  .required = QStringLiteral("Preenchimento Obrigatório da Quantidade."),
                  .length = 8},
                 frame);
    m_fields.add(
        {.name = QStringLiteral("cmbCUNIDDMEDDA"),
         .label = QStringLiteral("Unidade de Medida"),
         .kind = FieldKind::Dictionary,
         .column = "CUNIDDMEDDA",
         .required = QStringLiteral("Preenchimento Obrigatório da Unidade de Medida."),
         .dictionary = QStringLiteral(
             "Select CUNIDDMEDDA, CSIGLAUNIDDMEDDA From DICNRUNIDDMEDDA Order By CUNIDDMEDDA")},
        frame);
    m_fields.combo(kProduct)->setMinimumWidth(280);
    m_fields.edit(kOtherText)->setMinimumWidth(400);
    m_fields.edit(QStringLiteral("txtQCOMBS"))->setMaximumWidth(120);
    auto* grid = new QGridLayout(frame);
    int row = 0;
    for (const QString& name :
         {kProduct, kOtherText, QStringLiteral("txtQCOMBS"), QStringLiteral("cmbCUNIDDMEDDA")})
        m_fields.place(grid, row++, 0, name);
    grid->setColumnStretch(2, 1);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    body()->addWidget(frame);
    body()->addStretch(1);
    connect(m_fields.combo(kProduct), &QComboBox::activated, this,
            &MovementMaintenance::productChosen);
}

bool MovementMaintenance::otherProduct() const {
    return namedByText(m_fields.value(kProduct).toInt());
}

void MovementMaintenance::productChosen() {
    QLineEdit* text = m_fields.edit(kOtherText);
    if (!otherProduct())
        text->clear();
    text->setEnabled(otherProduct());
}

void MovementMaintenance::prepare() {
    m_fields.loadLists(database());
}

void MovementMaintenance::copyFromList(const ui::ListSelection& rows) {
    if (operation().insert)
        return;
    m_oldKey = movementKey(session(), rows.main.value(4).toInt(), rows.main.value(5).toInt());
    if (const auto stored = store::readRow(database(), kTable, m_oldKey))
        m_fields.load(*stored);
}

QWidget* MovementMaintenance::arrangePanels() {
    productChosen();
    // The product is the row's key.
    m_fields.widget(kProduct)->parentWidget()->setEnabled(operation().insert);
    return operation().insert ? m_fields.widget(kProduct)
                              : m_fields.widget(QStringLiteral("txtQCOMBS"));
}

QString MovementMaintenance::newKey() const {
    return m_fields.combo(kProduct)->currentText();
}

QList<QWidget*> MovementMaintenance::snapshotFields() const {
    return m_fields.shownWidgets();
}

ui::Check MovementMaintenance::validate() {
    return m_fields.validate();
}

ui::Check MovementMaintenance::leaveCheck(QWidget* field) {
    return m_fields.leave(field);
}

void MovementMaintenance::write(store::Database& db) {
    const QVariant product = m_fields.value(kProduct);
    const store::Row values = m_fields.values(
        {kOtherText, QStringLiteral("txtQCOMBS"), QStringLiteral("cmbCUNIDDMEDDA")});
    if (operation().insert) {
        store::Row row = session().newRow();
        row.insert(QStringLiteral("NCOMBS"), product);
        row.insert(QStringLiteral("NSEQNCCOMBS"),
                   db.scalar(QStringLiteral("Select Coalesce(Max(NSEQNCCOMBS), 0) + 1 From"
                                            " TB_POSTOMOVMN Where NMUNCP = ? And NSEQNC = ?"
                                            " And NCOMBS = ?"),
                             {session().nmuncp, session().nseqnc, product}));
        row.insert(values);
        store::insertRow(db, kTable, row);
    } else {
        store::updateRow(db, kTable, m_oldKey, values);
    }
    recomputeGroupTotal(db, session(), product.toInt());
}

} // namespace fuel
