#include <filesystem>

#include <QStringListModel>
#include <QtTest/QTest>

#include "cleanup/admin_command.h"
#include "disk/sample_breakdown.h"
#include "journeys/held_listing.h"
#include "journeys/words_journey.h"

namespace corvane {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::StartsWith;

// --- The check itself

TEST_F(WordsJourney, AWordOfAMacIsFoundWhereverItStands)
{
    open();
    EXPECT_THAT(macWordsOfOurs(), IsEmpty());
    put("Item {\n"
        "visible: false\n"
        "Text { text: 'Reveal in Finder' }\n"
        "TextField { placeholderText: 'Your Mac' }\n"
        "Item { Accessible.role: Accessible.Button; Accessible.name: 'Open APFS' }\n"
        "Item { Accessible.role: Accessible.Button; Accessible.description: 'of Homebrew' }\n"
        "Button { ToolTip { text: 'Grant Full Disk Access' } }\n"
        "Popup { contentItem: Text { text: 'Local Time Machine snapshots' } }\n"
        "Menu { MenuItem { text: 'Open in Xcode' } }\n"
        "Text { text: 'Virtual Machines' }\n"
        "}");
    new QStringListModel({QStringLiteral("asked by macOS")}, window().contentItem());
    const std::vector<std::string> found = macWordsIn(window());
    for (const char *word : {"Finder", "Mac", "APFS", "Homebrew", "Full Disk Access", "Time Machine", "Xcode", "macOS"})
        EXPECT_THAT(found, Contains(StartsWith(std::string(word) + " in "))) << word;
    EXPECT_THAT(found, testing::Not(Contains(testing::HasSubstr("Machines"))));
}

// --- The screens

TEST_F(WordsJourney, NoScreenBeforeAScanSpeaksOfAMac)
{
    open();
    show(Item::overview);
    read(QStringLiteral("the overview at the start"));
    waitForFigures();
    read(QStringLiteral("the overview without a scan"),
         {QStringLiteral("Nothing scanned yet"), QStringLiteral("See what fills this computer")});
    show(Item::breakdown);
    read(QStringLiteral("the breakdown without a scan"),
         {QStringLiteral("Where's My Space"), QStringLiteral("Scan your home folder to explore it"),
          QStringLiteral("Installed Software (/usr)")});
    show(Item::cleanup);
    if (findAdminCommands(systemHost().files).empty()) { // what this machine's tools keep is not in the test's hand
        read(QStringLiteral("the cleanup of an empty home"));
    } else {
        waitUntil([&] { return !store().cleanupCommands().empty(); }, QStringLiteral("the tools' answers"));
        read(QStringLiteral("the cleanup of an empty home"), {QStringLiteral("Needs the Administrator")});
    }
    for (const auto &[screen, title] : {std::pair(Item::explorer, "Space Map"), std::pair(Item::large, "Large Files"),
                                        std::pair(Item::old, "Old Files"), std::pair(Item::duplicates, "Duplicates")}) {
        show(screen);
        const QString name = QString::fromLatin1(title);
        read(name, {QStringLiteral("Scan first to see ") + name});
    }
    showApps();
    read(QStringLiteral("the uninstaller"), {QStringLiteral("Pick an app"), QStringLiteral("Nothing left behind")});
}

TEST_F(WordsJourney, NoScreenDuringAScanSpeaksOfAMac)
{
    addFile("Films/film.mkv", 3);
    addFile("Slow/late.bin", 2);
    HeldListing held(at("Slow"));
    open();
    click(QStringLiteral("overview.scanHome"));
    waitUntil([&] { return held.isReached() && store().scannedFiles() == 1; }, QStringLiteral("a slow scan"));
    for (const Item screen : {Item::overview, Item::breakdown, Item::explorer, Item::uninstaller, Item::large,
                              Item::old, Item::duplicates, Item::cleanup}) {
        store().setSidebar(screen);
        QTest::qWait(50); // animated figures keep the window from becoming idle
        EXPECT_THAT(macWordsOfOurs(), IsEmpty());
    }
    store().stopScan();
    held.release();
    waitUntil([&] { return isScanned(); }, QStringLiteral("the stopped scan"));
    for (const Item screen : {Item::overview, Item::breakdown, Item::explorer, Item::cleanup}) {
        show(screen);
        read(QStringLiteral("a screen after a scan that was stopped"));
    }
}

TEST_F(WordsJourney, NoScreenAfterAScanSpeaksOfAMac)
{
    addFile("Films/film.mkv", 105);
    addFile("Films/rushes.mov", 3);
    folder().setModified("home/Films/rushes.mov", std::time(nullptr) - 3 * 366 * day);
    addFile("Projects/tide/Cargo.toml", 0);
    addFile("Projects/tide/target/debug.bin", 2);
    for (const char *copy : {"Songs/song.wav", "Archive/song.wav"})
        folder().writeText(std::string("home/") + copy, std::string(2 * mebibyte, 's'));
    open();
    scanHome();

    show(Item::overview);
    read(QStringLiteral("the overview"), {QStringLiteral("Biggest items in home")});
    show(Item::breakdown);
    read(QStringLiteral("the breakdown"), {QStringLiteral("Your Home Folder"), QStringLiteral("Show in File Manager")});
    show(Item::explorer);
    driver().pointAt(map(), tile("Films"));
    waitUntil([&] { return map().isPillShown(); }, QStringLiteral("the panel beside the pointer"));
    read(QStringLiteral("the Space Map"), {QStringLiteral("Films")});
    driver().pointAtNothing();
    clickTile("Films", Qt::RightButton);
    waitForPopup(QStringLiteral("tileMenu"));
    read(QStringLiteral("the menu of a tile"), {QStringLiteral("Show in File Manager"), QStringLiteral("Copy Path")});
    close(QStringLiteral("tileMenu"));
    show(Item::large);
    read(QStringLiteral("large files"), {QStringLiteral("film.mkv")});
    show(Item::old);
    read(QStringLiteral("old files"));
    show(Item::duplicates);
    read(QStringLiteral("duplicates before the search"), {QStringLiteral("Find identical files")});
    click(QStringLiteral("duplicates.search"));
    waitForText(QStringLiteral("1 group · 2.1 MB wasted"));
    read(QStringLiteral("duplicates"), {QStringLiteral("song.wav")});
    show(Item::cleanup);
    read(QStringLiteral("the cleanup"), {QStringLiteral("tide/target")});
}

TEST_F(WordsJourney, ScansOfAnEmptyFolderAndOfNothingSpeakOfNoMac)
{
    addFolder("Empty");
    open();
    store().scan(at("Empty"));
    waitUntil([&] { return isScanned() && !store().breakdownLoading(); }, QStringLiteral("the scan's end"));
    for (const Item screen :
         {Item::overview, Item::breakdown, Item::explorer, Item::large, Item::old, Item::duplicates, Item::cleanup}) {
        show(screen);
        read(QStringLiteral("a screen of an empty folder"));
    }
    store().scan(at("gone"));
    waitUntil([&] { return !toast().empty() || store().phase() != StorageStore::Phase::scanning; },
              QStringLiteral("the scan of nothing"));
    for (const Item screen : {Item::overview, Item::explorer}) {
        show(screen);
        read(QStringLiteral("a screen after a scan of nothing"));
    }
}

// --- The disk

TEST_F(WordsJourney, SnapshotsAreToldWithoutAWordOfAMac)
{
    open();
    waitForFigures();
    DiskBreakdown disk = *store().breakdown();
    LocalSnapshot snapshot;
    snapshot.name = "number 7 before the update";
    snapshot.deleteCommand = "sudo snapper delete 7";
    disk.snapshots = {test::snapshotAt(1), snapshot};
    disk.snapshots.front().name = "number 6";
    show(Item::breakdown);
    store().finishBreakdown(disk, store().breakdownToken());
    read(QStringLiteral("the breakdown with a snapshot"), {QStringLiteral("Snapshots")});
}

// --- Applications

TEST_F(WordsJourney, NoApplicationIsUninstalledInWordsOfAMac)
{
    folder().writeFile("home/Apps/Kite.AppImage", 2 * mebibyte);
    addLauncher("org.kite.Kite", "Kite", folder() / "home/Apps/Kite.AppImage");
    folder().writeText("home/Apps/Signal Deck/Signal Deck", "\x7f"
                                                            "ELF, a program");
    folder().writeFile("home/Apps/Signal Deck/data", 3 * mebibyte);
    addLauncher("com.signaldeck.Desktop", "Signal Deck", folder() / "home/Apps/Signal Deck/Signal Deck");
    for (const char *data : {"config/com.signaldeck.Desktop/db", "data/Signal Deck/log"})
        folder().writeFile(data, mebibyte);
    folder().writeFile("data/flatpak/app/org.tide.Tide/current/active/files/bin/tide", mebibyte);
    folder().writeText("data/flatpak/exports/share/applications/org.tide.Tide.desktop",
                       "[Desktop Entry]\nType=Application\nName=Tide\nExec=flatpak run org.tide.Tide\n");
    folder().writeFile("home/.var/app/org.tide.Tide/data/db", mebibyte);
    addOldFolder("config/com.lathe.CadPro");
    open();
    showApps();
    read(QStringLiteral("the list of apps"),
         {QStringLiteral("Kite"), QStringLiteral("Signal Deck"), QStringLiteral("Tide"), QStringLiteral("AppImage")});
    chooseApp(QStringLiteral("Tide"));
    read(QStringLiteral("a Flatpak"),
         {QStringLiteral("Remove the app"), QStringLiteral("Flatpak"), QStringLiteral("Its data in your home folder")});
    click(QStringLiteral("uninstaller.uninstall"));
    waitForRemoval();
    read(QStringLiteral("a Flatpak whose data was moved"));
    store().dismissToast();
    for (const char *name : {"Kite", "Left behind by deleted apps", "Signal Deck"}) {
        chooseApp(QString::fromLatin1(name));
        read(QString::fromLatin1(name), {QString::fromLatin1(name)});
    }
    click(QStringLiteral("uninstaller.uninstall"));
    waitForPopup(QStringLiteral("uninstallConfirm"));
    read(QStringLiteral("the question before an uninstall"), {QStringLiteral("Uninstall Signal Deck?")});
    click(QStringLiteral("uninstallConfirm.move"));
    waitForRemoval();
    read(QStringLiteral("the uninstaller after an uninstall"));
    for (const InstalledApp &app : store().apps()) {
        if (app.source != InstalledApp::Source::package)
            continue;
        chooseApp(QString::fromStdString(app.name));
        read(QStringLiteral("a package"), {QString::fromStdString(app.removeCommand)});
        break;
    }
}

// --- Cleanup

TEST_F(WordsJourney, NoPlaceOfTheCleanupSpeaksOfAMac)
{
    addFile(".npm/_cacache/blob", 3);
    folder().writeFile("cache/pip/wheel", 2 * mebibyte);
    addFile("Downloads/film.mov", 9);
    addFile(".gradle/caches", 1); // a file, so listing it fails
    open();
    waitForFigures();
    show(Item::cleanup);
    read(QStringLiteral("the cleanup with what it found"),
         {QStringLiteral("npm Cache"), QStringLiteral("Can't be read"), QStringLiteral("pip Cache")});
    // The folded locations of every group.
    for (const int group : {0, 1, 2}) {
        std::vector<QQuickItem *> folded;
        static_cast<void>(driver().find([&](const QQuickItem &item) {
            if (item.inherits("QQuickItem") && item.property("text").toString().endsWith(QStringLiteral("nothing")) &&
                item.property("textFormat").isValid())
                folded.push_back(const_cast<QQuickItem *>(&item));
            return false;
        }));
        if (static_cast<int>(folded.size()) <= group)
            break;
        driver().click(*folded[static_cast<std::size_t>(group)]);
        read(QStringLiteral("unfolded places"));
    }
    click(QStringLiteral("cleanup.selectSafe"));
    waitForSelectionBar();
    read(QStringLiteral("the cleanup with a selection"));
}

// --- The sheets

TEST_F(WordsJourney, NoSheetOfARemovalSpeaksOfAMac)
{
    addFile("Films/film.mkv", 3);
    addFile("Games/world.dat", 2);
    openAndScan();
    tick(QStringLiteral("Games"));
    waitForSelectionBar();
    read(QStringLiteral("the selection bar"), {QStringLiteral("1 item selected")});
    click(QStringLiteral("reviewButton"));
    waitForPopup(QStringLiteral("reviewSheet"));
    read(QStringLiteral("the review"), {QStringLiteral("Selected for removal")});
    click(QStringLiteral("reviewSheet.deletePermanently"));
    waitForPopup(QStringLiteral("deleteConfirm"));
    read(QStringLiteral("the question before a deletion"), {QStringLiteral("Permanently delete 1 item?")});
    close(QStringLiteral("deleteConfirm"));
    close(QStringLiteral("reviewSheet"));
    // Make the Trash unusable.
    std::filesystem::remove_all(folder() / "data/Trash");
    folder().writeText("data/Trash", "no folder");
    click(QStringLiteral("moveToTrashButton"));
    waitForRemoval();
    read(QStringLiteral("the message of a failure"));
    EXPECT_THAT(toast(), StartsWith("Nothing was removed"));
}

TEST_F(WordsJourney, NoSheetOfTheProgramSpeaksOfAMac)
{
    folder().writeText("home/Library/Logs/DiagnosticReports/" +
                           QCoreApplication::applicationFilePath().section(QLatin1Char('/'), -1).toStdString() +
                           "-1.ips",
                       "signal 11");
    setDefault("crashReportLastCheck", "2020-01-01T00:00:00.000Z");
    launch();
    waitForPopup(QStringLiteral("welcome"));
    read(QStringLiteral("the welcome"), {QStringLiteral("Welcome to Corvane"), QStringLiteral("Access to Your Files")});
    close(QStringLiteral("welcome"));
    waitForPopup(QStringLiteral("crashPrompt"));
    read(QStringLiteral("the question after a crash"));
    close(QStringLiteral("crashPrompt"));
    press(Qt::Key_F10);
    waitForPopup(QStringLiteral("appMenu"));
    read(QStringLiteral("the menu"), {QStringLiteral("Quit"), QStringLiteral("Ctrl+Shift+R")});
    close(QStringLiteral("appMenu"));
    chooseInMenu(QStringLiteral("appMenu.about"));
    waitForPopup(QStringLiteral("about"));
    read(QStringLiteral("the sheet about the program"));
    close(QStringLiteral("about"));
    chooseInMenu(QStringLiteral("appMenu.sendFeedback"));
    waitForPopup(QStringLiteral("feedback"));
    read(QStringLiteral("the feedback form"), {QStringLiteral("Include app and system versions and computer model")});
    close(QStringLiteral("feedback"));
    press(Qt::Key_Comma, Qt::ControlModifier);
    waitUntil([&] { return window().findChild<QQuickWindow *>(QStringLiteral("settings")) != nullptr; },
              QStringLiteral("the settings"));
    auto &settings = *window().findChild<QQuickWindow *>(QStringLiteral("settings"));
    waitUntil([&] { return settings.isVisible(); }, QStringLiteral("the settings"));
    read(QStringLiteral("the settings"), {QStringLiteral("When Corvane crashes")});
    EXPECT_THAT(macWordsIn(settings), IsEmpty());
}

TEST_F(WordsJourney, AHomeThatCannotBeOpenedIsReportedWithoutAWordOfAMac)
{
    const std::string hidden = folder() / "hidden home";
    std::filesystem::rename(home(), hidden);
    launch();
    waitForPopup(QStringLiteral("welcome"));
    read(QStringLiteral("the welcome without access"), {QStringLiteral("Waiting…")});
    close(QStringLiteral("welcome"));
    show(Item::overview);
    read(QStringLiteral("the overview without access"),
         {QStringLiteral("Let Corvane read your home folder for complete results")});
    show(Item::cleanup);
    read(QStringLiteral("the cleanup without access"));
    std::filesystem::rename(hidden, home());
}

} // namespace
} // namespace corvane
