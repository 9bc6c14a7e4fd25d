#pragma once

#include "store/RegisterKey.h"

#include <QDialog>
#include <optional>

class QTableWidget;

namespace store {
class Database;
}

namespace shell {

// frmImpressao: the register whose memorial is to be printed, chosen from the main screen.
class PrintChooser : public QDialog {
    Q_OBJECT

public:
    explicit PrintChooser(store::Database& db, QWidget* parent = nullptr);

    // Fills the list; with no register at all it says "É necessário cadastrar o VOR" and
    // returns false.
    bool load();
    std::optional<store::RegisterKey> selectedKey() const;

private:
    void print(bool preview);

    store::Database& m_db;
    QTableWidget* m_grid;
};

// lblImprimir: the chooser, then the print run of the chosen register.
void printFromMainScreen(store::Database& db, QWidget* parent);

} // namespace shell
