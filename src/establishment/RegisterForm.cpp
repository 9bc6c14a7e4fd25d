#include "establishment/RegisterForm.h"

#include "rules/Address.h"
#include "rules/Filters.h"
#include "rules/Formats.h"
#include "store/Database.h"
#include "ui/AddressBlock.h"
#include "ui/BusyCursor.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/FieldBehaviour.h"
#include "ui/Session.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace establishment {

namespace {

// Display masks of the fields that show one when the focus is elsewhere.
const QHash<QString, QString>& displayMasks() {
    static const QHash<QString, QString> masks = {
        {QStringLiteral("txtcCnpj"), QStringLiteral("@@.@@@.@@@/@@@@-@@")},
        {QStringLiteral("txtcibge"), QStringLiteral("@@.@@.@@-@")},
        {QStringLiteral("txtqLattd"), QStringLiteral("@@:@@:@@")},
        {QStringLiteral("txtqLongt"), QStringLiteral("@@:@@:@@")},
    };
    return masks;
}

// The masked fields of the address block, read and written by their typed digits.
bool typedByDigits(const QString& name) {
    return name == QLatin1String("txtCCEP") || name == QLatin1String("txtntelfnemprs") ||
           name == QLatin1String("txtNFAX");
}

// A date field's text, or nothing when no digit was typed.
QString dateText(const QLineEdit* edit) {
    return ui::clipText(edit).isEmpty() ? QString() : edit->text();
}

} // namespace

RegisterForm::RegisterForm(store::Database& db, ui::Session& session, QWidget* parent)
    : ui::EditScreen(db, session, parent)
    , m_db(db)
    , m_session(session)
    , m_changing(session.operacao == ui::kAlterar) {
    setObjectName(QStringLiteral("frmVORCadast"));
    setWindowTitle(QStringLiteral("Caderno Vorel de Empreendimento"));
    build();

    RegisterFields entry;
    if (m_changing) {
        ui::runGuarded([&] { entry = loadRegister(m_db, m_session.key()); });
        entry.nmuncpText = QString::number(m_session.nmuncp);
        entry.nseqncText = QString::number(m_session.nseqnc);
    }
    setFields(entry);
    takeSnapshot();
    m_ok->setEnabled(false);
    m_cancelar->setEnabled(false);
    m_fechar->setEnabled(true);
}

QLineEdit* RegisterForm::addText(const char* name, int maxLength) {
    auto* edit = new QLineEdit(this);
    edit->setObjectName(QString::fromLatin1(name));
    if (maxLength > 0)
        edit->setMaxLength(maxLength);
    edit->installEventFilter(this);
    m_texts.insert(edit->objectName(), edit);
    connect(edit, &QLineEdit::textChanged, this, &RegisterForm::verifyChange);
    return edit;
}

void RegisterForm::build() {
    // Tipo de Empreendimento
    auto* kindFrame = new QGroupBox(QStringLiteral("Tipo de Empreendimento"), this);
    kindFrame->setObjectName(QStringLiteral("Frame17"));
    auto* kindLayout = new QHBoxLayout(kindFrame);
    const std::array<QString, 4> kindCaptions = {
        QStringLiteral("Posto Revendedor"), QStringLiteral("Instalação de Sistema Retalhista"),
        QStringLiteral("Posto de Abastecimento"), QStringLiteral("Posto Flutuante")};
    for (std::size_t i = 0; i < m_kinds.size(); ++i) {
        m_kinds[i] = new QRadioButton(kindCaptions[i], kindFrame);
        m_kinds[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
        kindLayout->addWidget(m_kinds[i]);
        connect(m_kinds[i], &QRadioButton::toggled, this, &RegisterForm::verifyChange);
    }
    kindLayout->addStretch();

    // Hidden fields: the key and what the municipality carries.
    for (const char* hidden : {"txtnMuncp", "txtnSeqnc", "txtnUGRHI", "txtNBACIA"})
        addText(hidden, 0)->hide();

    // Fields in the order of entry.
    QLineEdit* razao = addText("txtDRAZAOSOCIL", 70);
    QLineEdit* fantasia = addText("txtDFANTS", 70);
    QLineEdit* bandeira = addText("txtDBANDR", 20);
    QLineEdit* logradouro = addText("txtDLOGRD", 45);
    QLineEdit* numero = addText("txtNLOGRD", 5);
    QLineEdit* complemento = addText("txtDLOGRDCOMPM", 17);
    QLineEdit* bairro = addText("txtDBAIRR", 17);
    QLineEdit* cep = addText("txtCCEP", 9);
    m_municipio = new QComboBox(this);
    m_municipio->setObjectName(QStringLiteral("cmbDMUNCP"));
    m_municipio->installEventFilter(this);
    m_municipioFixo = new QLineEdit(this);
    m_municipioFixo->setObjectName(QStringLiteral("picDMUNCP"));
    m_municipioFixo->setReadOnly(true);
    m_municipioFixo->setFocusPolicy(Qt::NoFocus);
    m_municipioFixo->setToolTip(
        QStringLiteral("O município faz parte do código do VOR e não pode ser alterado."));
    QLineEdit* ddd = addText("txtndddemprs", 4);
    QLineEdit* telefone = addText("txtntelfnemprs", 9);
    QLineEdit* fax = addText("txtNFAX", 9);
    QLineEdit* email = addText("txtDEMAIL", 50);
    QLineEdit* cnpj = addText("txtcCnpj", 18);
    QLineEdit* anp = addText("txtNANP", 9);
    QLineEdit* anpAnterior = addText("txtNANPANTRR", 8);
    QLineEdit* inscEstadual = addText("txtNINSCRESTDL", 12);
    QLineEdit* inscMunicipal = addText("txtNINSCRMUNCP", 12);
    QLineEdit* cibge = addText("txtcibge", 10);
    QLineEdit* latitude = addText("txtqLattd", 8);
    QLineEdit* longitude = addText("txtqLongt", 8);
    QLineEdit* inicio = addText("mskACADST", 0);
    QLineEdit* levantamento = addText("mskALEVNT", 0);
    // The address block brings its own filters, masks and leaving checks; the register form
    // words them as below.
    ui::AddressTexts texts;
    texts.cepRequired = QStringLiteral("Preenchimento Obrigatório do CEP.");
    texts.cepIncorrect = QStringLiteral("Preenchimento Incorreto do CEP");
    texts.dddIncorrect = QStringLiteral("Preenchimento Incorreto do DDD.");
    texts.telephoneIncorrect = QStringLiteral("Preenchimento Incorreto do Telefone");
    texts.faxIncorrect = QStringLiteral("Preenchimento Incorreto do FAX");
    ui::AddressFields address;
    address.street = logradouro;
    address.number = numero;
    address.complement = complemento;
    address.district = bairro;
    address.cep = cep;
    address.municipality = m_municipio;
    address.municipalityCover = m_municipioFixo;
    address.municipalityNumber = m_texts.value(QStringLiteral("txtnMuncp"));
    address.ddd = ddd;
    address.telephone = telefone;
    address.fax = fax;
    address.email = email;
    m_address =
        ui::AddressBlock::attach(m_db, address, ui::MunicipalityList::MunicipalitiesOnly, texts);
    for (QLineEdit* e : {razao, fantasia, bandeira})
        ui::attachText(e, ui::Case::Upper);
    for (QLineEdit* e : {anp, anpAnterior})
        ui::attachUpperCase(e);
    for (QLineEdit* e : {inscEstadual, latitude, longitude})
        ui::attachDigits(e);
    // The CNPJ takes digits only where the objective demands one.
    if (m_session.inOperation())
        ui::attachDigits(cnpj);
    for (QLineEdit* e : {cnpj, cibge, latitude, longitude})
        ui::attachDisplayMask(e, displayMasks().value(e->objectName()));
    ui::guardLine(inscMunicipal);
    ui::attachMask(inicio, ui::Mask::Date);
    ui::attachMask(levantamento, ui::Mask::Date);
    for (QLineEdit* e : {ddd, numero})
        e->setMaximumWidth(70);
    for (QLineEdit* e : {cep, telefone, fax, latitude, longitude, inicio, levantamento})
        e->setMaximumWidth(110);
    for (QLineEdit* e : {cnpj, anp, anpAnterior, inscEstadual, inscMunicipal, cibge})
        e->setMaximumWidth(170);

    const auto label = [this](const QString& text, QWidget* buddy) {
        auto* l = new QLabel(text, this);
        l->setBuddy(buddy);
        l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        return l;
    };

    // Identificação
    auto* ident = new QGroupBox(QStringLiteral("Identificação:"), this);
    ident->setObjectName(QStringLiteral("Frame2"));
    auto* grid = new QGridLayout(ident);
    grid->setHorizontalSpacing(10);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(3, 2);
    int row = 0;
    grid->addWidget(label(QStringLiteral("Razão Social:"), razao), row, 0);
    grid->addWidget(razao, row++, 1, 1, 3);
    grid->addWidget(label(QStringLiteral("Nome Fantasia:"), fantasia), row, 0);
    grid->addWidget(fantasia, row++, 1, 1, 3);
    grid->addWidget(label(QStringLiteral("Bandeira:"), bandeira), row, 0);
    grid->addWidget(bandeira, row++, 1);
    grid->addWidget(label(QStringLiteral("Endereço:"), logradouro), row, 0);
    grid->addWidget(logradouro, row, 1);
    grid->addWidget(label(QStringLiteral("Número:"), numero), row, 2);
    grid->addWidget(numero, row++, 3);
    grid->addWidget(label(QStringLiteral("Complemento:"), complemento), row, 0);
    grid->addWidget(complemento, row, 1);
    grid->addWidget(label(QStringLiteral("Bairro:"), bairro), row, 2);
    grid->addWidget(bairro, row++, 3);
    grid->addWidget(label(QStringLiteral("CEP:"), cep), row, 0);
    grid->addWidget(cep, row, 1);
    auto* municipioBox = new QHBoxLayout;
    municipioBox->setContentsMargins(0, 0, 0, 0);
    municipioBox->addWidget(m_municipio, 1);
    municipioBox->addWidget(m_municipioFixo, 1);
    grid->addWidget(label(QStringLiteral("Município:"), m_municipio), row, 2);
    grid->addLayout(municipioBox, row++, 3);
    auto* phoneBox = new QHBoxLayout;
    phoneBox->setContentsMargins(0, 0, 0, 0);
    phoneBox->addWidget(ddd);
    phoneBox->addSpacing(16);
    phoneBox->addWidget(label(QStringLiteral("Tel.:"), telefone));
    phoneBox->addSpacing(4);
    phoneBox->addWidget(telefone);
    phoneBox->addStretch();
    grid->addWidget(label(QStringLiteral("DDD:"), ddd), row, 0);
    grid->addLayout(phoneBox, row, 1);
    grid->addWidget(label(QStringLiteral("Fax:"), fax), row, 2);
    grid->addWidget(fax, row++, 3);
    grid->addWidget(label(QStringLiteral("Correio Eletrônico:"), email), row, 0);
    grid->addWidget(email, row++, 1, 1, 3);
    grid->addWidget(label(QStringLiteral("CNPJ Nº:"), cnpj), row, 0);
    grid->addWidget(cnpj, row, 1);
    grid->addWidget(label(QStringLiteral("REG. ANP Atual:"), anp), row, 2);
    grid->addWidget(anp, row++, 3);
    grid->addWidget(label(QStringLiteral("REG. ANP Anterior:"), anpAnterior), row, 0);
    grid->addWidget(anpAnterior, row, 1);
    grid->addWidget(label(QStringLiteral("INSC. Estadual:"), inscEstadual), row, 2);
    grid->addWidget(inscEstadual, row++, 3);
    grid->addWidget(label(QStringLiteral("INSC. Municipal:"), inscMunicipal), row, 0);
    grid->addWidget(inscMunicipal, row, 1);
    grid->addWidget(label(QStringLiteral("CÓD. Atividade:"), cibge), row, 2);
    grid->addWidget(cibge, row++, 3);

    // Coordenadas Geográficas
    auto* coords = new QGroupBox(QStringLiteral("Coordenadas Geográficas"), this);
    coords->setObjectName(QStringLiteral("Frame16"));
    auto* coordsLayout = new QHBoxLayout(coords);
    coordsLayout->addWidget(new QLabel(QStringLiteral("Latitude (grau/min/seg):"), coords));
    coordsLayout->addWidget(latitude);
    coordsLayout->addSpacing(24);
    coordsLayout->addWidget(new QLabel(QStringLiteral("Longitude (grau/min/seg):"), coords));
    coordsLayout->addWidget(longitude);
    coordsLayout->addStretch();

    auto* dates = new QHBoxLayout;
    dates->setContentsMargins(12, 4, 12, 4);
    dates->addWidget(new QLabel(QStringLiteral("Data de Início das Atividades no Local:"), this));
    dates->addWidget(inicio);
    dates->addSpacing(24);
    dates->addWidget(new QLabel(QStringLiteral("Data do Levantamento :"), this));
    dates->addWidget(levantamento);
    dates->addStretch();

    // Buttons
    auto* buttons = new QWidget(this);
    buttons->setObjectName(QStringLiteral("Frame21"));
    m_ok = new QPushButton(QStringLiteral("&Ok"), buttons);
    m_ok->setObjectName(QStringLiteral("cmkOk"));
    m_cancelar = new QPushButton(QStringLiteral("&Cancelar"), buttons);
    m_cancelar->setObjectName(QStringLiteral("cmdCancelar"));
    m_fechar = new QPushButton(QStringLiteral("&Fechar"), buttons);
    m_fechar->setObjectName(QStringLiteral("cmdFechar"));
    auto* buttonLayout = new QHBoxLayout(buttons);
    buttonLayout->setContentsMargins(0, 0, 0, 0);
    buttonLayout->addStretch();
    for (QPushButton* b : {m_ok, m_cancelar, m_fechar}) {
        b->setMinimumWidth(96);
        b->setFocusPolicy(Qt::TabFocus);
        buttonLayout->addWidget(b);
    }

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 12, 16, 12);
    layout->addWidget(kindFrame);
    layout->addWidget(ident);
    layout->addWidget(coords);
    layout->addLayout(dates);
    layout->addStretch();
    layout->addWidget(buttons);

    // Tab order: the order of entry.
    QList<QWidget*> order = {
        m_kinds[0], razao,  fantasia,     bandeira,     logradouro,    numero,  complemento,
        bairro,     cep,    m_municipio,  ddd,          telefone,      fax,     email,
        cnpj,       anp,    anpAnterior,  inscEstadual, inscMunicipal, cibge,   latitude,
        longitude,  inicio, levantamento, m_ok,         m_cancelar,    m_fechar};
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);

    ui::runGuarded([&] { m_address->loadMunicipalities(); });
    m_municipio->setCurrentIndex(-1);
    connect(m_municipio, &QComboBox::currentIndexChanged, this, &RegisterForm::verifyChange);
    // In "Alterar" the municipality, a part of the key, is shown but cannot be chosen again.
    m_address->setMunicipalityLocked(m_changing);
    m_municipio->setVisible(!m_changing);

    connect(m_ok, &QPushButton::clicked, this, &RegisterForm::ok);
    connect(m_cancelar, &QPushButton::clicked, this, &RegisterForm::fechar);
    connect(m_fechar, &QPushButton::clicked, this, &RegisterForm::fechar);
}

void RegisterForm::setFields(const RegisterFields& f) {
    const auto set = [this](const char* name, const QString& value) {
        QLineEdit* e = m_texts.value(QString::fromLatin1(name));
        const QString mask = displayMasks().value(e->objectName());
        if (typedByDigits(e->objectName()))
            ui::setClipText(e, value);
        else
            e->setText(mask.isEmpty() ? value : rules::poeMascara(value, mask));
    };
    const QString kinds = QStringLiteral("RIAF");
    const qsizetype kind = kinds.indexOf(f.kind);
    m_kinds[std::size_t(kind < 0 ? 0 : kind)]->setChecked(true);
    set("txtnMuncp", f.nmuncpText);
    set("txtnSeqnc", f.nseqncText);
    set("txtnUGRHI", f.nugrhi);
    set("txtNBACIA", f.nbacia);
    set("txtDRAZAOSOCIL", f.razaoSocial);
    set("txtDFANTS", f.fantasia);
    set("txtDBANDR", f.bandeira);
    set("txtDLOGRD", f.logradouro);
    set("txtNLOGRD", f.numero);
    set("txtDLOGRDCOMPM", f.complemento);
    set("txtDBAIRR", f.bairro);
    set("txtCCEP", f.cep);
    m_municipio->setCurrentIndex(m_municipio->findData(f.municipioCodigo));
    m_municipioFixo->setText(f.municipio);
    set("txtnMuncp", f.nmuncpText);
    set("txtndddemprs", f.ddd);
    set("txtntelfnemprs", f.telefone);
    set("txtNFAX", f.fax);
    set("txtDEMAIL", f.email);
    set("txtcCnpj", f.cnpj);
    set("txtNANP", f.anp);
    set("txtNANPANTRR", f.anpAnterior);
    set("txtNINSCRESTDL", f.inscEstadual);
    set("txtNINSCRMUNCP", f.inscMunicipal);
    set("txtcibge", f.cibge);
    set("txtqLattd", f.latitude);
    set("txtqLongt", f.longitude);
    set("mskACADST", f.inicioAtividades);
    set("mskALEVNT", f.levantamento);
}

RegisterFields RegisterForm::fields() const {
    const auto text = [this](const char* name) {
        const QLineEdit* e = m_texts.value(QString::fromLatin1(name));
        const QString mask = displayMasks().value(e->objectName());
        if (typedByDigits(e->objectName()))
            return ui::clipText(e);
        return mask.isEmpty() ? e->text() : rules::tiraMascara(e->text(), mask).trimmed();
    };
    RegisterFields f;
    for (std::size_t i = 0; i < m_kinds.size(); ++i) {
        if (m_kinds[i]->isChecked())
            f.kind = QStringLiteral("RIAF").mid(qsizetype(i), 1);
    }
    f.nmuncpText = text("txtnMuncp");
    f.nseqncText = text("txtnSeqnc");
    f.nugrhi = text("txtnUGRHI");
    f.nbacia = text("txtNBACIA");
    f.razaoSocial = text("txtDRAZAOSOCIL");
    f.fantasia = text("txtDFANTS");
    f.bandeira = text("txtDBANDR");
    f.logradouro = text("txtDLOGRD");
    f.numero = text("txtNLOGRD");
    f.complemento = text("txtDLOGRDCOMPM");
    f.bairro = text("txtDBAIRR");
    f.cep = text("txtCCEP");
    if (m_changing) {
        f.municipio = m_municipioFixo->text();
        f.municipioCodigo = m_session.nmuncp;
    } else {
        f.municipio = m_municipio->currentText();
        f.municipioCodigo = m_municipio->currentData().toInt();
    }
    f.ddd = text("txtndddemprs");
    f.telefone = text("txtntelfnemprs");
    f.fax = text("txtNFAX");
    f.email = text("txtDEMAIL");
    f.cnpj = text("txtcCnpj");
    f.anp = text("txtNANP");
    f.anpAnterior = text("txtNANPANTRR");
    f.inscEstadual = text("txtNINSCRESTDL");
    f.inscMunicipal = text("txtNINSCRMUNCP");
    f.cibge = text("txtcibge");
    f.latitude = text("txtqLattd");
    f.longitude = text("txtqLongt");
    f.inicioAtividades = dateText(m_texts.value(QStringLiteral("mskACADST")));
    f.levantamento = dateText(m_texts.value(QStringLiteral("mskALEVNT")));
    return f;
}

QString RegisterForm::composeSnapshot() const {
    return fields().pack();
}

void RegisterForm::changeShown(bool changed) {
    m_ok->setEnabled(changed);
    m_cancelar->setEnabled(changed);
    m_fechar->setEnabled(!changed);
}

bool RegisterForm::isLeaving(const QWidget* next) const {
    // Leaving for a button is not leaving the field: Ok checks the field itself, Fechar and
    // Cancelar drop it.
    return next != m_ok && next != m_cancelar && next != m_fechar;
}

QList<QWidget*> RegisterForm::snapshotFields() const {
    return {};
}

ui::Check RegisterForm::leaveCheck(QWidget* widget) {
    auto* field = qobject_cast<QLineEdit*>(widget);
    if (!field || !m_texts.contains(field->objectName()))
        return {};
    const bool onOk = m_onOk;
    const QString name = field->objectName();
    const QString mask = displayMasks().value(name);
    const QString text =
        mask.isEmpty() ? field->text() : rules::tiraMascara(field->text(), mask).trimmed();

    ui::Check refusal;
    bool focusBack = true;
    const auto critical = [&](const QString& message) { refusal = Refusal{field, message}; };

    if (name == QLatin1String("mskACADST") || name == QLatin1String("mskALEVNT")) {
        const bool start = name == QLatin1String("mskACADST");
        const QString what = start ? QStringLiteral("da Data de Início das Atividades no Local")
                                   : QStringLiteral("da Data de Levantamento");
        if (ui::clipText(field).isEmpty()) {
            critical(QStringLiteral("Preenchimento Obrigatório ") + what);
            focusBack = false;
        } else if (!QDate::fromString(field->text(), rules::kShortDateFormat).isValid()) {
            critical(QStringLiteral("Preenchimento Incorreto ") + what);
        }
    } else if (name == QLatin1String("txtqLattd") || name == QLatin1String("txtqLongt")) {
        const bool latitude = name == QLatin1String("txtqLattd");
        if (!text.isEmpty()) {
            const int degrees = text.mid(0, 2).toInt();
            const bool wrong =
                text.size() < 6 || text.mid(2, 2).toInt() > 59 || text.mid(4, 2).toInt() > 59 ||
                (latitude ? degrees < 20 || degrees > 30 : degrees < 40 || degrees > 60);
            if (wrong)
                critical(latitude ? QStringLiteral("Preenchimento da Latitude Incorreto")
                                  : QStringLiteral("Preenchimento da Longitude Incorreto"));
        }
    } else if (name == QLatin1String("txtNINSCRESTDL")) {
        if (!text.trimmed().isEmpty() && rules::val(text) == 0)
            refusal =
                Refusal{field, QStringLiteral("Preenchimento Incorreto da Inscrição Estadual"),
                        ui::Icon::Information, ui::kTitle};
    } else if (onOk && name == QLatin1String("txtndddemprs")) {
        // Ok is pressed without leaving the field: the address block has not checked it yet.
        if (rules::dddIncorreto(text))
            critical(QStringLiteral("Preenchimento Incorreto do DDD."));
        else
            field->setText(rules::formataDdd(text));
    }
    // At Ok an empty field is left to the checks of Ok, which word it in their own order.
    if (!refusal || (onOk && !focusBack))
        return {};
    // An empty date is said once on leaving it; the focus goes on.
    if (!focusBack)
        return Refusal{QString(), refusal->message, refusal->icon};
    return refusal;
}

void RegisterForm::ok() {
    // The buttons take no focus from a click, so the field being typed in is left only now: its
    // own check comes first, then the checks of Ok, then the writes in one transaction.
    m_onOk = true;
    const bool saved = save();
    m_onOk = false;
    // A failed save keeps the form open with everything that was typed.
    if (!saved)
        return;
    if (m_newKey) {
        m_session.setKey(*m_newKey);
        m_session.chaveNova = m_newKey->code();
    }
    if (m_session.operacao != ui::kIncluir && m_session.operacao != ui::kAlterar)
        alterarVor();
    emit closed();
}

ui::Check RegisterForm::validate() {
    CheckContext context;
    context.objective = m_session.objective();
    context.operacao = m_session.operacao;
    context.sessionNmuncp = m_session.nmuncp;
    const CheckResult checked = consistirDados(m_db, fields(), context);
    if (checked.refusal)
        return checked.refusal;
    // The last step of the checks: the register's municipality is settled.
    m_session.nmuncp = checked.nmuncp;
    m_texts.value(QStringLiteral("txtnMuncp"))->setText(QString::number(checked.nmuncp));
    m_session.marcaContinuar = QStringLiteral("M");
    return {};
}

void RegisterForm::write(store::Database& db) {
    m_newKey.reset();
    if (m_session.operacao == ui::kIncluir)
        m_newKey = writeNewRegister(db, fields(), m_session.nmuncp, QDate::currentDate());
    else if (m_session.operacao == ui::kAlterar)
        writeRegisterChange(db, fields(), m_session.key());
}

// Alterar_VOR: the walk through the questionnaire asks before it stores a change.
void RegisterForm::alterarVor() {
    const RegisterFields f = fields();
    if (f.pack() == retratoInicial() && m_session.operacao != ui::kAlterar)
        return;
    if (!ui::dialogs().ask(ui::kTitle, QStringLiteral("Confirma Alterações?"), ui::Icon::Question,
                           false))
        return;
    ui::runGuarded([&] { alterarRegistro(m_db, f, m_session.key()); });
}

void RegisterForm::fechar() {
    ui::BusyCursor busy;
    emit closed();
}

} // namespace establishment
