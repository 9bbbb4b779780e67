#pragma once

#include <QObject>

namespace corvane {

/// Keeps the keyboard focus and its ring from getting lost. Filters the focus events of the whole application. Main
/// thread only.
///
/// A control shows its focus ring only if Tab or a shortcut moved the focus. When a menu, a sheet or another window
/// passes the focus on or returns it, Qt reports that as the reason, and the ring would disappear.
///
/// A control that its own command disables, such as "up" at the root, loses the focus to no other item; this class
/// moves it to a neighbour.
class FocusKeeper : public QObject {
public:
    /// Requires the QGuiApplication, which owns the filter. Does nothing when called again.
    static void install();

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    using QObject::QObject;

    bool m_byKeyboard = false; // whether the keyboard moved the focus to the item that had it last
};

} // namespace corvane
