#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTemporaryDir>

/// Runs the tests with a window system that shows nothing, where every warning of Qt is an error.
int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_FATAL_WARNINGS", "1");
    // The settings of the desktop that the tests happen to run on play no part: no session bus is to be found.
    const QTemporaryDir runtimeFolder;
    qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
