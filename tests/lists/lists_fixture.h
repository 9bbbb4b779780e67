#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "lists/ui/file_table_model.h"
#include "shell/registered_store.h"
#include "shell/without_motion.h"

namespace corvane::test {

struct SetClock {
    /// Noon on this date.
    [[nodiscard]] static Time date(int year, unsigned month, unsigned day)
    {
        return std::chrono::sys_days(std::chrono::year(year) / month / day) + std::chrono::hours(12);
    }

    Time now = date(2026, 11, 22);
};

/// A store for tests of lists of files, on 22 November 2026.
class ListsFixture : public testing::Test, protected SetClock, protected RegisteredStore, WithoutMotion {
protected:
    static constexpr std::int64_t megabyte = 1'000'000;

    ListsFixture() : RegisteredStore(SystemKind::linuxSystem, {.now = [this] { return now; }})
    {
        fake.files.setPackageExtensions({"photoslibrary"});
    }

    /// Adds films, archives and a library, each with a date; the largest is new.
    void addMany()
    {
        addFile("Movies/new.mov", 900 * megabyte, date(2026, 11, 1));
        addFile("Movies/Interview.mov", 800 * megabyte, date(2024, 3, 16));
        addFile("Downloads/rushes.zip", 700 * megabyte, date(2024, 10, 11));
        addFile("Downloads/Old.zip", 600 * megabyte, date(2020, 8, 14));
        addFile("Documents/undated.pdf", 500 * megabyte);
        addFile("Documents/little.pdf", 20 * megabyte, date(2021, 1, 1));
    }

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
};

} // namespace corvane::test
