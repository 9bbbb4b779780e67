#pragma once

#include <optional>

#include "platform/file_system.h"
#include "platform/linux/known_trash.h"
#include "platform/trash.h"

namespace corvane {

/// The Trash shared by Linux desktops, through GIO: in the user's data folder, or at the top of the item's own volume.
/// Needs no session bus. Trashing is for one thread at a time; the other functions may be called from any thread.
class LinuxTrash final : public Trash {
public:
    /// `files` must outlive the object.
    explicit LinuxTrash(FileSystem &files) : m_files(files) {}

    /// GIO chooses the Trash for the first item of a volume in a request; further items go to the same one. Fails, and
    /// leaves the item in place, if its volume has no Trash. Always moves the item that has that name in the folder at
    /// the moment of the move, wherever the folder's path leads by then.
    [[nodiscard]] Expected<TrashedItem> trashItem(HeldFolder &folder, const std::string &name) override;

    [[nodiscard]] Expected<TrashedItem> recycle(HeldFolder &folder, const std::string &name) override;
    [[nodiscard]] Expected<void> trashThroughFinder(const std::string &path) override;

    void endRequest() override { m_known.reset(); }

    void forget(HeldFolder &folder, const std::string &name) override;

    /// All that may exist; those on volumes are not accessed, since one that no longer answers would block.
    [[nodiscard]] std::vector<std::string> trashFolders() override;

    /// The one in the user's data folder; plus its resolved path if links lead to it.
    [[nodiscard]] static std::vector<std::string> foldersOfUser();

private:
    FileSystem &m_files; // constant after construction
    // For the current request.
    std::optional<KnownTrash> m_known;
};

} // namespace corvane
