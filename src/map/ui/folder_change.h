#pragma once

#include <functional>
#include <memory>

#include <QImage>
#include <QRectF>
#include <QVariantAnimation>

#include "core/file_node.h"
#include "map/ui/treemap_layout.h"

namespace corvane {

/// The movement from the map of one folder to that of a folder inside or around it: the tile that stands for
/// the inner folder grows to the whole map, or the other way round. Main thread only.
class FolderChange : public QObject {
    Q_OBJECT

public:
    /// A folder with its tiles.
    struct Place {
        std::shared_ptr<FileNode> folder;
        const TreemapLayout &layout;
    };

    explicit FolderChange(QObject *parent = nullptr);

    /// The map of a place with all tiles in one colour.
    using Paint = std::function<QImage(const Place &place, const Color &color)>;

    /// Begins to lead over from one folder, of which `picture` is the map, to another. Nothing begins where
    /// neither lies inside the other, or where no movement is wanted.
    void start(const Place &from, const Place &to, const QImage &picture, const Paint &paint);
    /// Ends it at once, if there is one.
    void stop();

    [[nodiscard]] bool isRunning() const { return m_animation.state() == QAbstractAnimation::Running; }
    /// The map of the folder that it comes from; null when nothing moves.
    [[nodiscard]] const QImage &picture() const { return m_picture; }
    /// The map of the inner folder in the colour of its tile, from which the movement begins; null when nothing
    /// moves.
    [[nodiscard]] const QImage &tinted() const { return m_tinted; }
    /// The tile of the inner folder on the map of the outer one.
    [[nodiscard]] const QRectF &tile() const { return m_tile; }
    [[nodiscard]] bool isInward() const { return m_isInward; }
    /// How much of its way that tile has come from its place to the whole map, from 0 to 1.
    [[nodiscard]] double part() const;

signals:
    void moved();
    void ended();

private:
    QVariantAnimation m_animation;
    QImage m_picture;
    QImage m_tinted;
    QRectF m_tile;
    bool m_isInward = true;
};

} // namespace corvane
