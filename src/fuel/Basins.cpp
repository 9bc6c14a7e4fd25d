#include "fuel/Basins.h"

#include "fuel/FuelParts.h"
#include "fuel/PumpRows.h"
#include "store/CodeLists.h"
#include "store/Database.h"
#include "ui/FieldSupport.h"
#include "ui/FormParts.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace fuel {

namespace {

using Kind = ui::GridColumn::Kind;
using ui::FieldKind;

const char* const kBasins = "TB_POSTOBACIA";
const char* const kLinks = "TB_POSTOBACIARESRV";
const QString kIncluirBacia = QStringLiteral("Incluir Bacia");
const QString kAlterarBacia = QStringLiteral("Alterar Bacia");
const QString kIncluirLigacao = QStringLiteral("Incluir Bacia Reservatório");
const QString kAlterarLigacao = QStringLiteral("Alterar Bacia Reservatório");
const QString kOutros = QStringLiteral("Outros");

store::Row linkKey(const ui::Session& s, const QVariant& nbacia, const QVariant& ntanqu) {
    store::Row key = s.keyRow();
    key.insert(QStringLiteral("NBACIA"), nbacia);
    key.insert(QStringLiteral("ITANQU"), QStringLiteral("A"));
    if (ntanqu.isValid())
        key.insert(QStringLiteral("NTANQU"), ntanqu);
    return key;
}

} // namespace

ui::ListDefinition basinList() {
    ui::ListDefinition def;
    def.name = QStringLiteral("frmBaciaContn");
    def.caption = QStringLiteral("Bacia de Contenção");
    def.noParentMessage = QStringLiteral("É Necessário Incluir uma Bacia Primeiramente");

    ui::ListLevel basins;
    basins.gridName = QStringLiteral("fgrBaciaContn");
    basins.frameTitle = QStringLiteral("Bacias de Contenção");
    basins.optionCaption = QStringLiteral("Bacia");
    basins.columns = {
        {QStringLiteral("Identificação"), 90},
        {QStringLiteral("Capacidade de Contenção (m³)"), 190},
        {QStringLiteral("Tipo de Revestimento"), 170},
        {QStringLiteral("Sistema de Drenagem"), 130, Kind::Text, ui::codeLabels("SDRENG")},
        {QStringLiteral("Destino"), 200},
    };
    basins.query = [](const ui::Session& s, const QStringList&) {
        return ui::Query{
            QStringLiteral("Select NBACIA,QCONTN,IREVST,SDRENG,DDESTN From TB_POSTOBACIA"
                           " Where NMUNCP = ? And NSEQNC = ? Order By NBACIA"),
            {s.nmuncp, s.nseqnc}};
    };
    basins.insertOperation = kIncluirBacia;
    basins.alterOperation = kAlterarBacia;
    basins.deleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado?");
    basins.cascade = [](store::Database& db, const ui::Session& s, const ui::ListSelection& rows) {
        const int nbacia = rows.main.value(0).toInt();
        store::deleteRows(db, kLinks, linkKey(s, nbacia, QVariant()));
        store::Row basin = s.keyRow();
        basin.insert(QStringLiteral("NBACIA"), nbacia);
        store::deleteRow(db, kBasins, basin);
    };

    ui::ListLevel tanks;
    tanks.gridName = QStringLiteral("fgrBaciaContnResrv");
    tanks.frameTitle = QStringLiteral("Reservatórios");
    tanks.optionCaption = QStringLiteral("Reservatório");
    tanks.columns = {{QStringLiteral("Nº Reservatório/Identificação"), 300}};
    tanks.query = [](const ui::Session& s, const QStringList& basin) {
        return ui::Query{
            QStringLiteral("Select t.NTANQU || ' - ' || t.NIDENT As NTANQUeNIDENT"
                           " From TB_POSTOTANQU t, TB_POSTOBACIARESRV b Where b.NMUNCP = ?"
                           " And b.NSEQNC = ? And b.NBACIA = ? And b.ITANQU = 'A'"
                           " And t.NMUNCP = b.NMUNCP And t.NSEQNC = b.NSEQNC"
                           " And t.ITANQU = b.ITANQU And t.NTANQU = b.NTANQU Order By t.NTANQU"),
            {s.nmuncp, s.nseqnc, basin.value(0).toInt()}};
    };
    tanks.insertOperation = kIncluirLigacao;
    tanks.alterOperation = kAlterarLigacao;
    tanks.deleteQuestion = QStringLiteral("Deseja Excluir o Item Selecionado?");
    tanks.cascade = [](store::Database& db, const ui::Session& s, const ui::ListSelection& rows) {
        store::deleteRow(
            db, kLinks,
            linkKey(s, rows.main.value(0).toInt(), leadingNumber(rows.detail.value(0))));
    };

    def.levels = {basins, tanks};
    def.maintenance = [](ui::ScreenHost& host) -> ui::MaintenanceScreen* {
        return new BasinMaintenance(host);
    };
    return def;
}

BasinMaintenance::BasinMaintenance(ui::ScreenHost& host, QWidget* parent)
    : ui::MaintenanceScreen(host, QStringLiteral("frmBaciaContn"),
                            {{kIncluirBacia, 0, true, true},
                             {kAlterarBacia, 0, false, true},
                             {kIncluirLigacao, 1, true, true},
                             {kAlterarLigacao, 1, false, true}},
                            parent)
    , m_basin(kBasins, this)
    , m_link(kLinks, this) {
    setObjectName(QStringLiteral("frmBaciaContnM"));
    setWindowTitle(QStringLiteral("Bacia de Contenção"));

    m_fraBacia = new QGroupBox(QStringLiteral("Bacia"), this);
    m_fraBacia->setObjectName(QStringLiteral("fraBacia"));
    ui::keyBox(QStringLiteral("picNBACIA"), ui::lineEdit(QStringLiteral("txtNBACIA"), m_fraBacia),
               m_fraBacia);
    m_basin.add({.name = QStringLiteral("txtNBACIA"),
                 .label = QStringLiteral("Identificação"),
                 .kind = FieldKind::Number,
                 .column = "NBACIA",
                 .required = QStringLiteral("Preenchimento Obrigatório do Número da Bacia"),
                 .check = [this]() -> ui::Check {
                     if (operation().name == kIncluirBacia &&
                         store::rowExists(database(), kBasins, basinKey()))
                         return ui::Refusal{
                             m_basin.widget(QStringLiteral("txtNBACIA")),
                             QStringLiteral(
                                 "Número de Bacia já está cadastrado, preencha com outro valor.")};
                     return {};
                 }},
                m_fraBacia);
    m_basin.add({.name = QStringLiteral("txtQCONTN"),
                 .label = QStringLiteral("Capacidade (m³)"),
                 .kind = FieldKind::Number,
                 .column = "QCONTN",
                 .required = QStringLiteral("Preenchimento Obrigatório da Capacidade de Contenção "
                                            "da Bacia em metros cúbicos")},
                m_fraBacia);
    m_basin.add({.name = QStringLiteral("cmbIREVST"),
                 .label = QStringLiteral("Tipo de Revestimento"),
                 .kind = FieldKind::Codes,
                 .column = "IREVST",
                 .required = QStringLiteral("Preenchimento Obrigatório do Tipo de Revestimento.")},
                m_fraBacia);
    // Not a column of its own: with "Outros" its text is what IREVST stores.
    m_basin.add({.name = QStringLiteral("txtIREVST"),
                 .label = QStringLiteral("Tipo de Revestimento - Outros"),
                 .required = QStringLiteral("Preenchimento Obrigatório do Revestimento - Outros."),
                 .length = 30,
                 .applies = [this] { return otherLining(); }},
                m_fraBacia);
    QWidget* drainage = m_basin.add({.name = QStringLiteral("optSDRENG"),
                                     .label = QStringLiteral("Sistema de Drenagem"),
                                     .kind = FieldKind::Choice,
                                     .column = "SDRENG"},
                                    m_fraBacia);
    m_basin.add({.name = QStringLiteral("txtDDESTN"),
                 .label = QStringLiteral("Destino"),
                 .column = "DDESTN",
                 .required = QStringLiteral(
                     "Preenchimento Obrigatório do Destino, quando há Sistema de Drenagem"),
                 .length = 50,
                 .applies = [this] { return drained(); }},
                m_fraBacia);
    m_basin.edit(QStringLiteral("txtNBACIA"))->setMaxLength(3);
    m_basin.edit(QStringLiteral("txtNBACIA"))->setMaximumWidth(60);
    m_basin.edit(QStringLiteral("txtQCONTN"))->setMaxLength(3);
    m_basin.edit(QStringLiteral("txtQCONTN"))->setMaximumWidth(60);
    m_basin.edit(QStringLiteral("txtIREVST"))->setMinimumWidth(260);
    m_basin.edit(QStringLiteral("txtDDESTN"))->setMinimumWidth(400);
    auto* basinGrid = new QGridLayout(m_fraBacia);
    placeColumn(m_basin, basinGrid, 0, 0,
                {QStringLiteral("txtNBACIA"), QStringLiteral("txtQCONTN"),
                 QStringLiteral("cmbIREVST"), QStringLiteral("txtIREVST")});
    basinGrid->addWidget(optionsLabel(QStringLiteral("Sistema de Drenagem"), drainage, m_fraBacia),
                         4, 0);
    basinGrid->addWidget(drainage, 4, 1);
    m_basin.place(basinGrid, 5, 0, QStringLiteral("txtDDESTN"));
    basinGrid->setColumnStretch(2, 1);

    m_fraResrv = new QGroupBox(QStringLiteral("Reservatório"), this);
    m_fraResrv->setObjectName(QStringLiteral("fraBaciaResrv"));
    ui::keyBox(QStringLiteral("picNTANQU"), ui::comboBox(QStringLiteral("cmbNTANQU"), m_fraResrv),
               m_fraResrv);
    m_link.add(
        {.name = QStringLiteral("cmbNTANQU"),
         .label = QStringLiteral("Nº Reservatório"),
         .kind = FieldKind::Dictionary,
         .column = "NTANQU",
         .required = QStringLiteral("Preenchimento Obrigatório do Número do Reservatório"),
         .check = [this]() -> ui::Check {
             if (operation().insert &&
                 store::rowExists(database(), kLinks,
                                  linkKey(session(), m_basin.value(QStringLiteral("txtNBACIA")),
                                          m_link.value(QStringLiteral("cmbNTANQU")))))
                 return ui::Refusal{
                     m_link.widget(QStringLiteral("cmbNTANQU")),
                     QStringLiteral("Reservatório já cadastrado, preencha com outro valor.")};
             return {};
         }},
        m_fraResrv);
    m_link.combo(QStringLiteral("cmbNTANQU"))->setMinimumWidth(260);
    auto* linkGrid = new QGridLayout(m_fraResrv);
    m_link.place(linkGrid, 0, 0, QStringLiteral("cmbNTANQU"));
    linkGrid->setColumnStretch(2, 1);

    for (QGroupBox* frame : {m_fraBacia, m_fraResrv}) {
        frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        body()->addWidget(frame);
    }
    body()->addStretch(1);

    connect(m_basin.combo(QStringLiteral("cmbIREVST")), &QComboBox::activated, this,
            &BasinMaintenance::liningChosen);
}

bool BasinMaintenance::onBasin() const {
    return operation().level == 0;
}

bool BasinMaintenance::otherLining() const {
    return m_basin.combo(QStringLiteral("cmbIREVST"))->currentText() == kOutros;
}

bool BasinMaintenance::drained() const {
    return m_basin.value(QStringLiteral("optSDRENG")).toInt() == -1;
}

void BasinMaintenance::liningChosen() {
    QLineEdit* other = m_basin.edit(QStringLiteral("txtIREVST"));
    if (!otherLining())
        other->clear();
    other->setEnabled(otherLining());
}

QVariant BasinMaintenance::lining() const {
    if (otherLining())
        return m_basin.value(QStringLiteral("txtIREVST"));
    return m_basin.value(QStringLiteral("cmbIREVST"));
}

void BasinMaintenance::showLining(const QVariant& stored) {
    if (stored.isNull())
        return;
    // A lining that is none of the list's was typed under "Outros".
    if (!store::labelOf("IREVST", stored).isEmpty()) {
        m_basin.setValue(QStringLiteral("cmbIREVST"), stored);
        return;
    }
    m_basin.setValue(QStringLiteral("cmbIREVST"), kOutros);
    m_basin.setValue(QStringLiteral("txtIREVST"), stored);
}

store::Row BasinMaintenance::basinKey() const {
    store::Row key = session().keyRow();
    key.insert(QStringLiteral("NBACIA"), m_basin.value(QStringLiteral("txtNBACIA")));
    return key;
}

void BasinMaintenance::prepare() {
    if (onBasin())
        return;
    ui::databaseList(database(), m_link.combo(QStringLiteral("cmbNTANQU")),
                     QStringLiteral("Select NTANQU, NTANQU || ' - ' || NIDENT As NTANQUeNIDENT"
                                    " From TB_POSTOTANQU Where NMUNCP = ? And NSEQNC = ?"
                                    " And ITANQU = 'A' Order By NTANQU"),
                     {session().nmuncp, session().nseqnc});
}

void BasinMaintenance::copyFromList(const ui::ListSelection& rows) {
    if (operation().name == kIncluirBacia)
        return;
    store::Row key = session().keyRow();
    key.insert(QStringLiteral("NBACIA"), rows.main.value(0).toInt());
    if (const auto stored = store::readRow(database(), kBasins, key)) {
        m_basin.load(*stored);
        showLining(stored->value(QStringLiteral("IREVST")));
    }
    if (operation().name == kAlterarLigacao) {
        m_oldLink =
            linkKey(session(), rows.main.value(0).toInt(), leadingNumber(rows.detail.value(0)));
        ui::chooseCode(m_link.combo(QStringLiteral("cmbNTANQU")),
                       m_oldLink.value(QStringLiteral("NTANQU")));
    }
}

QWidget* BasinMaintenance::arrangePanels() {
    m_fraBacia->setEnabled(onBasin());
    m_fraResrv->setVisible(!onBasin());
    liningChosen();
    if (!onBasin())
        return m_link.widget(QStringLiteral("cmbNTANQU"));
    const bool insert = operation().insert;
    m_basin.widget(QStringLiteral("txtNBACIA"))->parentWidget()->setEnabled(insert);
    return m_basin.widget(insert ? QStringLiteral("txtNBACIA") : QStringLiteral("txtQCONTN"));
}

int BasinMaintenance::childrenDue() const {
    // Once a basin is saved its tanks are asked for one after another, until the user closes
    // the chain: a basin may hold any number of them, none included.
    if (!onBasin())
        return 0;
    return database().scalar(QStringLiteral("Select Count(*) From TB_POSTOTANQU Where NMUNCP = ?"
                                            " And NSEQNC = ? And ITANQU = 'A'"),
                             {session().nmuncp, session().nseqnc})
                       .toInt() > 0
               ? 1
               : 0;
}

QString BasinMaintenance::newKey() const {
    if (onBasin())
        return m_basin.edit(QStringLiteral("txtNBACIA"))->text();
    return m_link.combo(QStringLiteral("cmbNTANQU"))->currentText();
}

QList<QWidget*> BasinMaintenance::snapshotFields() const {
    return onBasin() ? m_basin.shownWidgets() : m_link.shownWidgets();
}

ui::Check BasinMaintenance::validate() {
    return onBasin() ? m_basin.validate() : m_link.validate();
}

ui::Check BasinMaintenance::leaveCheck(QWidget* field) {
    return m_basin.leave(field);
}

void BasinMaintenance::write(store::Database& db) {
    if (!onBasin()) {
        if (operation().insert) {
            store::Row row = session().newRow();
            row.insert(QStringLiteral("NBACIA"), m_basin.value(QStringLiteral("txtNBACIA")));
            row.insert(QStringLiteral("ITANQU"), QStringLiteral("A"));
            row.insert(QStringLiteral("NTANQU"), m_link.value(QStringLiteral("cmbNTANQU")));
            store::insertRow(db, kLinks, row);
        } else {
            store::updateRow(
                db, kLinks, m_oldLink,
                {{QStringLiteral("NTANQU"), m_link.value(QStringLiteral("cmbNTANQU"))}});
        }
        return;
    }
    store::Row values = m_basin.values(
        {QStringLiteral("txtQCONTN"), QStringLiteral("optSDRENG"), QStringLiteral("txtDDESTN")});
    values.insert(QStringLiteral("IREVST"), lining());
    if (operation().insert) {
        store::Row row = session().newRow();
        row.insert(QStringLiteral("NBACIA"), m_basin.value(QStringLiteral("txtNBACIA")));
        row.insert(values);
        store::insertRow(db, kBasins, row);
    } else {
        // Scoped to the register and the basin.
        store::updateRow(db, kBasins, basinKey(), values);
    }
}

} // namespace fuel
