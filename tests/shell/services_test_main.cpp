#include <array>
#include <cstdio>
#include <memory>
#include <string_view>

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "shell/user_defaults.h"

namespace {

// Runs as the second process, which reads the values a test has set.
int tellDefaults(const char *file)
{
    constexpr std::array<const char *, 3> modes{"ask", "always", "never"};
    const corvane::UserDefaults defaults(
        std::make_unique<QSettings>(QString::fromLocal8Bit(file), QSettings::NativeFormat));
    const std::optional<QDateTime> last = defaults.crashReportLastCheck();
    std::printf("%s %s %s\n", defaults.didOnboard() ? "true" : "false",
                modes[static_cast<std::size_t>(defaults.crashReportMode())],
                last ? qPrintable(last->toUTC().toString(Qt::ISODateWithMs)) : "none");
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc == 3 && std::string_view(argv[1]) == "--tell-defaults")
        return tellDefaults(argv[2]);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
