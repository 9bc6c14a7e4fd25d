#include "fuel/PumpMaintenance.h"

#include "fuel/PumpList.h"
#include "fuel/PumpRows.h"
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
#include <QSqlQuery>

namespace fuel {

namespace {

QList<ui::Operation> operationsOf(const PumpFamily& family) {
    return {
        {family.insertPump(), 0, true, true},
        {family.alterPump(), 0, false, true},
        {family.insertLink(), 1, true, false},
        {family.alterLink(), 1, false, true},
    };
}

// The "?" of each bound value of an insert.
QString placeholders(qsizetype count) {
    QStringList marks;
    for (qsizetype i = 0; i < count; ++i)
        marks << QStringLiteral("?");
    return marks.join(QLatin1Char(','));
}

} // namespace

PumpMaintenance::PumpMaintenance(ui::ScreenHost& host, const PumpFamily& family, QWidget* parent)
    : ui::MaintenanceScreen(host, family.listName, operationsOf(family), parent)
    , m_family(family) {
    setObjectName(family.maintenanceName);
    setWindowTitle(family.maintenanceCaption);

    // The pump.
    m_fraBomba = new QGroupBox(family.pump, this);
    m_fraBomba->setObjectName(QStringLiteral("fraBomba"));
    m_nbomba = ui::lineEdit(QStringLiteral("txtNBOMBA"), m_fraBomba);
    m_picNBOMBA = ui::keyBox(QStringLiteral("picNBOMBA"), m_nbomba, m_fraBomba);
    m_nident = ui::lineEdit(QStringLiteral("txtNIDENT"), m_fraBomba);
    m_ainstl = ui::lineEdit(QStringLiteral("mskAINSTL"), m_fraBomba);
    m_nvalvlretnc = ui::comboBox(QStringLiteral("cmbNVALVLRETNC"), m_fraBomba);
    m_nfiltro = ui::comboBox(QStringLiteral("cmbNFILTRO"), m_fraBomba);
    auto* laudo = new QGroupBox(m_fraBomba);
    m_teste = ui::comboBox(QStringLiteral("cmbitesteestnq"), laudo);
    m_atesteestnq = ui::lineEdit(QStringLiteral("mskATESTEESTNQ"), laudo);
    m_ipropr = ui::comboBox(QStringLiteral("cmbIPROPR"), m_fraBomba);
    m_report = {m_ainstl, m_teste, m_atesteestnq, m_ipropr};

    ui::digitsField(m_nbomba, 3);
    m_nbomba->setAlignment(Qt::AlignCenter);
    m_nbomba->setMaximumWidth(60);
    ui::textField(m_nident, family.identLength);
    m_nident->setAlignment(Qt::AlignCenter);
    // As wide as its longest identification.
    m_nident->setMinimumWidth(
        m_nident->fontMetrics().horizontalAdvance(QString(family.identLength, QLatin1Char('N'))) +
        16);
    ui::dateField(m_ainstl);
    m_ainstl->setMaximumWidth(100);
    ui::dateField(m_atesteestnq);
    m_atesteestnq->setMaximumWidth(100);
    ui::fixedList(m_teste, {{QStringLiteral("Realizado"), QStringLiteral("R")},
                            {QStringLiteral("Não Realizado"), QStringLiteral("NR")},
                            {QStringLiteral("Não Disponível"), QStringLiteral("ND")}});
    ui::fixedList(m_ipropr, {{QStringLiteral("Proprietário"), QStringLiteral("P")},
                             {QStringLiteral("Distribuidora"), QStringLiteral("D")},
                             {QStringLiteral("Outros"), QStringLiteral("O")}});

    auto* laudoLayout = new QHBoxLayout(laudo);
    laudoLayout->addWidget(m_teste);
    laudoLayout->addWidget(new QLabel(QStringLiteral("Data do Laudo de Integridade"), laudo));
    laudoLayout->addWidget(m_atesteestnq);
    laudoLayout->addStretch(1);
    auto* pump = new QGridLayout(m_fraBomba);
    ui::addField(pump, 0, 0, family.numberLabel, m_picNBOMBA, m_fraBomba);
    ui::addField(pump, 0, 2, family.identLabel, m_nident, m_fraBomba);
    ui::addField(pump, 0, 4, QStringLiteral("Data de Instalação"), m_ainstl, m_fraBomba);
    ui::addField(pump, 1, 0, QStringLiteral("Válvula de Retenção"), m_nvalvlretnc, m_fraBomba);
    ui::addField(pump, 1, 2, QStringLiteral("Tipo do Filtro"), m_nfiltro, m_fraBomba);
    pump->addWidget(laudo, 2, 0, 1, 6);
    ui::addField(pump, 3, 0, QStringLiteral("Proprietário"), m_ipropr, m_fraBomba);
    pump->setColumnStretch(6, 1);
    // The identification comes first in the block's tab order, the number after it.
    setTabOrder(m_nident, m_nbomba);
    setTabOrder(m_nbomba, m_ainstl);
    setTabOrder(m_ainstl, m_nvalvlretnc);
    setTabOrder(m_nvalvlretnc, m_nfiltro);
    setTabOrder(m_nfiltro, m_teste);
    setTabOrder(m_teste, m_atesteestnq);
    setTabOrder(m_atesteestnq, m_ipropr);

    // The link to a compartment.
    m_fraBombaCompar = new QGroupBox(family.pump + QStringLiteral("/Compartimento"), this);
    m_fraBombaCompar->setObjectName(QStringLiteral("fraBombaCompar"));
    m_ntanqu = ui::comboBox(QStringLiteral("cmbNTANQU"), m_fraBombaCompar);
    m_picNTANQU = ui::keyBox(QStringLiteral("picNTANQU"), m_ntanqu, m_fraBombaCompar);
    m_ncompr = ui::comboBox(QStringLiteral("cmbNCOMPR"), m_fraBombaCompar);
    m_picNCOMPR = ui::keyBox(QStringLiteral("picNCOMPR"), m_ncompr, m_fraBombaCompar);
    m_nmatrl = ui::comboBox(QStringLiteral("cmbNMATRL"), m_fraBombaCompar);
    m_ntanqu->setMinimumWidth(220);
    m_ncompr->setMinimumWidth(220);
    auto* link = new QGridLayout(m_fraBombaCompar);
    ui::addField(link, 0, 0, family.tankLabel, m_picNTANQU, m_fraBombaCompar);
    ui::addField(link, 0, 2, QStringLiteral("  Nº Compartimento /   Combustível"), m_picNCOMPR,
                 m_fraBombaCompar);
    ui::addField(link, 1, 0, QStringLiteral("Material"), m_nmatrl, m_fraBombaCompar);
    if (family.lineType) {
        auto* linha = new QGroupBox(QStringLiteral("Linha"), m_fraBombaCompar);
        m_ilinha = ui::comboBox(QStringLiteral("cmbILINHA"), linha);
        ui::fixedList(m_ilinha, {{QStringLiteral("Sucção"), QStringLiteral("S")},
                                 {QStringLiteral("Pressurizada"), QStringLiteral("P")}});
        auto* linhaLayout = new QHBoxLayout(linha);
        linhaLayout->addWidget(new QLabel(QStringLiteral("Tipo"), linha));
        linhaLayout->addWidget(m_ilinha);
        linha->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
        link->addWidget(linha, 1, 2, 1, 2);
    }
    link->setColumnStretch(4, 1);

    m_fraProp = new ui::OwnerPanel(
        host.database(), "TB_POSTOBOMBAPROPR",
        ui::OwnerPanel::Texts{family.cepRequired, QStringLiteral("Preenchimento Incorreto do CEP")},
        this);

    for (QGroupBox* frame : {m_fraBomba, m_fraBombaCompar, static_cast<QGroupBox*>(m_fraProp)})
        frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    body()->addWidget(m_fraBomba);
    body()->addWidget(m_fraBombaCompar);
    body()->addWidget(m_fraProp);
    body()->addStretch(1);

    connect(m_teste, &QComboBox::activated, this, [this] { m_report.conditionChosen(); });
    connect(m_ipropr, &QComboBox::activated, this,
            [this] { m_fraProp->followOwnerChoice(m_ipropr); });
    connect(m_ntanqu, &QComboBox::activated, this, &PumpMaintenance::tankChosen);
}

bool PumpMaintenance::onPump() const {
    return operation().level == 0;
}

bool PumpMaintenance::ownerShown() const {
    return !m_fraProp->isHidden();
}

void PumpMaintenance::prepare() {
    if (onPump()) {
        ui::databaseList(database(), m_nvalvlretnc,
                         QStringLiteral("Select NVALVLRETNC, DVALVLRETNC From DICNRVALVLRETNC"
                                        " Order By NVALVLRETNC"));
        ui::databaseList(
            database(), m_nfiltro,
            QStringLiteral("Select NFILTRO, DFILTRO From DICNRFILTRO Order By NFILTRO"));
        return;
    }
    ui::databaseList(database(), m_ntanqu,
                     QStringLiteral("Select NTANQU,NTANQU || ' - ' || NIDENT As NTANQUeNIDENT"
                                    " From TB_POSTOTANQU Where NMUNCP = ? And NSEQNC = ?"
                                    " And ITANQU = ? Order By NTANQU"),
                     {session().nmuncp, session().nseqnc, m_family.itanqu});
    // The pipes' materials, as 'T' marks the tanks'.
    ui::databaseList(database(), m_nmatrl,
                     QStringLiteral("Select NMATRL, DMATRL From DICNRMATRLTANQU"
                                    " Where IMATRLTANQULINHA = 'L' Order By NMATRL"));
}

void PumpMaintenance::loadCompartments() {
    ui::databaseList(
        database(), m_ncompr,
        QStringLiteral("Select NCOMPR,NCOMPR || ' - ' || d.DCOMBS as NCOMPRDCOMBS"
                       " From TB_POSTOTANQUCOMPR c, DICNRCOMBS d Where NMUNCP = ?"
                       " And NSEQNC = ? And ITANQU = ? And NTANQU = ?"
                       " And c.NCOMBS = d.NCOMBS Order By NCOMPR"),
        {session().nmuncp, session().nseqnc, m_family.itanqu, ui::chosenCode(m_ntanqu)});
}

void PumpMaintenance::copyFromList(const ui::ListSelection& rows) {
    m_fraProp->hide();
    m_hasLinks = !rows.detail.isEmpty();
    const QString& op = operation().name;
    if (op == m_family.insertPump())
        return;
    const QStringList& pump = rows.main;
    m_nbomba->setText(pump.value(0));
    m_nident->setText(pump.value(1));
    m_ainstl->setText(pump.value(2));
    ui::chooseText(m_nvalvlretnc, pump.value(3));
    ui::chooseText(m_nfiltro, pump.value(4));
    if (!pump.value(5).isEmpty()) {
        m_atesteestnq->setText(pump.value(5));
        ui::chooseCode(m_teste, QStringLiteral("R"));
    } else {
        const QVariant code = database().scalar(
            QStringLiteral("Select ITESTEESTNQ From TB_POSTOBOMBA Where nMuncp = ? And NSEQNC = ?"
                           " And ITANQU = ? and NBOMBA=?"),
            {session().nmuncp, session().nseqnc, m_family.itanqu, pump.value(0).toInt()});
        ui::chooseCode(m_teste, code.toString() == QLatin1String("NR") ? QStringLiteral("NR")
                                                                       : QStringLiteral("ND"));
        if (op == m_family.alterPump())
            m_atesteestnq->setEnabled(false);
    }
    ui::chooseText(m_ipropr, pump.value(6));
    if (ui::chosenCode(m_ipropr).toString() == QLatin1String("O")) {
        m_fraProp->load(database(), ownerKey(pump.value(0).toInt()));
        m_fraProp->show();
        m_fraProp->setEnabled(false);
    }
    if (op == m_family.alterLink()) {
        const QStringList& link = rows.detail;
        ui::chooseCode(m_ntanqu, leadingNumber(link.value(0)));
        loadCompartments();
        m_oldCompartment = leadingNumber(link.value(1));
        ui::chooseCode(m_ncompr, m_oldCompartment);
        ui::chooseText(m_nmatrl, link.value(2));
        if (m_ilinha)
            ui::chooseText(m_ilinha, link.value(3));
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
            return m_nbomba;
        }
        m_fraProp->setVisible(ui::chosenCode(m_ipropr).toString() == QLatin1String("O"));
        m_fraProp->setEnabled(true);
        m_picNBOMBA->setEnabled(false);
        return m_nident;
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
        return m_ntanqu;
    }
    // A link changes its compartment, never its tank.
    m_picNTANQU->setEnabled(false);
    setLinkListsEnabled(true);
    return m_nmatrl;
}

void PumpMaintenance::setLinkListsEnabled(bool enabled) {
    m_ncompr->setEnabled(enabled);
    m_nmatrl->setEnabled(enabled);
    if (m_ilinha)
        m_ilinha->setEnabled(enabled);
}

void PumpMaintenance::tankChosen() {
    loadCompartments();
    if (m_ncompr->count() == 0) {
        setLinkListsEnabled(false);
        ui::showRefusal({m_ntanqu, m_family.noCompartments});
        return;
    }
    setLinkListsEnabled(true);
}

QList<QWidget*> PumpMaintenance::snapshotFields() const {
    QList<QWidget*> fields;
    if (!m_fraBomba->isHidden())
        fields << m_nbomba << m_nident << m_ainstl << m_nvalvlretnc << m_nfiltro << m_teste
               << m_atesteestnq << m_ipropr;
    if (!m_fraBombaCompar->isHidden()) {
        fields << m_ntanqu << m_ncompr << m_nmatrl;
        if (m_ilinha)
            fields << m_ilinha;
    }
    if (ownerShown() && operation().name == m_family.alterPump())
        fields << m_fraProp->fields();
    return fields;
}

ui::Check PumpMaintenance::validate() {
    if (!onPump()) {
        if (ui::Check refused = consistirLigacao())
            return refused;
        if (operation().insert && m_hasLinks)
            return sameFuel();
        return {};
    }
    if (ui::Check refused = consistirBomba())
        return refused;
    if (ownerShown())
        return m_fraProp->validate();
    return {};
}

ui::Check PumpMaintenance::consistirBomba() {
    using ui::Refusal;
    if (m_nbomba->text().isEmpty())
        return Refusal{m_nbomba, m_family.numberRequired};
    if (m_nbomba->text().toInt() == 0)
        return Refusal{m_nbomba, m_family.numberInvalid};
    if (operation().name == m_family.insertPump() &&
        database()
            .scalar(QStringLiteral("Select * From TB_POSTOBOMBA Where NMUNCP = ? And NSEQNC = ?"
                                   " And ITANQU = ? AND NBOMBA = ?"),
                    {session().nmuncp, session().nseqnc, m_family.itanqu, m_nbomba->text().toInt()})
            .isValid())
        return Refusal{m_nbomba, m_family.numberTaken};
    if (m_nident->text().isEmpty())
        return Refusal{m_nident, QStringLiteral("Preenchimento Obrigatório da Identificação.")};
    if (ui::clipText(m_ainstl).isEmpty())
        return Refusal{m_ainstl, QStringLiteral("Preenchimento Obrigatório da Data da Instalação")};
    if (m_nvalvlretnc->currentText().isEmpty())
        return Refusal{m_nvalvlretnc,
                       QStringLiteral("Preenchimento Obrigatório da Válvula de Retenção")};
    if (m_nfiltro->currentText().isEmpty())
        return Refusal{m_nfiltro, QStringLiteral("Preenchimento Obrigatório do Tipo do Filtro")};
    if (m_teste->currentText().isEmpty())
        return Refusal{m_teste, QStringLiteral("Preenchimento Obrigatório da condição do Último "
                                               "Laudo de Integridade")};
    if (m_atesteestnq->isEnabled() && ui::clipText(m_atesteestnq).isEmpty())
        return Refusal{m_atesteestnq, QStringLiteral("Preenchimento Obrigatório da Data do Último "
                                                     "Laudo de Integridade")};
    if (m_ipropr->currentText().isEmpty())
        return Refusal{m_ipropr,
                       QStringLiteral("Preenchimento Obrigatório do Tipo do Proprietário")};
    return {};
}

ui::Check PumpMaintenance::consistirLigacao() {
    using ui::Refusal;
    if (m_ntanqu->currentText().isEmpty())
        return Refusal{m_ntanqu, QStringLiteral("Preenchimento Obrigatório do Número do Tanque")};
    if (m_ncompr->currentText().isEmpty())
        return Refusal{m_ncompr,
                       QStringLiteral("Preenchimento Obrigatório do Número do Compartimento")};
    if (operation().name == m_family.insertLink() &&
        linkExists(database(), session(), m_family.itanqu, m_nbomba->text().toInt(),
                   ui::chosenCode(m_ntanqu), ui::chosenCode(m_ncompr)))
        return Refusal{m_ncompr, QStringLiteral("Número do Compartimento já cadastrado")};
    if (m_nmatrl->currentText().isEmpty())
        return Refusal{m_nmatrl, QStringLiteral("Preenchimento Obrigatório do Material")};
    if (m_ilinha && m_ilinha->currentText().isEmpty())
        return Refusal{m_ilinha, QStringLiteral("Preenchimento Obrigatório do Tipo da Linha")};
    return {};
}

ui::Check PumpMaintenance::sameFuel() {
    // Only the fuel must agree: the line's material and type may differ between the links.
    const QVariant drawn =
        firstLinkFuel(database(), session(), m_family.itanqu, m_nbomba->text().toInt());
    const QVariant chosen = compartmentFuel(database(), session(), m_family.itanqu,
                                            ui::chosenCode(m_ntanqu), ui::chosenCode(m_ncompr));
    if (drawn.isValid() && chosen.isValid() && drawn.toInt() != chosen.toInt())
        return ui::Refusal{m_ncompr, m_family.fuelRule};
    return {};
}

ui::Check PumpMaintenance::leaveCheck(QWidget* field) {
    if (field == m_ipropr) {
        m_fraProp->followOwnerChoice(m_ipropr);
        return {};
    }
    return m_report.leaveCheck(field);
}

void PumpMaintenance::write(store::Database& db) {
    const QString& op = operation().name;
    const int nbomba = m_nbomba->text().toInt();
    if (onPump()) {
        if (op == m_family.insertPump())
            gravarBomba(db);
        else
            alterarBomba(db);
        // The pump's own owner row, and never a tank's: a change keeps every tank's owner.
        m_fraProp->remove(db, ownerKey(nbomba));
        if (ownerShown())
            m_fraProp->write(db, ownerKey(nbomba, true));
    } else if (op == m_family.insertLink()) {
        gravarLigacao(db);
    } else {
        alterarLigacao(db);
    }
}

void PumpMaintenance::gravarBomba(store::Database& db) {
    const QVariant report = ui::dateValue(m_atesteestnq);
    QString columns = QStringLiteral("NMUNCP, NSEQNC, AINFRM, ITANQU,NBOMBA,NIDENT,AINSTL,"
                                     " NVALVLRETNC,NFILTRO,");
    QVariantList values = {session().nmuncp,
                           session().nseqnc,
                           session().ainfrm.toString(Qt::ISODate),
                           m_family.itanqu,
                           m_nbomba->text().toInt(),
                           m_nident->text(),
                           ui::dateValue(m_ainstl),
                           ui::chosenCode(m_nvalvlretnc),
                           ui::chosenCode(m_nfiltro)};
    if (report.isValid()) {
        columns += QStringLiteral("ATESTEESTNQ,");
        values << report;
    }
    // The pump's corrosion protection is offered by no screen: none, until told otherwise.
    columns += QStringLiteral("SSISTMPROTC, IPROTC, DPROTC, IPROPR, ITESTEESTNQ");
    values << 0 << QVariant() << QVariant() << ui::chosenCode(m_ipropr) << ui::chosenCode(m_teste);
    db.run(QStringLiteral("Insert Into TB_POSTOBOMBA (") + columns + QStringLiteral(")Values(") +
               placeholders(values.size()) + QLatin1Char(')'),
           values);
}

void PumpMaintenance::alterarBomba(store::Database& db) {
    const QVariant valve =
        db.scalar(QStringLiteral("Select NVALVLRETNC From DICNRVALVLRETNC Where DVALVLRETNC = ?"),
                  {m_nvalvlretnc->currentText()});
    const QVariant filter =
        db.scalar(QStringLiteral("Select NFILTRO From DICNRFILTRO Where DFILTRO = ?"),
                  {m_nfiltro->currentText()});
    db.run(QStringLiteral("Update TB_POSTOBOMBA Set ITANQU = ?, NIDENT = ?, AINSTL = ?,"
                          " NVALVLRETNC = ?, NFILTRO = ?, ITESTEESTNQ = ?, SSISTMPROTC = 0,"
                          " IPROTC = Null, DPROTC = Null, ATESTEESTNQ = ?, IPROPR = ?"
                          " Where NMUNCP = ? And NSEQNC = ? And ITANQU = ? And NBOMBA = ?"),
           {m_family.itanqu, m_nident->text(), ui::dateValue(m_ainstl), valve, filter,
            ui::chosenCode(m_teste), ui::dateValue(m_atesteestnq), ui::chosenCode(m_ipropr),
            session().nmuncp, session().nseqnc, m_family.itanqu, m_nbomba->text().toInt()});
}

void PumpMaintenance::gravarLigacao(store::Database& db) {
    QString columns = QStringLiteral("NMUNCP, NSEQNC, AINFRM, ITANQU,NBOMBA,NTANQU,NCOMPR, NMATRL");
    QVariantList values = {
        session().nmuncp,         session().nseqnc,         session().ainfrm.toString(Qt::ISODate),
        m_family.itanqu,          m_nbomba->text().toInt(), ui::chosenCode(m_ntanqu),
        ui::chosenCode(m_ncompr), ui::chosenCode(m_nmatrl)};
    if (m_ilinha) {
        columns += QStringLiteral(",ILINHA");
        values << ui::chosenCode(m_ilinha);
    }
    db.run(QStringLiteral("Insert Into TB_POSTOBOMBATANQU (") + columns +
               QStringLiteral(") Values(") + placeholders(values.size()) + QLatin1Char(')'),
           values);
}

void PumpMaintenance::alterarLigacao(store::Database& db) {
    const QVariant nmatrl =
        db.scalar(QStringLiteral("Select NMATRL From DICNRMATRLTANQU Where DMATRL = ?"
                                 " And IMATRLTANQULINHA = 'L'"),
                  {m_nmatrl->currentText()});
    QString set = QStringLiteral("NMATRL = ?");
    QVariantList values = {nmatrl};
    if (m_ilinha) {
        set += QStringLiteral(", ILINHA = ?");
        values << ui::chosenCode(m_ilinha);
    }
    set += QStringLiteral(", NCOMPR = ?");
    values << ui::chosenCode(m_ncompr) << session().nmuncp << session().nseqnc << m_family.itanqu
           << m_nbomba->text().toInt() << ui::chosenCode(m_ntanqu) << m_oldCompartment;
    db.run(QStringLiteral("Update TB_POSTOBOMBATANQU Set ") + set +
               QStringLiteral(" Where NMUNCP = ? And Nseqnc = ? And ITANQU = ? And NBOMBA = ?"
                              " And NTANQU = ? And NCOMPR = ?"),
           values);
}

store::Row PumpMaintenance::ownerKey(const QVariant& nbomba, bool withDate) const {
    store::Row key = withDate ? session().newRow() : session().keyRow();
    key.insert(QStringLiteral("ITANQU"), m_family.itanqu);
    key.insert(QStringLiteral("NBOMBA"), nbomba);
    return key;
}

QString PumpMaintenance::newKey() const {
    // As the list's first column shows the row: the pump's number, the link's tank.
    return onPump() ? QString::number(m_nbomba->text().toInt()) : m_ntanqu->currentText();
}

int PumpMaintenance::childrenDue() const {
    // A new pump must draw from at least one compartment: its chain of links starts now.
    return operation().name == m_family.insertPump() ? 1 : 0;
}

bool PumpMaintenance::chainMayClose(const ui::ListSelection& rows) const {
    return !rows.detail.isEmpty();
}

} // namespace fuel
