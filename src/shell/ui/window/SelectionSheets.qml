pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Window

/// The sheets of the selection: its review, and the question before something is deleted, which may open over it.
Item {
    id: sheets

    required property SelectionPresenter selection

    readonly property bool open: review.open || confirmation.open

    function showReview() {
        review.show();
    }

    Connections {
        target: sheets.selection

        function onQuestionWanted() {
            confirmation.show();
        }
    }
    SheetMaker {
        id: review

        component: Component {
            SelectionReview {
                selection: sheets.selection
            }
        }
    }
    SheetMaker {
        id: confirmation

        component: Component {
            DeleteConfirmation {
                selection: sheets.selection
                nested: review.open
            }
        }
    }
}
