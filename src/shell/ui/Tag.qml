import QtQuick
import Corvane.Shell

/// A word in a capsule.
Rectangle {
    id: tag

    /// "neutral", "accent", "danger", "warning" or "ok".
    property string tone: "neutral"
    property alias text: words.text
    property string iconName
    property string symbol
    /// Shows a dot before the word: work is in progress.
    property bool pointed: false
    readonly property color inkColor: tone === "accent" ? Theme.accentText
        : tone === "danger" ? Theme.dangerText
        : tone === "warning" ? Theme.warnText
        : tone === "ok" ? Theme.okText : Theme.t2

    implicitWidth: Math.ceil(row.implicitWidth) + 2 * Theme.tagPadding - (iconName === "" ? 0 : Theme.hairlineWidth)
    implicitHeight: Theme.tagHeight
    radius: height / 2
    color: tone === "accent" ? Theme.accentSoft
        : tone === "danger" ? Theme.dangerSoft
        : tone === "warning" ? Theme.warnSoft
        : tone === "ok" ? Theme.okSoft : Theme.fillq
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Row {
        id: row

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: Theme.tagPadding
        spacing: tag.pointed ? Theme.space6 : Theme.space4

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.pointSize
            height: width
            radius: width / 2
            color: tag.tone === "warning" ? Theme.warnIcon : tag.inkColor
            visible: tag.pointed
        }
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: tag.iconName
            weight: "bold"
            color: tag.inkColor
            size: Theme.caretSize
        }
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            symbol: tag.symbol
            color: tag.inkColor
            size: Theme.space12
        }
        PlainText {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            font: Theme.captionMediumFont
            color: tag.inkColor
        }
    }
}
