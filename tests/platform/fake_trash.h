#pragma once

#include <map>
#include <set>

#include "platform/fake_file_system.h"
#include "platform/trash.h"

namespace corvane {

/// A Trash for tests: takes what it trashes out of the fake file system, or fails as the test says. Like a Mac's it
/// goes by the path of the item, wherever that leads at the time. Any thread.
///
/// Recorded calls: "trashItem P", "recycle P", "deleteThroughFinder P", "forget P".
class FakeTrash final : public Trash {
public:
    enum class Operation { trashItem, recycle, deleteThroughFinder };

    /// The Trash lies at ".Trash" in the home folder. `files` outlives it.
    explicit FakeTrash(FakeFileSystem &files);

    /// From now on that operation fails for that path, with that sentence.
    void fail(Operation operation, const std::string &path, std::string text,
              std::errc code = std::errc::operation_not_permitted);

    /// From now on that operation reports success for that path and leaves the item where it is.
    void pretend(Operation operation, const std::string &path);

    /// A system without that service: it fails for every path.
    void lack(Operation operation);

    void setTrashFolders(std::vector<std::string> folders);

    /// What was really trashed, in order.
    [[nodiscard]] std::vector<std::string> trashed() const;

    [[nodiscard]] Expected<TrashedItem> trashItem(HeldFolder &folder, const std::string &name) override;
    [[nodiscard]] Expected<TrashedItem> recycle(HeldFolder &folder, const std::string &name) override;
    [[nodiscard]] Expected<void> deleteThroughFinder(const std::string &path) override;
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
