import QtQuick
import Corvane.Window
import Corvane.Lists

/// The old files with the window's commands.
OldFilesScreen {
    toolbar: Component {
        ScanToolbar {}
    }
}
