#include "fuel/Protection.h"

#include "fuel/FuelParts.h"
#include "fuel/PumpRows.h"
#include "store/Database.h"
#include "ui/FieldSupport.h"
#include "ui/FormParts.h"
#include "ui/Session.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace fuel {

namespace {

using Kind = ui::GridColumn::Kind;
using ui::FieldKind;

const QString kIncluir = QStringLiteral("Incluir");
const QString kAlterar = QStringLiteral("Alterar");

store::Row tankKey(const ui::Session& s, const QString& itanqu, const QVariant& ntanqu) {
    store::Row key = s.keyRow();
    key.insert(QStringLiteral("ITANQU"), itanqu);
    key.insert(QStringLiteral("NTANQU"), ntanqu);
    return key;
}

ProtectionFamily makeUnderground() {
    ProtectionFamily f;
    f.itanqu = QStringLiteral("S");
    f.listName = QStringLiteral("frmPostoProtcCatdcSubtr");
    f.maintenanceName = QStringLiteral("frmPostoProtcCatdcSubtrM");
    f.caption = QStringLiteral("Proteção Catódica - Subterrâneo");
    f.blockTitle = QStringLiteral("Proteção Catódica");
    f.tankHeading = QStringLiteral("Nº do Tanque/Identificação");
    f.tankRequired = QStringLiteral("Preenchimento Obrigatório do Nº do Tanque.");
    f.alreadyThere = QStringLiteral("Proteção Catódica do tanque já cadastrada.");
    f.kinds = "IPROTC.SUBTR";
    return f;
}

ProtectionFamily makeAboveground() {
    ProtectionFamily f;
    f.itanqu = QStringLiteral("A");
    f.listName = QStringLiteral("frmPostoProtcCatdcAereo");
    f.maintenanceName = QStringLiteral("frmPostoProtcCatdcAereoM");
    f.caption = QStringLiteral("Proteção Contra Corrosão - Aéreo");
    f.blockTitle = QStringLiteral("Proteção Contra Corrosão");
    f.tankHeading = QStringLiteral("Nº do Reservatório/Identificação");
    f.tankRequired = QStringLiteral("Preenchimento Obrigatório do Nº do Reservatório.");
    f.alreadyThere = QStringLiteral("Proteção Contra Corrosão do Reservatório já cadastrada.");
    f.kinds = "IPROTC.AEREO";
    return f;
}

} // namespace

const ProtectionFamily& undergroundProtection() {
    static const ProtectionFamily family = makeUnderground();
    return family;
}

const ProtectionFamily& abovegroundProtection() {
    static const ProtectionFamily family = makeAboveground();
    return family;
}

ui::ListDefinition protectionList(const ProtectionFamily& family) {
    const ProtectionFamily* f = &family;
    ui::ListDefinition def;
    def.name = f->listName;
    def.caption = f->caption;
    ui::ListLevel tanks;
    tanks.gridName = QStringLiteral("fgrPostoProtc");
    tanks.frameTitle = f->blockTitle;
    tanks.columns = {
        {f->tankHeading, 220},
        {QStringLiteral("Possui Sistema de Proteção"), 160, Kind::Text, ui::codeLabels("SIMNAO")},
        {QStringLiteral("Tipo de Proteção"), 160, Kind::Text, ui::codeLabels(f->kinds)},
        {QStringLiteral("Frequência"), 90, Kind::Text, ui::codeLabels("IFREQNMANTN")},
        {QStringLiteral("Data da Última Manutenção"), 160, Kind::Date},
    };
    // A tank without a decision on its protection is not listed.
    tanks.query = [f](const ui::Session& s, const QStringList&) {
        return ui::Query{
            QStringLiteral("Select NTANQU || ' - ' || NIDENT,SSISTMPROTC,IPROTC,IFREQNMANTN,"
                           "AMANTNULTMA From TB_POSTOTANQU Where NMUNCP = ? And NSEQNC = ?"
                           " And ITANQU = ? And SSISTMPROTC Is Not Null And SSISTMPROTC <> ''"
                           " Order By NTANQU"),
            {s.nmuncp, s.nseqnc, f->itanqu}};
    };
    tanks.insertOperation = kIncluir;
    tanks.alterOperation = kAlterar;
    tanks.deleteQuestion = QStringLiteral("Deseja excluir o item selecionado?");
    tanks.cascade = [f](store::Database& db, const ui::Session& s, const ui::ListSelection& rows) {
        store::updateRow(db, "TB_POSTOTANQU",
                         tankKey(s, f->itanqu, leadingNumber(rows.main.value(0))),
                         {{QStringLiteral("SSISTMPROTC"), QVariant()},
                          {QStringLiteral("IPROTC"), QVariant()},
                          {QStringLiteral("DPROTC"), QVariant()},
                          {QStringLiteral("IFREQNMANTN"), QVariant()},
                          {QStringLiteral("AMANTNULTMA"), QVariant()}});
    };
    def.levels = {tanks};
    def.maintenance = [f](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new ProtectionMaintenance(host, *f);
    };
    return def;
}

ProtectionMaintenance::ProtectionMaintenance(ui::ScreenHost& host, const ProtectionFamily& family,
                                             QWidget* parent)
    : ui::MaintenanceScreen(host, family.listName,
                            {{kIncluir, 0, true, true}, {kAlterar, 0, false, true}}, parent)
    , m_family(family)
    , m_fields("TB_POSTOTANQU", this) {
    setObjectName(family.maintenanceName);
    setWindowTitle(family.caption);

    auto* frame = new QGroupBox(family.blockTitle, this);
    frame->setObjectName(QStringLiteral("fraProtc"));
    auto* maintenance = new QGroupBox(QStringLiteral("Manutenção do Sistema"), frame);
    maintenance->setObjectName(QStringLiteral("fraManutencao"));
    // The key and the fields that an answer opens sit in boxes of their own.
    for (const char* name : {"cmbNTANQU", "cmbIPROTC", "cmbIFREQNMANTN"}) {
        QWidget* owner =
            QString::fromLatin1(name) == QLatin1String("cmbIFREQNMANTN") ? maintenance : frame;
        ui::keyBox(QStringLiteral("pic") + QString::fromLatin1(name).mid(3),
                   ui::comboBox(QString::fromLatin1(name), owner), owner);
    }
    ui::keyBox(QStringLiteral("picDPROTC"), ui::lineEdit(QStringLiteral("txtDPROTC"), frame),
               frame);
    ui::keyBox(QStringLiteral("picAMANTNULTMA"),
               ui::lineEdit(QStringLiteral("mskAMANTNULTMA"), maintenance), maintenance);

    m_fields.add({.name = QStringLiteral("cmbNTANQU"),
                  .label = QStringLiteral("Nº Tanque"),
                  .kind = FieldKind::Dictionary,
                  .column = "NTANQU",
                  .required = family.tankRequired},
                 frame);
    m_fields.add({.name = QStringLiteral("optSSISTMPROTC"),
                  .label = QStringLiteral("Possui Sistema de Proteção"),
                  .kind = FieldKind::Choice,
                  .column = "SSISTMPROTC",
                  .codes = "SIMNAO"},
                 frame);
    m_fields.add({.name = QStringLiteral("cmbIPROTC"),
                  .label = QStringLiteral("Tipo de Proteção"),
                  .kind = FieldKind::Codes,
                  .column = "IPROTC",
                  .required = QStringLiteral("Preenchimento Obrigatório do Tipo de Proteção."),
                  .codes = family.kinds,
                  .applies = [this] { return protectedTank(); }},
                 frame);
    m_fields.add({.name = QStringLiteral("txtDPROTC"),
                  .label = QStringLiteral("Descrição da Proteção"),
                  .column = "DPROTC",
                  .required = QStringLiteral("Preenchimento Obrigatório da Descrição da Proteção."),
                  .length = 30,
                  .applies = [this] { return protectedTank() && otherKind(); }},
                 frame);
    m_fields.add({.name = QStringLiteral("cmbIFREQNMANTN"),
                  .label = QStringLiteral("Frequência"),
                  .kind = FieldKind::Codes,
                  .column = "IFREQNMANTN",
                  .required = QStringLiteral("Preenchimento Obrigatório da Frequência."),
                  .applies = [this] { return protectedTank(); }},
                 maintenance);
    m_fields.add({.name = QStringLiteral("mskAMANTNULTMA"),
                  .label = QStringLiteral("Última Data"),
                  .kind = FieldKind::Date,
                  .column = "AMANTNULTMA",
                  .leave =
                      [this] {
                          const QString wrong =
                              QStringLiteral("Preenchimento Incorreto da Última Data.");
                          return checkDate(m_fields.edit(QStringLiteral("mskAMANTNULTMA")),
                                           {QString(), wrong, wrong});
                      }},
                 maintenance);
    m_fields.combo(QStringLiteral("cmbNTANQU"))->setMinimumWidth(260);
    m_fields.edit(QStringLiteral("txtDPROTC"))->setMinimumWidth(260);
    m_fields.edit(QStringLiteral("mskAMANTNULTMA"))->setMaximumWidth(100);

    auto* grid = new QGridLayout(frame);
    m_fields.place(grid, 0, 0, QStringLiteral("cmbNTANQU"));
    QWidget* answer = m_fields.widget(QStringLiteral("optSSISTMPROTC"));
    grid->addWidget(optionsLabel(QStringLiteral("Possui Sistema de Proteção"), answer, frame), 1,
                    0);
    grid->addWidget(answer, 1, 1);
    m_fields.place(grid, 2, 0, QStringLiteral("cmbIPROTC"));
    m_fields.place(grid, 3, 0, QStringLiteral("txtDPROTC"));
    auto* maintenanceGrid = new QGridLayout(maintenance);
    m_fields.place(maintenanceGrid, 0, 0, QStringLiteral("cmbIFREQNMANTN"));
    m_fields.place(maintenanceGrid, 0, 2, QStringLiteral("mskAMANTNULTMA"));
    maintenanceGrid->setColumnStretch(4, 1);
    grid->addWidget(maintenance, 4, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    body()->addWidget(frame);
    body()->addStretch(1);

    for (auto* option : answer->findChildren<QAbstractButton*>())
        connect(option, &QAbstractButton::toggled, this, &ProtectionMaintenance::followAnswer);
    connect(m_fields.combo(QStringLiteral("cmbIPROTC")), &QComboBox::activated, this,
            &ProtectionMaintenance::followKind);
}

bool ProtectionMaintenance::protectedTank() const {
    return m_fields.value(QStringLiteral("optSSISTMPROTC")).toString() == QLatin1String("S");
}

bool ProtectionMaintenance::otherKind() const {
    return m_fields.value(QStringLiteral("cmbIPROTC")).toString() == QLatin1String("O");
}

void ProtectionMaintenance::followAnswer() {
    const bool open = protectedTank();
    for (const char* name : {"cmbIPROTC", "cmbIFREQNMANTN", "mskAMANTNULTMA"}) {
        QWidget* field = m_fields.widget(QString::fromLatin1(name));
        if (!open) {
            if (auto* combo = qobject_cast<QComboBox*>(field))
                combo->setCurrentIndex(-1);
            else
                ui::clearMasked(qobject_cast<QLineEdit*>(field));
        }
        field->setEnabled(open);
    }
    followKind();
}

void ProtectionMaintenance::followKind() {
    QLineEdit* description = m_fields.edit(QStringLiteral("txtDPROTC"));
    const bool open = protectedTank() && otherKind();
    if (!open)
        description->clear();
    description->setEnabled(open);
}

void ProtectionMaintenance::prepare() {
    ui::databaseList(database(), m_fields.combo(QStringLiteral("cmbNTANQU")),
                     QStringLiteral("Select NTANQU,NTANQU || ' - ' || NIDENT From TB_POSTOTANQU"
                                    " Where NMUNCP = ? And NSEQNC = ? And ITANQU = ?"
                                    " Order By NTANQU"),
                     {session().nmuncp, session().nseqnc, m_family.itanqu});
}

void ProtectionMaintenance::copyFromList(const ui::ListSelection& rows) {
    if (operation().insert)
        return;
    // The row itself, by its tank: the grid holds neither the description nor the codes.
    const auto stored =
        store::readRow(database(), "TB_POSTOTANQU",
                       tankKey(session(), m_family.itanqu, leadingNumber(rows.main.value(0))));
    if (stored)
        m_fields.load(*stored);
}

QWidget* ProtectionMaintenance::arrangePanels() {
    followAnswer();
    QWidget* key = m_fields.widget(QStringLiteral("cmbNTANQU"))->parentWidget();
    key->setEnabled(operation().insert);
    if (operation().insert)
        return m_fields.widget(QStringLiteral("cmbNTANQU"));
    const auto options =
        m_fields.widget(QStringLiteral("optSSISTMPROTC"))->findChildren<QAbstractButton*>();
    for (QAbstractButton* option : options) {
        if (option->isChecked())
            return option;
    }
    return options.value(0);
}

QString ProtectionMaintenance::newKey() const {
    return m_fields.combo(QStringLiteral("cmbNTANQU"))->currentText();
}

QList<QWidget*> ProtectionMaintenance::snapshotFields() const {
    return m_fields.shownWidgets();
}

ui::Check ProtectionMaintenance::leaveCheck(QWidget* field) {
    return m_fields.leave(field);
}

ui::Check ProtectionMaintenance::validate() {
    if (ui::Check refused = m_fields.validate())
        return refused;
    const QVariant ntanqu = m_fields.value(QStringLiteral("cmbNTANQU"));
    if (operation().insert) {
        const auto stored = store::readRow(database(), "TB_POSTOTANQU",
                                           tankKey(session(), m_family.itanqu, ntanqu));
        if (stored && !stored->value(QStringLiteral("SSISTMPROTC")).isNull())
            return ui::Refusal{m_fields.widget(QStringLiteral("cmbNTANQU")), m_family.alreadyThere};
    }
    // A date typed but never left is checked here too, so that no text that is no date is kept.
    return m_fields.leave(m_fields.widget(QStringLiteral("mskAMANTNULTMA")));
}

void ProtectionMaintenance::write(store::Database& db) {
    store::updateRow(
        db, "TB_POSTOTANQU",
        tankKey(session(), m_family.itanqu, m_fields.value(QStringLiteral("cmbNTANQU"))),
        m_fields.values({QStringLiteral("optSSISTMPROTC"), QStringLiteral("cmbIPROTC"),
                         QStringLiteral("txtDPROTC"), QStringLiteral("cmbIFREQNMANTN"),
                         QStringLiteral("mskAMANTNULTMA")}));
}

} // namespace fuel
