#pragma once

#include "exchange/TableReader.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <stdexcept>

namespace store {
class Database;
}

namespace exchange {

// The agency's import: a directory of joined files read into a database that is emptied first.
// The database is copied to a dated backup before the wipe. Each file is read in one
// transaction: a file is imported whole or not at all, and the batch goes on with the next.
// Nothing here shows a window: refusals are handed to a callback in the user's words.
class Importer {
public:
    // A file refused or left out, in the words shown with a stop icon.
    using Refusal = std::function<void(const QString& message)>;
    // The bar of the file in hand: one step per section entered, out of `steps`.
    using Progress = std::function<void(int step, int steps)>;

    // What stops the whole batch: the directory or a file that cannot be read, a full disk.
    class Stopped : public std::runtime_error {
    public:
        explicit Stopped(QString message);
        const QString& message() const { return m_message; }

    private:
        QString m_message;
    };

    enum class FileOutcome {
        Imported, // counted among the files imported
        Refused,  // a refusal was reported; nothing of the file stays
    };

    struct Summary {
        int existing = 0;   // the "*.txt" files of the directory
        int imported = 0;   // counted as imported
        QString backupPath; // where the database was copied before the wipe
    };

    explicit Importer(store::Database& db);
    ~Importer();
    Importer(const Importer&) = delete;
    Importer& operator=(const Importer&) = delete;

    void setRefusal(Refusal refusal) { m_refusal = std::move(refusal); }
    void setProgress(Progress progress) { m_progress = std::move(progress); }

    // The names of the "*.txt" files of `directory` (any case), in a stable order.
    static QStringList batchFiles(const QString& directory);

    // Backup, wipe, then every file of the directory. Throws Stopped when a file cannot be
    // read or the disk is full (the batch ends there; the files before stay imported) and
    // store::Failure when the backup or the wipe fails (then the database is as it was).
    Summary run(const QString& directory);

    // The steps of run(), for callers that show them one by one. wipe() and importFile()
    // throw Stopped on a full disk.
    QString backup();
    void wipe();
    FileOutcome importFile(const QString& directory, const QString& name);
    // The same for the bytes of a file called `name`, read already.
    FileOutcome importData(const QString& name, const QByteArray& bytes);

    // The bar's length for one file: one step per section the readers know.
    static int sectionSteps();

private:
    // The EMPRS row, then the rows of every section behind it, to the end of the file.
    void readRegister(LineReader& lines, const QString& emprsLine, const RowContext& context);
    void refuse(const QString& message);
    // The journal of a batch; the database's own comes back with the destructor.
    void useFasterJournal();

    store::Database& m_db;
    QVariant m_journalMode; // the database's own, put back at the end of the batch; invalid
                            // while the batch has not changed it
    QVariant m_synchronous;
    QVariant m_checkpoint;
    Readers m_readers;
    Refusal m_refusal;
    Progress m_progress;
};

// The refusals of the import, word for word.
QString corruptFileText(const QString& name);
QString invalidCnpjText(const QString& name);
QString registeredCompanyText(const QString& company, const QString& key);
QString fileKeyMismatchText(const QString& name, const QString& key);
QString emptyFileText(const QString& name);
// A file whose register needs a new number when every number is in use.
QString noFreeSequenceText(const QString& name);
// A database failure inside a file: the file is left out whole.
QString fileFailedText(const QString& name, const QString& detail);

// The other texts of the import.
inline const QString kPlaceholderCnpj = QStringLiteral("12345678901230");
inline const QString kNoDirectoryText = QStringLiteral("Necessita localizar o diretório.");
inline const QString kContinueQuestion = QStringLiteral("Continuar Importação?");
inline const QString kContinueTitle = QStringLiteral("Importação");
inline const QString kDoneText = QStringLiteral("Importação Concluída");
inline const QString kDoneTitle = QStringLiteral("VOR-POSTO-ZANTOR");
inline const QString kChooseDirectoryText = QStringLiteral("Selecione um diretório.");

} // namespace exchange
