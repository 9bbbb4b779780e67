#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTemporaryDir>

/// Runs the tests on an offscreen platform; every Qt warning is an error.
int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_FATAL_WARNINGS", "1");
    // Isolates the tests from the desktop they run on: without a runtime folder no session bus is found.
    const QTemporaryDir runtimeFolder;
    qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
