#include "ui/AddressBlock.h"

#include "store/ReferenceQueries.h"
#include "ui/Dialogs.h"
#include "ui/ErrorRoutine.h"
#include "ui/FieldBehaviour.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

namespace ui {

namespace {

constexpr int kAbbreviationRole = Qt::UserRole + 1;

bool leavesForGood(QEvent* event) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason;
}

} // namespace

AddressTexts AddressTexts::ownerPanel() {
    AddressTexts texts;
    texts.cepRequired = QStringLiteral("Preenchimento Obrigatório do CEP.");
    texts.cepIncorrect = QStringLiteral("Preenchimento Incorreto do CEP.");
    texts.municipalityUnknown = QStringLiteral("Digite o nome do Município desse Estado");
    texts.dddIncorrect = QStringLiteral("Preenchimento Incorreto do DDD.");
    texts.telephoneIncorrect = QStringLiteral("Preenchimento Incorreto do Telefone.");
    texts.faxIncorrect = QStringLiteral("Preenchimento Incorreto do FAX.");
    return texts;
}

AddressBlock* AddressBlock::attach(store::Database& db, const AddressFields& fields,
                                   MunicipalityList list, const AddressTexts& texts) {
    QObject* owner = fields.municipality;
    for (QObject* candidate :
         {static_cast<QObject*>(fields.cep), static_cast<QObject*>(fields.street),
          static_cast<QObject*>(fields.ddd), static_cast<QObject*>(fields.telephone)}) {
        if (!owner)
            owner = candidate;
    }
    return new AddressBlock(db, fields, list, texts, owner);
}

AddressBlock::AddressBlock(store::Database& db, const AddressFields& fields, MunicipalityList list,
                           const AddressTexts& texts, QObject* owner)
    : QObject(owner)
    , m_db(db)
    , m_fields(fields)
    , m_list(list)
    , m_texts(texts) {
    attachFields();
}

void AddressBlock::attachFields() {
    const AddressFields& f = m_fields;
    for (QLineEdit* text : {f.street, f.complement, f.district}) {
        if (text)
            attachText(text, Case::Upper);
    }
    if (f.email)
        attachText(f.email);
    if (f.number)
        attachDigits(f.number);
    if (f.cep)
        attachMask(f.cep, Mask::Cep);
    if (f.ddd) {
        attachDigits(f.ddd);
        f.ddd->setMaxLength(std::min(f.ddd->maxLength(), rules::kDddMaximo));
    }
    for (QLineEdit* phone : {f.telephone, f.fax}) {
        if (phone)
            attachMask(phone, Mask::Telephone);
    }
    for (QLineEdit* other : {f.state, f.municipalityNumber}) {
        if (other)
            guardLine(other);
    }
    for (QLineEdit* checked : {f.cep, f.ddd, f.telephone, f.fax}) {
        if (checked)
            checked->installEventFilter(this);
    }
    if (f.municipality) {
        if (f.municipality->lineEdit())
            attachText(f.municipality->lineEdit());
        f.municipality->setInsertPolicy(QComboBox::NoInsert);
        f.municipality->installEventFilter(this);
        connect(f.municipality, &QComboBox::activated, this, &AddressBlock::chosen);
    }
    if (f.municipalityCover) {
        f.municipalityCover->installEventFilter(this);
        f.municipalityCover->hide();
    }
}

void AddressBlock::loadMunicipalities() {
    QComboBox* combo = m_fields.municipality;
    if (m_loaded || !combo)
        return;
    std::vector<store::Municipality> entries;
    if (m_list == MunicipalityList::StatesThenMunicipalities)
        entries = store::states(m_db);
    const std::vector<store::Municipality> towns = store::municipalities(m_db);
    entries.insert(entries.end(), towns.begin(), towns.end());

    const QString typed = combo->currentText();
    const QSignalBlocker blocker(combo);
    combo->clear();
    for (const store::Municipality& m : entries) {
        combo->addItem(m.name, m.number);
        combo->setItemData(combo->count() - 1, m.abbreviation, kAbbreviationRole);
    }
    combo->setCurrentIndex(combo->findText(typed, Qt::MatchFixedString));
    if (combo->isEditable())
        combo->setEditText(typed);
    m_loaded = true;
}

std::optional<int> AddressBlock::municipalityNumber() const {
    const QComboBox* combo = m_fields.municipality;
    if (!combo)
        return std::nullopt;
    const QString text = combo->currentText().trimmed();
    if (text.isEmpty())
        return std::nullopt;
    int index = combo->currentIndex();
    if (index < 0 || combo->itemText(index).compare(text, Qt::CaseInsensitive) != 0)
        index = combo->findText(text, Qt::MatchFixedString);
    if (index < 0)
        return std::nullopt;
    return combo->itemData(index).toInt();
}

void AddressBlock::setMunicipality(int nmuncp) {
    QComboBox* combo = m_fields.municipality;
    if (!combo)
        return;
    loadMunicipalities();
    combo->setCurrentIndex(combo->findData(nmuncp));
    if (m_fields.municipalityNumber)
        m_fields.municipalityNumber->setText(QString::number(nmuncp));
    if (m_fields.state)
        m_fields.state->setText(stateOfChoice());
}

QString AddressBlock::stateOfChoice() const {
    const std::optional<int> number = municipalityNumber();
    if (!number)
        return QString();
    const QComboBox* combo = m_fields.municipality;
    const int index = combo->findData(*number);
    return rules::ufDoMunicipio(*number, combo->itemData(index, kAbbreviationRole).toString());
}

QString AddressBlock::cep() const {
    return m_fields.cep ? clipText(m_fields.cep) : QString();
}

void AddressBlock::setCep(const QString& digits) {
    if (m_fields.cep)
        setClipText(m_fields.cep, digits);
}

rules::CepCheck AddressBlock::checkCep() const {
    const std::optional<int> number = municipalityNumber();
    if (!number)
        return {rules::kCepInvalido, 0};
    return store::consscep(m_db, cep(), *number);
}

void AddressBlock::setMunicipalityLocked(bool locked) {
    if (m_fields.municipality)
        m_fields.municipality->setEnabled(!locked);
    if (m_fields.municipalityCover) {
        m_fields.municipalityCover->setVisible(locked);
        if (locked)
            m_fields.municipalityCover->raise();
    }
}

// A choice in the combo: the number and UF follow it, and with a CEP typed the CEP is checked
// against the municipality at once.
void AddressBlock::chosen(int index) {
    QComboBox* combo = m_fields.municipality;
    if (index < 0 || index >= combo->count())
        return;
    if (m_fields.municipalityNumber)
        m_fields.municipalityNumber->setText(combo->itemData(index).toString());
    if (m_fields.state)
        m_fields.state->setText(stateOfChoice());
    if (!m_fields.cep || cep().isEmpty())
        return;
    rules::CepCheck check;
    if (!runGuarded([&] { check = checkCep(); }))
        return;
    if (!check.valid()) {
        dialogs().message(kTitle, m_texts.cepInvalid, Icon::None);
        m_fields.cep->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (m_fields.ddd)
        m_fields.ddd->setFocus(Qt::TabFocusReason);
}

// "{down}": the combo moves on to its next entry, as if the user had chosen it.
void AddressBlock::nextEntry() {
    QComboBox* combo = m_fields.municipality;
    if (!runGuarded([&] { loadMunicipalities(); }))
        return;
    const int next = combo->currentIndex() + 1;
    if (next >= combo->count())
        return;
    combo->setCurrentIndex(next);
    chosen(next);
}

bool AddressBlock::eventFilter(QObject* watched, QEvent* event) {
    const AddressFields& f = m_fields;
    if (watched == f.municipality) {
        if (event->type() == QEvent::FocusIn && !m_loaded) {
            runGuarded([&] { loadMunicipalities(); });
        } else if (event->type() == QEvent::KeyPress) {
            auto* key = static_cast<QKeyEvent*>(event);
            if (key->key() == Qt::Key_Tab && key->modifiers() == Qt::NoModifier) {
                // Tab on an empty combo picks the next entry; on a filled one it goes on to
                // the DDD.
                if (f.municipality->currentText().trimmed().isEmpty()) {
                    nextEntry();
                    return true;
                }
                if (f.ddd) {
                    f.ddd->setFocus(Qt::TabFocusReason);
                    return true;
                }
            }
        }
    } else if (watched == f.municipalityCover && event->type() == QEvent::MouseButtonPress) {
        if (f.municipality && f.municipality->currentText().trimmed().isEmpty())
            nextEntry();
        else if (f.ddd)
            f.ddd->setFocus(Qt::MouseFocusReason);
        return true;
    }
    if (event->type() == QEvent::FocusOut && !m_refusing && leavesForGood(event))
        leaving(watched);
    return false;
}

// The checks on leaving a field of the block.
bool AddressBlock::leaving(QObject* field) {
    const AddressFields& f = m_fields;
    if (field == f.cep) {
        const QString typed = clipText(f.cep);
        if (typed.isEmpty() && !m_texts.cepRequired.isEmpty())
            refuse(f.cep, m_texts.cepRequired);
        else if (!typed.isEmpty() && !rules::cepCompleto(typed) && !m_texts.cepIncorrect.isEmpty())
            refuse(f.cep, m_texts.cepIncorrect);
        else
            return true;
        return false;
    }
    if (field == f.municipality) {
        const std::optional<int> number = municipalityNumber();
        if (!number) {
            if (!f.municipality->currentText().trimmed().isEmpty() &&
                !m_texts.municipalityUnknown.isEmpty()) {
                refuse(f.municipality, m_texts.municipalityUnknown);
                return false;
            }
            return true;
        }
        // A name typed in full counts as its entry.
        const int index = f.municipality->findData(*number);
        if (f.municipality->currentIndex() != index) {
            f.municipality->setCurrentIndex(index);
            if (f.municipalityNumber)
                f.municipalityNumber->setText(QString::number(*number));
            if (f.state)
                f.state->setText(stateOfChoice());
        }
        return true;
    }
    if (field == f.ddd) {
        const QString ddd = f.ddd->text();
        if (rules::dddIncorreto(ddd)) {
            if (!m_texts.dddIncorrect.isEmpty()) {
                refuse(f.ddd, m_texts.dddIncorrect);
                return false;
            }
            return true;
        }
        f.ddd->setText(rules::formataDdd(ddd));
        return true;
    }
    if (field == f.telephone) {
        const QString typed = clipText(f.telephone);
        if (!typed.isEmpty() && rules::telefoneIncompleto(typed) &&
            !m_texts.telephoneIncorrect.isEmpty()) {
            refuse(f.telephone, m_texts.telephoneIncorrect);
            return false;
        }
        return true;
    }
    if (field == f.fax) {
        if (rules::faxIncompleto(clipText(f.fax)) && !m_texts.faxIncorrect.isEmpty()) {
            refuse(f.fax, m_texts.faxIncorrect);
            return false;
        }
    }
    return true;
}

// A refusal on leaving: the message, then the focus back to the field once the focus change
// under way has ended.
void AddressBlock::refuse(QWidget* field, const QString& text) {
    m_refusing = true;
    dialogs().message(kTitle, text, Icon::Critical);
    m_refusing = false;
    QPointer<QWidget> target = field;
    QTimer::singleShot(0, field, [target] {
        if (target)
            target->setFocus(Qt::OtherFocusReason);
    });
}

} // namespace ui
