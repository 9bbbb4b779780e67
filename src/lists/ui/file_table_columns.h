#pragma once

#include <optional>

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "duplicates/listed_files.h"

namespace corvane {

/// How wide the columns of a table of files are, in points: names and locations share what the others leave. Main
/// thread only.
class FileTableColumns : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Of all columns together.
    Q_PROPERTY(qreal room READ room WRITE setRoom NOTIFY changed)
    /// Whether kinds have room for their longest label.
    Q_PROPERTY(bool wide READ isWide WRITE setWide NOTIFY changed)
    Q_PROPERTY(qreal nameWidth READ nameWidth NOTIFY changed)
    Q_PROPERTY(qreal sizeWidth READ sizeWidth NOTIFY changed)
    Q_PROPERTY(qreal kindWidth READ kindWidth NOTIFY changed)
    Q_PROPERTY(qreal modifiedWidth READ modifiedWidth NOTIFY changed)
    Q_PROPERTY(qreal locationWidth READ locationWidth NOTIFY changed)

public:
    /// `FileColumn`, for QML.
    enum class Title {
        name = static_cast<int>(FileColumn::name),
        size = static_cast<int>(FileColumn::size),
        kind = static_cast<int>(FileColumn::kind),
        modified = static_cast<int>(FileColumn::modified),
        location = static_cast<int>(FileColumn::location),
    };
    Q_ENUM(Title)

    static constexpr qreal leastNameWidth = 120;
    static constexpr qreal leastLocationWidth = 80;
    static constexpr qreal leastWidth = 64; ///< of the others

    explicit FileTableColumns(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] qreal room() const { return m_room; }
    void setRoom(qreal room);
    [[nodiscard]] bool isWide() const { return m_isWide; }
    void setWide(bool wide);

    [[nodiscard]] qreal nameWidth() const;
    [[nodiscard]] qreal sizeWidth() const { return m_sizeWidth; }
    [[nodiscard]] qreal kindWidth() const;
    [[nodiscard]] qreal modifiedWidth() const { return m_modifiedWidth; }
    [[nodiscard]] qreal locationWidth() const { return shared() - nameWidth(); }

    /// The column's right edge moves by so much, as far as the others let it; those at its left stay where they are.
    /// The last column, whose edge is the table's, cannot be resized. `column` is a `Title`.
    Q_INVOKABLE void resize(int column, qreal by);

signals:
    void changed();

private:
    /// What names and locations share.
    [[nodiscard]] qreal shared() const { return m_room - m_sizeWidth - kindWidth() - m_modifiedWidth; }
    void setNameWidth(qreal width);

    qreal m_room = 0;
    bool m_isWide = true;
    qreal m_nameShare = 0.6; ///< of what is shared, gap apart
    qreal m_sizeWidth = 92;
    std::optional<qreal> m_kindWidth; ///< as somebody has set it
    qreal m_modifiedWidth = 108;
};

} // namespace corvane
