#pragma once

#include "ui/FieldSet.h"
#include "ui/FormScreen.h"

#include <array>

class QCheckBox;
class QGroupBox;
class QLineEdit;

namespace establishment {

// frmPosto, "Características Gerais": the station's class, areas, staff, hours and zone on the
// register's TB_POSTO row, which the register form created, and the commerce and services
// check list of TB_POSTOCOMRCSERVC. A row whose zone is not chosen yet is not completed.
class CharacteristicsForm : public ui::FormScreen {
    Q_OBJECT

public:
    CharacteristicsForm(ui::ScreenHost& host, const ui::Sequence::Place& place,
                        QWidget* parent = nullptr);

    static constexpr int kCommerceCount = 17;
    // The code whose free text is written beside it.
    static constexpr int kOtherCommerce = 17;

protected:
    void load() override;
    bool stored() const override;
    void setEditable(bool editable) override;
    QWidget* beginEdit() override;
    QString savedMessage() const override;
    ui::Check validate() override;
    ui::Check leaveCheck(QWidget* field) override;
    void write(store::Database& db) override;

private:
    void build();
    void declareFields();
    // Whether the municipality has wells, which imposes class 3.
    bool classImposed() const;
    void imposeClass();
    void commerceClicked(int code);
    void showTotal();
    void totalChanged();
    QLineEdit* edit(const QString& name) const { return m_post.edit(name); }

    ui::FieldSet m_post;
    ui::FieldSet m_commerce;
    std::array<QCheckBox*, kCommerceCount + 1> m_checks{}; // Check1(1) to Check1(17)
    QLineEdit* m_total = nullptr;
    QList<QGroupBox*> m_frames; // the seven frames, the class frame first
};

} // namespace establishment
