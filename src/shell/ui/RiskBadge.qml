import Corvane.Shell

/// Whether an item can be cleared without review ("safe") or should be reviewed first ("review").
Tag {
    required property string risk

    tone: risk === "safe" ? "ok" : "warning"
    iconName: risk === "safe" ? "check" : "eye"
    text: risk === "safe" ? qsTr("Safe") : qsTr("Review")
}
