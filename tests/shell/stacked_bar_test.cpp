#include "shell/ui/stacked_bar.h"

#include <gtest/gtest.h>

#include <QHoverEvent>
#include <QSignalSpy>

#include "shell/quick_scene.h"
#include "shell/ui/theme.h"

namespace corvane {
namespace {

/// A bar of 206 points with three parts: a and b of equal size, c almost empty; then "Free".
class StackedBarTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(scene.isShown()) << scene.errors().toStdString();
        bar = scene.window()->findChild<StackedBar *>(QStringLiteral("bar"));
        ASSERT_NE(bar, nullptr);
        bar->setParts(parts);
        QTest::mouseMove(scene.window(), QPoint(1, 1));
        QTest::qWait(1);
    }

    void pointAt(qreal x, qreal y = 10)
    {
        QTest::mouseMove(scene.window(), bar->mapToScene(QPointF(x, y)).toPoint());
        QTest::qWait(1);
    }
    void click(qreal x)
    {
        QTest::mouseClick(scene.window(), Qt::LeftButton, Qt::NoModifier, bar->mapToScene(QPointF(x, 10)).toPoint());
    }
    [[nodiscard]] QColor pixel(int x) const { return bar->picture(1).pixelColor(x, 15); }

    const QList<StackedBarPart> parts{
        {QStringLiteral("a"), QStringLiteral("Films"), QStringLiteral("1 GB"), QColor(200, 0, 0), 1'000'000'000},
        {QStringLiteral("b"), QStringLiteral("Music"), QStringLiteral("1 GB"), QColor(0, 200, 0), 1'000'000'000},
        {QStringLiteral("c"), QStringLiteral("Notes"), QStringLiteral("1 byte"), QColor(0, 0, 200), 1},
        {QStringLiteral("free"), QStringLiteral("Free"), QStringLiteral("1 GB"), QColor(120, 120, 120), 1'000'000'000}};
    QuickScene scene{"StackedBar { id: bar; objectName: \"bar\"; x: 50; y: 50; width: 209; height: 30; radius: 7;"
                     " interactive: true; labelledPart: \"free\"; FocusRing { objectName: \"ring\";"
                     " visible: bar.visualFocus } }"
                     "PushButton { objectName: \"other\"; x: 50; y: 200; text: \"Other\" }"};
    StackedBar *bar = nullptr;
};

TEST_F(StackedBarTest, ThePartUnderThePointerIsTheCurrentOne)
{
    EXPECT_EQ(bar->current(), QString());
    const QSignalSpy changes(bar, &StackedBar::currentChanged);

    pointAt(30);
    EXPECT_EQ(bar->current(), QStringLiteral("a"));
    EXPECT_EQ(bar->currentPart(), parts[0]);
    pointAt(100);
    EXPECT_EQ(bar->current(), QStringLiteral("b"));
    pointAt(205);
    EXPECT_EQ(bar->current(), QStringLiteral("free"));
    pointAt(205, 80);
    EXPECT_EQ(bar->current(), QString());
    EXPECT_EQ(bar->currentPart(), StackedBarPart());
    EXPECT_EQ(changes.count(), 4);
}

TEST_F(StackedBarTest, ThePartOfOneByteIsSeenAndCanBePointedAt)
{
    const BarPart &place = bar->layout()[2];
    EXPECT_EQ(place.width, 3);
    EXPECT_EQ(pixel(qRound(place.x) + 1), QColor(0, 0, 200));

    pointAt(place.x + 1.5);
    EXPECT_EQ(bar->current(), QStringLiteral("c"));
}

TEST_F(StackedBarTest, AGapBelongsToThePartBeforeIt)
{
    const BarPart &place = bar->layout()[0];
    pointAt(place.x + place.width + 1);
    EXPECT_EQ(bar->current(), QStringLiteral("a"));
}

TEST_F(StackedBarTest, TheOtherPartsAreDimmedButNotTheLabelledOne)
{
    EXPECT_EQ(pixel(30), QColor(200, 0, 0));
    bar->setCurrent(QStringLiteral("b"));
    EXPECT_NEAR(pixel(30).alphaF(), 0.34, 0.01);
    EXPECT_EQ(pixel(100), QColor(0, 200, 0));
    EXPECT_EQ(pixel(205), QColor(120, 120, 120));
}

TEST_F(StackedBarTest, TheEndsAreRoundAndTheGapsEmpty)
{
    const QImage picture = bar->picture(2);
    EXPECT_EQ(picture.size(), QSize(418, 60));
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(417, 59).alpha(), 0);
    const BarPart &place = bar->layout()[0];
    EXPECT_EQ(picture.pixelColor(qRound(2 * (place.x + place.width)) + 1, 30).alpha(), 0);
}

TEST_F(StackedBarTest, TheLabelStandsWhereItFits)
{
    const auto hasText = [&] {
        const QImage picture = bar->picture(1);
        const auto left = static_cast<int>(bar->layout()[3].x);
        for (int x = left + 4; x < picture.width() - 4; ++x) {
            for (int y = 4; y < 26; ++y) {
                if (picture.pixelColor(x, y) != QColor(120, 120, 120))
                    return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(hasText());
    bar->setWidth(110);
    EXPECT_FALSE(hasText());
}

TEST_F(StackedBarTest, TabBringsTheKeyboardAndArrowsGoFromPartToPart)
{
    scene.key(Qt::Key_Tab);
    ASSERT_TRUE(bar->hasActiveFocus());
    EXPECT_TRUE(scene.item("ring")->isVisible());
    EXPECT_EQ(bar->current(), QString());

    scene.key(Qt::Key_Right);
    EXPECT_EQ(bar->current(), QStringLiteral("a"));
    scene.key(Qt::Key_Right);
    scene.key(Qt::Key_Right);
    EXPECT_EQ(bar->current(), QStringLiteral("c"));
    scene.key(Qt::Key_Left);
    EXPECT_EQ(bar->current(), QStringLiteral("b"));
    scene.key(Qt::Key_End);
    scene.key(Qt::Key_Right);
    EXPECT_EQ(bar->current(), QStringLiteral("free"));
    scene.key(Qt::Key_Home);
    scene.key(Qt::Key_Left);
    EXPECT_EQ(bar->current(), QStringLiteral("a"));
    scene.key(Qt::Key_Escape);
    EXPECT_EQ(bar->current(), QString());
    scene.key(Qt::Key_Left);
    EXPECT_EQ(bar->current(), QStringLiteral("free"));
}

TEST_F(StackedBarTest, ThePartIsLeftWithTheKeyboard)
{
    scene.key(Qt::Key_Tab);
    scene.key(Qt::Key_Right);
    ASSERT_EQ(bar->current(), QStringLiteral("a"));

    scene.key(Qt::Key_Tab);

    EXPECT_TRUE(scene.item("other")->hasActiveFocus());
    EXPECT_EQ(bar->current(), QString());
    EXPECT_FALSE(scene.item("ring")->isVisible());
}

TEST_F(StackedBarTest, AClickOrReturnChoosesAPart)
{
    QSignalSpy chosen(bar, &StackedBar::chosen);
    click(100);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.takeFirst().constFirst().toString(), QStringLiteral("b"));
    EXPECT_TRUE(bar->hasActiveFocus());
    EXPECT_FALSE(scene.item("ring")->isVisible()) << "the pointer brought the focus";

    scene.key(Qt::Key_Home);
    scene.key(Qt::Key_Return);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.takeFirst().constFirst().toString(), QStringLiteral("a"));
    EXPECT_TRUE(scene.item("ring")->isVisible());

    scene.key(Qt::Key_Escape);
    scene.key(Qt::Key_Return);
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(StackedBarTest, APointerThatRestsDoesNotTakeBackWhatTheKeyboardChose)
{
    click(100);
    scene.key(Qt::Key_Home);
    ASSERT_EQ(bar->current(), QStringLiteral("a"));

    const QPointF resting(100, 10);
    QHoverEvent event(QEvent::HoverMove, resting, bar->mapToGlobal(resting), resting);
    QCoreApplication::sendEvent(bar, &event);
    EXPECT_EQ(bar->current(), QStringLiteral("a"));

    pointAt(102);
    EXPECT_EQ(bar->current(), QStringLiteral("b"));
}

TEST_F(StackedBarTest, APartThatIsGoneIsNoLongerTheCurrentOne)
{
    bar->setCurrent(QStringLiteral("c"));
    QList<StackedBarPart> others = parts;
    others[2].info = QStringLiteral("2 bytes");
    bar->setParts(others);
    EXPECT_EQ(bar->currentPart().info, QStringLiteral("2 bytes"));

    others.removeAt(2);
    bar->setParts(others);
    EXPECT_EQ(bar->current(), QString());
    bar->setCurrent(QStringLiteral("c"));
    EXPECT_EQ(bar->current(), QString());
}

TEST_F(StackedBarTest, ANonInteractiveBarIgnoresMouseAndKeyboard)
{
    bar->setInteractive(false);
    pointAt(30);
    click(30);
    EXPECT_EQ(bar->current(), QString());
    scene.key(Qt::Key_Tab);
    EXPECT_TRUE(scene.item("other")->hasActiveFocus());
}

TEST_F(StackedBarTest, WithoutPartsThereIsNothingToGoTo)
{
    bar->setParts({});
    scene.key(Qt::Key_Tab);
    scene.key(Qt::Key_Right);
    scene.key(Qt::Key_End);
    EXPECT_EQ(bar->current(), QString());
    pointAt(30);
    EXPECT_EQ(bar->current(), QString());
}

} // namespace
} // namespace corvane
