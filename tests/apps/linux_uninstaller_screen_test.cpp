#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include "apps/uninstaller_screen_fixture.h"

namespace corvane {
namespace {

const QString studioRow = QStringLiteral("Studio, Flatpak, app 1.2 GB + data 3.4 GB, 4.6 GB");
const QString chartRow = QStringLiteral("Chart, AppImage, app 90 MB, 90 MB");

class LinuxUninstallerScreenTest : public UninstallerScreenTest {
protected:
    LinuxUninstallerScreenTest()
    {
        fake.files.setSystemKind(SystemKind::linuxSystem);
        InstalledApp &studio = addApp("Studio", 1'200'000'000, "org.example.Studio");
        studio.path = "/var/lib/flatpak/app/org.example.Studio";
        studio.version = "5.4.1";
        studio.source = InstalledApp::Source::flatpak;
        studio.removeCommand = "flatpak uninstall org.example.Studio";
        fake.files.addFile(studio.path + "/program", 1'200'000'000);
        studio.leftovers = {data(".var/app/org.example.Studio/data", 3'000'000'000, Leftover::Match::exact, "Data"),
                            data(".config/studio", 400'000'000, Leftover::Match::name, "Settings")};
        InstalledApp &chart = addApp("Chart", 90'000'000, "chart");
        chart.path = at("apps/Chart.AppImage");
        chart.launcher = at(".local/share/applications/chart.desktop");
        chart.source = InstalledApp::Source::appImage;
        fake.files.addFile(chart.path, 90'000'000);
        fake.files.addFile(chart.launcher, 0);
        Leftover gone = data(".config/org.gone.Tool", 5'000'000, Leftover::Match::orphan, "Settings");
        inventory.orphanGroups.push_back({"org.gone.tool", {gone}});
        publish();
        show();
    }

    Leftover data(const std::string &relative, std::int64_t size, Leftover::Match match, std::string_view label)
    {
        fake.files.addFile(at(relative) + "/file", size);
        return {.path = at(relative),
                .kind = FileNode::Kind::directory,
                .size = size,
                .location = label,
                .match = match,
                .modified = {}};
    }
    /// Every visible text and accessible name.
    [[nodiscard]] QString allWords() const
    {
        QString words;
        static_cast<void>(scene->find([&](QQuickItem *item) {
            words += item->property("text").toString() + u'\n' + QuickScene::accessibleName(item) + u'\n';
            return false;
        }));
        return words;
    }
    void expectNoWordOfAMac() const
    {
        for (const QString &word : {QStringLiteral("Mac"), QStringLiteral("Finder"), QStringLiteral("Library"),
                                    QStringLiteral("App Store"), QStringLiteral("Last Use")})
            EXPECT_FALSE(allWords().contains(word)) << word.toStdString();
    }
};

TEST_F(LinuxUninstallerScreenTest, APackageIsRemovedByACommandThatCanBeCopied)
{
    choose(studioRow);
    EXPECT_TRUE(shows(QStringLiteral("Flatpak")));
    EXPECT_TRUE(shows(QStringLiteral("Version 5.4.1 · org.example.Studio")));
    EXPECT_TRUE(shows(QStringLiteral("Remove the app")));
    EXPECT_TRUE(shows(QStringLiteral("Corvane never removes a package. Copy this command and run it in a terminal.")));
    EXPECT_TRUE(shows(QStringLiteral("flatpak uninstall org.example.Studio")));
    scene->click(scene->item("uninstaller.copyCommand"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("flatpak uninstall org.example.Studio"));
}

TEST_F(LinuxUninstallerScreenTest, TheDataOfAPackageGoesByOnePressAndThePackageStays)
{
    choose(studioRow);
    EXPECT_TRUE(shows(QStringLiteral("Its data in your home folder")));
    EXPECT_TRUE(shows(QStringLiteral("~/.var/app/org.example.Studio/data")));
    EXPECT_TRUE(shows(QStringLiteral("~/.config/studio")));
    EXPECT_TRUE(shows(QStringLiteral("1 item of its data · 3 GB")));
    scene->click(button(QStringLiteral("Move Data to Trash")));
    waitForToast();
    EXPECT_FALSE(fake.files.has(at(".var/app/org.example.Studio/data")));
    EXPECT_TRUE(fake.files.has(at(".config/studio")));
    EXPECT_TRUE(fake.files.has("/var/lib/flatpak/app/org.example.Studio/program"));
}

TEST_F(LinuxUninstallerScreenTest, WithNoDataTickedThereIsNothingToMove)
{
    choose(studioRow);
    scene->click(checkBoxes(QStringLiteral("~/.var/app/org.example.Studio/data")).front());
    settle();
    EXPECT_TRUE(shows(QStringLiteral("0 items of its data · ") + sizeText(0)));
    EXPECT_FALSE(button(QStringLiteral("Move Data to Trash"))->isEnabled());
}

TEST_F(LinuxUninstallerScreenTest, TheKeyInTheListMovesNoData)
{
    choose(studioRow);
    press(Qt::Key_Delete);
    QTest::qWait(100);
    EXPECT_TRUE(fake.files.has(at(".var/app/org.example.Studio/data")));
    EXPECT_FALSE(store.isRemoving());
}

TEST_F(LinuxUninstallerScreenTest, AnAppImageGoesToTheTrashWithItsDesktopFileAfterAQuestion)
{
    choose(chartRow);
    EXPECT_FALSE(isVisible("uninstaller.command"));
    scene->click(button(QStringLiteral("Uninstall…")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return isAsking(); }, patience));
    scene->click(button(QStringLiteral("Move Chart to Trash")));
    waitForToast();
    EXPECT_FALSE(fake.files.has(at("apps/Chart.AppImage")));
    EXPECT_FALSE(fake.files.has(at(".local/share/applications/chart.desktop")));
}

TEST_F(LinuxUninstallerScreenTest, NothingSpeaksOfAMac)
{
    expectNoWordOfAMac();
    for (const QString &each : {studioRow, chartRow, QStringLiteral("Left behind by deleted apps, 1 item, 5 MB")}) {
        choose(each);
        expectNoWordOfAMac();
    }
    EXPECT_TRUE(shows(QStringLiteral("~/.config/org.gone.Tool")));
}

TEST_F(LinuxUninstallerScreenTest, TheListIsSortedByNameOrSize)
{
    EXPECT_EQ(scene->named(QStringLiteral("Last Use"), QAccessible::RadioButton), nullptr);
    clickSegment(QStringLiteral("Name"));
    settle();
    EXPECT_EQ(appNames(), QStringList({QStringLiteral("Chart"), QStringLiteral("Studio")}));
    clickSegment(QStringLiteral("Size"));
    settle();
    EXPECT_EQ(appNames(), QStringList({QStringLiteral("Studio"), QStringLiteral("Chart")}));
}

} // namespace
} // namespace corvane
