import QtQuick
import Corvane.Shell
import Corvane.Overview

/// The total size of one type. A press lists its large files, if it is a type of files.
Item {
    id: row

    required property int index
    required property string title
    required property string sizeText
    required property color color
    required property bool leads
    required property string description
    /// Whether this row shows the keyboard focus.
    property bool ringed: false

    signal pressed
    signal activated

    implicitHeight: OverviewMetrics.typeRowHeight
    Accessible.role: leads ? Accessible.Link : Accessible.StaticText
    Accessible.name: description
    Accessible.onPressAction: if (row.leads) row.activated()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -Theme.space8
        anchors.rightMargin: -Theme.space8
        radius: Theme.radiusControl
        color: row.leads && mouse.containsMouse ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
    }
    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        enabled: row.leads
        onPressed: row.pressed()
        onClicked: row.activated()
    }
    Swatch {
        id: swatch

        anchors.verticalCenter: parent.verticalCenter
        color: row.color
    }
    PlainText {
        anchors.left: swatch.right
        anchors.right: size.left
        anchors.leftMargin: Theme.space8
        anchors.rightMargin: Theme.space8
        height: parent.height
        text: row.title
        Accessible.ignored: true
    }
    PlainText {
        id: size

        anchors.right: parent.right
        height: parent.height
        text: row.sizeText
        font: Theme.bodyFiguresFont
        elide: Text.ElideNone
        Accessible.ignored: true
    }
    FocusRing {
        anchors.leftMargin: -Theme.space8
        anchors.rightMargin: -Theme.space8
        around: Theme.radiusControl
        inset: true
        visible: row.ringed
    }
}
