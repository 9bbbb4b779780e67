#pragma once

#include <memory>

#include <QObject>
#include <QThreadPool>

#include "core/store/latest_job.h"
#include "core/store/storage_store.h"
#include "lists/listed_files.h"

namespace corvane {

/// The files of a store's tree, prepared for lists once per state of the tree and shared by all screens. Few files are
/// prepared synchronously; many take a fraction of a second and are prepared in the background, while the previous ones
/// remain available. Main thread only.
class FileCatalog : public QObject {
    Q_OBJECT

public:
    /// More files than this are prepared in the background.
    static constexpr std::size_t mostAtOnce = 20'000;

    /// The catalogue of a store, created on first use and owned by the store.
    [[nodiscard]] static FileCatalog &of(StorageStore &store);

    /// Null until the first files are prepared.
    [[nodiscard]] const std::shared_ptr<const ListedFiles> &files() const { return m_files; }
    /// Whether newer files are still being prepared.
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
