#pragma once

#include "store/RowWriter.h"
#include "ui/AddressPanel.h"
#include "ui/Refusal.h"

#include <QGroupBox>
#include <QVariant>

class QComboBox;
class QLineEdit;

namespace store {
class Database;
}
namespace ui {

struct Session;

// fraProp: the company that owns a piece of equipment when the owner kind is "Outros", written
// to its own table (TB_POSTOTANQUPROPR, TB_POSTOBOMBAPROPR, the gas tables' owners), keyed as
// the equipment is.
class OwnerPanel : public QGroupBox {
    Q_OBJECT

public:
    // The texts that differ between the screens that use the panel.
    struct Texts {
        QString cepRequired = QStringLiteral("Preenchimnto Obrigatório do CEP");
        QString cepWrongOnLeave = QStringLiteral("Preenchimento Incorreto do CEP.");
    };

    // The panel over `table`, whose rows are keyed as the equipment they belong to.
    OwnerPanel(store::Database& db, std::string_view table, Texts texts, QWidget* parent = nullptr);

    // CarregarProp: fills the panel with the row of the equipment's `key` (its key columns),
    // or says that there is none.
    void load(store::Database& db, const store::Row& key);
    // ConsistirProprietario.
    Check validate() const;
    // GravarProprietario: the row of the equipment's `key` (its key columns and AINFRM).
    void write(store::Database& db, const store::Row& key) const;
    // Removes the owner of the equipment's `key`, if it has one.
    void remove(store::Database& db, const store::Row& key) const;
    // The fields in screen order, for the snapshot.
    QList<QWidget*> fields() const;
    // The panel follows the equipment's owner list (cmbIPROPR): a choice in it opens or closes
    // the panel at once, and followOwnerChoice() does it again on leaving the list.
    void follow(const QComboBox* ipropr);
    // Only "Outros" is a third party whose address is asked, so the panel opens for it and goes
    // away for any other owner.
    void followOwnerChoice();

private:
    std::string_view m_table;
    const QComboBox* m_ownerList = nullptr;
    Texts m_texts;
    AddressPanel* m_address = nullptr;
};

} // namespace ui
