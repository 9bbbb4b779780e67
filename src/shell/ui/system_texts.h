#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

#include "core/words/system_words.h"

class QJSEngine;
class QQmlEngine;

namespace corvane {

/// Texts that depend on the system that the store describes, for QML: the singleton `SystemTexts`. Constant; main
/// thread.
class SystemTexts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString reveal READ reveal CONSTANT)
    Q_PROPERTY(QString diskSubtitle READ diskSubtitle CONSTANT)
    Q_PROPERTY(QString nudgeTitle READ nudgeTitle CONSTANT)
    Q_PROPERTY(QString nudge READ nudge CONSTANT)
    Q_PROPERTY(QString orphans READ orphans CONSTANT)
    Q_PROPERTY(QString snapshotsTitle READ snapshotsTitle CONSTANT)
    Q_PROPERTY(QString snapshots READ snapshots CONSTANT)
    Q_PROPERTY(QString snapshotsNote READ snapshotsNote CONSTANT)

public:
    static SystemTexts *create(QQmlEngine *, QJSEngine *);

    /// The label of the command that shows an item in the file manager.
    [[nodiscard]] QString reveal() const { return text(m_words.reveal); }
    [[nodiscard]] QString diskSubtitle() const { return text(m_words.diskSubtitle); }
    [[nodiscard]] QString nudgeTitle() const { return text(m_words.nudgeTitle); }
    [[nodiscard]] QString nudge() const { return text(m_words.nudgeText); }
    [[nodiscard]] QString orphans() const { return text(m_words.orphansText); }
    [[nodiscard]] QString snapshotsTitle() const { return text(m_words.snapshotsTitle); }
    [[nodiscard]] QString snapshots() const { return text(m_words.snapshotsText); }
    [[nodiscard]] QString snapshotsNote() const { return text(m_words.snapshotsNote); }

private:
    explicit SystemTexts(const SystemWords &words) : m_words(words) {}

    [[nodiscard]] static QString text(std::string_view words);

    const SystemWords &m_words;
};

} // namespace corvane
