#include "shell/ui/node_actions.h"

#include <utility>
#include <vector>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "core/store/file_url.h"
#include "core/store/qt_words.h"
#include "core/store/storage_store.h"
#include "shell/ui/selecting.h"

namespace corvane {

void NodeActions::setTarget(std::shared_ptr<FileNode> node)
{
    m_node = std::move(node);
    m_path = m_node ? m_node->path() : std::string();
    m_size = m_node ? m_node->size : 0;
    m_isFile = m_node && m_node->kind == FileNode::Kind::file;
    m_isElsewhere = false;
    emit changed();
}

void NodeActions::setTarget(const std::string &path, std::int64_t size, FileNode::Kind kind)
{
    m_node = m_store.sharedNode(path);
    m_path = path;
    m_size = size;
    m_isFile = kind == FileNode::Kind::file;
    m_isElsewhere = true;
    emit changed();
}

QString NodeActions::title() const
{
    return displayText(lastPathComponent(m_path));
}

bool NodeActions::canOpen() const
{
    return m_isFile || opensInMap(m_node.get());
}

bool NodeActions::canReveal() const
{
    return !m_path.empty() && !(m_node && m_node->removed);
}

bool NodeActions::canSelect() const
{
    // A removed item can neither be shown nor removed again.
    return canReveal() && selectionFactsOf(m_store, m_path).canChange();
}

bool NodeActions::isSelected() const
{
    return m_store.isSelected(m_path);
}

QString NodeActions::openText() const
{
    return m_isElsewhere && !m_isFile ? QStringLiteral("Open in Space Map") : QStringLiteral("Open");
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
    if (!canOpen())
        return;
    if (m_isFile)
        m_store.openFile(m_path);
    else if (m_isElsewhere)
        m_store.showInMap(m_node);
    else
        m_store.open(m_node);
}

void NodeActions::reveal() const
{
    if (canReveal())
        m_store.reveal(m_path);
}

void NodeActions::copyPath() const
{
    if (!m_path.empty())
        QGuiApplication::clipboard()->setText(QString::fromStdString(m_path));
}

void NodeActions::toggleSelection() const
{
    if (canSelect())
        toggleItem(m_store, m_path, m_size);
}

bool opensInMap(const FileNode *node)
{
    return node && node->kind != FileNode::Kind::file;
}

void selectChildren(StorageStore &store, const FileNode &folder)
{
    std::vector<SelectedEntry> entries;
    entries.reserve(folder.children.size());
    for (const auto &child : folder.children)
        entries.push_back({child->path(), child->size});
    store.setSelected(entries, true);
}

QMimeData *makeMimeData(const FileNode &node)
{
    auto *data = new QMimeData;
    data->setData(QStringLiteral("text/uri-list"), fileUrl(node.path()) + "\r\n");
    return data;
}

} // namespace corvane
