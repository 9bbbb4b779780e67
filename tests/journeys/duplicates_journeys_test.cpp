#include <algorithm>
#include <filesystem>
#include <utility>

#include "journeys/journey.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A home with a film of 4 MiB in three places, a song of 2 MiB in two, and another file of the film's size.
class DuplicatesJourney : public Journey {
protected:
    DuplicatesJourney()
    {
        addCopy("Films/film.mov", 'f', 4, 300);
        addCopy("Films/film copy.mov", 'f', 4, 200);
        addCopy("Archive/film.mov", 'f', 4, 100);
        addCopy("Songs/song.wav", 's', 2, 200);
        addCopy("Archive/song.wav", 's', 2, 100);
        addCopy("Films/other.mov", 'o', 4, 100);
    }

    /// Adds a file filled with one letter, last modified `day` days after the start of 2024.
    void addCopy(const std::string &relative, char letter, std::int64_t mebibytes, int day) const
    {
        const std::string path = "home/" + relative;
        folder().writeText(path, std::string(static_cast<std::size_t>(mebibytes * mebibyte), letter));
        folder().setModified(path, 1'704'110'400 + std::int64_t{day} * 86'400);
    }

    void openDuplicates()
    {
        openAndScan();
        click(QStringLiteral("sidebar.duplicates"));
        driver().rest();
    }
    void search()
    {
        click(QStringLiteral("duplicates.search"));
        waitForSearch();
    }
    void waitForSearch()
    {
        waitUntil([&] { return store().duplicatePhase() == StorageStore::Phase::ready; },
                  QStringLiteral("the search's end"));
        driver().rest();
    }
    void autoSelect(const QString &choice)
    {
        click(QStringLiteral("duplicates.autoSelect"));
        waitForPopup(QStringLiteral("duplicates.choices"));
        click(choice);
        waitForPopupClosed(QStringLiteral("duplicates.choices"));
        waitForSelectionBar();
    }
    void moveToTrash()
    {
        click(QStringLiteral("moveToTrashButton"));
        waitUntil([&] { return !store().isRemoving() && !toast().empty(); }, QStringLiteral("the removal's message"));
        driver().rest();
    }
    /// The rows of the list, from the top: the names of groups, and the files relative to the home.
    [[nodiscard]] std::vector<std::string> listed()
    {
        std::vector<std::pair<qreal, std::string>> found;
        const QQuickItem &list = driver().item(QStringLiteral("duplicateRows"));
        for (const QQuickItem *row : list.property("contentItem").value<QQuickItem *>()->childItems()) {
            if (!row->isVisible() || !row->property("note").isValid())
                continue;
            std::string title = row->property("title").toString().toStdString();
            if (title.starts_with(home()))
                title.erase(0, home().size() + 1);
            found.emplace_back(row->y(), std::move(title));
        }
        std::ranges::sort(found);
        std::vector<std::string> titles;
        for (auto &[y, title] : found)
            titles.push_back(std::move(title));
        return titles;
    }
    void tickFile(const std::string &relative)
    {
        const QString path = QString::fromStdString(at(relative));
        driver().click(driver().itemWhere(
            [&](const QQuickItem &item) { return item.property("accessibleName").toString() == path; },
            QStringLiteral("the check box of ") + path));
    }
    [[nodiscard]] std::vector<std::string> selected()
    {
        std::vector<std::string> paths;
        for (const auto &[path, size] : store().selection())
            paths.push_back(path.substr(home().size() + 1));
        return paths;
    }
    [[nodiscard]] static std::vector<std::string> trash() { return Sandbox::instance().trash(); }
};

TEST_F(DuplicatesJourney, TheScreenNeedsAScanAndThenASearch)
{
    open();
    click(QStringLiteral("sidebar.duplicates"));
    click(QStringLiteral("requiresScan.scan"));
    waitUntil([&] { return isScanned(); }, QStringLiteral("the scan's end"));
    waitForText(QStringLiteral("Find identical files"));
    search();
    EXPECT_TRUE(shows(QStringLiteral("2 groups · 10.5 MB wasted")));
    EXPECT_THAT(listed(), ElementsAre("film.mov", "Films/film.mov", "Films/film copy.mov", "Archive/film.mov",
                                      "song.wav", "Songs/song.wav", "Archive/song.wav"));
}

TEST_F(DuplicatesJourney, AnotherSearchSeesWhatOtherProgramsDidMeanwhile)
{
    openDuplicates();
    search();
    addCopy("Songs/song.wav", 'x', 2, 200);
    search();
    EXPECT_TRUE(shows(QStringLiteral("1 group · 8.4 MB wasted")));
    EXPECT_THAT(listed(), ElementsAre("film.mov", "Films/film.mov", "Films/film copy.mov", "Archive/film.mov"));
}

TEST_F(DuplicatesJourney, WithoutCopiesNothingIsFound)
{
    for (const char *name : {"Films/film copy.mov", "Archive/film.mov", "Archive/song.wav"})
        std::filesystem::remove(at(name));
    openDuplicates();
    search();
    EXPECT_TRUE(shows(QStringLiteral("No duplicates found")));
}

TEST_F(DuplicatesJourney, KeepingTheNewestMovesAllOtherCopiesToTheTrash)
{
    openDuplicates();
    search();
    autoSelect(QStringLiteral("duplicates.keepNewest"));
    EXPECT_THAT(selected(), ElementsAre("Archive/film.mov", "Archive/song.wav", "Films/film copy.mov"));
    moveToTrash();
    EXPECT_TRUE(exists("Films/film.mov"));
    EXPECT_TRUE(exists("Songs/song.wav"));
    EXPECT_THAT(trash(), ElementsAre("film copy.mov", "film.mov", "song.wav"));
    EXPECT_TRUE(shows(QStringLiteral("No duplicates found")));
}

TEST_F(DuplicatesJourney, KeepingTheOldestMovesAllOtherCopiesToTheTrash)
{
    openDuplicates();
    search();
    autoSelect(QStringLiteral("duplicates.keepOldest"));
    moveToTrash();
    EXPECT_TRUE(exists("Archive/film.mov"));
    EXPECT_TRUE(exists("Archive/song.wav"));
    EXPECT_FALSE(exists("Films/film.mov"));
    EXPECT_FALSE(exists("Songs/song.wav"));
}

TEST_F(DuplicatesJourney, ARemovedCopyLeavesItsGroupAndAGroupOfOneIsGone)
{
    openDuplicates();
    search();
    tickFile("Films/film.mov");
    tickFile("Songs/song.wav");
    waitForSelectionBar();
    moveToTrash();
    EXPECT_THAT(trash(), ElementsAre("film.mov", "song.wav"));
    EXPECT_THAT(listed(), ElementsAre("film copy.mov", "Films/film copy.mov", "Archive/film.mov"));
    EXPECT_TRUE(shows(QStringLiteral("1 group · 4.2 MB wasted")));
    EXPECT_TRUE(shows(QStringLiteral("2 × 4.2 MB")));
}

TEST_F(DuplicatesJourney, WhereTheKeptCopyHasChangedNothingOfItsGroupIsTouched)
{
    openDuplicates();
    search();
    autoSelect(QStringLiteral("duplicates.keepNewest"));
    addCopy("Films/film.mov", 'x', 4, 310);
    moveToTrash();
    EXPECT_THAT(trash(), ElementsAre("song.wav"));
    EXPECT_TRUE(exists("Films/film copy.mov"));
    EXPECT_TRUE(exists("Archive/film.mov"));
}

TEST_F(DuplicatesJourney, TheKeyboardAloneFindsAndRemovesACopy)
{
    openDuplicates();
    tabTo(driver().item(QStringLiteral("duplicates.search")));
    press(Qt::Key_Return);
    waitForSearch();
    ASSERT_TRUE(driver().item(QStringLiteral("duplicateList")).hasActiveFocus());
    press(Qt::Key_Left);
    driver().rest();
    EXPECT_THAT(listed(), ElementsAre("film.mov", "song.wav", "Songs/song.wav", "Archive/song.wav"));
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_THAT(selected(), ElementsAre("Films/film copy.mov"));
    press(Qt::Key_Space);
    EXPECT_THAT(selected(), IsEmpty());
    press(Qt::Key_End);
    press(Qt::Key_Delete);
    waitForSelectionBar();
    tabTo(driver().item(QStringLiteral("moveToTrashButton")));
    press(Qt::Key_Return);
    waitUntil([&] { return !store().isRemoving() && !toast().empty(); }, QStringLiteral("the removal's message"));
    EXPECT_THAT(trash(), ElementsAre("song.wav"));
}

} // namespace
} // namespace corvane
