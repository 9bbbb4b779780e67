#include "disk/ui/segment_model.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QSignalSpy>

#include "disk/sample_breakdown.h"

namespace corvane {
namespace {

using testing::ElementsAre;

class SegmentModelTest : public testing::Test {
protected:
    void show(const DiskBreakdown &disk) { model.setSegments(disk.segments, disk.used()); }
    [[nodiscard]] QVariant data(int row, int role) const { return model.data(model.index(row), role); }
    [[nodiscard]] std::string text(int row, int role) const { return data(row, role).toString().toStdString(); }
    [[nodiscard]] std::vector<std::string> ids() const
    {
        std::vector<std::string> all;
        for (int row = 0; row < model.rowCount(); ++row)
            all.push_back(text(row, SegmentModel::SegmentIdRole));
        return all;
    }

    static BreakdownSegment segment(const char *id, std::int64_t size)
    {
        BreakdownSegment made;
        made.id = id;
        made.size = size;
        return made;
    }

    SegmentModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(SegmentModelTest, RowsAreTheSegmentsInTheirOrder)
{
    show(test::sampleBreakdown());
    EXPECT_THAT(ids(), ElementsAre("scanned", "/Applications", "hidden", "/Library", "system", "support", "vm"));
}

TEST_F(SegmentModelTest, ARowHasEveryFieldOfItsSegment)
{
    show(test::sampleBreakdown());
    EXPECT_EQ(text(1, SegmentModel::TitleRole), "Applications");
    EXPECT_EQ(text(1, SegmentModel::DetailRole), "Apps.");
    EXPECT_EQ(text(1, SegmentModel::SymbolRole), "app.badge");
    EXPECT_EQ(data(1, SegmentModel::ColorRole).value<QColor>(), QColor::fromRgbF(0.24F, 0.52F, 0.98F));
    EXPECT_EQ(text(1, SegmentModel::SizeTextRole), "73.8 GB");
    EXPECT_EQ(text(1, SegmentModel::ShareTextRole), "9%");
    EXPECT_EQ(text(1, SegmentModel::ActionTitleRole), "Show in Finder");
    EXPECT_EQ(text(1, SegmentModel::DescriptionRole), "Applications, 73.8 GB, 9%");
    EXPECT_EQ(data(1, SegmentModel::LargestItemsRole).value<QList<NamedSizeText>>(),
              (QList<NamedSizeText>{{QStringLiteral("Xcode.app"), QStringLiteral("12.84 GB")}}));
    EXPECT_EQ(text(4, SegmentModel::ActionTitleRole), "");
}

TEST_F(SegmentModelTest, OnlyTheHiddenSegmentIsUnexplained)
{
    show(test::sampleBreakdown());
    for (int row = 0; row < model.rowCount(); ++row) {
        EXPECT_EQ(data(row, SegmentModel::UnexplainedRole).toBool(),
                  text(row, SegmentModel::SegmentIdRole) == "hidden");
    }
}

TEST_F(SegmentModelTest, OnlyStartingAScanNeedsThatNoneRuns)
{
    show(test::unscannedBreakdown());
    EXPECT_TRUE(data(0, SegmentModel::NeedsIdleRole).toBool());
    EXPECT_FALSE(data(1, SegmentModel::NeedsIdleRole).toBool());
    EXPECT_FALSE(data(3, SegmentModel::NeedsIdleRole).toBool());
}

TEST_F(SegmentModelTest, SharesAreWholePercentOfTheUsedSpace)
{
    const std::vector<BreakdownSegment> segments{segment("a", 994), segment("b", 6)};
    model.setSegments(segments, 1000);
    EXPECT_EQ(text(0, SegmentModel::ShareTextRole), "99%");
    EXPECT_EQ(text(1, SegmentModel::ShareTextRole), "1%");
    model.setSegments(segments, 2000);
    EXPECT_EQ(text(1, SegmentModel::ShareTextRole), "0%");
}

TEST_F(SegmentModelTest, AShareHalfwayBetweenTwoGoesToTheEvenOne)
{
    model.setSegments({segment("a", 5), segment("b", 3), segment("c", 1)}, 200);
    EXPECT_EQ(text(0, SegmentModel::ShareTextRole), "2%");
    EXPECT_EQ(text(1, SegmentModel::ShareTextRole), "2%");
    EXPECT_EQ(text(2, SegmentModel::ShareTextRole), "0%");
}

TEST_F(SegmentModelTest, OfNothingUsedEveryShareIsZero)
{
    model.setSegments({segment("a", 994)}, 0);
    EXPECT_EQ(text(0, SegmentModel::ShareTextRole), "0%");
    model.setSegments({segment("a", 994)}, -1);
    EXPECT_EQ(text(0, SegmentModel::ShareTextRole), "0%");
}

TEST_F(SegmentModelTest, TheSameSegmentsChangeNothing)
{
    show(test::sampleBreakdown());
    const QSignalSpy changed(&model, &SegmentModel::dataChanged);
    const QSignalSpy inserted(&model, &SegmentModel::rowsInserted);
    const QSignalSpy removed(&model, &SegmentModel::rowsRemoved);
    const QSignalSpy reset(&model, &SegmentModel::modelReset);
    show(test::sampleBreakdown());
    EXPECT_EQ(changed.count() + inserted.count() + removed.count() + reset.count(), 0);
}

TEST_F(SegmentModelTest, AScanExchangesOneRowAndMovesOthers)
{
    show(test::unscannedBreakdown());
    const QSignalSpy reset(&model, &SegmentModel::modelReset);
    const QSignalSpy inserted(&model, &SegmentModel::rowsInserted);
    const QSignalSpy moved(&model, &SegmentModel::rowsMoved);
    const QSignalSpy removed(&model, &SegmentModel::rowsRemoved);

    show(test::sampleBreakdown());

    EXPECT_THAT(ids(), ElementsAre("scanned", "/Applications", "hidden", "/Library", "system", "support", "vm"));
    EXPECT_EQ(text(2, SegmentModel::TitleRole), "Hidden System Data");
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(moved.count(), 1);
    EXPECT_EQ(removed.count(), 0);
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(SegmentModelTest, GoneSegmentsLoseTheirRows)
{
    DiskBreakdown disk = test::sampleBreakdown();
    show(disk);
    disk.segments.erase(disk.segments.begin() + 1, disk.segments.begin() + 4);
    show(disk);
    EXPECT_THAT(ids(), ElementsAre("scanned", "system", "support", "vm"));
    model.setSegments({}, 0);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(SegmentModelTest, TwoVolumesOfOneNameAreTwoRows)
{
    std::vector<BreakdownSegment> volumes{segment("vol-Data", 5), segment("vol-Data", 3)};
    model.setSegments(volumes, 10);
    EXPECT_THAT(ids(), ElementsAre("vol-Data", "vol-Data+"));
    EXPECT_NE(model.barPart(0).id, model.barPart(1).id);

    volumes.pop_back();
    model.setSegments(volumes, 10);
    EXPECT_THAT(ids(), ElementsAre("vol-Data"));
    EXPECT_EQ(text(0, SegmentModel::ShareTextRole), "50%");
}

TEST_F(SegmentModelTest, ActionsBelongToTheirRows)
{
    show(test::sampleBreakdown());
    EXPECT_EQ(model.action(1), (BreakdownAction{BreakdownAction::Kind::reveal, "/Applications"}));
    EXPECT_EQ(model.action(4), std::nullopt);
    EXPECT_EQ(model.action(-1), std::nullopt);
    EXPECT_EQ(model.action(7), std::nullopt);
}

} // namespace
} // namespace corvane
