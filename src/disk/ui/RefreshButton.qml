import QtQuick
import Corvane.Disk
import Corvane.Shell

/// Measures the disk again; meanwhile a spinner replaces the button.
Item {
    id: place

    required property BreakdownPresenter presenter
    readonly property bool loading: presenter.loading

    implicitWidth: button.implicitWidth
    implicitHeight: button.implicitHeight
    onLoadingChanged: {
        if (!loading && activeFocus)
            button.forceActiveFocus(Qt.TabFocusReason);
    }

    // This item keeps the focus until the button is back.
    function refresh() {
        if (button.visualFocus)
            forceActiveFocus(Qt.TabFocusReason);
        presenter.refresh();
    }

    PushButton {
        id: button

        objectName: "breakdown.refresh"
        quiet: true
        enabled: !place.loading
        opacity: enabled ? 1 : 0
        text: qsTr("Refresh")
        symbol: "arrow.clockwise"
        onClicked: place.refresh()
    }
    Spinner {
        objectName: "breakdown.progress"
        anchors.centerIn: parent
        visible: place.loading
        Accessible.ignored: false
        Accessible.role: Accessible.ProgressBar
        Accessible.name: place.presenter.loadingText
    }
    FocusRing {
        around: Theme.radiusControl
        visible: place.activeFocus && place.loading
    }
}
