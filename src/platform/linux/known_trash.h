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

/// The Trash that GIO has chosen, and made where it was missing, for an item of one mounted file system. It takes
/// further items from there without GIO, which needs a stand-in for each and thereby most of the time: the record is
/// written first, as the freedesktop Trash specification 1.0 demands, under a name that is free, and with the item's
/// own path; then the item is moved from its held folder, never over anything else. So whenever the program is ended
/// the item is at its own place or in the Trash with its record; what may be left over is a record of nothing. Holds
/// the Trash open: to be let go of with the request. One thread.
class KnownTrash {
public:
    /// The Trash has just taken an item from the folder.
    KnownTrash(const HeldFolder &source, ChosenTrash chosen);

    /// What lies in it under that name; null where nothing does.
    [[nodiscard]] TrashedItem arrived(const std::string &itemName) const;

    /// Whether GIO would choose the same Trash for that item of that folder. Never for a Trash that is unlike others.
    [[nodiscard]] bool takesFrom(const HeldFolder &source, const ItemFacts &item) const;

    /// Moves in what has the name in the folder at this moment. Nothing where anything is unusual, such as a Trash that
    /// was replaced: the item is in its place then, and GIO is to be asked again.
    [[nodiscard]] std::optional<TrashedItem> take(HeldFolder &source, const std::string &name);

private:
    /// What leads to the Trash, and whether it is still what GIO has found trustworthy.
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
    std::optional<Mount> m_mount;                        // of the source
    std::uint64_t m_device;                              // the same
    std::vector<Watched> m_watched;                      // none where it is unlike others
    std::unordered_map<std::string, int> m_nextAttempts; // of names that were taken: thousands may be called the same
};

} // namespace corvane
