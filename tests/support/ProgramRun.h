#pragma once

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <optional>
#include <unistd.h>

namespace testsupport {

// One run of the program's binary (the test's $VOR_BINARY) as a script would make it.
struct ProgramRun {
    int exitCode = -1;
    QString out;
    QString err;
    bool crashed = false; // ended by a signal (an abort, say) rather than by its own exit
};

inline ProgramRun finishedRun(QProcess& process) {
    process.waitForFinished(120000);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError()),
            process.exitStatus() == QProcess::CrashExit};
}

inline ProgramRun runProgram(const QStringList& arguments) {
    QProcess process;
    process.start(qEnvironmentVariable("VOR_BINARY"), arguments);
    return finishedRun(process);
}

// The option of unshare(1) that gives a run a mount namespace of its own on this machine: as
// root "-m"; otherwise "-rm", where the kernel lets users have namespaces. Empty when neither
// works (a container without the capability, say).
inline QString mountNamespaceOption() {
    static const QString option = [] {
        for (const QString& o : {QStringLiteral("-m"), QStringLiteral("-rm")}) {
            QProcess probe;
            probe.start(QStringLiteral("unshare"), {o, QStringLiteral("true")});
            if (probe.waitForFinished(10000) && probe.exitStatus() == QProcess::NormalExit &&
                probe.exitCode() == 0)
                return o;
        }
        return QString();
    }();
    return option;
}

// Runs `script` (sh) in a mount namespace of its own, where it can mount file systems that no
// other process sees and that end with the run: "$0" is the program's binary, "$1"... are
// `arguments`. Nothing when the machine allows no such namespace.
inline std::optional<ProgramRun> runInMountNamespace(const QString& script,
                                                     const QStringList& arguments) {
    const QString option = mountNamespaceOption();
    if (option.isEmpty())
        return std::nullopt;
    QProcess process;
    process.start(QStringLiteral("unshare"),
                  QStringList{option, QStringLiteral("sh"), QStringLiteral("-c"), script,
                              qEnvironmentVariable("VOR_BINARY")} +
                      arguments);
    return finishedRun(process);
}

// A run of the program while `path` (a file or a folder) cannot be written. Without root its
// permissions do it; root passes over permissions, so there a read-only bind mount, seen by
// the run alone, does it. Nothing when the machine allows neither.
inline std::optional<ProgramRun> runProgramReadOnly(const QString& path,
                                                    const QStringList& arguments) {
    if (geteuid() != 0) {
        const QFile::Permissions before = QFile::permissions(path);
        QFile::setPermissions(path, before & ~(QFile::WriteOwner | QFile::WriteUser |
                                               QFile::WriteGroup | QFile::WriteOther));
        const ProgramRun run = runProgram(arguments);
        QFile::setPermissions(path, before);
        return run;
    }
    return runInMountNamespace(
        QStringLiteral("mount --bind \"$1\" \"$1\" && mount -o remount,ro,bind \"$1\" || exit 99\n"
                       "shift\nexec \"$0\" \"$@\""),
        QStringList{path} + arguments);
}

} // namespace testsupport
