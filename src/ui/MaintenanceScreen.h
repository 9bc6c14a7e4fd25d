#pragma once

#include "ui/EditScreen.h"
#include "ui/ListScreen.h"

#include <QList>
#include <QString>

class QPushButton;
class QVBoxLayout;

namespace store {
class Database;
}

namespace ui {

class HeaderBand;
struct Session;

// One thing a maintenance screen does, as gOperacaoItem names it.
struct Operation {
    QString name;  // such as "Incluir Tanque"
    int level = 0; // 0 a main row, 1 a detail row
    bool insert = false;
    // Whether cmdOk waits for a change of the fields. An insert of a detail row keeps it on,
    // since it is a step of a chain of entries.
    bool tracksChanges = true;
};

// The maintenance screen of a list and maintenance pair: one row of the list, added or
// changed. The pair supplies its fields and small hooks; the order of events is here and in
// EditScreen: the snapshot change check that switches cmdOk, cmdCancelar and cmdFechar, the
// save, the success message, the way back to the list with the new row selected, and the
// forced entry chain of detail rows.
class MaintenanceScreen : public EditScreen {
    Q_OBJECT

public:
    MaintenanceScreen(ScreenHost& host, QString listName, QList<Operation> operations,
                      QWidget* parent = nullptr);

    // Called by the list before it shows the screen: the operation, the rows it starts from,
    // and whether it is a step of a forced chain.
    void start(const QString& operation, const ListSelection& rows, bool forced);
    // Activation: panels, first focus, first snapshot, buttons.
    void enter() override;

    const Operation& operation() const { return m_operation; }
    bool forced() const { return m_forced; }

    // The buttons.
    void ok();
    void cancel();

protected:
    ScreenHost& host() const { return m_host; }
    // The layout below the header band, where the screen puts its blocks of fields.
    QVBoxLayout* body() const { return m_body; }

    // PrepararTela: loads the lists of the operation's block.
    virtual void prepare() = 0;
    // Copies what the list's grids hold into the fields.
    virtual void copyFromList(const ListSelection& rows) = 0;
    // Shows, hides, enables the blocks for the operation and reads what the grid does not hold;
    // returns the field that takes the first focus.
    virtual QWidget* arrangePanels() = 0;
    // The key text of the row just written, as the list's first column shows it.
    virtual QString newKey() const = 0;
    // After a main row was written: how many detail rows must be entered now (gPendentes).
    virtual int childrenDue() const { return 0; }
    // Whether the forced chain counts down gPendentes; otherwise it goes on until the user
    // closes it, once closing is allowed.
    virtual bool countedChain() const { return true; }
    // In a chain that is not counted: whether cmdFechar may end it now.
    virtual bool chainMayClose(const ListSelection& rows) const;

    void changeShown(bool changed) override;
    bool tracksChanges() const override { return m_operation.tracksChanges; }
    bool outsideFields(const QWidget* widget) const override;

private:
    void backToList(const QString& newKey, bool chain);

    ScreenHost& m_host;
    QString m_listName;
    QList<Operation> m_operations;
    Operation m_operation;
    ListSelection m_rows;
    bool m_forced = false;
    HeaderBand* m_header = nullptr;
    QVBoxLayout* m_body = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancelar = nullptr;
    QPushButton* m_fechar = nullptr;
};

} // namespace ui
