pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Corvane.Shell
import Corvane.Map

/// The path of the current folder, a button for one level up, and the folder's number of files.
HeaderBand {
    id: bar

    required property ExplorerPresenter presenter
    /// The window's own commands, on the right.
    property Component commands

    PushButton {
        id: up

        objectName: "upButton"
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.controlHeight
        leftPadding: 0
        rightPadding: 0
        iconName: "arrow-up"
        enabled: bar.presenter.canGoUp
        onClicked: bar.presenter.goUp()

        Accessible.name: bar.presenter.upText
        Accessible.role: Accessible.Button

        Tip {
            text: bar.presenter.upText
            pointed: up.hovered
            focused: up.visualFocus
        }
    }
    Row {
        id: way

        anchors.left: up.right
        anchors.right: parent.right
        anchors.leftMargin: Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        spacing: MapMetrics.crumbSpacing

        Accessible.role: Accessible.Grouping
        Accessible.name: bar.presenter.wayName

        Repeater {
            model: crumbModel
            delegate: Crumb {
                crumbs: crumbModel
                onMenuWanted: place => collapsedMenu.popup(place, 0, place.height)
            }
        }
    }
    BreadcrumbModel {
        id: crumbModel

        availableWidth: way.width
    }
    AppMenu {
        id: collapsedMenu

        objectName: "collapsedMenu"

        Instantiator {
            model: crumbModel.collapsedNames
            delegate: AppMenuItem {
                required property int index
                required property string modelData

                text: modelData
                onTriggered: crumbModel.openCollapsed(index)
            }
            onObjectAdded: (index, object) => collapsedMenu.insertItem(index, object as T.MenuItem)
            onObjectRemoved: (index, object) => collapsedMenu.removeItem(object as T.MenuItem)
        }
    }
    trailing: [
        Tag {
            objectName: "partialScan"
            anchors.verticalCenter: parent.verticalCenter
            tone: "warning"
            text: bar.presenter.partialText
            visible: text !== ""
        },
        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            height: Theme.secondaryLine
            text: bar.presenter.fileCount
            font: Theme.secondaryFiguresFont
            color: Theme.t2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    ]
    toolbar: Loader {
        sourceComponent: bar.commands
        visible: bar.commands !== null
    }
}
