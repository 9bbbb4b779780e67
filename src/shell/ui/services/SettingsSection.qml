import QtQuick
import Corvane.Shell
import Corvane.Services

/// A heading and a box with the section's rows.
Column {
    id: section

    required property string title
    default property alias rows: column.data

    Item {
        width: parent.width
        height: ServicesMetrics.settingsTitleHeight

        PlainText {
            x: Theme.space2
            anchors.bottom: parent.bottom
            anchors.bottomMargin: ServicesMetrics.settingsTitleBottom
            height: Theme.bodyLine
            text: section.title
            font: Theme.bodySemiboldFont
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
    }
    Rectangle {
        width: parent.width
        height: column.height + 2 * Theme.hairlineWidth
        radius: Theme.radiusBox
        color: Theme.surface
        border.width: Theme.hairlineWidth
        border.color: Theme.hairline

        Column {
            id: column

            x: Theme.hairlineWidth
            y: Theme.hairlineWidth
            width: parent.width - 2 * x
        }
    }
}
