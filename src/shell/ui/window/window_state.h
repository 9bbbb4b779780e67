#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSettings>
#include <QTimer>

class QWindow;

namespace corvane {

/// Saves and restores the size and position of the window. Main thread only.
class WindowState : public QObject {
    Q_OBJECT

public:
    /// Neither is owned; both must outlive the object.
    WindowState(QWindow &window, QSettings &settings, QObject *parent = nullptr);
    ~WindowState() override;

    /// Applies the saved geometry; call before the window is shown.
    void restore();
    /// Saves the current geometry; called automatically shortly after each change, and on destruction.
    void save();

    /// Adjusts a saved rectangle to these screens (their available areas, the primary one first): moved and shrunk to
    /// fit inside the screen that it overlaps most, or centred on the primary screen if it overlaps none. Never smaller
    /// than `minimum`.
    [[nodiscard]] static QRect fitted(const QRect &remembered, const QList<QRect> &screens, const QSize &minimum);

private:
    void note();

    QPointer<QWindow> m_window;
    QSettings &m_settings;
    QTimer m_settle;
    QRect m_normal; // while neither maximised nor full screen
    bool m_maximised = false;
};

} // namespace corvane
