#pragma once

#include <QObject>

namespace corvane {

/// Keeps the keyboard's ring where it belongs. A control shows its ring only when Tab or a shortcut brought the
/// focus; when a menu, a sheet or another window hands the focus on or gives it back, Qt tells the control that
/// as the reason, and whoever works with the keyboard would lose sight of it. Looks at the focus events of the
/// whole program. Main thread only.
class FocusReasonKeeper : public QObject {
public:
    /// Needs the QGuiApplication, which owns it. Does nothing when called again.
    static void install();

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    using QObject::QObject;

    bool m_byKeyboard = false; // whether the item that had the focus last had it from the keyboard
};

} // namespace corvane
