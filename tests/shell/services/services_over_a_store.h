#pragma once

#include "shell/fake_services.h"
#include "shell/store_with_films.h"
#include "support/loopback_server.h"

namespace corvane {

struct RunningServer {
    LoopbackServer server;
};

/// The program's services over a store with films and a web service on the loopback interface.
struct ServicesOverAStore : StoreWithFilms, RunningServer, FakeServices {
    explicit ServicesOverAStore(bool canUpdate = true)
        : FakeServices({.site = server.url(), .reportFolders = {home + "/reports"}, .canUpdate = canUpdate}, fake.files)
    {
    }

    /// Makes the file system a Mac's on which full disk access has not been granted.
    void becomeMac()
    {
        fake.files.setSystemKind(SystemKind::mac);
        store.refreshAccess();
    }
    void grantAccess() { fake.files.addText(PathGuard::accessProbePath(home), {}); }
};

} // namespace corvane
