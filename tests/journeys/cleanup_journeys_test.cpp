#include <algorithm>
#include <filesystem>

#include "journeys/journey.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A home with package caches of 3 and 2 MiB, one of 1 MiB, and downloads of 9 MiB.
class CleanupJourney : public Journey {
protected:
    CleanupJourney()
    {
        addFile(".npm/_cacache/index.bin", 3);
        addFile(".npm/_cacache/content/blob", 2);
        addFile(".gradle/caches/jars.bin", 1);
        addFile("Downloads/film.mov", 9);
    }

    void openCleanup()
    {
        open();
        click(QStringLiteral("sidebar.cleanup"));
        waitUntil([&] { return !store().cleanupLoading(); }, QStringLiteral("the catalogue's figures"));
        driver().rest();
    }
    /// The row with this title, or null.
    [[nodiscard]] QQuickItem *findRow(const QString &title)
    {
        return driver().find([&](const QQuickItem &item) {
            return item.property("description").isValid() && item.property("title").toString() == title;
        });
    }
    /// The same, scrolled into view.
    [[nodiscard]] QQuickItem &cleanupRow(const QString &title)
    {
        QQuickItem &list = driver().item(QStringLiteral("cleanupRows"));
        const auto scrollTo = [&](qreal y) {
            list.setProperty("contentY", y);
            driver().rest();
        };
        const auto comesIntoSight = [&] {
            const qreal y = list.property("contentY").toReal();
            const QQuickItem *const found = findRow(title);
            if (found == nullptr) {
                // Scroll by one page, wrapping at the end.
                const qreal start = list.property("originY").toReal();
                const qreal end = start + list.property("contentHeight").toReal() - list.height();
                scrollTo(y >= end ? start : std::min(y + list.height(), end));
                return false;
            }
            const qreal above = found->mapToItem(&list, QPointF()).y();
            const qreal below = above + found->height() - list.height();
            if (above >= 0 && below <= 0)
                return true;
            scrollTo(y + (above < 0 ? above : below));
            return false;
        };
        waitUntil(comesIntoSight, QStringLiteral("the row of ") + title);
        return *findRow(title);
    }
    /// The row's description: "npm Cache, Safe, 5.2 MB, 2 items".
    [[nodiscard]] std::string says(const QString &title)
    {
        return cleanupRow(title).property("description").toString().toStdString();
    }
    [[nodiscard]] Qt::CheckState checkState(const QString &title)
    {
        return static_cast<Qt::CheckState>(cleanupRow(title).property("checkState").toInt());
    }
    void tickRow(const QString &title)
    {
        static_cast<void>(cleanupRow(title));
        driver().click(driver().itemWhere(
            [&](const QQuickItem &item) { return item.property("accessibleName").toString() == title; },
            QStringLiteral("the check box of ") + title));
    }
    void goToEnd()
    {
        tabTo(driver().item(QStringLiteral("cleanupList")));
        press(Qt::Key_End);
        driver().rest();
    }
    void moveToTrash()
    {
        waitForSelectionBar();
        click(QStringLiteral("moveToTrashButton"));
        waitForRemoval();
    }
    void waitForRemoval()
    {
        waitUntil([&] { return !store().isRemoving() && !store().cleanupLoading() && !toast().empty(); },
                  QStringLiteral("the removal's message"));
        driver().rest();
    }
    [[nodiscard]] std::vector<std::string> selected()
    {
        std::vector<std::string> paths;
        for (const auto &[path, size] : store().selection())
            paths.push_back(path.substr(home().size() + 1));
        return paths;
    }
};

const QString npm = QStringLiteral("npm Cache");

TEST_F(CleanupJourney, TheCatalogueIsMeasuredWithoutBeingAskedFor)
{
    openCleanup();
    EXPECT_TRUE(shows(QStringLiteral("6.3 MB of caches & build junk is safe to clear")));
    EXPECT_EQ(says(npm), "npm Cache, Safe, 5.2 MB, 2 items");
    EXPECT_FALSE(store().hasScan());
}

TEST_F(CleanupJourney, OnePressSelectsEverythingThatIsSafeAndNothingElse)
{
    addFile(".android/avd/pixel.img", 4);
    // The link's target is protected, so it is not measured.
    addFile(".ssh/key", 1);
    addFolder(".gradle/wrapper");
    std::filesystem::create_directory_symlink(at(".ssh"), at(".gradle/wrapper/dists"));
    openCleanup();

    click(QStringLiteral("cleanup.selectSafe"));

    waitForSelectionBar();
    EXPECT_THAT(selected(), ElementsAre(".gradle/caches/jars.bin", ".npm/_cacache/content", ".npm/_cacache/index.bin"));
    EXPECT_TRUE(shows(QStringLiteral("3 items selected")));
    EXPECT_TRUE(shows(QStringLiteral("6.3 MB can be reclaimed")));
    EXPECT_EQ(checkState(npm), Qt::Checked);
    const auto refused = std::ranges::find_if(store().cleanupItems(),
                                              [](const CleanupItem &item) { return item.def->id == "gradlewrapper"; });
    EXPECT_FALSE(refused->exists);
    EXPECT_THAT(refused->entries, IsEmpty());
}

TEST_F(CleanupJourney, ACardOpensToItsEntriesWhichAreTickedOneByOne)
{
    openCleanup();
    driver().click(cleanupRow(npm));
    waitForText(QStringLiteral("content"));
    driver().rest();
    EXPECT_EQ(says(QStringLiteral("index.bin")), "index.bin, 3.1 MB");

    tickRow(QStringLiteral("content"));
    EXPECT_THAT(selected(), ElementsAre(".npm/_cacache/content"));
    EXPECT_EQ(checkState(npm), Qt::PartiallyChecked);
    tickRow(npm);
    EXPECT_THAT(selected(), ElementsAre(".npm/_cacache/content", ".npm/_cacache/index.bin"));
    EXPECT_EQ(checkState(npm), Qt::Checked);

    waitForSelectionBar();
    click(QStringLiteral("clearButton"));
    EXPECT_EQ(checkState(npm), Qt::Unchecked);
    driver().click(cleanupRow(npm));
    waitUntil([&] { return findRow(QStringLiteral("content")) == nullptr; }, QStringLiteral("the card to close"));
}

TEST_F(CleanupJourney, ALocationThatCannotBeReadSaysWhatItNeedsAndAddsNothing)
{
    // A file, so listing it fails.
    std::filesystem::remove_all(at(".gradle/caches"));
    addFile(".gradle/caches", 5);
    openCleanup();
    const QString gradle = QStringLiteral("Gradle Caches");
    EXPECT_EQ(says(gradle), "Gradle Caches, Safe, Can't be read");
    EXPECT_TRUE(shows(QStringLiteral("Can't be read")));
    EXPECT_TRUE(shows(QStringLiteral("5.2 MB of caches & build junk is safe to clear")));
    tickRow(gradle);
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(CleanupJourney, AfterARemovalTheFiguresFollowAndTheTrashHoldsIt)
{
    openCleanup();
    tickRow(npm);

    moveToTrash();

    EXPECT_EQ(toast(), "Moved 2 items (5.2 MB) to Trash — empty it to free the space");
    EXPECT_FALSE(exists(".npm/_cacache/index.bin"));
    EXPECT_TRUE(exists(".npm/_cacache"));
    EXPECT_EQ(says(npm), "npm Cache, Safe, Zero KB, 0 items");
    EXPECT_EQ(says(QStringLiteral("Trash")), "Trash, Safe, 5.2 MB, 2 items");
    EXPECT_TRUE(shows(QStringLiteral("6.3 MB of caches & build junk is safe to clear"))) << "the Trash is safe too";
}

TEST_F(CleanupJourney, WhatLiesInTheTrashIsDeletedForGood)
{
    openCleanup();
    tickRow(npm);
    moveToTrash();
    store().dismissToast();

    tickRow(QStringLiteral("Trash"));
    waitForSelectionBar();
    click(QStringLiteral("moveToTrashButton"));
    waitForPopup(QStringLiteral("deleteConfirm"));
    click(QStringLiteral("deleteConfirm.delete"));
    waitForRemoval();

    EXPECT_EQ(toast(), "Moved 2 items (5.2 MB) to Trash — empty it to free the space");
    EXPECT_THAT(Sandbox::instance().trash(), IsEmpty());
    EXPECT_EQ(says(QStringLiteral("Trash")), "Trash, Safe, Zero KB, 0 items");
    EXPECT_TRUE(shows(QStringLiteral("1 MB of caches & build junk is safe to clear")));
}

TEST_F(CleanupJourney, RefreshSeesWhatOtherProgramsDidMeanwhile)
{
    openCleanup();
    addFile(".npm/_cacache/later.bin", 4);
    click(QStringLiteral("cleanup.refresh"));
    waitForText(QStringLiteral("10.5 MB of caches & build junk is safe to clear"));
    EXPECT_EQ(says(npm), "npm Cache, Safe, 9.4 MB, 3 items");
}

TEST_F(CleanupJourney, TheBuildFoldersOfAScanAreRemovedFromTheListItFinds)
{
    addFile("Projects/harbor/package.json", 0);
    addFile("Projects/harbor/node_modules/blob", 7);
    addFile("Projects/tide/Cargo.toml", 0);
    addFile("Projects/tide/target/debug.bin", 2);
    openCleanup();
    goToEnd();
    EXPECT_TRUE(shows(QStringLiteral("Find node_modules, Gradle build folders & more")));
    click(QStringLiteral("cleanup.scanHome"));
    waitUntil([&] { return isScanned() && !store().cleanupLoading(); }, QStringLiteral("the scan's end"));
    const QString harbor = QStringLiteral("harbor/node_modules");
    EXPECT_EQ(says(harbor), "harbor/node_modules, node_modules, ~/Projects/harbor, 7.3 MB");
    EXPECT_EQ(says(QStringLiteral("tide/target")), "tide/target, Rust target, ~/Projects/tide, 2.1 MB");
    EXPECT_TRUE(shows(QStringLiteral("9.4 MB")));

    tickRow(harbor);
    moveToTrash();

    EXPECT_FALSE(exists("Projects/harbor/node_modules"));
    EXPECT_THAT(Sandbox::instance().trash(), ElementsAre("node_modules"));
    goToEnd();
    EXPECT_EQ(findRow(harbor), nullptr);
    EXPECT_EQ(says(QStringLiteral("tide/target")), "tide/target, Rust target, ~/Projects/tide, 2.1 MB");
}

TEST_F(CleanupJourney, ABuildFolderIsShownInTheSpaceMap)
{
    addFile("Projects/tide/Cargo.toml", 0);
    addFile("Projects/tide/target/debug.bin", 2);
    openCleanup();
    store().scanHome();
    waitUntil([&] { return isScanned(); }, QStringLiteral("the scan's end"));
    goToEnd();
    driver().click(cleanupRow(QStringLiteral("tide/target")));
    waitForWay("home/Projects/tide/target");
}

TEST_F(CleanupJourney, TheKeyboardAloneClearsACache)
{
    open();
    tabTo(driver().item(QStringLiteral("sidebar")));
    press(Qt::Key_End);
    waitUntil([&] { return isShown(QStringLiteral("cleanupList")) && !store().cleanupLoading(); },
              QStringLiteral("the screen"));
    tabTo(driver().item(QStringLiteral("cleanupList")));
    for (int row = 0; row < 20 && !cleanupRow(npm).property("ringed").toBool(); ++row)
        press(Qt::Key_Down);
    ASSERT_TRUE(cleanupRow(npm).property("ringed").toBool());
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_THAT(selected(), ElementsAre(".npm/_cacache/index.bin"));
    waitForSelectionBar();
    tabTo(driver().item(QStringLiteral("moveToTrashButton")));
    press(Qt::Key_Space);
    waitUntil([&] { return !store().isRemoving() && !toast().empty(); }, QStringLiteral("the removal's message"));
    EXPECT_THAT(Sandbox::instance().trash(), ElementsAre("index.bin"));
    EXPECT_TRUE(exists(".npm/_cacache/content/blob"));
}

TEST_F(CleanupJourney, TypingFindsALocationAndDeleteSelectsIt)
{
    openCleanup();
    tabTo(driver().item(QStringLiteral("cleanupList")));

    press(Qt::Key_N);
    press(Qt::Key_P);
    press(Qt::Key_M);
    press(Qt::Key_Delete);

    const auto itsEntries = ElementsAre(".npm/_cacache/content", ".npm/_cacache/index.bin");
    EXPECT_THAT(selected(), itsEntries);
    press(Qt::Key_Delete);
    EXPECT_THAT(selected(), itsEntries) << "they stay selected";
    EXPECT_TRUE(exists(".npm/_cacache/index.bin"));
}

TEST_F(CleanupJourney, CtrlASelectsEverythingThatIsListed)
{
    openCleanup();
    tabTo(driver().item(QStringLiteral("cleanupList")));

    press(Qt::Key_A, Qt::ControlModifier);

    EXPECT_THAT(selected(), testing::IsSupersetOf({".gradle/caches/jars.bin", ".npm/_cacache/content",
                                                   ".npm/_cacache/index.bin", "Downloads/film.mov"}));
}

TEST_F(CleanupJourney, TwoPressesOnALocationOpenAndCloseIt)
{
    openCleanup();
    driver().doubleClick(cleanupRow(npm));
    driver().rest();
    EXPECT_EQ(findRow(QStringLiteral("index.bin")), nullptr);
    EXPECT_TRUE(Sandbox::instance().opened().empty());
}

} // namespace
} // namespace corvane
