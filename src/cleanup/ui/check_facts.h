#pragma once

#include <string>

#include <QString>

#include "cleanup/cleanup_catalog.h"

namespace corvane {

class StorageStore;

/// What a check box shows of the selection, and why it cannot be used where that is so.
struct CheckFacts {
    Qt::CheckState state = Qt::Unchecked;
    bool isCheckable = false;
    QString reason;

    friend bool operator==(const CheckFacts &, const CheckFacts &) = default;
};

/// Of one file or folder. Mixed when only something inside it is selected.
[[nodiscard]] CheckFacts checkFactsOf(const StorageStore &store, const std::string &path);

/// Of a location: on when every entry is selected that may be, mixed when some of that is. It stands for its
/// entries, so without any there is nothing to check.
[[nodiscard]] CheckFacts checkFactsOf(const StorageStore &store, const CleanupItem &item);

/// Selects every entry of the location that may be selected.
void selectEntries(StorageStore &store, const CleanupItem &item);
/// The same; takes them all out where nothing is left to select.
void toggleEntries(StorageStore &store, const CleanupItem &item);

} // namespace corvane
