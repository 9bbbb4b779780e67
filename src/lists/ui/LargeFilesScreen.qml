import QtQuick
import Corvane.Lists

/// The files above a chosen size.
FileListScreen {
    id: screen

    readonly property LargeFilesPresenter largeFiles: LargeFilesPresenter {}

    presenter: largeFiles
    title: qsTr("Large Files")
    symbol: "scalemass"
    emptySymbol: "checkmark.seal"

    FilterChoice {
        label: qsTr("Minimum size")
        buttonName: "lists.minimumSize"
        choiceWidth: ListsMetrics.sizeChoiceWidth
        choices: screen.largeFiles.sizes
        chosen: screen.largeFiles.sizeIndex
        onActivated: index => screen.largeFiles.sizeIndex = index
    }
    FilterChoice {
        label: qsTr("Type")
        buttonName: "lists.type"
        choiceWidth: ListsMetrics.typeChoiceWidth
        choices: screen.largeFiles.types
        chosen: screen.largeFiles.typeIndex
        onActivated: index => screen.largeFiles.typeIndex = index
    }
}
