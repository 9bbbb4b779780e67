#pragma once

#include "shell/quick_scene.h"

namespace corvane {

/// One screen of the program in a window of its own, with nothing under the pointer.
class ScreenScene : public QuickScene {
public:
    /// `file` is a module and a type of its, such as "Map/ExplorerScreen"; `more` is said of the Loader that shows it.
    explicit ScreenScene(const QByteArray &file, QSize size, const QByteArray &more = {})
        : QuickScene("Loader { anchors.fill: parent; source: \"qrc:/qt/qml/Corvane/" + file + ".qml\"\n" + more + " }")
    {
        if (!isShown())
            return;
        window()->resize(size);
        QTest::mouseMove(window(), QPoint(1, 1));
        settle();
    }

    /// A list makes and drops its rows when it is next drawn.
    static void settle() { QTest::qWait(50); }

    [[nodiscard]] QQuickItem *button(const QString &name) const { return named(name, QAccessible::Button); }
    /// Whether that text stands somewhere.
    [[nodiscard]] bool shows(const QString &text) const
    {
        return find([&](QQuickItem *item) { return item->property("text").toString() == text; }) != nullptr;
    }
    /// Presses Tab until the item has the keyboard.
    [[nodiscard]] bool tabTo(const QQuickItem *item) const
    {
        for (int stops = 0; stops < 20 && !item->hasActiveFocus(); ++stops)
            key(Qt::Key_Tab);
        return item->hasActiveFocus();
    }
};

} // namespace corvane
