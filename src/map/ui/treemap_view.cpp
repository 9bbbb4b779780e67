#include "map/ui/treemap_view.h"

#include <algorithm>
#include <utility>

#include <QAccessible>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickWindow>

#include "core/store/qt_words.h"
#include "core/words/figures.h"
#include "map/ui/map_metrics.h"
#include "map/ui/tile_info_pill.h"
#include "map/ui/tree_path.h"
#include "map/ui/treemap_accessible.h"
#include "map/ui/treemap_node.h"
#include "map/ui/treemap_painter.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/selecting.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

RingStyle hoverRingStyle()
{
    return {MapMetrics::hoverRingWidth(), Theme::hoverRing(), MapMetrics::hoverRingOutline(),
            Theme::hoverRingOutline()};
}

RingStyle focusRingStyle()
{
    const Theme &theme = *Theme::instance();
    return {MapMetrics::focusRingInside(), theme.surface(), MapMetrics::focusRingOutside(), theme.focus()};
}

} // namespace

TreemapView::TreemapView(StorageStore &store, QQuickItem *parent) : KeyboardItem(parent), m_store(store)
{
    setFlag(ItemHasContents);
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton | Qt::RightButton);
    installTreemapAccessibility();
    connect(this, &KeyboardItem::visualFocusChanged, this, &QQuickItem::update);

    m_tones = TileTones(Theme::instance()->isDark());
    connect(Theme::instance(), &Theme::changed, this, [this] {
        m_tones = TileTones(Theme::instance()->isDark());
        repaintPicture();
    });

    connect(&m_change, &FolderChange::moved, this, &QQuickItem::update);
    connect(&m_change, &FolderChange::ended, this, &TreemapView::endChange);

    connect(&m_hover, &TreemapHover::moved, this, &TreemapView::pointerChanged);
    connect(&m_hover, &TreemapHover::changed, this, &TreemapView::hoverChanged);
    connect(&m_store, &StorageStore::currentFolderChanged, this, &TreemapView::followFolder);
    connect(&m_store, &StorageStore::revisionChanged, this, &TreemapView::followTree);
    connect(&m_store, &StorageStore::selectionChanged, this, &TreemapView::repaintPicture);
    followFolder();
}

TreemapView::~TreemapView() = default;

// --- The folder shown

void TreemapView::followFolder()
{
    const std::shared_ptr<FileNode> folder = m_store.currentFolder();
    if (folder == m_folder)
        return;
    const std::shared_ptr<FileNode> previousFolder = std::exchange(m_folder, folder);
    // A transition starts with the picture of the previous folder.
    const bool pictureFits = !m_layoutIsStale && !m_pictureIsStale;
    const TreemapLayout previous = std::exchange(m_layout, TreemapLayout());
    invalidateLayout();
    m_change.stop();

    const std::shared_ptr<FileNode> cameFrom = childTowards(m_folder.get(), previousFolder);
    const int back = layout().indexOf(cameFrom.get());
    m_focused = back >= 0 ? back : layout().first();
    if (pictureFits && isVisible() && window()) {
        const auto paint = [this](const FolderChange::Place &place, const Color &color) {
            TreemapScene scene = sceneOf(place.layout, place.folder.get());
            scene.onlyColor = color;
            return paintTreemap(scene, m_tones);
        };
        m_change.start({previousFolder, previous}, {m_folder, layout()}, m_picture, paint);
        m_otherIsNew = true;
    }
    clearHover();
    updateHoveredTile();
}

void TreemapView::followTree()
{
    followFolder();
    const FileNode *focused = m_focused >= 0 && !m_layoutIsStale && m_focused < m_layout.count()
                                  ? m_layout.tile(m_focused).node.get()
                                  : nullptr;
    invalidateLayout();
    m_change.stop();
    const int again = layout().indexOf(focused);
    m_focused = again >= 0 ? again : layout().first();
    m_hover.resetTile();
    updateHoveredTile();
}

void TreemapView::invalidateLayout()
{
    m_layoutIsStale = true;
    m_heightLeftFree = m_coveredHeight;
    m_mouse.forgetPress();
    repaintPicture();
}

QSizeF TreemapView::layoutSize() const
{
    return {width(), std::max(height() - m_heightLeftFree, 0.0)};
}

const TreemapLayout &TreemapView::layout() const
{
    if (m_layoutIsStale) {
        m_layout = m_folder ? TreemapLayout(*m_folder, layoutSize()) : TreemapLayout();
        m_layoutIsStale = false;
        notifyTilesChanged(const_cast<TreemapView *>(this));
    }
    return m_layout;
}

void TreemapView::endChange()
{
    m_otherIsNew = true;
    updateHoveredTile();
    update();
}

// --- Drawing

double TreemapView::devicePixelRatio() const
{
    return window() ? window()->effectiveDevicePixelRatio() : qGuiApp->devicePixelRatio();
}

void TreemapView::repaintPicture()
{
    m_pictureIsStale = true;
    polish();
}

TreemapScene TreemapView::sceneOf(const TreemapLayout &layout, const FileNode *folder) const
{
    return {
        .layout = layout, .folder = folder, .store = m_store, .size = size(), .devicePixelRatio = devicePixelRatio()};
}

void TreemapView::updatePolish()
{
    m_hover.emitPending();
    if (!m_pictureIsStale || width() <= 0 || height() <= 0)
        return;
    m_picture = paintTreemap(sceneOf(layout(), m_folder.get()), m_tones);
    m_pictureIsStale = false;
    m_pictureIsNew = true;
    update();
}

QSGNode *TreemapView::updatePaintNode(QSGNode *old, UpdatePaintNodeData *)
{
    if (m_picture.isNull()) {
        delete old;
        return nullptr;
    }
    auto *node = static_cast<TreemapNode *>(old);
    if (!node) {
        node = new TreemapNode(*window());
        m_pictureIsNew = true;
        m_otherIsNew = true;
    }
    if (m_otherIsNew)
        node->setOtherPictures(m_change.picture(), m_change.tinted());
    if (m_pictureIsNew)
        node->setPicture(m_picture);
    m_otherIsNew = false;
    m_pictureIsNew = false;

    const double ratio = m_picture.devicePixelRatio();
    node->alignToPixels(mapToScene(QPointF(0, 0)), ratio);
    const QRectF area(QPointF(0, 0), m_picture.deviceIndependentSize());
    const bool changing = !m_change.picture().isNull();
    if (changing)
        node->showBetween(area, m_change.tile(), m_change.part(), m_change.isInward());
    else
        node->showStill(area);

    const auto showRing = [&](RingNode &ring, int index, const RingStyle &style) {
        if (changing || index < 0 || index >= m_layout.count()) {
            ring.hide();
            return;
        }
        const QRectF rect = m_layout.rect(index);
        ring.show(TreemapPainter::snapped(rect, ratio), TreemapPainter::cornerRadius(rect, m_layout.role(index)), style,
                  ratio);
    };
    const int ofRow = m_layout.tileOfRow(m_highlightedRow);
    showRing(node->hoverRing(), ofRow >= 0 ? ofRow : hoveredTile(), hoverRingStyle());
    showRing(node->focusRing(), hasVisualFocus() ? m_focused : -1, focusRingStyle());
    return node;
}

void TreemapView::componentComplete()
{
    KeyboardItem::componentComplete();
    invalidateLayout(); // QML sets the properties in any order
}

void TreemapView::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        layOutAgain();
}

void TreemapView::layOutAgain()
{
    const bool wasEmpty = layout().count() == 0;
    const FileNode *focused = m_focused >= 0 ? m_layout.tile(m_focused).node.get() : nullptr;
    invalidateLayout();
    m_change.stop();
    const int again = wasEmpty ? -1 : layout().indexOf(focused);
    m_focused = again >= 0 ? again : layout().first();
    m_hover.resetTile();
}

void TreemapView::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged || (change == ItemSceneChange && data.window)) {
        m_change.stop();
        repaintPicture();
    }
    if (change == ItemVisibleHasChanged && !data.boolValue) {
        m_hover.leave();
        updateCursor();
    }
}

// --- Pointer

int TreemapView::hoveredRow() const
{
    return hoveredTile() >= 0 ? layout().row(hoveredTile()) : -1;
}

void TreemapView::setHighlightedRow(int row)
{
    if (m_highlightedRow == row)
        return;
    m_highlightedRow = row;
    emit highlightedRowChanged();
    update();
}

void TreemapView::setCoveredHeight(double height)
{
    if (m_coveredHeight == height)
        return;
    m_coveredHeight = height;
    emit coveredHeightChanged();
    if (m_heightLeftFree > m_coveredHeight && !m_hover.isInside())
        layOutAgain();
}

QString TreemapView::pillTitle() const
{
    return hoveredTile() >= 0 ? TileInfoPill(layout().tile(hoveredTile())).title : QString();
}

QString TreemapView::pillInfo() const
{
    if (hoveredTile() < 0)
        return {};
    const TreemapTile &tile = layout().tile(hoveredTile());
    return TileInfoPill(tile).info(percentOf(tile.size, m_folder->size));
}

QString TreemapView::pillIcon() const
{
    if (hoveredTile() < 0 || !layout().tile(hoveredTile()).node)
        return {};
    return fileIconKey(*layout().tile(hoveredTile()).node);
}

QPointF TreemapView::pillPlace(QPointF pointer, QSizeF panel) const
{
    return TileInfoPill::place(pointer, panel, boundingRect().adjusted(0, 0, 0, -m_coveredHeight));
}

void TreemapView::setPointer(QPointF position)
{
    if (m_hover.moveTo(position, isChangingFolder() ? -1 : layout().at(position)))
        updateCursor();
    polish();
}

void TreemapView::updateHoveredTile()
{
    if (m_hover.isInside())
        setPointer(m_hover.pointer());
}

void TreemapView::updateCursor()
{
    if (hoveredTile() >= 0 && tileOpens(hoveredTile()))
        setCursor(Qt::PointingHandCursor);
    else
        unsetCursor();
    update();
}

void TreemapView::hoverEnterEvent(QHoverEvent *event)
{
    setPointer(event->position());
}

void TreemapView::hoverMoveEvent(QHoverEvent *event)
{
    setPointer(event->position());
}

void TreemapView::hoverLeaveEvent(QHoverEvent *)
{
    m_hover.leave();
    updateCursor();
    if (m_heightLeftFree > m_coveredHeight)
        layOutAgain();
}

void TreemapView::mousePressEvent(QMouseEvent *event)
{
    usePointer();
    setPointer(event->position());
    const int index = layout().at(event->position());
    if (event->button() == Qt::RightButton) {
        m_mouse.forgetPress(); // with both buttons down, only the menu opens
        requestMenu(index, event->position());
        return;
    }
    m_mouse.press(*event);
    if (index >= 0)
        m_focused = layout().top(index);
    update();
}

void TreemapView::mouseMoveEvent(QMouseEvent *event)
{
    setPointer(event->position());
    m_mouse.move(*event);
}

void TreemapView::mouseReleaseEvent(QMouseEvent *event)
{
    m_mouse.release(*event);
}

void TreemapView::mouseDoubleClickEvent(QMouseEvent *event)
{
    m_mouse.doubleClick(*event);
}

void TreemapView::mouseUngrabEvent()
{
    m_mouse.forgetPress();
}

void TreemapView::clearHover()
{
    m_hover.clear();
    updateCursor();
}

void TreemapView::requestMenu(int index, QPointF position)
{
    if (index < 0 || !layout().tile(index).node)
        return;
    m_menuTarget.setTarget(layout().tile(index).node);
    emit menuRequested(position);
}

// --- Keyboard and actions

void TreemapView::focusTile(int index)
{
    m_focused = index;
    notifyTileFocused(this, index);
    update();
}

bool TreemapView::goUp()
{
    if (m_store.currentFolder() == m_store.root())
        return false;
    m_store.openParent();
    return true;
}

bool TreemapView::selectAll()
{
    if (m_folder)
        selectChildren(m_store, *m_folder);
    return m_folder != nullptr;
}

bool TreemapView::showMenu()
{
    if (m_focused >= 0)
        requestMenu(m_focused, layout().rect(m_focused).center());
    return m_focused >= 0;
}

void TreemapView::keyPressEvent(QKeyEvent *event)
{
    if (!m_keys.press(*event)) {
        event->ignore();
        return;
    }
    useKeyboard();
    update();
}

void TreemapView::focusInEvent(QFocusEvent *event)
{
    KeyboardItem::focusInEvent(event);
    if (m_focused < 0)
        m_focused = layout().first();
    if (m_focused >= 0)
        notifyTileFocused(this, m_focused);
}

QString TreemapView::tileName(int index) const
{
    const TreemapTile &tile = layout().tile(index);
    return displayText(tile.label) + QStringLiteral(", ") + sizeText(tile.size) + QStringLiteral(", ") +
           percentText(percentOf(tile.size, m_folder->size));
}

bool TreemapView::tileOpens(int index) const
{
    return opensInMap(layout().tile(index).node.get());
}

bool TreemapView::tileIsSelected(int index) const
{
    const FileNode *node = layout().tile(index).node.get();
    return node && m_store.isCovered(node->path());
}

void TreemapView::openTile(int index)
{
    const std::shared_ptr<FileNode> node = index >= 0 ? layout().tile(index).node : nullptr;
    if (!node)
        return;
    if (tileOpens(index))
        m_store.open(node);
    else
        m_store.openFile(node->path());
}

void TreemapView::toggleTile(int index)
{
    const FileNode *const node = index >= 0 ? layout().tile(index).node.get() : nullptr;
    if (node)
        toggleItem(m_store, *node);
}

void TreemapView::selectTile(int index)
{
    const FileNode *const node = index >= 0 ? layout().tile(index).node.get() : nullptr;
    if (node)
        selectItem(m_store, *node);
}

} // namespace corvane
