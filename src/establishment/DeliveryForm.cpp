#include "establishment/DeliveryForm.h"

#include "store/Database.h"
#include "store/RowWriter.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/Session.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace establishment {

namespace {

using ui::Check;
using ui::FieldKind;
using ui::Refusal;

const char* const kTable = "TB_POSTOENTRG";
const QString kAnexo = QStringLiteral("optANEXO");
const QString kQuantidade = QStringLiteral("txtNQUANT");

} // namespace

DeliveryForm::DeliveryForm(ui::ScreenHost& host, const ui::Sequence::Place& place, QWidget* parent)
    : ui::FormScreen(host, place, parent)
    , m_fields(kTable, this) {
    setWindowTitle(QStringLiteral("Entrega do Caderno"));
    m_frame = new QGroupBox(this);
    m_frame->setObjectName(QStringLiteral("fra3"));
    m_fields.add({.name = "txtDNOME",
                  .label = "Nome :",
                  .column = "DNOME",
                  .required = "Preenchimento obrigatório do campo Nome"},
                 m_frame);
    m_fields.add(
        {.name = "txtDCARGO",
         .label = "Cargo :",
         .column = "DCARGO",
         .required = "Preenchimento obrigatório do Cargo do Representante do Empreendimento"},
        m_frame);
    m_fields.add({.name = "txtNRG",
                  .label = "RG :",
                  .kind = FieldKind::Number,
                  .column = "NRG",
                  .required = "Preenchimento obrigatório do campo RG",
                  .length = 10},
                 m_frame);
    m_fields.add({.name = kAnexo,
                  .label = "Anexos",
                  .kind = FieldKind::Choice,
                  .column = "IANEXO",
                  .codes = "SIMNAO.LOGICO",
                  .check = [this]() -> Check {
                      if (m_fields.value(kAnexo).isNull())
                          return Refusal{
                              m_frame->findChild<QRadioButton*>(kAnexo + QStringLiteral("_1")),
                              QStringLiteral("Preenchimento obrigatório da existência ou não de "
                                             "documentos anexos")};
                      if (attachments() && m_fields.edit(kQuantidade)->text().toLongLong() < 1)
                          return Refusal{m_fields.edit(kQuantidade),
                                         QStringLiteral("Preenchimento obrigatório da quantidade "
                                                        "de anexos")};
                      return {};
                  }},
                 m_frame);
    m_fields.add({.name = kQuantidade,
                  .label = "Quantidade:",
                  .kind = FieldKind::Number,
                  .column = "NQUANT",
                  .length = 4},
                 m_frame);
    m_fields.edit(kQuantidade)->setEnabled(false);
    m_fields.edit(kQuantidade)->setMaximumWidth(80);

    auto* grid = new QGridLayout(m_frame);
    m_fields.place(grid, 0, 0, "txtDNOME", 3);
    m_fields.place(grid, 1, 0, "txtDCARGO", 3);
    m_fields.place(grid, 2, 0, "txtNRG");
    auto* anexos = new QGroupBox(QStringLiteral("Anexos"), m_frame);
    auto* anexosLayout = new QGridLayout(anexos);
    anexosLayout->addWidget(m_fields.widget(kAnexo), 0, 0, 1, 2);
    m_fields.place(anexosLayout, 1, 0, kQuantidade);
    grid->addWidget(anexos, 3, 0, 1, 4);
    grid->setColumnStretch(3, 1);
    body()->addWidget(m_frame);
    body()->addStretch(1);

    for (QRadioButton* option : m_fields.widget(kAnexo)->findChildren<QRadioButton*>()) {
        connect(option, &QRadioButton::toggled, this, [this] { attachmentsChosen(false); });
        connect(option, &QRadioButton::clicked, this, [this] { attachmentsChosen(true); });
    }
    addExcluir();
    // The form's third button, as it was always drawn, does nothing.
    auto* command6 = new QPushButton(QStringLiteral("&Excluir"), this);
    command6->setObjectName(QStringLiteral("Command6"));
    command6->setFocusPolicy(Qt::TabFocus);
    operationButtons()->addWidget(command6);
}

bool DeliveryForm::attachments() const {
    return m_fields.value(kAnexo).toInt() == -1;
}

// "Sim" opens the quantity, "Não" empties and closes it.
void DeliveryForm::attachmentsChosen(bool focus) {
    QLineEdit* quantity = m_fields.edit(kQuantidade);
    if (attachments()) {
        quantity->setEnabled(true);
        if (focus)
            quantity->setFocus(Qt::OtherFocusReason);
    } else if (!m_fields.value(kAnexo).isNull()) {
        quantity->clear();
        quantity->setEnabled(false);
    }
}

void DeliveryForm::load() {
    m_fields.clear();
    std::optional<store::Row> row = store::readRow(database(), kTable, session().keyRow());
    if (!row)
        return;
    // Any true value answers "Sim".
    const QString anexo = QStringLiteral("IANEXO");
    row->insert(anexo, row->value(anexo).toInt() != 0 ? -1 : 0);
    m_fields.load(*row);
}

bool DeliveryForm::stored() const {
    return store::rowExists(database(), kTable, session().keyRow());
}

void DeliveryForm::setEditable(bool editable) {
    m_frame->setEnabled(editable);
}

QWidget* DeliveryForm::beginEdit() {
    return m_fields.widget("txtDNOME");
}

QString DeliveryForm::savedMessage() const {
    return operation() == ui::kIncluir ? QStringLiteral("Incluído com Sucesso.")
                                       : QStringLiteral("Alterado com Sucesso.");
}

void DeliveryForm::write(store::Database& db) {
    store::Row row = session().newRow();
    const store::Row values = m_fields.values();
    for (auto it = values.begin(); it != values.end(); ++it)
        row.insert(it.key(), it.value());
    if (row.value(QStringLiteral("NQUANT")).isNull())
        row.insert(QStringLiteral("NQUANT"), 0);
    store::deleteRows(db, kTable, session().keyRow());
    store::insertRow(db, kTable, row);
}

void DeliveryForm::remove() {
    if (!ui::dialogs().ask(ui::kTitle, QStringLiteral("Deseja Excluir os Ítens?."),
                           ui::Icon::Question, false))
        return;
    const bool done = ui::runGuarded([&] {
        store::Transaction transaction(database());
        store::deleteRows(database(), kTable, session().keyRow());
        transaction.commit();
    });
    if (!done)
        return;
    ui::runGuarded([&] { load(); });
    showReading();
}

} // namespace establishment
