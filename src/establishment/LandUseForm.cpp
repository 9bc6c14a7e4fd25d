#include "establishment/LandUseForm.h"

#include "store/CodeLists.h"
#include "store/Database.h"
#include "store/RowWriter.h"
#include "ui/Session.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QScrollArea>
#include <QSqlQuery>
#include <QVBoxLayout>

namespace establishment {

LandUseForm::LandUseForm(ui::ScreenHost& host, const ui::Sequence::Place& place, QWidget* parent)
    : ui::FormScreen(host, place, parent) {
    setWindowTitle(QStringLiteral("Características da Região Vizinha ao Empreendimento"));
    auto* frame = new QGroupBox(QStringLiteral("Uso e Ocupação do Solo na Vizinhança"), this);
    auto* frameLayout = new QVBoxLayout(frame);
    // The 47 items do not fit one screen: they scroll inside the frame, which is why only the
    // boxes, not the scrolling, close outside an edit.
    auto* scroll = new QScrollArea(frame);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto* list = new QWidget(scroll);
    list->setObjectName(QStringLiteral("fraOcupacao"));
    m_frame = list;
    auto* listLayout = new QVBoxLayout(list);
    listLayout->setSpacing(2);
    const store::CodeList& items = store::codeList("NUSOOCUPCSOLO");
    QWidget* previous = nullptr;
    for (int code = 1; code <= kItems; ++code) {
        auto* box = new QCheckBox(items.at(std::size_t(code - 1)).label, list);
        box->setObjectName(QStringLiteral("Check_%1").arg(code));
        listLayout->addWidget(box);
        m_checks[std::size_t(code)] = box;
        if (previous)
            setTabOrder(previous, box);
        previous = box;
    }
    scroll->setWidget(list);
    frameLayout->addWidget(scroll);
    body()->addWidget(frame, 1);
}

void LandUseForm::load() {
    for (std::size_t code = 1; code < m_checks.size(); ++code)
        m_checks[code]->setChecked(false);
    QSqlQuery rows = database().run(
        QStringLiteral("SELECT NUSOOCUPCSOLO FROM TB_POSTOUSOOCUPCSOLO WHERE NMUNCP = ? AND "
                       "NSEQNC = ? ORDER BY NUSOOCUPCSOLO"),
        {session().nmuncp, session().nseqnc});
    while (rows.next()) {
        const int code = rows.value(0).toInt();
        if (code >= 1 && code <= kItems)
            m_checks[std::size_t(code)]->setChecked(true);
    }
}

bool LandUseForm::stored() const {
    return store::rowExists(database(), "TB_POSTOUSOOCUPCSOLO", session().keyRow());
}

void LandUseForm::setEditable(bool editable) {
    m_frame->setEnabled(editable);
}

QWidget* LandUseForm::beginEdit() {
    return m_checks[1];
}

bool LandUseForm::anyTicked() const {
    for (std::size_t code = 1; code < m_checks.size(); ++code) {
        if (m_checks[code]->isChecked())
            return true;
    }
    return false;
}

// An empty list is saved as it is; on an insert the user is reminded that one item at least
// was expected.
QString LandUseForm::savedMessage() const {
    if (operation() != ui::kIncluir)
        return QStringLiteral("Dados alterados com Sucesso.");
    return anyTicked() ? QStringLiteral("Dados incluídos com Sucesso.")
                       : QStringLiteral("É necessário selecionar pelo menos um item de Uso e "
                                        "Ocupação do Solo na Vizinhança.");
}

ui::Icon LandUseForm::savedIcon() const {
    return operation() == ui::kIncluir && !anyTicked() ? ui::Icon::Critical : ui::Icon::Information;
}

void LandUseForm::write(store::Database& db) {
    // One transaction for the delete and the inserts: a failure keeps the old list.
    store::deleteRows(db, "TB_POSTOUSOOCUPCSOLO", session().keyRow());
    for (int code = 1; code <= kItems; ++code) {
        if (!m_checks[std::size_t(code)]->isChecked())
            continue;
        store::Row row = session().newRow();
        row.insert(QStringLiteral("NUSOOCUPCSOLO"), code);
        store::insertRow(db, "TB_POSTOUSOOCUPCSOLO", row);
    }
}

} // namespace establishment
