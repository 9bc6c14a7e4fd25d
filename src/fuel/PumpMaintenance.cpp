#include "fuel/PumpMaintenance.h"

#include "fuel/PumpList.h"
#include "fuel/PumpRows.h"
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

QList<ui::Operation> operationsOf(const PumpFamily& family) {
    return {
        {family.insertPump(), 0, true, true},
        {family.alterPump(), 0, false, true},
        {family.insertLink(), 1, true, false},
        {family.alterLink(), 1, false, true},
    };
}

QString name(const char* objectName) {
    return QString::fromLatin1(objectName);
}

} // namespace

PumpMaintenance::PumpMaintenance(ui::ScreenHost& host, const PumpFamily& family, QWidget* parent)
    : ui::MaintenanceScreen(host, family.listName, operationsOf(family), parent)
    , m_family(family)
    , m_pump("TB_POSTOBOMBA", this)
    , m_link("TB_POSTOBOMBATANQU", this) {
    setObjectName(family.maintenanceName);
    setWindowTitle(family.maintenanceCaption);
    m_fraBomba = new QGroupBox(family.pump, this);
    m_fraBomba->setObjectName(QStringLiteral("fraBomba"));
    m_fraBombaCompar = new QGroupBox(family.pump + QStringLiteral("/Compartimento"), this);
    m_fraBombaCompar->setObjectName(QStringLiteral("fraBombaCompar"));
    declarePump();
    declareLink();
    m_fraProp = new ui::OwnerPanel(
        host.database(), "TB_POSTOBOMBAPROPR",
        ui::OwnerPanel::Texts{family.cepRequired, QStringLiteral("Preenchimento Incorreto do CEP")},
        this);
    layOut();

    QComboBox* ipropr = m_pump.combo(name("cmbIPROPR"));
    connect(ipropr, &QComboBox::activated, this,
            [this, ipropr] { m_fraProp->followOwnerChoice(ipropr); });
    connect(tankList(), &QComboBox::activated, this, &PumpMaintenance::tankChosen);
}

// The pump's fields in the order of their validation.
void PumpMaintenance::declarePump() {
    const PumpFamily& f = m_family;
    QWidget* frame = m_fraBomba;
    m_pump.add({.name = "txtNBOMBA",
                .label = f.numberLabel,
                .kind = FieldKind::Number,
                .column = "NBOMBA",
                .required = f.numberRequired,
                .length = 3,
                .check = [this]() -> ui::Check {
                    QWidget* number = m_pump.widget(name("txtNBOMBA"));
                    if (m_pump.value(name("txtNBOMBA")).toInt() == 0)
                        return Refusal{number, m_family.numberInvalid};
                    if (operation().name == m_family.insertPump() &&
                        store::rowExists(database(), "TB_POSTOBOMBA", pumpKey()))
                        return Refusal{number, m_family.numberTaken};
                    return {};
                }},
               frame);
    m_pump.add({.name = "txtNIDENT",
                .label = f.identLabel,
                .column = "NIDENT",
                .required = "Preenchimento Obrigatório da Identificação.",
                .length = f.identLength},
               frame);
    m_pump.add({.name = "mskAINSTL",
                .label = "Data de Instalação",
                .kind = FieldKind::Date,
                .column = "AINSTL",
                .required = "Preenchimento Obrigatório da Data da Instalação",
                .leave = [this] { return m_report.leaveCheck(m_report.installed); }},
               frame);
    m_pump.add({.name = "cmbNVALVLRETNC",
                .label = "Válvula de Retenção",
                .kind = FieldKind::Dictionary,
                .column = "NVALVLRETNC",
                .required = "Preenchimento Obrigatório da Válvula de Retenção",
                .dictionary = "Select NVALVLRETNC, DVALVLRETNC From DICNRVALVLRETNC"
                              " Order By NVALVLRETNC"},
               frame);
    m_pump.add({.name = "cmbNFILTRO",
                .label = "Tipo do Filtro",
                .kind = FieldKind::Dictionary,
                .column = "NFILTRO",
                .required = "Preenchimento Obrigatório do Tipo do Filtro",
                .dictionary = "Select NFILTRO, DFILTRO From DICNRFILTRO Order By NFILTRO"},
               frame);
    m_laudo =
        m_report.declare(m_pump, frame, QString(), QStringLiteral("Data do Laudo de Integridade"));
    m_pump.add({.name = "cmbIPROPR",
                .label = "Proprietário",
                .kind = FieldKind::Codes,
                .column = "IPROPR",
                .required = "Preenchimento Obrigatório do Tipo do Proprietário",
                .leave = [this]() -> ui::Check {
                    m_fraProp->followOwnerChoice(m_pump.combo(name("cmbIPROPR")));
                    return {};
                }},
               frame);
    m_picNBOMBA = ui::keyBox(name("picNBOMBA"), m_pump.widget(name("txtNBOMBA")), frame);
    m_report.installed = m_pump.edit(name("mskAINSTL"));
    m_report.next = m_pump.widget(name("cmbIPROPR"));
}

// The link's fields in the order of their validation.
void PumpMaintenance::declareLink() {
    QWidget* frame = m_fraBombaCompar;
    // The tanks and their compartments are the register's own: the screen fills the two lists.
    m_link.add({.name = "cmbNTANQU",
                .label = m_family.tankLabel,
                .kind = FieldKind::Dictionary,
                .column = "NTANQU",
                .required = "Preenchimento Obrigatório do Número do Tanque"},
               frame);
    m_link.add({.name = "cmbNCOMPR",
                .label = "  Nº Compartimento /   Combustível",
                .kind = FieldKind::Dictionary,
                .column = "NCOMPR",
                .required = "Preenchimento Obrigatório do Número do Compartimento",
                .check = [this]() -> ui::Check {
                    if (operation().name == m_family.insertLink() &&
                        store::rowExists(database(), "TB_POSTOBOMBATANQU",
                                         linkKey(ui::chosenCode(compartmentList()))))
                        return Refusal{compartmentList(),
                                       QStringLiteral("Número do Compartimento já cadastrado")};
                    return {};
                }},
               frame);
    // The pipes' materials, as 'T' marks the tanks'.
    m_link.add({.name = "cmbNMATRL",
                .label = "Material",
                .kind = FieldKind::Dictionary,
                .column = "NMATRL",
                .required = "Preenchimento Obrigatório do Material",
                .dictionary = "Select NMATRL, DMATRL From DICNRMATRLTANQU"
                              " Where IMATRLTANQULINHA = 'L' Order By NMATRL"},
               frame);
    if (m_family.lineType)
        m_link.add({.name = "cmbILINHA",
                    .label = "Tipo",
                    .kind = FieldKind::Codes,
                    .column = "ILINHA",
                    .required = "Preenchimento Obrigatório do Tipo da Linha"},
                   frame);
    m_picNTANQU = ui::keyBox(name("picNTANQU"), tankList(), frame);
    m_picNCOMPR = ui::keyBox(name("picNCOMPR"), compartmentList(), frame);
}

void PumpMaintenance::layOut() {
    auto* pump = new QGridLayout(m_fraBomba);
    m_pump.place(pump, 0, 0, name("txtNBOMBA"));
    m_pump.place(pump, 0, 2, name("txtNIDENT"));
    m_pump.place(pump, 0, 4, name("mskAINSTL"));
    m_pump.place(pump, 1, 0, name("cmbNVALVLRETNC"));
    m_pump.place(pump, 1, 2, name("cmbNFILTRO"));
    pump->addWidget(m_laudo, 2, 0, 1, 6);
    m_pump.place(pump, 3, 0, name("cmbIPROPR"));
    pump->setColumnStretch(6, 1);
    QLineEdit* number = m_pump.edit(name("txtNBOMBA"));
    number->setAlignment(Qt::AlignCenter);
    number->setMaximumWidth(60);
    QLineEdit* ident = m_pump.edit(name("txtNIDENT"));
    ident->setAlignment(Qt::AlignCenter);
    // As wide as its longest identification.
    ident->setMinimumWidth(
        ident->fontMetrics().horizontalAdvance(QString(m_family.identLength, QLatin1Char('N'))) +
        16);
    m_pump.edit(name("mskAINSTL"))->setMaximumWidth(100);
    // The identification comes first in the block's tab order, the number after it.
    const QList<QWidget*> order = {ident,
                                   number,
                                   m_pump.widget(name("mskAINSTL")),
                                   m_pump.widget(name("cmbNVALVLRETNC")),
                                   m_pump.widget(name("cmbNFILTRO")),
                                   m_pump.widget(name("cmbitesteestnq")),
                                   m_pump.widget(name("mskATESTEESTNQ")),
                                   m_pump.widget(name("cmbIPROPR"))};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));

    tankList()->setMinimumWidth(220);
    compartmentList()->setMinimumWidth(220);
    auto* link = new QGridLayout(m_fraBombaCompar);
    m_link.place(link, 0, 0, name("cmbNTANQU"));
    m_link.place(link, 0, 2, name("cmbNCOMPR"));
    m_link.place(link, 1, 0, name("cmbNMATRL"));
    if (m_family.lineType) {
        auto* linha = new QGroupBox(QStringLiteral("Linha"), m_fraBombaCompar);
        auto* linhaLayout = new QHBoxLayout(linha);
        m_link.label(name("cmbILINHA"))->setParent(linha);
        m_link.widget(name("cmbILINHA"))->setParent(linha);
        linhaLayout->addWidget(m_link.label(name("cmbILINHA")));
        linhaLayout->addWidget(m_link.widget(name("cmbILINHA")));
        linha->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
        link->addWidget(linha, 1, 2, 1, 2);
    }
    link->setColumnStretch(4, 1);

    for (QGroupBox* frame : {m_fraBomba, m_fraBombaCompar, static_cast<QGroupBox*>(m_fraProp)}) {
        frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        body()->addWidget(frame);
    }
    body()->addStretch(1);
}

bool PumpMaintenance::onPump() const {
    return operation().level == 0;
}

bool PumpMaintenance::ownerShown() const {
    return !m_fraProp->isHidden();
}

QComboBox* PumpMaintenance::tankList() const {
    return m_link.combo(name("cmbNTANQU"));
}

QComboBox* PumpMaintenance::compartmentList() const {
    return m_link.combo(name("cmbNCOMPR"));
}

store::Row PumpMaintenance::pumpKey() const {
    store::Row key = session().keyRow();
    key.insert(QStringLiteral("ITANQU"), m_family.itanqu);
    key.insert(QStringLiteral("NBOMBA"), m_pump.value(name("txtNBOMBA")));
    return key;
}

store::Row PumpMaintenance::linkKey(const QVariant& ncompr) const {
    store::Row key = pumpKey();
    key.insert(QStringLiteral("NTANQU"), ui::chosenCode(tankList()));
    key.insert(QStringLiteral("NCOMPR"), ncompr);
    return key;
}

void PumpMaintenance::prepare() {
    if (onPump()) {
        m_pump.loadLists(database());
        return;
    }
    ui::databaseList(database(), tankList(),
                     QStringLiteral("Select NTANQU,NTANQU || ' - ' || NIDENT As NTANQUeNIDENT"
                                    " From TB_POSTOTANQU Where NMUNCP = ? And NSEQNC = ?"
                                    " And ITANQU = ? Order By NTANQU"),
                     {session().nmuncp, session().nseqnc, m_family.itanqu});
    m_link.loadLists(database());
}

void PumpMaintenance::loadCompartments() {
    ui::databaseList(
        database(), compartmentList(),
        QStringLiteral("Select NCOMPR,NCOMPR || ' - ' || d.DCOMBS as NCOMPRDCOMBS"
                       " From TB_POSTOTANQUCOMPR c, DICNRCOMBS d Where NMUNCP = ?"
                       " And NSEQNC = ? And ITANQU = ? And NTANQU = ?"
                       " And c.NCOMBS = d.NCOMBS Order By NCOMPR"),
        {session().nmuncp, session().nseqnc, m_family.itanqu, ui::chosenCode(tankList())});
}

void PumpMaintenance::copyFromList(const ui::ListSelection& rows) {
    m_fraProp->hide();
    m_hasLinks = !rows.detail.isEmpty();
    const QString& op = operation().name;
    if (op == m_family.insertPump())
        return;
    store::Row key = session().keyRow();
    key.insert(QStringLiteral("ITANQU"), m_family.itanqu);
    key.insert(QStringLiteral("NBOMBA"), rows.main.value(0).toInt());
    const std::optional<store::Row> pump = store::readRow(database(), "TB_POSTOBOMBA", key);
    if (!pump)
        return;
    m_pump.load(*pump);
    m_report.showStored(*pump, op == m_family.alterPump());
    if (pump->value(QStringLiteral("IPROPR")).toString() == QLatin1String("O")) {
        m_fraProp->load(database(), key);
        m_fraProp->show();
        m_fraProp->setEnabled(false);
    }
    if (op == m_family.alterLink()) {
        key.insert(QStringLiteral("NTANQU"), leadingNumber(rows.detail.value(0)));
        key.insert(QStringLiteral("NCOMPR"), leadingNumber(rows.detail.value(1)));
        const std::optional<store::Row> link =
            store::readRow(database(), "TB_POSTOBOMBATANQU", key);
        if (!link)
            return;
        m_link.setValue(name("cmbNTANQU"), link->value(QStringLiteral("NTANQU")));
        loadCompartments();
        m_link.load(*link);
        m_oldCompartment = link->value(QStringLiteral("NCOMPR"));
    }
}

QWidget* PumpMaintenance::arrangePanels() {
    const QString& op = operation().name;
    if (onPump()) {
        m_fraBomba->setEnabled(true);
        m_fraBombaCompar->hide();
        if (op == m_family.insertPump()) {
            m_fraProp->hide();
            m_picNBOMBA->setEnabled(true);
            return m_pump.widget(name("txtNBOMBA"));
        }
        m_fraProp->setVisible(m_pump.value(name("cmbIPROPR")).toString() == QLatin1String("O"));
        m_fraProp->setEnabled(true);
        m_picNBOMBA->setEnabled(false);
        return m_pump.widget(name("txtNIDENT"));
    }
    m_fraBomba->setEnabled(false);
    m_picNBOMBA->setEnabled(false);
    m_fraBombaCompar->show();
    m_fraBombaCompar->setEnabled(true);
    m_fraProp->setEnabled(false);
    if (op == m_family.insertLink()) {
        m_picNTANQU->setEnabled(true);
        // The compartment, the material and the line wait for the tank.
        setLinkListsEnabled(false);
        return tankList();
    }
    // A link changes its compartment, never its tank.
    m_picNTANQU->setEnabled(false);
    setLinkListsEnabled(true);
    return m_link.widget(name("cmbNMATRL"));
}

void PumpMaintenance::setLinkListsEnabled(bool enabled) {
    for (QWidget* list : m_link.widgets()) {
        if (list != tankList())
            list->setEnabled(enabled);
    }
}

void PumpMaintenance::tankChosen() {
    loadCompartments();
    if (compartmentList()->count() == 0) {
        setLinkListsEnabled(false);
        ui::showRefusal({tankList(), m_family.noCompartments});
        return;
    }
    setLinkListsEnabled(true);
}

QList<QWidget*> PumpMaintenance::snapshotFields() const {
    QList<QWidget*> fields;
    if (!m_fraBomba->isHidden())
        fields << m_pump.widgets();
    if (!m_fraBombaCompar->isHidden())
        fields << m_link.widgets();
    if (ownerShown() && operation().name == m_family.alterPump())
        fields << m_fraProp->fields();
    return fields;
}

ui::Check PumpMaintenance::validate() {
    if (!onPump()) {
        if (ui::Check refused = m_link.validate())
            return refused;
        if (operation().insert && m_hasLinks)
            return sameFuel();
        return {};
    }
    if (ui::Check refused = m_pump.validate())
        return refused;
    if (ownerShown())
        return m_fraProp->validate();
    return {};
}

ui::Check PumpMaintenance::sameFuel() {
    // Only the fuel must agree: the line's material and type may differ between the links.
    const QVariant nbomba = m_pump.value(name("txtNBOMBA"));
    const QVariant drawn = firstLinkFuel(database(), session(), m_family.itanqu, nbomba);
    const QVariant chosen =
        compartmentFuel(database(), session(), m_family.itanqu, ui::chosenCode(tankList()),
                        ui::chosenCode(compartmentList()));
    if (drawn.isValid() && chosen.isValid() && drawn.toInt() != chosen.toInt())
        return Refusal{compartmentList(), m_family.fuelRule};
    return {};
}

ui::Check PumpMaintenance::leaveCheck(QWidget* field) {
    if (ui::Check refused = m_pump.leave(field))
        return refused;
    return m_link.leave(field);
}

void PumpMaintenance::write(store::Database& db) {
    const QString& op = operation().name;
    if (onPump()) {
        store::Row pump = m_pump.values();
        // The pump's corrosion protection is offered by no screen: none, until told otherwise.
        pump.insert(QStringLiteral("SSISTMPROTC"), 0);
        pump.insert(QStringLiteral("IPROTC"), QVariant());
        pump.insert(QStringLiteral("DPROTC"), QVariant());
        if (op == m_family.insertPump()) {
            store::Row row = session().newRow();
            row.insert(QStringLiteral("ITANQU"), m_family.itanqu);
            row.insert(pump);
            store::insertRow(db, "TB_POSTOBOMBA", row);
        } else {
            store::updateRow(db, "TB_POSTOBOMBA", pumpKey(), pump);
        }
        // The pump's own owner row, and never a tank's: a change keeps every tank's owner.
        m_fraProp->remove(db, pumpKey());
        if (ownerShown()) {
            store::Row owner = pumpKey();
            owner.insert(session().newRow());
            m_fraProp->write(db, owner);
        }
    } else if (op == m_family.insertLink()) {
        store::Row row = session().newRow();
        row.insert(pumpKey());
        row.insert(m_link.values());
        store::insertRow(db, "TB_POSTOBOMBATANQU", row);
    } else {
        // A link changes its compartment, material and line; its tank stays.
        store::updateRow(db, "TB_POSTOBOMBATANQU", linkKey(m_oldCompartment),
                         m_link.values({name("cmbNCOMPR"), name("cmbNMATRL"), name("cmbILINHA")}));
    }
}

QString PumpMaintenance::newKey() const {
    // As the list's first column shows the row: the pump's number, the link's tank.
    return onPump() ? QString::number(m_pump.value(name("txtNBOMBA")).toInt())
                    : tankList()->currentText();
}

int PumpMaintenance::childrenDue() const {
    // A new pump must draw from at least one compartment: its chain of links starts now.
    return operation().name == m_family.insertPump() ? 1 : 0;
}

bool PumpMaintenance::chainMayClose(const ui::ListSelection& rows) const {
    return !rows.detail.isEmpty();
}

} // namespace fuel
