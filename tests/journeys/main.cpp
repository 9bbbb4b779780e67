#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QLocale>
#include <QQuickStyle>

#include "journeys/sandbox.h"

namespace {

// Larger than the window, so that it can be moved.
constexpr const char *screenDescription = R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": false,
    "screens": [{"name": "screen", "x": 0, "y": 0, "width": 1920, "height": 1200, "logicalDpi": 96,
                 "logicalBaseDpi": 96, "dpr": 1}]})";

} // namespace

/// Runs the journeys on an offscreen platform; every Qt warning is an error.
int main(int argc, char **argv)
{
    const corvane::Sandbox sandbox;
    const std::string screen = sandbox.folder().writeText("screen.json", screenDescription);
    qputenv("QT_QPA_PLATFORM", QByteArray("offscreen:configfile=") + screen.c_str());
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_SCALE_FACTOR", "1");
    qputenv("QT_FATAL_WARNINGS", "1");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));

    QCoreApplication::setOrganizationName(QStringLiteral("Corvane"));
    QCoreApplication::setApplicationName(QStringLiteral("Corvane"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CORVANE_VERSION));
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    testing::InitGoogleMock(&argc, argv);
    const QGuiApplication application(argc, argv);
    sandbox.insist();
    return RUN_ALL_TESTS();
}
