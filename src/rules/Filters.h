#pragma once

#include <QString>
#include <QVariant>

// The small routines behind every text field: key filters, upper case, decimal comma entry,
// display masks and the conversion of a typed number into the value that goes to the database.
// The screens attach them to their fields through ui/FieldBehaviour.h; here they are plain
// functions of texts and keys.
namespace rules {

// The character of a key press. A filter returns the key to let through, possibly changed, or
// kSwallowed when the key is refused.
using KeyCode = char16_t;
inline constexpr KeyCode kSwallowed = 0;
inline constexpr KeyCode kBackspace = 8;
inline constexpr KeyCode kEnter = 13;
inline constexpr KeyCode kQuote = 39; // '
inline constexpr KeyCode kComma = 44; // ,
inline constexpr KeyCode kGrave = 96; // `

// The separators of a typed number. The program formats for Brazil whatever the machine's
// locale; every reading of a typed number takes its separators from here.
struct NumberSeparators {
    QChar decimal;
    QChar thousands;
};
inline constexpr NumberSeparators kBrazilianSeparators{QChar(u','), QChar(u'.')};
// The separators in force: the Brazilian ones unless others were set.
NumberSeparators numberSeparators();
void setNumberSeparators(NumberSeparators separators);

// Maiusculas: the text in upper case, unless it is blank, in which case it stays as it is.
// Letters whose capital lies outside the exchange file's character set keep their form.
QString maiusculas(const QString& text);

// FiltroAspas: the single quote becomes a grave accent; every other key passes.
KeyCode filtroAspas(KeyCode key);

// FiltroDigitos: digits, backspace and Enter pass; any other key is swallowed.
KeyCode filtroDigitos(KeyCode key);

// FiltroDecimal for a field holding `text`: digits and backspace pass; a comma passes only
// when `text` followed by a comma is still a number (so never a second comma, nor a comma in
// an empty field); any other key is swallowed. The field's own part, widening its length
// when a comma is typed, is ui::attachDecimal's.
KeyCode filtroDecimal(const QString& text, KeyCode key);

// Whether `text` reads as a number under numberSeparators(): an optional sign, digits with
// thousands separators anywhere, at most one decimal separator, at least one digit.
bool isNumeric(const QString& text);

// ConfereCasas: how many characters follow the decimal comma beyond `casas` (0 when there is
// no comma or few enough); and the message shown when there are some.
int excessoCasas(const QString& text, int casas);
QString casasDecimaisMessage(int casas);

// ContaSeparadores: the number of "," and "." in the text.
int contaSeparadores(const QString& text);
// ContaPontoBarra: the number of "." and "/" in the text.
int contaPontoBarra(const QString& text);
// SemEspacos: the text with every space removed; a null text stays null.
QString semEspacos(const QString& text);

// Display masks: each "@" of a mask stands for one character of the value, everything else is
// a literal ("@@.@@@.@@@/@@@@-@@" for a CNPJ).
// TiraMascara: the text with every literal character of the mask removed.
QString tiraMascara(const QString& text, const QString& mask);
// PoeMascara: the text laid into the mask from the right, so a short value leaves the left
// places blank, then trimmed; characters beyond the mask's places stay in front. An empty
// text stays empty.
QString poeMascara(const QString& text, const QString& mask);
// The number of "@" places of a mask, and the length of a masked text (places + literals).
int mascaraPosicoes(const QString& mask);
int mascaraComprimento(const QString& mask);

// NumeroParaSql, as text: nothing for an empty value, a null one or a date; a number in its
// plain form; a text with its thousands separators removed and its first decimal separator
// turned into ".".
QString numeroParaSqlTexto(const QVariant& value);
// NumeroParaSql, as the value to bind: a null double for an empty result, the number when the
// text reads as one, and otherwise the text itself, so that nothing typed is lost.
QVariant numeroParaSql(const QVariant& value);

// The text without the spaces at either end (tabs and other blanks stay).
QString trimSpaces(const QString& text);

// The numeric value of the leading number of a text, blanks ignored, 0 when there is none
// (the way the screens read "the numeric value" of a field: "12ab" is 12, "" is 0).
double val(const QString& text);

// A one-line text field never holds the exchange file's separator "¬" nor a line break; a
// pasted line break or tab becomes one blank.
bool cabeNaLinha(QChar c);
QString limpaLinha(const QString& text);

} // namespace rules
