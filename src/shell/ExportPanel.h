#pragma once

#include "store/RegisterKey.h"
#include "ui/ExportRun.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace store {
class Database;
}

namespace shell {

// The export of one register as both entries run it (the main screen's diskette panel and the
// register list's Exportar): the file, the mail question and, after a send, the protocol
// printed and saved as PDF beside the joined file.
ui::ExportRunOutcome exportRegister(store::Database& db, const store::RegisterKey& key,
                                    const QString& directory,
                                    const std::function<void(int, int)>& progress = {},
                                    const std::function<void()>& written = {});

// The folder that the last export went to (the user's home folder the first time), and its keeper.
QString lastExportDirectory();
void rememberExportDirectory(const QString& directory);

// Picture6: where the diskette of the chosen register is made.
class ExportPanel : public QWidget {
    Q_OBJECT

public:
    explicit ExportPanel(store::Database& db, QWidget* parent = nullptr);

    // Prepares the panel for `key`: the folder of the last export, the bar at zero.
    void openFor(const store::RegisterKey& key);
    QString directory() const;
    void setDirectory(const QString& directory);

signals:
    void backToMainScreen();

private:
    void chooseDirectory();
    void listFiles();
    void exportNow();

    store::Database& m_db;
    store::RegisterKey m_key;
    QLineEdit* m_directory;
    QListWidget* m_files;
    QProgressBar* m_bar;
    QLabel* m_wait;
    QPushButton* m_export;
    QPushButton* m_back;
};

} // namespace shell
