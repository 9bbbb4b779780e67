import QtQuick
import Corvane.Shell
import Corvane.Map

/// The tool tip of a tile: its name, its size, and its share of the folder.
Item {
    id: pill

    required property TreemapView map
    readonly property point place: map.pillPlace(map.pointer, Qt.size(width, height))

    x: Math.round(place.x)
    y: Math.round(place.y)
    width: words.x + words.width + Theme.space12
    height: words.height + 2 * Theme.space8 - Theme.hairlineWidth
    opacity: map.pillShown ? 1 : 0
    visible: opacity > 0
    Accessible.ignored: true

    Behavior on opacity {
        enabled: pill.map.pillShown
        NumberAnimation {
            duration: Theme.fastDuration
            easing.type: Easing.OutQuad
        }
    }

    Panel {
        anchors.fill: parent
    }
    FileIcon {
        id: fileIcon

        x: Theme.space10
        anchors.verticalCenter: parent.verticalCenter
        iconKey: pill.map.pillIcon
        size: Theme.pillFileIconSize
    }
    Icon {
        anchors.centerIn: fileIcon
        symbol: "doc.on.doc"
        color: Theme.t2
        size: Theme.pillFileIconSize
        visible: pill.map.pillIcon === ""
    }
    Column {
        id: words

        x: fileIcon.x + fileIcon.width + MapMetrics.rowGap
        y: Theme.space8 - Theme.hairlineWidth

        PlainText {
            width: Math.min(implicitWidth, Theme.tipMaximumWidth)
            height: Theme.bodyLine
            text: pill.map.pillTitle
            font: Theme.bodySemiboldFont
            elide: Text.ElideMiddle
        }
        PlainText {
            height: Theme.secondaryLine
            text: pill.map.pillInfo
            font: Theme.secondaryFiguresFont
            color: Theme.t2
        }
    }
}
