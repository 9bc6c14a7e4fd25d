#pragma once

#include "store/RegisterKey.h"
#include "ui/Refusal.h"

#include <QDate>
#include <QString>
#include <optional>

namespace store {
class Database;
}

// The register form's data, apart from its widgets: what the fields hold, the checks of Ok in
// their order, and the writes of EMPRS and TB_POSTO. The form and the command line use the same
// routines.
namespace establishment {

// The fields of the register form as typed, display masks taken off: CEP, phone, fax, CNPJ,
// activity code and coordinates hold their digits only; dates hold "dd/MM/yyyy" or nothing.
struct RegisterFields {
    QString kind = QStringLiteral("R"); // IESTBL: "R", "I", "A", "F"
    QString nmuncpText;                 // txtnMuncp (hidden)
    QString nseqncText;                 // txtnSeqnc (hidden)
    QString nugrhi;                     // txtnUGRHI (hidden, carried)
    QString nbacia;                     // txtNBACIA (hidden, carried)
    QString razaoSocial;
    QString fantasia;
    QString bandeira;
    QString logradouro;
    QString numero;
    QString complemento;
    QString bairro;
    QString cep;
    QString municipio;       // the municipality's name as the combo shows it
    int municipioCodigo = 0; // NMUNCP of the chosen entry; 0 for none
    QString ddd;
    QString telefone;
    QString fax;
    QString email;
    QString cnpj;
    QString anp;
    QString anpAnterior;
    QString inscEstadual;
    QString inscMunicipal;
    QString cibge;
    QString latitude;
    QString longitude;
    QString inicioAtividades;
    QString levantamento;

    // All fields joined into one text: two packs differ exactly when a field was changed.
    QString pack() const;
};

// The first check of Ok that failed names its field by objectName: the checks run apart from
// the form too, for the command line.
using ui::Refusal;

struct CheckContext {
    int objective = 0;     // gObjetivo
    QString operacao;      // gOperacao: "Incluir" or "Alterar"
    int sessionNmuncp = 0; // gNMUNCP: the register's own municipality when changing
    QDate today = QDate::currentDate();
};

struct CheckResult {
    std::optional<Refusal> refusal;
    // The municipality of the register, once every check passed: its own when changing, the
    // chosen one when creating.
    int nmuncp = 0;
};

// Consistir_Dados: the checks of Ok, in their fixed order; the first failure ends them.
CheckResult consistirDados(store::Database& db, const RegisterFields& fields,
                           const CheckContext& context);

// The register's fields as stored; throws store::Failure when it is not there.
RegisterFields loadRegister(store::Database& db, const store::RegisterKey& key);

// Incluir_Empresa: the EMPRS row of a new register in `nmuncp`. NSEQNC is numbered by the table:
// one above the highest of all registers. Returns the new key. CSITU stays Null.
store::RegisterKey incluirEmpresa(store::Database& db, const RegisterFields& fields, int nmuncp);
// Incluir_Posto: the TB_POSTO row, with `today` as its date of information; the columns that the
// general characteristics fill later start at zero or Null.
void incluirPosto(store::Database& db, const RegisterFields& fields, const store::RegisterKey& key,
                  const QDate& today);
// Alterar_Empresa and Alterar_Posto: the key stays as it was created.
void alterarEmpresa(store::Database& db, const RegisterFields& fields,
                    const store::RegisterKey& key);
void alterarPosto(store::Database& db, const RegisterFields& fields, const store::RegisterKey& key);
// The status routine: every save of the register form makes the register 1 (to be exported).
void marcarParaExportar(store::Database& db, const store::RegisterKey& key);

// The writes of Ok, inside the caller's transaction: a new register (returns its key) and a
// change of one.
store::RegisterKey writeNewRegister(store::Database& db, const RegisterFields& fields, int nmuncp,
                                    const QDate& today);
void writeRegisterChange(store::Database& db, const RegisterFields& fields,
                         const store::RegisterKey& key);

// The writes of Ok, each in one transaction: all of it is stored or, on a failure, nothing.
store::RegisterKey incluirRegistro(store::Database& db, const RegisterFields& fields, int nmuncp,
                                   const QDate& today = QDate::currentDate());
void alterarRegistro(store::Database& db, const RegisterFields& fields,
                     const store::RegisterKey& key);

} // namespace establishment
