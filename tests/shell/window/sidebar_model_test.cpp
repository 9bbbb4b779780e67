#include "shell/ui/window/sidebar_model.h"

#include <list>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QFile>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTemporaryDir>

#include "shell/store_with_films.h"

namespace corvane {
namespace {

using Item = StorageStore::SidebarItem;
using testing::ElementsAre;

struct Sidebar : testing::Test, StoreWithFilms {
    WindowScreen &add(Item item)
    {
        WindowScreen &screen = screens.emplace_back();
        screen.item = item;
        model.addScreen(&screen);
        return screen;
    }

    std::vector<std::string> texts(SidebarModel::Role role) const
    {
        std::vector<std::string> all;
        for (int row = 0; row < model.rowCount(); ++row)
            all.push_back(model.index(row).data(role).toString().toStdString());
        return all;
    }

    std::list<WindowScreen> screens;
    SidebarModel model{store};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST(SidebarItems, HaveTheirTitlesAndSymbolsInDeclarationOrder)
{
    std::vector<std::string> lines;
    for (const SidebarItemInfo &info : sidebarItems())
        lines.push_back((info.key + "|" + info.title + "|" + info.symbol).toStdString());
    EXPECT_THAT(lines, ElementsAre("overview|Overview|chart.pie", "breakdown|Where's My Space|chart.bar.doc.horizontal",
                                   "explorer|Space Map|square.grid.2x2", "uninstaller|App Uninstaller|xmark.bin",
                                   "large|Large Files|scalemass", "old|Old Files|clock.arrow.circlepath",
                                   "duplicates|Duplicates|doc.on.doc", "cleanup|Cleanup|sparkles"));
}

TEST(SidebarItems, FourScreensNeedAScanAndSayWhy)
{
    std::vector<std::string> keys;
    for (const SidebarItemInfo &info : sidebarItems()) {
        EXPECT_EQ(info.needsScan, !info.scanPrompt.isEmpty()) << info.key.toStdString();
        if (info.needsScan)
            keys.push_back(info.key.toStdString());
    }
    EXPECT_THAT(keys, ElementsAre("explorer", "large", "old", "duplicates"));
}

TEST_F(Sidebar, ListsTheScreensThatThereAreInItsOwnOrder)
{
    add(Item::cleanup);
    add(Item::explorer);
    add(Item::overview);
    EXPECT_THAT(texts(SidebarModel::KeyRole), ElementsAre("overview", "explorer", "cleanup"));
    EXPECT_THAT(texts(SidebarModel::ShortcutRole), ElementsAre("Ctrl+1", "Ctrl+2", "Ctrl+3"));
}

TEST_F(Sidebar, ShowsASectionOnceAndOnlyIfItHasScreens)
{
    add(Item::explorer);
    EXPECT_THAT(texts(SidebarModel::SectionRole), ElementsAre("Storage"));
    add(Item::large);
    add(Item::overview);
    add(Item::old);
    EXPECT_THAT(texts(SidebarModel::SectionRole), ElementsAre("Storage", "Storage", "Find & Remove", "Find & Remove"));
    EXPECT_THAT(texts(SidebarModel::StartsSectionRole), ElementsAre("true", "false", "true", "false"));
}

TEST_F(Sidebar, FollowsTheStoresChoice)
{
    const WindowScreen &map = add(Item::explorer);
    add(Item::large);
    EXPECT_EQ(model.currentRow(), 0);
    EXPECT_EQ(model.content(), map.content);
    EXPECT_TRUE(model.needsScan());
    EXPECT_EQ(model.scanTitle(), "Scan first to see Space Map");

    QSignalSpy changed(&model, &SidebarModel::currentChanged);
    store.setSidebar(Item::large);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(model.currentRow(), 1);
    EXPECT_EQ(model.title(), "Large Files");
    EXPECT_EQ(model.symbol(), "scalemass");
    EXPECT_THAT(texts(SidebarModel::CurrentRole), ElementsAre("false", "true"));
}

TEST_F(Sidebar, AnItemWithoutAScreenShowsTheFirst)
{
    add(Item::explorer);
    add(Item::large);
    store.setSidebar(Item::cleanup);
    EXPECT_EQ(model.currentRow(), 0);
}

TEST_F(Sidebar, ChoosingARowSetsTheStoresChoice)
{
    add(Item::explorer);
    add(Item::duplicates);
    model.choose(1);
    EXPECT_EQ(store.sidebar(), Item::duplicates);
    model.choose(2);
    model.choose(-1);
    EXPECT_EQ(store.sidebar(), Item::duplicates);
}

TEST_F(Sidebar, WithoutScreensThereIsNothingChosen)
{
    EXPECT_EQ(model.currentRow(), -1);
    EXPECT_EQ(model.content(), nullptr);
    model.choose(1);
    EXPECT_EQ(store.sidebar(), Item::overview);
}

TEST_F(Sidebar, AScreensFileIsReadWhenTheScreenIsFirstShown)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("Page.qml")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("import QtQml\nQtObject {}");
    file.close();
    QQmlEngine engine;
    add(Item::overview);
    WindowScreen &cleanup = add(Item::cleanup);
    QQmlEngine::setContextForObject(&cleanup, engine.rootContext());
    engine.rootContext()->setBaseUrl(QUrl::fromLocalFile(folder.filePath(QStringLiteral("Main.qml"))));
    cleanup.source = QUrl(QStringLiteral("Page.qml"));

    static_cast<void>(model.content());
    EXPECT_EQ(cleanup.content, nullptr) << "another screen is shown";

    store.setSidebar(Item::cleanup);
    QQmlComponent *const content = model.content();
    ASSERT_NE(content, nullptr);
    EXPECT_TRUE(content->isReady()) << qPrintable(content->errorString());
    EXPECT_EQ(model.content(), content) << "read once";
}

} // namespace
} // namespace corvane
