#include "fuel/StockControl.h"

#include "fuel/FuelParts.h"
#include "store/Database.h"
#include "ui/Session.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace fuel {

namespace {

using ui::FieldKind;

const char* const kTable = "TB_POSTOCONTRESTQU";

// The ways of control: box, caption, column.
struct Way {
    const char* name;
    const char* caption;
    std::string_view column;
};
const Way kWays[] = {
    {"chkICONTRESTQUREGUA", "Régua", "ICONTRESTQUREGUA"},
    {"chkICONTRESTQUHIDRL", "Hidráulico", "ICONTRESTQUHIDRL"},
    {"chkICONTRESTQUELETR", "Eletrônico", "ICONTRESTQUELETR"},
    {"chkICONTRESTQUPNEMT", "Pneumático", "ICONTRESTQUPNEMT"},
    {"chkICONTRESTQUMAGNT", "Magnético", "ICONTRESTQUMAGNT"},
    {"chkICONTRESTQUOUTRO", "Outros", "ICONTRESTQUOUTRO"},
};

const QString kOther = QStringLiteral("chkICONTRESTQUOUTRO");
const QString kDescription = QStringLiteral("txtDCONTRESTQU");
const QString kBook = QStringLiteral("chkSLMC");
const QString kUpdated = QStringLiteral("optSATULZ");

} // namespace

StockControl::StockControl(ui::ScreenHost& host, const ui::Sequence::Place& place, QWidget* parent)
    : ui::FormScreen(host, place, parent)
    , m_itanqu(place.role == ui::Sequence::Role::Aboveground ? QStringLiteral("A")
                                                             : QStringLiteral("S"))
    , m_fields(kTable, this) {
    const bool above = m_itanqu == QLatin1String("A");
    setWindowTitle(above ? QStringLiteral("Sistema de Controle de Estoque para Armazenamento de "
                                          "Combustíveis Aéreo")
                         : QStringLiteral("Sistema de Controle de Estoque para Armazenamento de "
                                          "Combustíveis Subterrâneo"));
    m_frame = new QGroupBox(QStringLiteral("Sistema de Controle de Estoque"), this);
    m_frame->setObjectName(QStringLiteral("fraContrEstq"));
    auto* grid = new QGridLayout(m_frame);
    int row = 0;
    for (const Way& way : kWays) {
        QWidget* box = m_fields.add({.name = QString::fromLatin1(way.name),
                                     .label = QString::fromUtf8(way.caption),
                                     .kind = FieldKind::Check,
                                     .column = way.column},
                                    m_frame);
        grid->addWidget(box, row++, 0);
    }
    m_fields.add(
        {.name = kDescription, .label = QStringLiteral("Descrição"), .column = "DCONTRESTQU"},
        m_frame);
    m_fields.place(grid, row++, 0, kDescription);
    grid->addWidget(m_fields.add({.name = kBook,
                                  .label = above ? QStringLiteral("LMP - Livro de Movimentação de "
                                                                  "Produtos")
                                                 : QStringLiteral("LMC - Livro de Movimentação de "
                                                                  "Combustíveis"),
                                  .kind = FieldKind::Check,
                                  .column = "SLMC"},
                                 m_frame),
                    row++, 0, 1, 2);
    QWidget* updated = m_fields.add({.name = kUpdated,
                                     .label = QStringLiteral("Atualizado?"),
                                     .kind = FieldKind::Choice,
                                     .column = "SATULZ"},
                                    m_frame);
    grid->addWidget(optionsLabel(QStringLiteral("Atualizado?"), updated, m_frame), row, 0);
    grid->addWidget(updated, row++, 1);
    grid->setColumnStretch(1, 1);
    m_fields.edit(kDescription)->setMinimumWidth(360);
    m_frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    body()->addWidget(m_frame);
    body()->addStretch(1);

    for (const QString& name : {kOther, kBook})
        connect(qobject_cast<QAbstractButton*>(m_fields.widget(name)), &QAbstractButton::toggled,
                this, &StockControl::followBoxes);
}

store::Row StockControl::key() const {
    store::Row key = session().keyRow();
    key.insert(QStringLiteral("ITANQU"), m_itanqu);
    return key;
}

void StockControl::load() {
    m_fields.clear();
    const auto row = store::readRow(database(), kTable, key());
    if (row)
        m_fields.load(*row);
}

bool StockControl::stored() const {
    return store::rowExists(database(), kTable, key());
}

void StockControl::setEditable(bool editable) {
    m_frame->setEnabled(editable);
    if (editable)
        followBoxes();
}

void StockControl::followBoxes() {
    const auto ticked = [this](const QString& name) {
        return qobject_cast<QAbstractButton*>(m_fields.widget(name))->isChecked();
    };
    QLineEdit* description = m_fields.edit(kDescription);
    if (!ticked(kOther))
        description->clear();
    description->setEnabled(ticked(kOther));
    QWidget* updated = m_fields.widget(kUpdated);
    if (!ticked(kBook)) {
        for (auto* option : updated->findChildren<QAbstractButton*>()) {
            option->setAutoExclusive(false);
            option->setChecked(false);
            option->setAutoExclusive(true);
        }
    }
    updated->setEnabled(ticked(kBook));
}

QWidget* StockControl::beginEdit() {
    return m_fields.widget(QString::fromLatin1(kWays[0].name));
}

QString StockControl::savedMessage() const {
    return operation() == ui::kIncluir ? QStringLiteral("Dados incluídos com Sucesso.")
                                       : QStringLiteral("Dados alterados com Sucesso.");
}

ui::Check StockControl::validate() {
    if (qobject_cast<QAbstractButton*>(m_fields.widget(kOther))->isChecked() &&
        m_fields.isEmpty(kDescription))
        return ui::Refusal{
            m_fields.widget(kDescription),
            QStringLiteral("Ao selecionar Outros é necessário preencher o campo de descrição.")};
    return {};
}

void StockControl::write(store::Database& db) {
    // The old row goes and the new one comes within the one transaction of the save.
    store::deleteRows(db, kTable, key());
    store::Row row = session().newRow();
    row.insert(QStringLiteral("ITANQU"), m_itanqu);
    row.insert(m_fields.values());
    if (row.value(QStringLiteral("SLMC")).toInt() == 0)
        row.insert(QStringLiteral("SATULZ"), 0);
    store::insertRow(db, kTable, row);
}

} // namespace fuel
