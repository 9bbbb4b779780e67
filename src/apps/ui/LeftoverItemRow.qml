import QtQuick
import Corvane.Shell
import Corvane.Apps

/// One item of the Library: its location, its size, and whether it will be removed.
BoxRow {
    id: row

    required property string title
    required property int elideMode
    required property string location
    required property string date
    required property string sizeText
    required property string iconKey
    required property int checkState
    required property bool checkable
    required property string checkReason
    /// The title is the whole path.
    property bool showsPath: false
    /// Shows when the item was last modified.
    property bool showsDate: false

    signal toggleWanted
    signal revealWanted

    bodyHeight: AppsMetrics.leftoverHeight
    presses: false
    Accessible.checkable: checkable
    Accessible.checked: checkState === Qt.Checked
    onActivated: row.revealWanted()

    SelectToggle {
        x: Theme.hairlineWidth + AppsMetrics.rowInset - (width - Theme.checkBoxSize) / 2
        height: parent.height
        focusPolicy: Qt.NoFocus
        checkState: row.checkState
        accessibleName: row.title
        protectedPlace: !row.checkable
        reason: row.checkReason
        onToggled: row.toggleWanted()
    }
    FileIcon {
        id: icon

        x: Theme.hairlineWidth + AppsMetrics.rowInset + Theme.checkBoxSize + AppsMetrics.rowGap
        anchors.verticalCenter: parent.verticalCenter
        iconKey: row.iconKey
    }
    PlainText {
        anchors.left: icon.right
        anchors.right: location.left
        anchors.leftMargin: AppsMetrics.rowGap
        anchors.rightMargin: AppsMetrics.rowGap
        height: parent.height
        text: row.title
        elide: row.elideMode
        Accessible.ignored: true
    }
    PlainText {
        id: location

        anchors.right: date.left
        anchors.rightMargin: row.showsDate ? AppsMetrics.rowGap : 0
        width: row.showsPath ? AppsMetrics.kindWidth
            : row.showsDate ? AppsMetrics.datedLocationWidth : AppsMetrics.locationWidth
        height: parent.height
        text: row.location
        font: Theme.secondaryFont
        color: Theme.t3
        Accessible.ignored: true
    }
    PlainText {
        id: date

        anchors.right: size.left
        anchors.rightMargin: AppsMetrics.rowGap
        width: row.showsDate ? AppsMetrics.dateWidth : 0
        height: parent.height
        text: row.date
        font: Theme.secondaryFiguresFont
        color: Theme.t3
        visible: row.showsDate
        Accessible.ignored: true
    }
    PlainText {
        id: size

        anchors.right: reveal.left
        anchors.rightMargin: Theme.space10
        width: Math.max(implicitWidth, row.showsDate ? AppsMetrics.datedSizeWidth : AppsMetrics.sizeWidth)
        height: parent.height
        text: row.sizeText
        font: Theme.bodyFiguresFont
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideNone
        Accessible.ignored: true
    }
    RevealButton {
        id: reveal

        anchors.right: parent.right
        anchors.rightMargin: Theme.hairlineWidth + AppsMetrics.rowEnd + Theme.hairlineWidth
        anchors.verticalCenter: parent.verticalCenter
        text: SystemTexts.reveal
        itemName: row.title
        onClicked: row.revealWanted()
    }
}
