#pragma once

#include "shell/store_over_a_home.h"

namespace corvane {

/// A store over a home folder with some films and notes.
struct FakeStore : StoreOverAHome {
    FakeStore()
    {
        addFile("Movies/rushes.mov", 27'880'000'000);
        addFile("Movies/one.mov", 5'000'000);
        addFile("Movies/two.mov", 4'000'000);
        addFile("notes.txt", 4'096);
    }
};

} // namespace corvane
