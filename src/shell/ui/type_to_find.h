#pragma once

#include <functional>

#include <QString>

class QKeyEvent;

namespace corvane {

/// Finds the row of a list by the first letters of its name, as they are typed one after the other. Letters that
/// follow each other within a second belong together; the same letter again leads to the next row that starts
/// with it. Case does not matter, nor how a letter with an accent is encoded.
class TypeToFind {
public:
    using NameAt = std::function<QString(int row)>;

    /// What the key press types for a search; empty for keys that are commands. Space is one.
    [[nodiscard]] static QString typedText(const QKeyEvent &event);

    /// The row that the typed text leads to from `current` among `count` rows, or -1. `time` is the event's, in
    /// milliseconds.
    [[nodiscard]] int find(const QString &typed, quint64 time, int current, int count, const NameAt &nameAt);

private:
    QString m_typed;
    quint64 m_lastTime = 0;
};

} // namespace corvane
