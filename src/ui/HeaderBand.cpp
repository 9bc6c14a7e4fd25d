#include "ui/HeaderBand.h"

#include "rules/Formats.h"
#include "ui/Session.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace ui {

namespace {

QLineEdit* readOnlyField(const QString& name, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(name);
    field->setReadOnly(true);
    field->setFocusPolicy(Qt::NoFocus);
    return field;
}

} // namespace

HeaderBand::HeaderBand(QWidget* parent)
    : QGroupBox(parent) {
    setObjectName(QStringLiteral("fraCbclh"));
    m_vor = readOnlyField(QStringLiteral("txtVOR"), this);
    m_razaoSocial = readOnlyField(QStringLiteral("txtRazaoSocil"), this);
    m_ainfrm = readOnlyField(QStringLiteral("txtAinfrm"), this);
    m_vor->setMaximumWidth(90);
    m_ainfrm->setMaximumWidth(90);
    m_vor->setAlignment(Qt::AlignCenter);
    m_ainfrm->setAlignment(Qt::AlignCenter);

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("VOR"), this));
    layout->addWidget(m_vor);
    layout->addWidget(new QLabel(QStringLiteral("Razão Social"), this));
    layout->addWidget(m_razaoSocial, 1);
    layout->addWidget(new QLabel(QStringLiteral("Data da Informação"), this));
    layout->addWidget(m_ainfrm);
}

void HeaderBand::fill(const Session& session) {
    m_vor->setText(session.key().code());
    m_razaoSocial->setText(session.razaoSocial);
    m_ainfrm->setText(rules::shortDate(session.ainfrm));
}

} // namespace ui
