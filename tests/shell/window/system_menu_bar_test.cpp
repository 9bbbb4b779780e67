#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlListReference>

#include "shell/fake_services.h"
#include "shell/store_with_films.h"
#include "shell/ui/shell_ui.h"

namespace corvane {
namespace {

using testing::ElementsAre;

constexpr auto source = R"(
    import QtQuick
    import Corvane.Shell
    import Corvane.Window

    QtObject {
        id: root
        property int settingsAsked: 0
        property WindowActions actions: WindowActions {
            screens: SidebarModel {
                WindowScreen { item: Store.SidebarItem.overview; Item {} }
                WindowScreen { item: Store.SidebarItem.cleanup; Item {} }
            }
            scan: ScanPresenter {}
            selection: SelectionPresenter {}
            help: HelpPresenter {}
            history: FolderHistory {}
            enabled: true
            onSettingsWanted: ++settingsAsked
        }
        property SystemMenuBar bar: SystemMenuBar { actions: root.actions }
    })";

QtMessageHandler handlerBefore = nullptr;

// Ignores the warning about a missing widgets module, which the menu bar falls back to on systems without a native one.
void leaveOutMissingWidgets(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (!message.contains(QLatin1String("QApplication")))
        handlerBefore(type, context, message);
}

/// The Mac menu bar with the window's commands. It is not displayed here, but its contents are the same.
class SystemMenuBarTest : public testing::Test, protected StoreWithFilms {
protected:
    SystemMenuBarTest()
    {
        services.defaults.setDidOnboard(true);
        QCoreApplication::setApplicationName(QStringLiteral("Corvane"));
        setUpShell(engine);
        handlerBefore = qInstallMessageHandler(leaveOutMissingWidgets);
        QQmlComponent component(&engine);
        component.setData(source, QUrl(QStringLiteral("qrc:/scene.qml")));
        root.reset(component.create());
        errors = component.errorString();
    }
    ~SystemMenuBarTest() override
    {
        root.reset();
        qInstallMessageHandler(handlerBefore);
    }

    void SetUp() override { ASSERT_NE(root, nullptr) << qPrintable(errors); }

    [[nodiscard]] QObject *bar() const { return root->property("bar").value<QObject *>(); }

    [[nodiscard]] QObject *menu(const char *title) const
    {
        const QQmlListReference menus(bar(), "menus");
        for (qsizetype i = 0; i < menus.count(); ++i) {
            if (menus.at(i)->property("title").toString() == QLatin1String(title))
                return menus.at(i);
        }
        return nullptr;
    }

    /// "Scan Home Folder Ctrl+R", "Settings… Ctrl+, (PreferencesRole)"; "-" for a separator.
    [[nodiscard]] std::vector<std::string> items(const char *title) const
    {
        std::vector<std::string> lines;
        const QQmlListReference list(menu(title), "items");
        for (qsizetype i = 0; i < list.count(); ++i) {
            const QObject &item = *list.at(i);
            if (item.property("separator").toBool()) {
                lines.emplace_back("-");
                continue;
            }
            QString line = item.property("text").toString();
            const QVariant shortcut = item.property("shortcut");
            if (!shortcut.toString().isEmpty())
                line += u' ' + shortcut.toString();
            const QMetaProperty role = item.metaObject()->property(item.metaObject()->indexOfProperty("role"));
            const QString name = QString::fromLatin1(role.enumerator().valueToKey(role.read(&item).toInt()));
            if (name != QLatin1String("NoRole"))
                line += QStringLiteral(" (%1)").arg(name);
            lines.push_back(line.toStdString());
        }
        return lines;
    }

    /// Chooses a command like the system's menu bar does.
    void choose(const char *title, const char *text) const
    {
        const QQmlListReference list(menu(title), "items");
        for (qsizetype i = 0; i < list.count(); ++i) {
            if (list.at(i)->property("text").toString() == QString::fromUtf8(text)) {
                ASSERT_TRUE(QMetaObject::invokeMethod(list.at(i), "triggered"));
            }
        }
    }

    FakeServices services;
    QQmlEngine engine;
    std::unique_ptr<QObject> root;
    QString errors;
};

TEST_F(SystemMenuBarTest, HasEveryMenuInTheUsualOrder)
{
    std::vector<std::string> titles;
    const QQmlListReference menus(bar(), "menus");
    for (qsizetype i = 0; i < menus.count(); ++i)
        titles.push_back(menus.at(i)->property("title").toString().toStdString());
    EXPECT_THAT(titles, ElementsAre("File", "Selection", "Go", "View", "Help"));
}

TEST_F(SystemMenuBarTest, TheFileMenuScansAndHandsTheProgramsOwnCommandsOver)
{
    EXPECT_THAT(items("File"), ElementsAre("Scan Home Folder Ctrl+R", "Scan Entire Disk Ctrl+Shift+R",
                                           "Choose Folder to Scan… Ctrl+O", "-", "Stop Scan Ctrl+.",
                                           "About Corvane (AboutRole)", "Check for Updates… (ApplicationSpecificRole)",
                                           "Settings… Ctrl+, (PreferencesRole)", "Quit Ctrl+Q (QuitRole)"));
}

TEST_F(SystemMenuBarTest, TheOtherMenusHoldTheCommandsOfTheWindow)
{
    EXPECT_THAT(items("Selection"),
                ElementsAre("Review Selection… Ctrl+Shift+S", "Clear Selection", "-", "Move to Trash Ctrl+Backspace"));
    EXPECT_EQ(items("Go").size(), 2u);
    EXPECT_THAT(items("View"), ElementsAre("Overview Ctrl+1", "Cleanup Ctrl+2"));
}

TEST_F(SystemMenuBarTest, TheHelpMenuHoldsFeedbackWelcomeAndTheSite)
{
    EXPECT_THAT(items("Help"),
                ElementsAre("Send Feedback…", "Welcome & Permissions…", "-", "Privacy Policy", "Corvane Website"));
}

TEST_F(SystemMenuBarTest, TheCommandsDoWhatTheySay)
{
    choose("Help", "Send Feedback…");
    EXPECT_TRUE(store.showFeedback());
    choose("Help", "Welcome & Permissions…");
    EXPECT_FALSE(services.defaults.didOnboard());
    choose("File", "Settings…");
    EXPECT_EQ(root->property("settingsAsked").toInt(), 1);
    choose("File", "Check for Updates…");
    EXPECT_EQ(services.updateController->checks, 1);
}

TEST_F(SystemMenuBarTest, UpdatesAreLookedForOnlyWhereACheckMayStart)
{
    const auto isOffered = [this] {
        const QQmlListReference list(menu("File"), "items");
        return list.at(6)->property("enabled").toBool();
    };
    EXPECT_TRUE(isOffered());
    services.updateController->setCanCheck(false);
    EXPECT_FALSE(isOffered());
}

} // namespace
} // namespace corvane
