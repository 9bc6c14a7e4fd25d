#pragma once

#include <QApplication>

namespace ui {

// The hourglass for the length of a step that reads or writes the database.
class BusyCursor {
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() {
        // The error routine may already have put the pointer back.
        if (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
    }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

// The normal pointer again, whatever was set before.
inline void restoreNormalCursor() {
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

} // namespace ui
