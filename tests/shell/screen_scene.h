#pragma once

#include "shell/quick_scene.h"

namespace corvane {

/// One screen of the program in its own window, with the pointer outside it.
class ScreenScene : public QuickScene {
public:
    /// `file` is a module and a type in it, such as "Map/ExplorerScreen"; `more` is added to the Loader that shows it.
    explicit ScreenScene(const QByteArray &file, QSize size, const QByteArray &more = {})
        : QuickScene("Loader { anchors.fill: parent; source: \"qrc:/qt/qml/Corvane/" + file + ".qml\"\n" + more + " }")
    {
        if (!isShown())
            return;
        window()->resize(size);
        QTest::mouseMove(window(), QPoint(1, 1));
        settle();
    }

    /// A list creates and destroys delegates on the next frame.
    static void settle() { QTest::qWait(50); }

    [[nodiscard]] QQuickItem *button(const QString &name) const { return named(name, QAccessible::Button); }
    /// Whether the text is visible.
    [[nodiscard]] bool shows(const QString &text) const
    {
        return find([&](QQuickItem *item) { return item->property("text").toString() == text; }) != nullptr;
    }
    /// Presses Tab until the item has the focus.
    [[nodiscard]] bool tabTo(const QQuickItem *item) const
    {
        if (item == nullptr)
            return false;
        for (int stops = 0; stops < 20 && !item->hasActiveFocus(); ++stops)
            key(Qt::Key_Tab);
        return item->hasActiveFocus();
    }
};

} // namespace corvane
