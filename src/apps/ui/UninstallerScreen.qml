import QtQuick
import Corvane.Shell
import Corvane.Apps

/// Installed applications and the leftovers of deleted ones: the list on the left, the details of the selected entry on
/// the right.
Rectangle {
    id: screen

    /// The window's own commands, shown on the right of the header.
    property Component toolbar
    readonly property bool wide: width >= Theme.wideContentWidth
    /// Whether a confirmation is open.
    readonly property bool asking: detail.asking

    color: Theme.surface

    UninstallerPresenter {
        id: presenter

        // Moves the focus back to the list, which remains.
        onChoiceGone: if (detail.activeFocus) panel.takeKeyboard()
    }
    ListHeader {
        id: header

        width: parent.width
        symbol: "xmark.bin"
        title: qsTr("App Uninstaller")
        subtitle: presenter.subtitle
        busy: presenter.loading
        trailing: PushButton {
            objectName: "uninstaller.refresh"
            quiet: true
            text: qsTr("Refresh")
            symbol: "arrow.clockwise"
            enabled: !presenter.loading
            onClicked: presenter.refresh()
        }
        toolbar: Loader {
            sourceComponent: screen.toolbar
        }
    }
    Item {
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width

        MeasuringApps {
            anchors.fill: parent
            visible: presenter.content === UninstallerPresenter.Content.measuring
            text: presenter.loadingText
        }
        EmptyStateView {
            objectName: "uninstaller.nothing"
            anchors.fill: parent
            visible: presenter.content === UninstallerPresenter.Content.nothing
            symbol: "app.badge"
            title: presenter.nothingTitle
            message: presenter.nothingText
        }
        Item {
            anchors.fill: parent
            visible: presenter.content === UninstallerPresenter.Content.list

            AppPanel {
                id: panel

                height: parent.height
                width: screen.wide ? AppsMetrics.listWidth : AppsMetrics.listWidthNarrow
                presenter: presenter
                title: header.title
                onOpenWanted: detail.takeKeyboard()
                onUninstallWanted: detail.askWhetherToUninstall()
            }
            DetailArea {
                id: detail

                anchors.left: panel.right
                anchors.right: parent.right
                height: parent.height
                presenter: presenter
            }
        }
    }
}
