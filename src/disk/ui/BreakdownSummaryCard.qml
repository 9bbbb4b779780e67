import QtQuick
import Corvane.Disk
import Corvane.Shell

/// The breakdown in one line: a small bar, how much is explained, and a link to the screen. A row of a box: it has no
/// background of its own.
Item {
    id: card

    implicitHeight: DiskMetrics.summaryHeight

    BreakdownPresenter {
        id: presenter
    }
    Rectangle {
        anchors.fill: bar
        radius: bar.radius
        color: Theme.track
        visible: !presenter.available
    }
    StackedBar {
        id: bar

        objectName: "summary.bar"
        x: Theme.boxPadding
        anchors.verticalCenter: parent.verticalCenter
        // Leaves enough room to show the text beside a remark in full even in the smallest window.
        width: partial.visible ? DiskMetrics.summaryBarWidthBesideRemark : DiskMetrics.summaryBarWidth
        height: DiskMetrics.summaryBarHeight
        radius: Theme.radiusLeaf
        gap: Theme.hairlineWidth
        parts: presenter.summaryParts
        Accessible.ignored: true
    }
    PlainText {
        id: title

        anchors.left: bar.right
        anchors.leftMargin: Theme.space14
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Where's my space?")
        font: Theme.bodySemiboldFont
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    PlainText {
        objectName: "summary.text"
        anchors.left: title.right
        anchors.right: partial.visible ? partial.left : button.left
        anchors.leftMargin: Theme.space10
        anchors.rightMargin: Theme.space10
        anchors.baseline: title.baseline
        text: presenter.summary
        font: Theme.secondaryFiguresFont
        color: Theme.t2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Tag {
        id: partial

        objectName: "summary.partial"
        anchors.right: button.left
        anchors.rightMargin: Theme.space10
        anchors.verticalCenter: parent.verticalCenter
        tone: "warning"
        text: presenter.partialText
        visible: text !== ""
    }
    PillButton {
        id: button

        objectName: "summary.seeBreakdown"
        anchors.right: parent.right
        anchors.rightMargin: Theme.boxPadding
        anchors.verticalCenter: parent.verticalCenter
        small: true
        text: qsTr("See Breakdown")
        onClicked: presenter.openBreakdown()
    }
}
