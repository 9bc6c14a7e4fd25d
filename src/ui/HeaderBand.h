#pragma once

#include <QGroupBox>

class QLineEdit;

namespace ui {

struct Session;

// fraCbclh: the band at the head of every screen of the questionnaire that names the register
// being worked on: its code, its company name and its information date, all read only.
class HeaderBand : public QGroupBox {
    Q_OBJECT

public:
    explicit HeaderBand(QWidget* parent = nullptr);

    void fill(const Session& session);

private:
    QLineEdit* m_vor = nullptr;
    QLineEdit* m_razaoSocial = nullptr;
    QLineEdit* m_ainfrm = nullptr;
};

} // namespace ui
