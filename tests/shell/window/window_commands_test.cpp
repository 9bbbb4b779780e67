// The commands of the window: its menu and its keys.

#include "shell/app_info.h"
#include "shell/window/main_window_fixture.h"

namespace corvane {
namespace {

using Item = StorageStore::SidebarItem;

TEST_F(MainWindowTest, CommandsHaveTheirKeys)
{
    key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(store.sidebar(), Item::cleanup);
    Gate gate = blockFolders();
    key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(store.lastScanPath(), "/home/studio");
    key(Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(store.lastScanPath(), "/");
    key(Qt::Key_Period, Qt::ControlModifier);
    EXPECT_TRUE(store.progress()->isCancelled());
}

TEST_F(MainWindowTest, MenusAndSheetsAreCreatedOnFirstUse)
{
    for (const char *name : {"appMenu", "reviewSheet", "deleteConfirm", "about", "folderDialog"})
        EXPECT_EQ(object(name), nullptr) << name;
    click("appMenuButton");
    ASSERT_TRUE(waitForItem("appMenu.about"));
    const QObject *const menu = object("appMenu");
    key(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([this] { return item("appMenu.about") == nullptr; }));
    key(Qt::Key_F10);
    ASSERT_TRUE(waitForItem("appMenu.about"));
    EXPECT_EQ(object("appMenu"), menu) << "made once";
}

TEST_F(MainWindowTest, TheMenuOpensByButtonAndByF10)
{
    click("appMenuButton");
    ASSERT_TRUE(waitForItem("appMenu.scanHome"));
    EXPECT_EQ(object("appMenu")->property("count").toInt(), 24) << "two screens, seventeen commands, five lines";
    key(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([this] { return item("appMenu.scanHome") == nullptr; }));
    key(Qt::Key_F10);
    ASSERT_TRUE(waitForItem("appMenu.about"));
    click("appMenu.about");
    EXPECT_TRUE(waitFor([this] { return isOpen("about"); }));
}

TEST_F(MainWindowTest, BackAndForwardAreOfferedWhereTheyLeadSomewhere)
{
    const auto isOffered = [this](const char *command) { return object(command)->property("enabled").toBool(); };
    scan();
    store.setSidebar(Item::explorer);
    click("appMenuButton");
    ASSERT_TRUE(waitForItem("appMenu.back"));
    EXPECT_FALSE(isOffered("appMenu.back"));
    EXPECT_FALSE(isOffered("appMenu.forward"));
    key(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([this] { return item("appMenu.back") == nullptr; }));

    store.open(store.sharedNode("/home/studio/Movies"));
    EXPECT_TRUE(isOffered("appMenu.back"));
    EXPECT_FALSE(isOffered("appMenu.forward"));
    click("appMenuButton");
    click("appMenu.back");
    ASSERT_TRUE(waitFor([this] { return store.currentFolder() == store.root(); }));
    EXPECT_FALSE(isOffered("appMenu.back"));
    EXPECT_TRUE(isOffered("appMenu.forward"));

    store.setSidebar(Item::cleanup);
    EXPECT_FALSE(isOffered("appMenu.forward"));
}

TEST_F(MainWindowTest, TheMenuLeadsToTheWebsiteAndToThePrivacyPolicy)
{
    click("appMenuButton");
    click("appMenu.privacyPolicy");
    ASSERT_TRUE(waitFor([this] { return item("appMenu.privacyPolicy") == nullptr; }));
    click("appMenuButton");
    click("appMenu.website");
    EXPECT_EQ(fake.log->linesStartingWith("openUrl"),
              (std::vector<std::string>{"openUrl " + AppInfo::privacyPage().toString().toStdString(),
                                        "openUrl " + AppInfo::site().toString().toStdString()}));
}

TEST_F(MainWindowTest, TheScreensStandTogetherInTheMenu)
{
    click("appMenuButton");
    ASSERT_TRUE(waitForItem("appMenu.show2"));
    window->grabWindow(); // forces layout
    const auto top = [this](const char *name) { return item(name)->mapToScene(QPointF()).y(); };
    EXPECT_LT(top("appMenu.forward"), top("appMenu.show1"));
    EXPECT_EQ(top("appMenu.show1") + item("appMenu.show1")->height(), top("appMenu.show2"));
    EXPECT_LT(top("appMenu.show2"), top("appMenu.settings"));
}

} // namespace
} // namespace corvane
