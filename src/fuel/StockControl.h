#pragma once

#include "ui/FieldSet.h"
#include "ui/FormScreen.h"

class QGroupBox;

namespace fuel {

// frmPostoContrEstq: how the stock of one system is controlled, one row per register and
// system. The place in the chain says which system: the underground one after the underground
// pumps, the aboveground one after theirs.
class StockControl : public ui::FormScreen {
    Q_OBJECT

public:
    StockControl(ui::ScreenHost& host, const ui::Sequence::Place& place, QWidget* parent = nullptr);

    // "S" or "A".
    const QString& itanqu() const { return m_itanqu; }

protected:
    void load() override;
    bool stored() const override;
    void setEditable(bool editable) override;
    QWidget* beginEdit() override;
    QString savedMessage() const override;
    ui::Check validate() override;
    void write(store::Database& db) override;

private:
    store::Row key() const;
    // The description belongs to "Outros", the update to the book: each is open only with its box.
    void followBoxes();

    QString m_itanqu;
    ui::FieldSet m_fields;
    QGroupBox* m_frame = nullptr;
};

} // namespace fuel
