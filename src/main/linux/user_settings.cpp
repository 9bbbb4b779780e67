#include "main/user_settings.h"

#include <cstdio>

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace corvane {

std::unique_ptr<QSettings> openUserSettings()
{
    // The same file as QSettings would choose by itself. Given explicitly, because otherwise its constructor also reads
    // the files of the organisation and of the system.
    QString path = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1Char('/') +
                   QCoreApplication::organizationName() + QLatin1Char('/') + QCoreApplication::applicationName() +
                   QStringLiteral(".conf");
    const auto isNoRegularFile = [](const QFileInfo &item) { return item.exists() && !item.isFile(); };
    // QSettings locks the file for writing, and waits forever for a lock that it cannot remove.
    const QFileInfo lock(path + QStringLiteral(".lock"));
    const bool isLocked = lock.isSymLink() || isNoRegularFile(lock);
    if (isLocked || isNoRegularFile(QFileInfo(path))) {
        std::fprintf(stderr, "corvane: %s is not a regular file; settings are not kept\n",
                     qPrintable(isLocked ? lock.filePath() : path));
        path = QStringLiteral("/dev/null/settings.conf"); // does not exist and cannot be created
    }
    return std::make_unique<QSettings>(path, QSettings::NativeFormat);
}

} // namespace corvane
