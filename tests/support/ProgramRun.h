#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace testsupport {

// One run of the program's binary (the test's $VOR_BINARY) as a script would make it.
struct ProgramRun {
    int exitCode = -1;
    QString out;
    QString err;
};

inline ProgramRun runProgram(const QStringList& arguments) {
    QProcess process;
    process.start(qEnvironmentVariable("VOR_BINARY"), arguments);
    process.waitForFinished(120000);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace testsupport
