import QtQuick
import Corvane.Window
import Corvane.Overview
import Corvane.Disk

/// The overview with the window's commands.
OverviewScreen {
    toolbar: Component {
        ScanToolbar {}
    }
    breakdown: Component {
        BreakdownSummaryCard {}
    }
}
