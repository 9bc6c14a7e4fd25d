#pragma once

#include <QString>
#include <stdexcept>

class QSqlError;

namespace store {

// A run-time failure on its way to the error routine. Database failures carry the engine's
// number and source; other failures (files, devices) carry a number of their own.
class Failure : public std::runtime_error {
public:
    enum class Kind {
        Duplicate,     // a row with that key exists
        HasDependents, // the row is referenced by others
        NoMaster,      // the row references a row that is not there
        OtherDatabase, // any other failure of the engine
        NotDatabase,   // a failure outside the database
    };

    Failure(Kind kind, int number, QString source, QString description);

    // Classifies an engine error; `statement` is kept for diagnostics only.
    static Failure fromSql(const QSqlError& error, const QString& statement = {});
    // A failure outside the database (a file that cannot be written, say).
    static Failure other(int number, const QString& description);

    Kind kind() const { return m_kind; }
    bool fromDatabase() const { return m_kind != Kind::NotDatabase; }
    // The engine found no room on the disk for what it had to write.
    bool diskFull() const;
    int number() const { return m_number; }
    const QString& source() const { return m_source; }
    const QString& description() const { return m_description; }
    const QString& statement() const { return m_statement; }

private:
    Kind m_kind;
    int m_number;
    QString m_source;
    QString m_description;
    QString m_statement;
};

// A database written by a newer release of the program: its tables may hold what this one does
// not know, so it is not opened at all. The description names both versions.
class NewerSchema : public Failure {
public:
    NewerSchema(const QString& path, int found, int known);
};

// The source named in messages for failures of the database engine.
inline constexpr auto kEngineSource = "SQLite";

// The text that the error routine shows for a database failure: the engine's number and
// source in the head, then what went wrong in the user's words.
QString databaseErrorText(const Failure& failure);

// The text of the "Anote este Numero" question for a failure outside the database.
QString unexpectedErrorText(int number, const QString& description);

} // namespace store
