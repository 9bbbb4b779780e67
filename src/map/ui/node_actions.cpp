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
    emit changed();
}

QString NodeActions::title() const
{
    return m_node ? displayText(m_node->name) : QString();
}

bool NodeActions::canOpen() const
{
    return opensInMap(m_node.get());
}

bool NodeActions::canSelect() const
{
    if (!m_store || !m_node || m_node->removed)
        return false;
    const std::string path = m_node->path();
    return !m_store->isProtected(path) && !hasSelectedAncestor(m_store->selection(), path);
}

bool NodeActions::isSelected() const
{
    return m_store && m_node && m_store->isSelected(m_node->path());
}

QString NodeActions::openText() const
{
    return QStringLiteral("Open");
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
    if (m_store && canOpen())
        m_store->open(m_node);
}

void NodeActions::reveal() const
{
    if (!m_store || !m_node)
        return;
    if (const auto shown = m_store->host().desktop.reveal(m_node->path()); !shown)
        m_store->showToast("Can't show " + m_node->name + ": " + shown.error().description(), true);
}

void NodeActions::copyPath() const
{
    if (m_node)
        QGuiApplication::clipboard()->setText(QString::fromStdString(m_node->path()));
}

void NodeActions::toggleSelection() const
{
    if (m_store && m_node)
        toggleSelected(*m_store, *m_node);
}

void toggleSelected(StorageStore &store, const FileNode &node)
{
    const std::string path = node.path();
    if (!node.removed && !hasSelectedAncestor(store.selection(), path))
        store.setSelected(path, node.size, !store.isSelected(path));
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
