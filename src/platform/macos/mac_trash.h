#pragma once

#include "platform/file_system.h"
#include "platform/trash.h"

namespace corvane {

/// The three ways to move items to the Trash on a Mac. Any thread; but while a call from a background thread runs, the
/// main thread must run its run loop, because the workspace and scripts only work there.
class MacTrash final : public Trash {
public:
    /// `files` must outlive the object.
    explicit MacTrash(FileSystem &files) : m_files(files) {}

    [[nodiscard]] Expected<TrashedItem> trashItem(HeldFolder &folder, const std::string &name) override;
    [[nodiscard]] Expected<TrashedItem> recycle(HeldFolder &folder, const std::string &name) override;

    /// Succeeds if nothing is left at the path, whatever the Finder reported.
    [[nodiscard]] Expected<void> trashThroughFinder(const std::string &path) override;

    /// Does nothing: the Finder keeps its records of all items in one file, which it updates itself.
    void forget(HeldFolder &, const std::string &) override {}

    [[nodiscard]] std::vector<std::string> trashFolders() override;

private:
    FileSystem &m_files; // constant after construction
};

} // namespace corvane
