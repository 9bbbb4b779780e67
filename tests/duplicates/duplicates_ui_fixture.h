#pragma once

#include <chrono>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <QTest>

#include "core/store/storage_store.h"
#include "core/store/store_fixture.h"
#include "platform/fake_host.h"
#include "shell/ui/theme.h"

namespace corvane::test {

/// A store over a home folder in memory, "/home/studio", for tests of what shows duplicates. The tests add files and
/// then have them scanned and searched.
class DuplicatesFixture : public testing::Test {
protected:
    DuplicatesFixture()
    {
        fake.files.setHome(home);
        Theme::instance()->setReducedMotion(true);
    }
    ~DuplicatesFixture() override { Theme::instance()->setReducedMotion(false); }

    /// A file with that content, last changed so many days after the start of 2024; below 0 for an unknown date.
    void add(const std::string &relative, const std::string &content, std::int64_t size, int day)
    {
        const Time start = Time(std::chrono::seconds(1'704'110'400)); // noon
        fake.files.addText(at(relative), content, size, day < 0 ? distantPast : start + std::chrono::days(day));
    }
    /// Three copies of a film of 3 MB, the newest in Films, and two of a song of 2 MB.
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
    void scanHome()
    {
        store.scanHome();
        ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, patience));
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
    /// As though the item had been moved to the Trash.
    void removeItem(const std::string &relative, std::int64_t size)
    {
        fake.files.take(at(relative));
        store.didRemove({.removed = {{at(relative), size}}, .failures = {}}, false);
    }

    [[nodiscard]] bool isSelected(const std::string &relative) const { return store.isSelected(at(relative)); }
    [[nodiscard]] std::string at(const std::string &relative) const { return home + "/" + relative; }

    const std::string home = "/home/studio";
    FakeHost fake;
    Host host = fake.host();
    ProtectedLocations locations{home, ProtectedPlaces{}};
    StorageStore store{host, locations};
};

} // namespace corvane::test
