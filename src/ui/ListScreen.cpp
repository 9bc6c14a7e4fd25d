#include "ui/ListScreen.h"

#include "rules/Formats.h"
#include "store/CodeLists.h"
#include "store/Database.h"
#include "ui/BusyCursor.h"
#include "ui/ErrorRoutine.h"
#include "ui/HeaderBand.h"
#include "ui/MaintenanceScreen.h"
#include "ui/Session.h"

#include <QButtonGroup>
#include <QDate>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTableWidget>
#include <QTime>
#include <QVBoxLayout>

namespace ui {

namespace {

QPushButton* button(const QString& name, const QString& caption, QWidget* parent) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    return b;
}

QString shownValue(const QVariant& value, const GridColumn& column) {
    if (value.isNull())
        return {};
    const QString stored = value.toString();
    switch (column.kind) {
    case GridColumn::Kind::Date: {
        const QDate date = QDate::fromString(stored.left(10), Qt::ISODate);
        return date.isValid() ? rules::shortDate(date) : stored;
    }
    case GridColumn::Kind::Decimal: {
        bool number = false;
        const double amount = value.toDouble(&number);
        return number ? QString::number(amount, 'f', 2).replace(QLatin1Char('.'), QLatin1Char(','))
                      : stored;
    }
    case GridColumn::Kind::Time: {
        const QTime time = QTime::fromString(stored.left(5), QStringLiteral("HH:mm"));
        return time.isValid() ? time.toString(QStringLiteral("HH:mm")) : stored;
    }
    case GridColumn::Kind::Text:
        break;
    }
    return column.labels.value(stored, stored);
}

} // namespace

ListScreen::ListScreen(ScreenHost& host, ListDefinition definition, QWidget* parent)
    : Screen(parent)
    , m_host(host)
    , m_def(std::move(definition)) {
    setObjectName(m_def.name);
    setWindowTitle(m_def.caption);

    auto* layout = new QVBoxLayout(this);
    m_header = new HeaderBand(this);
    layout->addWidget(m_header);

    for (std::size_t i = 0; i < m_def.levels.size(); ++i) {
        const ListLevel& lvl = m_def.levels[i];
        auto* frame = new QGroupBox(lvl.frameTitle, this);
        auto* frameLayout = new QVBoxLayout(frame);
        auto* grid = new QTableWidget(frame);
        grid->setObjectName(lvl.gridName);
        grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
        grid->setSelectionBehavior(QAbstractItemView::SelectRows);
        grid->setSelectionMode(QAbstractItemView::SingleSelection);
        grid->verticalHeader()->hide();
        grid->horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
        grid->setWordWrap(false);
        grid->horizontalHeader()->setStretchLastSection(true);
        grid->setColumnCount(int(lvl.columns.size()));
        for (int c = 0; c < int(lvl.columns.size()); ++c) {
            grid->setHorizontalHeaderItem(
                c, new QTableWidgetItem(lvl.columns[std::size_t(c)].heading));
            // No heading is cut: a column is at least as wide as its heading. A column of width
            // 0 carries a key that the rows are known by and is not shown.
            if (lvl.columns[std::size_t(c)].width == 0)
                grid->setColumnHidden(c, true);
            else
                grid->setColumnWidth(c, std::max(lvl.columns[std::size_t(c)].width,
                                                 grid->horizontalHeader()->sectionSizeHint(c)));
        }
        frameLayout->addWidget(grid);
        layout->addWidget(frame, 1);
        m_grids.push_back(grid);
        const int level = int(i);
        connect(grid, &QTableWidget::cellClicked, this, [this, level] { gridClicked(level); });
        // A click beside the rows (an empty grid has nothing else) is a click in the grid too.
        grid->viewport()->installEventFilter(this);
        connect(grid, &QTableWidget::cellDoubleClicked, this,
                [this, level] { gridDoubleClicked(level); });
        // Mouse, keyboard or program: on a level with fixed rows, cmdAlterar and cmdExcluir
        // follow the row the grid stands on.
        connect(grid, &QTableWidget::currentCellChanged, this, [this, level] {
            if (m_loading || level != m_level || !m_def.levels[std::size_t(level)].fixedRow)
                return;
            const bool open = currentRow(level) > 0 && !onFixedRow(level);
            m_alterar->setEnabled(open);
            m_excluir->setEnabled(open);
        });
    }
    connect(m_grids.front(), &QTableWidget::currentCellChanged, this,
            [this](int row, int, int previousRow) {
                if (!m_loading && row != previousRow)
                    mainRowChanged();
            });

    auto* bottom = new QHBoxLayout;
    if (m_def.levels.size() > 1) {
        auto* frame = new QGroupBox(QStringLiteral("Operação"), this);
        frame->setObjectName(QStringLiteral("fraOperacao"));
        auto* frameLayout = new QHBoxLayout(frame);
        auto* group = new QButtonGroup(frame);
        for (std::size_t i = 0; i < m_def.levels.size(); ++i) {
            auto* option = new QRadioButton(m_def.levels[i].optionCaption, frame);
            option->setObjectName(QStringLiteral("optOperacao_%1").arg(i));
            group->addButton(option, int(i));
            frameLayout->addWidget(option);
            m_options.push_back(option);
        }
        m_options.front()->setChecked(true);
        connect(group, &QButtonGroup::idClicked, this, &ListScreen::setLevel);
        bottom->addWidget(frame);
    }
    auto* buttons = new QGroupBox(this);
    buttons->setObjectName(QStringLiteral("fraBotoes"));
    auto* buttonsLayout = new QHBoxLayout(buttons);
    m_incluir = button(QStringLiteral("cmdIncluir"), QStringLiteral("&Incluir"), buttons);
    m_alterar = button(QStringLiteral("cmdAlterar"), QStringLiteral("&Alterar"), buttons);
    m_excluir = button(QStringLiteral("cmdExcluir"), QStringLiteral("&Excluir"), buttons);
    buttonsLayout->addWidget(m_incluir);
    buttonsLayout->addWidget(m_alterar);
    buttonsLayout->addWidget(m_excluir);
    bottom->addWidget(buttons);
    bottom->addStretch(1);
    m_voltar = button(QStringLiteral("cmdVoltar"), QStringLiteral("&Voltar"), this);
    m_continuar = button(QStringLiteral("cmdContinuar"), QStringLiteral("&Continuar"), this);
    m_continuar->setDefault(true);
    bottom->addWidget(m_voltar);
    bottom->addWidget(m_continuar);
    layout->addLayout(bottom);

    connect(m_incluir, &QPushButton::clicked, this, &ListScreen::include);
    connect(m_alterar, &QPushButton::clicked, this, &ListScreen::alter);
    connect(m_excluir, &QPushButton::clicked, this, &ListScreen::remove);
    connect(m_voltar, &QPushButton::clicked, this, &ListScreen::goBack);
    connect(m_continuar, &QPushButton::clicked, this, &ListScreen::goOn);
}

Session& ListScreen::session() const {
    return m_host.session();
}

void ListScreen::setNewKeys(const QString& main, const QString& detail) {
    m_chaveNova = main;
    m_chaveNovaDetalhe = detail;
}

void ListScreen::enter() {
    BusyCursor busy;
    m_header->fill(session());
    fillGrid(0);
    mainRowChanged();
    const bool hasRows = dataRows(0) > 0;
    m_incluir->setEnabled(true);
    m_alterar->setEnabled(hasRows);
    m_excluir->setEnabled(hasRows);
    for (int level = 0; level < levelCount(); ++level)
        selectRow(level);
    keepFixedRowShut();
}

void ListScreen::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    // Enter walks on through the sequence.
    m_continuar->setEnabled(true);
    m_continuar->setFocus();
}

int ListScreen::currentRow(int level) const {
    const QTableWidget* g = grid(level);
    return g->rowCount() == 0 ? 0 : g->currentRow() + 1;
}

int ListScreen::dataRows(int level) const {
    return grid(level)->rowCount();
}

bool ListScreen::onFixedRow(int level) const {
    const ListLevel& lvl = m_def.levels[std::size_t(level)];
    if (!lvl.fixedRow || currentRow(level) == 0)
        return false;
    const ListSelection rows = selection();
    return lvl.fixedRow(level == 0 ? rows.main : rows.detail);
}

void ListScreen::keepFixedRowShut() {
    if (onFixedRow(m_level)) {
        m_alterar->setEnabled(false);
        m_excluir->setEnabled(false);
    }
}

ListSelection ListScreen::selection() const {
    ListSelection rows;
    for (int level = 0; level < levelCount(); ++level) {
        QStringList& cells = level == 0 ? rows.main : rows.detail;
        QVariantList& stored = level == 0 ? rows.mainStored : rows.detailStored;
        const QTableWidget* g = grid(level);
        const int row = currentRow(level);
        if (row == 0)
            continue;
        for (int c = 0; c < g->columnCount(); ++c) {
            const QTableWidgetItem* item = g->item(row - 1, c);
            cells << (item ? item->text() : QString());
            stored << (item ? item->data(Qt::UserRole) : QVariant());
        }
    }
    return rows;
}

void ListScreen::fillGrid(int level) {
    const ListLevel& lvl = m_def.levels[std::size_t(level)];
    QTableWidget* g = grid(level);
    m_loading = true;
    g->setRowCount(0);
    const QStringList mainRow = level == 0 ? QStringList() : selection().main;
    if (level == 0 || !mainRow.isEmpty()) {
        runGuarded([&] {
            const Query q = lvl.query(session(), mainRow);
            QSqlQuery rows = m_host.database().run(q.sql, q.values);
            while (rows.next()) {
                const int r = g->rowCount();
                g->insertRow(r);
                for (int c = 0; c < int(lvl.columns.size()); ++c) {
                    auto* item = new QTableWidgetItem(
                        shownValue(rows.value(c), lvl.columns[std::size_t(c)]));
                    item->setData(Qt::UserRole, rows.value(c));
                    item->setTextAlignment(Qt::AlignCenter);
                    g->setItem(r, c, item);
                }
            }
        });
    }
    // A grid with rows stands on its first one, as a rebuilt grid does.
    if (g->rowCount() > 0)
        g->setCurrentCell(0, 0);
    m_loading = false;
}

void ListScreen::mainRowChanged() {
    if (levelCount() > 1)
        fillGrid(1);
}

void ListScreen::setCurrentRow(int level, int row, bool toTop) {
    QTableWidget* g = grid(level);
    if (row <= 0 || g->rowCount() == 0) {
        g->clearSelection();
        return;
    }
    row = std::min(row, g->rowCount());
    g->setCurrentCell(row - 1, 0);
    g->selectRow(row - 1);
    if (toTop)
        g->scrollToItem(g->item(row - 1, 0), QAbstractItemView::PositionAtTop);
}

void ListScreen::selectRow(int level) {
    const ListLevel& lvl = m_def.levels[std::size_t(level)];
    QString& newKey = level == 0 ? m_chaveNova : m_chaveNovaDetalhe;
    QTableWidget* g = grid(level);
    if (session().operacaoItem == lvl.insertOperation && !newKey.isEmpty()) {
        for (int r = 0; r < g->rowCount(); ++r) {
            const QTableWidgetItem* item = g->item(r, 0);
            if (item && item->text() == newKey) {
                setCurrentRow(level, r + 1, true);
                newKey.clear();
                return;
            }
        }
    }
    const int kept = level == 0 ? session().linhaPrincipal : session().linhaDetalhe;
    setCurrentRow(level, kept == 0 ? 1 : kept, false);
}

void ListScreen::keepRows() {
    session().linhaPrincipal = currentRow(0);
    if (levelCount() > 1)
        session().linhaDetalhe = currentRow(1);
}

void ListScreen::setLevel(int level) {
    m_level = level;
    if (!m_options.empty())
        m_options.at(std::size_t(level))->setChecked(true);
    updateButtons();
}

void ListScreen::updateButtons() {
    const bool mainRows = dataRows(0) > 0;
    if (m_level == 0) {
        m_incluir->setEnabled(true);
        m_alterar->setEnabled(mainRows);
        m_excluir->setEnabled(mainRows);
    } else {
        // A detail row is added in the forced chain after its parent was saved, or after a
        // click in the detail grid: the option alone does not offer it.
        const bool detailRows = mainRows && dataRows(1) > 0;
        m_incluir->setEnabled(false);
        m_alterar->setEnabled(detailRows);
        m_excluir->setEnabled(detailRows);
    }
    keepFixedRowShut();
}

bool ListScreen::eventFilter(QObject* watched, QEvent* event) {
    const bool release = event->type() == QEvent::MouseButtonRelease;
    const bool twice = event->type() == QEvent::MouseButtonDblClick;
    if (release || twice) {
        for (int level = 0; level < levelCount(); ++level) {
            QTableWidget* g = grid(level);
            if (watched != g->viewport())
                continue;
            const auto* mouse = static_cast<QMouseEvent*>(event);
            if (g->indexAt(mouse->position().toPoint()).isValid())
                break; // a row: the grid's own signals report it
            if (release)
                gridClicked(level);
            else
                gridDoubleClicked(level);
            break;
        }
    }
    return Screen::eventFilter(watched, event);
}

void ListScreen::gridClicked(int level) {
    if (levelCount() < 2)
        return;
    setLevel(level);
    grid(level)->setFocus();
    if (onFixedRow(level))
        return;
    QPushButton* next = dataRows(level) > 0 ? m_alterar : m_incluir;
    next->setEnabled(true);
    next->setFocus();
}

void ListScreen::gridDoubleClicked(int level) {
    if (levelCount() > 1)
        setLevel(level);
    if (onFixedRow(level))
        return;
    if (dataRows(level) > 0)
        alter();
    else
        include();
}

void ListScreen::include() {
    insert(false);
}

void ListScreen::insert(bool forced) {
    QString operation;
    if (m_level == 0) {
        operation = m_def.levels[0].insertOperation;
    } else {
        if (dataRows(0) == 0) {
            showRefusal({QString(), m_def.noParentMessage});
            return;
        }
        if (m_def.checkDetailInsert) {
            Check refused;
            if (!runGuarded([&] { refused = m_def.checkDetailInsert(m_host, selection()); }))
                return;
            if (refused) {
                showRefusal(*refused);
                return;
            }
        }
        operation = m_def.levels[1].insertOperation;
    }
    openMaintenance(operation, forced);
}

void ListScreen::alter() {
    if (currentRow(0) == 0 || (m_level == 1 && currentRow(1) == 0) || onFixedRow(m_level))
        return;
    if (m_level == 1 && m_def.checkDetailAlter) {
        Check refused;
        if (!runGuarded([&] { refused = m_def.checkDetailAlter(m_host, selection()); }))
            return;
        if (refused) {
            showRefusal(*refused);
            return;
        }
    }
    openMaintenance(m_def.levels[std::size_t(m_level)].alterOperation, false);
}

void ListScreen::forceDetailInsert() {
    setLevel(1);
    insert(true);
}

void ListScreen::openMaintenance(const QString& operation, bool forced) {
    session().operacaoItem = operation;
    keepRows();
    MaintenanceScreen* screen = m_def.maintenance(m_host);
    screen->start(operation, selection(), forced);
    m_host.showScreen(screen);
    screen->enter();
}

void ListScreen::remove() {
    session().linhaPrincipal = currentRow(0);
    const int level = m_level;
    if (currentRow(level) == 0 || onFixedRow(level))
        return;
    const ListLevel& lvl = m_def.levels[std::size_t(level)];
    if (!dialogs().ask(kTitle, lvl.deleteQuestion, Icon::Question, false))
        return;
    bool deleted = false;
    {
        BusyCursor busy;
        const ListSelection rows = selection();
        deleted = runGuarded([&] {
            store::Transaction transaction(m_host.database());
            lvl.cascade(m_host.database(), session(), rows);
            transaction.commit();
        });
    }
    if (deleted)
        dialogs().message(kTitle, QStringLiteral("Excluído com Sucesso"), Icon::Information);

    BusyCursor busy;
    fillGrid(0);
    if (level == 1) {
        m_loading = true;
        setCurrentRow(0, session().linhaPrincipal, false);
        m_loading = false;
    }
    mainRowChanged();
    if (level == 1)
        selectRow(1);
    setLevel(level);
}

void ListScreen::goBack() {
    keepRows();
    showPrevious(m_host, {m_def.name});
}

void ListScreen::goOn() {
    keepRows();
    showNext(m_host, {m_def.name});
}

} // namespace ui
