#pragma once

#include "establishment/RegisterRecord.h"
#include "store/Database.h"
#include "store/TableCatalogue.h"

#include <QApplication>
#include <QSqlQuery>
#include <QTest>
#include <QWidget>

// Registers and screens shared by the tests of the register list and the register form.
namespace testsupport {

// ADAMANTINA (101) and a CEP of its range.
constexpr int kAdamantina = 101;

// A register that passes every check of the register form, objective Cadastro.
inline establishment::RegisterFields completeFields() {
    establishment::RegisterFields f;
    f.kind = QStringLiteral("R");
    f.razaoSocial = QStringLiteral("AUTO POSTO BOA VIAGEM LTDA");
    f.fantasia = QStringLiteral("POSTO BOA VIAGEM");
    f.bandeira = QStringLiteral("BANDEIRA BRANCA");
    f.logradouro = QStringLiteral("AVENIDA RIO BRANCO");
    f.numero = QStringLiteral("1200");
    f.complemento = QString();
    f.bairro = QStringLiteral("CENTRO");
    f.cep = QStringLiteral("17800000");
    f.municipio = QStringLiteral("ADAMANTINA");
    f.municipioCodigo = kAdamantina;
    f.ddd = QStringLiteral("018");
    f.telefone = QStringLiteral("35221234");
    f.fax = QString();
    f.email = QStringLiteral("posto@example.com");
    f.cnpj = QStringLiteral("11222333000181");
    f.anp = QStringLiteral("SP1234567");
    f.anpAnterior = QString();
    f.inscEstadual = QStringLiteral("123456789012");
    f.inscMunicipal = QStringLiteral("4455");
    f.cibge = QStringLiteral("5050400");
    f.latitude = QStringLiteral("213000");
    f.longitude = QStringLiteral("510400");
    f.inicioAtividades = QStringLiteral("15/03/1998");
    f.levantamento = QStringLiteral("02/05/2001");
    return f;
}

// A row in some of the register's satellite tables, written as other screens would.
inline void insertSatellites(store::Database& db, const store::RegisterKey& key) {
    const QVariantList k = {key.nmuncp, key.nseqnc};
    db.run(QStringLiteral("INSERT INTO TB_POSTORESPN (NMUNCP, NSEQNC, DRESPN) VALUES (?, ?, 'A')"),
           k);
    db.run(QStringLiteral(
               "INSERT INTO TB_POSTOTANQU (NMUNCP, NSEQNC, ITANQU, NTANQU) VALUES (?, ?, 'S', 1)"),
           k);
    db.run(QStringLiteral("INSERT INTO TB_POSTOTANQUCOMPR (NMUNCP, NSEQNC, ITANQU, NTANQU, NCOMPR) "
                          "VALUES (?, ?, 'S', 1, 1)"),
           k);
    db.run(QStringLiteral(
               "INSERT INTO TB_POSTOBOMBA (NMUNCP, NSEQNC, ITANQU, NBOMBA) VALUES (?, ?, 'S', 1)"),
           k);
    db.run(QStringLiteral("INSERT INTO SUGESTOES (NMUNCP, NSEQNC) VALUES (?, ?)"), k);
}

// Rows of the register in all register tables together.
inline qlonglong registerRows(store::Database& db, const store::RegisterKey& key) {
    qlonglong rows = 0;
    for (std::string_view name : store::registerDeleteOrder()) {
        const QString table = QString::fromLatin1(name.data(), qsizetype(name.size()));
        rows += db.scalar(QStringLiteral("SELECT COUNT(*) FROM \"%1\" WHERE NMUNCP = ? AND "
                                         "NSEQNC = ?")
                              .arg(table),
                          {key.nmuncp, key.nseqnc})
                    .toLongLong();
    }
    return rows;
}

template <typename T = QWidget> T* child(QWidget* parent, const char* name) {
    T* widget = parent->findChild<T*>(QString::fromLatin1(name));
    if (!widget)
        QTest::qFail(qPrintable(QStringLiteral("no widget ") + QString::fromLatin1(name)), __FILE__,
                     __LINE__);
    return widget;
}

inline QString focusName() {
    const QWidget* w = QApplication::focusWidget();
    return w ? w->objectName() : QString();
}

} // namespace testsupport
