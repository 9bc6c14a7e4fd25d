#pragma once

#include "ui/EditScreen.h"
#include "ui/Sequence.h"

class QGroupBox;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace ui {

class HeaderBand;

// A single form of the chain: the register's one row of a table (or one set of rows), read
// only until cmdIncluir or cmdAlterar opens it for editing; cmdOk saves and closes it again,
// cmdCancelar drops the edit and shows what is stored. cmdVoltar and cmdContinuar walk the
// chain. The form supplies its fields, its load and its writes; the states are here.
class FormScreen : public EditScreen {
    Q_OBJECT

public:
    FormScreen(ScreenHost& host, Sequence::Place place, QWidget* parent = nullptr);

    // Loads the stored row and shows the reading state, cmdContinuar in front.
    void enter() override;

    bool editing() const { return m_editing; }
    // gOperacaoItem of the edit in progress: "Incluir" or "Alterar".
    const QString& operation() const { return m_operation; }

    // The buttons.
    void include();
    void alter();
    void ok();
    void cancel();
    void goBack();
    void goOn();

protected:
    ScreenHost& host() const { return m_host; }
    // The layout below the header band, where the form puts its frames.
    QVBoxLayout* body() const { return m_body; }
    // The frame of the operation buttons, for a form that has a button of its own there.
    QHBoxLayout* operationButtons() const { return m_operationButtons; }

    // Carregar: shows what is stored. Run on entering and after cmdCancelar.
    virtual void load() = 0;
    // Whether the stored row counts as entered: cmdAlterar then, cmdIncluir otherwise.
    virtual bool stored() const = 0;
    // Enables or disables the frames of the fields.
    virtual void setEditable(bool editable) = 0;
    // The start of an edit (after the frames were enabled); returns the field of the first focus.
    virtual QWidget* beginEdit() = 0;
    // The message of a save that went through.
    virtual QString savedMessage() const;

    void changeShown(bool changed) override;
    bool tracksChanges() const override { return false; }
    bool outsideFields(const QWidget* widget) const override;
    QList<QWidget*> snapshotFields() const override;

private:
    void showReading();
    void startEdit(const QString& operation);

    ScreenHost& m_host;
    Sequence::Place m_place;
    HeaderBand* m_header = nullptr;
    QVBoxLayout* m_body = nullptr;
    QHBoxLayout* m_operationButtons = nullptr;
    QPushButton* m_incluir = nullptr;
    QPushButton* m_alterar = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancelar = nullptr;
    QPushButton* m_voltar = nullptr;
    QPushButton* m_continuar = nullptr;
    QString m_operation;
    bool m_editing = false;
};

} // namespace ui
