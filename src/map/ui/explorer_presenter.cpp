#include "map/ui/explorer_presenter.h"

#include <QKeySequence>

#include "core/scan_words.h"
#include "core/store/qt_words.h"
#include "core/words/shared_texts.h"
#include "map/treemap_builder.h"
#include "shell/ui/scan_words.h"

namespace corvane {

ExplorerPresenter::ExplorerPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    connect(&m_store, &StorageStore::currentFolderChanged, this, &ExplorerPresenter::changed);
    connect(&m_store, &StorageStore::revisionChanged, this, &ExplorerPresenter::changed);
}

const FileNode *ExplorerPresenter::folder() const
{
    return m_store.currentFolder().get();
}

QString ExplorerPresenter::folderName() const
{
    return folder() ? displayText(folder()->name) : QString();
}

QString ExplorerPresenter::folderSize() const
{
    return folder() ? sizeText(folder()->size) : QString();
}

QString ExplorerPresenter::fileCount() const
{
    return folder() ? countText(folder()->fileCount, "file", "files") : QString();
}

QString ExplorerPresenter::partialText() const
{
    return partialScanNote(m_store);
}

bool ExplorerPresenter::canGoUp() const
{
    return folder() && m_store.currentFolder() != m_store.root();
}

QString ExplorerPresenter::upText() const
{
    // "⌘↑" on a Mac, where the key's name already is an arrow.
    const QString shortcut = QKeySequence(Qt::CTRL | Qt::Key_Up).toString(QKeySequence::NativeText);
    return QStringLiteral("Up one level (%1)")
        .arg(QString(shortcut).replace(QStringLiteral("Up"), QStringLiteral("↑")));
}

bool ExplorerPresenter::isEmpty() const
{
    return folder() && TreemapBuilder::items(*folder(), TreemapBuilder::topLimit).empty();
}

QString ExplorerPresenter::emptySymbol() const
{
    return folder() && folder()->unreadable ? QStringLiteral("lock") : QStringLiteral("tray");
}

QString ExplorerPresenter::emptyTitle() const
{
    return displayText(folder() && folder()->unreadable ? unreadableFolderTitle : emptyFolderTitle);
}

QString ExplorerPresenter::blockedText() const
{
    const std::string owner = ownerText(m_store.words().blockedByOwner, folder()->path(), m_store.host().files);
    return displayText(owner.empty() ? std::string(m_store.words().blockedFolder) : owner);
}

QString ExplorerPresenter::emptyText() const
{
    return folder() && folder()->unreadable ? blockedText() : QStringLiteral("This folder is empty.");
}

void ExplorerPresenter::goUp() const
{
    m_store.openParent();
}

} // namespace corvane
