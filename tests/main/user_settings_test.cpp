#include "main/user_settings.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace corvane {
namespace {

/// A private settings folder, isolated from other tests.
class UserSettingsTest : public testing::Test {
protected:
    UserSettingsTest() : m_before(qgetenv("XDG_CONFIG_HOME"))
    {
        QCoreApplication::setOrganizationName(QStringLiteral("Corvane"));
        QCoreApplication::setApplicationName(QStringLiteral("Corvane"));
        qputenv("XDG_CONFIG_HOME", m_folder.path().toLocal8Bit());
        EXPECT_EQ(::mkdir(qPrintable(m_folder.filePath(QStringLiteral("Corvane"))), 0700), 0);
    }
    ~UserSettingsTest() override
    {
        if (m_before.isNull())
            qunsetenv("XDG_CONFIG_HOME");
        else
            qputenv("XDG_CONFIG_HOME", m_before);
    }

    std::string file() const { return m_folder.filePath(QStringLiteral("Corvane/Corvane.conf")).toStdString(); }

    static void expectKeptForThisRun()
    {
        const std::unique_ptr<QSettings> settings = openUserSettings();
        settings->setValue(QStringLiteral("key"), 7);
        settings->sync();
        EXPECT_EQ(settings->value(QStringLiteral("key")).toInt(), 7);
    }

    QTemporaryDir m_folder;

private:
    const QByteArray m_before;
};

TEST_F(UserSettingsTest, AreKeptFromOneRunToTheNext)
{
    openUserSettings()->setValue(QStringLiteral("key"), 5);
    EXPECT_EQ(openUserSettings()->value(QStringLiteral("key")).toInt(), 5);
    EXPECT_EQ(openUserSettings()->fileName().toStdString(), file());
}

TEST_F(UserSettingsTest, AFileThatIsAPipeDoesNotHoldUpTheStart)
{
    ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
    expectKeptForThisRun();
    struct stat facts {};
    ASSERT_EQ(::lstat(file().c_str(), &facts), 0);
    EXPECT_TRUE(S_ISFIFO(facts.st_mode));
}

TEST_F(UserSettingsTest, AFileThatIsADeviceDoesNotHoldUpTheStart)
{
    ASSERT_EQ(::symlink("/dev/zero", file().c_str()), 0);
    expectKeptForThisRun();
}

TEST_F(UserSettingsTest, ALockThatCannotBeRemovedDoesNotHoldUpTheStart)
{
    const std::string lock = file() + ".lock";
    ASSERT_EQ(::mkdir(lock.c_str(), 0700), 0);
    expectKeptForThisRun();
    ASSERT_EQ(::rmdir(lock.c_str()), 0);
    ASSERT_EQ(::mkfifo(lock.c_str(), 0600), 0);
    expectKeptForThisRun();
    ASSERT_EQ(::unlink(lock.c_str()), 0);
    ASSERT_EQ(::symlink("nowhere", lock.c_str()), 0);
    expectKeptForThisRun();
}

TEST_F(UserSettingsTest, AnotherFileOfTheOrganisationIsNotRead)
{
    ASSERT_EQ(::mkfifo(qPrintable(m_folder.filePath(QStringLiteral("Corvane.conf"))), 0600), 0);
    openUserSettings()->setValue(QStringLiteral("key"), 5);
    EXPECT_EQ(openUserSettings()->value(QStringLiteral("key")).toInt(), 5);
}

} // namespace
} // namespace corvane
