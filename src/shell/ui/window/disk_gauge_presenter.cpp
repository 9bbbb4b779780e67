#include "shell/ui/window/disk_gauge_presenter.h"

#include "core/store/qt_words.h"

namespace corvane {

DiskGaugePresenter::DiskGaugePresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    connect(&m_store, &StorageStore::volumeChanged, this, &DiskGaugePresenter::changed);
}

QString DiskGaugePresenter::text() const
{
    const VolumeInfo &volume = m_store.volume();
    return sizeText(volume.available) + QStringLiteral(" free of ") + sizeText(volume.total);
}

double DiskGaugePresenter::usedFraction() const
{
    return m_store.volume().usedFraction();
}

} // namespace corvane
