#include "establishment/RegisterRecord.h"

#include "rules/Address.h"
#include "rules/CheckDigits.h"
#include "rules/Filters.h"
#include "rules/Formats.h"
#include "store/Database.h"
#include "store/Failure.h"
#include "store/ReferenceQueries.h"
#include "store/SqlValues.h"
#include "ui/Session.h"

#include <QSqlQuery>

namespace establishment {

namespace {

bool blank(const QString& text) {
    return text.trimmed().isEmpty();
}

Refusal refuse(const char* field, const QString& message, ui::Icon icon = ui::Icon::Critical) {
    return Refusal{QString::fromLatin1(field), message, icon};
}

// A number column: the digits as a number, or Null when empty. A text that is not all digits
// (a municipal registration with letters, say) is stored as typed rather than lost.
QVariant numberValue(const QString& text) {
    const QString t = text.trimmed();
    if (t.isEmpty())
        return store::nullValue();
    bool ok = false;
    const qlonglong n = t.toLongLong(&ok);
    return ok ? QVariant(n) : QVariant(t);
}

// A date field's text; an empty one is Null, and one that is not a date never reaches the table.
QVariant dateValue(const QString& text, const char* field) {
    if (blank(text))
        return store::nullValue();
    const QDate date = QDate::fromString(text.trimmed(), rules::kShortDateFormat);
    if (!date.isValid())
        throw store::Failure::other(13, QStringLiteral("Tipo incompatível: data inválida em ") +
                                            QString::fromLatin1(field));
    return store::dateValue(date);
}

QString textOf(const QVariant& v) {
    return v.isNull() ? QString() : v.toString();
}

QString digitsOf(const QVariant& v, int width) {
    if (v.isNull() || v.toString().isEmpty())
        return {};
    bool ok = false;
    const qlonglong n = v.toLongLong(&ok);
    if (!ok)
        return v.toString();
    return width > 0 ? QStringLiteral("%1").arg(n, width, 10, QLatin1Char('0'))
                     : QString::number(n);
}

QString dateText(const QVariant& v) {
    const QDate d = store::readDate(v);
    return d.isValid() ? rules::shortDate(d) : QString();
}

// Coordinates are kept as the number of their six digits, degrees, minutes and seconds.
QString coordinateText(const QVariant& v) {
    if (v.isNull() || v.toString().isEmpty())
        return {};
    return QStringLiteral("%1").arg(qlonglong(v.toDouble()), 6, 10, QLatin1Char('0'));
}

} // namespace

QString RegisterFields::pack() const {
    return QStringList{kind,
                       razaoSocial,
                       fantasia,
                       bandeira,
                       logradouro,
                       numero,
                       complemento,
                       bairro,
                       cep,
                       municipio,
                       ddd,
                       telefone,
                       fax,
                       email,
                       cnpj,
                       anp,
                       anpAnterior,
                       inscEstadual,
                       inscMunicipal,
                       cibge,
                       latitude,
                       longitude,
                       inicioAtividades,
                       levantamento}
        .join(QChar(0x1F));
}

CheckResult consistirDados(store::Database& db, const RegisterFields& f, const CheckContext& c) {
    CheckResult result;
    const auto fail = [&](Refusal r) {
        result.refusal = std::move(r);
        return result;
    };
    const bool changing = c.operacao == ui::kAlterar;
    int nmuncp = c.sessionNmuncp;

    if (blank(f.razaoSocial))
        return fail(
            refuse("txtDRAZAOSOCIL", QStringLiteral("Preenchimento Obrigatório da Razão Social")));
    if (blank(f.bandeira))
        return fail(refuse("txtDBANDR", QStringLiteral("Preenchimento Obrigatório da Bandeira")));
    if (blank(f.logradouro))
        return fail(
            refuse("txtDLOGRD", QStringLiteral("Preenchimento Obrigatório do Nome do Logradouro")));
    if (blank(f.numero) && blank(f.complemento))
        return fail(
            refuse("txtNLOGRD", QStringLiteral("Preencher Número do Logradouro ou Complemento")));
    if (blank(f.cep))
        return fail(refuse("txtCCEP", QStringLiteral("Preenchimento Obrigatório do CEP.")));
    if (f.cep.trimmed().size() != 8)
        return fail(refuse("txtCCEP", QStringLiteral("Preenchimento Incorreto do CEP")));

    int regional = 0;
    if (!blank(f.municipio)) {
        if (!changing)
            nmuncp = f.municipioCodigo;
        const rules::CepCheck cep = store::consscep(db, f.cep.trimmed(), nmuncp);
        if (!cep.message.isEmpty())
            return fail(
                refuse("txtCCEP", QStringLiteral("CEP Inválido para o Município"), ui::Icon::None));
        regional = cep.regional;
    }
    // The register's number block is checked against the regional in both modes.
    if (rules::consistecep100(f.nmuncpText, f.nseqncText, regional) == QLatin1String("sim"))
        return fail(refuse("txtCCEP", QStringLiteral("CEP Inválido - Não pertence a Regional "),
                           ui::Icon::None));

    if (blank(f.municipio))
        return fail(refuse("cmbDMUNCP", QStringLiteral("Preenchimento Obrigatório do Município")));
    if (blank(f.ddd))
        return fail(
            refuse("txtndddemprs", QStringLiteral("Preenchimento Obrigatório do Número do DDD.")));
    if (blank(f.telefone))
        return fail(refuse("txtntelfnemprs",
                           QStringLiteral("Preenchimento Obrigatório do Número do Telefone.")));
    if (f.telefone.trimmed().size() < 7)
        return fail(
            refuse("txtntelfnemprs", QStringLiteral("Preenchimento Incorreto do Telefone")));
    if (!blank(f.fax) && f.fax.trimmed().size() < 7)
        return fail(refuse("txtNFAX", QStringLiteral("Preenchimento Incorreto do FAX")));

    if (c.objective < ui::Session::LicencaPrevia) {
        if (blank(f.cnpj))
            return fail(
                refuse("txtcCnpj", QStringLiteral("Preenchimento Obrigatório do campo CNPJ")));
        if (rules::val(f.cnpj) == 0)
            return fail(refuse("txtcCnpj", QStringLiteral("Preenchimento Inválido do campo CNPJ")));
    }
    if (!blank(f.cnpj) && !rules::validaCgcCpf(f.cnpj.trimmed()))
        return fail(
            refuse("txtcCnpj", QStringLiteral("Preenchimento Incorreto do código de CNPJ")));

    const QString allCoordinates = QStringLiteral(
        "Ao preencher um dos campos de Coordenadas Geográficas, é Obrigatório o preenchimento dos "
        "campos restantes de Coordenadas Geográficas");
    if (!blank(f.latitude) && blank(f.longitude))
        return fail(refuse("txtqLongt", allCoordinates));
    if (!blank(f.longitude) && blank(f.latitude))
        return fail(refuse("txtqLattd", allCoordinates));

    const QString anp = f.anp;
    if (!(c.objective == ui::Session::LicencaFuncionamento && blank(anp))) {
        if (rules::isNumeric(anp.mid(0, 2)) && !anp.isEmpty())
            return fail(refuse("txtNANP",
                               QStringLiteral("Os dois primeiros dígitos do Registro ANP devem ser "
                                              "siglas de UF"),
                               ui::Icon::Information));
        if (!rules::isNumeric(anp.mid(2, 9)) && !anp.isEmpty())
            return fail(
                refuse("txtNANP", QStringLiteral("Preenchimento Incorreto do Registro ANP")));
    }

    if (!(c.objective == ui::Session::LicencaFuncionamento && blank(f.inicioAtividades))) {
        if (blank(f.inicioAtividades))
            return fail(refuse("mskACADST",
                               QStringLiteral("Preenchimento Obrigatório da Data de Início das "
                                              "Atividades no Local.")));
    }
    if (blank(f.levantamento))
        return fail(refuse("mskALEVNT",
                           QStringLiteral("Preenchimento Obrigatório da Data de Levantamento.")));
    const QDate levantamento = QDate::fromString(f.levantamento.trimmed(), rules::kShortDateFormat);
    if (!levantamento.isValid() || levantamento.daysTo(c.today) < 0)
        return fail(refuse("mskALEVNT",
                           QStringLiteral("Preenchimento Incorreto da Data de Levantamento.")));

    result.nmuncp = changing ? f.nmuncpText.toInt() : nmuncp;
    return result;
}

RegisterFields loadRegister(store::Database& db, const store::RegisterKey& key) {
    QSqlQuery e = db.run(
        QStringLiteral(
            "SELECT E.NMUNCP, E.NSEQNC, E.NUGRHI, E.NBACIA, E.DRAZAOSOCIL, E.DFANTS, E.DLOGRD, "
            "E.NLOGRD, E.DLOGRDCOMPM, E.DBAIRR, E.CCEP, M.DMUNCP, E.NDDD, E.NTELFN, E.NTELEX, "
            "E.DEMAIL, E.CCGC, E.NINSCRESTDL, E.NINSCRMUNCP, E.CIBGE, E.QLATTD, E.QLONGT, "
            "E.ACADST, P.IESTBL, P.DBANDR, P.NANP, P.NANPANTRR, P.ALEVNT "
            "FROM EMPRS E LEFT JOIN TB_POSTO P ON P.NMUNCP = E.NMUNCP AND P.NSEQNC = E.NSEQNC "
            "LEFT JOIN MUNCP M ON M.NMUNCP = E.NMUNCP WHERE E.NMUNCP = ? AND E.NSEQNC = ?"),
        {key.nmuncp, key.nseqnc});
    if (!e.next())
        throw store::Failure::other(3021, QStringLiteral("Não há registro corrente: o VOR ") +
                                              key.code() + QStringLiteral(" não existe mais."));
    RegisterFields f;
    f.nmuncpText = textOf(e.value(0));
    f.nseqncText = textOf(e.value(1));
    f.nugrhi = textOf(e.value(2));
    f.nbacia = textOf(e.value(3));
    f.razaoSocial = textOf(e.value(4));
    f.fantasia = textOf(e.value(5));
    f.logradouro = textOf(e.value(6));
    f.numero = digitsOf(e.value(7), 0);
    f.complemento = textOf(e.value(8));
    f.bairro = textOf(e.value(9));
    f.cep = digitsOf(e.value(10), 8);
    f.municipio = textOf(e.value(11));
    f.municipioCodigo = e.value(0).toInt();
    f.ddd = digitsOf(e.value(12), 3); // shown through "0##"
    f.telefone = digitsOf(e.value(13), 0);
    f.fax = digitsOf(e.value(14), 0);
    f.email = textOf(e.value(15));
    f.cnpj = digitsOf(e.value(16), 14);
    f.inscEstadual = digitsOf(e.value(17), 0);
    f.inscMunicipal = digitsOf(e.value(18), 0);
    f.cibge = digitsOf(e.value(19), 7);
    f.latitude = coordinateText(e.value(20));
    f.longitude = coordinateText(e.value(21));
    f.inicioAtividades = dateText(e.value(22));
    f.kind = e.value(23).isNull() ? QStringLiteral("R") : e.value(23).toString();
    f.bandeira = textOf(e.value(24));
    f.anp = textOf(e.value(25));
    f.anpAnterior = textOf(e.value(26));
    f.levantamento = dateText(e.value(27));
    return f;
}

store::RegisterKey incluirEmpresa(store::Database& db, const RegisterFields& f, int nmuncp) {
    const int nseqnc =
        db.scalar(QStringLiteral("SELECT COALESCE(MAX(NSEQNC), 0) + 1 FROM EMPRS")).toInt();
    if (nseqnc > 32767)
        throw store::Failure::other(6, QStringLiteral("Estouro: não há mais números de VOR."));
    db.run(QStringLiteral("INSERT INTO EMPRS (NMUNCP, NSEQNC, DFANTS, DRAZAOSOCIL, DLOGRD, "
                          "NLOGRD, DLOGRDCOMPM, DBAIRR, CCEP, NDDD, NTELFN, NTELEX, CCGC, DATIVD, "
                          "ACADST, QLATTD, QLONGT, DEMAIL, NINSCRESTDL, NINSCRMUNCP, CIBGE) "
                          "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
           {nmuncp,
            nseqnc,
            store::textValue(f.fantasia),
            store::textValue(f.razaoSocial),
            store::textValue(f.logradouro),
            numberValue(f.numero),
            store::textValue(f.complemento),
            store::textValue(f.bairro),
            numberValue(f.cep),
            numberValue(f.ddd),
            numberValue(f.telefone),
            numberValue(f.fax),
            numberValue(f.cnpj),
            store::nullValue(),
            dateValue(f.inicioAtividades, "mskACADST"),
            numberValue(f.latitude),
            numberValue(f.longitude),
            store::textValue(f.email),
            numberValue(f.inscEstadual),
            numberValue(f.inscMunicipal),
            numberValue(f.cibge)});
    return {nmuncp, nseqnc};
}

void incluirPosto(store::Database& db, const RegisterFields& f, const store::RegisterKey& key,
                  const QDate& today) {
    db.run(QStringLiteral(
               "INSERT INTO TB_POSTO (NMUNCP, NSEQNC, AINFRM, IESTBL, DBANDR, NANP, NANPANTRR, "
               "ICLASSABNT, QAREATERRN, QFUNCNADMNS, QFUNCNOPERC, HINICIFUNCM, HTERMNFUNCM, "
               "NHORASJORNDDIA, NDIASJORNDMES, NDIASJORNDANO, ILOCLZATIVD, AINICIATIVD, ALEVNT) "
               "VALUES (?, ?, ?, ?, ?, ?, ?, NULL, 0, 0, 0, NULL, NULL, 0, 0, 0, NULL, ?, ?)"),
           {key.nmuncp, key.nseqnc, store::dateValue(today), f.kind, store::textValue(f.bandeira),
            store::textValue(f.anp), store::textValue(f.anpAnterior),
            dateValue(f.inicioAtividades, "mskACADST"), dateValue(f.levantamento, "mskALEVNT")});
}

void alterarEmpresa(store::Database& db, const RegisterFields& f, const store::RegisterKey& key) {
    db.run(QStringLiteral("UPDATE EMPRS SET DFANTS = ?, DRAZAOSOCIL = ?, DLOGRD = ?, NLOGRD = ?, "
                          "DLOGRDCOMPM = ?, DBAIRR = ?, CCEP = ?, NDDD = ?, NTELFN = ?, "
                          "NTELEX = ?, CCGC = ?, ACADST = ?, QLATTD = ?, QLONGT = ?, DEMAIL = ?, "
                          "NINSCRESTDL = ?, NINSCRMUNCP = ?, CIBGE = ? "
                          "WHERE NMUNCP = ? AND NSEQNC = ?"),
           {store::textValue(f.fantasia),
            store::textValue(f.razaoSocial),
            store::textValue(f.logradouro),
            numberValue(f.numero),
            store::textValue(f.complemento),
            store::textValue(f.bairro),
            numberValue(f.cep),
            numberValue(f.ddd),
            numberValue(f.telefone),
            numberValue(f.fax),
            numberValue(f.cnpj),
            dateValue(f.inicioAtividades, "mskACADST"),
            numberValue(f.latitude),
            numberValue(f.longitude),
            store::textValue(f.email),
            numberValue(f.inscEstadual),
            numberValue(f.inscMunicipal),
            numberValue(f.cibge),
            key.nmuncp,
            key.nseqnc});
}

void alterarPosto(store::Database& db, const RegisterFields& f, const store::RegisterKey& key) {
    db.run(QStringLiteral("UPDATE TB_POSTO SET IESTBL = ?, DBANDR = ?, NANP = ?, NANPANTRR = ?, "
                          "AINICIATIVD = ?, ALEVNT = ? WHERE NMUNCP = ? AND NSEQNC = ?"),
           {f.kind, store::textValue(f.bandeira), store::textValue(f.anp),
            store::textValue(f.anpAnterior), dateValue(f.inicioAtividades, "mskACADST"),
            dateValue(f.levantamento, "mskALEVNT"), key.nmuncp, key.nseqnc});
}

void marcarParaExportar(store::Database& db, const store::RegisterKey& key) {
    db.run(QStringLiteral("UPDATE EMPRS SET CSITU = 1 WHERE NMUNCP = ? AND NSEQNC = ?"),
           {key.nmuncp, key.nseqnc});
}

store::RegisterKey writeNewRegister(store::Database& db, const RegisterFields& fields, int nmuncp,
                                    const QDate& today) {
    const store::RegisterKey key = incluirEmpresa(db, fields, nmuncp);
    incluirPosto(db, fields, key, today);
    marcarParaExportar(db, key);
    return key;
}

void writeRegisterChange(store::Database& db, const RegisterFields& fields,
                         const store::RegisterKey& key) {
    alterarEmpresa(db, fields, key);
    alterarPosto(db, fields, key);
    marcarParaExportar(db, key);
}

store::RegisterKey incluirRegistro(store::Database& db, const RegisterFields& fields, int nmuncp,
                                   const QDate& today) {
    store::Transaction transaction(db);
    const store::RegisterKey key = writeNewRegister(db, fields, nmuncp, today);
    transaction.commit();
    return key;
}

void alterarRegistro(store::Database& db, const RegisterFields& fields,
                     const store::RegisterKey& key) {
    store::Transaction transaction(db);
    writeRegisterChange(db, fields, key);
    transaction.commit();
}

} // namespace establishment
