#pragma once

#include "ui/ListScreen.h"

#include <QHash>

class QLineEdit;

namespace establishment {

// frmPostoDistrConsl: the register's fuel distributor and its other suppliers
// (TB_POSTODISTRFORNC), with a read-only copy of the firm selected in the grid. A firm is
// known by its NIDENT, which the grid holds in a hidden first column.
class DistributorList : public ui::ListScreen {
    Q_OBJECT

public:
    explicit DistributorList(ui::ScreenHost& host, QWidget* parent = nullptr);

    void enter() override;

private:
    void showSelected();

    ui::ScreenHost& m_host;
    QHash<QString, QLineEdit*> m_copies;
};

} // namespace establishment
