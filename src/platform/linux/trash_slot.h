#pragma once

#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/file_descriptor.h"
#include "platform/held_folder.h"
#include "platform/linux/open_trash.h"

namespace corvane {

/// The Trash that GIO has chosen for an item.
struct ChosenTrash {
    OpenTrash trash;
    bool notesWholePaths = true; ///< whether its records hold absolute paths; otherwise relative to its volume's top
};

/// A name reserved in the Trash for one item, with a record of where the item comes from. Used by one thread.
///
/// GIO takes a path and trashes whatever that leads to by then, even if a folder on it has been replaced; and for the
/// Trash in the home folder it records the path as given. So GIO gets an empty stand-in instead, in a new folder beside
/// the item, by a path through that folder's descriptor ("/proc" permitting), which cannot lead elsewhere. GIO chooses
/// the volume's Trash, creates it if missing, picks the name and writes the record. Then the stand-in's path in the
/// record is replaced by the item's, and at last the item is moved from the held folder to the reserved name.
///
/// If the program is killed, the item is therefore either in its original place or in the Trash with its record. What
/// may be left over are a folder ".corvane-…" beside the item, with the empty stand-in, and in the Trash the stand-in,
/// under the item's name or ".corvane-…", and records of items that are not there.
class TrashSlot {
public:
    /// Reserves a name for the item called `name`, which is not touched; `folder` must outlive the object. Fails with
    /// GIO's error and message; with the system's error if the stand-in cannot be created beside the item, or an item
    /// without a record in the Trash cannot be protected from GIO (`NameReservation`); with EIO if the record cannot be
    /// given the item's path, or the stand-in is not found in the Trash, where it then remains.
    [[nodiscard]] static Expected<TrashSlot> make(HeldFolder &folder, const std::string &name);

    TrashSlot(TrashSlot &&) = default;
    TrashSlot &operator=(TrashSlot &&) = delete;
    TrashSlot(const TrashSlot &) = delete;
    TrashSlot &operator=(const TrashSlot &) = delete;

    /// Removes the stand-in and its record from the Trash, unless the item has been moved there.
    ~TrashSlot();

    /// Moves the item, whichever has the name in the folder at this moment, to the reserved name. Does not replace
    /// another item that has taken that name. Fails with EBUSY if another program has changed the Trash, otherwise with
    /// the error of the move; the item is then in its original place. Call once.
    [[nodiscard]] Expected<void> fill();

    /// The Trash that holds the item. Call after a successful `fill`.
    [[nodiscard]] ChosenTrash release() &&;

    /// The reserved name in the Trash.
    [[nodiscard]] const std::string &name() const { return m_slotName; }

private:
    TrashSlot(HeldFolder &source, std::string name) : m_source(&source), m_name(std::move(name)) {}

    class Stage;

    /// Finds the stand-in in one of these Trash folders and opens its record; false if it is in none of them.
    [[nodiscard]] bool find(const std::vector<TrashPlace> &places);
    /// Replaces the stand-in's path in the record by the item's.
    [[nodiscard]] bool completeRecord();
    /// Whether the record in the Trash is still the one that GIO has written.
    [[nodiscard]] bool recordIsOurs() const;
    [[nodiscard]] Error failure(int code) const;
    [[nodiscard]] Error changedMeanwhile() const;

    HeldFolder *m_source;
    std::string m_name;
    OpenTrash m_trash;
    std::string m_slotName;
    // Kept open, so that their inode numbers cannot be reused while they are compared.
    FileDescriptor m_standIn;
    FileDescriptor m_record;
    bool m_notesWholePaths = true;
    bool m_isWaiting = false; // the Trash contains the stand-in or its record, and not the item
};

} // namespace corvane
