#pragma once

#include "ui/FormScreen.h"

#include <array>

class QCheckBox;

namespace establishment {

// frmPostoUSOOCUPCSOLO, "Características da Região Vizinha ao Empreendimento": what lies
// around the establishment, one row of TB_POSTOUSOOCUPCSOLO for each box ticked.
class LandUseForm : public ui::FormScreen {
    Q_OBJECT

public:
    LandUseForm(ui::ScreenHost& host, const ui::Sequence::Place& place, QWidget* parent = nullptr);

    static constexpr int kItems = 47;

protected:
    void load() override;
    bool stored() const override;
    void setEditable(bool editable) override;
    QWidget* beginEdit() override;
    QString savedMessage() const override;
    ui::Icon savedIcon() const override;
    ui::Check validate() override { return {}; }
    void write(store::Database& db) override;

private:
    bool anyTicked() const;

    QWidget* m_frame = nullptr;                    // fraOcupacao, the boxes
    std::array<QCheckBox*, kItems + 1> m_checks{}; // Check(1) to Check(47)
};

} // namespace establishment
