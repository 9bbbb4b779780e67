import QtQuick
import Corvane.Shell
import Corvane.Duplicates

/// Groups of files with the same contents: the search, and the choice of what to keep.
Rectangle {
    id: screen

    /// The window's own commands, shown on the right of the header.
    property Component toolbar
    /// Whether the progress view had the focus when the search ended.
    property bool waited: false

    color: list.visible ? Theme.window : Theme.surface

    function takeKeyboard() {
        const next = list.visible ? list : search;
        next.forceActiveFocus(Qt.OtherFocusReason);
    }

    DuplicatesPresenter {
        id: presenter

        // Moves the focus on to the results.
        onSearchEnds: screen.waited = progress.activeFocus
        onSearchEnded: if (screen.waited) screen.takeKeyboard()
    }
    ListHeader {
        id: header

        width: parent.width
        symbol: "doc.on.doc"
        title: qsTr("Duplicates")
        subtitle: presenter.subtitle
        trailing: [
            PushButton {
                id: autoSelect

                objectName: "duplicates.autoSelect"
                text: qsTr("Auto-Select")
                caret: true
                enabled: presenter.canAutoSelect
                Accessible.role: Accessible.ButtonMenu
                Keys.onDownPressed: choices.popup(autoSelect, 0, autoSelect.height + Theme.space4)
                onClicked: choices.popup(autoSelect, 0, autoSelect.height + Theme.space4)
            },
            PushButton {
                id: search

                objectName: "duplicates.search"
                text: presenter.searchText
                symbol: "magnifyingglass"
                primary: true
                enabled: presenter.canSearch
                onClicked: {
                    presenter.search();
                    progress.forceActiveFocus(Qt.OtherFocusReason);
                }
            }
        ]
        toolbar: Loader {
            sourceComponent: screen.toolbar
        }
    }
    AppMenu {
        id: choices

        objectName: "duplicates.choices"

        AppMenuItem {
            objectName: "duplicates.keepNewest"
            text: qsTr("Keep the newest copy in each group")
            onTriggered: presenter.keepNewest()
        }
        AppMenuItem {
            objectName: "duplicates.keepOldest"
            text: qsTr("Keep the oldest copy in each group")
            onTriggered: presenter.keepOldest()
        }
    }
    Item {
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width

        EmptyStateView {
            objectName: "duplicates.introduction"
            anchors.fill: parent
            visible: presenter.content === DuplicatesPresenter.Content.introduction
            symbol: "doc.on.doc"
            title: qsTr("Find identical files")
            message: qsTr("Corvane compares files over 1 MB from your scan — first by size, then by SHA-256 fingerprint — so only true duplicates show up. Nothing is removed until you choose.")
        }
        FingerprintingView {
            id: progress

            objectName: "duplicates.progress"
            anchors.fill: parent
            visible: presenter.content === DuplicatesPresenter.Content.search
            value: presenter.progress
            text: presenter.progressText
        }
        EmptyStateView {
            objectName: "duplicates.nothing"
            anchors.fill: parent
            visible: presenter.content === DuplicatesPresenter.Content.nothing
            symbol: "checkmark.seal"
            title: qsTr("No duplicates found")
            message: qsTr("Every file over 1 MB in this scan is unique.")
        }
        DuplicateList {
            id: list

            objectName: "duplicateList"
            anchors.fill: parent
            visible: presenter.content === DuplicatesPresenter.Content.groups
            title: header.title
        }
    }
}
