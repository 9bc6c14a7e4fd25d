#pragma once

#include "ui/Refusal.h"
#include "ui/ScreenHost.h"

#include <QList>
#include <QString>

namespace store {
class Database;
}

namespace ui {

struct Session;

// What every screen that edits stored rows does the same way, single forms and maintenance
// screens alike: the snapshot of the fields that tells whether anything was changed, the checks
// of leaving a field (a refusal takes the focus back), and the save: the focused field's own
// check first, then the validation's first refusal shown on its field, then the writes in one
// transaction. A failed save keeps everything that was typed.
class EditScreen : public Screen {
    Q_OBJECT

public:
    EditScreen(store::Database& db, Session& session, QWidget* parent = nullptr);

    const QString& retratoInicial() const { return m_retratoInicial; }
    const QString& retratoAtual() const { return m_retratoAtual; }
    // VerificarAlteracao: composes the snapshot again and lets the buttons follow.
    void verifyChange();
    bool hasUnsavedInput() const override;

protected:
    Session& session() const { return m_session; }
    store::Database& database() const { return m_db; }

    // The fields of the snapshot, in screen order.
    virtual QList<QWidget*> snapshotFields() const = 0;
    // The validation routines of Ok in their order; the first refusal or nothing.
    virtual Check validate() = 0;
    // The checks of leaving `field`; the first refusal or nothing. May act on other fields.
    virtual Check leaveCheck(QWidget* field);
    // The writes of the save, inside the transaction that the screen opened.
    virtual void write(store::Database& db) = 0;
    // The buttons follow whether the fields differ from the snapshot taken on entry.
    virtual void changeShown(bool changed) = 0;
    // Whether the screen watches for changes now; off, the buttons stay as they are.
    virtual bool tracksChanges() const { return true; }
    // Where the watched fields are not looked for (the header band).
    virtual bool outsideFields(const QWidget* widget) const;
    // Whether the focus going to `next` leaves the field; a screen whose buttons check the field
    // themselves says no for them.
    virtual bool isLeaving(const QWidget* next) const;
    // The text that tells whether anything was changed; by default the snapshot fields' texts.
    virtual QString composeSnapshot() const;

    // The fields whose leaving runs leaveCheck and the change check: every line edit, combo box,
    // text box, check box and option button of the screen, found when the screen is entered.
    QList<QWidget*> watchedFields() const;
    // Installs the leaving checks on the watched fields.
    void watchFields();
    // Takes the snapshot that later changes are compared with.
    void takeSnapshot();
    // Runs the check of leaving the focused field; false when it refused.
    bool leaveFocusedField();
    // The save: the focused field's check, the validation, the writes in one transaction.
    // False when a check refused or the writes failed.
    bool save();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buttonToggled();
    bool runLeaveCheck(QWidget* field);

    store::Database& m_db;
    Session& m_session;
    bool m_inLeaveCheck = false;
    bool m_snapshotTaken = false;
    QWidget* m_lastField = nullptr; // the watched field that had the focus last
    QString m_retratoInicial;
    QString m_retratoAtual;
};

} // namespace ui
