import QtQuick
import Corvane.Window
import Corvane.Disk

/// "Where's My Space" with the window's commands.
BreakdownScreen {
    toolbar: Component {
        ScanToolbar {}
    }
}
