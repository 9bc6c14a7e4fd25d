#pragma once

#include <QString>

// The rules of the postal address block that many screens repeat: street, number, complement,
// district, municipality, CEP, DDD, telephone, fax. The queries behind them are in
// store/ReferenceQueries.h; the widgets in ui/AddressBlock.h.
namespace rules {

// Municipality numbers: 100 and above are municipalities of the state that the program serves,
// below 99 the other states of the federation.
inline constexpr int kPrimeiroMunicipio = 100;
inline constexpr int kUltimoEstado = 98;
// The capital, the one municipality whose register numbers are split among regional offices.
inline constexpr int kCapital = 100;
// The abbreviation shown for every municipality of the state served.
inline const QString kUfAtendida = QStringLiteral("SP");

inline bool isEstado(int nmuncp) {
    return nmuncp <= kUltimoEstado;
}
// The UF of a municipality number: the state served for its municipalities, the state's own
// abbreviation otherwise.
QString ufDoMunicipio(int nmuncp, const QString& abbreviation);

// The three patterns under which the CEP table may hold a CEP: its first four characters and
// "*", its first three and "**", its first five.
struct CepPatterns {
    QString fourAndStar;
    QString threeAndStars;
    QString five;
};
CepPatterns cepPatterns(const QString& cep);

// What consscep gives back: an empty message and the regional office that serves the CEP, or
// the message "Cep Inválido" when the CEP does not belong to the municipality.
struct CepCheck {
    QString message;
    int regional = 0;

    bool valid() const { return message.isEmpty(); }
};
inline const QString kCepInvalido = QStringLiteral("Cep Inválido");

// consistecep100, run after the CEP check gave the regional office `regional`. It applies only
// to the capital (the numeric value of `nMuncpText` exactly 100) and compares the register's
// number (the first five characters of `nSeqncText`) with the blocks of numbers given to each
// office: "sim" when the number's block belongs to another office, an empty text otherwise
// (also for a number in no block, which holds every ordinary sequence number, all below 32000).
QString consistecep100(const QString& nMuncpText, const QString& nSeqncText, int regional);

// Lengths of the block on every screen. A CEP is complete with 8 digits once masks and spaces
// are taken off; a telephone or a fax needs at least 7 digits.
inline constexpr int kCepDigits = 8;
inline constexpr int kTelefoneMinimo = 7;
inline constexpr int kDddMaximo = 4;
// The lowest area code a DDD field accepts.
inline constexpr int kMenorDdd = 10;

QString cepDigits(const QString& text);
bool cepCompleto(const QString& text);
// For the telephone: fewer than 7 characters typed (the mask's literals and prompts aside).
bool telefoneIncompleto(const QString& clipText);
// For the fax, which may stay empty: filled, and fewer than 7 characters.
bool faxIncompleto(const QString& clipText);
// A filled DDD of a single digit, or of a value below the lowest area code.
bool dddIncorreto(const QString& text);
// A DDD shown through the format "0##": "11" becomes "011"; an empty text stays empty.
QString formataDdd(const QString& text);

} // namespace rules
