#pragma once

#include <QMainWindow>

namespace store {
class Database;
}

namespace shell {

// F1_TelaPrincipal: the start screen. Closing it ends the program.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(store::Database& db, QWidget* parent = nullptr);

private:
    store::Database& m_db;
};

} // namespace shell
