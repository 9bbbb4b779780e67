import QtQuick
import Corvane.Window
import Corvane.Apps

/// The App Uninstaller with the window's commands.
UninstallerScreen {
    toolbar: Component {
        ScanToolbar {}
    }
}
