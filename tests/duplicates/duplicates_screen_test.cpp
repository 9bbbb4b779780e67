#include <functional>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "duplicates/duplicates_ui_fixture.h"
#include "shell/screen_scene.h"

namespace corvane {
namespace {

/// The whole screen in its own window, operated by mouse and keyboard.
class DuplicatesScreenTest : public test::DuplicatesFixture {
protected:
    DuplicatesScreenTest() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }
    ~DuplicatesScreenTest() override { QLocale::setDefault(QLocale::c()); }

    void show(QSize size = {1064, 700})
    {
        scene = std::make_unique<ScreenScene>("Duplicates/DuplicatesScreen", size);
        ASSERT_TRUE(scene->isShown()) << scene->errors().toStdString();
    }
    void searchAndShow()
    {
        addFilmAndSong();
        scanAndSearch();
        show();
    }

    [[nodiscard]] QQuickItem *row(const QString &start) const
    {
        return scene->find([&](QQuickItem *item) {
            return QuickScene::accessibleRole(item) == QAccessible::ListItem &&
                   QuickScene::accessibleName(item).startsWith(start);
        });
    }
    [[nodiscard]] QQuickItem *checkBox(const QString &name) const { return scene->named(name, QAccessible::CheckBox); }
    [[nodiscard]] QQuickItem *button(const QString &name) const { return scene->named(name, QAccessible::Button); }
    [[nodiscard]] QQuickItem *autoSelect() const { return scene->item("duplicates.autoSelect"); }
    [[nodiscard]] QQuickItem *rows() const { return scene->item("duplicateRows"); }
    /// The list creates and destroys delegates on the next frame.
    [[nodiscard]] bool appears(const QString &start) const
    {
        return QTest::qWaitFor([&] { return row(start) != nullptr; }, patience);
    }
    [[nodiscard]] bool disappears(const QString &start) const
    {
        return QTest::qWaitFor([&] { return row(start) == nullptr; }, patience);
    }
    [[nodiscard]] bool shows(const QString &text) const { return scene->shows(text); }
    [[nodiscard]] int currentRow() const { return rows()->property("currentIndex").toInt(); }
    [[nodiscard]] bool opens(const char *menu) const
    {
        return QTest::qWaitFor([&] { return scene->isOpen(menu); }, patience);
    }
    void clickRow(QQuickItem *item, Qt::MouseButton mouseButton = Qt::LeftButton)
    {
        QTest::mouseClick(scene->window(), mouseButton, Qt::NoModifier,
                          item->mapToScene({item->width() / 2, item->height() / 2}).toPoint());
    }
    void choose(const char *choice)
    {
        scene->click(autoSelect());
        ASSERT_TRUE(opens("duplicates.choices"));
        scene->click(scene->item(choice));
    }
    void tabTo(const char *name) { ASSERT_TRUE(scene->tabTo(scene->item(name))); }

    std::unique_ptr<ScreenScene> scene;
};

const QString filmGroup = QStringLiteral("film.mov, 3 × 3 MB, 6 MB wasted");
const QString songGroup = QStringLiteral("song.wav, 2 × 2 MB, 2 MB wasted");
const QString film = QStringLiteral("/home/studio/Films/film.mov");
const QString filmCopy = QStringLiteral("/home/studio/Films/film copy.mov");
const QString oldFilm = QStringLiteral("/home/studio/Archive/film.mov");
const QString song = QStringLiteral("/home/studio/Songs/song.wav");

TEST_F(DuplicatesScreenTest, BeforeASearchItSaysWhatIsCompared)
{
    scanHome();
    show();
    EXPECT_TRUE(shows(QStringLiteral("Identical files that exist in more than one place")));
    EXPECT_TRUE(shows(QStringLiteral("Find identical files")));
    EXPECT_TRUE(shows(QStringLiteral(
        "Corvane compares files over 1 MB from your scan — first by size, then by SHA-256 fingerprint — so only true "
        "duplicates show up. Nothing is removed until you choose.")));
    EXPECT_TRUE(button(QStringLiteral("Find Duplicates"))->isEnabled());
    EXPECT_FALSE(autoSelect()->isEnabled());
}

TEST_F(DuplicatesScreenTest, ASearchShowsHowFarItIsAndThenWhatItFound)
{
    addFilmAndSong();
    scanHome();
    show();
    Gate reading(*fake.log, "openFile " + at("Songs/song.wav"));
    scene->click(button(QStringLiteral("Find Duplicates")));
    ASSERT_TRUE(reading.waitUntilReached());
    QQuickItem *const progress =
        scene->named(QStringLiteral("Fingerprinting files… 0 percent"), QAccessible::ProgressBar);
    ASSERT_NE(progress, nullptr);
    EXPECT_TRUE(shows(QStringLiteral("Fingerprinting files…")));
    EXPECT_FALSE(button(QStringLiteral("Find Duplicates"))->isEnabled());
    EXPECT_FALSE(autoSelect()->isEnabled());
    reading.open();
    waitForSearch();
    ASSERT_TRUE(appears(filmGroup));
    EXPECT_TRUE(shows(QStringLiteral("2 groups · 8 MB wasted")));
    EXPECT_TRUE(button(QStringLiteral("Search Again"))->isEnabled());
    EXPECT_TRUE(autoSelect()->isEnabled());
}

TEST_F(DuplicatesScreenTest, WithoutDuplicatesItSaysSo)
{
    add("Films/film.mov", "film", 3'000'000, 1);
    scanAndSearch();
    show();
    EXPECT_TRUE(shows(QStringLiteral("No duplicates found")));
    EXPECT_TRUE(shows(QStringLiteral("Every file over 1 MB in this scan is unique.")));
    EXPECT_FALSE(autoSelect()->isEnabled());
}

TEST_F(DuplicatesScreenTest, AFileHasItsPathItsDateAndTheNewestItsTag)
{
    searchAndShow();
    EXPECT_NE(row(filmGroup), nullptr);
    EXPECT_NE(row(songGroup), nullptr);
    EXPECT_TRUE(shows(QStringLiteral("3 × 3 MB")));
    EXPECT_TRUE(shows(QStringLiteral("6 MB wasted")));
    EXPECT_NE(row(film + QStringLiteral(", Newest, Modified 31 Jan 2024 at ")), nullptr);
    EXPECT_NE(row(filmCopy + QStringLiteral(", Modified 21 Jan 2024 at ")), nullptr);
}

TEST_F(DuplicatesScreenTest, ALongPathIsShortenedInItsMiddleAndLeavesRoomForTheTag)
{
    const std::string folder = std::string(60, 'a') + "/" + std::string(60, 'b') + "/" + std::string(60, 'c');
    add(folder + "/film.mov", "film", 3'000'000, 2);
    add("film.mov", "film", 3'000'000, 1);
    scanAndSearch();
    show({700, 500});
    QQuickItem *const path = scene->find([&](QQuickItem *item) {
        return item->property("text").toString() == QString::fromStdString(at(folder + "/film.mov"));
    });
    ASSERT_NE(path, nullptr);
    EXPECT_TRUE(path->property("truncated").toBool());
    EXPECT_EQ(path->property("elide").toInt(), Qt::ElideMiddle);
    QQuickItem *const tag =
        scene->find([](QQuickItem *item) { return item->property("tone") == QStringLiteral("accent"); });
    ASSERT_NE(tag, nullptr);
    EXPECT_GE(tag->mapToScene({}).x(), path->mapToScene({path->width(), 0}).x());
    EXPECT_LE(tag->mapToScene({tag->width(), 0}).x(), 700 - 24 - 12 - 24);
}

TEST_F(DuplicatesScreenTest, TheMenuKeepsTheNewestOrTheOldest)
{
    searchAndShow();
    choose("duplicates.keepNewest");
    EXPECT_EQ(store.selection().size(), 3U);
    EXPECT_FALSE(isSelected("Films/film.mov"));
    EXPECT_TRUE(QuickScene::accessible(checkBox(oldFilm))->state().checked);
    EXPECT_FALSE(QuickScene::accessible(checkBox(film))->state().checked);
    store.clearSelection();
    EXPECT_FALSE(QuickScene::accessible(checkBox(oldFilm))->state().checked);
    choose("duplicates.keepOldest");
    EXPECT_EQ(store.selection().size(), 3U);
    EXPECT_FALSE(isSelected("Archive/film.mov"));
}

TEST_F(DuplicatesScreenTest, TheMenuHasItsTexts)
{
    searchAndShow();
    scene->click(autoSelect());
    ASSERT_TRUE(opens("duplicates.choices"));
    EXPECT_NE(scene->named(QStringLiteral("Keep the newest copy in each group"), QAccessible::MenuItem), nullptr);
    EXPECT_NE(scene->named(QStringLiteral("Keep the oldest copy in each group"), QAccessible::MenuItem), nullptr);
}

TEST_F(DuplicatesScreenTest, APressOnAGroupFoldsAndUnfoldsIt)
{
    searchAndShow();
    EXPECT_EQ(QuickScene::accessible(row(filmGroup))->text(QAccessible::Description), QStringLiteral("Expanded"));
    clickRow(row(filmGroup));
    ASSERT_TRUE(disappears(film));
    EXPECT_EQ(QuickScene::accessible(row(filmGroup))->text(QAccessible::Description), QStringLiteral("Collapsed"));
    QuickScene::accessible(row(filmGroup))->actionInterface()->doAction(QStringLiteral("Press"));
    EXPECT_TRUE(appears(film));
}

TEST_F(DuplicatesScreenTest, ACheckBoxSelectsItsFileAlone)
{
    searchAndShow();
    scene->click(checkBox(filmCopy));
    EXPECT_EQ(store.selection(), (Selection{{at("Films/film copy.mov"), 3'000'000}}));
    scene->click(checkBox(filmCopy));
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(DuplicatesScreenTest, TheButtonOfAFileRevealsIt)
{
    searchAndShow();
    QQuickItem *const reveal = button(QStringLiteral("Show in File Manager") + QStringLiteral(": ") + filmCopy);
    ASSERT_NE(reveal, nullptr);
    scene->click(reveal);
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal " + at("Films/film copy.mov")));
}

TEST_F(DuplicatesScreenTest, ARightClickAndTheMenuKeyOpenTheMenuOfAFile)
{
    searchAndShow();
    clickRow(row(filmCopy), Qt::RightButton);
    EXPECT_TRUE(opens("duplicatesMenu"));
    scene->key(Qt::Key_Escape);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return !scene->object("duplicatesMenu")->property("visible").toBool(); }, patience));
    tabTo("duplicateList");
    scene->key(Qt::Key_Menu);
    EXPECT_TRUE(opens("duplicatesMenu"));
}

TEST_F(DuplicatesScreenTest, TheKeyboardReachesAndWorksEveryRow)
{
    searchAndShow();
    tabTo("duplicateList");
    EXPECT_EQ(currentRow(), 0);
    scene->key(Qt::Key_Left);
    EXPECT_TRUE(disappears(film));
    scene->key(Qt::Key_Right);
    EXPECT_TRUE(appears(film));
    scene->key(Qt::Key_Space);
    EXPECT_TRUE(disappears(film));
    scene->key(Qt::Key_Return);
    EXPECT_TRUE(appears(film));

    scene->key(Qt::Key_Down);
    scene->key(Qt::Key_Down);
    scene->key(Qt::Key_Space);
    EXPECT_TRUE(isSelected("Films/film copy.mov"));
    scene->key(Qt::Key_Space);
    EXPECT_TRUE(store.selection().empty());
    scene->key(Qt::Key_Delete);
    EXPECT_TRUE(isSelected("Films/film copy.mov"));
    scene->key(Qt::Key_Left);
    EXPECT_EQ(currentRow(), 0);
    EXPECT_TRUE(disappears(film));

    scene->key(Qt::Key_End);
    EXPECT_EQ(currentRow(), 3);
    scene->key(Qt::Key_Home);
    EXPECT_EQ(currentRow(), 0);
    scene->key(Qt::Key_S);
    EXPECT_EQ(currentRow(), 1) << "typing finds song.wav";
    scene->key(Qt::Key_Down);
    scene->key(Qt::Key_Return);
    EXPECT_THAT(fake.log->lines(), testing::Contains("openUrl file://" + at("Songs/song.wav")));
}

TEST_F(DuplicatesScreenTest, TheKeyboardStaysAtItsRowThroughARemovalAndAnotherSearch)
{
    searchAndShow();
    tabTo("duplicateList");
    scene->key(Qt::Key_End);
    EXPECT_EQ(currentRow(), 6);
    removeItem("Films/film.mov", 3'000'000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return currentRow() == 5; }, patience));
    search();
    scene->key(Qt::Key_Space);
    EXPECT_TRUE(isSelected("Archive/song.wav"));
}

TEST_F(DuplicatesScreenTest, TheKeyboardGoesFromTheButtonToWhatTheSearchFound)
{
    addFilmAndSong();
    scanHome();
    show();
    tabTo("duplicates.search");
    scene->key(Qt::Key_Space);
    waitForSearch();
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene->item("duplicateList")->hasActiveFocus(); }, patience));
    scene->key(Qt::Key_Down);
    EXPECT_EQ(currentRow(), 1);
}

TEST_F(DuplicatesScreenTest, WhereNothingWasFoundTheKeyboardComesBackToTheButton)
{
    add("Films/film.mov", "film", 3'000'000, 1);
    add("Films/other.mov", "other", 3'000'000, 1);
    scanHome();
    show();
    tabTo("duplicates.search");
    scene->key(Qt::Key_Space);
    waitForSearch();
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene->item("duplicates.search")->hasActiveFocus(); }, patience));
}

TEST_F(DuplicatesScreenTest, ALongListIsOnlyMadeWhereItIsSeen)
{
    addPairs(5'000);
    scanAndSearch();
    show();
    const auto made = [&] {
        int count = 0;
        for (const QQuickItem *item : rows()->property("contentItem").value<QQuickItem *>()->childItems())
            count += item->property("description").isValid() ? 1 : 0;
        return count;
    };
    EXPECT_TRUE(appears(QStringLiteral("pair0, ")));
    EXPECT_LT(made(), 60);
    tabTo("duplicateList");
    scene->key(Qt::Key_End);
    EXPECT_EQ(currentRow(), 14'999);
    EXPECT_TRUE(appears(QStringLiteral("/home/studio/B/pair4999, ")));
    EXPECT_LT(made(), 120);
    store.autoSelectDuplicates(true);
    EXPECT_TRUE(QuickScene::accessible(checkBox(QStringLiteral("/home/studio/B/pair4999")))->state().checked);
}

} // namespace
} // namespace corvane
