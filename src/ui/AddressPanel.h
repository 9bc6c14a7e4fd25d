#pragma once

#include "ui/AddressBlock.h"

#include <QWidget>

class QComboBox;
class QLineEdit;

namespace store {
class Database;
}

namespace ui {

struct AddressPanelOptions {
    // The company and contact lines of the owner panels (txtDRAZAOSOCIL, txtDCONTT).
    bool companyAndContact = true;
    // The UF box: txtUFMUNCP of 2 characters on the owner panels, txtMUNCPUF elsewhere.
    QString stateName = QStringLiteral("txtUFMUNCP");
    int stateLength = 2;
    // A hidden txtnMuncp holding the chosen number, for screens that keep one.
    bool municipalityNumberField = false;
    MunicipalityList list = MunicipalityList::StatesThenMunicipalities;
    AddressTexts texts = AddressTexts::ownerPanel();
};

// What the panel holds, as the screens read and write it. Texts are as typed (trimmed where
// the field trims); CEP, telephone and fax are their typed digits.
struct AddressValues {
    QString company; // DRAZAOSOCIL
    QString contact; // DCONTT
    QString street;  // DLOGRD
    QString number;  // NLOGRD
    QString complement;
    QString district;
    QString cep;
    std::optional<int> municipality; // NMUNCP of the entry chosen
    QString state;                   // the UF box
    QString ddd;
    QString telephone;
    QString fax;
    QString email;
};

// The whole address block as one panel, for the owner panels of the tank, pump and gas
// equipment screens: labelled fields with the names and lengths those screens use, and the
// block's behaviour attached. A screen puts it into its frame (fraProp) and reads the fields
// by name or through values().
class AddressPanel : public QWidget {
public:
    explicit AddressPanel(store::Database& db, const AddressPanelOptions& options = {},
                          QWidget* parent = nullptr);

    AddressBlock& block() { return *m_block; }
    const AddressFields& fields() const { return m_block->fields(); }
    QLineEdit* company() const { return m_company; }
    QLineEdit* contact() const { return m_contact; }

    AddressValues values() const;
    // Fills every field; an empty value leaves its field empty.
    void setValues(const AddressValues& values);
    void clear();

private:
    QLineEdit* m_company = nullptr;
    QLineEdit* m_contact = nullptr;
    AddressBlock* m_block = nullptr;
};

} // namespace ui
