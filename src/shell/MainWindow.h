#pragma once

#include "shell/QuestionnaireFrame.h"
#include "shell/RegisterChooser.h"
#include "ui/Session.h"

#include <QMainWindow>
#include <QPointer>
#include <array>

class QLabel;
class QStackedWidget;

namespace store {
class Database;
}

namespace shell {

class EntryLabel;

// F1_TelaPrincipal: the start screen. A text about the resolution, the column of eight entries
// and, in place of the text, the panels that some entries show. It owns the session of the run.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    enum class Panel { Agencies, Suggestions, Chooser, Export };

    explicit MainWindow(store::Database& db, QWidget* parent = nullptr);
    ~MainWindow() override;

    store::Database& database() { return m_db; }
    ui::Session& session() { return m_session; }

    // The panels replace the text; "Tela Principal" on each hides it again.
    QWidget* panel(Panel which) const;
    void showPanel(Panel which);
    void showText();

    // Frame1 for the diskette or the suggestions; nothing when there is no register.
    void chooseRegister(RegisterChooser::Purpose purpose);
    // PnAviso(0) with the regional agencies.
    void openAgencies();

    // The questionnaire frame while it is open.
    QuestionnaireFrame* questionnaire() const { return m_frame; }

    // The entries, as their click (or, for the import, double click) and their key run them.
    void preencher();
    void manual();
    void gerarDisquete();
    void imprimir();
    void agencias();
    void sugestoes();
    void importar();
    void sair();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    QWidget* buildPanel(Panel which);
    void layoutColumn();
    void highlight(EntryLabel* entry);

    store::Database& m_db;
    ui::Session m_session;
    QWidget* m_central = nullptr;
    QWidget* m_left = nullptr;
    QWidget* m_column = nullptr;
    QLabel* m_contact = nullptr; // Label11, beside the column
    QStackedWidget* m_pages = nullptr;
    std::array<QWidget*, 4> m_panels{};
    std::array<EntryLabel*, 8> m_entries{};
    int m_columnX = -1; // the column's left edge once the user moved it
    QPointer<QuestionnaireFrame> m_frame;
};

} // namespace shell
