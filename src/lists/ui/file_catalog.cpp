#include "lists/ui/file_catalog.h"

#include <utility>

namespace corvane {

FileCatalog::FileCatalog(StorageStore &store)
    : QObject(&store),
      m_store(store),
      m_job([this](std::shared_ptr<const ListedFiles> files) { install(std::move(files)); })
{
    connect(&store, &StorageStore::revisionChanged, this, &FileCatalog::followTree);
    followTree();
}

FileCatalog &FileCatalog::of(StorageStore &store)
{
    if (auto *const found = store.findChild<FileCatalog *>(QString(), Qt::FindDirectChildrenOnly))
        return *found;
    return *new FileCatalog(store);
}

void FileCatalog::followTree()
{
    auto files = std::make_shared<ListedFiles>(m_store.allFiles(), userCasing(), m_store.locations().home());
    if (files->files().size() <= mostAtOnce) {
        m_job.drop();
        files->prepare();
        install(std::move(files));
        return;
    }
    m_job.start([files = std::move(files)](const StopFlag &) -> std::shared_ptr<const ListedFiles> {
        files->prepare();
        return files;
    });
    emit changed();
}

void FileCatalog::install(std::shared_ptr<const ListedFiles> files)
{
    std::shared_ptr<const ListedFiles> former = std::exchange(m_files, std::move(files));
    emit changed();
    // Free these in the background: this may be the last reference, and half a million nodes take long.
    m_discards.start([held = std::move(former)] {});
}

} // namespace corvane
