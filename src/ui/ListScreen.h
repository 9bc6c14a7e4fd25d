#pragma once

#include "ui/FieldSet.h"
#include "ui/Refusal.h"
#include "ui/ScreenHost.h"

#include <QHash>
#include <QStringList>
#include <QVariantList>
#include <functional>
#include <string_view>
#include <vector>

class QGroupBox;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace store {
class Database;
}

namespace ui {

class HeaderBand;
class MaintenanceScreen;
struct Session;

// A statement with its bound values.
struct Query {
    QString sql;
    QVariantList values;
};

// One column of a list grid: its heading, its width, and how a stored value is shown.
struct GridColumn {
    // Text as stored (or its label); Date dd/MM/yyyy; Decimal with two places and the decimal
    // comma, no thousands ("1234,50"); Time hh:mm.
    enum class Kind { Text, Date, Decimal, Time };

    GridColumn(QString heading, int width, Kind kind = Kind::Text,
               QHash<QString, QString> labels = {})
        : heading(std::move(heading))
        , width(width)
        , kind(kind)
        , labels(std::move(labels)) {}

    QString heading;
    int width = 100; // 0: a hidden column, whose cells the selection still carries
    Kind kind = Kind::Text;
    // Stored code to the label that the grid shows instead; empty for a column shown as stored.
    QHash<QString, QString> labels;
};

// The selected rows of the list's grids as they are shown (labels, dates dd/MM/yyyy): what a
// maintenance screen starts from. Beside them the values as the query gave them, codes before
// their labels, so that a row is found again by what is stored and never by a caption.
struct ListSelection {
    QStringList main;
    QStringList detail;
    QVariantList mainStored;
    QVariantList detailStored;
};

// One level of a list: the main rows (level 0) or the rows of the selected main row (level 1).
struct ListLevel {
    QString gridName;      // objectName of the grid, such as "fgrPostoTanqu"
    QString frameTitle;    // caption of the frame around the grid
    QString optionCaption; // caption of this level's optOperacao button
    std::vector<GridColumn> columns;
    // The rows of the grid, columns in the grid's order; a detail query gets the selected main
    // row as the grid shows it.
    std::function<Query(const Session& session, const QStringList& mainRow)> query;
    QString insertOperation; // gOperacaoItem of cmdIncluir on this level
    QString alterOperation;  // gOperacaoItem of cmdAlterar on this level
    QString deleteQuestion;  // the confirmation of cmdExcluir
    // The deletes of cmdExcluir, children first; they run inside one transaction.
    std::function<void(store::Database& db, const Session& session, const ListSelection& rows)>
        cascade;
    // A row that the program keeps itself (a computed total), told by its cells as shown: it
    // can be selected, but never opened, changed or deleted, whichever way it was reached.
    std::function<bool(const QStringList& row)> fixedRow;
};

// Everything that tells one list screen from another.
struct ListDefinition {
    QString name;                  // objectName and place in the chain, such as "frmTanqu"
    QString caption;               // window title
    std::vector<ListLevel> levels; // one or two
    // Builds the maintenance screen; the list then starts it on the operation and shows it.
    std::function<MaintenanceScreen*(ScreenHost& host)> maintenance;
    // cmdIncluir on level 1 with no main row.
    QString noParentMessage;
    // Further checks of cmdIncluir and cmdAlterar on level 1, after the main row's presence.
    std::function<Check(ScreenHost& host, const ListSelection& rows)> checkDetailInsert;
    std::function<Check(ScreenHost& host, const ListSelection& rows)> checkDetailAlter;
};

// The list screen of a list and maintenance pair: the register's rows of one table, optionally
// with the rows of the selected one beneath, rebuilt from the database on each showing, with
// the buttons that add, change and delete them and the two that walk the chain.
class ListScreen : public Screen {
    Q_OBJECT

public:
    ListScreen(ScreenHost& host, ListDefinition definition, QWidget* parent = nullptr);

    // The key text (first column) of a row just inserted, main and detail (sChaveNova,
    // sChaveNovaDetalhe), to select when the list comes up.
    void setNewKeys(const QString& main, const QString& detail);

    // Loads the grids and selects the rows to return to.
    void enter() override;

    const ListDefinition& definition() const { return m_def; }
    int levelCount() const { return int(m_def.levels.size()); }
    // The level of optOperacao.
    int level() const { return m_level; }
    // Sets optOperacao and the buttons that follow from it.
    void setLevel(int level);

    QTableWidget* grid(int level) const { return m_grids.at(std::size_t(level)); }
    // Rows in the grid's numbering: 0 the heading, data from 1.
    int currentRow(int level) const;
    int dataRows(int level) const;
    ListSelection selection() const;
    // Whether the current row of the level is one that the program keeps (fixedRow).
    bool onFixedRow(int level) const;

    // The buttons.
    void include();
    void alter();
    void remove();
    void goBack();
    void goOn();

    // One step of a forced entry chain: level 1 and cmdIncluir by program. The maintenance
    // screen that comes up cannot be left before its row is saved.
    void forceDetailInsert();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Session& session() const;
    void fillGrid(int level);
    void mainRowChanged();
    void selectRow(int level);
    void setCurrentRow(int level, int row, bool toTop);
    void keepRows();
    void updateButtons();
    // cmdAlterar and cmdExcluir off while the current row is a fixed one.
    void keepFixedRowShut();
    void gridClicked(int level);
    void gridDoubleClicked(int level);
    void insert(bool forced);
    void openMaintenance(const QString& operation, bool forced);

    ScreenHost& m_host;
    ListDefinition m_def;
    HeaderBand* m_header = nullptr;
    std::vector<QTableWidget*> m_grids;
    std::vector<QRadioButton*> m_options;
    QPushButton* m_incluir = nullptr;
    QPushButton* m_alterar = nullptr;
    QPushButton* m_excluir = nullptr;
    QPushButton* m_voltar = nullptr;
    QPushButton* m_continuar = nullptr;
    QString m_chaveNova;
    QString m_chaveNovaDetalhe;
    int m_level = 0;
    bool m_loading = false;
};

} // namespace ui
