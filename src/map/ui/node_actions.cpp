#include "map/ui/node_actions.h"

#include <utility>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "core/store/path_text.h"
#include "core/store/storage_store.h"
#include "map/ui/tile_info_pill.h"

namespace corvane {

void NodeActions::setTarget(StorageStore *store, std::shared_ptr<FileNode> node)
{
    m_store = store;
    m_node = std::move(node);
    m_path = m_node ? m_node->path() : std::string();
    m_size = m_node ? m_node->size : 0;
    m_isElsewhere = false;
    emit changed();
}

void NodeActions::setTarget(StorageStore *store, const std::string &path, std::int64_t size)
{
    m_store = store;
    m_node = store->sharedNode(path);
    m_path = path;
    m_size = size;
    m_isElsewhere = true;
    emit changed();
}

QString NodeActions::title() const
{
    return displayText(lastPathComponent(m_path));
}

bool NodeActions::canOpen() const
{
    return opensInMap(m_node.get());
}

bool NodeActions::canReveal() const
{
    return m_store && !m_path.empty() && !(m_node && m_node->removed);
}

bool NodeActions::canSelect() const
{
    // What has been removed can be neither shown nor removed again.
    if (!canReveal())
        return false;
    return !m_store->isProtected(m_path) && !hasSelectedAncestor(m_store->selection(), m_path);
}

bool NodeActions::isSelected() const
{
    return m_store && m_store->isSelected(m_path);
}

QString NodeActions::openText() const
{
    return m_isElsewhere ? QStringLiteral("Open in Space Map") : QStringLiteral("Open");
}

QString NodeActions::revealText() const
{
#ifdef Q_OS_MACOS
    return QStringLiteral("Reveal in Finder");
#else
    return QStringLiteral("Show in File Manager");
#endif
}

QString NodeActions::copyText() const
{
    return QStringLiteral("Copy Path");
}

QString NodeActions::selectText() const
{
    return isSelected() ? QStringLiteral("Deselect") : QStringLiteral("Select for Removal");
}

void NodeActions::open() const
{
    if (!m_store || !canOpen())
        return;
    if (m_isElsewhere)
        m_store->showInMap(m_node);
    else
        m_store->open(m_node);
}

void NodeActions::reveal() const
{
    if (canReveal())
        m_store->reveal(m_path);
}

void NodeActions::copyPath() const
{
    if (!m_path.empty())
        QGuiApplication::clipboard()->setText(QString::fromStdString(m_path));
}

void NodeActions::toggleSelection() const
{
    if (canSelect())
        toggleSelected(*m_store, m_path, m_size);
}

void toggleSelected(StorageStore &store, const FileNode &node)
{
    if (!node.removed)
        toggleSelected(store, node.path(), node.size);
}

void toggleSelected(StorageStore &store, const std::string &path, std::int64_t size)
{
    if (!hasSelectedAncestor(store.selection(), path))
        store.setSelected(path, size, !store.isSelected(path));
}

QMimeData *makeMimeData(const FileNode &node)
{
    // Percent-encoded from the bytes of the path, so that a name that is no valid text arrives unharmed.
    const std::string path = node.path();
    auto *data = new QMimeData;
    data->setData(QStringLiteral("text/uri-list"),
                  "file://" +
                      QByteArray::fromRawData(path.data(), static_cast<qsizetype>(path.size())).toPercentEncoding("/") +
                      "\r\n");
    return data;
}

} // namespace corvane
