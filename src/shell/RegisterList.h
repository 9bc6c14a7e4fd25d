#pragma once

#include "shell/RegisterListData.h"

#include <QWidget>

class QPushButton;
class QRadioButton;
class QTableWidget;

namespace shell {

class QuestionnaireFrame;

// frmVOR: the registers of the database. Every showing rebuilds the grid from the database and
// selects the register just created (gChaveNova) or the one last chosen (gLinhaLista).
class RegisterList : public QWidget {
    Q_OBJECT

public:
    explicit RegisterList(QuestionnaireFrame& frame);

    // Rebuilds the grid, sets the buttons and selects the row to work on (Form_Activate).
    void activate();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Fills the grid from the database. `shortCut` words only the statuses 0 to 2, as the list
    // does right after a delete; the others stay bare digits until the next showing.
    void fill(bool shortCut);
    void enableButtons();
    void selectRow(int row);
    int selectedRow() const;
    std::optional<store::RegisterKey> selectedKey() const;
    void takeSelected(int row);

    void continuar();
    void alterar();
    void incluir();
    void excluir();
    void exportar();
    void imprimir();
    void voltar();
    void openRegisterForm(const QString& captionSuffix);

    QuestionnaireFrame& m_frame;
    QRadioButton* m_byName = nullptr;
    QRadioButton* m_byCnpj = nullptr;
    QTableWidget* m_grid = nullptr;
    QPushButton* m_continuar = nullptr;
    QPushButton* m_alterar = nullptr;
    QPushButton* m_incluir = nullptr;
    QPushButton* m_excluir = nullptr;
    QPushButton* m_exportar = nullptr;
    QPushButton* m_imprimir = nullptr;
    QPushButton* m_voltar = nullptr;
};

} // namespace shell
