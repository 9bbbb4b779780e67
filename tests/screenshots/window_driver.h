#pragma once

#include <functional>
#include <string_view>

#include <QPointF>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>

namespace corvane {

/// Works a window as a person does: looks for things, points at them, clicks, types. What cannot be found or
/// does not come about throws a std::runtime_error. Main thread only.
class WindowDriver {
public:
    explicit WindowDriver(QQuickWindow &window) : m_window(window) {}

    [[nodiscard]] QQuickWindow *window() const { return &m_window; }
    /// The visible item of that object name.
    [[nodiscard]] QQuickItem &item(const QString &objectName) const;
    /// The visible item of which this holds.
    [[nodiscard]] QQuickItem &itemWhere(const std::function<bool(const QQuickItem &)> &rule, const QString &what) const;
    /// The first visible item of which this holds now; null for none.
    [[nodiscard]] QQuickItem *find(const std::function<bool(const QQuickItem &)> &rule) const;

    void click(const QQuickItem &item, Qt::MouseButton button = Qt::LeftButton);
    /// The same at a point of the item.
    void clickAt(const QQuickItem &item, QPointF point, Qt::MouseButton button = Qt::LeftButton);
    void doubleClick(const QQuickItem &item) { doubleClickAt(item, item.boundingRect().center()); }
    void doubleClickAt(const QQuickItem &item, QPointF point);
    void pointAt(const QQuickItem &item, QPointF point);
    /// Takes the pointer off everything.
    void pointAtNothing();
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void resize(int width, int height);

    /// Lets the window live until the condition holds.
    void waitFor(const std::function<bool()> &condition, const QString &what) const;
    /// Lets the window live until it stops moving.
    void rest() const { static_cast<void>(stillPicture()); }
    [[nodiscard]] QImage stillPicture() const;
    [[nodiscard]] QImage picture() const;

private:
    QQuickWindow &m_window;
};

/// Throws a std::runtime_error with that sentence.
[[noreturn]] void giveUp(const QString &why);

} // namespace corvane
