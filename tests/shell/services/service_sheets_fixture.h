#pragma once

#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <QJsonDocument>
#include <QJsonObject>

#include "shell/quick_scene.h"
#include "shell/services/services_over_a_store.h"
#include "shell/ui/theme.h"

namespace corvane {

inline constexpr auto serviceSheets = R"(
    property bool inTheWay: false
    property int policies: 0
    PushButton { objectName: "before"; text: "Scan" }
    ServiceSheets {
        objectName: "sheets"
        anchors.fill: parent
        blocked: inTheWay
        onPrivacyPolicyWanted: ++policies
    }
)";

/// The sheets of the services over a window, operated by mouse and keyboard.
class ServiceSheetsTest : public testing::Test {
protected:
    explicit ServiceSheetsTest(bool canUpdate = true, bool onMac = true) : program(canUpdate)
    {
        Theme::instance()->setReducedMotion(true); // nothing moves while it is clicked
        program.defaults.setDidOnboard(true);
        if (onMac)
            program.becomeMac();
        scene.emplace(serviceSheets, "import Corvane.Services\n");
    }
    ~ServiceSheetsTest() override { Theme::instance()->setDark(false); }

    void SetUp() override
    {
        ASSERT_TRUE(scene->isShown()) << qPrintable(scene->errors());
        scene->window()->resize(1040, 700);
        scene->item("before")->forceActiveFocus(Qt::TabFocusReason);
    }

    [[nodiscard]] bool isOpen(const char *sheet) const { return scene->isOpen(sheet); }
    [[nodiscard]] bool waitForOpen(const char *sheet) const
    {
        return QTest::qWaitFor([&] { return isOpen(sheet); });
    }
    [[nodiscard]] bool waitForClosed(const char *sheet) const
    {
        return QTest::qWaitFor([&] { return !scene->object(sheet)->property("visible").toBool(); });
    }
    void openWelcome()
    {
        program.defaults.setDidOnboard(false);
        ASSERT_TRUE(waitForOpen("welcome"));
    }
    void openFeedback()
    {
        program.store.setShowFeedback(true);
        ASSERT_TRUE(waitForOpen("feedback"));
    }
    void openCrashPrompt()
    {
        program.fake.files.addText(program.home + "/reports/corvane-1.ips", "one", 4'096, program.store.now());
        program.defaults.setCrashReportLastCheck(QDateTime::fromSecsSinceEpoch(0));
        program.crashReporter.checkOnLaunch();
        ASSERT_TRUE(program.crashReporter.showPrompt());
        ASSERT_TRUE(waitForOpen("crashPrompt"));
    }

    /// The names of the items that Tab reaches, starting with the focused one.
    [[nodiscard]] std::vector<std::string> tabStops(QQuickWindow *window, int count) const
    {
        std::vector<std::string> names;
        for (int stop = 0; stop < count; ++stop) {
            QQuickItem *const item = window->activeFocusItem();
            names.push_back(QuickScene::accessibleName(item).toStdString());
            QTest::keyClick(window, Qt::Key_Tab);
        }
        return names;
    }
    /// Whether a visible item shows this text.
    [[nodiscard]] bool says(const QString &text) const
    {
        return scene->find([&](QQuickItem *item) {
            return item->property("textFormat").isValid() && item->property("text").toString() == text;
        }) != nullptr;
    }
    void type(const QString &text)
    {
        for (const QChar letter : text)
            QTest::keyClick(scene->window(), letter.toLatin1());
    }
    [[nodiscard]] QJsonObject posted() const
    {
        return QJsonDocument::fromJson(program.server.requests().back().body).object();
    }

    ServicesOverAStore program;
    std::optional<QuickScene> scene;
};

class ServiceSheetsOnLinuxTest : public ServiceSheetsTest {
protected:
    ServiceSheetsOnLinuxTest() : ServiceSheetsTest(true, false) {}
};

} // namespace corvane
