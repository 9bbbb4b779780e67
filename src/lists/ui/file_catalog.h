#pragma once

#include <memory>

#include <QObject>
#include <QThreadPool>

#include "core/store/latest_job.h"
#include "core/store/storage_store.h"
#include "duplicates/listed_files.h"

namespace corvane {

/// The files of a store's tree, prepared for lists: once for each state of the tree, however many screens come and go.
/// Few files are prepared at once; with many that takes part of a second, which goes by in the background while the
/// former ones stay. Main thread only.
class FileCatalog : public QObject {
    Q_OBJECT

public:
    /// More files than this are prepared in the background.
    static constexpr std::size_t mostAtOnce = 20'000;

    /// That of a store, made when it is first asked for; it belongs to the store.
    [[nodiscard]] static FileCatalog &of(StorageStore &store);

    /// Null as long as the first are being prepared.
    [[nodiscard]] const std::shared_ptr<const ListedFiles> &files() const { return m_files; }
    /// Whether there are others, which are not ready yet.
    [[nodiscard]] bool isPreparing() const { return m_job.isLoading(); }

signals:
    void changed();

private:
    explicit FileCatalog(StorageStore &store);

    void followTree();
    void install(std::shared_ptr<const ListedFiles> files);

    StorageStore &m_store;
    std::shared_ptr<const ListedFiles> m_files;
    QThreadPool m_discards;
    LatestJob<std::shared_ptr<const ListedFiles>> m_job;
};

} // namespace corvane
