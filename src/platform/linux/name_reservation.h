#pragma once

#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/file_descriptor.h"
#include "platform/linux/open_trash.h"

namespace corvane {

/// Prevents GIO from overwriting items in a Trash that have no record. GIO takes the first name without a record and
/// moves the item there without checking: an item put there by hand, or one whose record was lost, would be destroyed.
/// While this object exists, such names have an empty record, so that GIO skips them; its destructor removes the
/// records. Not thread-safe.
class NameReservation {
public:
    /// Reserves the names that GIO might try for an item called `name`. A missing Trash needs no reservation. Fails if
    /// a required record cannot be created.
    [[nodiscard]] static Expected<NameReservation> make(const TrashPlace &trash, const std::string &name);

    NameReservation() = default;
    NameReservation(NameReservation &&) = default;
    NameReservation &operator=(NameReservation &&) = delete;
    NameReservation(const NameReservation &) = delete;
    NameReservation &operator=(const NameReservation &) = delete;
    ~NameReservation();

private:
    FileDescriptor m_records;
    std::vector<std::string> m_made; // names of records in that folder
};

} // namespace corvane
