#pragma once

#include <QString>
#include <stdexcept>

// Why an export stopped, worded for the user.
namespace exchange {

class ExportFailure : public std::runtime_error {
public:
    enum class Reason {
        MediumMissing,  // no disk in the drive, no such directory
        DiskFull,       // no space left on the target
        WriteProtected, // no permission to write, a read-only medium
        NoRegister,     // the register is not in the database
        Unencodable,    // a value that the exchange file cannot hold or carry back
        Other,          // any other failure of the file system
    };

    ExportFailure(Reason reason, QString message);

    // The failure of a file operation on `path`, by the system's error number.
    static ExportFailure fromErrno(int error, const QString& path, const QString& detail);

    Reason reason() const { return m_reason; }
    const QString& message() const { return m_message; }

private:
    Reason m_reason;
    QString m_message;
};

inline const QString kMediumMissingText =
    QStringLiteral("Disquete não está na unidade especificada.");
inline const QString kDiskFullText =
    QStringLiteral("Espaço na unidade especificada como destino é insuficiente.");
inline const QString kWriteProtectedText = QStringLiteral("Disquete protegido contra gravação.");

} // namespace exchange
