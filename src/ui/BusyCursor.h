#pragma once

#include <QApplication>

namespace ui {

// The hourglass for the length of a scope.
class BusyCursor {
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

// The normal pointer again, whatever was set before.
inline void restoreNormalCursor() {
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

} // namespace ui
