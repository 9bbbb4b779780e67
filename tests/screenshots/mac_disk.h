#pragma once

#include <chrono>

namespace corvane {

// The disk that the pictures and the demonstration show. In a program that links or preloads this, every volume has a
// Mac's capacity and free space, whatever the machine's own, and every file of more than one block is as many times
// larger as the Mac-shaped root is smaller than the Mac that it describes. So two machines take the same pictures, and
// their figures are a Mac's.

/// How long every listing of a folder takes longer than it does. The Mac-shaped root is read in an instant; a
/// picture of a scan under way needs a disk that takes its time. Any thread.
void slowDownListings(std::chrono::milliseconds delay);

/// How long every reading of a piece of a file takes longer than it does. Any thread.
void slowDownReads(std::chrono::milliseconds delay);

} // namespace corvane
