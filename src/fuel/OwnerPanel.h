#pragma once

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

    OwnerPanel(QString table, QString keyColumn, Texts texts, QWidget* parent = nullptr);

    // Loads the municipality list.
    void prepare(store::Database& db);
    // CarregarProp: fills the panel with the stored row, or says that there is none.
    void load(store::Database& db, const ui::Session& session, const QString& itanqu,
              const QVariant& key);
    // ConsistirProprietario.
    ui::Check validate() const;
    // The address rules on leaving one of the panel's fields.
    ui::Check leaveCheck(QWidget* field);
    // GravarProprietario.
    void write(store::Database& db, const ui::Session& session, const QString& itanqu,
               const QVariant& key) const;
    // The fields in screen order, for the snapshot.
    QList<QWidget*> fields() const;

private:
    void showState();

    QString m_table;
    QString m_keyColumn;
    Texts m_texts;
    QLineEdit* m_razaoSocial = nullptr;
    QLineEdit* m_contato = nullptr;
    QLineEdit* m_logradouro = nullptr;
    QLineEdit* m_numero = nullptr;
    QLineEdit* m_complemento = nullptr;
    QLineEdit* m_bairro = nullptr;
    QLineEdit* m_cep = nullptr;
    QComboBox* m_municipio = nullptr;
    QLineEdit* m_uf = nullptr;
    QLineEdit* m_ddd = nullptr;
    QLineEdit* m_telefone = nullptr;
    QLineEdit* m_fax = nullptr;
    QLineEdit* m_email = nullptr;
};

} // namespace fuel
