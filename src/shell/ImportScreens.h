#pragma once

#include <QDialog>

class QComboBox;
class QFileSystemModel;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace store {
class Database;
}

namespace shell {

class MainWindow;

// frmImportacaoBar: the progress of the file in hand while the batch runs.
class ImportProgress : public QDialog {
    Q_OBJECT

public:
    explicit ImportProgress(QWidget* parent = nullptr);
    void setStep(int step, int steps);

private:
    QProgressBar* m_bar;
};

// frmImportacaoDir: the directory of the batch, with its "*.txt" files listed.
class ImportDirectoryDialog : public QDialog {
    Q_OBJECT

public:
    explicit ImportDirectoryDialog(const QString& start, QWidget* parent = nullptr);

    void setDirectory(const QString& directory);
    QString directory() const { return m_directory; }
    int fileCount() const;

signals:
    // "&Abrir" on a directory with files: the batch's directory and its number of files.
    void chosen(const QString& directory, int files);

private:
    void open();

    QString m_directory;
    QComboBox* m_drive;
    QTreeView* m_dirs;
    QFileSystemModel* m_model;
    QListWidget* m_files;
};

// frmImportacao: the agency's import of a directory of joined files. The batch wipes the
// database's registers after copying the database to a backup, and reads every file.
class ImportScreen : public QDialog {
    Q_OBJECT

public:
    explicit ImportScreen(store::Database& db, QWidget* parent = nullptr);

    // What "&Abrir" of the directory screen hands over (tests call it directly).
    void setBatch(const QString& directory, int files);
    // cmdImprt.
    void importNow();

    const QString& directory() const { return m_directory; }

private:
    void chooseDirectory();

    store::Database& m_db;
    QString m_directory;
    QPushButton* m_import;
    QLineEdit* m_existing;
    QLineEdit* m_imported;
    QLabel* m_backup;
};

// lblImprt after the access code: the main screen hides while the import screen is up.
void openImport(MainWindow& window);

} // namespace shell
