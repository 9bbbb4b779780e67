import QtQuick
import Corvane.Shell
import Corvane.Apps

/// One application: its details, its leftovers, and what uninstalling it would remove.
Item {
    id: detail

    required property AppDetailPresenter presenter
    readonly property bool asking: question.visible

    function takeKeyboard() {
        if (presenter.leftovers.hasItems)
            leftovers.forceActiveFocus(Qt.TabFocusReason);
        else
            foot.takeKeyboard();
    }
    /// Asks for confirmation before uninstalling.
    function ask() {
        if (!presenter.canUninstall)
            return;
        if (presenter.asks)
            question.open();
        else
            foot.takeKeyboard();
    }

    AppHeader {
        id: header

        width: parent.width
        presenter: detail.presenter
    }
    Banner {
        id: banner

        anchors.top: header.bottom
        x: Theme.pageMargin
        width: parent.width - 2 * x
        height: visible ? implicitHeight : 0
        text: detail.presenter.warning
        visible: text !== ""
        iconName: "warning"
        iconSize: AppsMetrics.bannerIconSize
        leftInset: Theme.space12
        rightInset: Theme.space12 - Theme.hairlineWidth
        verticalInset: Theme.space8
    }
    RemoveCommand {
        id: removal

        objectName: "uninstaller.command"
        anchors.top: banner.bottom
        width: parent.width
        height: visible ? implicitHeight : 0
        command: detail.presenter.removeCommand
        ownSize: detail.presenter.ownSize
        visible: removal.command !== ""
    }
    LeftoverList {
        id: leftovers

        objectName: "uninstaller.leftovers"
        anchors.top: removal.bottom
        anchors.topMargin: banner.visible ? Theme.space4 : 0
        anchors.bottom: foot.top
        width: parent.width
        contents: detail.presenter.leftovers
        dated: false
        Accessible.name: qsTr("Leftovers")
    }
    AppFoot {
        id: foot

        anchors.bottom: parent.bottom
        width: parent.width
        presenter: detail.presenter
        onUninstallWanted: detail.presenter.asks ? detail.ask() : detail.presenter.uninstall()
    }
    Alert {
        id: question

        objectName: "uninstallConfirm"
        cancelName: "uninstallConfirm.cancel"
        confirmName: "uninstallConfirm.move"
        width: AppsMetrics.questionWidth
        iconKey: detail.presenter.iconKey
        title: detail.presenter.question
        message: detail.presenter.explanation
        confirmText: detail.presenter.confirmText
        onConfirmed: detail.presenter.uninstall()
    }
    Connections {
        target: detail.presenter

        // Close the question if there is nothing left to uninstall.
        function onCanUninstallChanged() {
            if (!detail.presenter.canUninstall)
                question.close();
        }
    }
}
