#include "establishment/DistributorList.h"

#include "establishment/DistributorForm.h"
#include "rules/Address.h"
#include "store/CodeLists.h"
#include "store/Database.h"
#include "store/RowWriter.h"
#include "ui/ErrorRoutine.h"
#include "ui/Session.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSqlQuery>
#include <QTableWidget>
#include <QVBoxLayout>

namespace establishment {

namespace {

const char* const kTable = "TB_POSTODISTRFORNC";

ui::ListDefinition firmList() {
    ui::ListDefinition def;
    def.name = QStringLiteral("frmPostoDistrConsl");
    def.caption = QStringLiteral("Distribuidoras e Fornecedoras");
    ui::ListLevel level;
    level.gridName = QStringLiteral("fgrForn");
    level.frameTitle = QStringLiteral("Distribuidoras/Fornecedoras");
    level.columns = {{QStringLiteral("NIDENT"), 0},
                     {QStringLiteral("Razão Social Distribuidora/Fornecedora"), 260},
                     {QStringLiteral("Endereço"), 250},
                     {QStringLiteral("Município"), 150}};
    level.query = [](const ui::Session& session, const QStringList&) {
        // The number follows the address after a comma and two blanks, when there is one.
        return ui::Query{
            QStringLiteral("SELECT p.NIDENT, p.DRAZAOSOCIL, p.DLOGRD || CASE WHEN p.NLOGRD IS "
                           "NULL THEN '' ELSE ',  ' || p.NLOGRD END, m.DMUNCP "
                           "FROM TB_POSTODISTRFORNC p JOIN MUNCP m "
                           "ON p.NMUNCPDISTRFORNC = m.NMUNCP "
                           "WHERE p.NMUNCP = ? AND p.NSEQNC = ? ORDER BY p.NIDENT"),
            {session.nmuncp, session.nseqnc}};
    };
    level.insertOperation = ui::kIncluir;
    level.alterOperation = ui::kAlterar;
    level.deleteQuestion = QStringLiteral("Excluir o Item selecionado?");
    level.cascade = [](store::Database& db, const ui::Session& session,
                       const ui::ListSelection& rows) {
        store::Row key = session.keyRow();
        key.insert(QStringLiteral("NIDENT"), rows.main.value(0).toLongLong());
        store::deleteRow(db, kTable, key);
    };
    def.levels.push_back(std::move(level));
    def.maintenance = [](ui::ScreenHost& host) { return new DistributorForm(host); };
    return def;
}

// The copies, in the order the form shows its fields.
const char* const kCopies[][2] = {
    {"txtDRAZAOSOCIL", "Razão Social:"},
    {"txtDCONTT", "Nome para contato:"},
    {"txtDLOGRD", "Endereço P/ Correspondência:"},
    {"txtNLOGRD", "Número:"},
    {"txtDLOGRDCOMPM", "Complemento:"},
    {"txtDBAIRR", "Bairro:"},
    {"txtCCEP", "CEP:"},
    {"cmbNMUNCP", "Município:"},
    {"txtMUNCPUF", "UF:"},
    {"txtNDDD", "Tel.:"},
    {"txtNTELFN", "Telefone:"},
    {"txtNFAX", "Fax:"},
    {"txtDEMAIL", "Correio Eletrônico:"},
    {"txtTipo", "Tipo:"},
};

// A telephone as the copy shows it, through "@@@@-@@@@" with "_" in the places left.
QString telephoneText(const QVariant& value) {
    if (value.isNull())
        return {};
    const QString digits = QString::number(value.toLongLong()).leftJustified(8, QLatin1Char('_'));
    return digits.left(4) + QLatin1Char('-') + digits.mid(4);
}

} // namespace

DistributorList::DistributorList(ui::ScreenHost& host, QWidget* parent)
    : ui::ListScreen(host, firmList(), parent)
    , m_host(host) {
    grid(0)->setColumnHidden(0, true);
    auto* frame = new QGroupBox(QStringLiteral("Empresa Selecionada"), this);
    frame->setObjectName(QStringLiteral("fraEmpresa"));
    auto* layout = new QGridLayout(frame);
    layout->setVerticalSpacing(2);
    int index = 0;
    for (const auto& copy : kCopies) {
        auto* edit = new QLineEdit(frame);
        edit->setObjectName(QString::fromLatin1(copy[0]));
        edit->setReadOnly(true);
        auto* label = new QLabel(QString::fromUtf8(copy[1]), frame);
        label->setBuddy(edit);
        layout->addWidget(label, index / 2, (index % 2) * 2);
        layout->addWidget(edit, index / 2, (index % 2) * 2 + 1);
        m_copies.insert(edit->objectName(), edit);
        ++index;
    }
    // Below the grid, above the buttons.
    qobject_cast<QVBoxLayout*>(this->layout())->insertWidget(2, frame);
    connect(grid(0), &QTableWidget::currentCellChanged, this, [this] { showSelected(); });
}

void DistributorList::enter() {
    ui::ListScreen::enter();
    showSelected();
}

void DistributorList::showSelected() {
    for (QLineEdit* copy : std::as_const(m_copies))
        copy->clear();
    const QStringList row = selection().main;
    if (row.isEmpty())
        return;
    ui::runGuarded([&] {
        QSqlQuery q = m_host.database().run(
            QStringLiteral("SELECT t.*, m.DMUNCP AS MUNCP, m.DRESMDMUNCP FROM TB_POSTODISTRFORNC "
                           "t JOIN MUNCP m ON t.NMUNCPDISTRFORNC = m.NMUNCP "
                           "WHERE t.NMUNCP = ? AND t.NSEQNC = ? AND t.NIDENT = ?"),
            {m_host.session().nmuncp, m_host.session().nseqnc, row.value(0).toLongLong()});
        if (!q.next())
            return;
        const auto text = [&](const char* column) { return q.value(column).toString(); };
        const auto digits = [&](const char* column) {
            return q.value(column).isNull() ? QString()
                                            : QString::number(q.value(column).toLongLong());
        };
        m_copies["txtDRAZAOSOCIL"]->setText(text("DRAZAOSOCIL"));
        m_copies["txtDCONTT"]->setText(text("DCONTT"));
        m_copies["txtDLOGRD"]->setText(text("DLOGRD"));
        m_copies["txtNLOGRD"]->setText(digits("NLOGRD"));
        m_copies["txtDLOGRDCOMPM"]->setText(text("DLOGRDCOMPM"));
        m_copies["txtDBAIRR"]->setText(text("DBAIRR"));
        if (const QString cep = digits("CCEP"); !cep.isEmpty())
            m_copies["txtCCEP"]->setText(cep.rightJustified(8, QLatin1Char('0')));
        const QString own = text("DMUNCPDISTRFORNC");
        m_copies["cmbNMUNCP"]->setText(own.isEmpty() ? text("MUNCP") : own);
        m_copies["txtMUNCPUF"]->setText(
            rules::ufDoMunicipio(q.value("NMUNCPDISTRFORNC").toInt(), text("DRESMDMUNCP")));
        if (const QString ddd = digits("NDDD"); !ddd.isEmpty())
            m_copies["txtNDDD"]->setText(ddd.rightJustified(3, QLatin1Char('0')));
        m_copies["txtNTELFN"]->setText(telephoneText(q.value("NTELFN")));
        m_copies["txtNFAX"]->setText(telephoneText(q.value("NFAX")));
        m_copies["txtDEMAIL"]->setText(text("DEMAIL"));
        m_copies["txtTipo"]->setText(store::labelOf("IDISTRFORNC", q.value("IDISTRFORNC")));
    });
}

} // namespace establishment
