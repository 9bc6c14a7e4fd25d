#include "ui/Dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>

namespace ui {

namespace {

Dialogs* current = nullptr;

QMessageBox::Icon toQt(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Warning:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

void MessageBoxDialogs::message(const QString& title, const QString& text, Icon icon) {
    QMessageBox box(toQt(icon), title, text, QMessageBox::Ok, QApplication::activeWindow());
    box.exec();
}

bool MessageBoxDialogs::ask(const QString& title, const QString& text, Icon icon, bool defaultNo) {
    QMessageBox box(toQt(icon), title, text, QMessageBox::Yes | QMessageBox::No,
                    QApplication::activeWindow());
    box.button(QMessageBox::Yes)->setText(QStringLiteral("Sim"));
    box.button(QMessageBox::No)->setText(QStringLiteral("Não"));
    box.setDefaultButton(defaultNo ? QMessageBox::No : QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

std::optional<QString> MessageBoxDialogs::input(const QString& title, const QString& prompt,
                                                bool secret) {
    bool ok = false;
    const QString text =
        QInputDialog::getText(QApplication::activeWindow(), title, prompt,
                              secret ? QLineEdit::Password : QLineEdit::Normal, QString(), &ok);
    if (!ok)
        return std::nullopt;
    return text;
}

Dialogs& dialogs() {
    static MessageBoxDialogs messageBoxes;
    return current ? *current : messageBoxes;
}

DialogsOverride::DialogsOverride(Dialogs& replacement)
    : m_previous(current) {
    current = &replacement;
}

DialogsOverride::~DialogsOverride() {
    current = m_previous;
}

} // namespace ui
