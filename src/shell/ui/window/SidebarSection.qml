import QtQuick
import Corvane.Shell
import Corvane.Window

/// The title of a section of the sidebar.
PlainText {
    property bool first: false

    height: topPadding + Theme.captionLine + WindowMetrics.sectionBelow
    leftPadding: WindowMetrics.sectionInset
    topPadding: first ? WindowMetrics.firstSectionAbove : WindowMetrics.sectionAbove
    verticalAlignment: Text.AlignTop
    font: Theme.captionSemiboldFont
    color: Theme.t3
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
