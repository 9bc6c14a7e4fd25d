#include "exchange/Importer.h"

#include "exchange/ExportFailure.h"
#include "exchange/Exporter.h"
#include "exchange/Tokeniser.h"
#include "rules/CheckDigits.h"
#include "store/Backup.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "store/RegisterKey.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <cerrno>
#include <limits>
#include <vector>

namespace exchange {

namespace {

// The fields of the EMPRS row that the driver looks at (1-based, as the row stands).
constexpr int kDriverFields = 19;
constexpr int kNmuncpField = 1;
constexpr int kNseqncField = 2;
constexpr int kRazaoSocialField = 4;
constexpr int kCcgcField = 13;
constexpr int kAcadstField = 19;

const TableLayout& emprsLayout() {
    return layout("EMPRS");
}

// The sections whose header the readers of the joined file know, in their order.
std::vector<const TableLayout*> readSections() {
    std::vector<const TableLayout*> result;
    for (const TableLayout* l : joinedSections()) {
        if (l->sectionHeaderRead)
            result.push_back(l);
    }
    return result;
}

// A register number of the file: a 16-bit integer, or nothing.
std::optional<int> registerNumber(const QString& field) {
    bool ok = false;
    const int value = field.trimmed().toInt(&ok);
    if (!ok || value < std::numeric_limits<qint16>::min() ||
        value > std::numeric_limits<qint16>::max())
        return std::nullopt;
    return value;
}

QString readFailureText(int error, const QString& path, const QString& detail) {
    switch (ExportFailure::fromErrno(error, path, detail).reason()) {
    case ExportFailure::Reason::MediumMissing:
        return kMediumMissingText;
    case ExportFailure::Reason::WriteProtected:
        return kWriteProtectedText;
    default:
        return QStringLiteral("Não foi possível ler o arquivo %1: %2").arg(path, detail);
    }
}

// The key bound as the number it is, so that it meets CCGC as a number.
QVariant keyValue(const QString& key) {
    bool ok = false;
    const qlonglong number = key.toLongLong(&ok);
    return ok ? QVariant(number) : QVariant(key);
}

// The number for a register whose own is taken or out of the code's range: one above the
// highest of the table, whatever the municipality, while that stays within the range; past it
// the lowest number that no register uses. Nothing when every number is in use.
std::optional<int> freeSequence(store::Database& db) {
    const int next =
        db.scalar(QStringLiteral("SELECT COALESCE(MAX(NSEQNC), 0) + 1 FROM EMPRS")).toInt();
    if (next >= 1 && next <= store::kLastSequence)
        return next;
    std::vector<bool> used(store::kLastSequence + 1, false);
    QSqlQuery rows = db.run(QStringLiteral("SELECT DISTINCT NSEQNC FROM EMPRS WHERE NSEQNC "
                                           "BETWEEN 1 AND ?"),
                            {store::kLastSequence});
    while (rows.next())
        used[std::size_t(rows.value(0).toInt())] = true;
    for (int n = 1; n <= store::kLastSequence; ++n) {
        if (!used[std::size_t(n)])
            return n;
    }
    return std::nullopt;
}

bool companyRegistered(store::Database& db, const QString& key) {
    return db.scalar(QStringLiteral("SELECT CCGC FROM EMPRS WHERE CCGC = ?"), {keyValue(key)})
        .isValid();
}

} // namespace

QString corruptFileText(const QString& name) {
    return QStringLiteral("O Arquivo ") + name +
           QStringLiteral(" possui dados que não podem ser importados por este sistema, "
                          "possivelmente podem estar corrompidos.");
}

QString invalidCnpjText(const QString& name) {
    return QStringLiteral("O Arquivo ") + name +
           QStringLiteral(" possui o CNPJ inválido, não poderá ser importado");
}

QString registeredCompanyText(const QString& company, const QString& key) {
    return QStringLiteral("Empresa ") + company + QStringLiteral(" com CNPJ ") + key +
           QStringLiteral(" já cadastrada.");
}

QString fileKeyMismatchText(const QString& name, const QString& key) {
    return QStringLiteral("Arquivo ") + name + QStringLiteral(" com CNPJ ") + key +
           QStringLiteral(" não pode ser importado");
}

QString emptyFileText(const QString& name) {
    return QStringLiteral("O Arquivo ") + name + QStringLiteral(" está vazio.");
}

QString noFreeSequenceText(const QString& name) {
    return QStringLiteral("O Arquivo ") + name +
           QStringLiteral(" não pode ser importado: todos os números de posto, de 1 a %1, já "
                          "estão em uso.")
               .arg(store::kLastSequence);
}

QString fileFailedText(const QString& name, const QString& detail) {
    return QStringLiteral("O Arquivo ") + name +
           QStringLiteral(" não foi importado; nada dele foi gravado.\n\n") + detail;
}

Importer::Stopped::Stopped(QString message)
    : std::runtime_error(message.toStdString())
    , m_message(std::move(message)) {}

Importer::Importer(store::Database& db)
    : m_db(db)
    , m_readers(db) {}

Importer::~Importer() {
    if (!m_journalMode.isValid())
        return;
    // PRAGMA takes no bound parameter; the values are those the database gave before.
    try {
        m_db.scalar(QStringLiteral("PRAGMA journal_mode = %1").arg(m_journalMode.toString()));
        if (m_checkpoint.isValid())
            m_db.scalar(QStringLiteral("PRAGMA wal_autocheckpoint = %1").arg(m_checkpoint.toInt()));
        if (m_synchronous.isValid())
            m_db.run(QStringLiteral("PRAGMA synchronous = %1").arg(m_synchronous.toInt()));
    } catch (const store::Failure&) {
        // Left in the faster mode the database is as safe; nothing to tell the user.
    }
}

void Importer::useFasterJournal() {
    if (m_journalMode.isValid())
        return;
    // A transaction per file would otherwise wait for the disk at every file. With a
    // write-ahead log a commit is still atomic and a crash still loses no committed file, but
    // the disk is synchronised at checkpoints rather than at each commit. The switch is only
    // an economy: a database that refuses it (read-only, or held by another program) is
    // imported in its own mode, and its failures are told where they stop the batch.
    try {
        const QVariant journalMode = m_db.scalar(QStringLiteral("PRAGMA journal_mode"));
        m_synchronous = m_db.scalar(QStringLiteral("PRAGMA synchronous"));
        m_checkpoint = m_db.scalar(QStringLiteral("PRAGMA wal_autocheckpoint"));
        m_db.scalar(QStringLiteral("PRAGMA journal_mode = WAL"));
        m_journalMode = journalMode;
        m_db.run(QStringLiteral("PRAGMA synchronous = NORMAL"));
        m_db.scalar(QStringLiteral("PRAGMA wal_autocheckpoint = 16384"));
    } catch (const store::Failure&) {
    }
}

QStringList Importer::batchFiles(const QString& directory) {
    if (directory.isEmpty())
        return {};
    // Name filters of QDir ignore case: "*.txt" also finds REUNIDO_....TXT.
    return QDir(directory).entryList({QStringLiteral("*.txt")}, QDir::Files | QDir::Readable,
                                     QDir::Name);
}

int Importer::sectionSteps() {
    return int(readSections().size());
}

void Importer::refuse(const QString& message) {
    if (m_refusal)
        m_refusal(message);
}

QString Importer::backup() {
    return store::writeBackup(m_db);
}

void Importer::wipe() {
    try {
        store::Transaction transaction(m_db);
        for (std::string_view table : store::registerDeleteOrder())
            m_db.run(QStringLiteral("DELETE FROM \"%1\"")
                         .arg(QString::fromLatin1(table.data(), qsizetype(table.size()))));
        transaction.commit();
    } catch (const store::Failure& failure) {
        if (failure.diskFull())
            throw Stopped(kDiskFullText);
        throw;
    }
    // Once the wipe holds, no other program is writing: the moment to change the journal.
    useFasterJournal();
}

Importer::Summary Importer::run(const QString& directory) {
    const QStringList files = batchFiles(directory);
    if (files.isEmpty())
        throw Stopped(kChooseDirectoryText);
    Summary summary;
    summary.existing = int(files.size());
    summary.backupPath = backup();
    wipe();
    for (const QString& name : files) {
        if (importFile(directory, name) == FileOutcome::Imported)
            ++summary.imported;
    }
    return summary;
}

Importer::FileOutcome Importer::importFile(const QString& directory, const QString& name) {
    const QString path = filePath(directory, name);
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly))
        throw Stopped(readFailureText(errno, path, file.errorString()));
    errno = 0;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw Stopped(readFailureText(errno, path, file.errorString()));
    LineReader lines(bytes);

    // The EMPRS row: the first line that is neither empty nor its header. Empty lines come
    // with a transfer in text mode, which doubles every line end.
    QString emprsLine;
    FieldTokeniser fields;
    while (true) {
        emprsLine = lines.nextLine();
        if (emprsLine.isNull()) {
            refuse(emptyFileText(name));
            return FileOutcome::Refused;
        }
        fields.reset(emprsLine);
        if (fields.next().trimmed() != sectionHeader(QStringLiteral("EMPRS")))
            break;
    }
    fields.rewind();
    const QStringList row = fields.take(kDriverFields);
    const QString ccgc = row[kCcgcField - 1].trimmed();
    const QString company = row[kRazaoSocialField - 1];

    // The key of the file: CCGC in fourteen digits, or for the placeholder of a company
    // without CNPJ the middle of the file name ("REUNIDO_" before it, ".TXT" behind it).
    bool numeric = false;
    const qlonglong ccgcNumber = ccgc.toLongLong(&numeric);
    const bool placeholder = numeric && ccgcNumber == kPlaceholderCnpj.toLongLong();
    QString key;
    if (placeholder)
        key = name.mid(8, std::max<qsizetype>(0, name.size() - 12));
    else if (numeric)
        key = QStringLiteral("%1").arg(ccgcNumber, 14, 10, QLatin1Char('0'));
    const bool checked = !placeholder;

    const std::optional<int> nmuncp = registerNumber(row[kNmuncpField - 1]);
    std::optional<int> nseqnc = registerNumber(row[kNseqncField - 1]);
    // A CCGC that is no number at all is as unreadable as a missing one.
    if (!nmuncp || !nseqnc || (!numeric && !placeholder) || isNullField(key)) {
        refuse(corruptFileText(name));
        return FileOutcome::Refused;
    }
    if (checked && !rules::validaCgcCpf(key)) {
        refuse(invalidCnpjText(name));
        return FileOutcome::Refused;
    }
    if (companyRegistered(m_db, key)) {
        refuse(registeredCompanyText(company, key));
        return FileOutcome::Refused;
    }
    // A pair taken by an earlier file of the batch, or a number that the code cannot show:
    // the whole register gets a free number.
    if (*nseqnc < 0 || *nseqnc > store::kLastSequence ||
        m_db.scalar(QStringLiteral("SELECT 1 FROM EMPRS WHERE NMUNCP = ? AND NSEQNC = ?"),
                    {*nmuncp, *nseqnc})
            .isValid()) {
        nseqnc = freeSequence(m_db);
        if (!nseqnc) {
            refuse(noFreeSequenceText(name));
            return FileOutcome::Refused;
        }
    }

    // The readers rebuild the file's name from the key; a file under another name is not
    // theirs to read.
    if (joinedFileName(key).compare(name, Qt::CaseInsensitive) != 0) {
        refuse(fileKeyMismatchText(name, key));
        return placeholder ? FileOutcome::Imported : FileOutcome::Refused;
    }

    RowContext context;
    context.nmuncp = *nmuncp;
    context.nseqnc = *nseqnc;
    try {
        context.ainfrm = fieldValue(row[kAcadstField - 1], emprsLayout().table->column("ACADST"),
                                    false, emprsLayout().qname());
        store::Transaction transaction(m_db);
        readRegister(lines, emprsLine, context);
        transaction.commit();
    } catch (const UnreadableField&) {
        refuse(corruptFileText(name));
        return FileOutcome::Refused;
    } catch (const store::Failure& failure) {
        // A full disk fails every file behind this one as well: the batch ends here.
        if (failure.diskFull())
            throw Stopped(kDiskFullText);
        refuse(fileFailedText(name, failure.fromDatabase() ? store::databaseErrorText(failure)
                                                           : failure.description()));
        return FileOutcome::Refused;
    }

    if (checked && !companyRegistered(m_db, key))
        return FileOutcome::Refused;
    return FileOutcome::Imported;
}

void Importer::readRegister(LineReader& lines, const QString& emprsLine,
                            const RowContext& context) {
    const std::vector<const TableLayout*> sections = readSections();
    const int steps = int(sections.size());
    int entered = 1;
    if (m_progress)
        m_progress(entered, steps);

    FieldTokeniser fields(emprsLine);
    std::size_t current = 0; // EMPRS
    m_readers.of(*sections[current]).readRow(fields, fields.next(), context);

    // A header counts only behind the section in hand; any other line is a row of it.
    for (QString line = lines.nextLine(); !line.isNull(); line = lines.nextLine()) {
        fields.reset(line);
        const QString first = fields.next();
        std::size_t next = current + 1;
        while (next < sections.size() && first != sectionHeader(sections[next]->qname()))
            ++next;
        if (next < sections.size()) {
            current = next;
            if (m_progress)
                m_progress(++entered, steps);
            continue;
        }
        m_readers.of(*sections[current]).readRow(fields, first, context);
    }
    if (m_progress)
        m_progress(steps, steps);
}

} // namespace exchange
