#pragma once

#include <QPointer>

#include "core/store/storage_store.h"

namespace corvane {

/// Lets `follower` follow another store, or none: it hears nothing of the former one any more. False, and
/// nothing happens, where that is the store that it follows already.
[[nodiscard]] inline bool followStore(QPointer<StorageStore> &followed, StorageStore *store, const QObject *follower)
{
    if (followed == store)
        return false;
    if (followed)
        followed->disconnect(follower);
    followed = store;
    return true;
}

} // namespace corvane
