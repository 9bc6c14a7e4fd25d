#include "rules/Address.h"
#include "store/Database.h"
#include "store/ReferenceQueries.h"
#include "support/ScriptedDialogs.h"
#include "support/TestEnvironment.h"
#include "ui/AddressBlock.h"
#include "ui/AddressPanel.h"
#include "ui/FieldBehaviour.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

namespace {

// A window holding the fields of the register form's block.
struct RegisterForm {
    QWidget window;
    QLineEdit* street = new QLineEdit(&window);
    QLineEdit* cep = new QLineEdit(&window);
    QComboBox* combo = new QComboBox(&window);
    QLabel* cover = new QLabel(QStringLiteral("SÃO PAULO"), &window);
    QLineEdit* number = new QLineEdit(&window);
    QLineEdit* ddd = new QLineEdit(&window);
    QLineEdit* telephone = new QLineEdit(&window);
    QLineEdit* fax = new QLineEdit(&window);
    ui::AddressBlock* block;

    RegisterForm(store::Database& db, ui::MunicipalityList list, const ui::AddressTexts& texts) {
        auto* layout = new QVBoxLayout(&window);
        for (QWidget* w :
             std::initializer_list<QWidget*>{street, cep, combo, cover, ddd, telephone, fax})
            layout->addWidget(w);
        number->hide();
        ui::AddressFields fields;
        fields.street = street;
        fields.cep = cep;
        fields.municipality = combo;
        fields.municipalityCover = cover;
        fields.municipalityNumber = number;
        fields.ddd = ddd;
        fields.telephone = telephone;
        fields.fax = fax;
        block = ui::AddressBlock::attach(db, fields, list, texts);
        window.show();
        window.activateWindow();
    }
    bool ready() { return QTest::qWaitForWindowActive(&window); }
    void typeCep(const QString& digits) {
        cep->setFocus(Qt::TabFocusReason);
        cep->home(false);
        QTest::keyClicks(cep, digits);
    }
    void choose(const QString& name) {
        combo->setFocus(Qt::TabFocusReason); // the first focus fills the list
        const int index = combo->findText(name);
        QVERIFY2(index >= 0, qPrintable(name));
        combo->setCurrentIndex(index - 1);
        QTest::keyClick(combo, Qt::Key_Down); // a choice by the keyboard
    }
};

} // namespace

class TestAddressBlock : public QObject {
    Q_OBJECT

    testsupport::TestEnvironment m_env;
    std::unique_ptr<store::Database> m_db;

private slots:
    void initTestCase() {
        m_db = std::make_unique<store::Database>(m_env.newDatabasePath());
        // Patterns of our own, beside the reference rows: one of three digits, and the same
        // CEPs under another municipality's four-digit pattern.
        m_db->run(
            QStringLiteral("INSERT INTO MUNCP (NMUNCP, DMUNCP, DRESMDMUNCP) VALUES (?, ?, ?)"),
            {900, QStringLiteral("ZZ TESTE"), QStringLiteral("ZZ TESTE")});
        m_db->run(QStringLiteral("INSERT INTO CEP (NMUNCP, CCEP, NREGNL) VALUES (?, ?, ?)"),
                  {900, QStringLiteral("123**"), 45});
        m_db->run(QStringLiteral("INSERT INTO CEP (NMUNCP, CCEP, NREGNL) VALUES (?, ?, ?)"),
                  {119, QStringLiteral("1234*"), 5});
    }

    void cleanupTestCase() { m_db.reset(); }

    void consscep_data() {
        QTest::addColumn<QString>("cep");
        QTest::addColumn<int>("municipality");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<int>("regional");
        QTest::newRow("123** accepts its first CEP") << "12345678" << 900 << true << 45;
        QTest::newRow("123** accepts its last CEP") << "12399999" << 900 << true << 45;
        QTest::newRow("123** refuses the next") << "12400000" << 900 << false << 0;
        QTest::newRow("1234* of the neighbour") << "12345678" << 119 << true << 5;
        QTest::newRow("1234* refuses 1235") << "12350000" << 119 << false << 0;
        QTest::newRow("capital, 010**") << "01001000" << 100 << true << 45;
        QTest::newRow("capital, 050**") << "05059999" << 100 << true << 16;
        QTest::newRow("five characters") << "18770123" << 106 << true << 44;
        QTest::newRow("five characters, neighbour's CEP") << "18775000" << 106 << false << 0;
        QTest::newRow("five characters, its own") << "18775000" << 323 << true << 44;
        QTest::newRow("a state finds no CEP") << "18775000" << 11 << false << 0;
        QTest::newRow("empty CEP") << "" << 100 << false << 0;
    }

    void consscep() {
        QFETCH(QString, cep);
        QFETCH(int, municipality);
        QFETCH(bool, valid);
        QFETCH(int, regional);
        const rules::CepCheck check = store::consscep(*m_db, cep, municipality);
        QCOMPARE(check.valid(), valid);
        QCOMPARE(check.message, valid ? QString() : QStringLiteral("Cep Inválido"));
        QCOMPARE(check.regional, regional);
    }

    void registerFormListsMunicipalitiesOnce() {
        RegisterForm form(*m_db, ui::MunicipalityList::MunicipalitiesOnly, {});
        QVERIFY(form.ready());
        QCOMPARE(form.combo->count(), 0); // nothing before the first focus
        form.combo->setFocus(Qt::TabFocusReason);
        QVERIFY(form.block->loaded());
        const int count = form.combo->count();
        QCOMPARE(count, 646); // 645 municipalities and ours
        for (int i = 0; i < count; ++i)
            QVERIFY(form.combo->itemData(i).toInt() >= rules::kPrimeiroMunicipio);
        // Accents aside, in the order of a Brazilian reader.
        QVERIFY(form.combo->findText("ADOLFO") < form.combo->findText("ÁGUAS DE SANTA BÁRBARA"));
        QVERIFY(form.combo->findText("ÁGUAS DE SANTA BÁRBARA") < form.combo->findText("BAURU"));
        QCOMPARE(form.combo->itemData(form.combo->findText("BAURU")).toInt(), 168);

        form.street->setFocus(Qt::TabFocusReason);
        form.combo->setFocus(Qt::TabFocusReason);
        QCOMPARE(form.combo->count(), count);
    }

    void otherScreensListStatesFirst() {
        RegisterForm form(*m_db, ui::MunicipalityList::StatesThenMunicipalities, {});
        QVERIFY(form.ready());
        form.combo->setFocus(Qt::TabFocusReason);
        QCOMPARE(form.combo->count(), 26 + 646);
        for (int i = 0; i < 26; ++i)
            QVERIFY(rules::isEstado(form.combo->itemData(i).toInt()));
        QCOMPARE(form.combo->itemText(0), QStringLiteral("ACRE"));
        QCOMPARE(form.combo->itemData(26).toInt(), 101); // ADAMANTINA
    }

    void choiceChecksTheCep() {
        testsupport::ScriptedDialogs dialogs;
        RegisterForm form(*m_db, ui::MunicipalityList::StatesThenMunicipalities, {});
        QVERIFY(form.ready());
        form.typeCep("18775000");
        form.choose("ÁGUAS DE SANTA BÁRBARA");
        QCOMPARE(form.number->text(), QStringLiteral("106"));
        QCOMPARE(dialogs.texts(), QStringList{"CEP Inválido para o Município"});
        QCOMPARE(dialogs.last().icon, ui::Icon::None);
        QCOMPARE(dialogs.last().title, QStringLiteral("VOR"));
        QVERIFY(form.cep->hasFocus());

        dialogs.clear();
        form.choose("ZZ TESTE");
        QVERIFY(form.block->checkCep().valid() == false);
        form.cep->clear();
        form.typeCep("12399999");
        form.choose("ZZ TESTE");
        QVERIFY(dialogs.texts().size() == 1); // only the first choice above was refused
        QVERIFY(form.ddd->hasFocus());
        QCOMPARE(form.block->municipalityNumber(), std::optional<int>(900));
        QCOMPARE(form.block->checkCep().regional, 45);

        // A state finds no CEP: the screen hears of it.
        dialogs.clear();
        form.choose("MINAS GERAIS");
        QCOMPARE(form.block->stateOfChoice(), QStringLiteral("MG"));
        QCOMPARE(dialogs.texts(), QStringList{"CEP Inválido para o Município"});
    }

    void choiceWithoutCepAsksNothing() {
        testsupport::ScriptedDialogs dialogs;
        RegisterForm form(*m_db, ui::MunicipalityList::MunicipalitiesOnly, {});
        QVERIFY(form.ready());
        form.choose("BAURU");
        QVERIFY(dialogs.shown().isEmpty());
        QCOMPARE(form.number->text(), QStringLiteral("168"));
        QCOMPARE(form.block->stateOfChoice(), QStringLiteral("SP"));
    }

    void tabOnTheCombo() {
        testsupport::ScriptedDialogs dialogs;
        RegisterForm form(*m_db, ui::MunicipalityList::MunicipalitiesOnly, {});
        QVERIFY(form.ready());
        form.combo->setFocus(Qt::TabFocusReason);
        form.combo->setCurrentIndex(-1);
        QTest::keyClick(form.combo, Qt::Key_Tab); // empty: moves to the next entry and stays
        QCOMPARE(form.combo->currentIndex(), 0);
        QVERIFY(form.combo->hasFocus());
        QTest::keyClick(form.combo, Qt::Key_Tab); // filled: on to the DDD
        QVERIFY(form.ddd->hasFocus());
        QVERIFY(dialogs.shown().isEmpty());
    }

    void coverOfALockedMunicipality() {
        RegisterForm form(*m_db, ui::MunicipalityList::MunicipalitiesOnly, {});
        QVERIFY(form.ready());
        QVERIFY(!form.cover->isVisible());
        form.block->setMunicipality(100);
        form.block->setMunicipalityLocked(true);
        QVERIFY(form.cover->isVisible());
        QVERIFY(!form.combo->isEnabled());
        QTest::mouseClick(form.cover, Qt::LeftButton);
        QVERIFY(form.ddd->hasFocus());
        QCOMPARE(form.block->municipalityNumber(), std::optional<int>(100));

        form.block->setMunicipalityLocked(false);
        form.combo->setCurrentIndex(-1);
        QTest::mouseClick(form.cover, Qt::LeftButton); // hidden, but a click when empty picks
        QCOMPARE(form.combo->currentIndex(), 0);
    }

    void checksOnLeaving_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        QTest::newRow("CEP, empty") << "cep"
                                    << ""
                                    << "Preenchimento Obrigatório do CEP.";
        QTest::newRow("CEP, 7 digits") << "cep"
                                       << "1234567"
                                       << "Preenchimento Incorreto do CEP.";
        QTest::newRow("CEP, 8 digits") << "cep"
                                       << "12345678"
                                       << "";
        QTest::newRow("DDD, one digit") << "ddd"
                                        << "1"
                                        << "Preenchimento Incorreto do DDD.";
        QTest::newRow("DDD, below 10") << "ddd"
                                       << "09"
                                       << "Preenchimento Incorreto do DDD.";
        QTest::newRow("DDD, good") << "ddd"
                                   << "11"
                                   << "";
        QTest::newRow("DDD, empty") << "ddd"
                                    << ""
                                    << "";
        QTest::newRow("telephone, 6 digits") << "telephone"
                                             << "123456"
                                             << "Preenchimento Incorreto do Telefone.";
        QTest::newRow("telephone, 7 digits") << "telephone"
                                             << "1234567"
                                             << "";
        QTest::newRow("telephone, empty") << "telephone"
                                          << ""
                                          << "";
        QTest::newRow("fax, 6 digits") << "fax"
                                       << "123456"
                                       << "Preenchimento Incorreto do FAX.";
        QTest::newRow("fax, empty") << "fax"
                                    << ""
                                    << "";
    }

    void checksOnLeaving() {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(QString, message);
        testsupport::ScriptedDialogs dialogs;
        RegisterForm form(*m_db, ui::MunicipalityList::StatesThenMunicipalities,
                          ui::AddressTexts::ownerPanel());
        QVERIFY(form.ready());
        QLineEdit* edit = field == "cep"         ? form.cep
                          : field == "ddd"       ? form.ddd
                          : field == "telephone" ? form.telephone
                                                 : form.fax;
        edit->setFocus(Qt::TabFocusReason);
        edit->home(false);
        QTest::keyClicks(edit, typed);
        form.street->setFocus(Qt::TabFocusReason);
        QTest::qWait(1);
        if (message.isEmpty()) {
            QVERIFY(dialogs.shown().isEmpty());
            QVERIFY(form.street->hasFocus());
        } else {
            QCOMPARE(dialogs.texts(), QStringList{message});
            QCOMPARE(dialogs.last().icon, ui::Icon::Critical);
            QVERIFY(edit->hasFocus()); // the focus came back
        }
        if (field == "ddd" && typed == "11")
            QCOMPARE(form.ddd->text(), QStringLiteral("011"));
    }

    void unknownMunicipalityOnLeaving() {
        testsupport::ScriptedDialogs dialogs;
        ui::AddressPanel panel(*m_db);
        panel.show();
        panel.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        QComboBox* combo = panel.findChild<QComboBox*>("cmbNMUNCP");
        combo->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(combo, "bauru");
        panel.fields().ddd->setFocus(Qt::TabFocusReason);
        QTest::qWait(1);
        QVERIFY(dialogs.shown().isEmpty());
        QCOMPARE(panel.values().municipality, std::optional<int>(168)); // typed counts as chosen
        QCOMPARE(panel.findChild<QLineEdit*>("txtUFMUNCP")->text(), QStringLiteral("SP"));

        combo->setFocus(Qt::TabFocusReason);
        combo->clearEditText();
        QTest::keyClicks(combo, "ATLANTIDA");
        panel.fields().ddd->setFocus(Qt::TabFocusReason);
        QTest::qWait(1);
        QCOMPARE(dialogs.texts(), QStringList{"Digite o nome do Município desse Estado"});
        QVERIFY(combo->hasFocus());
    }

    void panelNamesAndValues() {
        ui::AddressPanel panel(*m_db);
        for (const char* name :
             {"txtDRAZAOSOCIL", "txtDCONTT", "txtDLOGRD", "txtNLOGRD", "txtDLOGRDCOMPM",
              "txtDBAIRR", "txtCCEP", "txtUFMUNCP", "txtNDDD", "txtNTELFN", "txtNFAX", "txtDEMAIL"})
            QVERIFY2(panel.findChild<QLineEdit*>(name), name);
        QVERIFY(panel.findChild<QComboBox*>("cmbNMUNCP"));
        QCOMPARE(panel.findChild<QLineEdit*>("txtDLOGRDCOMPM")->maxLength(), 17);
        QCOMPARE(panel.findChild<QLineEdit*>("txtNDDD")->maxLength(), 4);

        ui::AddressValues in;
        in.company = "POSTO TESTE LTDA";
        in.contact = "MARIA";
        in.street = "RUA A";
        in.number = "12";
        in.cep = "18770123";
        in.municipality = 106;
        in.ddd = "14";
        in.telephone = "32145678";
        in.fax = "3214567";
        in.email = "posto@example.com";
        panel.setValues(in);
        const ui::AddressValues out = panel.values();
        QCOMPARE(out.company, in.company);
        QCOMPARE(out.street, in.street);
        QCOMPARE(out.number, in.number);
        QCOMPARE(out.cep, in.cep);
        QCOMPARE(out.municipality, in.municipality);
        QCOMPARE(out.state, QStringLiteral("SP"));
        QCOMPARE(out.ddd, QStringLiteral("014"));
        QCOMPARE(out.telephone, in.telephone);
        QCOMPARE(out.fax, in.fax);
        QCOMPARE(panel.findChild<QLineEdit*>("txtNTELFN")->displayText(),
                 QStringLiteral("3214-5678"));
        QVERIFY(panel.block().checkCep().valid());

        panel.clear();
        QCOMPARE(panel.values().cep, QString());
        QCOMPARE(panel.values().municipality, std::nullopt);

        ui::AddressPanelOptions distributor;
        distributor.companyAndContact = false;
        distributor.stateName = "txtMUNCPUF";
        distributor.stateLength = 70;
        distributor.municipalityNumberField = true;
        ui::AddressPanel other(*m_db, distributor);
        QVERIFY(!other.findChild<QLineEdit*>("txtDRAZAOSOCIL"));
        QCOMPARE(other.findChild<QLineEdit*>("txtMUNCPUF")->maxLength(), 70);
        QVERIFY(other.findChild<QLineEdit*>("txtnMuncp"));
    }
};

QTEST_MAIN(TestAddressBlock)
#include "test_address_block.moc"
