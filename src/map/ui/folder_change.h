#pragma once

#include <functional>
#include <memory>

#include <QImage>
#include <QRectF>
#include <QVariantAnimation>

#include "core/file_node.h"
#include "map/ui/treemap_layout.h"

namespace corvane {

/// The transition between the maps of a folder and one of its descendants: the tile of the inner folder grows to the
/// whole map, or the reverse. Main thread only.
class FolderChange : public QObject {
    Q_OBJECT

public:
    /// A folder with its tiles.
    struct Place {
        std::shared_ptr<FileNode> folder;
        const TreemapLayout &layout;
    };

    explicit FolderChange(QObject *parent = nullptr);

    /// Paints the map of a place with all tiles in one colour.
    using Paint = std::function<QImage(const Place &place, const Color &color)>;

    /// Starts a transition from one folder, whose map is `picture`, to another. Does nothing if neither contains the
    /// other, or if animations are off.
    void start(const Place &from, const Place &to, const QImage &picture, const Paint &paint);
    /// Stops the transition immediately; no-op if there is none.
    void stop();

    [[nodiscard]] bool isRunning() const { return m_animation.state() == QAbstractAnimation::Running; }
    /// The map of the folder being left; null if no transition is running.
    [[nodiscard]] const QImage &picture() const { return m_picture; }
    /// The map of the inner folder in its tile's colour, the first frame of the transition; null if none is running.
    [[nodiscard]] const QImage &tinted() const { return m_tinted; }
    /// The tile of the inner folder in the map of the outer one.
    [[nodiscard]] const QRectF &tile() const { return m_tile; }
    [[nodiscard]] bool isInward() const { return m_isInward; }
    /// The progress of that tile from its place to the whole map, from 0 to 1.
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
