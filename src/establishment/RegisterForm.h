#pragma once

#include "establishment/RegisterRecord.h"

#include <QHash>
#include <QWidget>
#include <array>
#include <functional>

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
class RegisterForm : public QWidget {
    Q_OBJECT

public:
    RegisterForm(store::Database& db, ui::Session& session, QWidget* parent = nullptr);

    RegisterFields fields() const;

signals:
    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit* addText(const char* name, int maxLength);
    void build();
    void setFields(const RegisterFields& f);
    void checkChanged();
    // The check of a field on leaving it; false (after its message) when it refused the text
    // and took the focus back.
    bool leaveCheck(QWidget* field, bool onOk);
    void refuse(const Refusal& refusal);

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
    QWidget* m_lastField = nullptr;
    QString m_packOnEntry;
    bool m_changing = false;
    bool m_inLeaveCheck = false;
};

} // namespace establishment
