#pragma once

#include <chrono>

namespace corvane {

// The disk that the pictures and the demonstration show. In a program that links or preloads this, every volume has the
// capacity and the free space of the disk that the shaped root describes, whatever the machine's own, and every file of
// more than one block is as many times larger as the root is smaller than that disk. So two machines take the same
// pictures, and their figures are those of a disk in use.

/// How long every listing of a folder takes longer than it does. A shaped root is read in an instant; a
/// picture of a scan under way needs a disk that takes its time. Any thread.
void slowDownListings(std::chrono::milliseconds delay);

/// How long every reading of a piece of a file takes longer than it does. Any thread.
void slowDownReads(std::chrono::milliseconds delay);

} // namespace corvane
