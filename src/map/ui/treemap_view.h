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

/// The map of the folder shown. Draws it into one picture that is redrawn only when the folder, the size,
/// the tree, the selection or the theme changes; what follows the pointer and the keyboard lies above it.
/// Main thread, as every item.
class TreemapView : public corvane::KeyboardItem { // qualified for qmllint, which looks the name up as written
    Q_OBJECT
    QML_ELEMENT
    /// The row of the folder's list that the tile under the pointer belongs to, or -1.
    Q_PROPERTY(int hoveredRow READ hoveredRow NOTIFY hoverChanged)
    /// The row of the list under the pointer, or -1: its tile gets the ring.
    Q_PROPERTY(int highlightedRow READ highlightedRow WRITE setHighlightedRow NOTIFY highlightedRowChanged)
    /// How much of the map lies beneath something, at its bottom. A folder is laid out in the room above it. What
    /// comes while the folder is shown moves no tile, and what goes moves none under the pointer.
    Q_PROPERTY(double coveredHeight READ coveredHeight WRITE setCoveredHeight NOTIFY coveredHeightChanged)
    Q_PROPERTY(bool pillShown READ isPillShown NOTIFY hoverChanged)
    Q_PROPERTY(QString pillTitle READ pillTitle NOTIFY hoverChanged)
    Q_PROPERTY(QString pillInfo READ pillInfo NOTIFY hoverChanged)
    /// The icon's key; empty for what stands for several files.
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
    [[nodiscard]] bool isPillShown() const { return m_hover.isExplained(); }
    [[nodiscard]] QString pillTitle() const;
    [[nodiscard]] QString pillInfo() const;
    [[nodiscard]] QString pillIcon() const;
    [[nodiscard]] QPointF pointer() const { return m_hover.pointer(); }
    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }

    /// Where a panel of this size stands beside the pointer.
    Q_INVOKABLE [[nodiscard]] QPointF pillPlace(QPointF pointer, QSizeF panel) const;

    // --- The tiles, for whoever reads the map instead of looking at it.
    [[nodiscard]] const TreemapLayout &layout() const;
    [[nodiscard]] int hoveredTile() const { return m_hover.tile(); }
    [[nodiscard]] int focusedTile() const { return m_focused; }
    /// "Movies, 156.82 GB, 24.4%"
    [[nodiscard]] QString tileName(int index) const;
    [[nodiscard]] bool tileOpens(int index) const;
    [[nodiscard]] bool tileIsSelected(int index) const;
    /// Shows a folder or package in the explorer, and a file in its own program.
    void openTile(int index);
    /// Selects the tile's item, or takes it out of the selection; says why where that is refused.
    void toggleTile(int index);
    void selectTile(int index);
    void focusTile(int index);
    /// No tile is under the pointer until it moves.
    void clearHover();

    // --- What the keys do beside that; false where there is nothing to do it with.
    bool goUp();
    bool selectAll();
    /// The context menu of the tile that has the focus.
    bool showMenu();

    /// The picture of the map as it stands; null before there is one. For tests.
    [[nodiscard]] const QImage &picture() const { return m_picture; }
    [[nodiscard]] bool isChangingFolder() const { return m_change.isRunning(); }

signals:
    void hoverChanged();
    void highlightedRowChanged();
    void coveredHeightChanged();
    void pointerChanged();
    /// A context menu for `menuTarget` is wanted at a point of the map.
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
    /// The same folder in the room that there is now.
    void layOutAgain();
    [[nodiscard]] QSizeF layoutSize() const;
    void repaintPicture();
    [[nodiscard]] TreemapScene sceneOf(const TreemapLayout &layout, const FileNode *folder) const;
    void endChange();

    void setPointer(QPointF position);
    /// The tile under the pointer may be another one, with the pointer where it is.
    void lookUnderPointer();
    void showCursor();
    void requestMenu(int index, QPointF position);
    void startDrag(int index);
    [[nodiscard]] double devicePixelRatio() const;

    StorageStore &m_store;
    std::shared_ptr<FileNode> m_folder;
    mutable TreemapLayout m_layout;
    mutable bool m_layoutIsStale = true;
    double m_coveredHeight = 0;
    double m_heightLeftFree = 0; ///< by the layout
    TileTones m_tones{false};
    QImage m_picture;
    bool m_pictureIsStale = true;
    bool m_pictureIsNew = false; ///< not handed to the screen yet

    FolderChange m_change;
    bool m_otherIsNew = false; ///< the picture of the change, as above

    TreemapHover m_hover;
    int m_highlightedRow = -1;

    TreemapMouse m_mouse{*this};
    TreemapKeys m_keys{*this};
    int m_focused = -1;
    NodeActions m_menuTarget{m_store};
};

} // namespace corvane
