#include "shell/AgenciesPanel.h"

#include "rules/NumberPattern.h"
#include "store/Database.h"
#include "ui/ErrorRoutine.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QVBoxLayout>

namespace shell {

namespace {

const QString kColumns = QStringLiteral(
    "SELECT DRESMDREGNL, DLOGRD, NLOGRD, DBAIRR, CCEP, NDDD, NTELFN, NDDDFAX, NFAX FROM REGNL ");

// How each column of a row is shown; an empty pattern shows the value as it stands.
const QStringList kPatterns = {QString(),
                               QString(),
                               QString(),
                               QString(),
                               QStringLiteral("00000-000"),
                               QStringLiteral("000"),
                               QStringLiteral("###0-0000"),
                               QStringLiteral("000"),
                               QStringLiteral("###0-0000")};

} // namespace

AgenciesPanel::AgenciesPanel(store::Database& db, QWidget* parent)
    : QFrame(parent)
    , m_db(db)
    , m_grid(new QTableWidget(this)) {
    setObjectName(QStringLiteral("PnAviso(0)"));
    setFrameShape(QFrame::StyledPanel);
    auto* label = new QLabel(QStringLiteral("Agências Ambientais da ZANTOR :"), this);
    label->setObjectName(QStringLiteral("Label4"));
    m_grid->setObjectName(QStringLiteral("fgr1"));
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->verticalHeader()->hide();
    auto* back = new QPushButton(QStringLiteral("Tela Principal"), this);
    back->setObjectName(QStringLiteral("Command1"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(back);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_grid);
    layout->addLayout(buttons);

    connect(back, &QPushButton::clicked, this, [this] {
        hide();
        emit backToMainScreen();
    });
    hide();
}

bool AgenciesPanel::open() {
    const bool filled = ui::runGuarded([this] {
        const int count = m_db.scalar(QStringLiteral("SELECT COUNT(NREGNL) FROM REGNL")).toInt();
        m_grid->clear();
        m_grid->setRowCount(0);
        m_grid->setColumnCount(int(kPatterns.size()));
        m_grid->setHorizontalHeaderLabels(
            {QStringLiteral("Agência"), QStringLiteral("Endereço"), QStringLiteral("Número"),
             QStringLiteral("Bairro"), QStringLiteral("CEP"), QStringLiteral("DDD"),
             QStringLiteral("Telefone"), QStringLiteral("DDD do Fax"), QStringLiteral("Fax")});
        const auto append = [this](QSqlQuery& rows) {
            while (rows.next()) {
                const int r = m_grid->rowCount();
                m_grid->insertRow(r);
                for (int c = 0; c < kPatterns.size(); ++c) {
                    const QVariant value = rows.value(c);
                    const QString text = value.isNull() ? QString()
                                         : kPatterns.at(c).isEmpty()
                                             ? value.toString()
                                             : rules::formatDigits(value, kPatterns.at(c));
                    m_grid->setItem(r, c, new QTableWidgetItem(text));
                }
            }
        };
        QSqlQuery headOffice = m_db.run(kColumns + QStringLiteral("WHERE NREGNL = 1"));
        append(headOffice);
        // Offices 0, 2, 8 and 20 are internal units, not places the public goes to.
        QSqlQuery others = m_db.run(kColumns + QStringLiteral("WHERE NREGNL < ? AND NREGNL <> 2 "
                                                              "AND NREGNL <> 8 AND NREGNL <> 20 "
                                                              "AND NREGNL <> 0 AND NREGNL <> 1 "
                                                              "ORDER BY DRESMDREGNL"),
                                    {count + 1});
        append(others);
        m_grid->resizeColumnsToContents();
    });
    if (filled)
        show();
    return filled;
}

} // namespace shell
