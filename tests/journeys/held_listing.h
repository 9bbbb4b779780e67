#pragma once

#include <string>

namespace corvane {

/// Keeps whoever lists one folder waiting, as a disk that has fallen asleep does, until it is released or goes: a
/// scan of what lies around that folder is surely still running. One at a time; main thread.
class HeldListing {
public:
    /// The absolute path of an existing folder.
    explicit HeldListing(const std::string &folder);
    ~HeldListing();
    HeldListing(const HeldListing &) = delete;
    HeldListing &operator=(const HeldListing &) = delete;

    void release();
    /// Whether somebody waits for the listing.
    [[nodiscard]] bool isReached() const;
};

} // namespace corvane
