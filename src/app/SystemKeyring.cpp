#include "app/SystemKeyring.h"

#include <QEventLoop>
#include <qt6keychain/keychain.h>

namespace app {

namespace {

// Runs a job to its end. A job may finish inside start() when it fails at once.
void finish(QKeychain::Job& job, const QString& key) {
    job.setAutoDelete(false);
    job.setInsecureFallback(false);
    job.setKey(key);
    bool done = false;
    QEventLoop loop;
    QObject::connect(&job, &QKeychain::Job::finished, &loop, [&] {
        done = true;
        loop.quit();
    });
    job.start();
    if (!done)
        loop.exec();
}

} // namespace

exchange::Keyring::Entry SystemKeyring::read(const QString& key) {
    QKeychain::ReadPasswordJob job(m_service);
    finish(job, key);
    switch (job.error()) {
    case QKeychain::NoError:
        return {Status::Found, job.textData(), QString()};
    case QKeychain::EntryNotFound:
        return {Status::NotFound, QString(), QString()};
    default:
        return {Status::Unavailable, QString(), job.errorString()};
    }
}

bool SystemKeyring::write(const QString& key, const QString& secret) {
    QKeychain::WritePasswordJob job(m_service);
    job.setTextData(secret);
    finish(job, key);
    return job.error() == QKeychain::NoError;
}

bool SystemKeyring::remove(const QString& key) {
    QKeychain::DeletePasswordJob job(m_service);
    finish(job, key);
    return job.error() == QKeychain::NoError || job.error() == QKeychain::EntryNotFound;
}

} // namespace app
