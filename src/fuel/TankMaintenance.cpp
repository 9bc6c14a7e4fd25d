#include "fuel/TankMaintenance.h"

#include "fuel/TankFamily.h"
#include "fuel/TankRows.h"
#include "store/Database.h"
#include "ui/FieldSupport.h"
#include "ui/OwnerPanel.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace fuel {

namespace {

using ui::FieldKind;
using ui::Refusal;

const QString kIncluirCompartimento = QStringLiteral("Incluir Compartimento");
const QString kAlterarCompartimento = QStringLiteral("Alterar Compartimento");

} // namespace

TankMaintenance::TankMaintenance(ui::ScreenHost& host, const TankFamily& family, QWidget* parent)
    : ui::MaintenanceScreen(host, family.listName,
                            {
                                {family.incluirTanque, 0, true, true},
                                {family.alterarTanque, 0, false, true},
                                {kIncluirCompartimento, 1, true, false},
                                {kAlterarCompartimento, 1, false, true},
                            },
                            parent)
    , m_family(family)
    , m_tank("TB_POSTOTANQU", this)
    , m_compartment("TB_POSTOTANQUCOMPR", this) {
    setObjectName(m_family.maintenanceName);
    setWindowTitle(m_family.maintenanceCaption);
    m_fraTanque = new QGroupBox(m_family.tankWord, this);
    m_fraTanque->setObjectName(QStringLiteral("fraTanque"));
    m_fraCompar = new QGroupBox(QStringLiteral("Compartimento"), this);
    m_fraCompar->setObjectName(QStringLiteral("fraCompar"));
    declareTank();
    declareCompartment();
    m_fraProp =
        new ui::OwnerPanel(host.database(), "TB_POSTOTANQUPROPR", m_family.ownerTexts, this);
    layOut();

    QComboBox* ipropr = m_tank.combo(QStringLiteral("cmbIPROPR"));
    connect(ipropr, &QComboBox::activated, this,
            [this, ipropr] { m_fraProp->followOwnerChoice(ipropr); });
    if (m_family.fixedMaterials)
        connect(m_tank.combo(QStringLiteral("cmbNMATRL")), &QComboBox::activated, this,
                &TankMaintenance::materialChosen);
}

// The tank's fields in the order of their validation, which is also the order of entry.
void TankMaintenance::declareTank() {
    const TankFamily& f = m_family;
    QWidget* frame = m_fraTanque;
    const bool aboveground = f.fixedMaterials;
    m_tank.add({.name = "txtNTANQU",
                .label = "Nº",
                .kind = FieldKind::Number,
                .column = "NTANQU",
                .required = f.numberRequired,
                .length = 3,
                .check = [this]() -> ui::Check {
                    QLineEdit* number = m_tank.edit(QStringLiteral("txtNTANQU"));
                    if (number->text().toInt() == 0)
                        return Refusal{number, m_family.numberInvalid};
                    if (operation().name == m_family.incluirTanque &&
                        store::rowExists(database(), "TB_POSTOTANQU", tankKey()))
                        return Refusal{number, m_family.numberTaken};
                    return {};
                }},
               frame);
    m_tank.add({.name = "txtNIDENT",
                .label = "Identificação",
                .column = "NIDENT",
                .required = "Preenchimento Obrigatório da Identificação."},
               frame);
    m_tank.add({.name = "mskAINSTL",
                .label = "Data de Instalação",
                .kind = FieldKind::Date,
                .column = "AINSTL",
                .required = "Preenchimento Obrigatório da Data da Instalação",
                .leave = [this] { return m_report.leaveCheck(m_report.installed); }},
               frame);
    if (f.hasPosition)
        m_tank.add({.name = "cmbIPOSCA",
                    .label = "Tipo",
                    .kind = FieldKind::Codes,
                    .column = "IPOSCA",
                    .required = "Preenchimento Obrigatório do Tipo do Reservatório."},
                   frame);
    // The underground list never offers plain steel; the aboveground one has its own fixed
    // list, "Aço" or "Outros".
    m_tank.add(
        {.name = "cmbNMATRL",
         .label = f.materialLabel,
         .kind = aboveground ? FieldKind::Codes : FieldKind::Dictionary,
         .column = "NMATRL",
         .required = "Preenchimento Obrigatório do Tipo de Material",
         .codes = aboveground ? "NMATRL.AEREO" : "",
         .dictionary = "Select NMATRL, DMATRL From DICNRMATRLTANQU"
                       " Where IMATRLTANQULINHA = 'T' and dmatrl<>'Aço' Order By NMATRL",
         .leave = [this]() -> ui::Check {
             if (otherMaterial()) {
                 m_picDMATRLOUTRO->setEnabled(true);
                 m_tank.widget(QStringLiteral("txtDMATRLOUTRO"))->setFocus(Qt::OtherFocusReason);
             }
             return {};
         }},
        frame);
    if (aboveground) {
        // The column sets no width, and neither does the field.
        m_tank.add({.name = "txtDMATRLOUTRO",
                    .column = "DMATRLOUTRO",
                    .required = "Preenchimento Obrigatório do Campo Material - Outros.",
                    .applies = [this] { return otherMaterial(); }},
                   frame);
        m_picDMATRLOUTRO = ui::keyBox(QStringLiteral("picDMATRLOUTRO"),
                                      m_tank.widget(QStringLiteral("txtDMATRLOUTRO")), frame);
        m_picDMATRLOUTRO->setEnabled(false);
        m_tank.widget(QStringLiteral("txtDMATRLOUTRO"))->setMinimumWidth(200);
        m_tank.widget(QStringLiteral("txtDMATRLOUTRO"))
            ->setAccessibleName(QStringLiteral("Outros"));
    }
    if (f.hasBase)
        m_tank.add({.name = "cmbNBASE",
                    .label = "Tipo de Base",
                    .kind = FieldKind::Dictionary,
                    .column = "NBASE",
                    .required = "Preenchimento Obrigatório do Tipo da Base.",
                    .dictionary = "Select NBASE, DBASE From DICNRBASE Order By NBASE"},
                   frame);
    m_tank.add({.name = "txtQCOMPRT",
                .label = "Nº de Compartimentos",
                .kind = FieldKind::Number,
                .column = "QCOMPRT",
                .required = "Preenchimento Obrigatório da Quantidade de Compartimentos",
                .length = 2,
                .check = [this]() -> ui::Check {
                    QLineEdit* count = m_tank.edit(QStringLiteral("txtQCOMPRT"));
                    if (operation().name == m_family.alterarTanque &&
                        count->text().toInt() < m_oldCompartments)
                        return Refusal{count, m_family.countLowered};
                    return {};
                },
                .leave = [this]() -> ui::Check {
                    QLineEdit* count = m_tank.edit(QStringLiteral("txtQCOMPRT"));
                    if (count->text() == QLatin1String("0"))
                        return Refusal{
                            count, QStringLiteral("Número de Compartimentos não pode ser Zero.")};
                    return {};
                }},
               frame);
    m_laudo = m_report.declare(m_tank, frame, f.tankWord,
                               QStringLiteral("Data do Último Laudo de Integridade"));
    m_tank.add({.name = "cmbIPROPR",
                .label = "Proprietário",
                .kind = FieldKind::Codes,
                .column = "IPROPR",
                .required = "Preenchimento Obrigatório do Tipo do Proprietário",
                .leave = [this]() -> ui::Check {
                    m_fraProp->followOwnerChoice(m_tank.combo(QStringLiteral("cmbIPROPR")));
                    return {};
                }},
               frame);
    m_tank.add({.name = "cmbISITCA",
                .label = "Situação",
                .kind = FieldKind::Codes,
                .column = "ISITCA",
                .required = "Preenchimento Obrigatório da Situação do Tanque"},
               frame);
    m_picNTANQU =
        ui::keyBox(QStringLiteral("picNTANQU"), m_tank.widget(QStringLiteral("txtNTANQU")), frame);
    m_report.installed = m_tank.edit(QStringLiteral("mskAINSTL"));
    m_report.next = m_tank.widget(QStringLiteral("cmbIPROPR"));
}

void TankMaintenance::declareCompartment() {
    QWidget* frame = m_fraCompar;
    m_compartment.add({.name = "txtNCOMPR",
                       .label = "Compartimento",
                       .kind = FieldKind::Number,
                       .column = "NCOMPR",
                       .required = "Preenchimento Obrigatório do Número do Compartimento",
                       .length = 2,
                       .check = [this]() -> ui::Check {
                           if (operation().name == kIncluirCompartimento &&
                               store::rowExists(database(), "TB_POSTOTANQUCOMPR", compartmentKey()))
                               return Refusal{
                                   m_compartment.widget(QStringLiteral("txtNCOMPR")),
                                   QStringLiteral("Número do Compartimento já cadastrado")};
                           return {};
                       }},
                      frame);
    m_compartment.add({.name = "cmbNBOCACARRG",
                       .label = m_family.loadingMouthLabel,
                       .kind = FieldKind::Dictionary,
                       .column = "NBOCACARRG",
                       .required = "Preenchimento Obrigatório da Boca de Carregamento",
                       .dictionary = "Select NBOCACARRG, DBOCACARRG From DICNRBOCACARRG"
                                     " Order By NBOCACARRG"},
                      frame);
    m_compartment.add({.name = "txtQCAPCD",
                       .label = "Capacidade m³",
                       .kind = FieldKind::Number,
                       .column = "QCAPCD",
                       .required = "Preenchimento Obrigatório da Capacidade de Armazenamento",
                       .length = 3},
                      frame);
    // The bracketing is as the product list has always had it.
    m_compartment.add({.name = "cmbNCOMBS",
                       .label = "Produto Estocado",
                       .kind = FieldKind::Dictionary,
                       .column = "NCOMBS",
                       .required = "Preenchimento Obrigatório do Produto Estocado",
                       .dictionary = "Select NCOMBS, DCOMBS From DICNRCOMBS Where NCOMBS >= 100"
                                     " And NCOMBS <> 109 And NCOMBS <> 119 And NCOMBS <> 129"
                                     " And NCOMBS < 131 Or ncombs=135 Order By NCOMBS"},
                      frame);
    m_compartment.add({.name = "txtQRESPRALTRA",
                       .label = m_family.ventHeightLabel,
                       .kind = FieldKind::Number,
                       .column = "QRESPRALTRA",
                       .required = "PreenchimentoObrigatório da Altura do Respiro.",
                       .length = 3},
                      frame);
    m_compartment.add({.name = "txtQRESPRDISTCRECPT",
                       .label = m_family.ventDistanceLabel,
                       .kind = FieldKind::Decimal,
                       .column = "QRESPRDISTCRECPT",
                       .required = "Preenchimento Obrigatório da Distância do Receptor.",
                       .commaLength = 4},
                      frame);
    m_picNCOMPR = ui::keyBox(QStringLiteral("picNCOMPR"),
                             m_compartment.widget(QStringLiteral("txtNCOMPR")), frame);
}

void TankMaintenance::layOut() {
    const auto name = [](const char* n) { return QString::fromLatin1(n); };
    auto* tank = new QGridLayout(m_fraTanque);
    m_tank.place(tank, 0, 0, name("txtNTANQU"));
    m_tank.place(tank, 0, 2, name("txtNIDENT"));
    m_tank.place(tank, 0, 4, name("mskAINSTL"));
    // What the tank holds and is made of; below it, where an aboveground tank stands.
    m_tank.place(tank, 1, 0, name("txtQCOMPRT"));
    m_tank.place(tank, 1, 2, name("cmbNMATRL"));
    int row = 1;
    if (m_family.hasPosition || m_family.hasBase)
        ++row;
    if (m_family.hasPosition)
        m_tank.place(tank, row, 0, name("cmbIPOSCA"));
    if (m_picDMATRLOUTRO)
        tank->addWidget(m_picDMATRLOUTRO, 1, 4, 1, 2);
    if (m_family.hasBase)
        m_tank.place(tank, row, 2, name("cmbNBASE"));
    tank->addWidget(m_laudo, row + 1, 0, 1, 6);
    m_tank.place(tank, row + 2, 0, name("cmbIPROPR"));
    m_tank.place(tank, row + 2, 2, name("cmbISITCA"));
    tank->setColumnStretch(3, 1);
    for (const char* n : {"txtNTANQU", "txtQCOMPRT"})
        m_tank.edit(name(n))->setMaximumWidth(60);
    m_tank.edit(name("txtNTANQU"))->setAlignment(Qt::AlignCenter);
    m_tank.edit(name("txtNIDENT"))->setAlignment(Qt::AlignCenter);
    m_tank.edit(name("mskAINSTL"))->setMaximumWidth(100);
    // The tab order of the block follows the validation's order, whatever the grid's.
    const QList<QWidget*> order = m_tank.widgets();
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));

    auto* respiro = new QGroupBox(m_family.ventTitle, m_fraCompar);
    respiro->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    auto* respiroLayout = new QHBoxLayout(respiro);
    for (const char* n : {"txtQRESPRALTRA", "txtQRESPRDISTCRECPT"}) {
        QLineEdit* edit = m_compartment.edit(name(n));
        m_compartment.label(name(n))->setParent(respiro);
        edit->setParent(respiro);
        edit->setMaximumWidth(60);
        edit->setAlignment(Qt::AlignCenter);
        respiroLayout->addWidget(m_compartment.label(name(n)));
        respiroLayout->addWidget(edit);
    }
    auto* compar = new QGridLayout(m_fraCompar);
    m_compartment.place(compar, 0, 0, name("txtNCOMPR"));
    m_compartment.place(compar, 0, 2, name("cmbNBOCACARRG"));
    m_compartment.place(compar, 1, 0, name("txtQCAPCD"));
    m_compartment.place(compar, 1, 2, name("cmbNCOMBS"));
    compar->addWidget(respiro, 2, 0, 1, 4);
    compar->setColumnStretch(3, 1);
    m_compartment.edit(name("txtNCOMPR"))->setAlignment(Qt::AlignCenter);
    for (const char* n : {"txtNCOMPR", "txtQCAPCD"})
        m_compartment.edit(name(n))->setMaximumWidth(60);

    for (QGroupBox* frame : {m_fraTanque, m_fraCompar, static_cast<QGroupBox*>(m_fraProp)}) {
        frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        body()->addWidget(frame);
    }
    body()->addStretch(1);
}

bool TankMaintenance::onTank() const {
    return operation().level == 0;
}

bool TankMaintenance::otherMaterial() const {
    return m_family.fixedMaterials &&
           m_tank.value(QStringLiteral("cmbNMATRL")).toInt() == kMaterialOutros;
}

// Only "Outros" takes a described material: "Aço" freezes the description.
void TankMaintenance::materialChosen() {
    m_picDMATRLOUTRO->setEnabled(otherMaterial());
}

store::Row TankMaintenance::tankKey() const {
    return fuel::tankKey(session(), m_family.itanqu, m_tank.value(QStringLiteral("txtNTANQU")));
}

store::Row TankMaintenance::compartmentKey() const {
    store::Row key = tankKey();
    key.insert(QStringLiteral("NCOMPR"), m_compartment.value(QStringLiteral("txtNCOMPR")));
    return key;
}

void TankMaintenance::prepare() {
    if (onTank())
        m_tank.loadLists(database());
    else
        m_compartment.loadLists(database());
}

void TankMaintenance::copyFromList(const ui::ListSelection& rows) {
    m_fraProp->hide();
    const QString& op = operation().name;
    if (op == m_family.incluirTanque)
        return;
    const store::Row key = fuel::tankKey(session(), m_family.itanqu, rows.main.value(0).toInt());
    const std::optional<store::Row> tank = store::readRow(database(), "TB_POSTOTANQU", key);
    if (!tank)
        return;
    m_tank.load(*tank);
    if (m_family.fixedMaterials)
        materialChosen();
    m_report.showStored(*tank, op == m_family.alterarTanque);
    if (tank->value(QStringLiteral("IPROPR")).toString() == QLatin1String("O")) {
        m_fraProp->load(database(), key);
        m_fraProp->show();
        m_fraProp->setEnabled(false);
    }
    if (op == m_family.alterarTanque)
        m_oldCompartments = tank->value(QStringLiteral("QCOMPRT")).toInt();
    if (op == kAlterarCompartimento) {
        store::Row compartment = key;
        compartment.insert(QStringLiteral("NCOMPR"), rows.detail.value(0).toInt());
        if (const auto row = store::readRow(database(), "TB_POSTOTANQUCOMPR", compartment))
            m_compartment.load(*row);
    }
}

QWidget* TankMaintenance::arrangePanels() {
    const QString& op = operation().name;
    QWidget* number = m_tank.widget(QStringLiteral("txtNTANQU"));
    if (onTank()) {
        m_fraTanque->show();
        m_fraTanque->setEnabled(true);
        m_fraCompar->hide();
        if (op == m_family.incluirTanque) {
            m_fraProp->hide();
            m_picNTANQU->setEnabled(true);
            m_tank.edit(QStringLiteral("txtNTANQU"))->setReadOnly(false);
            return number;
        }
        m_fraProp->setVisible(m_tank.value(QStringLiteral("cmbIPROPR")).toString() ==
                              QLatin1String("O"));
        m_fraProp->setEnabled(true);
        m_tank.edit(QStringLiteral("txtNTANQU"))->setReadOnly(true);
        m_picNTANQU->setEnabled(false);
        return m_tank.widget(QStringLiteral("txtNIDENT"));
    }
    m_fraTanque->setEnabled(false);
    m_fraCompar->show();
    m_fraCompar->setEnabled(true);
    m_fraProp->setEnabled(false);
    if (op == kIncluirCompartimento) {
        m_picNCOMPR->setEnabled(true);
        return m_compartment.widget(QStringLiteral("txtNCOMPR"));
    }
    m_compartment.edit(QStringLiteral("txtNCOMPR"))->setReadOnly(true);
    m_picNCOMPR->setEnabled(false);
    return m_compartment.widget(QStringLiteral("cmbNBOCACARRG"));
}

QList<QWidget*> TankMaintenance::snapshotFields() const {
    QList<QWidget*> fields;
    if (!m_fraTanque->isHidden())
        fields << m_tank.widgets();
    if (!m_fraCompar->isHidden())
        fields << m_compartment.widgets();
    if (!m_fraProp->isHidden() && operation().name == m_family.alterarTanque)
        fields << m_fraProp->fields();
    return fields;
}

ui::Check TankMaintenance::validate() {
    if (!onTank())
        return m_compartment.validate();
    if (ui::Check refused = m_tank.validate())
        return refused;
    if (!m_fraProp->isHidden())
        return m_fraProp->validate();
    return {};
}

ui::Check TankMaintenance::leaveCheck(QWidget* field) {
    if (ui::Check refused = m_tank.leave(field))
        return refused;
    return m_compartment.leave(field);
}

store::Row TankMaintenance::tankValues() const {
    store::Row values = m_tank.values();
    if (m_family.fixedMaterials && !otherMaterial())
        values.insert(QStringLiteral("DMATRLOUTRO"), QVariant());
    return values;
}

void TankMaintenance::write(store::Database& db) {
    const QString& op = operation().name;
    if (op == m_family.incluirTanque || op == m_family.alterarTanque) {
        if (op == m_family.incluirTanque) {
            store::Row row = session().newRow();
            row.insert(QStringLiteral("ITANQU"), m_family.itanqu);
            row.insert(tankValues());
            store::insertRow(db, "TB_POSTOTANQU", row);
        } else {
            // The corrosion protection of the tank is entered on its own screen and stays.
            store::updateRow(db, "TB_POSTOTANQU", tankKey(), tankValues());
        }
        m_fraProp->remove(db, tankKey());
        if (!m_fraProp->isHidden()) {
            store::Row owner = tankKey();
            owner.insert(session().newRow());
            m_fraProp->write(db, owner);
        }
    } else if (op == kIncluirCompartimento) {
        store::Row row = session().newRow();
        row.insert(compartmentKey());
        row.insert(m_compartment.values());
        store::insertRow(db, "TB_POSTOTANQUCOMPR", row);
    } else {
        store::updateRow(db, "TB_POSTOTANQUCOMPR", compartmentKey(), m_compartment.values());
    }
}

QString TankMaintenance::newKey() const {
    return QString::number(onTank() ? m_tank.value(QStringLiteral("txtNTANQU")).toInt()
                                    : m_compartment.value(QStringLiteral("txtNCOMPR")).toInt());
}

int TankMaintenance::childrenDue() const {
    const int declared = m_tank.value(QStringLiteral("txtQCOMPRT")).toInt();
    if (operation().name == m_family.incluirTanque)
        return declared;
    if (operation().name == m_family.alterarTanque && declared > m_oldCompartments)
        return declared - m_oldCompartments;
    return 0;
}

} // namespace fuel
