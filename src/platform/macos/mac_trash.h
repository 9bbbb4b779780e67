#pragma once

#include "platform/file_system.h"
#include "platform/trash.h"

namespace corvane {

/// The three ways into the Trash of a Mac. Any thread but for one rule: while a call from a background thread
/// runs, the main thread must turn its run loop, for the workspace and scripts work there alone.
class MacTrash final : public Trash {
public:
    /// `files` outlives the object.
    explicit MacTrash(FileSystem &files) : m_files(files) {}

    [[nodiscard]] Expected<TrashedItem> trashItem(HeldFolder &folder, const std::string &name) override;
    [[nodiscard]] Expected<TrashedItem> recycle(HeldFolder &folder, const std::string &name) override;

    /// Success means that nothing is at the path any more, whatever the Finder said.
    [[nodiscard]] Expected<void> deleteThroughFinder(const std::string &path) override;

    /// Nothing: what the Finder notes lies in one file for all items, which it keeps right itself.
    void forget(HeldFolder &, const std::string &) override {}

    [[nodiscard]] std::vector<std::string> trashFolders() override;

private:
    FileSystem &m_files; // constant after construction
};

} // namespace corvane
