// The schema of a new database against the tables that the register form, the exchange files
// and the agency's readers rely on (register_columns.txt, kept by hand).
#include "store/Database.h"
#include "store/TableCatalogue.h"
#include "support/TestEnvironment.h"

#include <QFile>
#include <QSqlQuery>
#include <QTest>

class TestCatalogue : public QObject {
    Q_OBJECT

private:
    struct Expected {
        QString table;
        QStringList key;
        QStringList columns;
        QStringList types;
    };

    static QList<Expected> expectedTables() {
        QFile file(qEnvironmentVariable("VOR_SOURCE_DIR") +
                   QStringLiteral("/tests/store/register_columns.txt"));
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            qFatal("register_columns.txt not found");
        QList<Expected> result;
        while (!file.atEnd()) {
            const QString line = QString::fromUtf8(file.readLine()).trimmed();
            if (line.isEmpty() || line.startsWith(u'#'))
                continue;
            const QStringList parts = line.split(u'|');
            Expected e;
            e.table = parts[0].trimmed();
            if (parts[1].trimmed() != QLatin1String("-"))
                e.key = parts[1].split(u' ', Qt::SkipEmptyParts);
            for (const QString& c : parts[2].split(u' ', Qt::SkipEmptyParts)) {
                e.columns << c.section(u':', 0, 0);
                e.types << c.section(u':', 1, 1);
            }
            result << e;
        }
        return result;
    }

    static QString typeWord(store::ColumnType type) {
        switch (type) {
        case store::ColumnType::Text:
            return QStringLiteral("text");
        case store::ColumnType::Number:
            return QStringLiteral("number");
        case store::ColumnType::Decimal:
            return QStringLiteral("decimal");
        case store::ColumnType::Date:
        case store::ColumnType::DateTime:
            return QStringLiteral("date");
        case store::ColumnType::Time:
            return QStringLiteral("time");
        }
        return {};
    }

private slots:
    void newDatabaseHasEveryRegisterTableInOrder() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        const QList<Expected> expected = expectedTables();
        // 41 of the exchange file, the objective and the counter of register numbers
        QCOMPARE(expected.size(), 43);

        for (const Expected& e : expected) {
            QSqlQuery info =
                db.run(QStringLiteral("SELECT name, pk FROM pragma_table_info(?) ORDER BY cid"),
                       {e.table});
            QStringList columns;
            QMap<int, QString> keyByPosition;
            while (info.next()) {
                columns << info.value(0).toString();
                if (info.value(1).toInt() > 0)
                    keyByPosition.insert(info.value(1).toInt(), info.value(0).toString());
            }
            QVERIFY2(columns == e.columns,
                     qPrintable(e.table + QStringLiteral(": ") + columns.join(u' ')));
            QVERIFY2(keyByPosition.values() == e.key, qPrintable(e.table));

            const store::Table& t = store::table(e.table.toStdString());
            QStringList types;
            for (const store::Column& c : t.columns)
                types << typeWord(c.type);
            QVERIFY2(types == e.types, qPrintable(e.table));
        }
    }

    void registerTablesFollowTheJoinedFileOrder() {
        QStringList names;
        for (const store::Table* t : store::registerTables())
            names << t->qname();
        QCOMPARE(names.size(), 41);
        QCOMPARE(names.first(), QStringLiteral("EMPRS"));
        QCOMPARE(names.at(7), QStringLiteral("TB_POSTOTANQU"));
        QCOMPARE(names.at(24), QStringLiteral("TB_POSTOEFLNTLIQDO"));
        QCOMPARE(names.last(), QStringLiteral("SUGESTOES"));
    }

    void deleteOrderReachesEveryRegisterTableOnceWithEmprsLast() {
        QStringList order;
        for (std::string_view name : store::registerDeleteOrder())
            order << QString::fromLatin1(name.data(), qsizetype(name.size()));
        QStringList registerNames;
        for (const store::Table* t : store::registerTables())
            registerNames << t->qname();
        QCOMPARE(order.size(), registerNames.size());
        QCOMPARE(QSet<QString>(order.begin(), order.end()),
                 QSet<QString>(registerNames.begin(), registerNames.end()));
        QCOMPARE(order.last(), QStringLiteral("EMPRS"));
        QCOMPARE(order.at(order.size() - 2), QStringLiteral("TB_POSTO"));
        // Compartments and owners go before their tank.
        QVERIFY(order.indexOf(QStringLiteral("TB_POSTOTANQUCOMPR")) <
                order.indexOf(QStringLiteral("TB_POSTOTANQU")));
    }

    void referenceTablesCarryWhatTheScreensRead() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        const auto columnsOf = [&](const QString& table) {
            QStringList names;
            QSqlQuery q = db.run(QStringLiteral("SELECT name FROM pragma_table_info(?)"), {table});
            while (q.next())
                names << q.value(0).toString();
            return names;
        };
        QCOMPARE(columnsOf(QStringLiteral("MUNCP")),
                 QStringList({"NMUNCP", "DMUNCP", "DRESMDMUNCP", "NUGRHI", "NBACIA"}));
        QCOMPARE(columnsOf(QStringLiteral("CEP")), QStringList({"NMUNCP", "CCEP", "NREGNL"}));
        QCOMPARE(columnsOf(QStringLiteral("REGNL")),
                 QStringList({"NREGNL", "DRESMDREGNL", "DLOGRD", "NLOGRD", "DBAIRR", "CCEP", "NDDD",
                              "NTELFN", "NDDDFAX", "NFAX"}));
        QCOMPARE(columnsOf(QStringLiteral("DICNRMONTRAMBNT")),
                 QStringList({"NMONTR", "DMONTR", "IEQUPM", "ISISTM"}));
        QCOMPARE(columnsOf(QStringLiteral("DICNRDESTNRESDU")),
                 QStringList({"CDESTNRESDU", "DDESTNRESDU", "ISITCA"}));
    }
};

QTEST_GUILESS_MAIN(TestCatalogue)
#include "test_catalogue.moc"
