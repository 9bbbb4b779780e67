import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// One location of the catalogue. A press expands it to its largest entries.
BoxRow {
    id: card

    required property string title
    required property string note
    required property string symbol
    required property int tint
    required property string risk
    required property string sizeText
    required property string countText
    required property bool unreadable
    required property int checkState
    required property bool checkable
    required property string checkReason
    required property bool expanded

    signal toggleWanted

    bodyHeight: CleanupMetrics.cardHeight
    Accessible.description: expanded ? qsTr("Expanded") : qsTr("Collapsed")

    SelectToggle {
        x: CleanupMetrics.rowInset - (width - Theme.checkBoxSize) / 2
        height: parent.height
        focusPolicy: Qt.NoFocus
        checkState: card.checkState
        accessibleName: card.title
        protectedPlace: !card.checkable
        reason: card.checkReason
        onToggled: card.toggleWanted()
    }
    IconBadge {
        id: badge

        x: CleanupMetrics.rowInset + Theme.checkBoxSize + Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        symbol: card.symbol
        tint: Theme.cleanupTints[card.tint]
    }
    Item {
        anchors.left: badge.right
        anchors.right: figures.left
        anchors.leftMargin: Theme.space12
        anchors.rightMargin: Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        height: Theme.bodyLine + Theme.secondaryLine

        PlainText {
            id: heading

            width: Math.min(implicitWidth, parent.width - riskBadge.width - Theme.space8)
            height: Theme.bodyLine
            text: card.title
            font: Theme.bodySemiboldFont
            Accessible.ignored: true
        }
        RiskBadge {
            id: riskBadge

            anchors.left: heading.right
            anchors.leftMargin: Theme.space8
            anchors.verticalCenter: heading.verticalCenter
            risk: card.risk
        }
        PlainText {
            anchors.top: heading.bottom
            width: parent.width
            height: Theme.secondaryLine
            text: card.note
            font: Theme.secondaryFont
            color: Theme.t2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    Item {
        id: figures

        anchors.right: parent.right
        anchors.rightMargin: CleanupMetrics.figuresInset
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(CleanupMetrics.cardFiguresWidth, total.implicitWidth, count.implicitWidth)
        height: Theme.bodyLine + (card.countText === "" ? 0 : Theme.captionLine)

        PlainText {
            id: total

            anchors.right: parent.right
            height: Theme.bodyLine
            text: card.sizeText
            font: Theme.bodySemiboldFiguresFont
            elide: Text.ElideNone
            Accessible.ignored: true
        }
        PlainText {
            id: count

            anchors.right: parent.right
            anchors.top: total.bottom
            height: Theme.captionLine
            text: card.countText
            font: Theme.captionFiguresFont
            color: card.unreadable ? Theme.warnText : Theme.t3
            elide: Text.ElideNone
            Accessible.ignored: true
        }
    }
    FoldCaret {
        anchors.right: parent.right
        anchors.rightMargin: CleanupMetrics.rowInset + Theme.space4
        anchors.verticalCenter: parent.verticalCenter
        size: CleanupMetrics.caretSize
        expanded: card.expanded
    }
}
