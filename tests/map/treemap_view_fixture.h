#pragma once

#include <string>

#include <gtest/gtest.h>

#include <QQuickWindow>
#include <QTest>

#include "map/explorer_fixture.h"
#include "map/ui/treemap_view.h"
#include "shell/ui/theme.h"
#include "support/patience.h"

namespace corvane {

/// The map of a small home in its own window, operated by real mouse and key events.
class TreemapViewTest : public test::ExplorerFixture {
protected:
    TreemapViewTest()
    {
        addFile("Films/a.mov", 30'000'000);
        addFile("Films/Sub/b.mov", 20'000'000);
        addFile("Projects/c.zip", 20'000'000);
        addFile("film.mov", 10'000'000);
        addFile("X.app/Contents/x", 9'000'000);
        addFile("Library/Caches/c", 8'000'000);
        addFile("small", 900'000);
    }
    ~TreemapViewTest() override { Theme::instance()->setReducedMotion(false); }

    void show()
    {
        Theme::instance()->setReducedMotion(true);
        scanHome();
        showWindow();
    }
    void showWindow(QSize size = {600, 400})
    {
        window.resize(size);
        view = new TreemapView(store, window.contentItem());
        view->setSize(size);
        window.show();
        window.requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        drawFrame();
    }
    void drawFrame()
    {
        const QImage frame = grab();
        ASSERT_FALSE(view->picture().isNull());
    }
    void allowMotion()
    {
        Theme::instance()->setReducedMotion(false);
        drawFrame();
    }
    [[nodiscard]] int tile(const std::string &relative) const { return view->layout().indexOf(node(relative).get()); }
    /// A point of the tile outside its nested tiles.
    [[nodiscard]] QPoint point(int index) const
    {
        return view->layout().rect(index).topLeft().toPoint() + QPoint(20, 8);
    }
    /// Moves the pointer off the map. The offscreen platform's own pointer is initially inside the window.
    void leave()
    {
        QHoverEvent event(QEvent::HoverLeave, QPointF(-1, -1), QPointF(-1, -1), QPointF(1, 1));
        QCoreApplication::sendEvent(view, &event);
    }
    void hover(int index) { QTest::mouseMove(&window, point(index)); }
    void click(int index, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&window, button, Qt::NoModifier, point(index));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&window, key, modifiers);
    }
    void focusByTab() { view->forceActiveFocus(Qt::TabFocusReason); }
    [[nodiscard]] QImage grab() { return window.grabWindow(); }

    QQuickWindow window;
    TreemapView *view = nullptr;
};

} // namespace corvane
