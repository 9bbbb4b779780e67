#pragma once

#include "shell/registered_store.h"

namespace corvane {

/// A store over a home folder with some films and notes.
struct StoreWithFilms : RegisteredStore {
    StoreWithFilms()
    {
        addFile("Movies/rushes.mov", 27'880'000'000);
        addFile("Movies/one.mov", 5'000'000);
        addFile("Movies/two.mov", 4'000'000);
        addFile("notes.txt", 4'096);
    }
};

} // namespace corvane
