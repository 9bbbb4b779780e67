#pragma once

#include <QObject>

namespace corvane {

/// Keeps whoever works with the keyboard from losing their place. Looks at the focus events of the whole program.
/// Main thread only.
///
/// A control shows its ring only when Tab or a shortcut brought the focus. When a menu, a sheet or another window
/// hands the focus on or gives it back, Qt tells the control that as the reason, and the ring would be gone.
///
/// A control that its own command disables, as "up" is at the root, loses the focus to nobody: here to its neighbour.
class FocusKeeper : public QObject {
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
