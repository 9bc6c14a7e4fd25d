#include "shell/MainWindow.h"

#include "store/Database.h"

namespace shell {

MainWindow::MainWindow(store::Database& db, QWidget* parent)
    : QMainWindow(parent)
    , m_db(db) {
    setObjectName(QStringLiteral("F1_TelaPrincipal"));
    setWindowTitle(QStringLiteral("VOR - Caderno Vorel de Empreendimento"));
    resize(800, 600);
}

} // namespace shell
