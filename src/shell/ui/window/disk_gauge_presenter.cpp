#include "shell/ui/window/disk_gauge_presenter.h"

#include <algorithm>

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
    if (m_store.volume().total <= 0)
        return 0;
    const VolumeInfo &volume = m_store.volume();
    const double free = static_cast<double>(volume.available) / static_cast<double>(volume.total);
    return std::clamp(1.0 - free, 0.0, 1.0);
}

} // namespace corvane
