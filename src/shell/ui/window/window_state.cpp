#include "shell/ui/window/window_state.h"

#include <algorithm>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace corvane {

namespace {

const QString geometryKey = QStringLiteral("window.geometry");
const QString maximisedKey = QStringLiteral("window.maximised");

// A window manager sends a window's new size before the maximised state.
constexpr int settleTime = 400; // milliseconds

qint64 area(const QRect &rect)
{
    return rect.isEmpty() ? 0 : qint64(rect.width()) * rect.height();
}

} // namespace

WindowState::WindowState(QWindow &window, QSettings &settings, QObject *parent)
    : QObject(parent), m_window(&window), m_settings(settings)
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(settleTime);
    connect(&m_settle, &QTimer::timeout, this, &WindowState::save);
    const auto changed = [this] { m_settle.start(); };
    connect(&window, &QWindow::xChanged, this, changed);
    connect(&window, &QWindow::yChanged, this, changed);
    connect(&window, &QWindow::widthChanged, this, changed);
    connect(&window, &QWindow::heightChanged, this, changed);
    connect(&window, &QWindow::windowStateChanged, this, changed);
}

WindowState::~WindowState()
{
    if (m_settle.isActive())
        save();
}

QRect WindowState::fitted(const QRect &remembered, const QList<QRect> &screens, const QSize &minimum)
{
    if (screens.isEmpty())
        return remembered;
    const auto overlap = [&remembered](const QRect &screen) { return area(screen.intersected(remembered)); };
    const QRect *screen = &*std::ranges::max_element(screens, {}, overlap);
    const bool isOffScreen = overlap(*screen) == 0;
    if (isOffScreen)
        screen = &screens.front();

    const QSize size = remembered.size().boundedTo(screen->size()).expandedTo(minimum);
    QRect rect(remembered.topLeft(), size);
    if (isOffScreen)
        rect.moveCenter(screen->center());
    rect.moveLeft(std::max(screen->left(), std::min(rect.left(), screen->right() + 1 - size.width())));
    rect.moveTop(std::max(screen->top(), std::min(rect.top(), screen->bottom() + 1 - size.height())));
    return rect;
}

void WindowState::restore()
{
    const QRect remembered = m_settings.value(geometryKey).toRect();
    if (remembered.isEmpty())
        return;
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    m_normal = fitted(remembered, screens, m_window->minimumSize());
    m_window->setGeometry(m_normal);
    m_maximised = m_settings.value(maximisedKey).toBool();
    if (!m_maximised)
        return;
    // Create the window at its normal geometry first: one created maximised has no geometry to restore to.
    m_window->create();
    m_window->setWindowState(Qt::WindowMaximized);
}

void WindowState::note()
{
    const Qt::WindowStates states = m_window->windowStates();
    m_maximised = states.testFlag(Qt::WindowMaximized);
    constexpr Qt::WindowStates enlarged = Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized;
    if ((states & enlarged) == 0)
        m_normal = m_window->geometry();
}

void WindowState::save()
{
    m_settle.stop();
    if (!m_window)
        return;
    note();
    if (m_normal.isEmpty())
        return;
    m_settings.setValue(geometryKey, m_normal);
    m_settings.setValue(maximisedKey, m_maximised);
}

} // namespace corvane
