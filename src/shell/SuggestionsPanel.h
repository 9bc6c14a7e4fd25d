#pragma once

#include "store/RegisterKey.h"

#include <QFrame>
#include <optional>

class QPlainTextEdit;
class QPushButton;

namespace store {
class Database;
}

namespace shell {

// PnAviso(1): the operator's comment on the program, one per register. It goes to the agency
// with the register's exchange file.
class SuggestionsPanel : public QFrame {
    Q_OBJECT

public:
    // The exchange line of a suggestion must stay within the reader's 1000 characters.
    static constexpr int kMaxLength = 900;

    explicit SuggestionsPanel(store::Database& db, QWidget* parent = nullptr);

    // Shows the panel with the suggestion of `key`, or an empty text when it has none.
    void openFor(const store::RegisterKey& key);

signals:
    void backToMainScreen();

private:
    std::optional<QString> storedSuggestion();
    void save();
    void insert(const QString& text);
    void change(const QString& text);
    void remove();
    void close();
    void keepWithinLimits();

    store::Database& m_db;
    store::RegisterKey m_key;
    int m_codSugestao = 0; // 1 while the panel is open with a register
    QPlainTextEdit* m_text;
    QPushButton* m_insert;
    QPushButton* m_delete;
    QPushButton* m_back;
};

} // namespace shell
