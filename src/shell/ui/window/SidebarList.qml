pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Window

/// The program's screens. A single Tab stop; the arrow keys, Home and End change the selection.
KeyboardItem {
    id: list

    required property SidebarModel screens

    objectName: "sidebar"
    implicitHeight: rows.height
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Screens")

    ListKeys {
        target: list
        model: list.screens
        current: list.screens.currentRow
        onMoved: row => list.screens.choose(row)
    }
    Column {
        id: rows

        width: parent.width
        spacing: WindowMetrics.rowGap

        Repeater {
            model: list.screens

            delegate: Column {
                id: entry

                required property int index
                required property string key
                required property string title
                required property string symbol
                required property string section
                required property bool startsSection
                required property bool current

                width: list.width

                SidebarSection {
                    width: parent.width
                    visible: entry.startsSection
                    first: entry.index === 0
                    text: entry.section
                }
                SidebarRow {
                    objectName: "sidebar." + entry.key
                    width: parent.width
                    title: entry.title
                    symbol: entry.symbol
                    current: entry.current
                    focused: entry.current && list.visualFocus
                    onChosen: list.screens.choose(entry.index)
                }
            }
        }
    }
}
