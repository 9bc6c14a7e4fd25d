#pragma once

#include <QString>
#include <memory>
#include <optional>

class QWidget;

namespace ui {

enum class Icon { None, Information, Warning, Critical, Question };

// The one door to message boxes and questions. Screens and routines never open a QMessageBox
// themselves; they call dialogs(). Tests install a double that records every message and
// answers every question from a script.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    virtual void message(const QString& title, const QString& text, Icon icon) = 0;
    // A Yes/No question; true for Yes. `defaultNo` makes No the button that Enter presses.
    virtual bool ask(const QString& title, const QString& text, Icon icon, bool defaultNo) = 0;
    // A line of input; nothing when the user cancels.
    virtual std::optional<QString> input(const QString& title, const QString& prompt,
                                         bool secret) = 0;
};

// Shows real message boxes, parented to the active window.
class MessageBoxDialogs : public Dialogs {
public:
    void message(const QString& title, const QString& text, Icon icon) override;
    bool ask(const QString& title, const QString& text, Icon icon, bool defaultNo) override;
    std::optional<QString> input(const QString& title, const QString& prompt, bool secret) override;
};

// The dialogs in use: message boxes unless another implementation was installed.
Dialogs& dialogs();

// Installs `replacement` until the returned guard goes out of scope.
class DialogsOverride {
public:
    explicit DialogsOverride(Dialogs& replacement);
    ~DialogsOverride();
    DialogsOverride(const DialogsOverride&) = delete;
    DialogsOverride& operator=(const DialogsOverride&) = delete;

private:
    Dialogs* m_previous;
};

// The title of the program's own messages.
inline const QString kTitle = QStringLiteral("VOR");

} // namespace ui
