#include "fuel/Leaks.h"

#include "fuel/FuelParts.h"
#include "fuel/PumpRows.h"
#include "rules/Formats.h"
#include "store/CodeLists.h"
#include "store/Database.h"
#include "ui/FieldSupport.h"
#include "ui/FormParts.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QDate>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QSqlQuery>

namespace fuel {

namespace {

using Kind = ui::GridColumn::Kind;
using ui::FieldKind;

const QString kIncluir = QStringLiteral("Incluir");
const QString kAlterar = QStringLiteral("Alterar");
const QString kUnidentified = QStringLiteral("Não Identificado");

const QString kFilteredFuels =
    QStringLiteral("Select NCOMBS, DCOMBS From DICNRCOMBS Where NCOMBS >=100 And NCOMBS <> 109"
                   " And NCOMBS <> 119 And NCOMBS <> 129 And NCOMBS <> 132 Order By NCOMBS");
const QString kAllFuels = QStringLiteral("Select NCOMBS, DCOMBS From DICNRCOMBS Order By NCOMBS");

LeakFamily makeUnderground() {
    LeakFamily f;
    f.itanqu = QStringLiteral("S");
    f.listName = QStringLiteral("frmPostoHistrVazmnSubtr");
    f.maintenanceName = QStringLiteral("frmPostoHistrVazmnSubtrM");
    f.caption = QStringLiteral("Sistema de Armazenamento de Combustível - Subterrâneo");
    f.locations = "ILOCAL.SUBTR";
    f.tankLabel = QStringLiteral("Nº Tanque");
    f.pumpLabel = QStringLiteral("Nº Bomba");
    f.tankRequired = QStringLiteral("Preenchimento Obrigatório do Nº do Tanque.");
    f.pumpRequired = QStringLiteral("Preenchimento Obrigatório do Nº da Bomba.");
    f.tankFuelRequired = QStringLiteral("Preenchimento Obrigatório do Combustível Vazado.");
    f.tankTaken = QStringLiteral("Já existe Nº do Tanque ou Nº do Compartimento cadastrado.");
    f.ventTaken = QStringLiteral("Já existe Nº do Tanque e Nº do Compartimento cadastrado.");
    f.lineTaken =
        QStringLiteral("Já existe Nº de Tanque, Nº de Compartimento ou Nº de Bomba cadastrado.");
    f.tankTooOld = QStringLiteral(
        "A Data do Vazamento deve ser Maior ou Igual a Data de Instalação do Tanque.");
    f.pumpTooOld = QStringLiteral(
        "A Data do Vazamento deve ser Maior ou Igual a Data de Instalação da Bomba.");
    f.pumpTakenByLocation = false;
    f.tankDateByRegister = false;
    f.pumpDateByRegister = true;
    f.pumpFuelsFiltered = false;
    return f;
}

LeakFamily makeAboveground() {
    LeakFamily f;
    f.itanqu = QStringLiteral("A");
    f.listName = QStringLiteral("frmPostoHistrVazmnAereo");
    f.maintenanceName = QStringLiteral("frmPostoHistrVazmnAereoM");
    f.caption = QStringLiteral("Sistema de Armazenamento de Combustível - Aéreo");
    f.locations = "ILOCAL.AEREO";
    f.tankLabel = QStringLiteral("Nº Reservatório");
    f.pumpLabel = QStringLiteral("Nº Unid. de Abastecimento");
    f.tankRequired = QStringLiteral("Preenchimento Obrigatório do Nº do Reservatório.");
    f.pumpRequired = QStringLiteral("Preenchimento Obrigatório do Nº da Unidade de Abastecimento.");
    f.tankTaken = QStringLiteral("Já existe Nº de Reservatório ou Nº do Compartimento cadastrado.");
    f.ventTaken = QStringLiteral("Já existe Nº de Reservatório e Nº do Compartimento cadastrado.");
    f.lineTaken = QStringLiteral("Já existe Nº de Reservatório, Nº de Compartimento ou Nº de "
                                 "Unidade de Abastecimento cadastrado.");
    f.tankTooOld = QStringLiteral(
        "A Data do Vazamento deve ser Maior ou Igual a Data de Instalação do Reservatório.");
    f.pumpTooOld = QStringLiteral("A Data do Vazamento deve ser Maior ou Igual a Data de "
                                  "Instalação da Unidade de Abastecimento.");
    f.pumpTakenByLocation = true;
    f.tankDateByRegister = true;
    f.pumpDateByRegister = false;
    f.pumpFuelsFiltered = true;
    return f;
}

// The locations and the fields that each one uses.
bool usesTank(const QString& code) {
    return QStringLiteral("TLRVC").contains(code) && !code.isEmpty();
}
bool usesPump(const QString& code) {
    return QStringLiteral("BLF").contains(code) && !code.isEmpty();
}

} // namespace

const LeakFamily& undergroundLeaks() {
    static const LeakFamily family = makeUnderground();
    return family;
}

const LeakFamily& abovegroundLeaks() {
    static const LeakFamily family = makeAboveground();
    return family;
}

store::Row leakKey(const ui::Session& session, const LeakFamily& family, const QStringList& row) {
    QString location;
    for (const store::Code& code : store::codeList(family.locations)) {
        if (code.label == row.value(1))
            location = code.code.toString();
    }
    // A blank number and "Não Identificado" both stand for 0.
    store::Row key = session.keyRow();
    key.insert(QStringLiteral("ITANQU"), family.itanqu);
    key.insert(QStringLiteral("AVAZMN"),
               QDate::fromString(row.value(0), rules::kShortDateFormat).toString(Qt::ISODate));
    key.insert(QStringLiteral("ILOCAL"), location);
    key.insert(QStringLiteral("NTANQU"), row.value(2).toInt());
    key.insert(QStringLiteral("NCOMPR"), row.value(3).toInt());
    key.insert(QStringLiteral("NBOMBA"), row.value(4).toInt());
    return key;
}

ui::ListDefinition leakList(const LeakFamily& family) {
    const LeakFamily* f = &family;
    ui::ListDefinition def;
    def.name = f->listName;
    def.caption = f->caption;
    ui::ListLevel leaks;
    leaks.gridName = QStringLiteral("fgr1");
    leaks.frameTitle = QStringLiteral("Histórico de Vazamento");
    leaks.columns = {
        {QStringLiteral("Data do Evento"), 100, Kind::Date},
        {QStringLiteral("Local do Vazamento"), 140, Kind::Text, ui::codeLabels(f->locations)},
        {f->tankLabel, 90},
        {QStringLiteral("Nº Compartimento"), 90},
        {f->pumpLabel, 90},
        {QStringLiteral("Produto Vazado"), 150},
        {QStringLiteral("Ação Decorrente"), 120},
        {QStringLiteral("Situação da Ação"), 110},
    };
    leaks.query = [f](const ui::Session& s, const QStringList&) {
        return ui::Query{
            QStringLiteral(
                "Select AVAZMN,ILOCAL,Case When NTANQU = 0 And ILOCAL = 'T' Then ? When NTANQU = 0"
                " Then '' Else NTANQU End,Case When NCOMPR = 0 Then '' Else NCOMPR End,"
                "Case When NBOMBA = 0 And ILOCAL = 'B' Then ? When NBOMBA = 0 Then '' Else NBOMBA"
                " End,dicc.DCOMBS,DACAO,DACAOSITCA From TB_POSTOVAZMN tbpv, DICNRCOMBS dicc"
                " Where NMUNCP = ? And NSEQNC = ? And ITANQU = ? And tbpv.NCOMBS = dicc.NCOMBS"
                " Order By AVAZMN, ILOCAL, NTANQU, NCOMPR, NBOMBA"),
            {kUnidentified, kUnidentified, s.nmuncp, s.nseqnc, f->itanqu}};
    };
    leaks.insertOperation = kIncluir;
    leaks.alterOperation = kAlterar;
    leaks.deleteQuestion = QStringLiteral("Deseja excluir o item selecionado?");
    leaks.cascade = [f](store::Database& db, const ui::Session& s, const ui::ListSelection& rows) {
        store::deleteRow(db, "TB_POSTOVAZMN", leakKey(s, *f, rows.main));
    };
    def.levels = {leaks};
    def.maintenance = [f](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new LeakMaintenance(host, *f);
    };
    return def;
}

LeakMaintenance::LeakMaintenance(ui::ScreenHost& host, const LeakFamily& family, QWidget* parent)
    : ui::MaintenanceScreen(host, family.listName,
                            {{kIncluir, 0, true, true}, {kAlterar, 0, false, true}}, parent)
    , m_family(family)
    , m_fields("TB_POSTOVAZMN", this) {
    setObjectName(family.maintenanceName);
    setWindowTitle(family.caption);

    auto* frame = new QGroupBox(QStringLiteral("Histórico de Vazamento"), this);
    frame->setObjectName(QStringLiteral("fraVazmn"));
    // Every field but the two of the action sits in a box of its own, which freezes it.
    ui::keyBox(QStringLiteral("picAVAZMN"), ui::lineEdit(QStringLiteral("mskAVAZMN"), frame),
               frame);
    for (const char* name : {"cmbILOCAL", "cmbNTANQU", "cmbNCOMPR", "cmbNBOMBA", "cmbNCOMBS"})
        ui::keyBox(QStringLiteral("pic") + QString::fromLatin1(name).mid(3),
                   ui::comboBox(QString::fromLatin1(name), frame), frame);
    ui::keyBox(QStringLiteral("picDLOCAL"), ui::lineEdit(QStringLiteral("txtDLOCAL"), frame),
               frame);

    m_fields.add({.name = QStringLiteral("mskAVAZMN"),
                  .label = QStringLiteral("Data"),
                  .kind = FieldKind::Date,
                  .column = "AVAZMN",
                  .leave =
                      [this] {
                          return checkDate(
                              m_fields.edit(QStringLiteral("mskAVAZMN")),
                              {QStringLiteral("Preenchimento Obrigatório da Data"),
                               QStringLiteral("Preenchimento Incorreto da Data"),
                               QStringLiteral("Data do Vazamento não deve ser maior que a Data "
                                              "Atual.")});
                      }},
                 frame);
    m_fields.add({.name = QStringLiteral("cmbILOCAL"),
                  .label = QStringLiteral("Local"),
                  .kind = FieldKind::Codes,
                  .column = "ILOCAL",
                  .codes = family.locations},
                 frame);
    m_fields.add({.name = QStringLiteral("cmbNTANQU"),
                  .label = family.tankLabel,
                  .kind = FieldKind::Dictionary,
                  .column = "NTANQU"},
                 frame);
    m_fields.add({.name = QStringLiteral("cmbNCOMPR"),
                  .label = QStringLiteral("Nº Compartimento"),
                  .kind = FieldKind::Dictionary,
                  .column = "NCOMPR"},
                 frame);
    m_fields.add({.name = QStringLiteral("cmbNBOMBA"),
                  .label = family.pumpLabel,
                  .kind = FieldKind::Dictionary,
                  .column = "NBOMBA"},
                 frame);
    m_fields.add({.name = QStringLiteral("txtDLOCAL"),
                  .label = QStringLiteral("Outros Equipamentos"),
                  .column = "DLOCAL",
                  .length = 30},
                 frame);
    m_fields.add({.name = QStringLiteral("cmbNCOMBS"),
                  .label = QStringLiteral("Produto Vazado"),
                  .kind = FieldKind::Dictionary,
                  .column = "NCOMBS"},
                 frame);
    m_fields.add({.name = QStringLiteral("cmbDOBSRV"),
                  .label = QStringLiteral("Ação Decorrente"),
                  .kind = FieldKind::Codes,
                  .column = "DACAO",
                  .codes = "DACAO"},
                 frame);
    m_fields.add({.name = QStringLiteral("cmbDACAOSITCA"),
                  .label = QStringLiteral("Situação da Ação"),
                  .kind = FieldKind::Codes,
                  .column = "DACAOSITCA"},
                 frame);
    m_fields.edit(QStringLiteral("txtDLOCAL"))->setAlignment(Qt::AlignCenter);
    m_fields.edit(QStringLiteral("txtDLOCAL"))->setMinimumWidth(260);
    m_fields.edit(QStringLiteral("mskAVAZMN"))->setMaximumWidth(100);
    for (const char* name : {"cmbILOCAL", "cmbNCOMBS", "cmbDOBSRV", "cmbDACAOSITCA"})
        combo(name)->setMinimumWidth(220);

    auto* grid = new QGridLayout(frame);
    placeColumn(m_fields, grid, 0, 0,
                {QStringLiteral("mskAVAZMN"), QStringLiteral("cmbILOCAL"),
                 QStringLiteral("cmbNTANQU"), QStringLiteral("cmbNCOMPR"),
                 QStringLiteral("cmbNBOMBA"), QStringLiteral("txtDLOCAL"),
                 QStringLiteral("cmbNCOMBS"), QStringLiteral("cmbDOBSRV"),
                 QStringLiteral("cmbDACAOSITCA")});
    grid->setColumnStretch(2, 1);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    body()->addWidget(frame);
    body()->addStretch(1);

    connect(combo("cmbILOCAL"), &QComboBox::activated, this, &LeakMaintenance::locationChosen);
    connect(combo("cmbNTANQU"), &QComboBox::activated, this, &LeakMaintenance::tankChosen);
    connect(combo("cmbNCOMPR"), &QComboBox::activated, this, &LeakMaintenance::compartmentChosen);
    connect(combo("cmbNBOMBA"), &QComboBox::activated, this, &LeakMaintenance::pumpChosen);
}

QComboBox* LeakMaintenance::combo(const char* name) const {
    return m_fields.combo(QString::fromLatin1(name));
}

QString LeakMaintenance::location() const {
    return m_fields.value(QStringLiteral("cmbILOCAL")).toString();
}

int LeakMaintenance::number(const QString& name) const {
    return m_fields.value(name).toInt();
}

void LeakMaintenance::prepare() {
    for (const char* name : {"cmbNTANQU", "cmbNCOMPR", "cmbNBOMBA", "cmbNCOMBS"})
        combo(name)->setEnabled(false);
    m_fields.edit(QStringLiteral("txtDLOCAL"))->setEnabled(false);
}

void LeakMaintenance::loadTanks(bool unidentified) {
    ui::databaseList(database(), combo("cmbNTANQU"),
                     QStringLiteral("Select NTANQU, NTANQU From TB_POSTOTANQU Where NMUNCP = ?"
                                    " And NSEQNC = ? And ITANQU = ? Order By NTANQU"),
                     {session().nmuncp, session().nseqnc, m_family.itanqu});
    if (unidentified)
        combo("cmbNTANQU")->addItem(kUnidentified, 0);
    combo("cmbNTANQU")->setCurrentIndex(-1);
}

void LeakMaintenance::loadPumps(bool unidentified) {
    // A pump with no link to a compartment cannot be chosen.
    ui::databaseList(database(), combo("cmbNBOMBA"),
                     QStringLiteral("Select Distinct NBOMBA, NBOMBA From TB_POSTOBOMBATANQU"
                                    " Where NMUNCP = ? And NSEQNC = ? And ITANQU = ?"
                                    " Order By NBOMBA"),
                     {session().nmuncp, session().nseqnc, m_family.itanqu});
    if (unidentified)
        combo("cmbNBOMBA")->addItem(kUnidentified, 0);
    combo("cmbNBOMBA")->setCurrentIndex(-1);
}

void LeakMaintenance::loadProducts(const QString& sql, const QVariantList& values) {
    ui::databaseList(database(), combo("cmbNCOMBS"), sql, values);
    combo("cmbNCOMBS")->setEnabled(true);
}

void LeakMaintenance::loadPumpProducts() {
    const QVariant pump = m_fields.value(QStringLiteral("cmbNBOMBA"));
    if (pump.isNull())
        return;
    if (pump.toInt() == 0) {
        loadProducts(kAllFuels);
        return;
    }
    QString sql = QStringLiteral(
        "Select Distinct pt.NCOMBS, c.DCOMBS From TB_POSTOBOMBATANQU p,TB_POSTOTANQUCOMPR pt,"
        " DICNRCOMBS c Where p.NMUNCP = ? And p.NSEQNC = ? And p.ITANQU = ?"
        " And p.NMUNCP = pt.NMUNCP And p.NSEQNC = pt.NSEQNC And p.ITANQU = pt.ITANQU"
        " And pt.NTANQU = p.NTANQU And pt.NCOMPR = p.NCOMPR And pt.NCOMBS = c.NCOMBS"
        " And p.NBOMBA = ?");
    if (m_family.pumpFuelsFiltered)
        sql += QStringLiteral(" And c.NCOMBS >= 100 And c.NCOMBS <> 109 And c.NCOMBS <> 119"
                              " And c.NCOMBS <> 129 And c.NCOMBS <> 132");
    sql += QStringLiteral(" Order By pt.NCOMBS");
    loadProducts(sql, {session().nmuncp, session().nseqnc, m_family.itanqu, pump});
}

void LeakMaintenance::locationChosen() {
    for (const char* name : {"cmbNTANQU", "cmbNCOMPR", "cmbNBOMBA", "cmbNCOMBS"}) {
        combo(name)->clear();
        combo(name)->setEnabled(false);
    }
    QLineEdit* other = m_fields.edit(QStringLiteral("txtDLOCAL"));
    other->clear();
    other->setEnabled(false);

    const QString code = location();
    if (code == QLatin1String("T") || code == QLatin1String("R") || code == QLatin1String("V") ||
        code == QLatin1String("C")) {
        loadTanks(code == QLatin1String("T"));
        combo("cmbNTANQU")->setEnabled(true);
        combo("cmbNCOMPR")->setEnabled(true);
        loadProducts(kFilteredFuels);
    } else if (code == QLatin1String("B") || code == QLatin1String("F") ||
               code == QLatin1String("L")) {
        loadPumps(code == QLatin1String("B"));
        combo("cmbNBOMBA")->setEnabled(true);
        if (code == QLatin1String("L")) {
            combo("cmbNTANQU")->setEnabled(true);
            combo("cmbNCOMPR")->setEnabled(true);
        }
    } else if (code == QLatin1String("O")) {
        other->setEnabled(true);
        loadProducts(kAllFuels);
    }
}

void LeakMaintenance::tankChosen() {
    ui::databaseList(
        database(), combo("cmbNCOMPR"),
        QStringLiteral("Select NCOMPR, NCOMPR From TB_POSTOTANQUCOMPR Where NMUNCP = ?"
                       " And NSEQNC = ? And ITANQU = ? And NTANQU = ?"
                       " Order By NCOMPR"),
        {session().nmuncp, session().nseqnc, m_family.itanqu, number(QStringLiteral("cmbNTANQU"))});
}

void LeakMaintenance::compartmentChosen() {
    const QVariant fuel =
        compartmentFuel(database(), session(), m_family.itanqu, number(QStringLiteral("cmbNTANQU")),
                        number(QStringLiteral("cmbNCOMPR")));
    if (fuel.isValid())
        ui::chooseCode(combo("cmbNCOMBS"), fuel);
}

void LeakMaintenance::pumpChosen() {
    loadPumpProducts();
    if (location() != QLatin1String("L"))
        return;
    // A line runs from the pump to the tanks it draws from.
    combo("cmbNCOMPR")->clear();
    ui::databaseList(
        database(), combo("cmbNTANQU"),
        QStringLiteral("Select Distinct p.NTANQU, p.NTANQU From TB_POSTOBOMBATANQU p,"
                       "TB_POSTOTANQUCOMPR pt Where p.NMUNCP = ? And p.NSEQNC = ? And p.ITANQU = ?"
                       " And p.NBOMBA = ? And pt.NMUNCP = p.NMUNCP And pt.NSEQNC = p.NSEQNC"
                       " And pt.ITANQU = p.ITANQU And pt.NTANQU = p.NTANQU"
                       " And pt.NCOMPR = p.NCOMPR Order By p.NTANQU"),
        {session().nmuncp, session().nseqnc, m_family.itanqu,
         m_fields.value(QStringLiteral("cmbNBOMBA"))});
}

void LeakMaintenance::showStored(const char* name, const QVariant& code, const QString& caption) {
    QComboBox* box = combo(name);
    if (code.isNull())
        return;
    if (box->findData(code) < 0)
        box->addItem(caption, code);
    ui::chooseCode(box, code);
}

void LeakMaintenance::copyFromList(const ui::ListSelection& rows) {
    if (operation().insert)
        return;
    m_oldKey = leakKey(session(), m_family, rows.main);
    const auto stored = store::readRow(database(), "TB_POSTOVAZMN", m_oldKey);
    if (!stored)
        return;
    const store::Row& row = *stored;
    m_fields.setValue(QStringLiteral("mskAVAZMN"), row.value(QStringLiteral("AVAZMN")));
    m_fields.setValue(QStringLiteral("cmbILOCAL"), row.value(QStringLiteral("ILOCAL")));
    locationChosen();
    const QString code = location();
    const QVariant tank = row.value(QStringLiteral("NTANQU"));
    const QVariant pump = row.value(QStringLiteral("NBOMBA"));
    if (usesPump(code)) {
        showStored("cmbNBOMBA", pump,
                   pump.toInt() == 0 ? kUnidentified : QString::number(pump.toInt()));
        pumpChosen();
    }
    if (usesTank(code)) {
        showStored("cmbNTANQU", tank,
                   tank.toInt() == 0 ? kUnidentified : QString::number(tank.toInt()));
        tankChosen();
        const QVariant compartment = row.value(QStringLiteral("NCOMPR"));
        if (compartment.toInt() != 0)
            showStored("cmbNCOMPR", compartment, QString::number(compartment.toInt()));
    }
    const QVariant fuel = row.value(QStringLiteral("NCOMBS"));
    if (combo("cmbNCOMBS")->count() == 0)
        loadProducts(kAllFuels);
    showStored("cmbNCOMBS", fuel,
               database()
                   .scalar(QStringLiteral("Select DCOMBS From DICNRCOMBS Where NCOMBS = ?"), {fuel})
                   .toString());
    m_fields.load({{QStringLiteral("DLOCAL"), row.value(QStringLiteral("DLOCAL"))},
                   {QStringLiteral("DACAO"), row.value(QStringLiteral("DACAO"))},
                   {QStringLiteral("DACAOSITCA"), row.value(QStringLiteral("DACAOSITCA"))}});
}

QWidget* LeakMaintenance::arrangePanels() {
    if (operation().insert)
        return m_fields.widget(QStringLiteral("mskAVAZMN"));
    // The date and the location are the row's own; of the rest, a change writes back only what
    // the location lets it, and what it does not write stays locked.
    const QString code = location();
    QStringList locked = {QStringLiteral("mskAVAZMN"), QStringLiteral("cmbILOCAL")};
    QWidget* first = m_fields.widget(QStringLiteral("cmbDOBSRV"));
    if (code == QLatin1String("T")) {
        locked << QStringLiteral("cmbNTANQU") << QStringLiteral("cmbNBOMBA");
        first = m_fields.widget(QStringLiteral("cmbNCOMPR"));
    } else if (code == QLatin1String("F")) {
        locked << QStringLiteral("cmbNTANQU") << QStringLiteral("cmbNCOMPR")
               << QStringLiteral("cmbNCOMBS");
        first = m_fields.widget(QStringLiteral("cmbNBOMBA"));
    } else if (code == QLatin1String("O")) {
        locked << QStringLiteral("cmbNTANQU") << QStringLiteral("cmbNCOMPR")
               << QStringLiteral("cmbNBOMBA");
        first = m_fields.widget(QStringLiteral("txtDLOCAL"));
    } else {
        locked << QStringLiteral("cmbNTANQU") << QStringLiteral("cmbNCOMPR")
               << QStringLiteral("cmbNBOMBA") << QStringLiteral("cmbNCOMBS");
    }
    for (const QString& name : locked)
        m_fields.widget(name)->parentWidget()->setEnabled(false);
    return first;
}

QString LeakMaintenance::newKey() const {
    return m_fields.edit(QStringLiteral("mskAVAZMN"))->text();
}

QList<QWidget*> LeakMaintenance::snapshotFields() const {
    return m_fields.shownWidgets();
}

ui::Check LeakMaintenance::leaveCheck(QWidget* field) {
    return m_fields.leave(field);
}

bool LeakMaintenance::taken(store::Row where) const {
    const store::Row key = session().keyRow();
    for (auto it = key.cbegin(); it != key.cend(); ++it)
        where.insert(it.key(), it.value());
    where.insert(QStringLiteral("ITANQU"), m_family.itanqu);
    where.insert(QStringLiteral("AVAZMN"), m_fields.value(QStringLiteral("mskAVAZMN")));
    return store::rowExists(database(), "TB_POSTOVAZMN", where);
}

ui::Check LeakMaintenance::checkLocation() {
    const QString code = location();
    const bool insert = operation().insert;
    QWidget* tank = m_fields.widget(QStringLiteral("cmbNTANQU"));
    QWidget* compartment = m_fields.widget(QStringLiteral("cmbNCOMPR"));
    QWidget* pump = m_fields.widget(QStringLiteral("cmbNBOMBA"));
    const auto empty = [this](const QString& name) { return m_fields.isEmpty(name); };
    const QString kTankNo = QStringLiteral("NTANQU");
    const QString kCompartmentNo = QStringLiteral("NCOMPR");
    const QString kPumpNo = QStringLiteral("NBOMBA");
    const QString kPlace = QStringLiteral("ILOCAL");
    const int ntanqu = number(QStringLiteral("cmbNTANQU"));
    const int ncompr = number(QStringLiteral("cmbNCOMPR"));
    const int nbomba = number(QStringLiteral("cmbNBOMBA"));
    const QString compartmentRequired =
        QStringLiteral("Preenchimento Obrigatório do Nº do Compartimento.");

    if (code == QLatin1String("T")) {
        if (empty(QStringLiteral("cmbNTANQU")))
            return ui::Refusal{tank, m_family.tankRequired};
        if (!m_family.tankFuelRequired.isEmpty() && empty(QStringLiteral("cmbNCOMBS")))
            return ui::Refusal{m_fields.widget(QStringLiteral("cmbNCOMBS")),
                               m_family.tankFuelRequired};
        if (insert &&
            taken({{kPlace, code}, {kTankNo, ntanqu}, {kCompartmentNo, ncompr}, {kPumpNo, 0}}))
            return ui::Refusal{tank, m_family.tankTaken};
    } else if (code == QLatin1String("B")) {
        if (empty(QStringLiteral("cmbNBOMBA")))
            // The title of this one message has always been spelt so.
            return ui::Refusal{pump, m_family.pumpRequired, ui::Icon::Critical,
                               QStringLiteral("VOË")};
        store::Row where = {{kTankNo, 0}, {kCompartmentNo, 0}, {kPumpNo, nbomba}};
        if (m_family.pumpTakenByLocation)
            where.insert(kPlace, code);
        if (insert && taken(where))
            return ui::Refusal{pump, QStringLiteral("Já existe Nº de Bomba cadastrado.")};
    } else if (code == QLatin1String("L")) {
        if (empty(QStringLiteral("cmbNTANQU")))
            return ui::Refusal{tank, m_family.tankRequired};
        if (empty(QStringLiteral("cmbNCOMPR")))
            return ui::Refusal{compartment, compartmentRequired};
        if (empty(QStringLiteral("cmbNBOMBA")))
            return ui::Refusal{pump, m_family.pumpRequired};
        if (insert &&
            taken({{kPlace, code}, {kTankNo, ntanqu}, {kCompartmentNo, ncompr}, {kPumpNo, nbomba}}))
            return ui::Refusal{tank, m_family.lineTaken};
    } else if (code == QLatin1String("R") || code == QLatin1String("V") ||
               code == QLatin1String("C")) {
        if (empty(QStringLiteral("cmbNTANQU")))
            return ui::Refusal{tank, m_family.tankRequired};
        if (empty(QStringLiteral("cmbNCOMPR")))
            return ui::Refusal{compartment, compartmentRequired};
        if (insert && code != QLatin1String("C") &&
            taken({{kPlace, code}, {kTankNo, ntanqu}, {kCompartmentNo, ncompr}, {kPumpNo, 0}}))
            return ui::Refusal{tank, m_family.ventTaken};
    } else if (code == QLatin1String("F")) {
        if (empty(QStringLiteral("cmbNBOMBA")))
            return ui::Refusal{pump, m_family.pumpRequired};
        if (insert && taken({{kPlace, code}, {kTankNo, 0}, {kCompartmentNo, 0}, {kPumpNo, nbomba}}))
            return ui::Refusal{
                pump, QStringLiteral("Já existe Nº de Unidade de Abastecimento cadastrado.")};
    } else if (code == QLatin1String("O")) {
        QWidget* other = m_fields.widget(QStringLiteral("txtDLOCAL"));
        if (insert) {
            QSqlQuery rows = database().run(
                QStringLiteral("Select DLOCAL From TB_POSTOVAZMN Where NMUNCP = ? And NSEQNC = ?"
                               " And ITANQU = ? And AVAZMN = ? And ILOCAL = ?"),
                {session().nmuncp, session().nseqnc, m_family.itanqu,
                 m_fields.value(QStringLiteral("mskAVAZMN")), code});
            const QString typed = m_fields.edit(QStringLiteral("txtDLOCAL"))->text();
            while (rows.next()) {
                if (rows.value(0).toString() == typed)
                    return ui::Refusal{
                        other, QStringLiteral("Já existe Outros Equipamentos cadastrados para "
                                              "esta data.")};
            }
        }
        if (empty(QStringLiteral("txtDLOCAL")))
            return ui::Refusal{
                other, QStringLiteral("Preenchimento Obrigatório do campo Outros Equipamentos.")};
    }
    return {};
}

ui::Check LeakMaintenance::checkInstallation() {
    const QString code = location();
    const QDate leak = ui::dateOf(m_fields.edit(QStringLiteral("mskAVAZMN")));
    QWidget* date = m_fields.widget(QStringLiteral("mskAVAZMN"));
    const auto before = [&](const QVariant& installed) {
        const QDate day = QDate::fromString(installed.toString().left(10), Qt::ISODate);
        return day.isValid() && leak < day;
    };
    if (usesTank(code) && code != QLatin1String("L")) {
        const int ntanqu = number(QStringLiteral("cmbNTANQU"));
        if (ntanqu == 0)
            return {};
        // Underground, the first tank of that number decides, whatever its register.
        const QVariant installed =
            m_family.tankDateByRegister
                ? database().scalar(QStringLiteral("Select AINSTL From TB_POSTOTANQU Where NMUNCP"
                                                   " = ? And NSEQNC = ? And ITANQU = ?"
                                                   " And NTANQU = ?"),
                                    {session().nmuncp, session().nseqnc, m_family.itanqu, ntanqu})
                : database().scalar(QStringLiteral("Select AINSTL From TB_POSTOTANQU Where ITANQU"
                                                   " = ? And NTANQU = ? Order By rowid Limit 1"),
                                    {m_family.itanqu, ntanqu});
        if (before(installed))
            return ui::Refusal{date, m_family.tankTooOld};
    } else if (usesPump(code)) {
        const int nbomba = number(QStringLiteral("cmbNBOMBA"));
        // Aboveground, the first pump of that number decides, whatever its register.
        const QVariant installed =
            m_family.pumpDateByRegister
                ? database().scalar(QStringLiteral("Select AINSTL From TB_POSTOBOMBA Where NMUNCP"
                                                   " = ? And NSEQNC = ? And ITANQU = ?"
                                                   " And NBOMBA = ?"),
                                    {session().nmuncp, session().nseqnc, m_family.itanqu, nbomba})
                : database().scalar(QStringLiteral("Select AINSTL From TB_POSTOBOMBA Where ITANQU"
                                                   " = ? And NBOMBA = ? Order By rowid Limit 1"),
                                    {m_family.itanqu, nbomba});
        if (nbomba != 0 && before(installed))
            return ui::Refusal{date, m_family.pumpTooOld};
    }
    return {};
}

ui::Check LeakMaintenance::validate() {
    QWidget* date = m_fields.widget(QStringLiteral("mskAVAZMN"));
    if (m_fields.isEmpty(QStringLiteral("mskAVAZMN")))
        return ui::Refusal{date, QStringLiteral("Preenchimento Obrigatório da Data")};
    // A date typed but never left is checked as leaving it would.
    if (ui::Check refused = m_fields.leave(date))
        return refused;
    if (ui::Check refused = checkLocation())
        return refused;
    if (ui::Check refused = checkInstallation())
        return refused;
    if (m_fields.isEmpty(QStringLiteral("cmbNCOMBS")))
        return ui::Refusal{m_fields.widget(QStringLiteral("cmbNCOMBS")),
                           QStringLiteral("Preenchimento Obrigatório do Produto Vazado.")};
    if (m_fields.isEmpty(QStringLiteral("cmbDOBSRV")))
        return ui::Refusal{m_fields.widget(QStringLiteral("cmbDOBSRV")),
                           QStringLiteral("Preenchimento Obrigatório da Ação Decorrente.")};
    if (m_fields.isEmpty(QStringLiteral("cmbDACAOSITCA")))
        return ui::Refusal{m_fields.widget(QStringLiteral("cmbDACAOSITCA")),
                           QStringLiteral("Preenchimento Obrigatório do Situação da Ação.")};
    return {};
}

void LeakMaintenance::write(store::Database& db) {
    const QString code = location();
    const auto numberOr0 = [this](const QString& name) { return QVariant(number(name)); };
    if (operation().insert) {
        store::Row row = session().newRow();
        row.insert(QStringLiteral("ITANQU"), m_family.itanqu);
        row.insert(m_fields.values({QStringLiteral("mskAVAZMN"), QStringLiteral("cmbILOCAL"),
                                    QStringLiteral("txtDLOCAL"), QStringLiteral("cmbNCOMBS"),
                                    QStringLiteral("cmbDOBSRV"), QStringLiteral("cmbDACAOSITCA")}));
        // "Não Identificado" and the numbers that the location does not use store 0.
        row.insert(QStringLiteral("NTANQU"), numberOr0(QStringLiteral("cmbNTANQU")));
        row.insert(QStringLiteral("NCOMPR"), numberOr0(QStringLiteral("cmbNCOMPR")));
        row.insert(QStringLiteral("NBOMBA"), numberOr0(QStringLiteral("cmbNBOMBA")));
        store::insertRow(db, "TB_POSTOVAZMN", row);
        return;
    }
    QStringList written = {QStringLiteral("cmbDOBSRV"), QStringLiteral("cmbDACAOSITCA")};
    store::Row values;
    if (code == QLatin1String("T")) {
        written << QStringLiteral("cmbNCOMBS");
        values.insert(QStringLiteral("NCOMPR"), numberOr0(QStringLiteral("cmbNCOMPR")));
    } else if (code == QLatin1String("F")) {
        values.insert(QStringLiteral("NBOMBA"), numberOr0(QStringLiteral("cmbNBOMBA")));
    } else if (code == QLatin1String("O")) {
        written << QStringLiteral("cmbNCOMBS") << QStringLiteral("txtDLOCAL");
    }
    values.insert(m_fields.values(written));
    // Scoped by the whole key of the row that was opened: another leak of the same day at the
    // same tank is never touched.
    store::updateRow(db, "TB_POSTOVAZMN", m_oldKey, values);
}

} // namespace fuel
