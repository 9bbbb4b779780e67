#pragma once

#include "map/ui/treemap_layout.h"
#include "shell/ui/type_to_find.h"

class QKeyEvent;

namespace corvane {

class TreemapView;

/// Handles the key presses in the map: they move the focus among the tiles, act on the focused tile, and find tiles by
/// typing their names. Owned by the view. Main thread only.
class TreemapKeys {
public:
    /// `view` is the owner.
    explicit TreemapKeys(TreemapView &view) : m_view(view) {}

    /// Returns whether the map uses the key.
    [[nodiscard]] bool press(const QKeyEvent &event);

private:
    [[nodiscard]] bool runCommand(const QKeyEvent &event);
    [[nodiscard]] bool moveFocus(TreemapLayout::Direction direction);
    [[nodiscard]] bool findTyped(const QKeyEvent &event);

    TreemapView &m_view;
    TypeToFind m_typeToFind;
};

} // namespace corvane
