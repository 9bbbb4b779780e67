#pragma once

#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/file_descriptor.h"
#include "platform/linux/open_trash.h"

namespace corvane {

/// Keeps GIO from writing over what lies in a Trash without a record. GIO takes the first name that no record
/// bears and moves the item there without looking: something that was put into the folder by hand, or whose record
/// was lost, would be gone for good. While this object lives, such names bear an empty record, so that GIO
/// passes them over; its destructor takes the records away again. One thread.
class NameReservation {
public:
    /// Reserves what GIO would come upon for an item called `name`. A Trash that is not there needs nothing.
    /// Fails where a record that is needed cannot be made.
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
