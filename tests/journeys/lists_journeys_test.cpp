#include <algorithm>
#include <ctime>

#include <QtTest/QTest>

#include "journeys/journey.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr std::time_t day = 86'400; // seconds

/// A home with films, an archive and a document above 10 MB; the archive has not been modified for three years.
class ListsJourney : public Journey {
protected:
    ListsJourney()
    {
        addFile("Clips/Kite.mov", 40);
        addFile("Clips/Alps.mov", 30);
        addFile("Downloads/rushes.zip", 20);
        addFile("Downloads/plan.pdf", 12);
        folder().setModified("home/Downloads/rushes.zip", std::time(nullptr) - 3 * 366 * day);
    }

    void openAndShow(const QString &screen)
    {
        openAndScan();
        click(QStringLiteral("sidebar.") + screen);
        waitUntil([&] { return isShown(QStringLiteral("lists.search")); }, QStringLiteral("the list's screen"));
        driver().rest();
    }
    /// Picks the option with this text in a filter.
    void choose(const QString &filter, const QString &text)
    {
        click(filter);
        driver().rest();
        driver().click(driver().itemWhere(
            [&](const QQuickItem &item) {
                return item.property("marked").isValid() && item.property("highlighted").isValid() &&
                       item.property("index").isValid() && item.property("text").toString() == text;
            },
            text));
        driver().rest();
    }
    [[nodiscard]] static bool isFileRow(const QQuickItem &item)
    {
        return item.property("highlighted").isValid() && item.property("iconKey").isValid();
    }
    [[nodiscard]] QQuickItem &fileRow(const QString &name)
    {
        return driver().itemWhere(
            [&](const QQuickItem &item) { return isFileRow(item) && item.property("name").toString() == name; }, name);
    }
    /// The names in the list, from the top.
    [[nodiscard]] std::vector<std::string> listed() { return namesFromTheTop(isFileRow); }
    void waitForList(const std::vector<std::string> &names)
    {
        waitUntil([&] { return listed() == names; }, QStringLiteral("the list"));
    }
    void clickWith(Qt::KeyboardModifiers modifiers, const QString &name)
    {
        const QQuickItem &row = fileRow(name);
        QTest::mouseClick(&window(), Qt::LeftButton, modifiers,
                          row.mapToScene(QPointF(300, row.height() / 2)).toPoint());
    }
    [[nodiscard]] std::vector<std::string> selected()
    {
        std::vector<std::string> names;
        for (const SelectedEntry &entry : store().selectedEntries())
            names.push_back(entry.path.substr(entry.path.rfind('/') + 1));
        return names;
    }
};

const QString minimumSize = QStringLiteral("lists.minimumSize");
const QString tenMegabytes = QStringLiteral("≥ 10 MB");

TEST_F(ListsJourney, AFilterAndASortChangeTheList)
{
    openAndShow(QStringLiteral("large"));
    EXPECT_TRUE(shows(QStringLiteral("No files match")));
    EXPECT_TRUE(shows(QStringLiteral("0 items · Zero KB")));

    choose(minimumSize, tenMegabytes);
    waitForList({"Kite.mov", "Alps.mov", "rushes.zip", "plan.pdf"});
    EXPECT_TRUE(shows(QStringLiteral("4 items · 107 MB")));

    click(QStringLiteral("lists.name"));
    waitForList({"Alps.mov", "Kite.mov", "plan.pdf", "rushes.zip"});
    click(QStringLiteral("lists.name"));
    waitForList({"rushes.zip", "plan.pdf", "Kite.mov", "Alps.mov"});

    choose(QStringLiteral("lists.type"), QStringLiteral("Videos"));
    waitForList({"Kite.mov", "Alps.mov"});

    click(QStringLiteral("lists.search"));
    press(Qt::Key_A);
    press(Qt::Key_L);
    waitForList({"Alps.mov"});
    EXPECT_TRUE(shows(QStringLiteral("1 item · 31.5 MB")));
    press(Qt::Key_Escape);
    waitForList({"Kite.mov", "Alps.mov"});
}

TEST_F(ListsJourney, TheFiltersAreResetOnEachVisit)
{
    openAndShow(QStringLiteral("large"));
    choose(minimumSize, tenMegabytes);
    click(QStringLiteral("sidebar.old"));
    waitForList({"rushes.zip"});
    click(QStringLiteral("sidebar.large"));
    waitForText(QStringLiteral("No files match"));
    EXPECT_EQ(driver().item(minimumSize).property("displayText"), QStringLiteral("≥ 100 MB"));
}

TEST_F(ListsJourney, SelectAllTakesTheListAndTheTrashTakesItAway)
{
    openAndShow(QStringLiteral("large"));
    choose(minimumSize, tenMegabytes);
    choose(QStringLiteral("lists.type"), QStringLiteral("Videos"));
    clickText(QStringLiteral("Select All"));
    EXPECT_THAT(selected(), ElementsAre("Kite.mov", "Alps.mov"));
    waitForText(QStringLiteral("Deselect All"));
    clickText(QStringLiteral("Deselect All"));
    EXPECT_THAT(selected(), IsEmpty());

    clickText(QStringLiteral("Select All"));
    waitForSelectionBar();
    clickText(QStringLiteral("Move to Trash"));
    waitForText(QStringLiteral("No files match"));
    EXPECT_THAT(Sandbox::instance().trash(), UnorderedElementsAre("Alps.mov", "Kite.mov"));
    EXPECT_TRUE(exists("Downloads/rushes.zip"));
    choose(QStringLiteral("lists.type"), QStringLiteral("All types"));
    waitForList({"rushes.zip", "plan.pdf"});
}

TEST_F(ListsJourney, SeveralRowsAreSelectedByTheirMenu)
{
    openAndShow(QStringLiteral("large"));
    choose(minimumSize, tenMegabytes);
    clickWith(Qt::NoModifier, QStringLiteral("Alps.mov"));
    clickWith(Qt::ShiftModifier, QStringLiteral("plan.pdf"));
    clickWith(Qt::ControlModifier, QStringLiteral("rushes.zip"));
    EXPECT_THAT(selected(), IsEmpty()) << "a highlight selects nothing";
    driver().click(fileRow(QStringLiteral("plan.pdf")), Qt::RightButton);
    waitForPopup(QStringLiteral("lists.severalMenu"));
    clickText(QStringLiteral("Select 2 for Removal"));
    waitForPopupClosed(QStringLiteral("lists.severalMenu"));
    EXPECT_THAT(selected(), ElementsAre("Alps.mov", "plan.pdf"));
    driver().click(fileRow(QStringLiteral("Alps.mov")), Qt::RightButton);
    waitForPopup(QStringLiteral("lists.severalMenu"));
    clickText(QStringLiteral("Deselect 2"));
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(ListsJourney, OldFilesFollowsTheAge)
{
    openAndShow(QStringLiteral("old"));
    waitForList({"rushes.zip"});
    EXPECT_TRUE(shows(QStringLiteral("1 item untouched for 1 year · 21 MB")));
    choose(QStringLiteral("lists.age"), QStringLiteral("2 years"));
    EXPECT_TRUE(shows(QStringLiteral("1 item untouched for 2 years · 21 MB")));
    choose(QStringLiteral("lists.age"), QStringLiteral("5 years"));
    waitForText(QStringLiteral("Nothing stale here"));
}

TEST_F(ListsJourney, TheOverviewLeadsToTheLargeFilesOfATypeAndToAllOfThem)
{
    addFile("Clips/Long.mov", 110);
    addFile("Downloads/disk.iso", 105);
    open();
    click(QStringLiteral("overview.scanHome"));
    waitUntil([&] { return isScanned() && !store().cleanupLoading(); }, QStringLiteral("the scan's end"));
    driver().rest();

    driver().click(driver().itemWhere(
        [](const QQuickItem &item) {
            return item.property("leads").isValid() && item.property("title").toString() == QStringLiteral("Videos");
        },
        QStringLiteral("the type")));
    waitForList({"Long.mov"});
    EXPECT_EQ(driver().item(QStringLiteral("lists.type")).property("displayText"), QStringLiteral("Videos"));

    click(QStringLiteral("sidebar.overview"));
    waitUntil([&] { return isShown(QStringLiteral("overview.largeFiles")); }, QStringLiteral("the overview"));
    driver().rest();
    click(QStringLiteral("overview.largeFiles"));
    waitForList({"Long.mov", "disk.iso"});
    EXPECT_EQ(driver().item(QStringLiteral("lists.type")).property("displayText"), QStringLiteral("All types"));
}

TEST_F(ListsJourney, TheOverviewsTypesAreLinksForTheKeyboard)
{
    addFile("Downloads/disk.iso", 105);
    open();
    click(QStringLiteral("overview.scanHome"));
    waitUntil([&] { return isScanned() && !store().cleanupLoading(); }, QStringLiteral("the scan's end"));
    driver().rest();
    tabTo(driver().item(QStringLiteral("overview.types")));
    press(Qt::Key_Return);
    waitForList({"disk.iso"});
    EXPECT_EQ(driver().item(QStringLiteral("lists.type")).property("displayText"),
              QStringLiteral("Disk Images & Installers"));
}

} // namespace
} // namespace corvane
