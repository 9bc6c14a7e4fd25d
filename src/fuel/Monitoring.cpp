#include "fuel/Monitoring.h"

#include "store/Database.h"
#include "ui/FieldSupport.h"
#include "ui/FormParts.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSqlQuery>

namespace fuel {

namespace {

using ui::FieldKind;

const char* const kTable = "TB_POSTOMONTRAMBNT";
const QString kSystem = QStringLiteral("cmbTIPOMONTR");
const QString kTank = QStringLiteral("cmbTANQU");
const QString kPump = QStringLiteral("cmbBOMBA");
const QString kOther = QStringLiteral("txtTIPOMONTR");

MonitoringFamily makeUnderground() {
    return {QStringLiteral("S"),
            QStringLiteral("frmPostoMontrAmbnt"),
            QStringLiteral("frmPostoMontrAmbntM"),
            QStringLiteral("Monitoramento Ambiental (Subterrâneo)"),
            QStringLiteral("Incluir Monitoramento Ambiental"),
            QStringLiteral("Alterar Monitoramento Ambiental")};
}

MonitoringFamily makeAboveground() {
    return {QStringLiteral("A"),
            QStringLiteral("frmPostoMontrAmbntAereo"),
            QStringLiteral("frmPostoMontrAmbntAereoM"),
            QStringLiteral("Monitoramento Ambiental (Aéreo)"),
            QStringLiteral("Incluir Monitoramento Ambiental Aereo"),
            QStringLiteral("Alterar Monitoramento Ambiental Aereo")};
}

// The dictionary's systems offered to one installation: its own and those of both.
QString systemsOf(const QString& itanqu) {
    return QStringLiteral("(ISISTM = '%1' Or ISISTM = 'D' Or ISISTM = 'G')").arg(itanqu);
}

} // namespace

const MonitoringFamily& undergroundMonitoring() {
    static const MonitoringFamily family = makeUnderground();
    return family;
}

const MonitoringFamily& abovegroundMonitoring() {
    static const MonitoringFamily family = makeAboveground();
    return family;
}

ui::ListDefinition monitoringList(const MonitoringFamily& family) {
    const MonitoringFamily* f = &family;
    ui::ListDefinition def;
    def.name = f->listName;
    def.caption = f->title;
    ui::ListLevel systems;
    systems.gridName = QStringLiteral("fgrPostoMontrAmbnt");
    systems.frameTitle = QStringLiteral("Monitoramento Ambiental");
    systems.columns = {
        {QStringLiteral("Tipo de Monitoramento"), 280},
        {QStringLiteral("Tanque"), 150},
        {QStringLiteral("Bomba"), 150},
        {QStringLiteral("Descrição"), 150},
        {QStringLiteral("NMONTR"), 0},
        {QStringLiteral("IEQUPM"), 0},
        {QStringLiteral("NEQUPM"), 0},
    };
    // A row whose tank or pump is gone stays in the table but leaves the grid.
    systems.query = [f](const ui::Session& s, const QStringList&) {
        const QVariantList key = {s.nmuncp, s.nseqnc, f->itanqu};
        return ui::Query{
            QStringLiteral(
                "Select Distinct d.DMONTR, t.NTANQU || ' - ' || t.NIDENT As A, '', ma.DMONTR,"
                " ma.NMONTR, ma.IEQUPM, ma.NEQUPM From TB_POSTOMONTRAMBNT ma, TB_POSTOTANQU t,"
                " DICNRMONTRAMBNT d Where ma.NMUNCP = ? And ma.NSEQNC = ? And ma.ITANQU = ?"
                " And ma.IEQUPM = 'T' And ma.NMONTR = d.NMONTR And ma.NEQUPM = t.NTANQU"
                " And t.ITANQU = ma.ITANQU And t.NMUNCP = ma.NMUNCP And t.NSEQNC = ma.NSEQNC"
                " Union Select Distinct d.DMONTR, '', b.NBOMBA || ' - ' || b.NIDENT As A,"
                " ma.DMONTR, ma.NMONTR, ma.IEQUPM, ma.NEQUPM From TB_POSTOMONTRAMBNT ma,"
                " TB_POSTOBOMBA b, DICNRMONTRAMBNT d Where ma.NMUNCP = ? And ma.NSEQNC = ?"
                " And ma.ITANQU = ? And ma.IEQUPM = 'B' And ma.NMONTR = d.NMONTR"
                " And ma.NEQUPM = b.NBOMBA And b.ITANQU = ma.ITANQU And b.NMUNCP = ma.NMUNCP"
                " And b.NSEQNC = ma.NSEQNC Union Select Distinct d.DMONTR, '', '', ma.DMONTR,"
                " ma.NMONTR, ma.IEQUPM, ma.NEQUPM From TB_POSTOMONTRAMBNT ma, DICNRMONTRAMBNT d"
                " Where ma.NMUNCP = ? And ma.NSEQNC = ? And ma.ITANQU = ? And ma.NEQUPM = 0"
                " And ma.NMONTR = d.NMONTR Order By 1, 2, 3"),
            key + key + key};
    };
    systems.insertOperation = f->insertAction;
    systems.alterOperation = f->alterAction;
    systems.deleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado?");
    systems.cascade = [f](store::Database& db, const ui::Session& s,
                          const ui::ListSelection& rows) {
        store::Row key = s.keyRow();
        key.insert(QStringLiteral("ITANQU"), f->itanqu);
        key.insert(QStringLiteral("NMONTR"), rows.main.value(4).toInt());
        key.insert(QStringLiteral("IEQUPM"), rows.main.value(5));
        key.insert(QStringLiteral("NEQUPM"), rows.main.value(6).toInt());
        store::deleteRow(db, kTable, key);
    };
    def.levels = {systems};
    def.maintenance = [f](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new MonitoringMaintenance(host, *f);
    };
    return def;
}

MonitoringMaintenance::MonitoringMaintenance(ui::ScreenHost& host, const MonitoringFamily& family,
                                             QWidget* parent)
    : ui::MaintenanceScreen(
          host, family.listName,
          {{family.insertAction, 0, true, true}, {family.alterAction, 0, false, true}}, parent)
    , m_family(family)
    , m_fields(kTable, this) {
    setObjectName(family.maintenanceName);
    setWindowTitle(family.title);
    auto* frame = new QGroupBox(family.title, this);
    frame->setObjectName(QStringLiteral("fraMontr"));
    m_fields.add({.name = kSystem,
                  .label = QStringLiteral("Tipo de Monitoramento"),
                  .kind = FieldKind::Dictionary,
                  .column = "NMONTR"},
                 frame);
    m_fields.add({.name = kTank, .label = QStringLiteral("Tanque"), .kind = FieldKind::Dictionary},
                 frame);
    m_fields.add({.name = kPump, .label = QStringLiteral("Bomba"), .kind = FieldKind::Dictionary},
                 frame);
    m_fields.add(
        {.name = kOther, .label = QStringLiteral("Tipo"), .column = "DMONTR", .length = 15}, frame);
    // The marks of the duplicate tests, kept on the screen but never shown.
    m_dverif = ui::lineEdit(QStringLiteral("dverif"), frame);
    m_neq = ui::lineEdit(QStringLiteral("neq"), frame);
    m_dverif->hide();
    m_neq->hide();
    m_fields.combo(kSystem)->setMinimumWidth(360);
    m_fields.combo(kTank)->setMinimumWidth(260);
    m_fields.combo(kPump)->setMinimumWidth(260);
    auto* grid = new QGridLayout(frame);
    int row = 0;
    for (const QString& name : {kSystem, kTank, kPump, kOther})
        m_fields.place(grid, row++, 0, name);
    grid->setColumnStretch(2, 1);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    body()->addWidget(frame);
    body()->addStretch(1);

    connect(m_fields.combo(kSystem), &QComboBox::activated, this,
            &MonitoringMaintenance::systemChosen);
    m_fields.widget(kOther)->installEventFilter(this);
}

bool MonitoringMaintenance::inserting() const {
    return operation().insert;
}

void MonitoringMaintenance::prepare() {
    ui::databaseList(database(), m_fields.combo(kSystem),
                     QStringLiteral("Select NMONTR,DMONTR From DICNRMONTRAMBNT Where ") +
                         systemsOf(m_family.itanqu) + QStringLiteral(" Order By DMONTR"));
    ui::databaseList(database(), m_fields.combo(kTank),
                     QStringLiteral("Select NTANQU, printf('%02d', NTANQU) || '-' || NIDENT As"
                                    " Tanque From TB_POSTOTANQU Where NMUNCP = ? And NSEQNC = ?"
                                    " And ITANQU = ? Order By NTANQU"),
                     {session().nmuncp, session().nseqnc, m_family.itanqu});
    ui::databaseList(database(), m_fields.combo(kPump),
                     QStringLiteral("Select NBOMBA, printf('%02d', NBOMBA) || '-' || NIDENT As"
                                    " Bomba From TB_POSTOBOMBA Where NMUNCP = ? And NSEQNC = ?"
                                    " And ITANQU = ? Order By NBOMBA"),
                     {session().nmuncp, session().nseqnc, m_family.itanqu});
}

QString MonitoringMaintenance::kindOfSystem() const {
    return database()
        .scalar(QStringLiteral("Select IEQUPM From DICNRMONTRAMBNT Where ") +
                    systemsOf(m_family.itanqu) + QStringLiteral(" And NMONTR = ?"),
                {m_fields.value(kSystem)})
        .toString();
}

void MonitoringMaintenance::systemChosen() {
    if (m_fields.isEmpty(kSystem))
        return;
    QComboBox* tank = m_fields.combo(kTank);
    QComboBox* pump = m_fields.combo(kPump);
    QLineEdit* other = m_fields.edit(kOther);
    const QString kind = kindOfSystem();
    // What is not asked is emptied too, so that the kind stored follows the system.
    if (kind != QLatin1String("T"))
        tank->setCurrentIndex(-1);
    if (kind != QLatin1String("B"))
        pump->setCurrentIndex(-1);
    if (kind != QLatin1String("O"))
        other->clear();
    tank->setEnabled(kind == QLatin1String("T"));
    pump->setEnabled(kind == QLatin1String("B"));
    other->setEnabled(kind == QLatin1String("O"));
    m_fields.label(kOther)->setEnabled(kind == QLatin1String("O"));
    if (kind == QLatin1String("P") && inserting() &&
        rowExists(m_fields.value(kSystem), QStringLiteral("P"), QVariant()))
        m_dverif->setText(QStringLiteral("nao"));
}

bool MonitoringMaintenance::rowExists(const QVariant& nmontr, const QString& kind,
                                      const QVariant& nequpm) const {
    store::Row where = session().keyRow();
    where.insert(QStringLiteral("ITANQU"), m_family.itanqu);
    if (nmontr.isValid())
        where.insert(QStringLiteral("NMONTR"), nmontr);
    where.insert(QStringLiteral("IEQUPM"), kind);
    if (nequpm.isValid())
        where.insert(QStringLiteral("NEQUPM"), nequpm);
    return store::rowExists(database(), kTable, where);
}

void MonitoringMaintenance::fillEquipmentList(const QString& kind) {
    QSqlQuery rows = database().run(
        QStringLiteral("Select NEQUPM From TB_POSTOMONTRAMBNT Where NMUNCP = ? And NSEQNC = ?"
                       " And ITANQU = ? And IEQUPM = ?"),
        {session().nmuncp, session().nseqnc, m_family.itanqu, kind});
    QString list;
    while (rows.next())
        list += rows.value(0).toString() + QLatin1Char('#');
    m_neq->setText(list.isEmpty() ? QString() : list + QLatin1Char('@'));
}

QString MonitoringMaintenance::equipmentKind() const {
    if (m_fields.widget(kOther)->isEnabled())
        return QStringLiteral("O");
    if (!m_fields.isEmpty(kPump))
        return QStringLiteral("B");
    if (!m_fields.isEmpty(kTank))
        return QStringLiteral("T");
    return QStringLiteral("P");
}

QVariant MonitoringMaintenance::equipmentNumber() const {
    // The number is the item's own, never cut from the text shown.
    const QString kind = equipmentKind();
    if (kind == QLatin1String("B"))
        return m_fields.value(kPump);
    if (kind == QLatin1String("T"))
        return m_fields.value(kTank);
    return 0;
}

void MonitoringMaintenance::copyFromList(const ui::ListSelection& rows) {
    if (inserting())
        return;
    m_oldKey = session().keyRow();
    m_oldKey.insert(QStringLiteral("ITANQU"), m_family.itanqu);
    m_oldKey.insert(QStringLiteral("NMONTR"), rows.main.value(4).toInt());
    m_oldKey.insert(QStringLiteral("IEQUPM"), rows.main.value(5));
    m_oldKey.insert(QStringLiteral("NEQUPM"), rows.main.value(6).toInt());
    const auto stored = store::readRow(database(), kTable, m_oldKey);
    if (!stored)
        return;
    m_fields.load(*stored);
    const QString kind = stored->value(QStringLiteral("IEQUPM")).toString();
    systemChosen();
    if (kind == QLatin1String("T") || kind == QLatin1String("B")) {
        ui::chooseCode(m_fields.combo(kind == QLatin1String("T") ? kTank : kPump),
                       stored->value(QStringLiteral("NEQUPM")));
        fillEquipmentList(kind);
    } else if (kind == QLatin1String("O")) {
        m_fields.setValue(kOther, stored->value(QStringLiteral("DMONTR")));
        m_dverif->setText(QStringLiteral("sim"));
    }
}

QWidget* MonitoringMaintenance::arrangePanels() {
    if (inserting()) {
        m_fields.combo(kTank)->setEnabled(false);
        m_fields.combo(kPump)->setEnabled(false);
        m_fields.edit(kOther)->setEnabled(false);
        m_fields.label(kOther)->setEnabled(false);
    }
    return m_fields.widget(kSystem);
}

QString MonitoringMaintenance::newKey() const {
    return m_fields.combo(kSystem)->currentText();
}

QList<QWidget*> MonitoringMaintenance::snapshotFields() const {
    return m_fields.shownWidgets();
}

ui::Check MonitoringMaintenance::dropEdit(QWidget* field, const QString& message, ui::Icon icon) {
    changeShown(false);
    return ui::Refusal{field, message, icon};
}

bool MonitoringMaintenance::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_fields.widget(kOther) && event->type() == QEvent::FocusIn && inserting() &&
        rowExists(QVariant(), QStringLiteral("O"), QVariant()))
        m_dverif->setText(QStringLiteral("sim"));
    return ui::MaintenanceScreen::eventFilter(watched, event);
}

ui::Check MonitoringMaintenance::leaveCheck(QWidget* field) {
    verifyChange();
    if (field == m_fields.widget(kTank) || field == m_fields.widget(kPump)) {
        const bool onTank = field == m_fields.widget(kTank);
        if (inserting())
            fillEquipmentList(onTank ? QStringLiteral("T") : QStringLiteral("B"));
        const QVariant number = m_fields.value(onTank ? kTank : kPump);
        if (m_neq->text().isEmpty() || number.isNull())
            return {};
        const QStringList numbers =
            m_neq->text().chopped(1).split(QLatin1Char('#'), Qt::SkipEmptyParts);
        if (!numbers.contains(number.toString()))
            return {};
        if (rowExists(m_fields.value(kSystem), equipmentKind(), number))
            return dropEdit(field, onTank
                                       ? QStringLiteral("Este tanque já está cadastrado com este "
                                                        "Monitoramento")
                                       : QStringLiteral("Esta bomba já está cadastrada com este "
                                                        "Monitoramento"));
    } else if (field == m_fields.widget(kOther) && !m_dverif->text().isEmpty()) {
        return dropEdit(field, QStringLiteral("Já existe um Monitoramento cadastrado como Outros"));
    }
    return {};
}

ui::Check MonitoringMaintenance::validate() {
    QWidget* system = m_fields.widget(kSystem);
    if (inserting() && m_dverif->text() == QLatin1String("nao"))
        return dropEdit(system, QStringLiteral("Este Monitoramento já foi cadastrado"),
                        ui::Icon::None);
    if (m_fields.isEmpty(kSystem))
        return ui::Refusal{
            system, QStringLiteral("Preenchimento Obrigatório do Tipo de Monitoramento Ambiental")};
    // No equipment chosen matches no row: the kinds P and O are kept single by their marks.
    const QString kind = equipmentKind();
    const QVariant number =
        (kind == QLatin1String("T") || kind == QLatin1String("B")) ? equipmentNumber() : QVariant();
    if (inserting() && !number.isNull() && rowExists(m_fields.value(kSystem), kind, number))
        return ui::Refusal{system, QStringLiteral("Tipo de Monitoramento Ambiental já está "
                                                  "cadastrado, preencha com outro tipo")};
    const bool noEquipment = m_fields.isEmpty(kTank) && m_fields.isEmpty(kPump);
    if (m_fields.widget(kTank)->isEnabled() && noEquipment)
        return ui::Refusal{m_fields.widget(kTank),
                           QStringLiteral("Preenchimento Obrigatório do Tanque")};
    if (m_fields.widget(kPump)->isEnabled() && noEquipment)
        return ui::Refusal{m_fields.widget(kPump),
                           QStringLiteral("Preenchimento Obrigatório da Bomba")};
    if (m_fields.widget(kOther)->isEnabled() && m_fields.isEmpty(kOther))
        return ui::Refusal{m_fields.widget(kOther),
                           QStringLiteral("Preenchimento Necessário do tipo de monitoramento")};
    return {};
}

void MonitoringMaintenance::write(store::Database& db) {
    store::Row values;
    values.insert(QStringLiteral("NMONTR"), m_fields.value(kSystem));
    values.insert(QStringLiteral("IEQUPM"), equipmentKind());
    values.insert(QStringLiteral("NEQUPM"), equipmentNumber());
    values.insert(QStringLiteral("DMONTR"), m_fields.value(kOther));
    if (inserting()) {
        store::Row row = session().newRow();
        row.insert(QStringLiteral("ITANQU"), m_family.itanqu);
        row.insert(values);
        store::insertRow(db, kTable, row);
        return;
    }
    // The row that was opened, by its whole key, whatever was chosen since.
    store::updateRow(db, kTable, m_oldKey, values);
}

} // namespace fuel
