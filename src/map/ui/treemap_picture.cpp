#include "map/ui/treemap_picture.h"

#include <utility>
#include <vector>

#include "core/store/qt_words.h"
#include "core/store/storage_store.h"
#include "map/ui/treemap_painter.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

std::vector<TileFace> facesOf(const TreemapScene &scene)
{
    const TreemapLayout &tiles = scene.layout;
    std::vector<TileFace> faces;
    faces.reserve(static_cast<std::size_t>(tiles.count()));
    const bool anySelected = !scene.store.selection().empty();
    const bool allCovered = anySelected && scene.folder && scene.store.isCovered(scene.folder->path());
    bool topIsHatched = false;
    for (int i = 0; i < tiles.count(); ++i) {
        const TreemapTile &tile = tiles.tile(i);
        TileFace face{.rect = tiles.rect(i),
                      .color = scene.onlyColor.value_or(tile.color),
                      .role = tiles.role(i),
                      .rank = tiles.rank(i),
                      .label = displayText(tile.label),
                      .sizeText = corvane::sizeText(tile.size)};
        face.checked = anySelected && tile.node && scene.store.isSelected(tile.node->path());
        if (tile.depth == 0)
            topIsHatched = face.hatched = face.checked || allCovered;
        else
            face.hatched = face.checked && !topIsHatched;
        faces.push_back(std::move(face));
    }
    return faces;
}

} // namespace

QImage paintTreemap(const TreemapScene &scene, TileTones &tones)
{
    const Theme &theme = *Theme::instance();
    QImage picture((scene.size * scene.devicePixelRatio).toSize().expandedTo(QSize(1, 1)),
                   QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scene.devicePixelRatio);
    picture.fill(theme.surface());
    TreemapPainter(tones, {.name = Theme::secondarySemiboldFont(),
                           .nestedName = Theme::captionMediumFont(),
                           .size = Theme::captionFiguresFont()})
        .paint(picture, facesOf(scene));
    return picture;
}

} // namespace corvane
