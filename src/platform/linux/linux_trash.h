#pragma once

#include <optional>

#include "platform/file_system.h"
#include "platform/linux/known_trash.h"
#include "platform/trash.h"

namespace corvane {

/// The Trash that Linux desktops share, through GIO: the one in the user's data folder, or the one at the top
/// of the item's own volume. Needs no session bus. What trashes items is for one thread at a time, the rest for any.
class LinuxTrash final : public Trash {
public:
    /// `files` outlives the object.
    explicit LinuxTrash(FileSystem &files) : m_files(files) {}

    /// GIO chooses the Trash for the first item of a volume in a request; further ones follow it there.
    /// Fails, and leaves the item where it is, when its volume has no Trash. What arrives is always what the folder
    /// holds under that name at the moment of the move, wherever the folder's path leads by then.
    [[nodiscard]] Expected<TrashedItem> trashItem(HeldFolder &folder, const std::string &name) override;

    [[nodiscard]] Expected<TrashedItem> recycle(HeldFolder &folder, const std::string &name) override;
    [[nodiscard]] Expected<void> deleteThroughFinder(const std::string &path) override;

    void endRequest() override { m_known.reset(); }

    void forget(HeldFolder &folder, const std::string &name) override;

    /// Those that may exist; those on volumes are not touched, for one that no longer answers would block.
    [[nodiscard]] std::vector<std::string> trashFolders() override;

    /// The one in the user's data folder; a second path of it where links lead to that folder.
    [[nodiscard]] static std::vector<std::string> foldersOfUser();

private:
    FileSystem &m_files; // constant after construction
    // Of the request under way.
    std::optional<KnownTrash> m_known;
};

} // namespace corvane
