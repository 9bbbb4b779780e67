#pragma once

#include <QString>

namespace corvane {

class StorageStore;

// Texts about the last scan that several screens share.

/// "studio", or the volume's name for the whole disk.
[[nodiscard]] QString scannedName(const StorageStore &store);

/// "Scanning studio"
[[nodiscard]] QString scanningText(const StorageStore &store);

/// The note that the scan was stopped; empty if it was not.
[[nodiscard]] QString partialScanNote(const StorageStore &store);

} // namespace corvane
