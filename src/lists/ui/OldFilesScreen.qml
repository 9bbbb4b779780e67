import QtQuick
import Corvane.Lists

/// The files above a chosen size that were not modified for a chosen time.
FileListScreen {
    id: screen

    readonly property OldFilesPresenter oldFiles: OldFilesPresenter {}

    presenter: oldFiles
    title: qsTr("Old Files")
    symbol: "clock.arrow.circlepath"
    emptySymbol: "leaf"

    FilterChoice {
        label: qsTr("Untouched for")
        buttonName: "lists.age"
        choiceWidth: ListsMetrics.ageChoiceWidth
        choices: screen.oldFiles.ages
        chosen: screen.oldFiles.ageIndex
        onActivated: index => screen.oldFiles.ageIndex = index
    }
    FilterChoice {
        label: qsTr("Minimum size")
        buttonName: "lists.minimumSize"
        choiceWidth: ListsMetrics.sizeChoiceWidth
        choices: screen.oldFiles.sizes
        chosen: screen.oldFiles.sizeIndex
        onActivated: index => screen.oldFiles.sizeIndex = index
    }
}
