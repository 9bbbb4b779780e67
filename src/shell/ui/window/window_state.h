#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSettings>
#include <QTimer>

class QWindow;

namespace corvane {

/// Keeps the size and place of the window from one run to the next. Main thread only.
class WindowState : public QObject {
    Q_OBJECT

public:
    /// Neither is owned; both must outlive the object.
    WindowState(QWindow &window, QSettings &settings, QObject *parent = nullptr);
    ~WindowState() override;

    /// Gives the window its remembered size and place, before it is shown.
    void restore();
    /// Writes down what the window has now; happens by itself a little after each change, and at the end.
    void save();

    /// A remembered rectangle as it can be used with these screens (their usable areas, the first the main
    /// one): moved and shrunk so that it lies inside the screen that it overlaps most; without any overlap
    /// centred on the main screen. Never smaller than `minimum`.
    [[nodiscard]] static QRect fitted(const QRect &remembered, const QList<QRect> &screens, const QSize &minimum);

private:
    void note();

    QPointer<QWindow> m_window;
    QSettings &m_settings;
    QTimer m_settle;
    QRect m_normal; // when neither maximised nor full screen
    bool m_maximised = false;
};

} // namespace corvane
