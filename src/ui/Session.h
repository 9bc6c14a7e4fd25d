#pragma once

#include "store/RegisterKey.h"
#include "store/RowWriter.h"

#include <QDate>
#include <QString>
#include <optional>

namespace ui {

// What the screens share for the length of one run: the register being worked on, the filling
// objective and the small marks that the list and the register form leave for each other. One
// object, created with the main screen and passed to every screen; nothing of it is persisted.
struct Session {
    // Objectives, as chosen in the objective dialog; below kLicencaPrevia means an establishment
    // already in operation.
    enum Objective {
        Cadastro = 0,
        LicencaFuncionamento = 1,
        LicencaPrevia = 2,
        LicencaInstalacao = 3,
        LicencaPreviaInstalacao = 4
    };

    // gNMUNCP, gNSEQNC, gAINFRM, gRazaoSocial: the register being worked on.
    int nmuncp = 0;
    int nseqnc = 0;
    QDate ainfrm;
    QString razaoSocial;

    // gObjetivo: empty until the objective dialog was left with Continuar in this run.
    std::optional<int> objetivo;

    // gOperacao: "Incluir" or "Alterar", the register form's mode.
    QString operacao;
    // gOrigemSelecao: 0 when printing or export starts from the main screen, 1 from the list.
    int origemSelecao = 0;
    // gChaveNova: code of a register just inserted, for the list to select it; emptied there.
    QString chaveNova;
    // gLinhaLista: row (from 1) of the register last chosen in the list; 0 for none.
    int linhaLista = 0;
    // gPrimeiraVez: true from the main screen's start until the list has loaded once.
    bool primeiraVez = true;
    // gMarcaContinuar: "M" once Continuar of the list or Ok of the register form ran.
    QString marcaContinuar;

    // The list and maintenance screens of the chain.
    QString operacaoItem;   // gOperacaoItem: the operation in progress, such as "Incluir Tanque"
    int linhaPrincipal = 0; // gLinhaPrincipal: row of the main grid to reselect
    int linhaDetalhe = 0;   // gLinhaDetalhe: row of the detail grid to reselect
    int pendentes = 0;      // gPendentes: children still to enter in a forced chain

    store::RegisterKey key() const { return {nmuncp, nseqnc}; }
    // The register's key columns, to which a screen adds the key of its own row.
    store::Row keyRow() const {
        return {{QStringLiteral("NMUNCP"), nmuncp}, {QStringLiteral("NSEQNC"), nseqnc}};
    }
    // The columns that every row a screen inserts starts with: the key and the information date.
    store::Row newRow() const {
        store::Row row = keyRow();
        row.insert(QStringLiteral("AINFRM"), ainfrm.toString(Qt::ISODate));
        return row;
    }
    void setKey(const store::RegisterKey& k) {
        nmuncp = k.nmuncp;
        nseqnc = k.nseqnc;
    }
    // The objective as the rules compare it: an objective never chosen counts as Cadastro.
    int objective() const { return objetivo.value_or(Cadastro); }
    bool inOperation() const { return objective() < LicencaPrevia; }
};

inline const QString kIncluir = QStringLiteral("Incluir");
inline const QString kAlterar = QStringLiteral("Alterar");

} // namespace ui
