pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Services

/// Whether the program has full disk access, and how to grant it.
Rectangle {
    id: card

    required property OnboardingPresenter onboarding
    readonly property bool explains: onboarding.hasSettings && !onboarding.granted

    implicitHeight: column.height + 2 * (Theme.space14 + Theme.hairlineWidth)
    radius: Theme.radiusBox
    color: Theme.window
    border.width: Theme.hairlineWidth
    border.color: Theme.hairline

    Column {
        id: column

        x: Theme.boxPadding + Theme.hairlineWidth
        y: Theme.space14 + Theme.hairlineWidth
        width: parent.width - 2 * x
        spacing: Theme.space4

        Item {
            width: parent.width
            height: Theme.bodyLine

            Icon {
                id: lock

                anchors.verticalCenter: parent.verticalCenter
                symbol: "lock.shield"
                color: Theme.t2
                size: ServicesMetrics.cardIconSize
            }
            PlainText {
                anchors.left: lock.right
                anchors.leftMargin: Theme.space10
                height: parent.height
                text: card.onboarding.accessTitle
                font: Theme.bodySemiboldFont
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Tag {
                objectName: "welcome.status"
                anchors.right: parent.right
                tone: card.onboarding.granted ? "ok" : "warning"
                pointed: !card.onboarding.granted
                symbol: card.onboarding.granted ? "checkmark.circle.fill" : ""
                text: card.onboarding.status
            }
        }
        Row {
            width: parent.width
            spacing: Theme.space6

            Icon {
                id: shield

                symbol: card.onboarding.granted ? "checkmark.shield.fill" : ""
                color: Theme.okText
            }
            PlainText {
                width: parent.width - (shield.visible ? shield.width + parent.spacing : 0)
                height: Theme.secondaryLine
                text: card.onboarding.accessLine
                font: Theme.secondaryFont
                color: Theme.t2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
        Item {
            width: parent.width
            height: Theme.space8 + drag.height
            visible: card.explains

            Column {
                anchors.left: parent.left
                anchors.right: drag.left
                anchors.rightMargin: Theme.space20
                anchors.verticalCenter: drag.verticalCenter

                Repeater {
                    model: card.onboarding.steps

                    delegate: PermissionStep {
                        required property int index
                        required property string modelData

                        width: parent ? parent.width : 0
                        number: index + 1
                        text: modelData
                        plainText: card.onboarding.plainSteps[index]
                    }
                }
            }
            DraggableAppIcon {
                id: drag

                anchors.right: parent.right
                anchors.bottom: parent.bottom
                applicationUrl: card.onboarding.applicationUrl
                help: card.onboarding.dragHelp
            }
        }
    }
}
