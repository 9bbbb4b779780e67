#include "cleanup/ui/cleanup_presenter.h"

#include "core/store/followed.h"
#include "core/store/qt_words.h"

namespace corvane {

void CleanupPresenter::setStore(StorageStore *store)
{
    if (!followObject(m_store, store, this))
        return;
    if (m_store)
        connect(m_store, &StorageStore::cleanupChanged, this, &CleanupPresenter::changed);
    emit storeChanged();
    emit changed();
}

QString CleanupPresenter::subtitle() const
{
    if (isMeasuring())
        return QStringLiteral("Measuring caches…");
    if (!m_store || m_store->cleanupItems().empty())
        return {};
    return sizeText(m_store->safeCleanupTotal()) + QStringLiteral(" of caches & build junk is safe to clear");
}

bool CleanupPresenter::isMeasuring() const
{
    return m_store && m_store->cleanupLoading();
}

bool CleanupPresenter::canSelectSafe() const
{
    return m_store && m_store->safeCleanupTotal() > 0;
}

void CleanupPresenter::refresh()
{
    if (m_store)
        m_store->refreshCleanup();
}

void CleanupPresenter::selectAllSafe()
{
    if (m_store)
        m_store->selectAllSafeCleanup();
}

} // namespace corvane
