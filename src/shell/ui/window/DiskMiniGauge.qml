import QtQuick
import Corvane.Shell
import Corvane.Window

/// The startup disk in one line and one bar.
Item {
    id: gauge

    implicitHeight: Theme.gaugeHeight + Theme.hairlineWidth
    Accessible.role: Accessible.StaticText
    Accessible.name: presenter.text

    DiskGaugePresenter {
        id: presenter
    }
    Rectangle {
        width: parent.width
        height: Theme.hairlineWidth
        color: Theme.hairline
    }
    Icon {
        id: icon

        x: WindowMetrics.gaugeInset
        anchors.verticalCenter: words.verticalCenter
        symbol: "internaldrive"
        size: Theme.buttonIconSize
        color: Theme.t2
    }
    PlainText {
        id: words

        anchors.left: icon.right
        anchors.leftMargin: Theme.space6
        anchors.right: bar.right
        y: WindowMetrics.gaugeTop + Theme.hairlineWidth
        height: Theme.captionLine
        text: presenter.text
        font: Theme.captionFiguresFont
        color: Theme.t2
        Accessible.ignored: true
    }
    GradientBar {
        id: bar

        x: WindowMetrics.gaugeInset
        width: parent.width - 2 * x
        height: WindowMetrics.gaugeBarHeight
        anchors.bottom: parent.bottom
        anchors.bottomMargin: WindowMetrics.gaugeBottom
        radius: height / 2
        roundPart: true
        fraction: presenter.usedFraction

        Behavior on fraction {
            NumberAnimation {
                duration: Theme.motion(Theme.figuresDuration)
                easing.type: Easing.OutCubic
            }
        }
    }
}
