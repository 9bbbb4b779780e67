#include "duplicates/ui/duplicate_list_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QSignalSpy>

#include "duplicates/duplicates_ui_fixture.h"

namespace corvane {
namespace {

using Model = DuplicateListModel;
using testing::Contains;

class DuplicateListModelTest : public test::DuplicatesFixture {
protected:
    [[nodiscard]] QVariant data(int row, int role) const { return model.data(model.index(row), role); }
    [[nodiscard]] QString text(int row, int role = Model::TitleRole) const { return data(row, role).toString(); }
    [[nodiscard]] QStringList titles() const
    {
        QStringList result;
        for (int row = 0; row < model.rowCount(); ++row)
            result << text(row);
        return result;
    }
    [[nodiscard]] int rowOf(const QString &title) const { return static_cast<int>(titles().indexOf(title)); }
    [[nodiscard]] Qt::CheckState checkState(int row) const
    {
        return static_cast<Qt::CheckState>(data(row, Model::CheckStateRole).toInt());
    }

    DuplicateListModel model{store};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

const QString film = QStringLiteral("/home/studio/Films/film.mov");
const QString filmCopy = QStringLiteral("/home/studio/Films/film copy.mov");
const QString oldFilm = QStringLiteral("/home/studio/Archive/film.mov");
const QString song = QStringLiteral("/home/studio/Songs/song.wav");
const QString oldSong = QStringLiteral("/home/studio/Archive/song.wav");
const QString filmGroup = QStringLiteral("film.mov");
const QString songGroup = QStringLiteral("song.wav");

TEST_F(DuplicateListModelTest, BeforeASearchThereAreNoRows)
{
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(DuplicateListModelTest, AGroupHasTheNameOfItsFirstFileAndItsFilesFollowNewestFirst)
{
    addFilmAndSong();
    scanAndSearch();
    EXPECT_EQ(titles(), QStringList({filmGroup, film, filmCopy, oldFilm, songGroup, song, oldSong}));
    EXPECT_EQ(text(0, Model::KindRole), QStringLiteral("group"));
    EXPECT_EQ(text(1, Model::KindRole), QStringLiteral("file"));
}

TEST_F(DuplicateListModelTest, AGroupSaysHowManyCopiesThereAreAndWhatTheyWaste)
{
    addFilmAndSong();
    scanAndSearch();
    EXPECT_EQ(text(0, Model::NoteRole), QStringLiteral("3 × 3 MB"));
    EXPECT_EQ(text(0, Model::WastedRole), QStringLiteral("6 MB wasted"));
    EXPECT_EQ(text(0, Model::DescriptionRole), QStringLiteral("film.mov, 3 × 3 MB, 6 MB wasted"));
    EXPECT_EQ(text(1, Model::WastedRole), QString());
}

TEST_F(DuplicateListModelTest, AFileSaysWhenItWasChangedLast)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    addFilmAndSong();
    scanAndSearch();
    EXPECT_TRUE(text(1, Model::NoteRole).startsWith(QStringLiteral("Modified 31 Jan 2024 at ")))
        << text(1, Model::NoteRole).toStdString();
    QLocale::setDefault(QLocale::c());
}

TEST_F(DuplicateListModelTest, AFileWithoutADateSaysSoAndIsTheOldest)
{
    addFilmAndSong();
    add("Archive/undated.mov", "film", 3'000'000, -1);
    scanAndSearch();
    const int undated = rowOf(QStringLiteral("/home/studio/Archive/undated.mov"));
    EXPECT_EQ(undated, 4);
    EXPECT_EQ(text(undated, Model::NoteRole), QStringLiteral("Unknown date"));
    store.autoSelectDuplicates(false);
    EXPECT_EQ(checkState(undated), Qt::Unchecked);
    EXPECT_EQ(checkState(1), Qt::Checked);
}

TEST_F(DuplicateListModelTest, KeepingTheNewestNeverSelectsTheRowMarkedNewest)
{
    addFilmAndSong();
    addPairs(20);
    scanAndSearch();
    store.autoSelectDuplicates(true);
    int newest = 0;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (text(row, Model::KindRole) == QStringLiteral("group"))
            continue;
        const bool isNewest = data(row, Model::NewestRole).toBool();
        EXPECT_EQ(checkState(row), isNewest ? Qt::Unchecked : Qt::Checked) << text(row).toStdString();
        newest += isNewest ? 1 : 0;
    }
    EXPECT_EQ(newest, 22);
}

TEST_F(DuplicateListModelTest, AnotherNameOfOneFileSaysWithWhatItSharesItsStorage)
{
    addFilmAndSong();
    fake.files.identify(at("Films/film copy.mov"), at("Films/film.mov"));
    fake.files.identify(at("Archive/film.mov"), at("Films/film.mov"));
    scanAndSearch();
    EXPECT_FALSE(text(rowOf(film), Model::NoteRole).contains(QStringLiteral("Shares")));
    EXPECT_TRUE(text(rowOf(filmCopy), Model::NoteRole).endsWith(QStringLiteral(" · Shares its storage with film.mov")));
    EXPECT_TRUE(text(rowOf(oldFilm), Model::NoteRole).endsWith(QStringLiteral(" · Shares its storage with ") + film))
        << "the folder tells files of one name apart";
    EXPECT_EQ(text(rowOf(filmGroup), Model::WastedRole), QStringLiteral("Zero KB wasted"));
}

TEST_F(DuplicateListModelTest, TheFilesOfAGroupStandInOneBox)
{
    addFilmAndSong();
    scanAndSearch();
    QList<int> starts;
    QList<int> ends;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (data(row, Model::StartsBoxRole).toBool())
            starts << row;
        if (data(row, Model::EndsBoxRole).toBool())
            ends << row;
    }
    EXPECT_EQ(starts, QList<int>({1, 5}));
    EXPECT_EQ(ends, QList<int>({3, 6}));
}

TEST_F(DuplicateListModelTest, AGroupFoldsAndUnfoldsFromAnyOfItsRows)
{
    addFilmAndSong();
    scanAndSearch();
    model.setExpanded(2, false);
    EXPECT_EQ(titles(), QStringList({filmGroup, songGroup, song, oldSong}));
    EXPECT_FALSE(data(0, Model::ExpandedRole).toBool());
    model.activate(0);
    EXPECT_EQ(model.rowCount(), 7);
    EXPECT_TRUE(data(0, Model::ExpandedRole).toBool());
    EXPECT_EQ(model.groupRow(3), 0);
    EXPECT_EQ(model.groupRow(4), 4);
}

TEST_F(DuplicateListModelTest, AFoldedGroupStaysFoldedThroughRemovalsAndAnotherSearch)
{
    addFilmAndSong();
    scanAndSearch();
    model.setExpanded(0, false);
    removeItem("Films/film.mov", 3'000'000);
    EXPECT_EQ(titles(), QStringList({QStringLiteral("film copy.mov"), songGroup, song, oldSong}));
    search();
    EXPECT_EQ(titles(), QStringList({QStringLiteral("film copy.mov"), songGroup, song, oldSong}));
}

TEST_F(DuplicateListModelTest, RowsKeepTheirPlacesThroughAnotherSearch)
{
    addFilmAndSong();
    scanAndSearch();
    const QPersistentModelIndex group(model.index(rowOf(songGroup)));
    const QPersistentModelIndex file(model.index(rowOf(oldSong)));
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    search();
    EXPECT_EQ(removed.count(), 0);
    EXPECT_EQ(reset.count(), 0);
    EXPECT_EQ(group.row(), 4);
    EXPECT_EQ(file.row(), 6);
}

TEST_F(DuplicateListModelTest, ARemovedFileLeavesItsRowAndTheNextOneBecomesTheNewest)
{
    addFilmAndSong();
    scanAndSearch();
    const QPersistentModelIndex group(model.index(0));
    const QPersistentModelIndex next(model.index(2));
    removeItem("Films/film.mov", 3'000'000);
    EXPECT_EQ(group.row(), 0);
    EXPECT_EQ(next.row(), 1);
    EXPECT_TRUE(next.data(Model::NewestRole).toBool());
    EXPECT_TRUE(next.data(Model::StartsBoxRole).toBool());
    EXPECT_EQ(text(0, Model::NoteRole), QStringLiteral("2 × 3 MB"));
}

TEST_F(DuplicateListModelTest, AGroupOfWhichOneFileIsLeftGoes)
{
    addFilmAndSong();
    scanAndSearch();
    removeItem("Songs/song.wav", 2'000'000);
    EXPECT_EQ(titles(), QStringList({filmGroup, film, filmCopy, oldFilm}));
}

TEST_F(DuplicateListModelTest, AScanTakesAllRowsAway)
{
    addFilmAndSong();
    scanAndSearch();
    model.setExpanded(0, false);
    scanHome();
    EXPECT_EQ(model.rowCount(), 0);
    QSignalSpy replaced(&model, &Model::replaced);
    search();
    EXPECT_EQ(replaced.count(), 1);
    EXPECT_EQ(model.rowCount(), 7);
}

TEST_F(DuplicateListModelTest, ATickSelectsAFileWithItsSizeAndAnotherTakesItOut)
{
    addFilmAndSong();
    scanAndSearch();
    model.toggle(rowOf(oldFilm));
    EXPECT_EQ(store.selection(), (Selection{{at("Archive/film.mov"), 3'000'000}}));
    EXPECT_EQ(checkState(rowOf(oldFilm)), Qt::Checked);
    model.toggle(rowOf(oldFilm));
    EXPECT_TRUE(store.selection().empty());
    model.select(rowOf(oldFilm));
    model.select(rowOf(oldFilm));
    EXPECT_TRUE(isSelected("Archive/film.mov"));
}

TEST_F(DuplicateListModelTest, AGroupIsNeverSelectedAsAWhole)
{
    addFilmAndSong();
    scanAndSearch();
    model.select(0);
    EXPECT_TRUE(store.selection().empty());
    model.toggle(0);
    EXPECT_TRUE(store.selection().empty());
    EXPECT_FALSE(data(0, Model::ExpandedRole).toBool());
}

TEST_F(DuplicateListModelTest, WhatLiesInASelectedFolderSaysSoAndCannotBeChanged)
{
    addFilmAndSong();
    scanAndSearch();
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    store.setSelected(at("Archive"), 5'000'000, true);
    EXPECT_EQ(changes.count(), 1) << "one announcement for all rows";
    EXPECT_EQ(checkState(rowOf(oldFilm)), Qt::Checked);
    EXPECT_FALSE(data(rowOf(oldFilm), Model::CheckableRole).toBool());
    EXPECT_EQ(text(rowOf(oldFilm), Model::CheckReasonRole), QStringLiteral("Inside a selected folder"));
    model.toggle(rowOf(oldFilm));
    ASSERT_TRUE(store.toast());
    EXPECT_EQ(*store.toast(), "film.mov can't be selected: inside a selected folder");
}

TEST_F(DuplicateListModelTest, AFileInAProtectedPlaceSaysSoAndCannotBeSelected)
{
    add("Films/library.dat", "library", 4'000'000, 10);
    fake.files.addText("/usr/lib/library.dat", "library", 4'000'000);
    store.scan("/");
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, patience));
    search();
    const int row = rowOf(QStringLiteral("/usr/lib/library.dat"));
    ASSERT_EQ(row, 2);
    EXPECT_FALSE(data(row, Model::CheckableRole).toBool());
    EXPECT_EQ(text(row, Model::CheckReasonRole), QStringLiteral("Protected location"));
    model.toggle(row);
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(DuplicateListModelTest, AFileIsRevealedAndOpenedAndAGroupIsNot)
{
    addFilmAndSong();
    scanAndSearch();
    model.reveal(0);
    EXPECT_FALSE(model.prepareMenu(0));
    EXPECT_THAT(fake.log->linesStartingWith("reveal "), testing::IsEmpty());
    model.reveal(1);
    EXPECT_THAT(fake.log->lines(), Contains("reveal " + at("Films/film.mov")));
    model.activate(1);
    EXPECT_THAT(fake.log->lines(), Contains("openUrl file://" + at("Films/film.mov")));
    EXPECT_TRUE(model.prepareMenu(2));
    EXPECT_TRUE(model.menuTarget()->canSelect());
}

TEST_F(DuplicateListModelTest, FilesAreFoundByTypingTheirNamesNotTheirPaths)
{
    addFilmAndSong();
    scanAndSearch();
    EXPECT_EQ(text(0, Qt::DisplayRole), filmGroup);
    EXPECT_EQ(text(2, Qt::DisplayRole), QStringLiteral("film copy.mov"));
}

TEST_F(DuplicateListModelTest, RowsThatDoNotExistDoNothing)
{
    model.activate(-1);
    model.setExpanded(7, false);
    model.toggle(7);
    model.reveal(7);
    EXPECT_FALSE(model.prepareMenu(7));
    EXPECT_EQ(model.groupRow(-1), -1);
}

} // namespace
} // namespace corvane
