#include "shell/ui/command_clipboard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QElapsedTimer>
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
    QElapsedTimer time;
    time.start();

    commands.copy(thin);

    EXPECT_EQ(QGuiApplication::clipboard()->text(), thin);
    EXPECT_EQ(commands.copied(), thin);
    ASSERT_TRUE(QTest::qWaitFor([&] { return commands.copied().isEmpty(); }, 20'000));
    EXPECT_GE(time.elapsed(), 1'900);
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
