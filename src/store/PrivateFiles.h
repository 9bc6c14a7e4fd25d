#pragma once

#include <QFileDevice>
#include <QString>
#include <optional>

class QSettings;

// The database, its backups, the exchange files, the PDFs and the settings hold personal data
// (names, CPF, RG, addresses and phones of real people): every file the program creates for
// them is readable and writable by its owner only, and every folder it creates for them is
// open to its owner only. File systems without permissions (a FAT pen drive) are left as they
// are.
namespace store {

inline constexpr QFileDevice::Permissions kPrivateFilePermissions =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner;

// Creates `folder` and every missing folder above it, each new one open to its owner only.
// True when the folder exists afterwards.
bool makePrivateFolder(const QString& folder);

// Makes sure `path` exists and is the owner's only: a missing file is created empty with those
// permissions (a program that writes it later keeps them), an existing one is narrowed. False
// when the file could not be created.
bool makePrivateFile(const QString& path);

// The settings file (it names the mailbox, the server and the login) made the owner's only,
// with its folder when that is missing.
void makeSettingsPrivate(const QSettings& settings);

// Narrows an existing file to its owner. Returns the permissions it had when they were wider
// and the narrowing succeeded; nothing when it was private already, missing, or could not be
// changed.
std::optional<QFileDevice::Permissions> narrowToOwner(const QString& path);

// Permissions as the octal mode that `ls` and `chmod` speak of: "0644".
QString modeText(QFileDevice::Permissions permissions);

} // namespace store
