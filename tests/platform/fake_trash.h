#pragma once

#include <map>
#include <set>

#include "platform/fake_file_system.h"
#include "platform/trash.h"

namespace corvane {

/// A Trash for tests: removes trashed items from the fake file system, or fails on request. Like on a Mac, it takes the
/// item's path and resolves it at that time. Any thread.
///
/// Recorded calls: "trashItem P", "recycle P", "trashThroughFinder P", "forget P".
class FakeTrash final : public Trash {
public:
    enum class Operation { trashItem, recycle, trashThroughFinder };

    /// The Trash is ".Trash" in the home folder. `files` must outlive it.
    explicit FakeTrash(FakeFileSystem &files);

    /// Makes this operation fail for this path with this message.
    void fail(Operation operation, const std::string &path, std::string text,
              std::errc code = std::errc::operation_not_permitted);

    /// Makes this operation report success for this path without moving the item.
    void pretend(Operation operation, const std::string &path);

    /// Makes this operation fail for every path, as on a system without that service.
    void lack(Operation operation);

    void setTrashFolders(std::vector<std::string> folders);

    /// What was actually trashed, in order.
    [[nodiscard]] std::vector<std::string> trashed() const;

    [[nodiscard]] Expected<TrashedItem> trashItem(HeldFolder &folder, const std::string &name) override;
    [[nodiscard]] Expected<TrashedItem> recycle(HeldFolder &folder, const std::string &name) override;
    [[nodiscard]] Expected<void> trashThroughFinder(const std::string &path) override;
    void forget(HeldFolder &folder, const std::string &name) override;
    [[nodiscard]] std::vector<std::string> trashFolders() override;

private:
    using Case = std::pair<Operation, std::string>;

    [[nodiscard]] Expected<TrashedItem> perform(Operation operation, const std::string &path);

    FakeFileSystem &m_files;

    mutable std::mutex m_mutex;
    // Guarded by m_mutex.
    std::map<Case, Error> m_failures;
    std::set<Case> m_pretended;
    std::set<Operation> m_lacking;
    std::vector<std::string> m_trashed;
    std::vector<std::string> m_folders;
};

} // namespace corvane
