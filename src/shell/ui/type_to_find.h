#pragma once

#include <functional>

#include <QString>

class QKeyEvent;

namespace corvane {

/// Finds a row of a list by the first letters of its name, as they are typed. Letters within a second of each other
/// form one search; repeating the same letter moves to the next row that starts with it. Ignores case and the encoding
/// of accented letters.
class TypeToFind {
public:
    using NameAt = std::function<QString(int row)>;

    /// The text that a key press adds to a search; empty for keys that are commands. Space is a command.
    [[nodiscard]] static QString typedText(const QKeyEvent &event);

    /// The row that matches the typed text, searching from `current` among `count` rows, or -1. `time` is the event's,
    /// in milliseconds.
    [[nodiscard]] int find(const QString &typed, quint64 time, int current, int count, const NameAt &nameAt);

private:
    QString m_typed;
    quint64 m_lastTime = 0;
};

} // namespace corvane
