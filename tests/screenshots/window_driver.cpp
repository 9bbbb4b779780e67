#include "screenshots/window_driver.h"

#include <stdexcept>

#include <QImage>
#include <QtTest/QTest>

#include "support/patience.h"

namespace corvane {

namespace {

constexpr int stillness = 120; // milliseconds between two screenshots that must be identical
constexpr QPoint nowhere{1, 1};

QQuickItem *findVisible(QQuickItem &from, const std::function<bool(const QQuickItem &)> &rule)
{
    if (!from.isVisible())
        return nullptr;
    if (rule(from))
        return &from;
    for (QQuickItem *child : from.childItems()) {
        if (QQuickItem *found = findVisible(*child, rule))
            return found;
    }
    return nullptr;
}

} // namespace

void giveUp(const QString &why)
{
    throw std::runtime_error(why.toStdString());
}

QQuickItem &WindowDriver::item(const QString &objectName) const
{
    return itemWhere([&](const QQuickItem &item) { return item.objectName() == objectName; }, objectName);
}

QQuickItem &WindowDriver::itemWhere(const std::function<bool(const QQuickItem &)> &rule, const QString &what) const
{
    QQuickItem *found = nullptr;
    waitFor(
        [&] {
            found = find(rule);
            return found != nullptr;
        },
        what);
    return *found;
}

QQuickItem *WindowDriver::find(const std::function<bool(const QQuickItem &)> &rule) const
{
    return findVisible(*m_window.contentItem(), rule);
}

void WindowDriver::click(const QQuickItem &item, Qt::MouseButton button)
{
    clickAt(item, item.boundingRect().center(), button);
}

void WindowDriver::clickAt(const QQuickItem &item, QPointF point, Qt::MouseButton button)
{
    pointAt(item, point);
    QTest::mouseClick(&m_window, button, Qt::NoModifier, item.mapToScene(point).toPoint());
}

void WindowDriver::doubleClickAt(const QQuickItem &item, QPointF point)
{
    pointAt(item, point);
    QTest::mouseDClick(&m_window, Qt::LeftButton, Qt::NoModifier, item.mapToScene(point).toPoint());
}

void WindowDriver::pointAt(const QQuickItem &item, QPointF point)
{
    QTest::mouseMove(&m_window, item.mapToScene(point).toPoint());
    QTest::qWait(1);
}

void WindowDriver::pointAtNothing()
{
    QTest::mouseMove(&m_window, nowhere);
    QTest::qWait(1);
}

void WindowDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&m_window, key, modifiers);
}

void WindowDriver::resize(int width, int height)
{
    m_window.resize(width, height);
    waitFor([&] { return m_window.contentItem()->size() == QSizeF(width, height); }, QStringLiteral("the new size"));
}

void WindowDriver::waitFor(const std::function<bool()> &condition, const QString &what) const
{
    if (!QTest::qWaitFor(condition, patience))
        giveUp(QStringLiteral("waited in vain for %1").arg(what));
}

QImage WindowDriver::picture() const
{
    return m_window.grabWindow().convertToFormat(QImage::Format_RGB32);
}

QImage WindowDriver::stillPicture() const
{
    QImage last = picture();
    const auto isStill = [&] {
        QTest::qWait(stillness);
        QImage next = picture();
        const bool same = next == last;
        last = std::move(next);
        return same;
    };
    waitFor(isStill, QStringLiteral("the window to come to rest"));
    return last;
}

} // namespace corvane
