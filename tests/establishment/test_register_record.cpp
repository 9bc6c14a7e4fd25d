#include "establishment/RegisterRecord.h"
#include "store/Failure.h"
#include "support/RegisterSamples.h"
#include "support/TestEnvironment.h"
#include "ui/Session.h"

#include <QSqlQuery>
#include <QTest>

using establishment::RegisterFields;

namespace {

// Edits of a sample register, written "member=value" in the data tables below.
void apply(RegisterFields& f, const QStringList& edits) {
    const QHash<QString, QString RegisterFields::*> members = {
        {QStringLiteral("razaoSocial"), &RegisterFields::razaoSocial},
        {QStringLiteral("bandeira"), &RegisterFields::bandeira},
        {QStringLiteral("logradouro"), &RegisterFields::logradouro},
        {QStringLiteral("numero"), &RegisterFields::numero},
        {QStringLiteral("complemento"), &RegisterFields::complemento},
        {QStringLiteral("cep"), &RegisterFields::cep},
        {QStringLiteral("municipio"), &RegisterFields::municipio},
        {QStringLiteral("ddd"), &RegisterFields::ddd},
        {QStringLiteral("telefone"), &RegisterFields::telefone},
        {QStringLiteral("fax"), &RegisterFields::fax},
        {QStringLiteral("cnpj"), &RegisterFields::cnpj},
        {QStringLiteral("latitude"), &RegisterFields::latitude},
        {QStringLiteral("longitude"), &RegisterFields::longitude},
        {QStringLiteral("anp"), &RegisterFields::anp},
        {QStringLiteral("inicioAtividades"), &RegisterFields::inicioAtividades},
        {QStringLiteral("levantamento"), &RegisterFields::levantamento},
        {QStringLiteral("nmuncpText"), &RegisterFields::nmuncpText},
        {QStringLiteral("nseqncText"), &RegisterFields::nseqncText},
        {QStringLiteral("cibge"), &RegisterFields::cibge},
    };
    for (const QString& edit : edits) {
        const qsizetype eq = edit.indexOf(QLatin1Char('='));
        const QString name = edit.left(eq);
        QVERIFY2(members.contains(name), qPrintable(name));
        f.*members.value(name) = edit.mid(eq + 1);
    }
}

const QDate kToday(2001, 6, 1);

} // namespace

class TestRegisterRecord : public QObject {
    Q_OBJECT

private slots:
    void checksOfOk_data() {
        QTest::addColumn<int>("objective");
        QTest::addColumn<QString>("operation");
        QTest::addColumn<QStringList>("edits");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("icon");

        const int critical = int(ui::Icon::Critical);
        const int plain = int(ui::Icon::None);
        const auto row = [&](const char* name, QStringList edits, const char* message,
                             const char* field, int icon = int(ui::Icon::Critical),
                             int objective = 0, const QString& operation = ui::kIncluir) {
            QTest::newRow(name) << objective << operation << edits << QString::fromUtf8(message)
                                << QString::fromLatin1(field) << icon;
        };
        row("1 company name", {"razaoSocial=  "}, "Preenchimento Obrigatório da Razão Social",
            "txtDRAZAOSOCIL");
        row("2 brand", {"bandeira="}, "Preenchimento Obrigatório da Bandeira", "txtDBANDR");
        row("3 street", {"logradouro="}, "Preenchimento Obrigatório do Nome do Logradouro",
            "txtDLOGRD");
        row("4 number or complement", {"numero=", "complemento="},
            "Preencher Número do Logradouro ou Complemento", "txtNLOGRD");
        row("5 CEP", {"cep="}, "Preenchimento Obrigatório do CEP.", "txtCCEP");
        row("6 CEP length", {"cep=1780000"}, "Preenchimento Incorreto do CEP", "txtCCEP");
        row("7 CEP of another municipality", {"cep=01000000"}, "CEP Inválido para o Município",
            "txtCCEP", plain);
        row("8 number block of another regional",
            {"nmuncpText=100", "nseqncText=32500", "cep=02000000", "municipio=SÃO PAULO"},
            "CEP Inválido - Não pertence a Regional ", "txtCCEP", plain, 0, ui::kAlterar);
        row("9 municipality", {"municipio= "}, "Preenchimento Obrigatório do Município",
            "cmbDMUNCP");
        row("10 DDD", {"ddd="}, "Preenchimento Obrigatório do Número do DDD.", "txtndddemprs");
        row("11 phone", {"telefone="}, "Preenchimento Obrigatório do Número do Telefone.",
            "txtntelfnemprs");
        row("12 short phone", {"telefone=123456"}, "Preenchimento Incorreto do Telefone",
            "txtntelfnemprs");
        row("13 short fax", {"fax=123456"}, "Preenchimento Incorreto do FAX", "txtNFAX");
        row("14 CNPJ", {"cnpj="}, "Preenchimento Obrigatório do campo CNPJ", "txtcCnpj");
        row("14 CNPJ of zeros", {"cnpj=00000000000000"}, "Preenchimento Inválido do campo CNPJ",
            "txtcCnpj");
        row("15 CNPJ check digit", {"cnpj=11222333000182"},
            "Preenchimento Incorreto do código de CNPJ", "txtcCnpj");
        const char* coordinates = "Ao preencher um dos campos de Coordenadas Geográficas, é "
                                  "Obrigatório o preenchimento dos campos restantes de "
                                  "Coordenadas Geográficas";
        row("16 latitude alone", {"longitude="}, coordinates, "txtqLongt");
        row("16 longitude alone", {"latitude="}, coordinates, "txtqLattd");
        row("17 ANP starting with digits", {"anp=121234567"},
            "Os dois primeiros dígitos do Registro ANP devem ser siglas de UF", "txtNANP",
            int(ui::Icon::Information));
        row("17 ANP with letters after the state", {"anp=SP12A4567"},
            "Preenchimento Incorreto do Registro ANP", "txtNANP");
        row("17 ANP of the state alone", {"anp=SP"}, "Preenchimento Incorreto do Registro ANP",
            "txtNANP");
        row("18 start date", {"inicioAtividades="},
            "Preenchimento Obrigatório da Data de Início das Atividades no Local.", "mskACADST");
        row("19 survey date", {"levantamento="},
            "Preenchimento Obrigatório da Data de Levantamento.", "mskALEVNT");
        row("20 survey date tomorrow", {"levantamento=02/06/2001"},
            "Preenchimento Incorreto da Data de Levantamento.", "mskALEVNT");

        // What passes.
        row("complete register", {}, "", "");
        row("survey date today", {"levantamento=01/06/2001"}, "", "");
        row("number without complement", {"complemento="}, "", "");
        row("complement without number", {"numero=", "complemento=FUNDOS"}, "", "");
        row("ANP of a digit and a letter in front", {"anp=1A1234567"}, "", "");
        row("no coordinates", {"latitude=", "longitude="}, "", "");
        row("prior licence without CNPJ", {"cnpj="}, "", "", critical, 2);
        row("operating licence without ANP or start date", {"anp=", "inicioAtividades="}, "", "",
            critical, 1);
        row("operating licence with a wrong ANP", {"anp=12"},
            "Os dois primeiros dígitos do Registro ANP devem ser siglas de UF", "txtNANP",
            int(ui::Icon::Information), 1);
        row("registration needs the start date", {"inicioAtividades="},
            "Preenchimento Obrigatório da Data de Início das Atividades no Local.", "mskACADST",
            critical, 0);
    }

    void checksOfOk() {
        QFETCH(int, objective);
        QFETCH(QString, operation);
        QFETCH(QStringList, edits);
        QFETCH(QString, message);
        QFETCH(QString, field);
        QFETCH(int, icon);

        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        RegisterFields f = testsupport::completeFields();
        apply(f, edits);
        establishment::CheckContext context;
        context.objective = objective;
        context.operacao = operation;
        context.sessionNmuncp = operation == ui::kAlterar ? f.nmuncpText.toInt() : 0;
        context.today = kToday;

        const establishment::CheckResult result = establishment::consistirDados(db, f, context);
        if (message.isEmpty()) {
            QVERIFY2(!result.refusal, qPrintable(result.refusal ? result.refusal->message : ""));
            QCOMPARE(result.nmuncp, testsupport::kAdamantina);
            return;
        }
        QVERIFY(result.refusal);
        QCOMPARE(result.refusal->message, message);
        QCOMPARE(result.refusal->field, field);
        QCOMPARE(int(result.refusal->icon), icon);
        QCOMPARE(result.refusal->title, QStringLiteral("VOR"));
    }

    void aChangeKeepsTheRegistersOwnMunicipality() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        RegisterFields f = testsupport::completeFields();
        f.nmuncpText = QStringLiteral("101");
        f.municipioCodigo = 0; // the combo is hidden while changing
        establishment::CheckContext context{0, ui::kAlterar, 101, kToday};
        const auto result = establishment::consistirDados(db, f, context);
        QVERIFY(!result.refusal);
        QCOMPARE(result.nmuncp, 101);
    }

    void insertWritesBothRowsNumberedByTheTable() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, CSITU) VALUES (100, 7, 2)"));

        const RegisterFields f = testsupport::completeFields();
        const store::RegisterKey key =
            establishment::incluirRegistro(db, f, testsupport::kAdamantina, kToday);
        QCOMPARE(key, (store::RegisterKey{testsupport::kAdamantina, 8}));

        QSqlQuery e = db.run(QStringLiteral("SELECT CSITU, CCGC, CCEP, ACADST, QLATTD, NTELFN, "
                                            "DATIVD FROM EMPRS WHERE NMUNCP = ? AND NSEQNC = ?"),
                             {key.nmuncp, key.nseqnc});
        QVERIFY(e.next());
        QCOMPARE(e.value(0).toInt(), 1);
        QCOMPARE(e.value(1).toLongLong(), 11222333000181LL);
        QCOMPARE(e.value(2).toLongLong(), 17800000LL);
        QCOMPARE(e.value(3).toString(), QStringLiteral("1998-03-15"));
        QCOMPARE(e.value(4).toDouble(), 213000.0);
        QCOMPARE(e.value(5).toLongLong(), 35221234LL);
        QVERIFY(e.value(6).isNull());
        QSqlQuery p = db.run(QStringLiteral("SELECT AINFRM, IESTBL, DBANDR, NANP, ALEVNT, "
                                            "AINICIATIVD, QAREATERRN FROM TB_POSTO WHERE "
                                            "NMUNCP = ? AND NSEQNC = ?"),
                             {key.nmuncp, key.nseqnc});
        QVERIFY(p.next());
        QCOMPARE(p.value(0).toString(), QStringLiteral("2001-06-01"));
        QCOMPARE(p.value(1).toString(), QStringLiteral("R"));
        QCOMPARE(p.value(2).toString(), QStringLiteral("BANDEIRA BRANCA"));
        QCOMPARE(p.value(3).toString(), QStringLiteral("SP1234567"));
        QCOMPARE(p.value(4).toString(), QStringLiteral("2001-05-02"));
        QCOMPARE(p.value(5).toString(), QStringLiteral("1998-03-15"));
        QCOMPARE(p.value(6).toDouble(), 0.0);

        // What was written reads back as it was typed.
        RegisterFields loaded = establishment::loadRegister(db, key);
        QCOMPARE(loaded.pack(), f.pack());
        QCOMPARE(loaded.nseqncText, QStringLiteral("8"));
    }

    // A new register never takes a number given before, not even that of a deleted register:
    // a number once sent to the agency must never name another station there.
    void aDeletedRegistersNumberIsNeverGivenAgain() {
        testsupport::TestEnvironment env;
        const QString path = env.newDatabasePath();
        const auto insert = [&](store::Database& db) {
            return establishment::incluirRegistro(db, testsupport::completeFields(),
                                                  testsupport::kAdamantina, kToday)
                .nseqnc;
        };
        const auto remove = [](store::Database& db, int nseqnc) {
            for (const char* table : {"TB_POSTO", "EMPRS"})
                db.run(QStringLiteral("DELETE FROM %1 WHERE NSEQNC = ?").arg(QLatin1String(table)),
                       {nseqnc});
        };
        {
            store::Database db(path);
            QCOMPARE(insert(db), 1);
            QCOMPARE(insert(db), 2);
            remove(db, 2);
            QCOMPARE(insert(db), 3);
            remove(db, 1);
            remove(db, 3);
            QCOMPARE(insert(db), 4);
            // A register that came with a higher number (an import) is passed too.
            db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC) VALUES (100, 40)"));
            QCOMPARE(insert(db), 41);
            // The last number the code can show is the last one given.
            db.run(QStringLiteral("UPDATE TB_VORpSEQNC SET NSEQNC = 9999"));
            QVERIFY_THROWS_EXCEPTION(store::Failure, insert(db));
            QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS")).toInt(), 3);
        }

        // A database of the schema before the counter numbers on from its highest register.
        const QString older = env.path(QStringLiteral("anterior.db"));
        {
            store::Database db(older);
            db.run(QStringLiteral("DROP TABLE TB_VORpSEQNC"));
            db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC) VALUES (100, 7)"));
            db.run(QStringLiteral("PRAGMA user_version = 2"));
        }
        store::Database db(older);
        QCOMPARE(db.userVersion(), store::Database::kSchemaVersion);
        remove(db, 7);
        QCOMPARE(insert(db), 8);
    }

    void optionalFieldsAreWrittenAsNull() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        RegisterFields f = testsupport::completeFields();
        f.cnpj.clear();
        f.fantasia = QStringLiteral("   ");
        f.latitude.clear();
        f.longitude.clear();
        const auto key = establishment::incluirRegistro(db, f, testsupport::kAdamantina, kToday);
        QSqlQuery e = db.run(QStringLiteral("SELECT CCGC, DFANTS, QLATTD, QLONGT, NTELEX FROM "
                                            "EMPRS WHERE NMUNCP = ? AND NSEQNC = ?"),
                             {key.nmuncp, key.nseqnc});
        QVERIFY(e.next());
        for (int i = 0; i < 5; ++i)
            QVERIFY2(e.value(i).isNull(), qPrintable(QString::number(i)));
    }

    void changeKeepsTheKeyAndMakesTheRegisterToBeExported() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        const auto key = establishment::incluirRegistro(db, testsupport::completeFields(),
                                                        testsupport::kAdamantina, kToday);
        db.run(QStringLiteral("UPDATE EMPRS SET CSITU = 3"));

        RegisterFields f = testsupport::completeFields();
        f.razaoSocial = QStringLiteral("POSTO NOVO NOME LTDA");
        f.cibge = QStringLiteral("1234567");
        f.kind = QStringLiteral("F");
        f.levantamento = QStringLiteral("10/05/2001");
        establishment::alterarRegistro(db, f, key);

        const RegisterFields loaded = establishment::loadRegister(db, key);
        QCOMPARE(loaded.razaoSocial, f.razaoSocial);
        QCOMPARE(loaded.cibge, f.cibge);
        QCOMPARE(loaded.kind, QStringLiteral("F"));
        QCOMPARE(loaded.levantamento, f.levantamento);
        QCOMPARE(db.scalar(QStringLiteral("SELECT CSITU FROM EMPRS")).toInt(), 1);
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS")).toInt(), 1);
    }

    void aFailedInsertLeavesNothing() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        // A stray row where the new register's general characteristics would go.
        db.run(QStringLiteral("INSERT INTO TB_POSTO (NMUNCP, NSEQNC) VALUES (101, 1)"));
        QVERIFY_THROWS_EXCEPTION(store::Failure,
                                 establishment::incluirRegistro(db, testsupport::completeFields(),
                                                                testsupport::kAdamantina, kToday));
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS")).toInt(), 0);
        QVERIFY(!db.inTransaction());
    }

    void aDateThatIsNotADateIsNeverWritten() {
        testsupport::TestEnvironment env;
        store::Database db(env.newDatabasePath());
        RegisterFields f = testsupport::completeFields();
        f.inicioAtividades = QStringLiteral("31/02/1998");
        QVERIFY_THROWS_EXCEPTION(store::Failure, establishment::incluirRegistro(
                                                     db, f, testsupport::kAdamantina, kToday));
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS")).toInt(), 0);
    }
};

QTEST_GUILESS_MAIN(TestRegisterRecord)
#include "test_register_record.moc"
