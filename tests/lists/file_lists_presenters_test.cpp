#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QByteArray>
#include <QLocale>
#include <QSignalSpy>

#include "lists/lists_fixture.h"
#include "lists/ui/file_catalog.h"
#include "lists/ui/large_files_presenter.h"
#include "lists/ui/old_files_presenter.h"
#include "support/patience.h"

namespace corvane {
namespace {

/// Sets or unsets the variable that overrides every category of the locale; returns its previous value.
std::optional<QByteArray> setLocale(const std::optional<QByteArray> &name)
{
    std::optional<QByteArray> former;
    if (qEnvironmentVariableIsSet("LC_ALL"))
        former = qgetenv("LC_ALL");
    if (name)
        qputenv("LC_ALL", *name);
    else
        qunsetenv("LC_ALL");
    return former;
}

class LargeFilesPresenterTest : public test::ListsFixture {
protected:
    [[nodiscard]] QStringList listed() { return names(*presenter().files()); }

    /// Created on first use, with the store's state at that time.
    LargeFilesPresenter &presenter()
    {
        if (!made)
            made.emplace(store);
        return *made;
    }

    std::optional<LargeFilesPresenter> made;
};

class OldFilesPresenterTest : public test::ListsFixture {
protected:
    [[nodiscard]] QStringList listed() { return names(*presenter().files()); }

    /// Created on first use, with the store's state at that time.
    OldFilesPresenter &presenter()
    {
        if (!made)
            made.emplace(store);
        return *made;
    }

    std::optional<OldFilesPresenter> made;
};

TEST_F(LargeFilesPresenterTest, BeforeAScanThereIsNothing)
{
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("0 items · Zero KB"));
    EXPECT_TRUE(presenter().isEmpty());
    EXPECT_EQ(presenter().selectAllText(), QStringLiteral("Select All"));
    presenter().toggleAll();
}

TEST_F(LargeFilesPresenterTest, TheChoicesAndTheirDefaults)
{
    EXPECT_EQ(presenter().sizes(), QStringList({"≥ 10 MB", "≥ 50 MB", "≥ 100 MB", "≥ 500 MB", "≥ 1 GB", "≥ 5 GB"}));
    EXPECT_EQ(presenter().sizeIndex(), 2);
    EXPECT_EQ(presenter().types(),
              QStringList({"All types", "Videos", "Photos & Images", "Audio", "Archives", "Disk Images & Installers",
                           "Apps", "Documents", "Code & Data", "Other"}));
    EXPECT_EQ(presenter().typeIndex(), 0);
    EXPECT_EQ(presenter().query(), QString());
}

TEST_F(LargeFilesPresenterTest, AFileOf100MBIsListedAndOneByteLessIsNot)
{
    addFile("exactly", 100'000'000);
    addFile("one byte less", 99'999'999);
    scanHome();
    EXPECT_EQ(listed(), QStringList({"exactly"}));
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("1 item · 100 MB"));
}

TEST_F(LargeFilesPresenterTest, TheSubtitleFollowsTheFilters)
{
    addMany();
    scanHome();
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("5 items · 3.5 GB"));
    presenter().setTypeIndex(1);
    EXPECT_EQ(listed(), QStringList({"new.mov", "Interview.mov"}));
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("2 items · 1.7 GB"));
    presenter().setSizeIndex(4);
    EXPECT_TRUE(presenter().isEmpty());
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("0 items · Zero KB"));
    presenter().setSizeIndex(0);
    presenter().setTypeIndex(0);
    EXPECT_EQ(listed().size(), 6);
    EXPECT_FALSE(presenter().isEmpty());
}

TEST_F(LargeFilesPresenterTest, ATextThatMatchesNoNameGivesTheEmptyState)
{
    addMany();
    scanHome();
    presenter().setQuery(QStringLiteral("INTERV"));
    EXPECT_EQ(listed(), QStringList({"Interview.mov"}));
    EXPECT_FALSE(presenter().isEmpty());
    presenter().setQuery(QStringLiteral("no such name"));
    EXPECT_TRUE(presenter().isEmpty());
}

TEST_F(LargeFilesPresenterTest, AFilterByNameFollowsTheLocale)
{
    addFile("ISPARTA.mov", 200 * megabyte);
    const std::optional<QByteArray> former = setLocale("tr_TR.UTF-8");
    scanHome();
    presenter(); // prepares the files in the current locale
    setLocale(former);
    presenter().setQuery(QStringLiteral("isparta"));
    EXPECT_TRUE(presenter().isEmpty()) << "in Turkish the small letter of I is another one";
    presenter().setQuery(QStringLiteral("ısparta"));
    EXPECT_EQ(listed(), QStringList({"ISPARTA.mov"}));
}

TEST_F(LargeFilesPresenterTest, TheLocaleOfDatesDoesNotChangeAFilterByName)
{
    addFile("ISPARTA.mov", 200 * megabyte);
    const std::optional<QByteArray> former = setLocale("en_US.UTF-8");
    const QLocale formerOfDates;
    QLocale::setDefault(QLocale(QStringLiteral("tr_TR")));
    scanHome();
    presenter(); // prepares the files in the current locale
    QLocale::setDefault(formerOfDates);
    setLocale(former);
    presenter().setQuery(QStringLiteral("isparta"));
    EXPECT_EQ(listed(), QStringList({"ISPARTA.mov"}));
}

TEST_F(LargeFilesPresenterTest, AChoiceThatDoesNotExistChangesNothing)
{
    addMany();
    scanHome();
    for (const int index : {-1, 99}) {
        presenter().setSizeIndex(index);
        presenter().setTypeIndex(index);
    }
    EXPECT_EQ(presenter().sizeIndex(), 2);
    EXPECT_EQ(presenter().typeIndex(), 0);
    EXPECT_EQ(listed().size(), 5);
}

TEST_F(LargeFilesPresenterTest, ASortOnAColumnKeepsTheFilter)
{
    addMany();
    scanHome();
    presenter().setTypeIndex(4);
    presenter().files()->sortBy(static_cast<int>(FileColumn::name));
    EXPECT_EQ(listed(), QStringList({"Old.zip", "rushes.zip"}));
    presenter().files()->sortBy(static_cast<int>(FileColumn::name));
    EXPECT_EQ(listed(), QStringList({"rushes.zip", "Old.zip"}));
    presenter().setTypeIndex(0);
    EXPECT_EQ(listed().first(), QStringLiteral("undated.pdf"));
}

TEST_F(LargeFilesPresenterTest, SelectAllTakesTheFilteredListAtOnceAndThenDeselectsIt)
{
    addMany();
    scanHome();
    presenter().setTypeIndex(1);
    const QSignalSpy selections(&store, &StorageStore::selectionChanged);
    presenter().toggleAll();
    EXPECT_EQ(selections.count(), 1);
    EXPECT_EQ(store.selectedTotal(), 1'700 * megabyte);
    EXPECT_EQ(presenter().selectAllText(), QStringLiteral("Deselect All"));
    presenter().setTypeIndex(0);
    EXPECT_EQ(presenter().selectAllText(), QStringLiteral("Select All")) << "others are listed that are not selected";
    presenter().setTypeIndex(1);
    EXPECT_EQ(presenter().selectAllText(), QStringLiteral("Deselect All"));
    presenter().toggleAll();
    EXPECT_TRUE(store.selection().empty());
    EXPECT_EQ(presenter().selectAllText(), QStringLiteral("Select All"));
    EXPECT_EQ(selections.count(), 2);
}

TEST_F(LargeFilesPresenterTest, AProtectedFileDoesNotKeepTheOthersFromBeingAllSelected)
{
    addMany();
    addFile(".ssh/image.iso", 300 * megabyte);
    scanHome();
    presenter().toggleAll();
    EXPECT_EQ(store.selection().size(), 5U);
    EXPECT_EQ(presenter().selectAllText(), QStringLiteral("Deselect All"));
}

TEST_F(LargeFilesPresenterTest, WhatIsRemovedLeavesTheList)
{
    addMany();
    scanHome();
    removeItem("Movies/new.mov", 900 * megabyte);
    EXPECT_EQ(listed().first(), QStringLiteral("Interview.mov"));
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("4 items · 2.6 GB"));
}

TEST_F(LargeFilesPresenterTest, TheTypeThatWasAskedForIsTakenOnce)
{
    addMany();
    scanHome();
    store.showLargeFiles(FileType::archive);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::large);
    LargeFilesPresenter asked(store);
    EXPECT_EQ(asked.typeIndex(), 4);
    EXPECT_EQ(names(*asked.files()), QStringList({"rushes.zip", "Old.zip"}));
    LargeFilesPresenter later(store);
    EXPECT_EQ(later.typeIndex(), 0) << "a screen that is made anew begins with the defaults";
}

TEST_F(LargeFilesPresenterTest, MoreFilesThanAreReadyAtOnceComeFromTheBackground)
{
    for (std::size_t i = 0; i <= FileCatalog::mostAtOnce; ++i)
        addFile("Films/film" + std::to_string(i) + ".mov", 100 * megabyte + static_cast<std::int64_t>(i));
    scanHome();
    EXPECT_TRUE(presenter().isPreparing());
    EXPECT_FALSE(presenter().isEmpty()) << "nothing is known yet";
    ASSERT_TRUE(QTest::qWaitFor([&] { return !presenter().isPreparing(); }, patience));
    EXPECT_EQ(presenter().files()->rowCount(), 20'001);
    EXPECT_EQ(data(*presenter().files(), 0, FileTableModel::NameRole), QStringLiteral("film20000.mov"));
}

TEST_F(OldFilesPresenterTest, TheChoicesAndTheirDefaults)
{
    EXPECT_EQ(presenter().ages(), QStringList({"6 months", "1 year", "2 years", "3 years", "5 years"}));
    EXPECT_EQ(presenter().ageIndex(), 1);
    EXPECT_EQ(presenter().sizes(), QStringList({"≥ 1 MB", "≥ 10 MB", "≥ 100 MB", "≥ 1 GB"}));
    EXPECT_EQ(presenter().sizeIndex(), 1);
}

TEST_F(OldFilesPresenterTest, AFileOfUnknownDateIsNeverListed)
{
    addMany();
    scanHome();
    for (int age = 0; age < 5; ++age) {
        presenter().setAgeIndex(age);
        EXPECT_FALSE(listed().contains(QStringLiteral("undated.pdf")));
    }
}

TEST_F(OldFilesPresenterTest, TheHeaderNamesTheAge)
{
    addMany();
    scanHome();
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("4 items untouched for 1 year · 2.12 GB"));
    presenter().setAgeIndex(2);
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("4 items untouched for 2 years · 2.12 GB"));
    presenter().setAgeIndex(0);
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("4 items untouched for 6 months · 2.12 GB"));
    presenter().setAgeIndex(4);
    presenter().setSizeIndex(2);
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("1 item untouched for 5 years · 600 MB"));
}

TEST_F(OldFilesPresenterTest, TheCutOffIsTheCalendars)
{
    addFile("before", 50 * megabyte, date(2023, 2, 27));
    addFile("on the day", 40 * megabyte, date(2023, 2, 28) + std::chrono::hours(1));
    now = date(2024, 2, 29);
    scanHome();
    EXPECT_EQ(listed(), QStringList({"before"})) << "a year before 29 February is 28 February";
}

TEST_F(OldFilesPresenterTest, NothingThatOldGivesTheEmptyState)
{
    addFile("new.mov", 900 * megabyte, date(2026, 11, 1));
    scanHome();
    EXPECT_TRUE(presenter().isEmpty());
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("0 items untouched for 1 year · Zero KB"));
}

} // namespace
} // namespace corvane
