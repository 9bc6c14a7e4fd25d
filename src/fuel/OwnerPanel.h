#pragma once

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
}

namespace fuel {

// fraProp: the company that owns a piece of equipment when the owner kind is "Outros", written
// to its own table (TB_POSTOTANQUPROPR by NTANQU, TB_POSTOBOMBAPROPR by NBOMBA).
class OwnerPanel : public QGroupBox {
    Q_OBJECT

public:
    // The texts that differ between the screens that use the panel.
    struct Texts {
        QString cepRequired = QStringLiteral("Preenchimnto Obrigatório do CEP");
        QString cepWrongOnLeave = QStringLiteral("Preenchimento Incorreto do CEP.");
    };

    OwnerPanel(store::Database& db, QString table, QString keyColumn, Texts texts,
               QWidget* parent = nullptr);

    // CarregarProp: fills the panel with the stored row, or says that there is none.
    void load(store::Database& db, const ui::Session& session, const QString& itanqu,
              const QVariant& key);
    // ConsistirProprietario.
    ui::Check validate() const;
    // GravarProprietario.
    void write(store::Database& db, const ui::Session& session, const QString& itanqu,
               const QVariant& key) const;
    // The fields in screen order, for the snapshot.
    QList<QWidget*> fields() const;
    // The owner list of the equipment (cmbIPROPR) was chosen: only "Outros" is a third party
    // whose address is asked, so the panel opens for it and goes away for any other owner.
    void followOwnerChoice(const QComboBox* ipropr);

private:
    QString m_table;
    QString m_keyColumn;
    Texts m_texts;
    ui::AddressPanel* m_address = nullptr;
};

} // namespace fuel
