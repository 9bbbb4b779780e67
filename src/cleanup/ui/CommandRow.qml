import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// A command that frees space, for the user to run.
BoxRow {
    id: row

    required property CommandClipboard clipboard
    required property string title
    required property string note
    required property string symbol
    required property int tint
    required property string action
    required property string sizeText
    required property string countText

    bodyHeight: CleanupMetrics.cardHeight
    presses: false

    IconBadge {
        id: badge

        x: CleanupMetrics.rowInset
        anchors.verticalCenter: parent.verticalCenter
        symbol: row.symbol
        tint: Theme.cleanupTints[row.tint]
    }
    Item {
        anchors.left: badge.right
        anchors.right: field.left
        anchors.leftMargin: Theme.space12
        anchors.rightMargin: Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        height: heading.height + detail.height

        PlainText {
            id: heading

            width: parent.width
            height: Theme.bodyLine
            text: row.title
            font: Theme.bodySemiboldFont
            Accessible.ignored: true
        }
        PlainText {
            id: detail

            anchors.top: heading.bottom
            width: parent.width
            height: (implicitWidth > width ? 2 : 1) * Theme.secondaryLine
            text: row.note
            wrapMode: Text.Wrap
            font: Theme.secondaryFont
            color: Theme.t2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    CommandField {
        id: field

        anchors.right: button.left
        anchors.rightMargin: Theme.space8
        anchors.verticalCenter: parent.verticalCenter
        // In a narrow window the description takes precedence over the command.
        width: Math.min(CleanupMetrics.commandWidth, Math.floor(row.width / 3))
        text: row.action
    }
    CopyButton {
        id: button

        anchors.right: figures.left
        anchors.rightMargin: Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        fixedWidth: CleanupMetrics.copyWidth
        focusPolicy: Qt.NoFocus
        clipboard: row.clipboard
        label: qsTr("Copy")
        command: row.action
    }
    Item {
        id: figures

        anchors.right: parent.right
        anchors.rightMargin: CleanupMetrics.figuresInset
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(CleanupMetrics.commandFiguresWidth, total.implicitWidth, freed.implicitWidth)
        height: Theme.bodyLine + Theme.captionLine

        PlainText {
            id: total

            anchors.right: parent.right
            height: Theme.bodyLine
            text: row.sizeText
            font: Theme.bodySemiboldFiguresFont
            elide: Text.ElideNone
            Accessible.ignored: true
        }
        PlainText {
            id: freed

            anchors.right: parent.right
            anchors.top: total.bottom
            height: Theme.captionLine
            text: row.countText
            font: Theme.captionFont
            color: Theme.t3
            elide: Text.ElideNone
            Accessible.ignored: true
        }
    }
}
