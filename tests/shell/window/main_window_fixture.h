#pragma once

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "shell/fake_services.h"
#include "shell/store_with_films.h"
#include "shell/ui/shell_ui.h"
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
        setUpShell(engine);
        QQmlComponent component(&engine);
        component.setData(mainWindowSource, QUrl(QStringLiteral("qrc:/scene.qml")));
        window.reset(qobject_cast<QQuickWindow *>(component.create()));
        errors = component.errorString();
    }

    void SetUp() override
    {
        ASSERT_NE(window, nullptr) << qPrintable(errors);
        window->show();
        window->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    /// The visible item with this objectName; null if it is hidden.
    QQuickItem *item(const char *name) const { return find(window->contentItem(), QLatin1String(name)); }
    QObject *object(const char *name) const { return window->findChild<QObject *>(QLatin1String(name)); }
    bool isOpen(const char *sheet) const
    {
        const QObject *const made = object(sheet);
        return made != nullptr && made->property("opened").toBool();
    }
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
        QQuickItem *target = item(name);
        const QPointF centre = target->mapToScene(QPointF(target->width() / 2, target->height() / 2));
        QTest::mouseClick(window.get(), Qt::LeftButton, Qt::NoModifier, centre.toPoint());
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window.get(), key, modifiers);
    }
    void scan()
    {
        store.scanHome();
        ASSERT_TRUE(waitFor([this] { return store.phase() == StorageStore::Phase::ready; }));
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
    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;
    QString errors;

private:
    static QQuickItem *find(QQuickItem *top, const QString &name)
    {
        if (!top->isVisible())
            return nullptr;
        if (top->objectName() == name)
            return top;
        for (QQuickItem *child : top->childItems()) {
            if (QQuickItem *found = find(child, name))
                return found;
        }
        return nullptr;
    }
};

} // namespace corvane
