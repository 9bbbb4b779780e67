import Corvane.Shell

/// Whether something may be cleared without a second look ("safe") or is to be looked at first ("review").
Tag {
    required property string risk

    tone: risk === "safe" ? "ok" : "warning"
    iconName: risk === "safe" ? "check" : "eye"
    text: risk === "safe" ? qsTr("Safe") : qsTr("Review")
}
