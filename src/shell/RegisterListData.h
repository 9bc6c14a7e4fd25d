#pragma once

#include "store/RegisterKey.h"

#include <QDate>
#include <QString>
#include <QVariant>
#include <vector>

namespace store {
class Database;
}

// What the register list reads and deletes; no widgets here.
namespace shell {

struct RegisterRow {
    QString code; // NMUNCP "000" and NSEQNC "0000"
    QString razaoSocial;
    QVariant ccgc;
    QDate acadst;
    QVariant csitu;
};

enum class ListOrder { RazaoSocial, Cnpj };

// The registers that have a status, a register without one being in the middle of its
// creation, sorted by company name or by CNPJ (registers without a CNPJ first).
std::vector<RegisterRow> listRegisters(store::Database& db, ListOrder order);

// The word of a status in the list: "EM MANUTENÇÃO", "OK", "EXPORTADO", "ENVIADO", "REENVIADO";
// any other value stays the bare number.
QString statusWord(const QVariant& csitu);

// The CNPJ as the list shows it: fourteen digits under the mask "00.000.000/0000-00".
QString cnpjText(const QVariant& ccgc);

// Excluir_Dados: deletes every row of the register from every register table, children before
// their parents and EMPRS last, in one transaction: all of the register goes, or nothing does.
void excluirDados(store::Database& db, const store::RegisterKey& key);

} // namespace shell
