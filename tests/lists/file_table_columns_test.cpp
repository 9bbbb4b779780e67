#include "lists/ui/file_table_columns.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

namespace corvane {
namespace {

class FileTableColumnsTest : public testing::Test {
protected:
    FileTableColumnsTest() { columns.setRoom(986); }

    [[nodiscard]] qreal sum() const
    {
        return columns.nameWidth() + columns.sizeWidth() + columns.kindWidth() + columns.modifiedWidth() +
               columns.locationWidth();
    }

    void resize(FileColumn column, qreal by) { columns.resize(static_cast<int>(column), by); }

    FileTableColumns columns;
};

TEST_F(FileTableColumnsTest, NamesAndLocationsShareWhatIsLeft)
{
    EXPECT_EQ(columns.nameWidth(), 382);
    EXPECT_EQ(columns.sizeWidth(), 92);
    EXPECT_EQ(columns.kindWidth(), 160);
    EXPECT_EQ(columns.modifiedWidth(), 108);
    EXPECT_EQ(columns.locationWidth(), 244);
    columns.setRoom(1'386);
    EXPECT_EQ(columns.nameWidth(), 622);
    EXPECT_EQ(sum(), 1'386);
}

TEST_F(FileTableColumnsTest, ANarrowTableHasLessRoomForKinds)
{
    columns.setWide(false);
    EXPECT_EQ(columns.kindWidth(), 120);
    EXPECT_EQ(sum(), 986);
}

TEST_F(FileTableColumnsTest, AResizedColumnLeavesThoseAtItsLeftWhereTheyAre)
{
    const QSignalSpy changed(&columns, &FileTableColumns::changed);
    resize(FileColumn::kind, 40);
    EXPECT_EQ(columns.nameWidth(), 382);
    EXPECT_EQ(columns.kindWidth(), 200);
    EXPECT_EQ(columns.modifiedWidth(), 108);
    EXPECT_EQ(columns.locationWidth(), 204);
    EXPECT_EQ(changed.count(), 1);
    resize(FileColumn::size, -20);
    EXPECT_EQ(columns.nameWidth(), 382);
    EXPECT_EQ(columns.sizeWidth(), 72);
    resize(FileColumn::name, -82);
    EXPECT_EQ(columns.nameWidth(), 300);
    resize(FileColumn::modified, 10);
    EXPECT_EQ(columns.modifiedWidth(), 118);
    EXPECT_EQ(columns.nameWidth(), 300);
    EXPECT_EQ(sum(), 986);
}

TEST_F(FileTableColumnsTest, NoColumnIsResizedAway)
{
    for (const auto column :
         {FileColumn::name, FileColumn::size, FileColumn::kind, FileColumn::modified, FileColumn::location}) {
        resize(column, -5'000);
        resize(column, 9'000);
        EXPECT_GE(columns.nameWidth(), FileTableColumns::leastNameWidth);
        EXPECT_GE(columns.sizeWidth(), FileTableColumns::leastWidth);
        EXPECT_GE(columns.kindWidth(), FileTableColumns::leastWidth);
        EXPECT_GE(columns.modifiedWidth(), FileTableColumns::leastWidth);
        EXPECT_GE(columns.locationWidth(), FileTableColumns::leastLocationWidth);
        EXPECT_EQ(sum(), 986);
    }
}

TEST_F(FileTableColumnsTest, AResizedColumnKeepsItsWidthInAnotherRoom)
{
    resize(FileColumn::kind, 40);
    columns.setRoom(1'200);
    columns.setWide(false);
    EXPECT_EQ(columns.kindWidth(), 200);
    EXPECT_EQ(sum(), 1'200);
}

} // namespace
} // namespace corvane
