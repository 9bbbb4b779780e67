#pragma once

#include <functional>
#include <optional>

#include <gtest/gtest.h>

#include "shell/fake_services.h"
#include "shell/quick_scene.h"
#include "shell/store_with_films.h"
#include "shell/without_motion.h"
#include "support/patience.h"

namespace corvane {

inline constexpr auto mainWindowSource = R"(
    import QtQuick
    import Corvane.Shell
    import Corvane.Window

    MainWindow {
        id: window
        property int made: 0
        function count() { ++made; }
        screens: SidebarModel {
            WindowScreen {
                item: Store.SidebarItem.explorer
                Item {
                    objectName: "mapScreen"
                    Component.onCompleted: window.count()
                    ScanToolbar { anchors.right: parent.right }
                }
            }
            WindowScreen {
                item: Store.SidebarItem.cleanup
                Item { objectName: "cleanupScreen" }
            }
        }
    })";

/// The whole window with two fake screens: one that needs a scan and one that does not.
class MainWindowTest : public testing::Test, protected StoreWithFilms, WithoutMotion {
protected:
    MainWindowTest()
    {
        services.defaults.setDidOnboard(true);
        scene.emplace(QuickScene::Document{mainWindowSource});
        window = scene->window();
    }

    void SetUp() override { ASSERT_TRUE(scene->isShown()) << qPrintable(scene->errors()); }

    /// The visible item with this objectName; null if it is hidden.
    QQuickItem *item(const char *name) const { return scene->visibleItem(name); }
    QObject *object(const char *name) const { return scene->object(name); }
    bool isOpen(const char *sheet) const { return scene->isOpen(sheet); }
    bool isVisible(const char *sheet) const { return object(sheet)->property("visible").toBool(); }

    bool waitFor(const std::function<bool()> &condition) const { return QTest::qWaitFor(condition, patience); }
    bool waitForItem(const char *name) const
    {
        return waitFor([&] { return item(name) != nullptr; });
    }

    void click(const char *name)
    {
        ASSERT_TRUE(waitForItem(name)) << name;
        window->grabWindow(); // forces layout
        scene->click(item(name));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { scene->key(key, modifiers); }
    void scan()
    {
        store.scanHome();
        ASSERT_TRUE(waitForReady());
    }
    void openReview()
    {
        click("reviewButton");
        ASSERT_TRUE(waitFor([this] { return isOpen("reviewSheet"); }));
    }
    void openConfirmation()
    {
        openReview();
        click("reviewSheet.deletePermanently");
        ASSERT_TRUE(waitFor([this] { return isOpen("deleteConfirm"); }));
    }

    FakeServices services;
    std::optional<QuickScene> scene;
    QQuickWindow *window = nullptr;
};

} // namespace corvane
