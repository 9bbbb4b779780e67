import QtQuick
import Corvane.Shell
import Corvane.Overview

/// The results of the scan, in cards of equal height; includes the quick wins if three cards fit.
Item {
    id: cards

    required property OverviewPresenter presenter
    required property bool wide

    readonly property real room: width - (wide ? 2 : 1) * Theme.boxGap

    implicitHeight: Math.max(types.implicitHeight, folders.implicitHeight, wide ? wins.implicitHeight : 0)

    TypeBreakdownCard {
        id: types

        width: Math.round(cards.room * (cards.wide ? OverviewMetrics.typesShare : 1 / 2))
        height: parent.height
        presenter: cards.presenter
    }
    TopFoldersCard {
        id: folders

        anchors.left: types.right
        anchors.leftMargin: Theme.boxGap
        width: Math.round(cards.room * (cards.wide ? OverviewMetrics.foldersShare : 1 / 2))
        height: parent.height
        presenter: cards.presenter
    }
    QuickWinsCard {
        id: wins

        anchors.left: folders.right
        anchors.leftMargin: Theme.boxGap
        anchors.right: parent.right
        height: parent.height
        visible: cards.wide
        presenter: cards.presenter
        tall: true
    }
}
