#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "cleanup/cleanup_fixture.h"
#include "shell/screen_scene.h"
#include "support/patience.h"

namespace corvane {
namespace {

/// The whole screen in its own window, operated by mouse and keyboard.
class CleanupScreenTest : public test::CleanupFixture {
protected:
    CleanupScreenTest()
    {
        addFile("Library/Caches/browser/page", 4'000'000);
        addFile("Library/Caches/archive.db", 2'000'000);
        addFile("Downloads/installer.zip", 9'000'000);
    }

    void show(QSize size = {1064, 700})
    {
        scene = std::make_unique<ScreenScene>("Cleanup/CleanupScreen", size);
        ASSERT_TRUE(scene->isShown()) << scene->errors().toStdString();
        ASSERT_NE(scene->item("cleanupList"), nullptr);
    }
    void measureAndShow()
    {
        measure();
        show();
    }

    [[nodiscard]] QQuickItem *find(const std::function<bool(QQuickItem *)> &rule) const { return scene->find(rule); }
    [[nodiscard]] QQuickItem *named(const QString &name, QAccessible::Role role) const
    {
        return scene->named(name, role);
    }
    [[nodiscard]] QQuickItem *row(const QString &description) const
    {
        return named(description, QAccessible::ListItem);
    }
    [[nodiscard]] QQuickItem *checkBox(const QString &name) const { return named(name, QAccessible::CheckBox); }
    [[nodiscard]] QQuickItem *button(const QString &name) const { return named(name, QAccessible::Button); }
    [[nodiscard]] QQuickItem *rows() const { return scene->item("cleanupRows"); }
    /// The list creates and destroys delegates on the next frame.
    [[nodiscard]] bool appears(const QString &description) const
    {
        return QTest::qWaitFor([&] { return row(description) != nullptr; }, patience);
    }
    [[nodiscard]] bool disappears(const QString &description) const
    {
        return QTest::qWaitFor([&] { return row(description) == nullptr; }, patience);
    }
    [[nodiscard]] bool shows(const QString &text) const { return scene->shows(text); }
    [[nodiscard]] int currentRow() const { return rows()->property("currentIndex").toInt(); }
    [[nodiscard]] QAccessible::State state(QQuickItem *item) const { return QuickScene::accessible(item)->state(); }
    void clickRow(QQuickItem *item, Qt::MouseButton mouseButton = Qt::LeftButton)
    {
        QTest::mouseClick(scene->window(), mouseButton, Qt::NoModifier,
                          item->mapToScene({item->width() / 2, item->height() / 2}).toPoint());
    }
    void press(QQuickItem *item) { QuickScene::accessible(item)->actionInterface()->doAction("Press"); }
    void tabToList() { ASSERT_TRUE(scene->tabTo(scene->item("cleanupList"))); }

    std::unique_ptr<ScreenScene> scene;
};

const QString caches = QStringLiteral("App Caches, Safe, 6 MB, 2 items");
const QString downloads = QStringLiteral("Downloads, Review, 9 MB, 1 item");
const QString browser = QStringLiteral("browser, 4 MB");

TEST_F(CleanupScreenTest, ShowsTheHeaderTheGroupsAndTheCards)
{
    measureAndShow();
    EXPECT_TRUE(shows(QStringLiteral("Cleanup")));
    EXPECT_TRUE(shows(QStringLiteral("6 MB of caches & build junk is safe to clear")));
    EXPECT_NE(named(QStringLiteral("System Junk"), QAccessible::Heading), nullptr);
    EXPECT_NE(row(caches), nullptr);
    EXPECT_TRUE(shows(QStringLiteral("Temporary data apps rebuild automatically. Apps may feel a bit slower on first "
                                     "launch.")));
}

TEST_F(CleanupScreenTest, TheListRestsAtItsVeryTop)
{
    const auto isAtTop = [&] {
        const auto number = [&](const char *name) { return rows()->property(name).toReal(); };
        return number("contentY") == number("originY") - number("topMargin");
    };
    show({1064, 300});
    EXPECT_TRUE(isAtTop());
    measure();
    ASSERT_TRUE(appears(caches));
    EXPECT_TRUE(isAtTop());
    clickRow(row(caches));
    ASSERT_TRUE(appears(browser));
    EXPECT_TRUE(isAtTop());
}

TEST_F(CleanupScreenTest, WhileMeasuringItSaysSoAndCannotBeRefreshed)
{
    show();
    EXPECT_TRUE(button(QStringLiteral("Refresh"))->isEnabled());
    // Blocks the measurement until the test has checked the screen.
    std::atomic<bool> goesOn = false;
    fake.log->observe([&](const std::string &line) {
        while (line == "list " + at("Library/Caches") && !goesOn)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    });
    scene->click(button(QStringLiteral("Refresh")));
    EXPECT_TRUE(shows(QStringLiteral("Measuring caches…")));
    EXPECT_FALSE(button(QStringLiteral("Refresh"))->isEnabled());
    goesOn = true;
    waitForMeasurement();
    fake.log->observe({});
    EXPECT_TRUE(button(QStringLiteral("Refresh"))->isEnabled());
    EXPECT_NE(row(caches), nullptr);
}

TEST_F(CleanupScreenTest, SelectAllSafeSelectsWhatIsSafeAndNothingElse)
{
    measureAndShow();
    scene->click(button(QStringLiteral("Select All Safe")));
    EXPECT_EQ(store.selectedTotal(), 6'000'000);
    EXPECT_FALSE(isSelected("Downloads/installer.zip"));
    EXPECT_TRUE(state(checkBox(QStringLiteral("App Caches"))).checked);
}

TEST_F(CleanupScreenTest, WithNothingSafeTheButtonIsOff)
{
    fake.files.take(at("Library/Caches"));
    measureAndShow();
    EXPECT_FALSE(button(QStringLiteral("Select All Safe"))->isEnabled());
}

TEST_F(CleanupScreenTest, APressOnACardOpensAndClosesIt)
{
    measureAndShow();
    clickRow(row(caches));
    ASSERT_TRUE(appears(browser));
    EXPECT_TRUE(shows(QStringLiteral("Reveal Folder in Finder")));
    clickRow(row(caches));
    ASSERT_TRUE(disappears(browser));
}

TEST_F(CleanupScreenTest, TheRowsOfACardGrowWithItsMovement)
{
    Theme::instance()->setReducedMotion(false);
    measureAndShow();
    clickRow(row(caches));
    bool sawItOnItsWay = false;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            QQuickItem *const entry = row(browser);
            sawItOnItsWay |= entry != nullptr && entry->height() > 2 && entry->height() < 26;
            return entry != nullptr && entry->height() == 33;
        },
        patience));
    EXPECT_TRUE(sawItOnItsWay);
}

TEST_F(CleanupScreenTest, TheCheckBoxesOfACardAndItsEntriesFollowEachOther)
{
    measureAndShow();
    clickRow(row(caches));
    ASSERT_TRUE(appears(browser));
    scene->click(checkBox(QStringLiteral("browser")));
    EXPECT_TRUE(isSelected("Library/Caches/browser"));
    EXPECT_TRUE(state(checkBox(QStringLiteral("App Caches"))).checkStateMixed);
    EXPECT_NE(row(browser), nullptr) << "and the card stays open";
    scene->click(checkBox(QStringLiteral("App Caches")));
    EXPECT_TRUE(isSelected("Library/Caches/archive.db"));
    scene->click(checkBox(QStringLiteral("App Caches")));
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(CleanupScreenTest, WhatCannotBeReadSaysWhatItNeeds)
{
    fake.files.addFile(at(".Trash/a"), 1'000);
    fake.files.failOpening(at(".Trash"));
    measureAndShow();
    EXPECT_NE(row(QStringLiteral("Trash, Safe, Needs Full Disk Access")), nullptr);
    scene->click(checkBox(QStringLiteral("Trash")));
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(CleanupScreenTest, ARightClickOnAnEntryOpensItsMenu)
{
    measureAndShow();
    clickRow(row(caches));
    ASSERT_TRUE(appears(browser));
    clickRow(row(browser), Qt::RightButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("cleanupMenu"); }, patience));
    clickRow(row(caches), Qt::RightButton);
}

TEST_F(CleanupScreenTest, TheKeyboardReachesAndWorksEveryRow)
{
    measureAndShow();
    tabToList();
    EXPECT_EQ(currentRow(), 1);
    scene->key(Qt::Key_Space);
    EXPECT_EQ(store.selectedTotal(), 6'000'000);
    scene->key(Qt::Key_Space);
    EXPECT_TRUE(store.selection().empty());

    scene->key(Qt::Key_Right);
    ASSERT_TRUE(appears(browser));
    scene->key(Qt::Key_Down);
    scene->key(Qt::Key_Space);
    EXPECT_TRUE(isSelected("Library/Caches/browser"));
    scene->key(Qt::Key_Down);
    scene->key(Qt::Key_Down);
    scene->key(Qt::Key_Return);
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal " + at("Library/Caches")));

    scene->key(Qt::Key_Left);
    EXPECT_EQ(currentRow(), 1);
    EXPECT_TRUE(disappears(browser));
    scene->key(Qt::Key_Return);
    EXPECT_TRUE(appears(browser));

    scene->key(Qt::Key_End);
    ASSERT_TRUE(appears(QStringLiteral("Find node_modules, Gradle build folders & more")));
    EXPECT_NE(button(QStringLiteral("Scan Home Folder")), nullptr);
    scene->key(Qt::Key_Return);
    EXPECT_NE(store.phase(), StorageStore::Phase::idle) << "a small scan may be over already";
}

TEST_F(CleanupScreenTest, TheMenuKeyOpensTheMenuOfAnEntry)
{
    measureAndShow();
    tabToList();
    scene->key(Qt::Key_Right);
    scene->key(Qt::Key_Down);
    scene->key(Qt::Key_Menu);
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("cleanupMenu"); }, patience));
}

TEST_F(CleanupScreenTest, AReaderHearsWhatALocationAndTheBuildFoldersAre)
{
    addProject("harbor", 5'000'000);
    measureAndShow();
    const auto hears = [this](const QString &text) { return named(text, QAccessible::StaticText) != nullptr; };
    EXPECT_TRUE(hears(
        QStringLiteral("Temporary data apps rebuild automatically. Apps may feel a bit slower on first launch.")));

    const auto goToEnd = [this] {
        scene->key(Qt::Key_Home);
        scene->key(Qt::Key_End);
    };
    tabToList();
    goToEnd();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            return hears(QStringLiteral("Run a scan and Corvane will spot regenerable folders inside your projects."));
        },
        patience));

    scanHome();
    goToEnd();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return hears(QStringLiteral("Your build tools regenerate these on the next build or install.")); },
        patience));
}

TEST_F(CleanupScreenTest, AReaderCanPressACardAndABuildFoldersButtons)
{
    addProject("harbor", 5'000'000);
    scanHome();
    show();
    press(row(caches));
    ASSERT_TRUE(appears(browser));
    press(row(caches));
    tabToList();
    scene->key(Qt::Key_End);
    const QString name = QStringLiteral("harbor/node_modules, node_modules, ~/Projects/harbor, 5 MB");
    ASSERT_TRUE(appears(name));
    QQuickItem *const harbor = row(name);
    QQuickItem *const reveal = find([](QQuickItem *item) {
        return QuickScene::accessibleName(item).endsWith(QStringLiteral(": harbor/node_modules"));
    });
    ASSERT_NE(reveal, nullptr);
    scene->click(reveal);
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal " + at("Projects/harbor/node_modules")));
    clickRow(harbor);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);
    EXPECT_EQ(store.currentFolder()->name, "node_modules");
}

TEST_F(CleanupScreenTest, ALongListIsOnlyMadeWhereItIsSeen)
{
    addCaches(10'000);
    for (int i = 0; i < 5'000; ++i)
        addProject("p" + std::to_string(i), 1'000'000 + i * 4'096);
    scanHome();
    show();
    const auto made = [&] {
        int count = 0;
        for (const QQuickItem *item : rows()->property("contentItem").value<QQuickItem *>()->childItems())
            count += item->property("description").isValid() ? 1 : 0;
        return count;
    };
    EXPECT_LT(made(), 60);
    tabToList();
    scene->key(Qt::Key_End);
    EXPECT_TRUE(appears(QStringLiteral("p0/node_modules, node_modules, ~/Projects/p0, 1 MB")));
    EXPECT_LT(made(), 120);
    scene->key(Qt::Key_Home);
    scene->key(Qt::Key_Right);
    static_cast<void>(scene->window()->grabWindow());
    EXPECT_LT(made(), 200);
}

const QString packageCache = QStringLiteral("Package cache, sudo apt clean, 5.9 MB can be freed");

class LinuxCleanupScreenTest : public CleanupScreenTest {
protected:
    LinuxCleanupScreenTest()
    {
        fake.files.setSystemKind(SystemKind::linuxSystem);
        addFile("Library/Caches/a", 3'000'000);
        fake.files.addFile("/usr/bin/apt", 1);
        fake.files.addFile("/var/cache/apt/archives/a.deb", 5'900'000);
    }
    void measureAndShowAll()
    {
        store.refreshCleanup();
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return !store.cleanupLoading() && !store.cleanupCommands().empty(); }, patience));
        show();
    }
    void goToEnd()
    {
        tabToList();
        scene->key(Qt::Key_End);
        ASSERT_TRUE(appears(packageCache));
    }
    [[nodiscard]] QQuickItem *copyButton(const QString &text) const
    {
        return find([&](QQuickItem *item) {
            return item->property("command").toString() == QStringLiteral("sudo apt clean") &&
                   item->property("label").isValid() && item->property("text").toString() == text;
        });
    }
};

TEST_F(LinuxCleanupScreenTest, FoldedPlacesUnfoldByAPressAndByTheKeyboard)
{
    measureAndShowAll();
    QQuickItem *const folded = row(QStringLiteral("%1 more places hold nothing").arg(systemPlaces() - 1));
    ASSERT_NE(folded, nullptr);
    EXPECT_EQ(QuickScene::accessible(folded)->text(QAccessible::Description), QStringLiteral("Collapsed"));
    const QString thumbnails = QStringLiteral("Thumbnails, Safe, Zero KB, 0 items");
    EXPECT_EQ(row(thumbnails), nullptr);
    clickRow(folded);
    EXPECT_TRUE(appears(thumbnails));
    EXPECT_EQ(QuickScene::accessible(folded)->text(QAccessible::Description), QStringLiteral("Expanded"));
    tabToList();
    scene->key(Qt::Key_Left);
    EXPECT_TRUE(disappears(thumbnails));
    scene->key(Qt::Key_Right);
    EXPECT_TRUE(appears(thumbnails));
}

TEST_F(LinuxCleanupScreenTest, TheButtonOfACommandCopiesItAndKeepsItsWidth)
{
    measureAndShowAll();
    goToEnd();
    EXPECT_NE(named(QStringLiteral("Needs the Administrator"), QAccessible::Heading), nullptr);
    QQuickItem *const button = copyButton(QStringLiteral("Copy"));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->width(), 86);
    scene->click(button);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("sudo apt clean"));
    EXPECT_EQ(button->property("text").toString(), QStringLiteral("Copied!"));
    EXPECT_EQ(button->width(), 86);
}

TEST_F(LinuxCleanupScreenTest, ReturnCopiesTheCommandOfTheRow)
{
    measureAndShowAll();
    goToEnd();
    QGuiApplication::clipboard()->clear();
    scene->key(Qt::Key_Return);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("sudo apt clean"));
    EXPECT_NE(copyButton(QStringLiteral("Copied!")), nullptr);
}

TEST_F(LinuxCleanupScreenTest, TheFieldOfACommandCanBeReadAndNotChanged)
{
    measureAndShowAll();
    goToEnd();
    QQuickItem *const field = find([](QQuickItem *item) { return item->property("readOnly").toBool(); });
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("sudo apt clean"));
    EXPECT_EQ(field->width(), 296);
    EXPECT_TRUE(state(field).readOnly);
    scene->click(field);
    scene->key(Qt::Key_X);
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("sudo apt clean"));
}

} // namespace
} // namespace corvane
