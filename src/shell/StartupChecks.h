#pragma once

#include <QDate>
#include <QSize>
#include <QString>

// The checks that can stop the program before its main screen comes up.
namespace shell {

// The program writes dates with four-digit years; a short date of any other length than ten
// characters would break the screens' masks and the exchange files.
bool dateFormatAcceptable(const QString& format, const QDate& today);

// The screens are laid out for 800x600 at 96 dots per inch; `size` is the available screen in
// such logical pixels. Only a screen both shorter and narrower than that is refused.
bool screenAcceptable(const QSize& size);

// Each shows its message and returns false when its check fails.
bool checkDateFormat(const QString& format, const QDate& today = QDate::currentDate());
bool checkScreen(const QSize& size);

} // namespace shell
