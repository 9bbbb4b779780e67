import QtQuick
import Corvane.Shell
import Corvane.Window

/// The window with all screens of the program.
MainWindow {
    screens: SidebarModel {
        WindowScreen {
            item: Store.SidebarItem.overview
            source: "screens/OverviewPage.qml"
        }
        WindowScreen {
            item: Store.SidebarItem.breakdown
            source: "screens/BreakdownPage.qml"
        }
        WindowScreen {
            item: Store.SidebarItem.explorer
            goesBeneathBar: true
            source: "screens/ExplorerPage.qml"
        }
        WindowScreen {
            item: Store.SidebarItem.uninstaller
            source: "screens/UninstallerPage.qml"
        }
        WindowScreen {
            item: Store.SidebarItem.large
            source: "screens/LargeFilesPage.qml"
        }
        WindowScreen {
            item: Store.SidebarItem.old
            source: "screens/OldFilesPage.qml"
        }
        WindowScreen {
            item: Store.SidebarItem.duplicates
            source: "screens/DuplicatesPage.qml"
        }
        WindowScreen {
            item: Store.SidebarItem.cleanup
            source: "screens/CleanupPage.qml"
        }
    }
}
