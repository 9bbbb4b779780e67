#include "cleanup/ui/cleanup_list_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "cleanup/cleanup_list_fixture.h"

namespace corvane {
namespace {

using testing::Contains;

// --- Sections and cards

TEST_F(CleanupListModelTest, TheGroupsStandInTheirOrderAndTheBuildFoldersLast)
{
    EXPECT_EQ(titles(QStringLiteral("header")),
              QStringList({QStringLiteral("System Junk"), QStringLiteral("Developer Junk"),
                           QStringLiteral("Personal Files to Review"), QStringLiteral("Project Build Artifacts")}));
    EXPECT_EQ(text(0, Model::SymbolRole), QStringLiteral("gearshape.2"));
    EXPECT_EQ(text(rowOf(QStringLiteral("Developer Junk")), Model::SymbolRole), QStringLiteral("hammer"));
    EXPECT_EQ(text(rowOf(QStringLiteral("Personal Files to Review")), Model::SymbolRole),
              QStringLiteral("person.crop.square"));
    EXPECT_EQ(text(rowOf(QStringLiteral("Project Build Artifacts")), Model::SymbolRole),
              QStringLiteral("folder.badge.gearshape"));
}

TEST_F(CleanupListModelTest, BeforeAMeasurementEveryCardIsThereWithoutFigures)
{
    EXPECT_EQ(titles(QStringLiteral("card")).size(), 18);
    EXPECT_EQ(text(1), caches);
    EXPECT_EQ(text(1, Model::SizeTextRole), QStringLiteral("–"));
    EXPECT_EQ(text(1, Model::CountTextRole), QString());
    EXPECT_EQ(text(0, Model::SizeTextRole), QString());
    EXPECT_FALSE(data(1, Model::CheckableRole).toBool());
}

TEST_F(CleanupListModelTest, CardsOfAGroupAreLargestFirstAndTheGroupSaysTheirSum)
{
    addFile("Library/Logs/a", 5'000'000);
    addFile("Library/Caches/b", 3'000'000);
    addFile("Library/Caches/c", 1'000'000);
    measure();
    EXPECT_EQ(text(1), QStringLiteral("Logs"));
    EXPECT_EQ(text(2), caches);
    EXPECT_EQ(text(0, Model::SizeTextRole), QStringLiteral("9 MB"));
    EXPECT_EQ(text(2, Model::SizeTextRole), QStringLiteral("4 MB"));
    EXPECT_EQ(text(2, Model::CountTextRole), QStringLiteral("2 items"));
    EXPECT_EQ(text(1, Model::CountTextRole), QStringLiteral("1 item"));
    EXPECT_EQ(text(2, Model::RiskRole), QStringLiteral("safe"));
    EXPECT_EQ(text(rowOf(QStringLiteral("Downloads")), Model::RiskRole), QStringLiteral("review"));
    EXPECT_EQ(text(2, Model::DescriptionRole), QStringLiteral("App Caches, Safe, 4 MB, 2 items"));
}

TEST_F(CleanupListModelTest, ALocationThatCannotBeReadSaysWhatItNeeds)
{
    addFile(".Trash/a", 5'000'000);
    fake.files.failOpening(at(".Trash"));
    measure();
    const int row = rowOf(QStringLiteral("Trash"));
    EXPECT_EQ(text(row, Model::SizeTextRole), QStringLiteral("–"));
    EXPECT_EQ(text(row, Model::CountTextRole), QStringLiteral("Needs Full Disk Access"));
    EXPECT_TRUE(data(row, Model::UnreadableRole).toBool());
    EXPECT_FALSE(data(row, Model::CheckableRole).toBool());
    expand(QStringLiteral("Trash"));
    EXPECT_TRUE(entries().isEmpty());
}

TEST_F(CleanupListModelTest, TheFirstAndLastRowsHaveTheCornersOfTheirBox)
{
    measure();
    expand(QStringLiteral("Downloads"));
    for (int row = 0; row < model.rowCount(); ++row) {
        const bool isHeader = text(row, Model::KindRole) == QStringLiteral("header");
        const bool followsHeader = row > 0 && text(row - 1, Model::KindRole) == QStringLiteral("header");
        const bool precedesHeader =
            row + 1 == model.rowCount() || text(row + 1, Model::KindRole) == QStringLiteral("header");
        EXPECT_EQ(data(row, Model::StartsBoxRole).toBool(), !isHeader && followsHeader) << row;
        EXPECT_EQ(data(row, Model::EndsBoxRole).toBool(), precedesHeader) << row;
    }
}

// --- Expanding

TEST_F(CleanupListModelTest, AnExpandedCardListsItsEntriesAndTheWayToIt)
{
    addFile("Library/Caches/small.db", 1'000'000);
    addFile("Library/Caches/com.framewright.studio/x", 3'000'000);
    measure();
    expand(caches);
    EXPECT_TRUE(data(1, Model::ExpandedRole).toBool());
    EXPECT_EQ(entries(), QStringList({QStringLiteral("com.framewright.studio"), QStringLiteral("small.db")}));
    EXPECT_EQ(text(2, Model::SizeTextRole), QStringLiteral("3 MB"));
    EXPECT_EQ(data(2, Model::ElideRole).toInt(), Qt::ElideRight) << "a folder's name has no extension";
    EXPECT_EQ(data(3, Model::ElideRole).toInt(), Qt::ElideMiddle);
    EXPECT_TRUE(data(2, Model::LeadsRole).toBool());
    EXPECT_FALSE(data(3, Model::LeadsRole).toBool());
    EXPECT_EQ(text(4), revealTitle);
    model.setExpanded(3, false);
    EXPECT_TRUE(entries().isEmpty()) << "closing works from any row inside";
    EXPECT_FALSE(data(1, Model::ExpandedRole).toBool());
}

TEST_F(CleanupListModelTest, EightyEntriesHaveNoCaption)
{
    addCaches(80);
    measure();
    expand(caches);
    EXPECT_EQ(entries().size(), 80);
    EXPECT_TRUE(titles(QStringLiteral("more")).isEmpty());
}

TEST_F(CleanupListModelTest, EightyOneEntriesListEightyAndACaptionWithOne)
{
    addCaches(81);
    measure();
    expand(caches);
    EXPECT_EQ(entries().size(), 80);
    EXPECT_EQ(entries().last(), QStringLiteral("cache79")) << "the smallest is the one left out";
    EXPECT_EQ(titles(QStringLiteral("more")), QStringList(QStringLiteral("+ 1 smaller item")));
    EXPECT_EQ(text(rowOf(QStringLiteral("+ 1 smaller item")) + 1), revealTitle);
}

TEST_F(CleanupListModelTest, TheCaptionCountsWhatIsLeftOut)
{
    addCaches(1'282);
    measure();
    expand(caches);
    EXPECT_EQ(titles(QStringLiteral("more")), QStringList(QStringLiteral("+ 1,202 smaller items")));
    EXPECT_EQ(text(1, Model::CountTextRole), QStringLiteral("1,282 items"));
}

TEST_F(CleanupListModelTest, OpeningTakesItsTimeAndClosingKeepsTheRowsUntilItIsDone)
{
    Theme::instance()->setReducedMotion(false);
    addCaches(2);
    measure();
    expand(caches);
    EXPECT_EQ(entries().size(), 2);
    EXPECT_LT(data(2, Model::OpeningRole).toDouble(), 0.2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return data(2, Model::OpeningRole).toDouble() == 1; }));

    model.setExpanded(1, false);
    EXPECT_FALSE(data(1, Model::ExpandedRole).toBool());
    EXPECT_EQ(entries().size(), 2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return entries().isEmpty(); }));
}

TEST_F(CleanupListModelTest, ACardThatIsOpenedAgainWhileItClosesStaysOpen)
{
    Theme::instance()->setReducedMotion(false);
    addCaches(2);
    measure();
    expand(caches);
    QTest::qWait(60);
    model.setExpanded(1, false);
    QTest::qWait(30);
    model.setExpanded(1, true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return data(2, Model::OpeningRole).toDouble() == 1; }));
    QTest::qWait(250);
    EXPECT_EQ(entries().size(), 2);
}

TEST_F(CleanupListModelTest, WithReducedMotionACardIsOpenAtOnce)
{
    addCaches(2);
    measure();
    expand(caches);
    EXPECT_EQ(data(2, Model::OpeningRole).toDouble(), 1);
    model.setExpanded(1, false);
    EXPECT_TRUE(entries().isEmpty());
}

// --- Following the store

TEST_F(CleanupListModelTest, ANewMeasurementMovesTheRowsAndResetsNothing)
{
    addFile("Library/Caches/a", 3'000'000);
    addFile("Library/Logs/b", 2'000'000);
    measure();
    expand(caches);
    const QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    const QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
    const QPersistentModelIndex card = model.index(rowOf(caches));
    addFile("Library/Logs/c", 9'000'000);
    addFile("Library/Caches/d", 4'000'000);
    measure();
    EXPECT_EQ(text(1), QStringLiteral("Logs"));
    EXPECT_EQ(card.row(), 2);
    EXPECT_EQ(entries(), QStringList({QStringLiteral("d"), QStringLiteral("a")})) << "it is still expanded";
    EXPECT_GT(moved.count(), 0);
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(CleanupListModelTest, AfterARemovalTheRowIsGoneAndTheFiguresFollow)
{
    addFile("Library/Caches/a", 3'000'000);
    addFile("Library/Caches/b", 2'000'000);
    measure();
    expand(caches);
    const QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    removeItem("Library/Caches/a", 3'000'000);
    EXPECT_EQ(entries(), QStringList(QStringLiteral("b")));
    EXPECT_EQ(removed.count(), 1);
    EXPECT_EQ(text(1, Model::SizeTextRole), QStringLiteral("2 MB"));
    EXPECT_EQ(text(0, Model::SizeTextRole), QStringLiteral("2 MB"));
    EXPECT_EQ(text(1, Model::CountTextRole), QStringLiteral("1 item"));
}

// --- Selecting

TEST_F(CleanupListModelTest, ACardsToggleSelectsItsEntriesAndShowsTheirState)
{
    addFile("Library/Caches/a", 3'000'000);
    addFile("Library/Caches/b", 2'000'000);
    measure();
    expand(caches);
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.toggle(2);
    EXPECT_TRUE(isSelected("Library/Caches/a"));
    EXPECT_EQ(store.selectedTotal(), 3'000'000);
    EXPECT_EQ(data(2, Model::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(data(1, Model::CheckStateRole).toInt(), Qt::PartiallyChecked);
    EXPECT_GT(changed.count(), 0);
    model.toggle(1);
    EXPECT_EQ(data(1, Model::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(store.selectedTotal(), 5'000'000);
    model.toggle(1);
    EXPECT_TRUE(store.selection().empty());
    EXPECT_EQ(data(1, Model::CheckStateRole).toInt(), Qt::Unchecked);
}

TEST_F(CleanupListModelTest, ACardSelectsWhatItDoesNotListToo)
{
    addCaches(100);
    measure();
    model.toggle(rowOf(caches));
    EXPECT_EQ(store.selection().size(), 100u);
}

TEST_F(CleanupListModelTest, OnlyItemsAndCardsCanBeToggled)
{
    measure();
    expand(caches);
    for (int row = 0; row < model.rowCount(); ++row)
        model.toggle(row);
    EXPECT_TRUE(store.selection().empty());
}

// --- Row actions

TEST_F(CleanupListModelTest, TheLastRowOfACardLeadsToTheLocation)
{
    addFile("Library/Caches/a", 3'000'000);
    measure();
    expand(caches);
    model.activate(rowOf(revealTitle));
    EXPECT_THAT(fake.log->lines(), Contains("reveal " + at("Library/Caches")));
}

TEST_F(CleanupListModelTest, ALocationThatDoesNotExistOffersNoWayToIt)
{
    fake.files.addFolder(at("Library/Logs"));
    measure();
    expand(QStringLiteral("Logs"));
    EXPECT_EQ(titles(QStringLiteral("reveal")).size(), 1) << "empty, but there";
    EXPECT_TRUE(titles(QStringLiteral("missing")).isEmpty());
    model.setExpanded(rowOf(QStringLiteral("Logs")), false);

    expand(caches);
    EXPECT_TRUE(titles(QStringLiteral("reveal")).isEmpty());
    EXPECT_EQ(titles(QStringLiteral("missing")), QStringList(QStringLiteral("This folder does not exist.")));

    addFile("Library/Caches/a", 3'000'000);
    measure();
    EXPECT_EQ(titles(QStringLiteral("reveal")).size(), 1);
    EXPECT_TRUE(titles(QStringLiteral("missing")).isEmpty());
}

TEST_F(CleanupListModelTest, BeforeAMeasurementNoWayToALocationIsOffered)
{
    expand(caches);
    EXPECT_TRUE(titles(QStringLiteral("reveal")).isEmpty());
    EXPECT_TRUE(titles(QStringLiteral("missing")).isEmpty());
}

TEST_F(CleanupListModelTest, TheMenuOfAnEntryOffersTheMapOnlyWhereItCanShowIt)
{
    addFile("Library/Caches/a/x", 3'000'000);
    measure();
    expand(caches);
    ASSERT_TRUE(model.prepareMenu(2));
    EXPECT_EQ(model.menuTarget()->title(), QStringLiteral("a"));
    EXPECT_EQ(model.menuTarget()->openText(), QStringLiteral("Open in Space Map"));
    EXPECT_FALSE(model.menuTarget()->canOpen()) << "nothing is scanned";
    EXPECT_TRUE(model.menuTarget()->canSelect());
    model.menuTarget()->toggleSelection();
    EXPECT_EQ(store.selectedTotal(), 3'000'000);

    scanHome();
    ASSERT_TRUE(model.prepareMenu(2));
    EXPECT_TRUE(model.menuTarget()->canOpen());
    model.menuTarget()->open();
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);
    EXPECT_EQ(store.currentFolder()->name, "a");
    EXPECT_FALSE(model.prepareMenu(1)) << "a card has none";
}

TEST_F(CleanupListModelTest, OnlyWhatCanBeUsedIsAStopOfTheKeyboard)
{
    addFile("Library/Caches/a", 3'000'000);
    measure();
    const auto isStop = [&](int row) { return model.flags(model.index(row)).testFlag(Qt::ItemIsEnabled); };
    const int header = rowOf(QStringLiteral("Developer Junk"));
    EXPECT_FALSE(isStop(header));
    EXPECT_TRUE(isStop(header + 1)) << "a card";
    EXPECT_TRUE(isStop(model.rowCount() - 1)) << "the way to a scan";

    addFile("notes.txt", 1'000);
    scanHome();
    ASSERT_EQ(text(model.rowCount() - 1, Model::KindRole), QStringLiteral("none"));
    EXPECT_FALSE(isStop(model.rowCount() - 1));
}

TEST_F(CleanupListModelTest, TheCardOfARowIsTheOneAboveIt)
{
    addFile("Library/Caches/a", 3'000'000);
    measure();
    expand(caches);
    EXPECT_EQ(model.cardRow(2), 1);
    EXPECT_EQ(model.cardRow(3), 1);
    EXPECT_EQ(model.cardRow(4), 4);
}

// --- Many

TEST_F(CleanupListModelTest, WithThousandsOfItemsOnlyChangesAreAnnounced)
{
    addCaches(10'000);
    for (int i = 0; i < 5'000; ++i)
        addProject("p" + std::to_string(i), 1'000'000 + i * 4'096);
    scanHome();
    ASSERT_EQ(titles(QStringLiteral("artifact")).size(), 5'000);
    expand(caches);
    const int rows = model.rowCount();

    const QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    const QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    const QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    select("Projects/p7/node_modules");
    EXPECT_FALSE(changed.isEmpty());
    store.finishCleanup(store.cleanupItems(), store.cleanupToken());
    EXPECT_EQ(model.rowCount(), rows);
    EXPECT_EQ(reset.count() + inserted.count() + removed.count(), 0);
    EXPECT_LE(changed.count(), 4);
}

} // namespace
} // namespace corvane
