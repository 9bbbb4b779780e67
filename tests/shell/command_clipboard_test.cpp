#include "shell/ui/command_clipboard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

namespace corvane {
namespace {

const QString list = QStringLiteral("tool list /");
const QString thin = QStringLiteral("sudo tool thin / 4");

TEST(CommandClipboard, ACommandIsCopiedAsItIsAndSaidForTwoSeconds)
{
    CommandClipboard commands;
    EXPECT_EQ(commands.copied(), QString());

    commands.copy(thin);

    EXPECT_EQ(QGuiApplication::clipboard()->text(), thin);
    EXPECT_EQ(commands.copied(), thin);
    auto *const timer = commands.findChild<QTimer *>();
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 2'000);
    timer->start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return commands.copied().isEmpty(); }));
}

TEST(CommandClipboard, OnlyTheCommandCopiedLastIsSaidToBe)
{
    CommandClipboard commands;
    commands.copy(list);
    commands.copy(thin);
    EXPECT_EQ(commands.copied(), thin);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), thin);
}

} // namespace
} // namespace corvane
