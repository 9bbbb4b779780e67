import QtQuick
import Corvane.Window
import Corvane.Map

/// The Space Map with the window's commands.
ExplorerScreen {
    toolbar: Component {
        ScanToolbar {}
    }
    coveredHeight: (Window.window as MainWindow)?.coveredHeight ?? 0
}
