#include "store/RegisterKey.h"

#include "store/Database.h"
#include "store/Failure.h"

namespace store {

int takeSequence(Database& db) {
    const int next = db.scalar(QStringLiteral("SELECT MAX(COALESCE((SELECT MAX(NSEQNC) FROM "
                                              "TB_VORpSEQNC), 0), COALESCE((SELECT MAX(NSEQNC) "
                                              "FROM EMPRS), 0)) + 1"))
                         .toInt();
    // The runtime's overflow, as the numbering of the table would end.
    if (next > kLastSequence)
        throw Failure::other(6, QStringLiteral("Estouro: não há mais números de VOR."));
    db.run(QStringLiteral("DELETE FROM TB_VORpSEQNC"));
    db.run(QStringLiteral("INSERT INTO TB_VORpSEQNC (NSEQNC) VALUES (?)"), {next});
    return next;
}

} // namespace store
