#pragma once

#include "store/RegisterKey.h"

#include <QGroupBox>

class QLabel;
class QPushButton;
class QTableWidget;

namespace store {
class Database;
}

namespace shell {

// Frame1 of the main screen: picks the register whose diskette is to be made ("Disquete") or
// whose suggestion is to be written ("Sugestões"). The caption tells which.
class RegisterChooser : public QGroupBox {
    Q_OBJECT

public:
    enum class Purpose { Export, Suggestions };

    explicit RegisterChooser(store::Database& db, QWidget* parent = nullptr);

    // Fills the list for `purpose` and shows the chooser. With no register at all it says
    // "É necessário cadastrar o VOR", stays as it was and returns false.
    bool open(Purpose purpose);
    Purpose purpose() const { return m_purpose; }

signals:
    void chosen(shell::RegisterChooser::Purpose purpose, store::RegisterKey key,
                const QString& companyName);
    void backToMainScreen();

private:
    void goOn();

    store::Database& m_db;
    Purpose m_purpose = Purpose::Export;
    QLabel* m_hint;
    QTableWidget* m_grid;
    QPushButton* m_goOn;
};

// The word shown for a register's CSITU on the main screen's lists; a value outside 0 to 4
// stays as the bare number.
QString statusWordForExport(const QVariant& csitu);

} // namespace shell
