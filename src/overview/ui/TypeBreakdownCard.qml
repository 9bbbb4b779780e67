pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Overview

/// The scan's sizes by type.
OverviewBox {
    id: card

    required property OverviewPresenter presenter

    contentHeight: rows.y + rows.height + OverviewMetrics.rowsBottom

    CardHead {
        id: head

        width: parent.width
        title: qsTr("File types")
        detail: card.presenter.typesFigures
    }
    StackedBar {
        id: bar

        x: Theme.boxPadding
        anchors.top: head.bottom
        anchors.topMargin: Theme.space2
        width: parent.width - 2 * x
        height: OverviewMetrics.typesBarHeight
        radius: OverviewMetrics.typesBarRadius
        parts: card.presenter.typeParts
        Accessible.ignored: true
    }
    Column {
        id: rows

        x: Theme.boxPadding
        anchors.top: bar.bottom
        anchors.topMargin: Theme.space8
        width: parent.width - 2 * x

        Repeater {
            model: card.presenter.types

            delegate: Item {
                id: row

                required property string title
                required property string sizeText
                required property color color
                required property string description

                width: rows.width
                height: OverviewMetrics.typeRowHeight
                Accessible.role: Accessible.StaticText
                Accessible.name: description

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
            }
        }
    }
}
