#include "environment/FieldRules.h"

#include "rules/Address.h"
#include "rules/Formats.h"
#include "ui/FieldBehaviour.h"
#include "ui/FieldSupport.h"

#include <QDate>
#include <QKeyEvent>
#include <algorithm>

#include <QLineEdit>

namespace environment {

namespace {

const QString kZero = QStringLiteral("O valor da Quantidade deve ser Maior do que Zero");

constexpr int kWaterDigits = 5;

// The comma of a water quantity, typed as a comma or a point: once, after a digit, and the
// field then takes two decimals behind it.
class WaterComma : public QObject {
public:
    explicit WaterComma(QLineEdit* edit)
        : QObject(edit) {
        edit->installEventFilter(this);
        // Without its comma the field is back to its digits, never cutting what it holds.
        connect(edit, &QLineEdit::textChanged, this, [edit](const QString& text) {
            if (!text.contains(QLatin1Char(',')))
                edit->setMaxLength(std::max(kWaterDigits, int(text.size())));
        });
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        if (typed != QLatin1String(".") && typed != QLatin1String(","))
            return false;
        auto* edit = static_cast<QLineEdit*>(watched);
        if (!edit->text().contains(QLatin1Char(',')) && !edit->text().isEmpty()) {
            edit->setMaxLength(int(edit->text().size()) + 3);
            edit->insert(QStringLiteral(","));
        }
        return true;
    }
};

} // namespace

void waterQuantityField(QLineEdit* edit) {
    edit->setMaxLength(kWaterDigits);
    new WaterComma(edit);
}

void quantityField(QLineEdit* edit) {
    edit->setMaxLength(15);
    ui::attachDecimal(edit, 15, 2, QStringLiteral("Apenas 2 casas decimais serão consideradas"));
}

ui::Check leaveQuantity(QLineEdit* edit) {
    const QString text = edit->text();
    if (text.isEmpty())
        return {};
    QString plain = text;
    plain.replace(QLatin1Char(','), QLatin1Char('.'));
    if (plain.endsWith(QLatin1Char('.')))
        plain.chop(1);
    const double value = plain.toDouble();
    const QString shown =
        QString::number(value, 'f', 2).replace(QLatin1Char('.'), QLatin1Char(','));
    if (shown != text) {
        if (edit->maxLength() < shown.size())
            edit->setMaxLength(int(shown.size()));
        edit->setText(shown);
    }
    if (shown == QLatin1String("0,00"))
        return ui::Refusal{edit, kZero};
    return {};
}

ui::Check leaveCount(QLineEdit* edit) {
    const QString text = edit->text();
    if (text.isEmpty())
        return {};
    const qlonglong value = text.toLongLong();
    if (value > 0) {
        edit->setText(QString::number(value));
        return {};
    }
    edit->clear();
    return ui::Refusal{edit, kZero};
}

ui::Check leaveHour(QLineEdit* edit) {
    const QString typed = ui::clipText(edit);
    if (typed.isEmpty())
        return {};
    if (typed.size() < 4 || typed.left(2).toInt() > 23 || typed.mid(2, 2).toInt() > 59)
        return ui::Refusal{edit,
                           QStringLiteral("Preenchimento Incorreto do Horário de Funcionamento.")};
    return {};
}

ui::Check leaveDate(QLineEdit* edit, const QString& notADate, const QString& outOfRange) {
    const QString typed = ui::clipText(edit);
    if (typed.isEmpty())
        return {};
    const int day = typed.left(2).toInt();
    const int month = typed.mid(2, 2).toInt();
    const int year = typed.size() == 8 ? typed.mid(4).toInt() : 0;
    const bool either = QDate(year, month, day).isValid() || QDate(year, day, month).isValid();
    const QString refused = !either ? notADate : month > 12 || day > 31 ? outOfRange : QString();
    if (refused.isEmpty())
        return {};
    ui::clearMasked(edit);
    return ui::Refusal{edit, refused};
}

ui::Check leaveDdd(QLineEdit* edit, const QString& incorrect) {
    if (rules::dddIncorreto(edit->text()))
        return ui::Refusal{edit, incorrect};
    const QString shown = rules::formataDdd(edit->text());
    if (shown != edit->text())
        edit->setText(shown);
    return {};
}

ui::Check leavePhone(QLineEdit* edit, const QString& incorrect) {
    if (rules::faxIncompleto(ui::clipText(edit)))
        return ui::Refusal{edit, incorrect};
    return {};
}

} // namespace environment
