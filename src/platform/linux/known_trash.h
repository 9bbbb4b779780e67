#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/file_descriptor.h"
#include "platform/linux/open_trash.h"
#include "platform/linux/trash_slot.h"
#include "platform/mount.h"
#include "platform/trash.h"

namespace corvane {

/// The Trash that GIO has chosen, and created if missing, for an item of one mounted file system. Moves further items
/// there without GIO, which needs a stand-in for each item and spends most of its time on that. As the shared Trash
/// format requires, the record is written first, under a free name and with the item's own path; then the item is moved
/// from its held folder, never over anything else. Whenever the program is killed, the item is therefore either in its
/// original place or in the Trash with its record; at worst, a record without an item remains. Holds the Trash open, so
/// destroy it with the request. Not thread-safe.
class KnownTrash {
public:
    /// Created when the Trash has just taken an item from the folder.
    KnownTrash(const HeldFolder &source, ChosenTrash chosen);

    /// The item in the Trash under that name; null if there is none.
    [[nodiscard]] TrashedItem arrived(const std::string &itemName) const;

    /// Whether GIO would choose the same Trash for that item of that folder. Always false for an unusual Trash.
    [[nodiscard]] bool takesFrom(const HeldFolder &source, const ItemFacts &item) const;

    /// Moves the item that has the name in the folder at this moment. Returns nothing in unusual cases, such as a
    /// replaced Trash: the item is then still in its place, and the caller must use GIO again.
    [[nodiscard]] std::optional<TrashedItem> take(HeldFolder &source, const std::string &name);

private:
    /// Status of a folder on the path to the Trash, to detect changes since GIO accepted it.
    struct Watched {
        std::string path;
        std::uint64_t device, inode;
        std::uint32_t mode, owner;

        friend bool operator==(const Watched &, const Watched &) = default;
    };
    class Record;

    [[nodiscard]] static std::optional<Watched> lookAt(const std::string &path);
    [[nodiscard]] std::vector<Watched> watched() const;
    [[nodiscard]] bool isAsItWas() const;
    [[nodiscard]] std::optional<std::string> recordTextFor(const std::string &path) const;
    [[nodiscard]] Record reserve(const std::string &name, const std::string &text);
    [[nodiscard]] Record recordedAnew(HeldFolder &source, const std::string &name, const std::string &itemName,
                                      const std::string &text);

    std::shared_ptr<HeldFolder> m_items;
    FileDescriptor m_records;
    std::string m_top;
    bool m_notesWholePaths;
    std::optional<Mount> m_mount;                        // of the source folder
    std::uint64_t m_device;                              // of the source folder
    std::vector<Watched> m_watched;                      // empty for an unusual Trash
    std::unordered_map<std::string, int> m_nextAttempts; // by name already taken: thousands of items may share one
};

} // namespace corvane
