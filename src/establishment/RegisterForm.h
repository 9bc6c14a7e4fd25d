#pragma once

#include "establishment/RegisterRecord.h"
#include "ui/EditScreen.h"

#include <QHash>
#include <QWidget>
#include <array>
#include <functional>
#include <optional>

class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace ui {
class AddressBlock;
}

namespace ui {
struct Session;
}

namespace establishment {

// frmVORCadast: the establishment's identification. Creates a register ("Incluir") or changes
// one ("Alterar"), as the session's operation says; emits closed() when it is done, saved or not.
class RegisterForm : public ui::EditScreen {
    Q_OBJECT

public:
    RegisterForm(store::Database& db, ui::Session& session, QWidget* parent = nullptr);

    RegisterFields fields() const;

signals:
    void closed();

protected:
    QList<QWidget*> snapshotFields() const override;
    QString composeSnapshot() const override;
    ui::Check validate() override;
    // The check of a field on leaving it. At Ok an empty field is left to the checks of Ok.
    ui::Check leaveCheck(QWidget* field) override;
    void write(store::Database& db) override;
    void changeShown(bool changed) override;
    bool isLeaving(const QWidget* next) const override;

private:
    QLineEdit* addText(const char* name, int maxLength);
    void build();
    void setFields(const RegisterFields& f);

    void ok();
    void fechar();
    void alterarVor();

    store::Database& m_db;
    ui::Session& m_session;
    std::array<QRadioButton*, 4> m_kinds{};
    QHash<QString, QLineEdit*> m_texts;
    QComboBox* m_municipio = nullptr;
    QLineEdit* m_municipioFixo = nullptr; // picDMUNCP
    ui::AddressBlock* m_address = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancelar = nullptr;
    QPushButton* m_fechar = nullptr;
    bool m_changing = false;
    bool m_onOk = false;
    // The key of the register that the save just created.
    std::optional<store::RegisterKey> m_newKey;
};

} // namespace establishment
