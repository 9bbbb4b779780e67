#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "shell/registered_store.h"
#include "shell/without_motion.h"
#include "support/patience.h"

namespace corvane::test {

/// A store for tests of the duplicates' UI. Tests add files and then run a scan and a search.
class DuplicatesFixture : public testing::Test, protected RegisteredStore, WithoutMotion {
protected:
    /// Adds a file with this content, last modified `day` days after the start of 2024; negative for an unknown date.
    void add(const std::string &relative, const std::string &content, std::int64_t size, int day)
    {
        const Time start = Time(std::chrono::seconds(1'704'110'400)); // noon
        fake.files.addText(at(relative), content, size, day < 0 ? distantPast : start + std::chrono::days(day));
    }
    /// Adds three copies of a film of 3 MB, the newest in Films, and two of a song of 2 MB.
    void addFilmAndSong()
    {
        add("Films/film.mov", "film", 3'000'000, 30);
        add("Films/film copy.mov", "film", 3'000'000, 20);
        add("Archive/film.mov", "film", 3'000'000, 10);
        add("Songs/song.wav", "song", 2'000'000, 20);
        add("Archive/song.wav", "song", 2'000'000, 10);
    }
    void addPairs(int count)
    {
        for (int i = 0; i < count; ++i) {
            const std::string name = "pair" + std::to_string(i);
            add("A/" + name, name, 2'000'000 + (count - i) * 4'096, 20);
            add("B/" + name, name, 2'000'000 + (count - i) * 4'096, 10);
        }
    }
    void search()
    {
        store.findDuplicates();
        waitForSearch();
    }
    void waitForSearch()
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return store.duplicatePhase() != StorageStore::Phase::scanning; }, patience));
    }
    void scanAndSearch()
    {
        scanHome();
        search();
    }
};

} // namespace corvane::test
