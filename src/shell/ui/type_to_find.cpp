#include "shell/ui/type_to_find.h"

#include <algorithm>

#include <QKeyEvent>

namespace corvane {

namespace {

constexpr quint64 pause = 1'000; // milliseconds without a letter after which a new search begins

/// Folds case and composes accents, which some systems store as separate characters.
QString folded(const QString &text)
{
    return text.normalized(QString::NormalizationForm_KC).toCaseFolded();
}

int findFrom(int first, int count, const QString &start, const TypeToFind::NameAt &nameAt)
{
    for (int step = 0; step < count; ++step) {
        const int row = (first + step) % count;
        if (folded(nameAt(row)).startsWith(start))
            return row;
    }
    return -1;
}

} // namespace

QString TypeToFind::typedText(const QKeyEvent &event)
{
    const QString text = event.text();
    const bool isCommand = event.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool isText = !text.isEmpty() && text.at(0) != u' ' &&
                        std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint() || c.isSurrogate(); });
    return isText && !isCommand ? text : QString();
}

int TypeToFind::find(const QString &typed, quint64 time, int current, int count, const NameAt &nameAt)
{
    if (time - m_lastTime > pause)
        m_typed.clear();
    m_lastTime = time;
    if (count <= 0)
        return -1;

    const QString letter = folded(typed);
    const int here = std::clamp(current, 0, count - 1);
    const int next = current < 0 ? 0 : (here + 1) % count;
    const bool isFirst = m_typed.isEmpty();
    const bool isSameLetterAgain = !isFirst && m_typed.count(letter) * letter.size() == m_typed.size();
    m_typed += letter;
    const int found = findFrom(isFirst ? next : here, count, m_typed, nameAt);
    return found < 0 && isSameLetterAgain ? findFrom(next, count, letter, nameAt) : found;
}

} // namespace corvane
