#include "establishment/RegisterForm.h"
#include "support/RegisterSamples.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

using testsupport::child;
using testsupport::focusName;

namespace {

// One register form on a scratch database, shown and active so that focus moves as for a user.
struct FormUnderTest {
    testsupport::TestEnvironment env;
    store::Database db{env.newDatabasePath()};
    ui::Session session;
    testsupport::ScriptedDialogs dialogs;
    std::unique_ptr<establishment::RegisterForm> form;

    void open(const QString& operation) {
        session.operacao = operation;
        form = std::make_unique<establishment::RegisterForm>(db, session);
        form->resize(1000, 700);
        form->show();
        QApplication::setActiveWindow(form.get());
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
    }

    QLineEdit* edit(const char* name) { return child<QLineEdit>(form.get(), name); }

    // Types into a field as a user does: focus it (leaving the one before), clear, type.
    void type(const char* name, const QString& text) {
        QLineEdit* e = edit(name);
        e->setFocus();
        QCOMPARE(focusName(), QString::fromLatin1(name));
        e->selectAll();
        QTest::keyClick(e, Qt::Key_Delete);
        if (!e->inputMask().isEmpty())
            e->home(false);
        QTest::keyClicks(e, text);
    }

    void ok() {
        auto* button = child<QPushButton>(form.get(), "cmkOk");
        QVERIFY(button->isEnabled());
        QTest::mouseClick(button, Qt::LeftButton);
    }
};

} // namespace

class TestRegisterForm : public QObject {
    Q_OBJECT

private slots:
    // An empty form walked through Ok: the checks refuse one after the other, in their order,
    // each with its message and its field in focus, until the register is saved.
    void checksRefuseInTheirOrder() {
        FormUnderTest t;
        t.session.objetivo = ui::Session::Cadastro;
        t.open(ui::kIncluir);
        QSignalSpy closed(t.form.get(), &establishment::RegisterForm::closed);

        auto* okButton = child<QPushButton>(t.form.get(), "cmkOk");
        QVERIFY(!okButton->isEnabled());
        QVERIFY(child<QPushButton>(t.form.get(), "cmdFechar")->isEnabled());
        QTest::mouseClick(child<QRadioButton>(t.form.get(), "Option1_1"), Qt::LeftButton);
        QVERIFY(okButton->isEnabled());
        QVERIFY(!child<QPushButton>(t.form.get(), "cmdFechar")->isEnabled());

        const QString tomorrow =
            QDate::currentDate().addDays(1).toString(QStringLiteral("ddMMyyyy"));
        const QString today = QDate::currentDate().toString(QStringLiteral("ddMMyyyy"));
        struct Step {
            std::function<void()> fix;
            const char* message;
            const char* field;
        };
        auto* combo = child<QComboBox>(t.form.get(), "cmbDMUNCP");
        const std::vector<Step> steps = {
            {[] {}, "Preenchimento Obrigatório da Razão Social", "txtDRAZAOSOCIL"},
            {[&] { t.type("txtDRAZAOSOCIL", QStringLiteral("posto d'agua")); },
             "Preenchimento Obrigatório da Bandeira", "txtDBANDR"},
            {[&] { t.type("txtDBANDR", QStringLiteral("branca")); },
             "Preenchimento Obrigatório do Nome do Logradouro", "txtDLOGRD"},
            {[&] { t.type("txtDLOGRD", QStringLiteral("rua um")); },
             "Preencher Número do Logradouro ou Complemento", "txtNLOGRD"},
            {[&] { t.type("txtNLOGRD", QStringLiteral("12a")); },
             "Preenchimento Obrigatório do CEP.", "txtCCEP"},
            {[&] { t.type("txtCCEP", QStringLiteral("17800")); }, "Preenchimento Incorreto do CEP",
             "txtCCEP"},
            {[&] { t.type("txtCCEP", QStringLiteral("01000000")); },
             "Preenchimento Obrigatório do Município", "cmbDMUNCP"},
            {[&] { combo->setCurrentIndex(combo->findData(testsupport::kAdamantina)); },
             "CEP Inválido para o Município", "txtCCEP"},
            {[&] { t.type("txtCCEP", QStringLiteral("17800000")); },
             "Preenchimento Obrigatório do Número do DDD.", "txtndddemprs"},
            {[&] { t.type("txtndddemprs", QStringLiteral("18")); },
             "Preenchimento Obrigatório do Número do Telefone.", "txtntelfnemprs"},
            {[&] { t.type("txtntelfnemprs", QStringLiteral("352212")); },
             "Preenchimento Incorreto do Telefone", "txtntelfnemprs"},
            {[&] {
                 t.type("txtntelfnemprs", QStringLiteral("35221234"));
                 t.type("txtNFAX", QStringLiteral("123456"));
             },
             "Preenchimento Incorreto do FAX", "txtNFAX"},
            {[&] { t.type("txtNFAX", QString()); }, "Preenchimento Obrigatório do campo CNPJ",
             "txtcCnpj"},
            {[&] { t.type("txtcCnpj", QStringLiteral("00000000000000")); },
             "Preenchimento Inválido do campo CNPJ", "txtcCnpj"},
            {[&] { t.type("txtcCnpj", QStringLiteral("11222333000182")); },
             "Preenchimento Incorreto do código de CNPJ", "txtcCnpj"},
            {[&] {
                 t.type("txtcCnpj", QStringLiteral("11222333000181"));
                 t.type("txtqLattd", QStringLiteral("213000"));
             },
             "Ao preencher um dos campos de Coordenadas Geográficas, é Obrigatório o "
             "preenchimento dos campos restantes de Coordenadas Geográficas",
             "txtqLongt"},
            {[&] {
                 t.type("txtqLongt", QStringLiteral("510400"));
                 t.type("txtNANP", QStringLiteral("121234567"));
             },
             "Os dois primeiros dígitos do Registro ANP devem ser siglas de UF", "txtNANP"},
            {[&] { t.type("txtNANP", QStringLiteral("sp12a4567")); },
             "Preenchimento Incorreto do Registro ANP", "txtNANP"},
            {[&] { t.type("txtNANP", QStringLiteral("sp1234567")); },
             "Preenchimento Obrigatório da Data de Início das Atividades no Local.", "mskACADST"},
            {[&] { t.type("mskACADST", QStringLiteral("15031998")); },
             "Preenchimento Obrigatório da Data de Levantamento.", "mskALEVNT"},
            {[&] { t.type("mskALEVNT", tomorrow); },
             "Preenchimento Incorreto da Data de Levantamento.", "mskALEVNT"},
        };
        for (const Step& step : steps) {
            step.fix();
            t.dialogs.clear();
            t.ok();
            QVERIFY2(!t.dialogs.shown().isEmpty(), step.message);
            QCOMPARE(t.dialogs.texts(), QStringList{QString::fromUtf8(step.message)});
            QCOMPARE(t.dialogs.last().title, QStringLiteral("VOR"));
            QCOMPARE(focusName(), QString::fromLatin1(step.field));
        }
        QCOMPARE(closed.count(), 0);
        QCOMPARE(t.db.scalar(QStringLiteral("SELECT COUNT(*) FROM EMPRS")).toInt(), 0);

        t.type("mskALEVNT", today);
        t.dialogs.clear();
        t.ok();
        QCOMPARE(t.dialogs.texts(), QStringList());
        QCOMPARE(closed.count(), 1);

        // Saved as typed: quotes turned into grave accents, names in upper case, masks off.
        const store::RegisterKey key{testsupport::kAdamantina, 1};
        QCOMPARE(t.session.key(), key);
        QCOMPARE(t.session.chaveNova, QStringLiteral("1010001"));
        QCOMPARE(t.session.marcaContinuar, QStringLiteral("M"));
        const auto saved = establishment::loadRegister(t.db, key);
        QCOMPARE(saved.razaoSocial, QStringLiteral("POSTO D`AGUA"));
        QCOMPARE(saved.numero, QStringLiteral("12"));
        QCOMPARE(saved.kind, QStringLiteral("I"));
        QCOMPARE(saved.ddd, QStringLiteral("018"));
        QCOMPARE(saved.anp, QStringLiteral("SP1234567"));
        QCOMPARE(saved.cnpj, QStringLiteral("11222333000181"));
        QCOMPARE(saved.latitude, QStringLiteral("213000"));
        QCOMPARE(t.db.scalar(QStringLiteral("SELECT CSITU FROM EMPRS")).toInt(), 1);
    }

    // Check 8 speaks only for a register of the capital whose number lies in another regional's
    // block, which only a changed register can have.
    void changeChecksTheRegionalOfTheNumberBlock() {
        FormUnderTest t;
        auto f = testsupport::completeFields();
        f.cep = QStringLiteral("02000000");
        establishment::incluirRegistro(t.db, f, 100);
        t.db.run(QStringLiteral("UPDATE EMPRS SET NSEQNC = 32500"));
        t.db.run(QStringLiteral("UPDATE TB_POSTO SET NSEQNC = 32500"));
        t.session.setKey({100, 32500});
        t.open(ui::kAlterar);

        // The municipality is part of the key: shown, but not to be chosen again.
        QVERIFY(!child<QComboBox>(t.form.get(), "cmbDMUNCP")->isVisible());
        auto* fixed = child<QLineEdit>(t.form.get(), "picDMUNCP");
        QVERIFY(fixed->isVisible());
        QCOMPARE(fixed->text(), QStringLiteral("SÃO PAULO"));
        QCOMPARE(t.edit("txtCCEP")->text(), QStringLiteral("02000-000"));
        QCOMPARE(t.edit("txtcCnpj")->text(), QStringLiteral("11.222.333/0001-81"));

        t.type("txtDFANTS", QStringLiteral("OUTRO NOME"));
        t.ok();
        QCOMPARE(t.dialogs.texts(),
                 QStringList{QStringLiteral("CEP Inválido - Não pertence a Regional ")});
        QCOMPARE(t.dialogs.last().icon, ui::Icon::None);
        QCOMPARE(focusName(), QStringLiteral("txtCCEP"));
    }

    void changeSavesAndBringsTheStatusBackToOne() {
        FormUnderTest t;
        const auto key = establishment::incluirRegistro(t.db, testsupport::completeFields(),
                                                        testsupport::kAdamantina);
        t.db.run(QStringLiteral("UPDATE EMPRS SET CSITU = 2"));
        t.session.setKey(key);
        t.open(ui::kAlterar);
        testsupport::saveScreenshot(*t.form, QStringLiteral("frmVORCadast"));
        QSignalSpy closed(t.form.get(), &establishment::RegisterForm::closed);
        t.type("txtDFANTS", QStringLiteral("posto alterado"));
        // The activity code typed on a change is saved too, never dropped.
        t.type("txtcibge", QStringLiteral("1234567"));
        t.ok();
        QCOMPARE(t.dialogs.texts(), QStringList());
        QCOMPARE(closed.count(), 1);
        const auto saved = establishment::loadRegister(t.db, key);
        QCOMPARE(saved.fantasia, QStringLiteral("POSTO ALTERADO"));
        QCOMPARE(saved.cibge, QStringLiteral("1234567"));
        QCOMPARE(t.db.scalar(QStringLiteral("SELECT CSITU FROM EMPRS")).toInt(), 1);
    }

    void closingWritesNothing_data() {
        QTest::addColumn<QString>("button");
        QTest::newRow("Cancelar") << "cmdCancelar";
        QTest::newRow("Fechar") << "cmdFechar";
    }

    void closingWritesNothing() {
        QFETCH(QString, button);
        FormUnderTest t;
        const auto key = establishment::incluirRegistro(t.db, testsupport::completeFields(),
                                                        testsupport::kAdamantina);
        t.session.setKey(key);
        t.open(ui::kAlterar);
        QSignalSpy closed(t.form.get(), &establishment::RegisterForm::closed);
        auto* fechar = child<QPushButton>(t.form.get(), "cmdFechar");
        auto* cancelar = child<QPushButton>(t.form.get(), "cmdCancelar");
        QVERIFY(fechar->isEnabled() && !cancelar->isEnabled());
        const QString name = t.edit("txtDRAZAOSOCIL")->text();
        t.type("txtDRAZAOSOCIL", QStringLiteral("NOME NOVO"));
        QVERIFY(!fechar->isEnabled() && cancelar->isEnabled());
        if (button == QLatin1String("cmdFechar")) {
            // Typing the old text back is no change.
            t.type("txtDRAZAOSOCIL", name);
            QVERIFY(fechar->isEnabled() && !cancelar->isEnabled());
        }
        QTest::mouseClick(child<QPushButton>(t.form.get(), qPrintable(button)), Qt::LeftButton);
        QCOMPARE(closed.count(), 1);
        QCOMPARE(establishment::loadRegister(t.db, key).razaoSocial, name);
    }

    void fieldsCheckedOnLeaving_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("shown");
        QTest::newRow("latitude 23 30") << "txtqLattd"
                                        << "233000"
                                        << ""
                                        << "23:30:00";
        QTest::newRow("latitude 31 degrees") << "txtqLattd"
                                             << "310000"
                                             << "Preenchimento da Latitude Incorreto"
                                             << "";
        QTest::newRow("latitude 60 minutes") << "txtqLattd"
                                             << "236000"
                                             << "Preenchimento da Latitude Incorreto"
                                             << "";
        QTest::newRow("latitude half typed") << "txtqLattd"
                                             << "2330"
                                             << "Preenchimento da Latitude Incorreto"
                                             << "";
        QTest::newRow("longitude 39 degrees") << "txtqLongt"
                                              << "390000"
                                              << "Preenchimento da Longitude Incorreto"
                                              << "";
        QTest::newRow("longitude 47 degrees") << "txtqLongt"
                                              << "470000"
                                              << ""
                                              << "47:00:00";
        QTest::newRow("start date 31 February")
            << "mskACADST"
            << "31022000"
            << "Preenchimento Incorreto da Data de Início das Atividades no Local"
            << "";
        QTest::newRow("survey date month 13") << "mskALEVNT"
                                              << "01132000"
                                              << "Preenchimento Incorreto da Data de Levantamento"
                                              << "";
        QTest::newRow("DDD of one digit") << "txtndddemprs"
                                          << "1"
                                          << "Preenchimento Incorreto do DDD."
                                          << "";
        QTest::newRow("DDD of two digits") << "txtndddemprs"
                                           << "11"
                                           << ""
                                           << "011";
        QTest::newRow("short phone") << "txtntelfnemprs"
                                     << "12345"
                                     << "Preenchimento Incorreto do Telefone"
                                     << "";
        QTest::newRow("phone") << "txtntelfnemprs"
                               << "35221234"
                               << ""
                               << "3522-1234";
        QTest::newRow("short fax") << "txtNFAX"
                                   << "123"
                                   << "Preenchimento Incorreto do FAX"
                                   << "";
        QTest::newRow("state registration of zeros")
            << "txtNINSCRESTDL"
            << "000"
            << "Preenchimento Incorreto da Inscrição Estadual"
            << "";
        QTest::newRow("short CEP") << "txtCCEP"
                                   << "1780"
                                   << "Preenchimento Incorreto do CEP"
                                   << "";
        QTest::newRow("empty CEP") << "txtCCEP"
                                   << ""
                                   << "Preenchimento Obrigatório do CEP."
                                   << "";
        QTest::newRow("CEP") << "txtCCEP"
                             << "01000000"
                             << ""
                             << "01000-000";
        QTest::newRow("letters in a number") << "txtNLOGRD"
                                             << "1a2b"
                                             << ""
                                             << "12";
    }

    void fieldsCheckedOnLeaving() {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(QString, message);
        QFETCH(QString, shown);
        FormUnderTest t;
        t.open(ui::kIncluir);
        t.type(qPrintable(field), typed);
        t.edit("txtDRAZAOSOCIL")->setFocus();
        QCoreApplication::processEvents(); // a refusal gives the focus back once the move ended
        if (message.isEmpty()) {
            QCOMPARE(t.dialogs.texts(), QStringList());
            QCOMPARE(t.edit(qPrintable(field))->text(), shown);
        } else {
            QCOMPARE(t.dialogs.texts(), QStringList{message});
            QCOMPARE(focusName(), field);
        }
    }
};

QTEST_MAIN(TestRegisterForm)
#include "test_register_form.moc"
