#pragma once

#include <QDialog>
#include <array>

class QPushButton;
class QRadioButton;

namespace store {
class Database;
}
namespace ui {
struct Session;
}

namespace shell {

// frmVORp: asks what the memorial of this database is filled for. The stored choice is shown
// and can be changed only after Alterar; Continuar stores a changed choice and closes.
class ObjectiveDialog : public QDialog {
    Q_OBJECT

public:
    ObjectiveDialog(store::Database& db, ui::Session& session, QWidget* parent = nullptr);

private:
    void load();
    void alterar();
    void continuar();
    int chosen() const;
    QString snapshot() const;

    store::Database& m_db;
    ui::Session& m_session;
    std::array<QRadioButton*, 5> m_options{};
    QPushButton* m_alterar = nullptr;
    QPushButton* m_continuar = nullptr;
    QString m_snapshot;
};

} // namespace shell
