#pragma once

#include "ui/FieldSet.h"
#include "ui/FormScreen.h"

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;

namespace environment {

// frmPostoPrevnAcidn: the register's one row of fire-fighting approval and emergency team.
class AccidentPrevention : public ui::FormScreen {
    Q_OBJECT

public:
    AccidentPrevention(ui::ScreenHost& host, ui::Sequence::Place place, QWidget* parent = nullptr);

    // cmdExcluir: the row goes, after the question.
    void remove();

protected:
    void load() override;
    bool stored() const override;
    void setEditable(bool editable) override;
    QWidget* beginEdit() override;
    QString savedMessage() const override;
    ui::Check validate() override;
    ui::Check leaveCheck(QWidget* field) override;
    void write(store::Database& db) override;

private:
    bool hasTeam() const;
    bool outsourced() const;
    // Option click: "Sim" shows the team's frame, "Não" hides it.
    void teamAnswered();
    // A box ticked clears the other two; the outside firm's frame follows "Terceirizada".
    void boxTicked(QCheckBox* box);
    ui::Check approvalDate() const;
    ui::Check validityDate() const;
    // The area code of the call and its number go together.
    ui::Check callNumber() const;
    ui::Check teamChosen() const;

    ui::FieldSet m_fields;
    QGroupBox* m_fra1 = nullptr;
    QWidget* m_picSEQUPEEMERG = nullptr;
    QGroupBox* m_fra2 = nullptr;
    QGroupBox* m_fra3 = nullptr;
    QLineEdit* m_aaprvc = nullptr;
    QLineEdit* m_aautovistr = nullptr;
    QCheckBox* m_propr = nullptr;
    QCheckBox* m_tercr = nullptr;
    QCheckBox* m_distr = nullptr;
    QList<QLineEdit*> m_phones;
    QPushButton* m_excluir = nullptr;
};

} // namespace environment
