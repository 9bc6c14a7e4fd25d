#include "shell/PrintChooser.h"

#include "store/Database.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/PrintMemorial.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QVBoxLayout>

namespace shell {

PrintChooser::PrintChooser(store::Database& db, QWidget* parent)
    : QDialog(parent)
    , m_db(db)
    , m_grid(new QTableWidget(this)) {
    setObjectName(QStringLiteral("frmImpressao"));
    setWindowTitle(QStringLiteral("Impressão do Memorial"));
    auto* hint = new QLabel(QStringLiteral("Selecione o VOR a ser impresso"), this);
    m_grid->setObjectName(QStringLiteral("fgrVORi"));
    m_grid->setColumnCount(3);
    m_grid->setHorizontalHeaderLabels(
        {QStringLiteral("Razão Social"), QStringLiteral("Código"), QStringLiteral("Sequência")});
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->verticalHeader()->hide();
    m_grid->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);

    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("Command6"));
    auto* preview = new QPushButton(QStringLiteral("Visualizar"), this);
    preview->setObjectName(QStringLiteral("cmdVisualizar"));
    auto* back = new QPushButton(QStringLiteral("Tela Principal"), this);
    back->setObjectName(QStringLiteral("Command5"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(preview);
    buttons->addWidget(back);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(m_grid, 1);
    layout->addLayout(buttons);
    resize(640, 420);

    connect(ok, &QPushButton::clicked, this, [this] { print(false); });
    connect(preview, &QPushButton::clicked, this, [this] { print(true); });
    connect(m_grid, &QTableWidget::cellDoubleClicked, this, [this] { print(false); });
    connect(back, &QPushButton::clicked, this, &QDialog::reject);
}

bool PrintChooser::load() {
    bool any = false;
    const bool ran = ui::runGuarded([&] {
        any = m_db.scalar(QStringLiteral("SELECT COUNT(NMUNCP) FROM EMPRS")).toInt() > 0;
        if (!any)
            return;
        QSqlQuery rows = m_db.run(
            QStringLiteral("SELECT DRAZAOSOCIL, NMUNCP, NSEQNC FROM EMPRS ORDER BY DRAZAOSOCIL"));
        m_grid->setRowCount(0);
        while (rows.next()) {
            const int r = m_grid->rowCount();
            m_grid->insertRow(r);
            for (int c = 0; c < 3; ++c)
                m_grid->setItem(r, c, new QTableWidgetItem(rows.value(c).toString().trimmed()));
        }
        m_grid->selectRow(0);
    });
    if (ran && !any)
        ui::dialogs().message(ui::kTitle, QStringLiteral("É necessário cadastrar o VOR"),
                              ui::Icon::Warning);
    return ran && any;
}

std::optional<store::RegisterKey> PrintChooser::selectedKey() const {
    const int row = m_grid->currentRow();
    if (row < 0)
        return std::nullopt;
    return store::RegisterKey{m_grid->item(row, 1)->text().toInt(),
                              m_grid->item(row, 2)->text().toInt()};
}

void PrintChooser::print(bool preview) {
    if (const auto key = selectedKey())
        ui::printMemorial(m_db, *key,
                          preview ? ui::PrintDestination::Preview : ui::PrintDestination::Printer,
                          this);
}

void printFromMainScreen(store::Database& db, QWidget* parent) {
    PrintChooser chooser(db, parent);
    if (chooser.load())
        chooser.exec();
}

} // namespace shell
