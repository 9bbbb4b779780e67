#pragma once

#include <string>

#include "core/store/storage_store.h"
#include "platform/fake_host.h"
#include "shell/window/gated_file_system.h"

namespace corvane {

/// A store over a home folder in memory, "/home/studio", on a volume of 994.66 GB.
struct FakeStore {
    FakeStore()
    {
        fake.files.setHome(home);
        fake.files.addFile(home + "/Movies/rushes.mov", 27'880'000'000);
        fake.files.addFile(home + "/Movies/one.mov", 5'000'000);
        fake.files.addFile(home + "/Movies/two.mov", 4'000'000);
        fake.files.addFile(home + "/notes.txt", 4'096);
    }
    ~FakeStore() { gate.setShut(false); }

    /// Bytes that the volume says are free from now on.
    void setAvailable(std::int64_t bytes)
    {
        fake.volumes.set(
            "/",
            {.name = "Macintosh HD", .total = 994'662'584'320, .available = bytes, .availableForImportantUse = {}});
    }

    /// Selects an item of the home folder.
    void select(const std::string &name, std::int64_t size) { store.setSelected(home + "/" + name, size, true); }

    const std::string home = "/home/studio";
    FakeHost fake;
    GatedFileSystem gate{fake.files};
    ProtectedLocations locations{home, ProtectedPlaces{}};
    StorageStore store{host(), locations};

private:
    Host host()
    {
        setAvailable(183'370'000'000);
        return {gate, fake.trash, fake.volumes, fake.desktop, fake.applications};
    }
};

} // namespace corvane
