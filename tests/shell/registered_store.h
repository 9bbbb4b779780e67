#pragma once

#include <utility>

#include "core/store/store_over_a_home.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// A store over a fake home that QML sees as well.
struct RegisteredStore : StoreOverAHome {
    explicit RegisteredStore(SystemKind system = SystemKind::linuxSystem, StoreTiming timing = {})
        : StoreOverAHome(system, std::move(timing))
    {
        StoreRegistration::setStore(&store);
    }
};

} // namespace corvane
