#include "cleanup/ui/cleanup_presenter.h"

#include "core/store/qt_words.h"

namespace corvane {

CleanupPresenter::CleanupPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    connect(&m_store, &StorageStore::cleanupChanged, this, &CleanupPresenter::changed);
}

QString CleanupPresenter::subtitle() const
{
    if (isMeasuring())
        return QStringLiteral("Measuring caches…");
    if (m_store.cleanupItems().empty())
        return {};
    return sizeText(m_store.safeCleanupTotal()) + QStringLiteral(" of caches & build junk is safe to clear");
}

bool CleanupPresenter::isMeasuring() const
{
    return m_store.cleanupLoading();
}

bool CleanupPresenter::canSelectSafe() const
{
    return m_store.safeCleanupTotal() > 0;
}

void CleanupPresenter::refresh()
{
    m_store.refreshCleanup();
}

void CleanupPresenter::selectAllSafe()
{
    m_store.selectAllSafeCleanup();
}

} // namespace corvane
