import QtQuick
import Corvane.Window
import Corvane.Duplicates

/// The duplicates with the window's commands.
DuplicatesScreen {
    toolbar: Component {
        ScanToolbar {}
    }
}
