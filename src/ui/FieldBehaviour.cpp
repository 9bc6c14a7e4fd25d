#include "ui/FieldBehaviour.h"

#include "rules/Filters.h"
#include "ui/Dialogs.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <optional>

namespace ui {

namespace {

const QString kBehaviourName = QStringLiteral("vorFieldBehaviour");

// The behaviour of one field: an event filter on it for the keys and the focus, and a watcher
// of the user's edits for what arrives by other ways than a key (paste, drop, undo).
class FieldBehaviour : public QObject {
public:
    explicit FieldBehaviour(QLineEdit* edit)
        : QObject(edit)
        , m_edit(edit) {
        setObjectName(kBehaviourName);
        edit->installEventFilter(this);
        connect(edit, &QLineEdit::textEdited, this, &FieldBehaviour::edited);
    }

    static FieldBehaviour* of(QLineEdit* edit) {
        auto* existing = dynamic_cast<FieldBehaviour*>(
            edit->findChild<QObject*>(kBehaviourName, Qt::FindDirectChildrenOnly));
        return existing ? existing : new FieldBehaviour(edit);
    }

    bool quote = false;
    bool digits = false;
    bool upper = false;
    struct Decimal {
        int maxLength;
        int places;
        QString excessMessage;
    };
    std::optional<Decimal> decimal;
    QString displayMask;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != m_edit)
            return false;
        switch (event->type()) {
        case QEvent::KeyPress:
            return keyPressed(static_cast<QKeyEvent*>(event));
        case QEvent::FocusIn:
            focusIn(static_cast<QFocusEvent*>(event)->reason());
            break;
        case QEvent::FocusOut:
            focusOut(static_cast<QFocusEvent*>(event)->reason());
            break;
        default:
            break;
        }
        return false;
    }

private:
    // The key filters, one character at a time, as the key press of each field ran them.
    rules::KeyCode filter(QChar c) const {
        if (!rules::cabeNaLinha(c))
            return rules::kSwallowed;
        rules::KeyCode key = c.unicode();
        if (digits)
            key = rules::filtroDigitos(key);
        if (key != rules::kSwallowed && decimal) {
            if (key == rules::kComma)
                m_edit->setMaxLength(decimal->maxLength);
            key = rules::filtroDecimal(textBeforeKey(), key);
        }
        if (key != rules::kSwallowed && quote)
            key = rules::filtroAspas(key);
        return key;
    }

    // The text that a typed character joins: the current text less a selection it replaces.
    QString textBeforeKey() const {
        QString text = m_edit->text();
        if (m_edit->hasSelectedText())
            text.remove(m_edit->selectionStart(), m_edit->selectedText().size());
        return text;
    }

    bool keyPressed(QKeyEvent* key) {
        if (m_forwarding)
            return false;
        const QString typed = key->text();
        // Shortcuts and control keys (backspace, Enter, Tab, Delete) are the field's own.
        if (typed.isEmpty() ||
            (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
            return false;
        QString passed;
        for (const QChar c : typed) {
            if (c.category() == QChar::Other_Control) {
                passed += c;
                continue;
            }
            const rules::KeyCode k = filter(c);
            if (k != rules::kSwallowed)
                passed += QChar(k);
        }
        if (passed == typed)
            return false;
        if (passed.isEmpty())
            return true;
        QKeyEvent changed(key->type(), key->key(), key->modifiers(), passed, key->isAutoRepeat(),
                          key->count());
        m_forwarding = true;
        QCoreApplication::sendEvent(m_edit, &changed);
        m_forwarding = false;
        return true;
    }

    // What the key filters would have let through, for text that came in by other ways.
    QString clean(const QString& text) const {
        QString result = rules::limpaLinha(text);
        if (quote)
            result.replace(QChar(rules::kQuote), QChar(rules::kGrave));
        if (digits || decimal) {
            const QChar comma(rules::kComma);
            QString kept;
            bool commaKept = false;
            for (const QChar c : result) {
                if (c.isDigit() && c.unicode() < 128)
                    kept += c;
                else if (decimal && c == comma && !commaKept && !kept.isEmpty()) {
                    kept += c;
                    commaKept = true;
                }
            }
            result = kept;
        }
        return result;
    }

    void edited(const QString& text) {
        const QString cleaned = clean(text);
        if (cleaned != text) {
            const int cursor = int(clean(text.left(m_edit->cursorPosition())).size());
            if (decimal && cleaned.size() > m_edit->maxLength())
                m_edit->setMaxLength(decimal->maxLength);
            m_edit->setText(cleaned);
            m_edit->setCursorPosition(cursor);
        }
        if (decimal)
            confereCasas();
    }

    // ConfereCasas: one message, then the decimals beyond the limit go as backspaces would
    // take them, from where the cursor stands (all at once, for a paste).
    void confereCasas() {
        const int excess = rules::excessoCasas(m_edit->text(), decimal->places);
        if (excess == 0)
            return;
        QPointer<QLineEdit> edit = m_edit;
        dialogs().message(kTitle,
                          decimal->excessMessage.isEmpty()
                              ? rules::casasDecimaisMessage(decimal->places)
                              : decimal->excessMessage,
                          Icon::Critical);
        if (!edit)
            return;
        const int cursor = edit->cursorPosition();
        const int removed = std::min(excess, cursor);
        edit->setText(edit->text().remove(cursor - removed, removed));
        edit->setCursorPosition(cursor - removed);
    }

    void focusIn(Qt::FocusReason reason) {
        if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason)
            return;
        if (!displayMask.isEmpty()) {
            const QString bare = rules::tiraMascara(m_edit->text(), displayMask);
            // While the mask is off the field takes no more characters than the mask has
            // places, so that putting it back never cuts what was typed.
            m_edit->setMaxLength(std::max(rules::mascaraPosicoes(displayMask), int(bare.size())));
            m_edit->setText(bare);
        }
        if (!m_edit->inputMask().isEmpty() && clipText(m_edit).isEmpty()) {
            // An empty masked field starts at its first place, wherever the click landed.
            QPointer<QLineEdit> edit = m_edit;
            QTimer::singleShot(0, m_edit, [edit] {
                if (edit && edit->hasFocus())
                    edit->home(false);
            });
        }
    }

    void focusOut(Qt::FocusReason reason) {
        if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason)
            return;
        if (upper) {
            const QString upperText = rules::maiusculas(m_edit->text());
            if (upperText != m_edit->text())
                m_edit->setText(upperText);
        }
        if (!displayMask.isEmpty()) {
            const QString masked = rules::poeMascara(m_edit->text(), displayMask);
            m_edit->setMaxLength(
                std::max(rules::mascaraComprimento(displayMask), int(masked.size())));
            m_edit->setText(masked);
        }
    }

    QLineEdit* m_edit;
    bool m_forwarding = false;
};

QString inputMaskOf(Mask mask) {
    switch (mask) {
    case Mask::Cep:
        return QStringLiteral("00000-000;_");
    case Mask::Telephone:
        return QStringLiteral("0000-0000;_");
    case Mask::Date:
        return QStringLiteral("00/00/0000;_");
    case Mask::Time:
        return QStringLiteral("00:00;_");
    }
    return QString();
}

// For each character of a masked field's display: whether it is a place to type in.
struct MaskLayout {
    QList<bool> places;
    QChar blank = u' ';
};

MaskLayout layoutOf(const QString& inputMask) {
    MaskLayout layout;
    const qsizetype semicolon = inputMask.lastIndexOf(u';');
    QString pattern = inputMask;
    if (semicolon >= 0 && semicolon + 1 < inputMask.size()) {
        layout.blank = inputMask.at(semicolon + 1);
        pattern = inputMask.left(semicolon);
    }
    static const QString kPlaceCharacters = QStringLiteral("AaNnXx90Dd#HhBb");
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern.at(i);
        if (c == u'<' || c == u'>' || c == u'!')
            continue;
        if (c == u'\\') {
            ++i;
            layout.places.append(false);
            continue;
        }
        layout.places.append(kPlaceCharacters.contains(c));
    }
    return layout;
}

} // namespace

void attachText(QLineEdit* edit, Case letterCase) {
    FieldBehaviour* behaviour = FieldBehaviour::of(edit);
    behaviour->quote = true;
    if (letterCase == Case::Upper)
        behaviour->upper = true;
}

void attachUpperCase(QLineEdit* edit) {
    FieldBehaviour::of(edit)->upper = true;
}

void attachDigits(QLineEdit* edit) {
    FieldBehaviour::of(edit)->digits = true;
}

void attachDecimal(QLineEdit* edit, int maxLength, int places, const QString& excessMessage) {
    FieldBehaviour::of(edit)->decimal = FieldBehaviour::Decimal{maxLength, places, excessMessage};
}

void attachDisplayMask(QLineEdit* edit, const QString& mask) {
    FieldBehaviour::of(edit)->displayMask = mask;
    // A field that has the focus already is being typed into without its mask.
    edit->setMaxLength(edit->hasFocus() ? rules::mascaraPosicoes(mask)
                                        : rules::mascaraComprimento(mask));
}

void attachMask(QLineEdit* edit, Mask mask) {
    FieldBehaviour::of(edit);
    edit->setInputMask(inputMaskOf(mask));
}

QString clipText(const QLineEdit* edit) {
    if (edit->inputMask().isEmpty())
        return edit->text();
    const MaskLayout layout = layoutOf(edit->inputMask());
    const QString shown = edit->displayText();
    QString typed;
    for (qsizetype i = 0; i < shown.size() && i < layout.places.size(); ++i) {
        const QChar c = shown.at(i);
        if (layout.places.at(i) && c != layout.blank && c != u' ')
            typed += c;
    }
    return typed;
}

void setClipText(QLineEdit* edit, const QString& value) {
    if (edit->inputMask().isEmpty()) {
        edit->setText(value);
        return;
    }
    const MaskLayout layout = layoutOf(edit->inputMask());
    const QString pattern = edit->inputMask().left(edit->inputMask().lastIndexOf(u';'));
    QString typed;
    for (const QChar c : value) {
        if (c.isLetterOrNumber())
            typed += c;
    }
    // The literals come from the mask itself; Qt lays the typed characters into the places.
    QString full;
    qsizetype next = 0;
    qsizetype patternIndex = 0;
    for (qsizetype i = 0; i < layout.places.size() && next < typed.size(); ++i) {
        while (patternIndex < pattern.size() &&
               (pattern.at(patternIndex) == u'<' || pattern.at(patternIndex) == u'>' ||
                pattern.at(patternIndex) == u'!'))
            ++patternIndex;
        if (pattern.at(patternIndex) == u'\\')
            ++patternIndex;
        full += layout.places.at(i) ? typed.at(next++) : pattern.at(patternIndex);
        ++patternIndex;
    }
    edit->setText(full);
}

void guardLine(QLineEdit* edit) {
    FieldBehaviour::of(edit);
}

void guardLines(QWidget* screen) {
    for (QLineEdit* edit : screen->findChildren<QLineEdit*>())
        guardLine(edit);
}

} // namespace ui
