#include "ui/GridColumns.h"

#include <QEvent>
#include <QHeaderView>
#include <QPointer>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimer>
#include <algorithm>
#include <vector>

namespace ui {

namespace {

// Refits a grid after its rows or its size change, once per turn of the event loop.
class ColumnFitter : public QObject {
public:
    explicit ColumnFitter(QTableWidget* grid)
        : QObject(grid)
        , m_grid(grid) {
        grid->installEventFilter(this);
        QAbstractItemModel* model = grid->model();
        connect(model, &QAbstractItemModel::rowsInserted, this, &ColumnFitter::later);
        connect(model, &QAbstractItemModel::rowsRemoved, this, &ColumnFitter::later);
        connect(model, &QAbstractItemModel::dataChanged, this, &ColumnFitter::later);
        connect(model, &QAbstractItemModel::modelReset, this, &ColumnFitter::later);
        connect(model, &QAbstractItemModel::columnsInserted, this, &ColumnFitter::later);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == m_grid && (event->type() == QEvent::Resize || event->type() == QEvent::Show))
            later();
        return false;
    }

private:
    void later() {
        if (m_pending)
            return;
        m_pending = true;
        QTimer::singleShot(0, this, [this] {
            m_pending = false;
            if (m_grid)
                fitColumns(m_grid);
        });
    }

    QPointer<QTableWidget> m_grid;
    bool m_pending = false;
};

} // namespace

void fitColumns(QTableWidget* grid) {
    QHeaderView* header = grid->horizontalHeader();
    // The widest text of a column, which QTableView keeps protected and its base offers.
    const QAbstractItemView* view = grid;
    const int count = grid->columnCount();
    std::vector<int> floor(std::size_t(count), 0);
    std::vector<int> width(std::size_t(count), 0);
    int total = 0;
    for (int c = 0; c < count; ++c) {
        if (grid->isColumnHidden(c))
            continue;
        floor[std::size_t(c)] = header->sectionSizeHint(c);
        width[std::size_t(c)] = std::max(floor[std::size_t(c)], view->sizeHintForColumn(c));
        total += width[std::size_t(c)];
    }
    const int room =
        grid->viewport()->width() > 0
            ? grid->maximumViewportSize().width() - grid->verticalScrollBar()->sizeHint().width()
            : 0;
    // Too wide for the grid: the widest columns give way, one pixel at a time of the excess,
    // down to the width of the next widest or to their heading.
    while (room > 0 && total > room) {
        int widest = -1;
        for (int c = 0; c < count; ++c) {
            const auto i = std::size_t(c);
            if (width[i] > floor[i] && (widest < 0 || width[i] > width[std::size_t(widest)]))
                widest = c;
        }
        if (widest < 0)
            break;
        int second = floor[std::size_t(widest)];
        for (int c = 0; c < count; ++c) {
            if (c != widest && width[std::size_t(c)] < width[std::size_t(widest)])
                second = std::max(second, width[std::size_t(c)]);
        }
        const int cut = std::max(1, std::min(total - room, width[std::size_t(widest)] - second));
        width[std::size_t(widest)] -= cut;
        total -= cut;
    }
    for (int c = 0; c < count; ++c) {
        if (!grid->isColumnHidden(c))
            grid->setColumnWidth(c, width[std::size_t(c)]);
    }
    for (int r = 0; r < grid->rowCount(); ++r) {
        for (int c = 0; c < count; ++c) {
            if (QTableWidgetItem* item = grid->item(r, c); item && item->toolTip() != item->text())
                item->setToolTip(item->text());
        }
    }
}

void keepColumnsFitted(QTableWidget* grid) {
    grid->setTextElideMode(Qt::ElideRight);
    new ColumnFitter(grid);
    fitColumns(grid);
}

} // namespace ui
