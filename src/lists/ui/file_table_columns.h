#pragma once

#include <optional>

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "lists/listed_files.h"
#include "lists/ui/lists_metrics.h"

namespace corvane {

/// The column widths of a table of files, in points: names and locations share what the other columns leave. Main
/// thread only.
class FileTableColumns : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The total width of all columns.
    Q_PROPERTY(qreal room READ room WRITE setRoom NOTIFY changed)
    /// Whether the kind column has room for its longest label.
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

    static constexpr qreal leastNameWidth = ListsMetrics::leastNameWidth();
    static constexpr qreal leastLocationWidth = ListsMetrics::leastLocationWidth();
    static constexpr qreal leastWidth = ListsMetrics::leastColumnWidth(); ///< of the other columns

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

    /// Moves the column's right edge by `by` points, as far as the columns to its right allow; those to its left do not
    /// move. The last column's edge is the table's and cannot be moved. `column` is a `Title`.
    Q_INVOKABLE void resize(int column, qreal by);

signals:
    void changed();

private:
    /// The width that names and locations share.
    [[nodiscard]] qreal shared() const { return m_room - m_sizeWidth - kindWidth() - m_modifiedWidth; }
    void setNameWidth(qreal width);

    qreal m_room = 0;
    bool m_isWide = true;
    qreal m_nameShare = ListsMetrics::nameShare(); ///< fraction of the shared width, without the gap
    qreal m_sizeWidth = ListsMetrics::sizeWidth();
    std::optional<qreal> m_kindWidth; ///< if set by the user
    qreal m_modifiedWidth = ListsMetrics::modifiedWidth();
};

} // namespace corvane
