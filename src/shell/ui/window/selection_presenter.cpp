#include "shell/ui/window/selection_presenter.h"

#include "core/byte_count.h"
#include "core/store/followed_store.h"

namespace corvane {

void SelectionPresenter::setStore(StorageStore *store)
{
    if (!followStore(m_store, store, this))
        return;
    if (m_store) {
        connect(m_store, &StorageStore::selectionChanged, this, &SelectionPresenter::readSelection);
        connect(m_store, &StorageStore::isRemovingChanged, this, &SelectionPresenter::removingChanged);
        connect(m_store, &StorageStore::isRemovingChanged, this, &SelectionPresenter::removableChanged);
    }
    emit storeChanged();
    emit removingChanged();
    readSelection();
}

void SelectionPresenter::readSelection()
{
    const Selection effective = m_store ? m_store->effectiveSelection() : Selection();
    m_count = effective.size();
    m_total = totalSize(effective);
    emit selectionChanged();
    emit removableChanged();
}

bool SelectionPresenter::isRemoving() const
{
    return m_store && m_store->isRemoving();
}

QString SelectionPresenter::itemCount() const
{
    return m_count == 1 ? QStringLiteral("1 item") : QStringLiteral("%1 items").arg(m_count);
}

QString SelectionPresenter::size() const
{
    return QString::fromStdString(formatByteCount(m_total));
}

QString SelectionPresenter::countText() const
{
    return itemCount() + QStringLiteral(" selected");
}

QString SelectionPresenter::totalText() const
{
    return size() + QStringLiteral(" can be reclaimed");
}

QString SelectionPresenter::trashTitle() const
{
    return isRemoving() ? QStringLiteral("Removing") : QStringLiteral("Move to Trash");
}

QString SelectionPresenter::reviewTitle() const
{
    return QStringLiteral("Selected for removal");
}

QString SelectionPresenter::reviewSubtitle() const
{
    return itemCount() + QStringLiteral(" · ") + size();
}

QString SelectionPresenter::confirmTitle() const
{
    return QStringLiteral("Permanently delete %1?").arg(itemCount());
}

QString SelectionPresenter::confirmMessage() const
{
    return QStringLiteral("These items will be erased immediately and can't be recovered from the Trash.");
}

QString SelectionPresenter::confirmDelete() const
{
    return QStringLiteral("Delete %1 Permanently").arg(size());
}

void SelectionPresenter::clear()
{
    if (m_store && !isRemoving())
        m_store->clearSelection();
}

void SelectionPresenter::moveToTrash()
{
    if (canRemove())
        m_store->remove(m_store->effectiveSelection(), false);
}

void SelectionPresenter::deletePermanently()
{
    if (canRemove())
        m_store->remove(m_store->effectiveSelection(), true);
}

} // namespace corvane
