#include <utility>

#include "core/store/storage_store.h"
#include "duplicates/duplicate_finder.h"

namespace corvane {

void StorageStore::findDuplicates()
{
    if (m_duplicatePhase == Phase::scanning)
        return;
    m_duplicatePhase = Phase::scanning;
    m_duplicateProgress = 0;
    const int token = m_duplicatesJob.token() + 1; // the token of the request started below
    m_duplicatesJob.start([this, files = allFiles(), token](const StopFlag &stop) {
        const auto report = [this, token](double fraction) {
            QMetaObject::invokeMethod(
                this, [this, fraction, token] { publishDuplicateProgress(fraction, token); }, Qt::QueuedConnection);
        };
        return DuplicateFinder::find(files, report, m_host.files, stop);
    });
    emit duplicateProgressChanged();
    emit duplicatesChanged();
}

void StorageStore::publishDuplicateProgress(double fraction, int token)
{
    if (m_duplicatePhase != Phase::scanning || token != m_duplicatesJob.token())
        return;
    m_duplicateProgress = fraction;
    emit duplicateProgressChanged();
}

void StorageStore::publishDuplicates(std::vector<DuplicateGroup> groups)
{
    m_duplicates.replace(std::move(groups));
    // Drop files that were removed during the search.
    m_duplicates.remove([this](const FileNode &file) { return !m_tree.contains(file); });
    m_duplicatePhase = Phase::ready;
    emit duplicatesChanged();
}

void StorageStore::clearDuplicates()
{
    m_duplicatesJob.drop();
    m_duplicates.replace({});
    m_duplicatePhase = Phase::idle;
    m_duplicateProgress = 0;
    emit duplicateProgressChanged();
    emit duplicatesChanged();
}

void StorageStore::followTreeInDuplicates()
{
    if (m_duplicates.remove([this](const FileNode &file) { return !m_tree.contains(file); }))
        emit duplicatesChanged();
}

void StorageStore::autoSelectDuplicates(bool keepNewest)
{
    setSelected(m_duplicates.copiesToSelect(keepNewest ? KeepRule::newest : KeepRule::oldest, selection()), true);
}

} // namespace corvane
