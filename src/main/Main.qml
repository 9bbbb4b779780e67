import QtQuick
import Corvane.Shell
import Corvane.Window
import Corvane.Disk
import Corvane.Map
import Corvane.Apps
import Corvane.Lists
import Corvane.Duplicates
import Corvane.Cleanup
import Corvane.Overview

/// The window with every screen that the program has.
MainWindow {
    id: window

    screens: SidebarModel {
        store: Store

        WindowScreen {
            item: Store.SidebarItem.overview

            OverviewScreen {
                toolbar: Component {
                    ScanToolbar {}
                }
                breakdown: Component {
                    BreakdownSummaryCard {}
                }
            }
        }
        WindowScreen {
            item: Store.SidebarItem.breakdown

            BreakdownScreen {
                toolbar: Component {
                    ScanToolbar {}
                }
            }
        }
        WindowScreen {
            item: Store.SidebarItem.explorer
            goesBeneathBar: true

            ExplorerScreen {
                // A component that is bound to its surroundings is more than the Loader of Qt 6.4 can make.
                coveredHeight: window.coveredHeight // qmllint disable unqualified
                toolbar: Component {
                    ScanToolbar {}
                }
            }
        }
        WindowScreen {
            item: Store.SidebarItem.uninstaller

            UninstallerScreen {
                toolbar: Component {
                    ScanToolbar {}
                }
            }
        }
        WindowScreen {
            item: Store.SidebarItem.large

            LargeFilesScreen {
                toolbar: Component {
                    ScanToolbar {}
                }
            }
        }
        WindowScreen {
            item: Store.SidebarItem.old

            OldFilesScreen {
                toolbar: Component {
                    ScanToolbar {}
                }
            }
        }
        WindowScreen {
            item: Store.SidebarItem.duplicates

            DuplicatesScreen {
                toolbar: Component {
                    ScanToolbar {}
                }
            }
        }
        WindowScreen {
            item: Store.SidebarItem.cleanup

            CleanupScreen {
                toolbar: Component {
                    ScanToolbar {}
                }
            }
        }
    }
}
