import QtQuick
import Corvane.Window
import Corvane.Cleanup

/// The cleanup with the window's commands.
CleanupScreen {
    toolbar: Component {
        ScanToolbar {}
    }
}
