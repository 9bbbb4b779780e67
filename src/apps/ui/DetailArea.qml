import QtQuick
import Corvane.Shell
import Corvane.Apps

/// The details of the selected entry, or a hint if nothing is selected.
FocusScope {
    id: area

    required property UninstallerPresenter presenter
    readonly property bool showsApp: presenter.shown === UninstallerPresenter.Shown.app
    readonly property bool showsOrphans: presenter.shown === UninstallerPresenter.Shown.orphans
    readonly property bool asking: app.asking

    /// Moves the focus to the list in the details.
    function takeKeyboard() {
        if (showsApp)
            app.takeKeyboard();
        else if (showsOrphans)
            orphans.takeKeyboard();
    }
    function askWhetherToUninstall() {
        if (showsApp)
            app.ask();
    }

    EmptyStateView {
        objectName: "uninstaller.none"
        anchors.fill: parent
        visible: !area.showsApp && !area.showsOrphans
        symbol: "xmark.bin"
        title: qsTr("Pick an app")
        message: area.presenter.invitation
    }
    AppDetail {
        id: app

        objectName: "uninstaller.app"
        anchors.fill: parent
        visible: area.showsApp
        presenter: area.presenter.app
    }
    OrphansView {
        id: orphans

        objectName: "uninstaller.orphans"
        anchors.fill: parent
        visible: area.showsOrphans
        orphans: area.presenter.orphans
    }
}
