#include "exchange/ExportFailure.h"

#include <cerrno>

namespace exchange {

ExportFailure::ExportFailure(Reason reason, QString message)
    : std::runtime_error(message.toStdString())
    , m_reason(reason)
    , m_message(std::move(message)) {}

ExportFailure ExportFailure::fromErrno(int error, const QString& path, const QString& detail) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENODEV:
    case ENXIO:
    case EIO:
#ifdef ENOMEDIUM
    case ENOMEDIUM:
#endif
        return {Reason::MediumMissing, kMediumMissingText};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {Reason::DiskFull, kDiskFullText};
    case EACCES:
    case EPERM:
    case EROFS:
        return {Reason::WriteProtected, kWriteProtectedText};
    default:
        return {Reason::Other,
                QStringLiteral("Não foi possível gravar o arquivo %1: %2").arg(path, detail)};
    }
}

} // namespace exchange
