#pragma once

#include "ui/FieldSet.h"
#include "ui/FormScreen.h"

class QGroupBox;

namespace establishment {

// frmPostoEntrg: the delivery declaration, the last screen of the questionnaire. One row of
// TB_POSTOENTRG names who delivers the document and whether attachments go with it.
class DeliveryForm : public ui::FormScreen {
    Q_OBJECT

public:
    DeliveryForm(ui::ScreenHost& host, const ui::Sequence::Place& place, QWidget* parent = nullptr);

protected:
    void load() override;
    bool stored() const override;
    void setEditable(bool editable) override;
    QWidget* beginEdit() override;
    QString savedMessage() const override;
    ui::Check validate() override { return m_fields.validate(); }
    ui::Check leaveCheck(QWidget* field) override { return m_fields.leave(field); }
    void write(store::Database& db) override;
    void remove() override;

private:
    bool attachments() const;
    void attachmentsChosen(bool focus);

    ui::FieldSet m_fields;
    QGroupBox* m_frame = nullptr;
};

} // namespace establishment
