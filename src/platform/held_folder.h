#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "platform/file_system.h"

namespace corvane {

/// The folder that contains an item which is to be removed, held open from the judgement to the deed: wherever its
/// path leads by then, what is asked here is asked of this folder. Names are those of items directly inside it. Used
/// by one thread at a time.
class HeldFolder {
public:
    HeldFolder() = default;
    HeldFolder(const HeldFolder &) = delete;
    HeldFolder &operator=(const HeldFolder &) = delete;
    virtual ~HeldFolder() = default;

    /// The path by which it was opened: absolute, without a link on its way.
    [[nodiscard]] virtual const std::string &path() const = 0;

    [[nodiscard]] virtual FolderIdentity identity() const = 0;

    /// Links are not followed.
    [[nodiscard]] virtual Expected<ItemFacts> facts(const std::string &name) = 0;

    /// Deletes an item and everything beneath it for good, or fails with `replacedMeanwhile` where the name belongs
    /// to another item than `expected` by now. Links are deleted, never followed, and nothing that is mounted is
    /// entered. An item inside that cannot be deleted does not keep the others: the error has the path of the first.
    [[nodiscard]] virtual Expected<void> removeItem(const std::string &name, const ItemIdentity &expected) = 0;

    /// Moves an item to a name in another held folder of the same system; fails where that name is taken.
    [[nodiscard]] virtual Expected<void> moveItem(const std::string &name, HeldFolder &target,
                                                  const std::string &newName) = 0;

    /// The system's number of the open folder; -1 where it has none.
    [[nodiscard]] virtual int descriptor() const = 0;
};

/// The failure of an operation that met another item than the one that was judged.
[[nodiscard]] Error replacedMeanwhile(std::string_view operation, std::string_view path);

} // namespace corvane
