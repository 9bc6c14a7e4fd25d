#include "ui/FormScreen.h"

#include "ui/BusyCursor.h"
#include "ui/ErrorRoutine.h"
#include "ui/FormParts.h"
#include "ui/HeaderBand.h"
#include "ui/Session.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace ui {

FormScreen::FormScreen(ScreenHost& host, Sequence::Place place, QWidget* parent)
    : EditScreen(host.database(), host.session(), parent)
    , m_host(host)
    , m_place(std::move(place)) {
    setObjectName(m_place.screen);
    auto* layout = new QVBoxLayout(this);
    m_header = new HeaderBand(this);
    layout->addWidget(m_header);
    m_body = new QVBoxLayout;
    layout->addLayout(m_body, 1);

    auto* bottom = new QHBoxLayout;
    auto* operations = new QGroupBox(QStringLiteral("Operação"), this);
    operations->setObjectName(QStringLiteral("fraOperacao"));
    m_operationButtons = new QHBoxLayout(operations);
    m_incluir = editButton(QStringLiteral("cmdIncluir"), QStringLiteral("&Incluir"), operations);
    m_alterar = editButton(QStringLiteral("cmdAlterar"), QStringLiteral("&Alterar"), operations);
    m_ok = editButton(QStringLiteral("cmdOk"), QStringLiteral("&Ok"), operations);
    m_cancelar = editButton(QStringLiteral("cmdCancelar"), QStringLiteral("&Cancelar"), operations);
    for (QPushButton* b : {m_incluir, m_alterar, m_ok, m_cancelar})
        m_operationButtons->addWidget(b);
    bottom->addWidget(operations);
    bottom->addStretch(1);
    m_voltar = editButton(QStringLiteral("cmdVoltar"), QStringLiteral("&Voltar"), this);
    m_continuar = editButton(QStringLiteral("cmdContinuar"), QStringLiteral("&Continuar"), this);
    m_continuar->setDefault(true);
    bottom->addWidget(m_voltar);
    bottom->addWidget(m_continuar);
    layout->addLayout(bottom);

    connect(m_incluir, &QPushButton::clicked, this, &FormScreen::include);
    connect(m_alterar, &QPushButton::clicked, this, &FormScreen::alter);
    connect(m_ok, &QPushButton::clicked, this, &FormScreen::ok);
    connect(m_cancelar, &QPushButton::clicked, this, &FormScreen::cancel);
    connect(m_voltar, &QPushButton::clicked, this, &FormScreen::goBack);
    connect(m_continuar, &QPushButton::clicked, this, &FormScreen::goOn);
}

QPushButton* FormScreen::addExcluir() {
    m_excluir = editButton(QStringLiteral("cmdExcluir"), QStringLiteral("&Excluir"),
                           m_alterar->parentWidget());
    m_operationButtons->insertWidget(m_operationButtons->indexOf(m_alterar) + 1, m_excluir);
    connect(m_excluir, &QPushButton::clicked, this, &FormScreen::remove);
    return m_excluir;
}

void FormScreen::enter() {
    m_header->fill(session());
    watchFields();
    runGuarded([&] { load(); });
    showReading();
    m_continuar->setEnabled(true);
    m_continuar->setFocus(Qt::OtherFocusReason);
}

void FormScreen::showReading() {
    m_editing = false;
    setEditable(false);
    bool completed = false;
    runGuarded([&] { completed = stored(); });
    m_incluir->setEnabled(!completed);
    m_alterar->setEnabled(completed);
    if (m_excluir)
        m_excluir->setEnabled(completed);
    m_ok->setEnabled(false);
    m_cancelar->setEnabled(false);
    takeSnapshot();
}

bool FormScreen::outsideFields(const QWidget* widget) const {
    return m_header->isAncestorOf(widget);
}

QList<QWidget*> FormScreen::snapshotFields() const {
    return m_editing ? watchedFields() : QList<QWidget*>{};
}

void FormScreen::changeShown(bool /*changed*/) {}

QString FormScreen::savedMessage() const {
    return m_operation == kIncluir ? QStringLiteral("Incluído com Sucesso")
                                   : QStringLiteral("Alterado com Sucesso");
}

void FormScreen::include() {
    startEdit(kIncluir);
}

void FormScreen::alter() {
    startEdit(kAlterar);
}

void FormScreen::startEdit(const QString& operation) {
    BusyCursor busy;
    m_operation = operation;
    session().operacaoItem = m_operation;
    m_editing = true;
    setEditable(true);
    QWidget* first = nullptr;
    runGuarded([&] { first = beginEdit(); });
    m_incluir->setEnabled(false);
    m_alterar->setEnabled(false);
    if (m_excluir)
        m_excluir->setEnabled(false);
    m_ok->setEnabled(true);
    m_cancelar->setEnabled(true);
    takeSnapshot();
    if (first)
        first->setFocus(Qt::OtherFocusReason);
}

void FormScreen::ok() {
    if (!save())
        return;
    dialogs().message(kTitle, savedMessage(), savedIcon());
    showReading();
    m_continuar->setEnabled(true);
    m_continuar->setFocus(Qt::OtherFocusReason);
}

void FormScreen::cancel() {
    BusyCursor busy;
    runGuarded([&] { load(); });
    showReading();
}

void FormScreen::goBack() {
    if (!mayLeave())
        return;
    BusyCursor busy;
    showPrevious(m_host, m_place);
}

void FormScreen::goOn() {
    if (!mayLeave())
        return;
    BusyCursor busy;
    showNext(m_host, m_place);
}

} // namespace ui
