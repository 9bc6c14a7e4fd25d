#pragma once

#include "store/RegisterKey.h"

#include <QDate>
#include <QString>
#include <optional>

namespace ui {

// What the screens of one run share: the register being worked on, the filling objective and
// the positions that lists restore when they are shown again. It lives as long as the main
// screen and is passed to every screen; nothing of it is saved.
struct Session {
    // The register being worked on (gNMUNCP, gNSEQNC, gAINFRM, gRazaoSocial).
    int nmuncp = 0;
    int nseqnc = 0;
    QDate ainfrm;
    QString razaoSocial;

    // The filling objective of the database, 0 to 4 (gObjetivo); none until one is chosen.
    std::optional<int> objetivo;

    // The register list and the register form.
    QString operacao;        // gOperacao: "Incluir" or "Alterar"
    int origemSelecao = 0;   // gOrigemSelecao: 0 from the main screen, 1 from the list
    QString marcaContinuar;  // gMarcaContinuar
    int linhaLista = 0;      // gLinhaLista: row of the register list to reselect
    bool primeiraVez = true; // gPrimeiraVez
    QString chaveNova;       // gChaveNova: code of a register just inserted

    // The list and maintenance screens.
    QString operacaoItem;   // gOperacaoItem, such as "Incluir Tanque"
    int linhaPrincipal = 0; // gLinhaPrincipal
    int linhaDetalhe = 0;   // gLinhaDetalhe
    int pendentes = 0;      // gPendentes: children still to enter in a forced chain

    store::RegisterKey key() const { return {nmuncp, nseqnc}; }
    // The objective for the chain's jumps; a register without one walks the whole chain.
    int objetivoOrCadastro() const { return objetivo.value_or(0); }
};

} // namespace ui
