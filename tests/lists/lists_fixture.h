#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <QTest>

#include "core/store/storage_store.h"
#include "lists/ui/file_table_model.h"
#include "platform/fake_host.h"
#include "shell/ui/theme.h"

namespace corvane::test {

/// A store over a home folder in memory, "/home/studio", on 22 November 2026. The tests describe what the home holds
/// and then scan it.
class ListsFixture : public testing::Test {
protected:
    static constexpr std::int64_t megabyte = 1'000'000;

    ListsFixture()
    {
        fake.files.setHome(home);
        fake.files.setPackageExtensions({"photoslibrary"});
        Theme::instance()->setReducedMotion(true);
    }
    ~ListsFixture() override { Theme::instance()->setReducedMotion(false); }

    [[nodiscard]] static Time date(int year, unsigned month, unsigned day)
    {
        return std::chrono::sys_days(std::chrono::year(year) / month / day) + std::chrono::hours(12);
    }
    void addFile(const std::string &relative, std::int64_t size, Time modified = distantPast)
    {
        fake.files.addFile(at(relative), size, modified);
    }
    /// Films, archives and a library, each with a date; the largest is new.
    void addMany()
    {
        addFile("Movies/new.mov", 900 * megabyte, date(2026, 11, 1));
        addFile("Movies/Interview.mov", 800 * megabyte, date(2024, 3, 16));
        addFile("Downloads/rushes.zip", 700 * megabyte, date(2024, 10, 11));
        addFile("Downloads/Old.zip", 600 * megabyte, date(2020, 8, 14));
        addFile("Documents/undated.pdf", 500 * megabyte);
        addFile("Documents/little.pdf", 20 * megabyte, date(2021, 1, 1));
    }
    void scanHome()
    {
        store.scanHome();
        ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, 20'000));
    }
    /// As though the item had been moved to the Trash.
    void removeItem(const std::string &relative, std::int64_t size)
    {
        store.didRemove({.removed = {{at(relative), size}}, .failures = {}}, false);
    }
    [[nodiscard]] std::string at(const std::string &relative) const { return home + "/" + relative; }

    [[nodiscard]] static QVariant data(const FileTableModel &model, int row, int role)
    {
        return model.data(model.index(row), role);
    }
    [[nodiscard]] static QStringList names(const FileTableModel &model)
    {
        QStringList names;
        for (int row = 0; row < model.rowCount(); ++row)
            names << data(model, row, FileTableModel::NameRole).toString();
        return names;
    }
    [[nodiscard]] static QStringList highlighted(const FileTableModel &model)
    {
        QStringList names;
        for (int row = 0; row < model.rowCount(); ++row) {
            if (data(model, row, FileTableModel::HighlightedRole).toBool())
                names << data(model, row, FileTableModel::NameRole).toString();
        }
        return names;
    }

    const std::string home = "/home/studio";
    FakeHost fake;
    Host host = fake.host();
    ProtectedLocations locations{home, ProtectedPlaces{}};
    Time now = date(2026, 11, 22);
    StorageStore store{host, locations, {.now = [this] { return now; }}};
};

} // namespace corvane::test
