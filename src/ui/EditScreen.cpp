#include "ui/EditScreen.h"

#include "store/Database.h"
#include "ui/BusyCursor.h"
#include "ui/ErrorRoutine.h"
#include "ui/FieldSet.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

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

bool EditScreen::isLeaving(const QWidget* /*next*/) const {
    return true;
}

QList<QWidget*> EditScreen::watchedFields() const {
    QList<QWidget*> fields;
    for (QWidget* w : findChildren<QWidget*>()) {
        if (outsideFields(w))
            continue;
        if (qobject_cast<QLineEdit*>(w) && qobject_cast<QComboBox*>(w->parentWidget()))
            continue; // the edit inside an editable combo box: the box is the field
        if (qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
            qobject_cast<QPlainTextEdit*>(w) || qobject_cast<QCheckBox*>(w) ||
            qobject_cast<QRadioButton*>(w))
            fields << w;
    }
    return fields;
}

void EditScreen::watchFields() {
    for (QWidget* field : watchedFields()) {
        field->removeEventFilter(this);
        field->installEventFilter(this);
        // A box or an option changes with a click or a key, without being left: the change
        // check runs at once.
        if (auto* button = qobject_cast<QAbstractButton*>(field))
            connect(button, &QAbstractButton::toggled, this, &EditScreen::buttonToggled,
                    Qt::UniqueConnection);
    }
}

void EditScreen::buttonToggled() {
    if (m_snapshotTaken && !m_inLeaveCheck)
        verifyChange();
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
    // Before the first snapshot the fields are still being filled on entry.
    if (!tracksChanges() || !m_snapshotTaken)
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
    if (event->type() == QEvent::FocusIn) {
        m_lastField = static_cast<QWidget*>(watched);
    } else if (event->type() == QEvent::FocusOut && !m_inLeaveCheck) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        // The window losing the focus to a message box or a popup is no leaving of the field.
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
            isLeaving(QApplication::focusWidget()))
            runLeaveCheck(static_cast<QWidget*>(watched));
    }
    return Screen::eventFilter(watched, event);
}

bool EditScreen::leaveFocusedField() {
    QWidget* field = focusWidget();
    if (field && qobject_cast<QComboBox*>(field->parentWidget()))
        field = field->parentWidget();
    // The focus went on to a button that does not count as leaving: the field it came from is
    // still being left now.
    if (m_lastField && field && !isLeaving(field))
        field = m_lastField;
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
        // The focus going back to the refused field leaves no other field.
        m_inLeaveCheck = true;
        showRefusal(*refused, this);
        m_inLeaveCheck = false;
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
