#pragma once

#include <QFrame>

class QTableWidget;

namespace store {
class Database;
}

namespace shell {

// PnAviso(0): the addresses of the agency's regional offices, the head office first.
class AgenciesPanel : public QFrame {
    Q_OBJECT

public:
    explicit AgenciesPanel(store::Database& db, QWidget* parent = nullptr);

    // Fills the list from REGNL and shows the panel; false when a database failure stopped it.
    bool open();

signals:
    void backToMainScreen();

private:
    store::Database& m_db;
    QTableWidget* m_grid;
};

} // namespace shell
