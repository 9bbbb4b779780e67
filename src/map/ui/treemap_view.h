#pragma once

#include <memory>

#include <QImage>
#include <QtQml/qqmlregistration.h>

#include "map/ui/folder_change.h"
#include "map/ui/tile_tones.h"
#include "map/ui/treemap_hover.h"
#include "map/ui/treemap_keys.h"
#include "map/ui/treemap_layout.h"
#include "map/ui/treemap_mouse.h"
#include "map/ui/treemap_picture.h"
#include "shell/ui/keyboard_item.h"
#include "shell/ui/node_actions.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// The map of the current folder. Painted into one picture, which is painted again only when the folder, the size, the
/// tree, the selection or the theme changes; the hover and focus rings are separate nodes above it. Main thread only,
/// except for `updatePaintNode`, during which the main thread waits.
class TreemapView : public corvane::KeyboardItem { // qualified for qmllint, which looks the name up as written
    Q_OBJECT
    QML_ELEMENT
    /// The row of the folder's list that the tile under the pointer belongs to, or -1.
    Q_PROPERTY(int hoveredRow READ hoveredRow NOTIFY hoverChanged)
    /// The row of the list under the pointer, or -1; the ring is then around its tile.
    Q_PROPERTY(int highlightedRow READ highlightedRow WRITE setHighlightedRow NOTIFY highlightedRowChanged)
    /// The height at the map's bottom that the selection bar covers. A folder is laid out above it. If the bar appears
    /// while the folder is shown, the tiles stay where they are; if it disappears, they move once the pointer has left
    /// the map.
    Q_PROPERTY(double coveredHeight READ coveredHeight WRITE setCoveredHeight NOTIFY coveredHeightChanged)
    Q_PROPERTY(bool pillShown READ isPillShown NOTIFY hoverChanged)
    Q_PROPERTY(QString pillTitle READ pillTitle NOTIFY hoverChanged)
    Q_PROPERTY(QString pillInfo READ pillInfo NOTIFY hoverChanged)
    /// The icon's key; empty for a tile that stands for several files.
    Q_PROPERTY(QString pillIcon READ pillIcon NOTIFY hoverChanged)
    Q_PROPERTY(QPointF pointer READ pointer NOTIFY pointerChanged)
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)

public:
    explicit TreemapView(StorageStore &store = StoreRegistration::store(), QQuickItem *parent = nullptr);
    ~TreemapView() override;

    [[nodiscard]] int hoveredRow() const;
    [[nodiscard]] int highlightedRow() const { return m_highlightedRow; }
    void setHighlightedRow(int row);
    [[nodiscard]] double coveredHeight() const { return m_coveredHeight; }
    void setCoveredHeight(double height);
    [[nodiscard]] bool isPillShown() const { return m_hover.isPillShown(); }
    [[nodiscard]] QString pillTitle() const;
    [[nodiscard]] QString pillInfo() const;
    [[nodiscard]] QString pillIcon() const;
    [[nodiscard]] QPointF pointer() const { return m_hover.pointer(); }
    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }

    /// The position of a panel of this size beside the pointer.
    Q_INVOKABLE [[nodiscard]] QPointF pillPlace(QPointF pointer, QSizeF panel) const;

    // --- The tiles, for assistive tools and the keyboard
    [[nodiscard]] const TreemapLayout &layout() const;
    [[nodiscard]] int hoveredTile() const { return m_hover.tile(); }
    [[nodiscard]] int focusedTile() const { return m_focused; }
    /// "Movies, 156.82 GB, 24.4%"
    [[nodiscard]] QString tileName(int index) const;
    [[nodiscard]] bool tileOpens(int index) const;
    [[nodiscard]] bool tileIsSelected(int index) const;
    /// Shows a folder or package in the explorer, or opens a file in its default application.
    void openTile(int index);
    /// Toggles the selection of the tile's item; shows a toast if that is refused.
    void toggleTile(int index);
    /// Selects the tile's item; shows a toast if that is refused.
    void selectTile(int index);
    void focusTile(int index);
    /// Treats the pointer as being over no tile until it moves.
    void clearHover();

    // --- Further commands of the keyboard; they return false if they cannot be carried out
    bool goUp();
    bool selectAll();
    /// Requests the context menu of the focused tile.
    bool showMenu();

    /// The current picture of the map; null before the first. For tests.
    [[nodiscard]] const QImage &picture() const { return m_picture; }
    [[nodiscard]] bool isChangingFolder() const { return m_change.isRunning(); }

signals:
    void hoverChanged();
    void highlightedRowChanged();
    void coveredHeightChanged();
    void pointerChanged();
    /// Requests a context menu for `menuTarget` at a point of the map.
    void menuRequested(QPointF position);

protected:
    void componentComplete() override;
    QSGNode *updatePaintNode(QSGNode *old, UpdatePaintNodeData *) override;
    void updatePolish() override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverMoveEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    void followFolder();
    void followTree();
    void invalidateLayout();
    /// Lays out the same folder for the present size.
    void layOutAgain();
    [[nodiscard]] QSizeF layoutSize() const;
    void repaintPicture();
    [[nodiscard]] TreemapScene sceneOf(const TreemapLayout &layout, const FileNode *folder) const;
    void endChange();

    void setPointer(QPointF position);
    /// Finds the tile under the pointer again, which may have changed although the pointer has not moved.
    void updateHoveredTile();
    void updateCursor();
    void requestMenu(int index, QPointF position);
    void startDrag(int index);
    [[nodiscard]] double devicePixelRatio() const;

    StorageStore &m_store;
    std::shared_ptr<FileNode> m_folder;
    mutable TreemapLayout m_layout;
    mutable bool m_layoutIsStale = true;
    double m_coveredHeight = 0;
    double m_heightLeftFree = 0; ///< at the bottom, by the present layout
    TileTones m_tones{false};
    QImage m_picture;
    bool m_pictureIsStale = true;
    bool m_pictureIsNew = false; ///< not passed to the scene graph yet

    FolderChange m_change;
    bool m_otherIsNew = false; ///< the same for the pictures of the transition

    TreemapHover m_hover;
    int m_highlightedRow = -1;

    TreemapMouse m_mouse{*this};
    TreemapKeys m_keys{*this};
    int m_focused = -1;
    NodeActions m_menuTarget{m_store};
};

} // namespace corvane
