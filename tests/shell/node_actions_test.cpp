#include "shell/ui/node_actions.h"

#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include "map/explorer_fixture.h"

namespace corvane {
namespace {

class NodeActionsTest : public test::ExplorerFixture {
protected:
    NodeActionsTest()
    {
        addFile("Films/a.mov", 3'000'000);
        addFile("Library/Keychains/x.db", 2'000'000);
        scanHome();
    }
    void target(const std::string &relative) { actions.setTarget(node(relative)); }
    NodeActions actions{store};
};

TEST_F(NodeActionsTest, AFileOpensInItsOwnProgram)
{
    addFile("Films/100% \xff.mov", 3'000'000);
    scanHome();
    target("Films/100% \xff.mov");
    EXPECT_TRUE(actions.canOpen());
    EXPECT_EQ(actions.openText(), QStringLiteral("Open"));
    actions.open();
    EXPECT_THAT(fake.log->lines(), testing::Contains("openUrl file:///home/studio/Films/100%25%20%FF.mov"));
    EXPECT_EQ(store.currentFolder(), store.root());
    EXPECT_FALSE(store.toast().has_value());
}

TEST_F(NodeActionsTest, WhatCannotBeOpenedIsSaid)
{
    fake.desktop.fail("file:///home/studio/Films/a.mov", "No application is registered");
    target("Films/a.mov");
    actions.open();
    ASSERT_TRUE(store.toast().has_value());
    EXPECT_EQ(*store.toast(), "Can't open a.mov: No application is registered");
    EXPECT_TRUE(store.toastIsWarning());
}

TEST_F(NodeActionsTest, AFileThatIsGoneIsNotOpened)
{
    target("Films/a.mov");
    fake.files.take(at("Films/a.mov"));
    actions.open();
    EXPECT_THAT(fake.log->lines(), testing::Not(testing::Contains(testing::HasSubstr("openUrl"))));
    ASSERT_TRUE(store.toast().has_value());
    EXPECT_THAT(*store.toast(), testing::StartsWith("Can't open a.mov: "));
}

TEST_F(NodeActionsTest, AFileShownElsewhereOpensInItsOwnProgramAndAFolderInTheMap)
{
    actions.setTarget(at("Films/a.mov"), 3'000'000, FileNode::Kind::file);
    EXPECT_EQ(actions.openText(), QStringLiteral("Open"));
    EXPECT_TRUE(actions.canOpen());
    actions.setTarget(at("Films"), 3'000'000, FileNode::Kind::directory);
    EXPECT_EQ(actions.openText(), QStringLiteral("Open in Space Map"));
    EXPECT_TRUE(actions.canOpen());
}

TEST_F(NodeActionsTest, SettingATargetMakesNoSystemCall)
{
    fake.log->clear();
    actions.setTarget(at("Films/not in the tree.mov"), 3'000'000, FileNode::Kind::file);
    EXPECT_TRUE(actions.canOpen());
    actions.setTarget(at("Films"), 3'000'000, FileNode::Kind::directory);
    EXPECT_TRUE(actions.canOpen());
    EXPECT_THAT(fake.log->lines(), testing::IsEmpty());
}

TEST_F(NodeActionsTest, OpenShowsTheFolder)
{
    target("Films");
    actions.open();
    EXPECT_EQ(store.currentFolder(), node("Films"));
}

TEST_F(NodeActionsTest, RevealAsksTheDesktop)
{
    target("Films/a.mov");
    actions.reveal();
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal /home/studio/Films/a.mov"));
    EXPECT_FALSE(store.toast().has_value());
}

TEST_F(NodeActionsTest, AFailureToRevealIsSaid)
{
    fake.desktop.fail(at("Films/a.mov"), "No file manager answered");
    target("Films/a.mov");
    actions.reveal();
    ASSERT_TRUE(store.toast().has_value());
    EXPECT_EQ(*store.toast(), "Can't show a.mov: No file manager answered");
    EXPECT_TRUE(store.toastIsWarning());
}

TEST_F(NodeActionsTest, AnItemThatWasRemovedMeanwhileIsNotRevealed)
{
    target("Films/a.mov");
    EXPECT_TRUE(actions.canReveal());
    removeItem("Films/a.mov", 3'000'000);
    EXPECT_FALSE(actions.canReveal());
    actions.reveal();
    EXPECT_THAT(fake.log->lines(), testing::Not(testing::Contains("reveal /home/studio/Films/a.mov")));
}

TEST_F(NodeActionsTest, CopyPutsThePathOnTheClipboard)
{
    target("Films/a.mov");
    actions.copyPath();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("/home/studio/Films/a.mov"));
}

TEST_F(NodeActionsTest, SelectingTogglesAndChangesTheWords)
{
    target("Films/a.mov");
    EXPECT_EQ(actions.selectText(), QStringLiteral("Select for Removal"));
    actions.toggleSelection();
    EXPECT_TRUE(store.isSelected(at("Films/a.mov")));
    EXPECT_EQ(store.selectedTotal(), 3'000'000);
    EXPECT_EQ(actions.selectText(), QStringLiteral("Deselect"));
    actions.toggleSelection();
    EXPECT_FALSE(store.isSelected(at("Films/a.mov")));
}

TEST_F(NodeActionsTest, AProtectedItemCannotBeSelected)
{
    target("Library");
    EXPECT_FALSE(actions.canSelect());
    actions.toggleSelection();
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(NodeActionsTest, AnItemInsideASelectedFolderCannotBeSelectedOnceMore)
{
    select("Films");
    target("Films/a.mov");
    EXPECT_FALSE(actions.canSelect());
    actions.toggleSelection();
    EXPECT_EQ(store.selection().size(), 1u);
}

TEST_F(NodeActionsTest, AnItemThatWasRemovedMeanwhileCannotBeSelected)
{
    target("Films/a.mov");
    removeItem("Films/a.mov", 3'000'000);
    EXPECT_FALSE(actions.canSelect());
    actions.toggleSelection();
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(NodeActionsTest, WithoutATargetNothingHappens)
{
    actions.open();
    actions.reveal();
    actions.copyPath();
    actions.toggleSelection();
    EXPECT_FALSE(actions.canOpen());
    EXPECT_FALSE(actions.canSelect());
    EXPECT_TRUE(actions.title().isEmpty());
}

TEST(NodeMimeData, IsTheFilesAddressWithItsBytesEncoded)
{
    const auto root = std::make_shared<FileNode>("/home/stu dio", FileNode::Kind::directory);
    const FileNode node(root->pathForChildren(), "caf\xc3\xa9 \xff#.mov", FileNode::Kind::file, root);
    const std::unique_ptr<QMimeData> data(makeMimeData(node));
    EXPECT_EQ(data->data(QStringLiteral("text/uri-list")),
              QByteArray("file:///home/stu%20dio/caf%C3%A9%20%FF%23.mov\r\n"));
    ASSERT_EQ(data->urls().size(), 1);
    EXPECT_TRUE(data->urls().first().isLocalFile());
}

} // namespace
} // namespace corvane
