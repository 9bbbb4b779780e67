#pragma once

#include <functional>
#include <string_view>

#include <QPointF>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>

namespace corvane {

/// Operates a window like a person: finds items, points, clicks, types. Throws std::runtime_error if an item is not
/// found or a condition is not met in time. Main thread only.
class WindowDriver {
public:
    explicit WindowDriver(QQuickWindow &window) : m_window(window) {}

    [[nodiscard]] QQuickWindow *window() const { return &m_window; }
    /// The visible item with this object name.
    [[nodiscard]] QQuickItem &item(const QString &objectName) const;
    /// The visible item that matches.
    [[nodiscard]] QQuickItem &itemWhere(const std::function<bool(const QQuickItem &)> &rule, const QString &what) const;
    /// The first visible item that matches now; null if there is none.
    [[nodiscard]] QQuickItem *find(const std::function<bool(const QQuickItem &)> &rule) const;

    void click(const QQuickItem &item, Qt::MouseButton button = Qt::LeftButton);
    /// The same at a position in the item.
    void clickAt(const QQuickItem &item, QPointF point, Qt::MouseButton button = Qt::LeftButton);
    void doubleClick(const QQuickItem &item) { doubleClickAt(item, item.boundingRect().center()); }
    void doubleClickAt(const QQuickItem &item, QPointF point);
    void pointAt(const QQuickItem &item, QPointF point);
    /// Moves the pointer off all items.
    void pointAtNothing();
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void resize(int width, int height);

    /// Processes events until the condition holds.
    void waitFor(const std::function<bool()> &condition, const QString &what) const;
    /// Processes events until the window stops changing.
    void rest() const { static_cast<void>(stillPicture()); }
    [[nodiscard]] QImage stillPicture() const;
    [[nodiscard]] QImage picture() const;

private:
    QQuickWindow &m_window;
};

/// Throws a std::runtime_error with this message.
[[noreturn]] void giveUp(const QString &why);

} // namespace corvane
