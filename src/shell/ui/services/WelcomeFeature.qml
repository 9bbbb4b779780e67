import QtQuick
import Corvane.Shell
import Corvane.Services

/// One feature of the program.
Item {
    id: feature

    required property string symbol
    required property string title
    required property string line

    implicitHeight: ServicesMetrics.featureBadgeSize

    IconBadge {
        id: badge

        symbol: feature.symbol
        size: ServicesMetrics.featureBadgeSize
        iconSize: ServicesMetrics.featureIconSize
    }
    Column {
        anchors.left: badge.right
        anchors.leftMargin: Theme.space14
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter

        PlainText {
            width: parent.width
            height: Theme.bodyLine
            text: feature.title
            font: Theme.bodySemiboldFont
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PlainText {
            width: parent.width
            height: Theme.secondaryLine
            text: feature.line
            font: Theme.secondaryFont
            color: Theme.t2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
