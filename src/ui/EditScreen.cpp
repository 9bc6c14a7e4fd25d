#include "ui/EditScreen.h"

#include "store/Database.h"
#include "ui/BusyCursor.h"
#include "ui/ErrorRoutine.h"
#include "ui/FieldSet.h"

#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace ui {

EditScreen::EditScreen(store::Database& db, Session& session, QWidget* parent)
    : Screen(parent)
    , m_db(db)
    , m_session(session) {}

Check EditScreen::leaveCheck(QWidget* /*field*/) {
    return {};
}

bool EditScreen::outsideFields(const QWidget* /*widget*/) const {
    return false;
}

QList<QWidget*> EditScreen::watchedFields() const {
    QList<QWidget*> fields;
    for (QWidget* w : findChildren<QWidget*>()) {
        if (outsideFields(w))
            continue;
        if (qobject_cast<QLineEdit*>(w) && qobject_cast<QComboBox*>(w->parentWidget()))
            continue; // the edit inside an editable combo box: the box is the field
        if (qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
            qobject_cast<QPlainTextEdit*>(w))
            fields << w;
    }
    return fields;
}

void EditScreen::watchFields() {
    for (QWidget* field : watchedFields()) {
        field->removeEventFilter(this);
        field->installEventFilter(this);
    }
}

QString EditScreen::composeSnapshot() const {
    QString snapshot;
    for (const QWidget* field : snapshotFields())
        snapshot += snapshotText(field);
    return snapshot;
}

void EditScreen::takeSnapshot() {
    m_retratoInicial = composeSnapshot();
    m_retratoAtual = m_retratoInicial;
    m_snapshotTaken = true;
}

void EditScreen::verifyChange() {
    if (!tracksChanges())
        return;
    m_retratoAtual = composeSnapshot();
    changeShown(m_retratoAtual != m_retratoInicial);
}

bool EditScreen::hasUnsavedInput() const {
    return m_snapshotTaken && composeSnapshot() != m_retratoInicial;
}

bool EditScreen::runLeaveCheck(QWidget* field) {
    m_inLeaveCheck = true;
    Check refused;
    const bool ran = runGuarded([&] { refused = leaveCheck(field); });
    if (refused)
        showRefusal(*refused, this);
    else if (ran)
        verifyChange();
    m_inLeaveCheck = false;
    return ran && !refused;
}

bool EditScreen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && !m_inLeaveCheck) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        // The window losing the focus to a message box or a popup is no leaving of the field.
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            runLeaveCheck(static_cast<QWidget*>(watched));
    }
    return Screen::eventFilter(watched, event);
}

bool EditScreen::leaveFocusedField() {
    QWidget* field = focusWidget();
    if (field && qobject_cast<QComboBox*>(field->parentWidget()))
        field = field->parentWidget();
    if (!field || !watchedFields().contains(field))
        return true;
    return runLeaveCheck(field);
}

bool EditScreen::save() {
    if (!leaveFocusedField())
        return false;
    Check refused;
    if (!runGuarded([&] { refused = validate(); }))
        return false;
    if (refused) {
        showRefusal(*refused, this);
        return false;
    }
    BusyCursor busy;
    // Either every statement of the save lasts or none: a failure leaves the scope with the
    // transaction open, which rolls it back, and the fields keep what was typed.
    return runGuarded([&] {
        store::Transaction transaction(m_db);
        write(m_db);
        transaction.commit();
    });
}

} // namespace ui
