#pragma once

#include "rules/Address.h"

#include <QObject>
#include <QString>
#include <optional>

class QComboBox;
class QLineEdit;
class QWidget;

namespace store {
class Database;
}

// The postal address block that many screens repeat (street, number, complement, district,
// CEP, municipality, DDD, telephone, fax, e-mail): its key filters and masks, the municipality
// combo and the check of the CEP against the municipality. A screen attaches it to its own
// widgets with AddressBlock::attach, or takes the whole panel from ui/AddressPanel.h.
namespace ui {

enum class MunicipalityList {
    MunicipalitiesOnly,       // the register form: the state's municipalities
    StatesThenMunicipalities, // every other screen: the other states first, then municipalities
};

// The widgets of one block; any of them may be missing.
struct AddressFields {
    QLineEdit* street = nullptr;             // txtDLOGRD: free text, upper case
    QLineEdit* number = nullptr;             // txtNLOGRD: digits
    QLineEdit* complement = nullptr;         // txtDLOGRDCOMPM: free text, upper case
    QLineEdit* district = nullptr;           // txtDBAIRR: free text, upper case
    QLineEdit* cep = nullptr;                // txtCCEP: 8 digits, masked
    QComboBox* municipality = nullptr;       // cmbDMUNCP or cmbNMUNCP
    QWidget* municipalityCover = nullptr;    // picDMUNCP: stands for the combo when locked
    QLineEdit* municipalityNumber = nullptr; // txtnMuncp: the chosen NMUNCP, hidden
    QLineEdit* state = nullptr;              // the UF of the chosen entry
    QLineEdit* ddd = nullptr;                // txtndddemprs or txtNDDD: up to 4 digits
    QLineEdit* telephone = nullptr;          // txtntelfnemprs or txtNTELFN: "____-____"
    QLineEdit* fax = nullptr;                // txtNFAX: "____-____"
    QLineEdit* email = nullptr;              // txtDEMAIL: free text
};

// The block's messages. An empty text leaves that check to the screen.
struct AddressTexts {
    // A municipality chosen while the CEP is filled that the CEP does not belong to.
    QString cepInvalid = QStringLiteral("CEP Inválido para o Município");
    // Checks on leaving a field; the field gets the focus back.
    QString cepRequired;         // the CEP left empty
    QString cepIncorrect;        // the CEP left with fewer than 8 digits
    QString municipalityUnknown; // the combo left with a text that is no entry of its list
    QString dddIncorrect;        // a DDD of one digit or below the lowest area code
    QString telephoneIncorrect;  // a telephone filled with fewer than 7 digits
    QString faxIncorrect;        // a fax filled with fewer than 7 digits

    // The texts of the owner panels of the tank, pump and gas equipment screens.
    static AddressTexts ownerPanel();
};

class AddressBlock : public QObject {
public:
    // Gives the fields their behaviour and returns the block, owned by the combo (or, without
    // a combo, by the first field given).
    static AddressBlock* attach(store::Database& db, const AddressFields& fields,
                                MunicipalityList list, const AddressTexts& texts = {});

    const AddressFields& fields() const { return m_fields; }

    // Fills the combo, once ("Carregou"): on the combo's first focus, or earlier when a screen
    // puts a stored municipality into it.
    void loadMunicipalities();
    bool loaded() const { return m_loaded; }

    // The NMUNCP of the entry shown in the combo; nothing when the combo's text is no entry.
    std::optional<int> municipalityNumber() const;
    // Shows a stored municipality: the entry of that number, with its number and UF.
    void setMunicipality(int nmuncp);
    // The UF of the entry shown: the state's abbreviation, or that of the state served.
    QString stateOfChoice() const;

    // The CEP's typed digits.
    QString cep() const;
    void setCep(const QString& digits);
    // consscep with the CEP and the chosen municipality ("Cep Inválido" without a choice).
    rules::CepCheck checkCep() const;

    // The register form in "Alterar": the municipality is part of the key and cannot change;
    // the cover stands in front of the combo.
    void setMunicipalityLocked(bool locked);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    AddressBlock(store::Database& db, const AddressFields& fields, MunicipalityList list,
                 const AddressTexts& texts, QObject* owner);
    void attachFields();
    void chosen(int index);
    void nextEntry();
    bool leaving(QObject* field);
    void refuse(QWidget* field, const QString& text);

    store::Database& m_db;
    AddressFields m_fields;
    MunicipalityList m_list;
    AddressTexts m_texts;
    bool m_loaded = false;
    bool m_refusing = false;
};

} // namespace ui
