// Prints this user's settings as a program started later reads them.

#include <cstdio>

#include <QCoreApplication>
#include <QMetaEnum>

#include "main/user_settings.h"
#include "shell/user_defaults.h"

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Corvane"));
    QCoreApplication::setApplicationName(QStringLiteral("Corvane"));
    const QCoreApplication application(argc, argv);
    const corvane::UserDefaults defaults(corvane::openUserSettings());
    std::printf("didOnboard=%s crashReportMode=%s\n", defaults.didOnboard() ? "true" : "false",
                QMetaEnum::fromType<corvane::UserDefaults::ReportMode>().valueToKey(
                    static_cast<int>(defaults.crashReportMode())));
    return 0;
}
