#include "fuel/TankMaintenance.h"

#include "fuel/TankFamily.h"
#include "fuel/TankRows.h"
#include "rules/Filters.h"
#include "store/Database.h"
#include "ui/FieldSupport.h"
#include "ui/FormParts.h"
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
    , m_family(family) {
    setObjectName(m_family.maintenanceName);
    setWindowTitle(m_family.maintenanceCaption);

    // The tank.
    m_fraTanque = new QGroupBox(m_family.tankWord, this);
    m_fraTanque->setObjectName(QStringLiteral("fraTanque"));
    m_ntanqu = ui::lineEdit(QStringLiteral("txtNTANQU"), m_fraTanque);
    m_picNTANQU = ui::keyBox(QStringLiteral("picNTANQU"), m_ntanqu, m_fraTanque);
    m_nident = ui::lineEdit(QStringLiteral("txtNIDENT"), m_fraTanque);
    m_ainstl = ui::lineEdit(QStringLiteral("mskAINSTL"), m_fraTanque);
    m_nmatrl = ui::comboBox(QStringLiteral("cmbNMATRL"), m_fraTanque);
    m_qcomprt = ui::lineEdit(QStringLiteral("txtQCOMPRT"), m_fraTanque);
    auto* laudo = new QGroupBox(m_family.tankWord, m_fraTanque);
    m_teste = ui::comboBox(QStringLiteral("cmbitesteestnq"), laudo);
    m_atesteestnq = ui::lineEdit(QStringLiteral("mskATESTEESTNQ"), laudo);
    m_ipropr = ui::comboBox(QStringLiteral("cmbIPROPR"), m_fraTanque);
    m_isitca = ui::comboBox(QStringLiteral("cmbISITCA"), m_fraTanque);
    m_report = {m_ainstl, m_teste, m_atesteestnq, m_ipropr};

    ui::digitsField(m_ntanqu, 3);
    m_ntanqu->setAlignment(Qt::AlignCenter);
    m_ntanqu->setMaximumWidth(60);
    ui::textField(m_nident, 30);
    m_nident->setAlignment(Qt::AlignCenter);
    ui::dateField(m_ainstl);
    ui::digitsField(m_qcomprt, 2);
    m_qcomprt->setMaximumWidth(60);
    ui::dateField(m_atesteestnq);
    ui::fixedList(m_teste, {{QStringLiteral("Realizado"), QStringLiteral("R")},
                            {QStringLiteral("Não Realizado"), QStringLiteral("NR")},
                            {QStringLiteral("Não Disponível"), QStringLiteral("ND")}});
    ui::fixedList(m_ipropr, {{QStringLiteral("Proprietário"), QStringLiteral("P")},
                             {QStringLiteral("Distribuidora"), QStringLiteral("D")},
                             {QStringLiteral("Outros"), QStringLiteral("O")}});
    ui::fixedList(m_isitca, {{QStringLiteral("Em Uso"), QStringLiteral("A")},
                             {QStringLiteral("Desativado"), QStringLiteral("D")}});

    auto* laudoLayout = new QHBoxLayout(laudo);
    laudoLayout->addWidget(m_teste);
    laudoLayout->addWidget(
        new QLabel(QStringLiteral("Data do Último Laudo de Integridade"), laudo));
    laudoLayout->addWidget(m_atesteestnq);
    auto* tank = new QGridLayout(m_fraTanque);
    ui::addField(tank, 0, 0, QStringLiteral("Nº"), m_picNTANQU, m_fraTanque);
    ui::addField(tank, 0, 2, QStringLiteral("Identificação"), m_nident, m_fraTanque);
    ui::addField(tank, 0, 4, QStringLiteral("Data de Instalação"), m_ainstl, m_fraTanque);
    // What the tank holds and is made of; below it, where an aboveground tank stands.
    ui::addField(tank, 1, 0, QStringLiteral("Nº de Compartimentos"), m_qcomprt, m_fraTanque);
    ui::addField(tank, 1, 2, m_family.materialLabel, m_nmatrl, m_fraTanque);
    // The tab order of the block follows the validation's order, whatever the grid's.
    QList<QWidget*> tabOrder = {m_ntanqu, m_nident, m_ainstl};
    int row = 1;
    if (m_family.hasPosition || m_family.hasBase)
        ++row;
    if (m_family.hasPosition) {
        m_iposca = ui::comboBox(QStringLiteral("cmbIPOSCA"), m_fraTanque);
        ui::fixedList(m_iposca, {{QStringLiteral("Horizontal"), QStringLiteral("H")},
                                 {QStringLiteral("Vertical"), QStringLiteral("V")}});
        ui::addField(tank, row, 0, QStringLiteral("Tipo"), m_iposca, m_fraTanque);
        tabOrder << m_iposca;
    }
    tabOrder << m_nmatrl;
    if (m_family.fixedMaterials) {
        ui::fixedList(m_nmatrl, {{QStringLiteral("Aço"), kMaterialAco},
                                 {QStringLiteral("Outros"), kMaterialOutros}});
        m_dmatrloutro = ui::lineEdit(QStringLiteral("txtDMATRLOUTRO"), m_fraTanque);
        // The column sets no width, and neither does the field.
        ui::attachText(m_dmatrloutro, ui::Case::Upper);
        m_dmatrloutro->setMinimumWidth(200);
        m_picDMATRLOUTRO = ui::keyBox(QStringLiteral("picDMATRLOUTRO"), m_dmatrloutro, m_fraTanque);
        m_picDMATRLOUTRO->setEnabled(false);
        tank->addWidget(m_picDMATRLOUTRO, 1, 4, 1, 2);
        tabOrder << m_dmatrloutro;
    }
    if (m_family.hasBase) {
        m_nbase = ui::comboBox(QStringLiteral("cmbNBASE"), m_fraTanque);
        ui::addField(tank, row, 2, QStringLiteral("Tipo de Base"), m_nbase, m_fraTanque);
        tabOrder << m_nbase;
    }
    tabOrder << m_qcomprt << m_teste << m_atesteestnq << m_ipropr << m_isitca;
    tank->addWidget(laudo, row + 1, 0, 1, 6);
    ui::addField(tank, row + 2, 0, QStringLiteral("Proprietário"), m_ipropr, m_fraTanque);
    ui::addField(tank, row + 2, 2, QStringLiteral("Situação"), m_isitca, m_fraTanque);
    tank->setColumnStretch(3, 1);
    for (qsizetype i = 1; i < tabOrder.size(); ++i)
        setTabOrder(tabOrder.at(i - 1), tabOrder.at(i));

    // The compartment.
    m_fraCompar = new QGroupBox(QStringLiteral("Compartimento"), this);
    m_fraCompar->setObjectName(QStringLiteral("fraCompar"));
    m_ncompr = ui::lineEdit(QStringLiteral("txtNCOMPR"), m_fraCompar);
    m_picNCOMPR = ui::keyBox(QStringLiteral("picNCOMPR"), m_ncompr, m_fraCompar);
    m_nbocacarrg = ui::comboBox(QStringLiteral("cmbNBOCACARRG"), m_fraCompar);
    m_qcapcd = ui::lineEdit(QStringLiteral("txtQCAPCD"), m_fraCompar);
    m_ncombs = ui::comboBox(QStringLiteral("cmbNCOMBS"), m_fraCompar);
    auto* respiro = new QGroupBox(m_family.ventTitle, m_fraCompar);
    m_qrespraltra = ui::lineEdit(QStringLiteral("txtQRESPRALTRA"), respiro);
    m_qresprdistcrecpt = ui::lineEdit(QStringLiteral("txtQRESPRDISTCRECPT"), respiro);
    ui::digitsField(m_ncompr, 2);
    m_ncompr->setAlignment(Qt::AlignCenter);
    m_ncompr->setMaximumWidth(60);
    ui::digitsField(m_qcapcd, 3);
    m_qcapcd->setMaximumWidth(60);
    m_qrespraltra->setMaximumWidth(60);
    m_qresprdistcrecpt->setMaximumWidth(60);
    respiro->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    ui::digitsField(m_qrespraltra, 3);
    m_qrespraltra->setAlignment(Qt::AlignCenter);
    ui::attachDecimal(m_qresprdistcrecpt, 4, 2);
    m_qresprdistcrecpt->setAlignment(Qt::AlignCenter);
    auto* respiroLayout = new QHBoxLayout(respiro);
    respiroLayout->addWidget(new QLabel(m_family.ventHeightLabel, respiro));
    respiroLayout->addWidget(m_qrespraltra);
    respiroLayout->addWidget(new QLabel(m_family.ventDistanceLabel, respiro));
    respiroLayout->addWidget(m_qresprdistcrecpt);
    auto* compar = new QGridLayout(m_fraCompar);
    ui::addField(compar, 0, 0, QStringLiteral("Compartimento"), m_picNCOMPR, m_fraCompar);
    ui::addField(compar, 0, 2, m_family.loadingMouthLabel, m_nbocacarrg, m_fraCompar);
    ui::addField(compar, 1, 0, QStringLiteral("Capacidade m³"), m_qcapcd, m_fraCompar);
    ui::addField(compar, 1, 2, QStringLiteral("Produto Estocado"), m_ncombs, m_fraCompar);
    compar->addWidget(respiro, 2, 0, 1, 4);
    compar->setColumnStretch(3, 1);

    m_fraProp =
        new ui::OwnerPanel(host.database(), "TB_POSTOTANQUPROPR", m_family.ownerTexts, this);

    for (QGroupBox* frame :
         {static_cast<QGroupBox*>(m_fraTanque), m_fraCompar, static_cast<QGroupBox*>(m_fraProp)})
        frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    m_ainstl->setMaximumWidth(100);
    m_atesteestnq->setMaximumWidth(100);
    laudoLayout->addStretch(1);
    body()->addWidget(m_fraTanque);
    body()->addWidget(m_fraCompar);
    body()->addWidget(m_fraProp);
    body()->addStretch(1);

    connect(m_teste, &QComboBox::activated, this, [this] { m_report.conditionChosen(); });
    connect(m_ipropr, &QComboBox::activated, this,
            [this] { m_fraProp->followOwnerChoice(m_ipropr); });
    if (m_family.fixedMaterials)
        connect(m_nmatrl, &QComboBox::activated, this, &TankMaintenance::materialChosen);
}

bool TankMaintenance::onTank() const {
    return operation().level == 0;
}

bool TankMaintenance::ownerShown() const {
    return !m_fraProp->isHidden();
}

bool TankMaintenance::otherMaterial() const {
    return m_family.fixedMaterials && ui::chosenCode(m_nmatrl).toInt() == kMaterialOutros;
}

void TankMaintenance::prepare() {
    if (onTank()) {
        // The underground list never offers plain steel; the aboveground one has its own fixed
        // list, "Aço" or "Outros".
        if (!m_family.fixedMaterials)
            ui::databaseList(database(), m_nmatrl,
                             QStringLiteral("Select NMATRL, DMATRL From DICNRMATRLTANQU"
                                            " Where IMATRLTANQULINHA = 'T' and dmatrl<>'Aço'"
                                            " Order By NMATRL"));
        if (m_family.hasBase)
            ui::databaseList(database(), m_nbase,
                             QStringLiteral("Select NBASE, DBASE From DICNRBASE Order By NBASE"));
    } else {
        ui::databaseList(database(), m_nbocacarrg,
                         QStringLiteral("Select NBOCACARRG, DBOCACARRG From DICNRBOCACARRG"
                                        " Order By NBOCACARRG"));
        // The bracketing is as the product list has always had it.
        ui::databaseList(database(), m_ncombs,
                         QStringLiteral("Select NCOMBS, DCOMBS From DICNRCOMBS Where NCOMBS >= 100"
                                        " And NCOMBS <> 109 And NCOMBS <> 119 And NCOMBS <> 129"
                                        " And NCOMBS < 131 Or ncombs=135 Order By NCOMBS"));
    }
}

void TankMaintenance::copyFromList(const ui::ListSelection& rows) {
    m_fraProp->hide();
    const QString& op = operation().name;
    if (op == m_family.incluirTanque)
        return;
    const TankFamily::Columns& at = m_family.at;
    const QStringList& tank = rows.main;
    m_ntanqu->setText(tank.value(0));
    m_nident->setText(tank.value(1));
    m_ainstl->setText(tank.value(2));
    if (m_iposca)
        ui::chooseText(m_iposca, tank.value(at.position));
    ui::chooseText(m_nmatrl, tank.value(at.material));
    if (m_family.fixedMaterials) {
        materialChosen();
        if (op == m_family.alterarTanque && otherMaterial())
            m_dmatrloutro->setText(
                database()
                    .scalar(QStringLiteral("Select DMATRLOUTRO From TB_POSTOTANQU Where NMUNCP = ?"
                                           " And NSEQNC = ? And ITANQU = ? and ntanqu=?"),
                            {session().nmuncp, session().nseqnc, m_family.itanqu, tank.value(0)})
                    .toString());
    }
    if (m_nbase)
        ui::chooseText(m_nbase, tank.value(at.base));
    m_qcomprt->setText(tank.value(at.compartments));
    ui::chooseText(m_isitca, tank.value(at.situation));
    if (!tank.value(at.report).isEmpty()) {
        m_atesteestnq->setText(tank.value(at.report));
        ui::chooseCode(m_teste, QStringLiteral("R"));
    } else {
        const QVariant code = database().scalar(
            QStringLiteral("Select ITESTEESTNQ From TB_POSTOTANQU Where nMuncp = ? And NSEQNC = ?"
                           " And ITANQU = ? and ntanqu=?"),
            {session().nmuncp, session().nseqnc, m_family.itanqu, tank.value(0)});
        ui::chooseCode(m_teste, code.toString() == QLatin1String("NR") ? QStringLiteral("NR")
                                                                       : QStringLiteral("ND"));
        if (op == m_family.alterarTanque)
            m_atesteestnq->setEnabled(false);
    }
    ui::chooseText(m_ipropr, tank.value(at.owner));
    if (ui::chosenCode(m_ipropr).toString() == QLatin1String("O")) {
        m_fraProp->load(database(), ownerKey(tank.value(0).toInt()));
        m_fraProp->show();
        m_fraProp->setEnabled(false);
    }
    if (op == m_family.alterarTanque)
        m_oldCompartments = tank.value(at.compartments).toInt();
    if (operation().name == kAlterarCompartimento) {
        const QStringList& compartment = rows.detail;
        m_ncompr->setText(compartment.value(0));
        ui::chooseText(m_nbocacarrg, compartment.value(1));
        m_qcapcd->setText(compartment.value(2));
        ui::chooseText(m_ncombs, compartment.value(3));
    }
}

QWidget* TankMaintenance::arrangePanels() {
    const QString& op = operation().name;
    if (op == m_family.incluirTanque || op == m_family.alterarTanque) {
        m_fraTanque->show();
        m_fraTanque->setEnabled(true);
        m_fraCompar->hide();
        if (op == m_family.incluirTanque) {
            m_fraProp->hide();
            m_picNTANQU->setEnabled(true);
            m_ntanqu->setReadOnly(false);
            return m_ntanqu;
        }
        m_fraProp->setVisible(ui::chosenCode(m_ipropr).toString() == QLatin1String("O"));
        m_fraProp->setEnabled(true);
        m_ntanqu->setReadOnly(true);
        m_picNTANQU->setEnabled(false);
        return m_nident;
    }
    m_fraTanque->setEnabled(false);
    m_fraCompar->show();
    m_fraCompar->setEnabled(true);
    m_fraProp->setEnabled(false);
    if (op == kIncluirCompartimento) {
        m_picNCOMPR->setEnabled(true);
        return m_ncompr;
    }
    QSqlQuery respiro = database().run(
        QStringLiteral(
            "Select QRESPRALTRA,QRESPRDISTCRECPT From TB_POSTOTANQUCOMPR Where NMUNCP = ?"
            " And NSEQNC = ? And ITANQU = ? And NTANQU = ? And NCOMPR = ?"),
        {session().nmuncp, session().nseqnc, m_family.itanqu, m_ntanqu->text(), m_ncompr->text()});
    if (respiro.next()) {
        m_qrespraltra->setText(respiro.value(0).toString());
        // Shown with the decimal comma in which it is typed.
        m_qresprdistcrecpt->setText(
            respiro.value(1).toString().replace(QLatin1Char('.'), QLatin1Char(',')));
    }
    m_ncompr->setReadOnly(true);
    m_picNCOMPR->setEnabled(false);
    return m_nbocacarrg;
}

QList<QWidget*> TankMaintenance::snapshotFields() const {
    QList<QWidget*> fields;
    if (!m_fraTanque->isHidden()) {
        fields << m_ntanqu << m_nident << m_ainstl;
        if (m_iposca)
            fields << m_iposca;
        fields << m_nmatrl;
        if (m_dmatrloutro)
            fields << m_dmatrloutro;
        if (m_nbase)
            fields << m_nbase;
        fields << m_qcomprt << m_teste << m_atesteestnq << m_ipropr << m_isitca;
    }
    if (!m_fraCompar->isHidden())
        fields << m_ncompr << m_nbocacarrg << m_qcapcd << m_ncombs << m_qrespraltra
               << m_qresprdistcrecpt;
    if (ownerShown() && operation().name == m_family.alterarTanque)
        fields << m_fraProp->fields();
    return fields;
}

ui::Check TankMaintenance::validate() {
    if (!onTank())
        return consistirCompartimento();
    if (ui::Check refused = consistirTanque())
        return refused;
    if (ownerShown())
        return m_fraProp->validate();
    return {};
}

ui::Check TankMaintenance::consistirTanque() {
    using ui::Refusal;
    if (m_ntanqu->text().isEmpty())
        return Refusal{m_ntanqu, m_family.numberRequired};
    if (m_ntanqu->text().toInt() == 0)
        return Refusal{m_ntanqu, m_family.numberInvalid};
    if (operation().name == m_family.incluirTanque &&
        database()
            .scalar(QStringLiteral("Select * From TB_POSTOTANQU Where NMUNCP = ? And NSEQNC = ?"
                                   " And ITANQU = ? AND NTANQU = ?"),
                    {session().nmuncp, session().nseqnc, m_family.itanqu, m_ntanqu->text().toInt()})
            .isValid())
        return Refusal{m_ntanqu, m_family.numberTaken};
    if (m_nident->text().isEmpty())
        return Refusal{m_nident, QStringLiteral("Preenchimento Obrigatório da Identificação.")};
    if (ui::clipText(m_ainstl).isEmpty())
        return Refusal{m_ainstl, QStringLiteral("Preenchimento Obrigatório da Data da Instalação")};
    if (m_iposca && m_iposca->currentText().isEmpty())
        return Refusal{m_iposca,
                       QStringLiteral("Preenchimento Obrigatório do Tipo do Reservatório.")};
    if (m_nmatrl->currentText().isEmpty())
        return Refusal{m_nmatrl, QStringLiteral("Preenchimento Obrigatório do Tipo de Material")};
    if (otherMaterial() && m_dmatrloutro->text().isEmpty())
        return Refusal{m_dmatrloutro,
                       QStringLiteral("Preenchimento Obrigatório do Campo Material - Outros.")};
    if (m_nbase && m_nbase->currentText().isEmpty())
        return Refusal{m_nbase, QStringLiteral("Preenchimento Obrigatório do Tipo da Base.")};
    if (m_qcomprt->text().isEmpty())
        return Refusal{m_qcomprt, QStringLiteral("Preenchimento Obrigatório da Quantidade de "
                                                 "Compartimentos")};
    if (operation().name == m_family.alterarTanque && m_qcomprt->text().toInt() < m_oldCompartments)
        return Refusal{m_qcomprt, m_family.countLowered};
    if (m_teste->currentText().isEmpty())
        return Refusal{m_teste, QStringLiteral("Preenchimento Obrigatório da condição do Último "
                                               "Laudo de Integridade")};
    if (m_atesteestnq->isEnabled() && ui::clipText(m_atesteestnq).isEmpty())
        return Refusal{m_atesteestnq, QStringLiteral("Preenchimento Obrigatório da Data do Último "
                                                     "Laudo de Integridade")};
    if (m_ipropr->currentText().isEmpty())
        return Refusal{m_ipropr,
                       QStringLiteral("Preenchimento Obrigatório do Tipo do Proprietário")};
    if (m_isitca->currentText().isEmpty())
        return Refusal{m_isitca, QStringLiteral("Preenchimento Obrigatório da Situação do Tanque")};
    return {};
}

ui::Check TankMaintenance::consistirCompartimento() {
    using ui::Refusal;
    if (m_ncompr->text().isEmpty())
        return Refusal{m_ncompr,
                       QStringLiteral("Preenchimento Obrigatório do Número do Compartimento")};
    if (operation().name == kIncluirCompartimento &&
        database()
            .scalar(QStringLiteral("Select * From TB_POSTOTANQUCOMPR Where NMUNCP = ?"
                                   " And NSEQNC = ? And NCOMPR = ? And ITANQU = ?"
                                   " And NTANQU = ?"),
                    {session().nmuncp, session().nseqnc, m_ncompr->text().toInt(), m_family.itanqu,
                     m_ntanqu->text().toInt()})
            .isValid())
        return Refusal{m_ncompr, QStringLiteral("Número do Compartimento já cadastrado")};
    if (m_nbocacarrg->currentText().isEmpty())
        return Refusal{m_nbocacarrg,
                       QStringLiteral("Preenchimento Obrigatório da Boca de Carregamento")};
    if (m_qcapcd->text().isEmpty())
        return Refusal{m_qcapcd,
                       QStringLiteral("Preenchimento Obrigatório da Capacidade de Armazenamento")};
    if (m_ncombs->currentText().isEmpty())
        return Refusal{m_ncombs, QStringLiteral("Preenchimento Obrigatório do Produto Estocado")};
    if (m_qrespraltra->text().isEmpty())
        return Refusal{m_qrespraltra,
                       QStringLiteral("PreenchimentoObrigatório da Altura do Respiro.")};
    if (m_qresprdistcrecpt->text().isEmpty())
        return Refusal{m_qresprdistcrecpt,
                       QStringLiteral("Preenchimento Obrigatório da Distância do Receptor.")};
    return {};
}

ui::Check TankMaintenance::leaveCheck(QWidget* field) {
    using ui::Refusal;
    if (field == m_ainstl || field == m_atesteestnq || field == m_teste) {
        return m_report.leaveCheck(field);
    } else if (field == m_qcomprt) {
        if (m_qcomprt->text() == QLatin1String("0"))
            return Refusal{m_qcomprt,
                           QStringLiteral("Número de Compartimentos não pode ser Zero.")};
    } else if (field == m_ipropr) {
        m_fraProp->followOwnerChoice(m_ipropr);
    } else if (field == m_nmatrl && otherMaterial()) {
        m_picDMATRLOUTRO->setEnabled(true);
        m_dmatrloutro->setFocus(Qt::OtherFocusReason);
    }
    return {};
}

// Only "Outros" takes a described material: "Aço" freezes the description.
void TankMaintenance::materialChosen() {
    m_picDMATRLOUTRO->setEnabled(otherMaterial());
}

void TankMaintenance::write(store::Database& db) {
    const QString& op = operation().name;
    if (op == m_family.incluirTanque) {
        gravarTanque(db);
        if (ownerShown())
            m_fraProp->write(db, ownerKey(m_ntanqu->text().toInt(), true));
        else
            m_fraProp->remove(db, ownerKey(m_ntanqu->text().toInt()));
    } else if (op == m_family.alterarTanque) {
        alterarTanque(db);
        m_fraProp->remove(db, ownerKey(m_ntanqu->text().toInt()));
        if (ownerShown())
            m_fraProp->write(db, ownerKey(m_ntanqu->text().toInt(), true));
    } else if (op == kIncluirCompartimento) {
        gravarCompartimento(db);
    } else {
        alterarCompartimento(db);
    }
}

void TankMaintenance::gravarTanque(store::Database& db) {
    const QVariant report = ui::dateValue(m_atesteestnq);
    QString columns = QStringLiteral("NMUNCP, NSEQNC, AINFRM, ITANQU,NTANQU,NIDENT,AINSTL, NMATRL,"
                                     "QCOMPRT,");
    QVariantList values = {
        session().nmuncp,        session().nseqnc,         session().ainfrm.toString(Qt::ISODate),
        m_family.itanqu,         m_ntanqu->text().toInt(), m_nident->text(),
        ui::dateValue(m_ainstl), ui::chosenCode(m_nmatrl), m_qcomprt->text().toInt()};
    if (report.isValid()) {
        columns += QStringLiteral("ATESTEESTNQ,");
        values << report;
    }
    columns += QStringLiteral("SSISTMPROTC, IPROTC,DPROTC,IFREQNMANTN, IPROPR,");
    values << QVariant() << QVariant() << QVariant() << QVariant() << ui::chosenCode(m_ipropr);
    if (m_family.hasPosition) {
        columns += QStringLiteral("IPOSCA,");
        values << ui::chosenCode(m_iposca);
    }
    if (m_family.hasBase) {
        columns += QStringLiteral("NBASE,");
        values << ui::chosenCode(m_nbase);
    }
    if (m_family.fixedMaterials) {
        columns += QStringLiteral("DMATRLOUTRO,");
        values << materialDescription();
    }
    columns += QStringLiteral("ISITCA, ITESTEESTNQ");
    values << situacao() << ui::chosenCode(m_teste);
    QStringList marks;
    for (qsizetype i = 0; i < values.size(); ++i)
        marks << QStringLiteral("?");
    db.run(QStringLiteral("Insert Into TB_POSTOTANQU (") + columns + QStringLiteral(") Values(") +
               marks.join(QLatin1Char(',')) + QLatin1Char(')'),
           values);
}

void TankMaintenance::alterarTanque(store::Database& db) {
    const QVariant nmatrl =
        db.scalar(QStringLiteral("Select NMATRL From DICNRMATRLTANQU Where DMATRL = ?"),
                  {m_nmatrl->currentText()});
    // The corrosion protection of the tank is entered on its own screen and stays as it was.
    QString assignments = QStringLiteral("ITANQU = ?, NIDENT = ?, AINSTL = ?, NMATRL = ?,"
                                         " QCOMPRT = ?, ATESTEESTNQ = ?, ITESTEESTNQ = ?,"
                                         " IPROPR = ?, ISITCA = ?");
    QVariantList values = {m_family.itanqu,
                           m_nident->text(),
                           ui::dateValue(m_ainstl),
                           nmatrl,
                           m_qcomprt->text().toInt(),
                           ui::dateValue(m_atesteestnq),
                           ui::chosenCode(m_teste),
                           ui::chosenCode(m_ipropr),
                           situacao()};
    if (m_family.hasPosition) {
        assignments += QStringLiteral(", IPOSCA = ?");
        values << ui::chosenCode(m_iposca);
    }
    if (m_family.hasBase) {
        assignments += QStringLiteral(", NBASE = ?");
        values << db.scalar(QStringLiteral("Select NBASE From DICNRBASE Where DBASE = ?"),
                            {m_nbase->currentText()});
    }
    if (m_family.fixedMaterials) {
        assignments += QStringLiteral(", DMATRLOUTRO = ?");
        values << materialDescription();
    }
    values << session().nmuncp << session().nseqnc << m_family.itanqu << m_ntanqu->text().toInt();
    db.run(QStringLiteral("Update TB_POSTOTANQU Set ") + assignments +
               QStringLiteral(" Where NMUNCP = ? And NSEQNC = ? And ITANQU = ? And NTANQU = ?"),
           values);
}

QVariant TankMaintenance::situacao() const {
    return m_isitca->currentText() == QLatin1String("Em Uso") ? QStringLiteral("A")
                                                              : QStringLiteral("D");
}

QVariant TankMaintenance::materialDescription() const {
    return otherMaterial() && !m_dmatrloutro->text().isEmpty() ? QVariant(m_dmatrloutro->text())
                                                               : QVariant();
}

void TankMaintenance::gravarCompartimento(store::Database& db) {
    db.run(QStringLiteral("Insert Into TB_POSTOTANQUCOMPR (NMUNCP, NSEQNC, AINFRM, ITANQU,NTANQU,"
                          "NCOMPR,NBOCACARRG, QCAPCD,NCOMBS,QRESPRALTRA,QRESPRDISTCRECPT)"
                          " Values(?,?,?,?,?,?,?,?,?,?,?)"),
           {session().nmuncp, session().nseqnc, session().ainfrm.toString(Qt::ISODate),
            m_family.itanqu, m_ntanqu->text().toInt(), m_ncompr->text().toInt(),
            ui::chosenCode(m_nbocacarrg), m_qcapcd->text().toInt(), ui::chosenCode(m_ncombs),
            m_qrespraltra->text().toInt(), rules::numeroParaSql(m_qresprdistcrecpt->text())});
}

void TankMaintenance::alterarCompartimento(store::Database& db) {
    QSqlQuery codes = db.run(QStringLiteral("Select NBOCACARRG,NCOMBS From DICNRBOCACARRG dicb,"
                                            "DICNRCOMBS dicc Where DBOCACARRG = ? And  DCOMBS = ?"),
                             {m_nbocacarrg->currentText(), m_ncombs->currentText()});
    QVariant nbocacarrg;
    QVariant ncombs;
    if (codes.next()) {
        nbocacarrg = codes.value(0);
        ncombs = codes.value(1);
    }
    db.run(QStringLiteral("Update TB_POSTOTANQUCOMPR Set NBOCACARRG = ?, QCAPCD = ?, NCOMBS = ?,"
                          " QRESPRALTRA = ?, QRESPRDISTCRECPT = ? Where NMUNCP = ? And NSEQNC = ?"
                          " And ITANQU = ? And NTANQU = ? And NCOMPR = ?"),
           {nbocacarrg, m_qcapcd->text().toInt(), ncombs, m_qrespraltra->text().toInt(),
            rules::numeroParaSql(m_qresprdistcrecpt->text()), session().nmuncp, session().nseqnc,
            m_family.itanqu, m_ntanqu->text().toInt(), m_ncompr->text().toInt()});
}

store::Row TankMaintenance::ownerKey(const QVariant& ntanqu, bool withDate) const {
    store::Row key = withDate ? session().newRow() : session().keyRow();
    key.insert(QStringLiteral("ITANQU"), m_family.itanqu);
    key.insert(QStringLiteral("NTANQU"), ntanqu);
    return key;
}

QString TankMaintenance::newKey() const {
    return QString::number(onTank() ? m_ntanqu->text().toInt() : m_ncompr->text().toInt());
}

int TankMaintenance::childrenDue() const {
    const int declared = m_qcomprt->text().toInt();
    if (operation().name == m_family.incluirTanque)
        return declared;
    if (operation().name == m_family.alterarTanque && declared > m_oldCompartments)
        return declared - m_oldCompartments;
    return 0;
}

} // namespace fuel
