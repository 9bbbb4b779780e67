#include "main/user_settings.h"

#include <cstdio>

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace corvane {

std::unique_ptr<QSettings> openUserSettings()
{
#ifdef Q_OS_MACOS
    auto settings = std::make_unique<QSettings>();
    // What other programs of the same organisation have set is not ours.
    settings->setFallbacksEnabled(false);
    return settings;
#else
    // The file that QSettings would choose; it is named here, because QSettings reads every file that it chooses,
    // those of the organisation and of the system too, as soon as it is made.
    QString path = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1Char('/') +
                   QCoreApplication::organizationName() + QLatin1Char('/') + QCoreApplication::applicationName() +
                   QStringLiteral(".conf");
    const auto isNoRegularFile = [](const QFileInfo &item) { return item.exists() && !item.isFile(); };
    // QSettings writes under a lock, and waits without an end for one that it cannot take away.
    const QFileInfo lock(path + QStringLiteral(".lock"));
    const bool isLocked = lock.isSymLink() || isNoRegularFile(lock);
    if (isLocked || isNoRegularFile(QFileInfo(path))) {
        std::fprintf(stderr, "corvane: %s is not a regular file; settings are not kept\n",
                     qPrintable(isLocked ? lock.filePath() : path));
        path = QStringLiteral("/dev/null/settings.conf"); // neither there nor to be made
    }
    return std::make_unique<QSettings>(path, QSettings::NativeFormat);
#endif
}

} // namespace corvane
