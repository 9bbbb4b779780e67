#pragma once

#include <chrono>

namespace corvane {

// The fake disk of the screenshots and the demo. In a program that links or preloads this, every volume has the
// capacity and free space of the disk that the shaped root describes, regardless of the machine's own, and every file
// of more than one block is scaled up by the factor by which the root is smaller than that disk. So screenshots are the
// same on every machine, and show the figures of a disk in use.

/// The artificial delay of every folder listing. A shaped root is read instantly; a screenshot of a running scan needs
/// a slow disk. Any thread.
void slowDownListings(std::chrono::milliseconds delay);

/// The artificial delay of every read of a file. Any thread.
void slowDownReads(std::chrono::milliseconds delay);

} // namespace corvane
