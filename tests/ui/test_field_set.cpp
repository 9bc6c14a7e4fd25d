// Fields declared once: built, limited by the catalogue, loaded and read back by code, checked
// in their order.
#include "store/Database.h"
#include "support/Seeds.h"
#include "support/TestEnvironment.h"
#include "ui/FieldSet.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

using namespace testsupport;
using ui::Field;
using ui::FieldKind;

class TestFieldSet : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnvironment> m_env;
    std::unique_ptr<store::Database> m_db;
    std::unique_ptr<QWidget> m_screen;
    std::unique_ptr<ui::FieldSet> m_tank;

private slots:
    void init() {
        m_env = std::make_unique<TestEnvironment>();
        m_db = std::make_unique<store::Database>(m_env->newDatabasePath());
        m_screen = std::make_unique<QWidget>();
        m_tank = std::make_unique<ui::FieldSet>("TB_POSTOTANQU", m_screen.get());
        m_tank->add({.name = "txtNTANQU",
                     .label = "Nº",
                     .kind = FieldKind::Number,
                     .column = "NTANQU",
                     .required = "sem número",
                     .length = 3});
        m_tank->add({.name = "txtNIDENT",
                     .label = "Identificação",
                     .column = "NIDENT",
                     .required = "sem identificação"});
        m_tank->add({.name = "mskAINSTL",
                     .label = "Data de Instalação",
                     .kind = FieldKind::Date,
                     .column = "AINSTL",
                     .required = "sem data"});
        m_tank->add({.name = "cmbNMATRL",
                     .label = "Material",
                     .kind = FieldKind::Dictionary,
                     .column = "NMATRL",
                     .required = "sem material",
                     .dictionary = "Select NMATRL, DMATRL From DICNRMATRLTANQU Order By NMATRL"});
        m_tank->add({.name = "cmbIPROPR",
                     .label = "Proprietário",
                     .kind = FieldKind::Codes,
                     .column = "IPROPR",
                     .required = "sem proprietário"});
        m_tank->add({.name = "optISITCA",
                     .label = "Situação",
                     .kind = FieldKind::Choice,
                     .column = "ISITCA"});
        m_tank->add({.name = "chkSSISTMPROTC",
                     .label = "Proteção",
                     .kind = FieldKind::Check,
                     .column = "SSISTMPROTC",
                     .codes = "SIMNAO"});
        m_tank->loadLists(*m_db);
    }
    void cleanup() {
        m_tank.reset();
        m_screen.reset();
        m_db.reset();
        m_env.reset();
    }

    void buildsLabelledFieldsLimitedByTheCatalogue() {
        QLineEdit* ident = m_tank->edit("txtNIDENT");
        QVERIFY(ident);
        QCOMPARE(ident->maxLength(), 30);                    // NIDENT's length in the catalogue
        QCOMPARE(m_tank->edit("txtNTANQU")->maxLength(), 3); // the screen's own limit
        QCOMPARE(m_tank->label("txtNIDENT")->buddy(), ident);
        QCOMPARE(m_tank->widget("optISITCA")->findChildren<QRadioButton*>().size(), 2);
        QVERIFY(m_screen->findChild<QRadioButton*>("optISITCA_1"));
        QVERIFY(m_tank->combo("cmbNMATRL")->count() > 0);
    }

    // A stored row comes back unchanged: codes from the item data, dates and numbers as stored,
    // Null where the field is empty.
    void aRowRoundTrips() {
        const QVariant material = m_tank->combo("cmbNMATRL")->itemData(1);
        const store::Row stored = {
            {"NTANQU", 7},   {"NIDENT", "GASOLINA"}, {"AINSTL", "2020-03-05"}, {"NMATRL", material},
            {"IPROPR", "D"}, {"ISITCA", "D"},        {"SSISTMPROTC", "S"}};
        m_tank->load(stored);
        QCOMPARE(m_tank->edit("mskAINSTL")->text(), QStringLiteral("05/03/2020"));
        QCOMPARE(m_tank->combo("cmbIPROPR")->currentText(), QStringLiteral("Distribuidora"));
        QVERIFY(m_screen->findChild<QRadioButton*>("optISITCA_1")->isChecked());
        const store::Row read = m_tank->values();
        for (auto it = stored.cbegin(); it != stored.cend(); ++it)
            QCOMPARE(read.value(it.key()).toString(), it.value().toString());

        m_tank->load({{"NTANQU", QVariant()}, {"NMATRL", QVariant()}, {"SSISTMPROTC", "N"}});
        QCOMPARE(m_tank->edit("txtNTANQU")->text(), QString());
        QVERIFY(m_tank->value("txtNTANQU").isNull());
        QVERIFY(m_tank->value("cmbNMATRL").isNull());
        QCOMPARE(m_tank->value("chkSSISTMPROTC").toString(), QStringLiteral("N"));
    }

    // Two captions of one text must not mix up their codes: the code is the item's, never found
    // again by the caption.
    void aCodeIsNeverFoundByItsCaption() {
        QComboBox* material = m_tank->combo("cmbNMATRL");
        material->addItem(material->itemText(0), 4242);
        material->setCurrentIndex(material->count() - 1);
        QCOMPARE(m_tank->value("cmbNMATRL").toInt(), 4242);
    }

    void aLongStoredTextIsShownWhole() {
        const QString longText(40, QLatin1Char('X'));
        m_tank->load({{"NIDENT", longText}});
        QCOMPARE(m_tank->edit("txtNIDENT")->text(), longText);
        QCOMPARE(m_tank->value("txtNIDENT").toString(), longText);
    }

    void refusesTheFirstEmptyFieldInDeclarationOrder() {
        m_screen->show();
        ui::Check refused = m_tank->validate();
        QVERIFY(refused);
        QCOMPARE(refused->message, QStringLiteral("sem número"));
        QCOMPARE(refused->widget, m_tank->widget("txtNTANQU"));

        m_tank->load({{"NTANQU", 1}, {"NIDENT", "A"}, {"IPROPR", "P"}});
        refused = m_tank->validate();
        QVERIFY(refused);
        QCOMPARE(refused->message, QStringLiteral("sem data"));
        // A hidden field takes no part in the validation.
        m_tank->widget("mskAINSTL")->hide();
        m_tank->widget("cmbNMATRL")->hide();
        QVERIFY(!m_tank->validate());
    }

    void theSnapshotSeesEveryKindOfField() {
        m_screen->show();
        const QString before = m_tank->snapshot();
        m_screen->findChild<QRadioButton*>("optISITCA_0")->setChecked(true);
        const QString afterOption = m_tank->snapshot();
        QVERIFY(afterOption != before);
        m_screen->findChild<QCheckBox*>("chkSSISTMPROTC")->setChecked(true);
        QVERIFY(m_tank->snapshot() != afterOption);
        m_tank->clear();
        QCOMPARE(m_tank->snapshot(), before);
    }
};

QTEST_MAIN(TestFieldSet)
#include "test_field_set.moc"
