#pragma once

#include "ui/FieldSet.h"
#include "ui/FormScreen.h"

class QGroupBox;
class QRadioButton;

namespace ui {
class AddressPanel;
}

namespace establishment {

// frmPostoRespnContt, "Cadastro de Responsável e Pessoas para Contato": the register's one
// responsible person (TB_POSTORESPN) and its one row of contact persons (TB_POSTOCONTT). The
// option optOperacao chooses the record that the buttons act on; a record counts as entered
// while its name is filled on the screen.
class ResponsiblesForm : public ui::FormScreen {
    Q_OBJECT

public:
    ResponsiblesForm(ui::ScreenHost& host, const ui::Sequence::Place& place,
                     QWidget* parent = nullptr);

    // The record chosen: 0 the responsible, 1 the contacts.
    int record() const;

protected:
    void load() override;
    bool stored() const override;
    void setEditable(bool editable) override;
    QWidget* beginEdit() override;
    QString savedMessage() const override;
    ui::Check validate() override;
    ui::Check leaveCheck(QWidget* field) override;
    void write(store::Database& db) override;
    void remove() override;

private:
    void buildResponsible();
    void buildContacts();
    void loadResponsible();
    void loadContacts();
    ui::Check validateResponsible() const;
    ui::Check validateContacts() const;
    void clearRecord(int record);

    ui::FieldSet m_respn;
    ui::FieldSet m_contt;
    ui::AddressPanel* m_address = nullptr;
    QGroupBox* m_fraResp = nullptr;
    QGroupBox* m_fraContt = nullptr;
    QRadioButton* m_options[2] = {nullptr, nullptr};
    bool m_entered = false;
};

} // namespace establishment
