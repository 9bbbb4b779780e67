import QtQuick
import Corvane.Window
import Corvane.Lists

/// The large files with the window's commands.
LargeFilesScreen {
    toolbar: Component {
        ScanToolbar {}
    }
}
