#pragma once

#include "map/ui/treemap_layout.h"
#include "shell/ui/type_to_find.h"

class QKeyEvent;

namespace corvane {

class TreemapView;

/// What the keys do in the map: they move the focus among the tiles, work the tile that has it, and find tiles by
/// their names. Main thread only.
class TreemapKeys {
public:
    /// Of the view that it belongs to.
    explicit TreemapKeys(TreemapView &view) : m_view(view) {}

    /// False where the key means nothing to the map.
    [[nodiscard]] bool press(const QKeyEvent &event);

private:
    [[nodiscard]] bool runCommand(const QKeyEvent &event);
    [[nodiscard]] bool moveFocus(TreemapLayout::Direction direction);
    [[nodiscard]] bool findTyped(const QKeyEvent &event);

    TreemapView &m_view;
    TypeToFind m_typeToFind;
};

} // namespace corvane
