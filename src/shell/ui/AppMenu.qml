import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A menu, opened by a button, a right click or the menu bar.
T.Menu {
    id: menu

    readonly property real widest: {
        let result = Theme.menuMinimumWidth - leftPadding - rightPadding;
        for (let row = 0; row < count; ++row)
            result = Math.max(result, itemAt(row).implicitWidth);
        return result;
    }

    implicitWidth: widest + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: Theme.menuPadding
    margins: Theme.space6
    overlap: Theme.hairlineWidth

    delegate: AppMenuItem {}
    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        // Only when taller than the window.
        interactive: contentHeight > height
        clip: interactive
        T.ScrollBar.vertical: AppScrollBar {
            policy: size < 1 ? T.ScrollBar.AlwaysOn : T.ScrollBar.AsNeeded
        }
        // The menu handles keys itself; with a current row the list would handle them a second time.
        currentIndex: -1
    }
    onCurrentIndexChanged: {
        if (currentIndex >= 0)
            (contentItem as ListView).positionViewAtIndex(currentIndex, ListView.Contain);
    }
    background: Panel {}
    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.fastDuration
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.fastDuration
        }
    }
}
