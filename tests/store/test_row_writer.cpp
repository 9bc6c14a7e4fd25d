// The row writer on the catalogue, and the fixed code lists beside it.
#include "store/CodeLists.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "store/RowWriter.h"
#include "support/Seeds.h"
#include "support/TestEnvironment.h"

#include <QSet>
#include <QTest>

using namespace testsupport;

class TestRowWriter : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnvironment> m_env;
    std::unique_ptr<store::Database> m_db;

    static store::Row tank(int ntanqu) { return onRegister({{"ITANQU", "S"}, {"NTANQU", ntanqu}}); }

    // The number of the failure that `write` throws, or 0 when it throws none.
    template <typename F> static int failureOf(F write) {
        try {
            write();
        } catch (const store::Failure& failure) {
            return failure.number();
        }
        return 0;
    }

private slots:
    void init() {
        m_env = std::make_unique<TestEnvironment>();
        m_db = std::make_unique<store::Database>(m_env->newDatabasePath());
        for (int n : {1, 2}) {
            store::Row row = tank(n);
            row.insert("NIDENT", QStringLiteral("TANQUE %1").arg(n));
            row.insert("QCOMPRT", 1);
            seedRow(*m_db, "TB_POSTOTANQU", row);
        }
    }
    void cleanup() {
        m_db.reset();
        m_env.reset();
    }

    void writesReadAndChangeOneRow() {
        store::updateRow(*m_db, "TB_POSTOTANQU", tank(2),
                         {{"NIDENT", "NOVO"}, {"NBASE", QVariant()}});
        const auto changed = store::readRow(*m_db, "TB_POSTOTANQU", tank(2));
        QVERIFY(changed);
        QCOMPARE(changed->value("NIDENT").toString(), QStringLiteral("NOVO"));
        QVERIFY(changed->value("NBASE").isNull());
        QCOMPARE(changed->value("AINFRM").toString(), QStringLiteral("2024-01-10"));
        // The other tank keeps what it had.
        QCOMPARE(store::readRow(*m_db, "TB_POSTOTANQU", tank(1))->value("NIDENT").toString(),
                 QStringLiteral("TANQUE 1"));

        store::deleteRow(*m_db, "TB_POSTOTANQU", tank(1));
        QVERIFY(!store::rowExists(*m_db, "TB_POSTOTANQU", tank(1)));
        QVERIFY(store::rowExists(*m_db, "TB_POSTOTANQU", tank(2)));
    }

    // A change or a delete meant for one row must never pass as done when it reached no row, or
    // reach every row of the register because the key was not whole.
    void aStatementOffItsRowIsAFailure() {
        QCOMPARE(failureOf([&] {
                     store::updateRow(*m_db, "TB_POSTOTANQU", tank(9), {{"NIDENT", "X"}});
                 }),
                 3021);
        QCOMPARE(failureOf([&] {
                     store::updateRow(*m_db, "TB_POSTOTANQU", onRegister({{"ITANQU", "S"}}),
                                      {{"NIDENT", "X"}});
                 }),
                 3021);
        QCOMPARE(failureOf([&] { store::deleteRow(*m_db, "TB_POSTOTANQU", tank(9)); }), 3021);
        QCOMPARE(failureOf([&] { store::deleteRow(*m_db, "TB_POSTOTANQU", onRegister({})); }),
                 3021);
        // A cascade may find nothing to delete, or many rows.
        QCOMPARE(store::deleteRows(*m_db, "TB_POSTOTANQUCOMPR", tank(9)), 0);
        QCOMPARE(store::deleteRows(*m_db, "TB_POSTOTANQU", onRegister({})), 2);
    }

    void anUnknownColumnIsRefusedBeforeAnyWrite() {
        QVERIFY(failureOf([&] {
                    store::insertRow(*m_db, "TB_POSTOTANQU", onRegister({{"NTANQUE", 3}}));
                }) != 0);
        QVERIFY(failureOf([&] {
                    store::updateRow(*m_db, "TB_POSTOTANQU", tank(1), {{"IDENT", "X"}});
                }) != 0);
        QCOMPARE(store::readRow(*m_db, "TB_POSTOTANQU", tank(1))->value("NIDENT").toString(),
                 QStringLiteral("TANQUE 1"));
    }

    void aDuplicateKeyIsTheEnginesDuplicate() {
        try {
            seedRow(*m_db, "TB_POSTOTANQU", tank(1));
            QFAIL("a second tank 1 was stored");
        } catch (const store::Failure& failure) {
            QCOMPARE(failure.kind(), store::Failure::Kind::Duplicate);
        }
    }

    // Every list offers each code once and names it; a caption shown twice could not be told
    // apart on a screen.
    void codeListsAreWellFormed() {
        for (std::string_view name : store::codeListNames()) {
            QSet<QString> codes;
            QSet<QString> labels;
            for (const store::Code& code : store::codeList(name)) {
                QVERIFY2(!code.label.isEmpty(), name.data());
                codes << code.code.toString();
                labels << code.label;
            }
            QCOMPARE(qsizetype(codes.size()), qsizetype(store::codeList(name).size()));
            QCOMPARE(qsizetype(labels.size()), qsizetype(store::codeList(name).size()));
        }
        QCOMPARE(store::labelOf("IPROPR", "O"), QStringLiteral("Outros"));
        QCOMPARE(store::labelOf("NMATRL.AEREO", 9), QStringLiteral("Outros"));
        QCOMPARE(store::labelOf("ISITCA", "X"), QString());
    }
};

QTEST_GUILESS_MAIN(TestRowWriter)
#include "test_row_writer.moc"
