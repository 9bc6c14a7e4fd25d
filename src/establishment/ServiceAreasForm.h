#pragma once

#include "ui/FieldSet.h"
#include "ui/FormScreen.h"

#include <memory>
#include <vector>

class QGroupBox;
class QRadioButton;

namespace establishment {

// frmPostoAreaServc, "Áreas de Serviços": the paving and drainage of four areas of the
// establishment, each kept in one row of a table of its own. optOperacao chooses the area that
// the buttons act on. Once any area is filled, the operational and the discharge areas are
// demanded together before the screen is left.
class ServiceAreasForm : public ui::FormScreen {
    Q_OBJECT

public:
    ServiceAreasForm(ui::ScreenHost& host, const ui::Sequence::Place& place,
                     QWidget* parent = nullptr);
    ~ServiceAreasForm() override;

    enum AreaIndex { Operacional = 0, TrocaOleo = 1, Lavagem = 2, Descarga = 3 };
    int area() const;

protected:
    void load() override;
    bool stored() const override;
    void setEditable(bool editable) override;
    QWidget* beginEdit() override;
    ui::Check validate() override;
    void write(store::Database& db) override;
    void remove() override;
    bool mayLeave() override;

private:
    struct Area;
    struct Question;
    void buildArea(int index);
    void loadArea(Area& area);
    void answered(const Area& area, const Question& question);
    void choose(int index);
    bool filled(int index) const;

    std::vector<std::unique_ptr<Area>> m_areas;
    QWidget* m_choice = nullptr; // picOperacao
    QRadioButton* m_options[4] = {};
};

} // namespace establishment
