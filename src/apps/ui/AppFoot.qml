import QtQuick
import Corvane.Shell
import Corvane.Apps

/// A summary of what would be removed, and the button for it.
Item {
    id: foot

    required property AppDetailPresenter presenter

    signal uninstallWanted

    function takeKeyboard() {
        uninstall.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitHeight: AppsMetrics.footHeight

    Rectangle {
        width: parent.width
        height: Theme.hairlineWidth
        color: Theme.hairline
    }
    PlainText {
        objectName: "uninstaller.plan"
        anchors.left: parent.left
        anchors.right: buttons.left
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.space12
        height: parent.height
        text: metrics.advanceWidth > width ? foot.presenter.planInTwoLines : foot.presenter.plan
        font: Theme.secondaryFiguresFont
        color: Theme.t2
        wrapMode: Text.Wrap
        maximumLineCount: 3
        Accessible.role: Accessible.StaticText
        Accessible.name: foot.presenter.plan

        TextMetrics {
            id: metrics

            font: Theme.secondaryFiguresFont
            text: foot.presenter.plan
        }
    }
    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.pageMargin
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.buttonGap

        PushButton {
            objectName: "uninstaller.reveal"
            text: SystemTexts.reveal
            onClicked: foot.presenter.reveal()
        }
        PushButton {
            id: uninstall

            objectName: "uninstaller.uninstall"
            text: foot.presenter.removeText
            symbol: "trash"
            primary: true
            busy: foot.presenter.uninstalling
            enabled: foot.presenter.canUninstall
            onClicked: foot.uninstallWanted()
        }
    }
}
