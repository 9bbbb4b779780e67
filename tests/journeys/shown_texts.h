#pragma once

#include <string>
#include <vector>

#include <QString>

class QObject;

namespace corvane {

/// A text of the window, and which item has it: "QQuickText.text", "PushButton_QMLTYPE_31 'scan' accessible name".
struct ShownText {
    QString text;
    QString where;
};

/// Every text of an object and of all that belongs to it, seen now or not: the text properties of items, menus and
/// sheets, closed ones as well, what a reader says of them, and everything that the models behind the lists hold.
/// Main thread only.
[[nodiscard]] std::vector<ShownText> textsOf(QObject &from);

/// Those with a word that only a Mac's user knows (`macWordIn`), each with the word and where it stands.
[[nodiscard]] std::vector<std::string> macWordsIn(QObject &from);

} // namespace corvane
