#pragma once

#include <string>
#include <vector>

#include <QString>

class QObject;

namespace corvane {

/// A text in the window, and the item it comes from: "QQuickText.text", "PushButton_QMLTYPE_31 'scan' accessible name".
struct ShownText {
    QString text;
    QString where;
};

/// All texts of an object and its descendants, visible or not: the text properties of items, menus and sheets, closed
/// ones included, their accessible texts, and all data of the models behind lists. Main thread only.
[[nodiscard]] std::vector<ShownText> textsOf(QObject &from);

/// The texts with a word that only Mac users know (`macWordIn`), each with the word and its source.
[[nodiscard]] std::vector<std::string> macWordsIn(QObject &from);

} // namespace corvane
