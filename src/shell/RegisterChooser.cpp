#include "shell/RegisterChooser.h"

#include "store/Database.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QVBoxLayout>

namespace shell {

namespace {

constexpr int Status = 3;

QTableWidgetItem* cell(const QString& text) {
    auto* item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    return item;
}

} // namespace

QString statusWordForExport(const QVariant& csitu) {
    static const QStringList words = {QStringLiteral("EM MANUTENÇÃO"), QStringLiteral("A EXPORTAR"),
                                      QStringLiteral("EXPORTADO"), QStringLiteral("ENVIADO"),
                                      QStringLiteral("REENVIADO")};
    bool ok = false;
    const int value = csitu.toInt(&ok);
    if (!ok || value < 0 || value >= words.size())
        return csitu.toString();
    return words.at(value);
}

RegisterChooser::RegisterChooser(store::Database& db, QWidget* parent)
    : QGroupBox(parent)
    , m_db(db)
    , m_hint(new QLabel(QStringLiteral("Selecione o VOR a ser exportado"), this))
    , m_grid(new QTableWidget(this))
    , m_goOn(new QPushButton(QStringLiteral("Continuar"), this)) {
    setObjectName(QStringLiteral("Frame1"));
    m_hint->setObjectName(QStringLiteral("lblSelecioneVOR"));
    m_grid->setObjectName(QStringLiteral("fgrVOR"));
    m_goOn->setObjectName(QStringLiteral("Command2"));
    auto* back = new QPushButton(QStringLiteral("Tela Principal"), this);
    back->setObjectName(QStringLiteral("Command4"));

    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->verticalHeader()->hide();
    m_grid->horizontalHeader()->setStretchLastSection(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_goOn);
    buttons->addWidget(back);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_hint);
    layout->addWidget(m_grid);
    layout->addLayout(buttons);

    connect(m_grid, &QTableWidget::itemSelectionChanged, this, [this] {
        const bool selected = !m_grid->selectedItems().isEmpty();
        m_goOn->setEnabled(selected);
        if (selected)
            m_hint->hide();
    });
    connect(m_grid, &QTableWidget::cellDoubleClicked, this, &RegisterChooser::goOn);
    connect(m_goOn, &QPushButton::clicked, this, &RegisterChooser::goOn);
    connect(back, &QPushButton::clicked, this, [this] {
        hide();
        emit backToMainScreen();
    });
}

bool RegisterChooser::open(Purpose purpose) {
    bool any = false;
    const bool ran = ui::runGuarded([&] {
        any = m_db.scalar(QStringLiteral("SELECT COUNT(NMUNCP) FROM EMPRS")).toInt() > 0;
        if (!any)
            return;
        m_purpose = purpose;
        const bool forExport = purpose == Purpose::Export;
        setTitle(forExport ? QStringLiteral("Disquete") : QStringLiteral("Sugestões"));
        QSqlQuery rows = m_db.run(
            forExport ? QStringLiteral("SELECT DRAZAOSOCIL, NMUNCP, NSEQNC, CSITU FROM EMPRS "
                                       "ORDER BY DRAZAOSOCIL")
                      : QStringLiteral("SELECT DRAZAOSOCIL, NMUNCP, NSEQNC FROM EMPRS"));
        m_grid->clear();
        m_grid->setRowCount(0);
        // For suggestions the code stands first and the name second.
        const QStringList headings =
            forExport ? QStringList{QStringLiteral("Razão Social"), QStringLiteral("Código"),
                                    QStringLiteral("Sequência"), QStringLiteral("Situação")}
                      : QStringList{QStringLiteral("Código"), QStringLiteral("Razão Social"),
                                    QStringLiteral("Sequência")};
        m_grid->setColumnCount(int(headings.size()));
        m_grid->setHorizontalHeaderLabels(headings);
        const int nameColumn = forExport ? 0 : 1;
        const int municipalityColumn = forExport ? 1 : 0;
        while (rows.next()) {
            const int r = m_grid->rowCount();
            m_grid->insertRow(r);
            m_grid->setItem(r, nameColumn, cell(rows.value(0).toString().trimmed()));
            m_grid->setItem(r, municipalityColumn, cell(rows.value(1).toString()));
            m_grid->setItem(r, 2, cell(rows.value(2).toString()));
            if (forExport)
                m_grid->setItem(r, Status, cell(statusWordForExport(rows.value(3))));
        }
        m_grid->resizeColumnsToContents();
        m_goOn->setEnabled(false);
        // The hint speaks of the export; the suggestions' chooser goes without it.
        m_hint->setVisible(forExport);
        show();
    });
    if (ran && !any) {
        ui::dialogs().message(ui::kTitle, QStringLiteral("É necessário cadastrar o VOR"),
                              ui::Icon::Warning);
    }
    return ran && any;
}

void RegisterChooser::goOn() {
    const int row = m_grid->currentRow();
    if (row < 0)
        return;
    const bool forExport = m_purpose == Purpose::Export;
    const int nameColumn = forExport ? 0 : 1;
    const int municipalityColumn = forExport ? 1 : 0;
    const store::RegisterKey key{m_grid->item(row, municipalityColumn)->text().toInt(),
                                 m_grid->item(row, 2)->text().toInt()};
    const QString name = m_grid->item(row, nameColumn)->text();
    m_hint->hide();
    hide();
    emit chosen(m_purpose, key, name);
}

} // namespace shell
