#include <cstdint>
#include <ctime>
#include <filesystem>

#include <QProcess>

#include "journeys/journey.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

constexpr std::time_t day = 86'400; // seconds
constexpr std::int64_t mebibyte = 1'048'576;

/// A home with Signal Deck (a folder of 3 MiB with 2 MiB of certain and 1 MiB of possible leftovers), Kite Mail of 5
/// MiB, and leftovers of a deleted application.
class AppsJourney : public Journey {
protected:
    AppsJourney()
    {
        addApp("Signal Deck", "com.signaldeck.desktop", 3);
        folder().writeFile("config/com.signaldeck.desktop/db", mebibyte);
        folder().writeFile("data/com.signaldeck.desktop/page", mebibyte);
        folder().writeFile("data/Signal Deck/log", mebibyte);
        addApp("Kite Mail", "com.kitemail.app", 5);
        addOrphan("config/com.lathe.cadpro", 2);
        addOrphan("data/com.lathe.cadpro", 1);
    }

    /// Adds a folder as unpacked in the home, with a desktop file that starts its program.
    void addApp(const std::string &name, const std::string &id, std::int64_t mebibytes) const
    {
        const std::string bundle = "home/Applications/" + name + ".app/";
        folder().writeText(bundle + name, "\x7f"
                                          "ELF program");
        folder().writeFile(bundle + "data", mebibytes * mebibyte);
        folder().writeText("data/applications/" + id + ".desktop", "[Desktop Entry]\nType=Application\nName=" + name +
                                                                       "\nExec=\"" + (folder() / (bundle + name)) +
                                                                       "\"\n");
    }
    void addOrphan(const std::string &place, std::int64_t mebibytes) const
    {
        folder().writeFile(place + "/data", mebibytes * mebibyte);
        for (const std::string &item : {place + "/data", place})
            folder().setModified(item, std::time(nullptr) - 60 * day);
    }
    void openUninstaller()
    {
        open();
        click(QStringLiteral("sidebar.uninstaller"));
        waitForInventory();
    }
    void waitForInventory()
    {
        waitUntil([&] { return store().appsLoaded() && !store().appsLoading(); }, QStringLiteral("the inventory"));
        driver().rest();
    }
    [[nodiscard]] static bool isAppRow(const QQuickItem &item)
    {
        return item.property("unused").isValid() && item.property("index").toInt() >= 0;
    }
    /// The names in the list, from the top, without applications installed on this machine.
    [[nodiscard]] std::vector<std::string> listed()
    {
        return namesFromTheTop([](const QQuickItem &item) {
            const QString badge = item.property("badge").toString();
            return isAppRow(item) && (badge.isEmpty() || badge == QStringLiteral("AppImage"));
        });
    }
    void waitForList(const std::vector<std::string> &names)
    {
        waitUntil([&] { return listed() == names; }, QStringLiteral("the list"));
    }
    void choose(const QString &name)
    {
        driver().click(driver().itemWhere(
            [&](const QQuickItem &item) { return isAppRow(item) && item.property("name").toString() == name; }, name));
        driver().rest();
    }
    void clickSegment(const QString &name)
    {
        driver().click(driver().itemWhere(
            [&](const QQuickItem &item) {
                return item.property("ringed").isValid() && item.property("text").toString() == name;
            },
            name));
    }
    /// Clicks the check box of a leftover, identified by its name and location.
    void tickLeftover(const QString &name, const QString &location)
    {
        const QQuickItem &found = driver().itemWhere(
            [&](const QQuickItem &item) {
                return item.property("title").toString().endsWith("/" + name) &&
                       item.property("location").toString() == location;
            },
            name);
        driver().clickAt(found, QPointF(45, found.height() / 2));
    }
    void uninstall(const QString &name)
    {
        choose(name);
        confirm();
    }
    void confirm()
    {
        click(QStringLiteral("uninstaller.uninstall"));
        waitForPopup(QStringLiteral("uninstallConfirm"));
        click(QStringLiteral("uninstallConfirm.move"));
    }
    void waitForRemoval()
    {
        waitUntil([&] { return !store().isRemoving() && !toast().empty(); }, QStringLiteral("the removal's message"));
        waitForInventory();
    }
    [[nodiscard]] std::vector<std::string> trash() const { return Sandbox::instance().trash(); }
};

const std::string orphans = "Left behind by deleted apps";
const QString deck = QStringLiteral("Signal Deck");
const QString deckID = QStringLiteral("com.signaldeck.desktop");
const QString settings = QStringLiteral("Settings");
const QString data = QStringLiteral("Data");

TEST_F(AppsJourney, TheAppsAreFoundWithWhatBelongsToThem)
{
    openUninstaller();
    EXPECT_THAT(listed(), ElementsAre(orphans, "Signal Deck", "Kite Mail"));
    EXPECT_TRUE(shows(QStringLiteral("Pick an app")));

    choose(deck);

    EXPECT_TRUE(shows(QStringLiteral("com.signaldeck.desktop")));
    EXPECT_TRUE(shows(QStringLiteral("Matched by the app's ID (com.signaldeck.desktop), so these belong to it.")));
    EXPECT_TRUE(shows(QStringLiteral("App and 2 leftovers · 5.2 MB")));
}

TEST_F(AppsJourney, TheSearchFindsByNameAndByIdentifier)
{
    openUninstaller();
    click(QStringLiteral("uninstaller.search"));
    for (const Qt::Key key : {Qt::Key_K, Qt::Key_I, Qt::Key_T, Qt::Key_E})
        press(key);
    waitForList({orphans, "Kite Mail"});
    press(Qt::Key_Escape);
    waitForList({orphans, "Signal Deck", "Kite Mail"});
    for (const Qt::Key key : {Qt::Key_D, Qt::Key_E, Qt::Key_S, Qt::Key_K, Qt::Key_T, Qt::Key_O, Qt::Key_P})
        press(key);
    waitForList({orphans, "Signal Deck"});
}

TEST_F(AppsJourney, TheListIsSortedByNameAndBySize)
{
    addApp("Atlas", "com.starchart.atlas", 1);
    openUninstaller();
    choose(QStringLiteral("Kite Mail"));
    clickSegment(QStringLiteral("Name"));
    waitForList({orphans, "Atlas", "Kite Mail", "Signal Deck"});
    clickSegment(QStringLiteral("Size"));
    waitForList({orphans, "Signal Deck", "Kite Mail", "Atlas"});
    EXPECT_TRUE(shows(QStringLiteral("App · 5.2 MB"))) << "Kite Mail is shown through it all";
}

TEST_F(AppsJourney, AnAppThatIsNotRunningGoesToTheTrashWithWhatIsTicked)
{
    openUninstaller();
    uninstall(deck);
    waitForRemoval();

    EXPECT_THAT(toast(), StartsWith("Moved 4 items (5.2 MB) to Trash"));
    EXPECT_THAT(trash(), testing::Contains("Signal Deck.app"));
    EXPECT_EQ(trash().size(), 4U);
    EXPECT_FALSE(exists("Applications/Signal Deck.app"));
    EXPECT_FALSE(folder().has("data/com.signaldeck.desktop"));
    EXPECT_TRUE(folder().has("data/Signal Deck/log")) << "only shares its name";
    EXPECT_TRUE(exists("Applications/Kite Mail.app"));
    waitForList({orphans, "Kite Mail"});
    EXPECT_TRUE(shows(QStringLiteral("Pick an app")));
}

TEST_F(AppsJourney, CommandsAndOtherSheetsWaitUntilTheQuestionIsAnswered)
{
    openUninstaller();
    choose(deck);
    click(QStringLiteral("uninstaller.uninstall"));
    waitForPopup(QStringLiteral("uninstallConfirm"));
    store().setShowFeedback(true);
    press(Qt::Key_R, Qt::ControlModifier);
    driver().rest();
    EXPECT_FALSE(isShown(QStringLiteral("feedback.send")));
    EXPECT_EQ(store().phase(), StorageStore::Phase::idle);
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("uninstallConfirm"));
    waitForPopup(QStringLiteral("feedback"));
}

TEST_F(AppsJourney, CancelLeavesEverythingAsItWas)
{
    openUninstaller();
    choose(deck);
    click(QStringLiteral("uninstaller.uninstall"));
    waitForPopup(QStringLiteral("uninstallConfirm"));
    EXPECT_TRUE(shows(QStringLiteral("Uninstall Signal Deck?")));
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("uninstallConfirm"));

    EXPECT_TRUE(exists("Applications/Signal Deck.app"));
    EXPECT_THAT(trash(), IsEmpty());
    EXPECT_FALSE(store().isRemoving());
}

TEST_F(AppsJourney, ARunningAppIsAskedToQuitFirst)
{
    const std::string program = at("Applications/Signal Deck.app/Signal Deck");
    std::filesystem::remove(program);
    std::filesystem::copy_file("/bin/sleep", program);
    QProcess running;
    running.start(QString::fromStdString(program), {QStringLiteral("600")});
    ASSERT_TRUE(running.waitForStarted());
    openUninstaller();
    choose(deck);
    EXPECT_TRUE(shows(
        QStringLiteral("Signal Deck is running. Corvane will quit it before uninstalling. Save your work first.")));

    confirm();

    waitUntil([&] { return running.state() == QProcess::NotRunning; }, QStringLiteral("the application to quit"));
    EXPECT_EQ(running.exitStatus(), QProcess::CrashExit) << "ended by the request";
    waitForRemoval();
    EXPECT_THAT(toast(), StartsWith("Moved 4 items"));
    EXPECT_FALSE(exists("Applications/Signal Deck.app"));
    EXPECT_THAT(trash(), testing::Contains("Signal Deck.app"));
}

TEST_F(AppsJourney, WithEverythingUntickedTheBundleAloneGoes)
{
    openUninstaller();
    choose(deck);
    tickLeftover(deckID, settings);
    EXPECT_TRUE(shows(QStringLiteral("App and 1 leftover · 4.2 MB")));
    tickLeftover(deckID, data);
    EXPECT_TRUE(shows(QStringLiteral("App · 3.1 MB")));

    confirm();
    waitForRemoval();

    EXPECT_THAT(toast(), StartsWith("Moved 2 items (3.1 MB) to Trash"));
    EXPECT_THAT(trash(), UnorderedElementsAre("Signal Deck.app", "com.signaldeck.desktop.desktop"));
    EXPECT_TRUE(folder().has("config/com.signaldeck.desktop/db"));
    EXPECT_TRUE(folder().has("data/com.signaldeck.desktop/page"));
}

TEST_F(AppsJourney, APossibleMatchGoesOnlyWhenItIsTicked)
{
    openUninstaller();
    choose(deck);
    tickLeftover(deck, data);
    EXPECT_TRUE(shows(QStringLiteral("App and 3 leftovers · 6.3 MB")));

    confirm();
    waitForRemoval();

    EXPECT_THAT(toast(), StartsWith("Moved 5 items (6.3 MB) to Trash"));
    EXPECT_FALSE(folder().has("data/Signal Deck"));
}

TEST_F(AppsJourney, OrphansGoIntoTheSelectionAndOutOfItAndToTheTrash)
{
    openUninstaller();
    choose(QString::fromStdString(orphans));
    EXPECT_TRUE(shows(QStringLiteral("Left behind by apps you've deleted")));
    EXPECT_TRUE(store().selection().empty());
    const QString lathe = QStringLiteral("com.lathe.cadpro");

    tickLeftover(lathe, settings);
    waitForSelectionBar();
    EXPECT_TRUE(shows(QStringLiteral("1 item selected")));
    tickLeftover(lathe, settings);
    waitUntil([&] { return !isShown(QStringLiteral("selectionBar")); }, QStringLiteral("the selection bar to go"));
    EXPECT_TRUE(store().selection().empty());

    tickLeftover(lathe, settings);
    waitForSelectionBar();
    click(QStringLiteral("moveToTrashButton"));
    waitForRemoval();

    EXPECT_THAT(toast(), StartsWith("Moved 1 item (2.1 MB) to Trash"));
    EXPECT_THAT(trash(), ElementsAre("com.lathe.cadpro"));
    EXPECT_FALSE(folder().has("config/com.lathe.cadpro"));
    EXPECT_TRUE(folder().has("data/com.lathe.cadpro"));
    waitForText(QStringLiteral("1 item"));
}

TEST_F(AppsJourney, WhatCannotBeMovedStaysAndIsReported)
{
    openUninstaller();
    folder().writeText("data/Trash", "no folder");

    uninstall(deck);
    waitForRemoval();

    EXPECT_THAT(toast(), StartsWith("Nothing was removed · 4 couldn't be removed ("));
    EXPECT_THAT(toast(), HasSubstr("com.signaldeck.desktop: "));
    EXPECT_TRUE(exists("Applications/Signal Deck.app/data"));
    EXPECT_TRUE(folder().has("data/com.signaldeck.desktop/page"));
    EXPECT_TRUE(shows(QStringLiteral("App and 2 leftovers · 5.2 MB"))) << "it is still there to look at";
}

TEST_F(AppsJourney, AnAppIsUninstalledWithTheKeyboardAlone)
{
    openUninstaller();
    tabTo(driver().item(QStringLiteral("uninstaller.list")));
    press(Qt::Key_S);
    press(Qt::Key_Return);
    ASSERT_TRUE(driver().item(QStringLiteral("uninstaller.leftovers")).hasActiveFocus());
    press(Qt::Key_Space);
    waitForText(QStringLiteral("App and 1 leftover · 4.2 MB"));
    tabTo(driver().item(QStringLiteral("uninstaller.uninstall")));
    press(Qt::Key_Space);
    waitForPopup(QStringLiteral("uninstallConfirm"));
    EXPECT_TRUE(driver().item(QStringLiteral("uninstallConfirm.move")).hasActiveFocus());
    press(Qt::Key_Return);
    waitForRemoval();

    EXPECT_THAT(trash(),
                UnorderedElementsAre("Signal Deck.app", "com.signaldeck.desktop", "com.signaldeck.desktop.desktop"));
    EXPECT_TRUE(driver().item(QStringLiteral("uninstaller.list")).hasActiveFocus());
}

TEST_F(AppsJourney, TheMenuGivesTheKeyboardBackToTheList)
{
    openUninstaller();
    tabTo(driver().item(QStringLiteral("uninstaller.list")));
    press(Qt::Key_S); // even with other applications installed on this machine
    press(Qt::Key_Menu);
    waitForPopup(QStringLiteral("uninstaller.menu"));
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("uninstaller.menu"));
    EXPECT_TRUE(driver().item(QStringLiteral("uninstaller.list")).hasActiveFocus());
    press(Qt::Key_Return);
    EXPECT_TRUE(driver().item(QStringLiteral("uninstaller.leftovers")).hasActiveFocus());
}

TEST_F(AppsJourney, RevealShowsTheBundleInTheFileManager)
{
    openUninstaller();
    choose(deck);
    click(QStringLiteral("uninstaller.reveal"));
    waitUntil([&] { return !Sandbox::instance().opened().empty(); }, QStringLiteral("the file manager"));
    EXPECT_THAT(Sandbox::instance().opened(), ElementsAre(at("Applications")));
}

} // namespace
} // namespace corvane
