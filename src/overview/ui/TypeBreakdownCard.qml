pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Overview

/// The scan's sizes by type.
OverviewBox {
    id: card

    required property OverviewPresenter presenter

    contentHeight: (empty.visible ? head.height + empty.height + 2 * Theme.space16 : rows.y + rows.height)
        + OverviewMetrics.rowsBottom

    CardHead {
        id: head

        width: parent.width
        title: qsTr("File types")
        detail: card.presenter.typesFigures
    }
    CardMessage {
        id: empty

        objectName: "overview.noTypes"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.boxPadding
        y: head.height + Math.round((parent.height - head.height - height) / 2)
        visible: title !== ""
        symbol: card.presenter.emptySymbol
        tint: Theme.t2
        title: card.presenter.noTypesText
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
        visible: !empty.visible
        Accessible.ignored: true
    }
    AppList {
        id: rows

        objectName: "overview.types"
        x: Theme.boxPadding
        anchors.top: bar.bottom
        anchors.topMargin: Theme.space8
        width: parent.width - 2 * x
        height: view.count * rowHeight
        Accessible.name: head.title
        rowHeight: OverviewMetrics.typeRowHeight
        view.interactive: false
        keys.onOpenWanted: row => card.presenter.openType(row)

        model: card.presenter.types
        delegate: TypeRow {
            width: rows.width
            ringed: ListView.isCurrentItem && rows.visualFocus
            onPressed: rows.point(index)
            onActivated: card.presenter.openType(index)
        }
    }
}
