#pragma once

#include <string>

namespace corvane {

/// Blocks the listing of one folder, like a sleeping disk, until it is released or this object is destroyed, which
/// guarantees that a scan around that folder is still running. One at a time; main thread.
class HeldListing {
public:
    /// The absolute path of an existing folder.
    explicit HeldListing(const std::string &folder);
    ~HeldListing();
    HeldListing(const HeldListing &) = delete;
    HeldListing &operator=(const HeldListing &) = delete;

    void release();
    /// Whether a thread is waiting for the listing.
    [[nodiscard]] bool isReached() const;
};

} // namespace corvane
