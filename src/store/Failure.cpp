#include "store/Failure.h"

#include <QSqlError>

namespace store {

namespace {
const QString kLineBreak = QStringLiteral("\n");
}

Failure::Failure(Kind kind, int number, QString source, QString description)
    : std::runtime_error(description.toStdString())
    , m_kind(kind)
    , m_number(number)
    , m_source(std::move(source))
    , m_description(std::move(description)) {}

Failure Failure::fromSql(const QSqlError& error, const QString& statement) {
    // QSQLITE puts the engine's own message in databaseText and its result code in
    // nativeErrorCode; the driver's text says which step failed.
    QString description = error.databaseText();
    if (description.isEmpty())
        description = error.driverText();
    const QString upper = description.toUpper();
    Kind kind = Kind::OtherDatabase;
    if (upper.contains(QLatin1String("UNIQUE")) || upper.contains(QLatin1String("PRIMARY KEY")))
        kind = Kind::Duplicate;
    else if (upper.contains(QLatin1String("FOREIGN KEY")))
        kind = Kind::NoMaster;
    bool ok = false;
    int number = error.nativeErrorCode().toInt(&ok);
    if (!ok)
        number = 0;
    Failure failure(kind, number, QString::fromLatin1(kEngineSource), description);
    failure.m_statement = statement;
    return failure;
}

bool Failure::diskFull() const {
    constexpr int kSqliteFull = 13;
    return fromDatabase() && m_number == kSqliteFull;
}

Failure Failure::other(int number, const QString& description) {
    return Failure(Kind::NotDatabase, number, QString(), description);
}

NewerSchema::NewerSchema(const QString& path, int found, int known)
    : Failure(Kind::NotDatabase, 0, QString(),
              QStringLiteral("O banco de dados %1 é da versão %2, gravada por uma versão mais "
                             "nova do programa; esta versão conhece os bancos até a versão %3. "
                             "Use a versão mais nova do programa com este banco de dados.")
                  .arg(path)
                  .arg(found)
                  .arg(known)) {}

QString databaseErrorText(const Failure& failure) {
    const QString head =
        QString::number(failure.number()) + QStringLiteral("-Fonte : ") + failure.source();
    switch (failure.kind()) {
    case Failure::Kind::Duplicate:
        return head + kLineBreak + QStringLiteral("Tentativa de inserir um registro já existente.");
    case Failure::Kind::HasDependents:
        return head + kLineBreak +
               QStringLiteral("Tentativa de excluir um registro que possui dependentes.");
    case Failure::Kind::NoMaster:
        return head + kLineBreak +
               QStringLiteral("Tentativa de inserir um registro que não possui um registro "
                              "mestre correspondente.");
    case Failure::Kind::OtherDatabase:
    case Failure::Kind::NotDatabase:
        break;
    }
    return head + QStringLiteral(":") + QStringLiteral("Ocorreu um erro não previsto de DAO.");
}

QString unexpectedErrorText(int number, const QString& description) {
    return QStringLiteral("Anote este Numero : <") + QString::number(number).trimmed() +
           QStringLiteral("> : ") + description +
           QStringLiteral(". O que recomendamos neste caso é Anotar o Numero do Erro, Cancelar a "
                          "Operacao e comunicar-se com o Depto de Informática. Voce deseja "
                          "cancelar esta operação ?");
}

} // namespace store
