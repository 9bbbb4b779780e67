import QtQuick
import Corvane.Shell
import Corvane.Lists

/// The column titles: each sorts, and its right edge resizes the column.
Rectangle {
    id: header

    required property FileTableColumns columns
    required property FileTableModel files

    implicitHeight: Theme.tableHeaderHeight
    color: Theme.surface

    Row {
        x: Theme.pageMargin + Theme.checkCellWidth
        height: parent.height

        ColumnTitle {
            objectName: "lists.name"
            text: qsTr("Name")
            column: FileTableColumns.Title.name
            width: header.columns.nameWidth
            columns: header.columns
            files: header.files
        }
        ColumnTitle {
            objectName: "lists.size"
            text: qsTr("Size")
            column: FileTableColumns.Title.size
            width: header.columns.sizeWidth
            columns: header.columns
            files: header.files
            figures: true
        }
        ColumnTitle {
            objectName: "lists.kind"
            text: qsTr("Kind")
            column: FileTableColumns.Title.kind
            width: header.columns.kindWidth
            columns: header.columns
            files: header.files
        }
        ColumnTitle {
            objectName: "lists.modified"
            text: qsTr("Modified")
            column: FileTableColumns.Title.modified
            width: header.columns.modifiedWidth
            columns: header.columns
            files: header.files
        }
        ColumnTitle {
            objectName: "lists.location"
            text: qsTr("Location")
            column: FileTableColumns.Title.location
            width: header.columns.locationWidth
            columns: header.columns
            files: header.files
            resizable: false
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairlineWidth
        color: Theme.hairline
    }
}
