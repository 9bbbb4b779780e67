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
    bool notesWholePaths = true; ///< else paths that start at the top of its volume
};

/// A place in the Trash that waits for one item: its name is taken, and its record names where the item comes from.
///
/// GIO moves what a path leads to, and follows whatever has taken a folder's place on the way by then; and of an item
/// under the home it notes the very text of the path. So GIO is given an empty stand-in of the item's name, in a fresh
/// folder beside the item that is reached by its file number alone: GIO chooses the volume's Trash, makes it, finds
/// the name and writes the record, and nothing else can be hit. The record then gets the item's own path in place
/// of the stand-in's. The item itself is moved last, from the held folder to the place, so whenever the program is
/// ended the item is at its own place or in the Trash with a record that tells the way back; what may be left over
/// is an empty file. One thread.
class TrashSlot {
public:
    /// `folder` outlives the object.
    [[nodiscard]] static Expected<TrashSlot> make(HeldFolder &folder, const std::string &name);

    TrashSlot(TrashSlot &&) = default;
    TrashSlot &operator=(TrashSlot &&) = delete;
    TrashSlot(const TrashSlot &) = delete;
    TrashSlot &operator=(const TrashSlot &) = delete;

    /// Takes the stand-in and its record out of the Trash again, unless the item has been moved.
    ~TrashSlot();

    /// Moves the item in, whatever has its name in the folder at this moment.
    [[nodiscard]] Expected<void> fill();

    /// The Trash in which the place lies. To be taken once the item has been moved in.
    [[nodiscard]] ChosenTrash release() &&;

    /// The name there.
    [[nodiscard]] const std::string &name() const { return m_slotName; }

private:
    TrashSlot(HeldFolder &source, std::string name) : m_source(&source), m_name(std::move(name)) {}

    class Stage;

    [[nodiscard]] bool find(const std::vector<TrashPlace> &places);
    [[nodiscard]] bool completeRecord();
    [[nodiscard]] bool recordIsOurs() const;
    [[nodiscard]] Error failure(int code) const;
    [[nodiscard]] Error changedMeanwhile() const;

    HeldFolder *m_source;
    std::string m_name;
    OpenTrash m_trash;
    std::string m_slotName;
    // Held open, so that nothing else can get their numbers while they are compared.
    FileDescriptor m_standIn;
    FileDescriptor m_record;
    bool m_notesWholePaths = true;
    bool m_isWaiting = false; // the stand-in lies in the Trash, or its record alone
};

} // namespace corvane
