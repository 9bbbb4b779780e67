#include <algorithm>

#include <QWheelEvent>

#include "cleanup/admin_command.h"
#include "core/systems/cleanup_table.h"
#include "journeys/words_journey.h"

namespace corvane {
namespace {

TEST_F(WordsJourney, InTheSmallestWindowWhatACommandIsForIsReadWhole)
{
    open();
    driver().resize(smallest.width(), smallest.height());
    waitForFigures();
    show(Item::cleanup);
    std::vector<AdminCommand> commands;
    for (const CommandDefinition &each : cleanupTableOf(SystemKind::linuxSystem).commands)
        commands.push_back({each.id, each.title, each.detail, each.symbol, each.tint, each.command, 123'400'000});
    for (const AdminCommand &command : commands) {
        store().finishCleanupCommands({command}, store().cleanupCommandsToken());
        tabTo(driver().item(QStringLiteral("cleanupList")));
        press(Qt::Key_End);
        const QString detail = QString::fromUtf8(command.detail.data(), static_cast<qsizetype>(command.detail.size()));
        waitForText(detail);
        EXPECT_FALSE(textItem(detail)->property("truncated").toBool()) << command.detail;
    }
}

TEST_F(WordsJourney, InTheSmallestWindowThePlanOfAnUninstallIsReadWhole)
{
    folder().writeFile("data/flatpak/app/org.tide.Tide/current/active/files/bin/tide", mebibyte);
    folder().writeText("data/flatpak/exports/share/applications/org.tide.Tide.desktop",
                       "[Desktop Entry]\nType=Application\nName=Tide\nExec=flatpak run org.tide.Tide\n");
    for (const char *data : {"home/.var/app/org.tide.Tide/data/db", "config/org.tide.Tide/db"})
        folder().writeFile(data, 12 * mebibyte);
    open();
    driver().resize(smallest.width(), smallest.height());
    showApps();
    chooseApp(QStringLiteral("Tide"));
    const QQuickItem &plan = driver().item(QStringLiteral("uninstaller.plan"));
    EXPECT_EQ(plan.property("text").toString(), QStringLiteral("2 items of its data\n25.2 MB"));
    EXPECT_FALSE(plan.property("truncated").toBool());
}

TEST_F(WordsJourney, InTheSmallestWindowTheMenuIsScrolledToItsEnd)
{
    open();
    driver().resize(smallest.width(), smallest.height());
    press(Qt::Key_F10);
    waitForPopup(QStringLiteral("appMenu"));
    const auto *const rows =
        window().findChild<QObject *>(QStringLiteral("appMenu"))->property("contentItem").value<QQuickItem *>();
    ASSERT_GT(rows->property("contentHeight").toReal(), rows->height()) << "it fits";
    const auto bars = rows->findChildren<QQuickItem *>();
    const auto bar =
        std::ranges::find_if(bars, [](const QQuickItem *item) { return item->inherits("QQuickScrollBar"); });
    ASSERT_NE(bar, bars.end()) << "nothing says that the menu goes on";
    waitUntil([&] { return (*bar)->property("contentItem").value<QQuickItem *>()->opacity() == 1; },
              QStringLiteral("the bar of the menu"));
    const QPointF middle = rows->mapToScene(rows->boundingRect().center());
    QWheelEvent turn(middle, window().mapToGlobal(middle), QPoint(), QPoint(0, -1'200), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window(), &turn);
    waitUntil([&] { return rows->property("atYEnd").toBool(); }, QStringLiteral("the end of the menu"));
}

} // namespace
} // namespace corvane
