import QtQuick
import Corvane.Disk
import Corvane.Shell

/// How much of the disk is explained, as a figure and a bar.
Item {
    id: hero

    required property BreakdownPresenter presenter
    /// The id of the highlighted part.
    required property string current

    signal pointedAt(id: string)
    signal chosen(id: string)

    implicitHeight: legend.y + legend.height

    PlainText {
        id: figure

        height: Theme.heroLine
        text: hero.presenter.percentage
        font: Theme.heroFont
        Accessible.ignored: true
    }
    PlainText {
        anchors.left: figure.right
        anchors.leftMargin: Theme.space8
        anchors.baseline: figure.baseline
        text: qsTr("explained")
        font: Theme.statPlainFont
        color: Theme.t2
        Accessible.role: Accessible.StaticText
        Accessible.name: figure.text + " " + text
    }
    Column {
        anchors.right: parent.right
        anchors.bottom: figure.bottom

        FigureLine {
            anchors.right: parent.right
            figure: hero.presenter.used
            words: hero.presenter.usedOf
        }
        FigureLine {
            anchors.right: parent.right
            figure: hero.presenter.free
            words: hero.presenter.freeOn
            color: Theme.t2
        }
    }
    StackedBar {
        id: bar

        objectName: "breakdown.bar"
        anchors.top: figure.bottom
        anchors.topMargin: Theme.space12
        width: parent.width
        height: DiskMetrics.heroBarHeight
        radius: DiskMetrics.heroBarRadius
        parts: hero.presenter.parts
        rest: hero.presenter.rest
        labelledPart: hero.presenter.freePart
        interactive: true
        current: hero.current
        onCurrentChanged: hero.pointedAt(current)
        onChosen: id => hero.chosen(id)
        Accessible.role: Accessible.Chart
        Accessible.name: qsTr("Parts of the disk")
        Accessible.description: currentPart.id === "" ? "" : currentPart.title + ", " + currentPart.info

        FocusRing {
            around: bar.radius
            visible: bar.visualFocus
        }
    }
    ListKeys {
        target: bar
        model: hero.presenter.segments
        current: hero.presenter.segments.rowOf(hero.current)
        navigates: false
        onMoved: row => {
            hero.pointedAt(hero.presenter.segments.idOf(row));
            hero.chosen(hero.current);
        }
    }
    Legend {
        id: legend

        anchors.top: bar.bottom
        anchors.topMargin: Theme.space8
        width: parent.width
        presenter: hero.presenter
        current: bar.currentPart
    }
}
