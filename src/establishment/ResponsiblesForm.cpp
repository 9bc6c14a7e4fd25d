#include "establishment/ResponsiblesForm.h"

#include "establishment/AddressRow.h"
#include "rules/Address.h"
#include "rules/CheckDigits.h"
#include "store/Database.h"
#include "store/RowWriter.h"
#include "store/SqlValues.h"
#include "ui/AddressPanel.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/FieldBehaviour.h"
#include "ui/Session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace establishment {

namespace {

using ui::Check;
using ui::Field;
using ui::FieldKind;
using ui::Refusal;

const char* const kRespn = "TB_POSTORESPN";
const char* const kContt = "TB_POSTOCONTT";
const AddressColumns kColumns{QStringLiteral("NMUNCPRESPN"), QStringLiteral("DMUNCPRESPN")};

bool blank(const QLineEdit* edit) {
    return edit->text().trimmed().isEmpty();
}

ui::AddressTexts responsibleTexts() {
    ui::AddressTexts t;
    t.cepInvalid = QStringLiteral("Preenchimento Inválido do CEP para este Município");
    t.cepRequired = QStringLiteral("Preenchimento Obrigatório do CEP.");
    t.cepIncorrect = QStringLiteral("Preenchimento Incorreto do CEP");
    t.municipalityUnknown = QStringLiteral("Digite o Nome do Município deste Estado");
    t.dddIncorrect = QStringLiteral("Preenchimento Incorreto do DDD.");
    t.telephoneIncorrect = QStringLiteral("Preenchimento Incorreto do Telefone do Responsável.");
    t.faxIncorrect = QStringLiteral("Preenchimento Incorreto do FAX do Responsável.");
    return t;
}

} // namespace

ResponsiblesForm::ResponsiblesForm(ui::ScreenHost& host, const ui::Sequence::Place& place,
                                   QWidget* parent)
    : ui::FormScreen(host, place, parent)
    , m_respn(kRespn, this)
    , m_contt(kContt, this) {
    setWindowTitle(QStringLiteral("Cadastro de Responsável e Pessoas para Contato"));
    auto* choice = new QWidget(this);
    choice->setObjectName(QStringLiteral("picOperacao"));
    auto* row = new QHBoxLayout(choice);
    row->setContentsMargins(0, 0, 0, 0);
    const QString captions[2] = {QStringLiteral("Responsável"),
                                 QStringLiteral("Pessoas para contato")};
    for (int i = 0; i < 2; ++i) {
        m_options[i] = new QRadioButton(captions[i], choice);
        m_options[i]->setObjectName(QStringLiteral("optOperacao_%1").arg(i));
        row->addWidget(m_options[i]);
        // Choosing the other record ends an edit and shows that record's buttons.
        connect(m_options[i], &QRadioButton::clicked, this, [this] { showReading(); });
    }
    row->addStretch(1);
    m_options[0]->setChecked(true);
    body()->addWidget(choice);
    buildResponsible();
    buildContacts();
    body()->addStretch(1);
    addExcluir();
}

int ResponsiblesForm::record() const {
    return m_options[1]->isChecked() ? 1 : 0;
}

void ResponsiblesForm::buildResponsible() {
    m_fraResp = new QGroupBox(QStringLiteral("Responsável:"), this);
    m_fraResp->setObjectName(QStringLiteral("fraResp"));
    m_respn.add({.name = "txtDRESPN", .label = "Titular da Razão Social:", .column = "DRESPN"});
    m_respn.add({.name = "txtNRG",
                 .label = "DOC. Identidade:",
                 .kind = FieldKind::Number,
                 .column = "NRG",
                 .length = 15});
    m_respn.add({.name = "txtDRGORGAO", .label = "Órgão Expedidor:", .column = "DRGORGAO"});
    m_respn.add({.name = "txtIUF", .label = "UF:", .column = "IUF"});
    m_respn.add({.name = "txtCCPF",
                 .label = "CPF/CNPJ:",
                 .kind = FieldKind::Number,
                 .column = "CCPF",
                 .length = 14,
                 .leave = [this]() -> Check {
                     QLineEdit* cpf = m_respn.edit("txtCCPF");
                     if (!cpf->text().isEmpty() && !rules::validaCgcCpf(cpf->text()))
                         return Refusal{cpf, QStringLiteral("Preenchimento Inválido do CPF.")};
                     return {};
                 }});
    auto* layout = new QVBoxLayout(m_fraResp);
    layout->setSpacing(2);
    auto* grid = new QGridLayout;
    m_respn.place(grid, 0, 0, "txtDRESPN", 7);
    m_respn.place(grid, 1, 0, "txtNRG");
    m_respn.place(grid, 1, 2, "txtDRGORGAO");
    m_respn.place(grid, 1, 4, "txtIUF");
    m_respn.place(grid, 1, 6, "txtCCPF");
    m_respn.edit("txtIUF")->setMaximumWidth(40);
    layout->addLayout(grid);

    ui::AddressPanelOptions options;
    options.companyAndContact = false;
    options.stateName = QStringLiteral("txtMUNCPUF");
    options.stateLength = 70;
    options.texts = responsibleTexts();
    m_address = new ui::AddressPanel(database(), options, m_fraResp);
    m_address->layout()->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_address);
    body()->addWidget(m_fraResp);
    setTabOrder(m_respn.edit("txtCCPF"), m_address->fields().street);
}

void ResponsiblesForm::buildContacts() {
    m_fraContt = new QGroupBox(QStringLiteral("Pessoas para contato:"), this);
    m_fraContt->setObjectName(QStringLiteral("fraContt"));
    const auto ddd = [this](const QString& name) -> Check {
        QLineEdit* edit = m_contt.edit(name);
        if (rules::dddIncorreto(edit->text()))
            return Refusal{edit, QStringLiteral("Preenchimento Incorreto do DDD.")};
        edit->setText(rules::formataDdd(edit->text()));
        return {};
    };
    const auto phone = [this](const QString& name, const char* message, bool required) {
        return [this, name, message, required]() -> Check {
            const QString digits = ui::clipText(m_contt.edit(name));
            if (required ? (!digits.isEmpty() && rules::telefoneIncompleto(digits))
                         : rules::faxIncompleto(digits))
                return Refusal{m_contt.edit(name), QString::fromUtf8(message)};
            return {};
        };
    };
    const auto text = [this](const char* name, const char* label, std::string_view column,
                             ui::Case letterCase = ui::Case::Upper) {
        m_contt.add({.name = QString::fromLatin1(name),
                     .label = QString::fromUtf8(label),
                     .column = column,
                     .letterCase = letterCase});
    };
    const auto number = [&](const char* name, const char* label, std::string_view column) {
        const QString n = QString::fromLatin1(name);
        m_contt.add({.name = n,
                     .label = QString::fromUtf8(label),
                     .kind = FieldKind::Number,
                     .column = column,
                     .length = rules::kDddMaximo,
                     .leave = [ddd, n] { return ddd(n); }});
    };
    const auto telephone = [&](const char* name, const char* label, std::string_view column,
                               const char* message, bool required = false) {
        const QString n = QString::fromLatin1(name);
        m_contt.add({.name = n,
                     .label = QString::fromUtf8(label),
                     .kind = FieldKind::Telephone,
                     .column = column,
                     .leave = phone(n, message, required)});
    };
    text("txtDNOMEROTNR", "Em situações rotineiras: Nome: ", "DNOMEROTNR");
    text("txtDCARGOROTNR", "Cargo:", "DCARGOROTNR");
    number("txtNDDDROTNR", "Tel.:", "NDDDROTNR");
    telephone("txtNTELFNROTNR", "", "NTELFNROTNR",
              "Preenchimento Incorreto do Telefone do Contato Rotineiro.", true);
    telephone("txtNFAXcontt", "Fax:", "NFAX",
              "Preenchimento Incorreto do FAX do Contato Rotineiro.");
    text("txtDEMAILROTNR", "Correio Eletrônico:", "DEMAILROTNR", ui::Case::AsTyped);
    text("txtDNOMEEMERG", "Em situações emergenciais: Nome: ", "DNOMEEMERG");
    text("txtDCARGOEMERG", "Cargo:", "DCARGOEMERG");
    number("txtNDDDEMERG", "Tel.:", "NDDDEMERG");
    telephone("txtNTELFNEMERG", "", "NTELFNEMERG",
              "Preenchimento Incorreto do Telefone do Contato Emergencial.", true);
    telephone("txtNFAXEMERG", "Fax:", "NFAXEMERG",
              "Preenchimento Incorreto do FAX do Contato Emergencial.");
    text("txtDEMAILEMERG", "Correio Eletrônico:", "DEMAILEMERG", ui::Case::AsTyped);
    telephone("txtNCELLREMERG", "Celular:", "NCELLREMERG",
              "Preenchimento Incorreto do Celular do Contato Emergencial.");
    telephone("txtNPAGEREMERG", "Pager Cod.:", "NPAGEREMERG",
              "Preenchimento Incorreto do Pager do Contato Emergencial.");
    number("txtNDDDACINM", "Tel. Acionamento:", "NDDDACINM");
    telephone("txtNTELFNACINM", "", "NTELFNACINM",
              "Preenchimento Incorreto do Telefone de Acionamento do Contato Emergencial.");
    // A telephone is named by the DDD's caption before it.
    for (const char* name : {"txtNTELFNROTNR", "txtNTELFNEMERG", "txtNTELFNACINM"})
        m_contt.widget(QString::fromLatin1(name))->setAccessibleName(QStringLiteral("Telefone"));

    auto* grid = new QGridLayout(m_fraContt);
    grid->setVerticalSpacing(2);
    const auto phoneAt = [&](int row, int column, const char* dddName, const char* phoneName) {
        m_contt.place(grid, row, column, QString::fromLatin1(dddName));
        grid->addWidget(m_contt.widget(QString::fromLatin1(phoneName)), row, column + 2);
        m_contt.edit(QString::fromLatin1(dddName))->setMaximumWidth(50);
    };
    m_contt.place(grid, 0, 0, "txtDNOMEROTNR", 3);
    m_contt.place(grid, 0, 4, "txtDCARGOROTNR", 3);
    phoneAt(1, 0, "txtNDDDROTNR", "txtNTELFNROTNR");
    m_contt.place(grid, 1, 3, "txtNFAXcontt");
    m_contt.place(grid, 1, 5, "txtDEMAILROTNR", 2);
    m_contt.place(grid, 2, 0, "txtDNOMEEMERG", 3);
    m_contt.place(grid, 2, 4, "txtDCARGOEMERG", 3);
    phoneAt(3, 0, "txtNDDDEMERG", "txtNTELFNEMERG");
    m_contt.place(grid, 3, 3, "txtNFAXEMERG");
    m_contt.place(grid, 3, 5, "txtDEMAILEMERG", 2);
    m_contt.place(grid, 4, 0, "txtNCELLREMERG", 2);
    m_contt.place(grid, 4, 3, "txtNPAGEREMERG");
    phoneAt(4, 5, "txtNDDDACINM", "txtNTELFNACINM");
    body()->addWidget(m_fraContt);

    // Keyboard order: line by line, as the frame shows the fields.
    const char* order[] = {"txtDNOMEROTNR",  "txtDCARGOROTNR", "txtNDDDROTNR",  "txtNTELFNROTNR",
                           "txtNFAXcontt",   "txtDEMAILROTNR", "txtDNOMEEMERG", "txtDCARGOEMERG",
                           "txtNDDDEMERG",   "txtNTELFNEMERG", "txtNFAXEMERG",  "txtDEMAILEMERG",
                           "txtNCELLREMERG", "txtNPAGEREMERG", "txtNDDDACINM",  "txtNTELFNACINM"};
    setTabOrder(m_address->fields().email, m_contt.widget(QString::fromLatin1(order[0])));
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(m_contt.widget(QString::fromLatin1(order[i - 1])),
                    m_contt.widget(QString::fromLatin1(order[i])));
}

void ResponsiblesForm::loadResponsible() {
    m_respn.clear();
    m_address->clear();
    const std::optional<store::Row> row = store::readRow(database(), kRespn, session().keyRow());
    if (!row)
        return;
    m_respn.load(*row);
    ui::AddressValues address = addressOf(*row, kColumns);
    m_address->setValues(address);
    // A municipality kept by a name of its own shows that name.
    const QString ownName = row->value(kColumns.municipalityName).toString();
    if (!ownName.isEmpty())
        m_address->fields().municipality->setEditText(ownName);
}

void ResponsiblesForm::loadContacts() {
    m_contt.clear();
    if (const std::optional<store::Row> row =
            store::readRow(database(), kContt, session().keyRow()))
        m_contt.load(*row);
    for (const char* ddd : {"txtNDDDROTNR", "txtNDDDEMERG", "txtNDDDACINM"}) {
        QLineEdit* edit = m_contt.edit(QString::fromLatin1(ddd));
        edit->setText(rules::formataDdd(edit->text()));
    }
}

void ResponsiblesForm::load() {
    if (!m_entered) {
        m_entered = true;
        loadResponsible();
        loadContacts();
        return;
    }
    // cmdCancelar: a record being added is emptied; a record being changed keeps what was typed
    // until the screen is entered again.
    if (operation().startsWith(ui::kIncluir))
        clearRecord(record());
}

void ResponsiblesForm::clearRecord(int which) {
    if (which == 0) {
        m_respn.clear();
        m_address->clear();
    } else {
        m_contt.clear();
    }
}

bool ResponsiblesForm::stored() const {
    return record() == 0 ? !m_respn.edit("txtDRESPN")->text().isEmpty()
                         : !m_contt.edit("txtDNOMEROTNR")->text().isEmpty();
}

void ResponsiblesForm::setEditable(bool editable) {
    m_fraResp->setEnabled(editable && record() == 0);
    m_fraContt->setEnabled(editable && record() == 1);
}

QWidget* ResponsiblesForm::beginEdit() {
    const QString item =
        record() == 0 ? QStringLiteral(" Responsavel") : QStringLiteral(" Pessoas para Contato");
    session().operacaoItem = operation() + item;
    return record() == 0 ? m_respn.widget("txtDRESPN") : m_contt.widget("txtDNOMEROTNR");
}

QString ResponsiblesForm::savedMessage() const {
    const bool insert = operation() == ui::kIncluir;
    if (record() == 0)
        return insert ? QStringLiteral("Responsável Incluído com Sucesso")
                      : QStringLiteral("Responsável Alterado com Sucesso");
    return insert ? QStringLiteral("Pessoas para Contato Incluídas com Sucesso")
                  : QStringLiteral("Pessoas para Contato Alteradas com Sucesso");
}

ui::Check ResponsiblesForm::validate() {
    return record() == 0 ? validateResponsible() : validateContacts();
}

ui::Check ResponsiblesForm::validateResponsible() const {
    QLineEdit* name = m_respn.edit("txtDRESPN");
    QLineEdit* rg = m_respn.edit("txtNRG");
    QLineEdit* issuer = m_respn.edit("txtDRGORGAO");
    QLineEdit* uf = m_respn.edit("txtIUF");
    QLineEdit* cpf = m_respn.edit("txtCCPF");
    const auto must = [](QLineEdit* field, const char* message) {
        return Check{Refusal{field, QString::fromUtf8(message)}};
    };
    if (blank(name))
        return must(name, "Preenchimento Obrigatório do Nome do Responsável.");
    // The identity document, its issuer and their state go together.
    if (!rg->text().isEmpty() && blank(issuer))
        return must(issuer, "Ao Preencher o Campo RG, é Obrigatório o Preenchimento do Órgão "
                            "Expedidor.");
    if (!rg->text().isEmpty() && blank(uf))
        return must(uf, "Ao Preencher o Campo RG, é Obrigatório o Preenchimento do Campo UF.");
    if (!blank(issuer) && rg->text().isEmpty())
        return must(rg, "Ao Preencher o Campo Órgão Expedidor, é Obrigatório o Preenchimento "
                        "do Campo RG.");
    if (!blank(issuer) && blank(uf))
        return must(uf, "Ao Preencher o Campo Órgão Expedidor, é Obrigatório o Preenchimento "
                        "do Campo UF.");
    if (!blank(uf) && rg->text().isEmpty())
        return must(rg, "Ao Preencher o Campo UF, é Obrigatório o Preenchimento do Campo RG.");
    if (!blank(uf) && blank(issuer))
        return must(issuer, "Ao Preencher o Campo UF, é Obrigatório o Preenchimento do Campo "
                            "Órgão Expedidor.");
    if (!cpf->text().isEmpty() && !rules::validaCgcCpf(cpf->text()))
        return must(cpf, "Preenchimento Inválido do CPF.");

    const ui::AddressFields& f = m_address->fields();
    const ui::AddressValues v = m_address->values();
    if (blank(f.street))
        return must(f.street, "Preenchimento Obrigatório do Endereço.");
    if (f.number->text().isEmpty() && blank(f.complement))
        return must(f.number, "Preenchimento Obrigatório do Número ou do Complemento");
    if (v.cep.isEmpty())
        return must(f.cep, "Preenchimento Obrigatório do CEP.");
    if (!rules::cepCompleto(v.cep))
        return must(f.cep, "Preenchimento Incorrento do CEP.");
    if (f.municipality->currentText().isEmpty())
        return Check{
            Refusal{f.municipality, QStringLiteral("Preenchimento Obrigatório do Município.")}};
    if (f.ddd->text().isEmpty())
        return must(f.ddd, "Preenchimento Obrigatório do DDD.");
    if (v.telephone.isEmpty())
        return must(f.telephone, "Preenchimento Obrigatório do Telefone do Responsável.");
    if (rules::telefoneIncompleto(v.telephone))
        return must(f.telephone, "Preenchimento Incorreto do Telefone do Responsável.");
    if (rules::faxIncompleto(v.fax))
        return must(f.fax, "Preenchimento Incorreto do FAX.");
    return {};
}

ui::Check ResponsiblesForm::validateContacts() const {
    struct Step {
        const char* field;
        enum { Blank, Empty, Incomplete, Partly } test;
        const char* message;
    };
    static const Step steps[] = {
        {"txtDNOMEROTNR", Step::Blank, "Preenchimento Obrigatório do Nome do Contato Rotineiro."},
        {"txtDCARGOROTNR", Step::Blank, "Preenchimento Obrigatório do Cargo do Contato Rotineiro."},
        {"txtNDDDROTNR", Step::Empty, "Preenchimento Obrigatório do DDD do Contato Rotineiro."},
        {"txtNTELFNROTNR", Step::Empty,
         "Preenchimento Obrigatório do Telefone do Contato Rotineiro."},
        {"txtDNOMEEMERG", Step::Blank, "Preenchimento Obrigatório do Nome do Contato Emergencial."},
        {"txtDCARGOEMERG", Step::Blank,
         "Preenchimento Obrigatório do Cargo do Contato Emergencial."},
        {"txtNDDDEMERG", Step::Empty, "Preenchimento Obrigatório do DDD do Contato Emergencial."},
        {"txtNTELFNEMERG", Step::Empty,
         "Preenchimento Obrigatório do Telefone do Contato Emergencial."},
        {"txtNTELFNROTNR", Step::Incomplete, "Preenchimento Incorreto do Telefone do Contato."},
        {"txtNFAXcontt", Step::Partly, "Preenchimento Incorreto do FAX do Contato."},
        {"txtNFAXEMERG", Step::Partly, "Preenchimento Incorreto do FAX Emergencial."},
        {"txtNCELLREMERG", Step::Partly, "Preenchimento Incorreto do Celular Emergencial."},
        {"txtNPAGEREMERG", Step::Partly, "Preenchimento Incorreto do Número do Pager."},
        {"txtNTELFNACINM", Step::Partly, "Preenchimento Incorreto do Telefone de Acionamento."},
    };
    for (const Step& step : steps) {
        QLineEdit* edit = m_contt.edit(QString::fromLatin1(step.field));
        const QString typed = ui::clipText(edit);
        bool refused = false;
        switch (step.test) {
        case Step::Blank:
            refused = blank(edit);
            break;
        case Step::Empty:
            refused = typed.isEmpty();
            break;
        case Step::Incomplete:
            refused = rules::telefoneIncompleto(typed);
            break;
        case Step::Partly:
            refused = rules::faxIncompleto(typed);
            break;
        }
        if (refused)
            return Refusal{edit, QString::fromUtf8(step.message)};
    }
    return {};
}

ui::Check ResponsiblesForm::leaveCheck(QWidget* field) {
    if (Check refused = m_respn.leave(field))
        return refused;
    return m_contt.leave(field);
}

void ResponsiblesForm::write(store::Database& db) {
    const bool insert = operation() == ui::kIncluir;
    store::Row values;
    const char* table = nullptr;
    if (record() == 0) {
        table = kRespn;
        values = m_respn.values();
        const store::Row address =
            addressRow(m_address->values(), kColumns,
                       store::textValue(m_address->fields().municipality->currentText()));
        for (auto it = address.begin(); it != address.end(); ++it)
            values.insert(it.key(), it.value());
    } else {
        table = kContt;
        values = m_contt.values();
        // The screen has no field for the routine contact's mobile.
        values.insert(QStringLiteral("NCELLRROTNR"), QVariant());
    }
    const store::Row row = session().newRow();
    for (auto it = row.begin(); it != row.end(); ++it)
        values.insert(it.key(), it.value());
    // A change touches the register's own row alone.
    if (insert)
        store::insertRow(db, table, values);
    else
        store::updateRow(db, table, session().keyRow(), values);
}

void ResponsiblesForm::remove() {
    const int which = record();
    session().operacaoItem =
        which == 0 ? QStringLiteral("Excluir Responsavel") : QStringLiteral("Excluir PessoasContt");
    const bool done = ui::runGuarded([&] {
        store::Transaction transaction(database());
        store::deleteRows(database(), which == 0 ? kRespn : kContt, session().keyRow());
        transaction.commit();
    });
    if (!done)
        return;
    clearRecord(which);
    ui::dialogs().message(ui::kTitle,
                          which == 0 ? QStringLiteral("Responsável Excluído com Sucesso")
                                     : QStringLiteral("Pessoas para Contato Excluídas com Sucesso"),
                          ui::Icon::Information);
    showReading();
}

} // namespace establishment
