#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <QString>
#include <QStringList>

#include "apps/installed_app.h"
#include "core/words/text_search.h"

namespace corvane {

/// The sort orders of the applications.
enum class AppSort : std::uint8_t {
    name,
    lastUsed, ///< least recently opened first, after those never known to be opened
    size,     ///< largest first
};

/// The order's name in the sort control.
[[nodiscard]] QString label(AppSort sort);
/// All orders as in the control; without last use if the system does not record it.
[[nodiscard]] std::vector<AppSort> appSorts(bool tellsLastUse);

/// "app 740 MB + data 8.66 GB", or "app 740 MB" without data.
[[nodiscard]] QString sizesText(const InstalledApp &app);

/// A text from a bundle's metadata, limited to 255 bytes. A malicious one may have megabytes, which would take minutes
/// to lay out; no identifier that names a file is longer.
[[nodiscard]] QString bundleText(std::string_view text);

/// The `iconKey` of `BundleIcon`.
[[nodiscard]] QString appIconKey(const InstalledApp &app);

/// One row of the list: an application, or the entry for leftovers of deleted ones. Its texts are computed once.
struct AppRow {
    enum class Kind : std::uint8_t { orphans, app };

    /// The row's identity, independent of its figures; for an application the path of its bundle, bytes.
    using Key = std::tuple<Kind, std::string_view>;

    Kind kind = Kind::app;
    std::string path; ///< of the bundle, bytes; empty for the orphans
    QString name;
    QString badge = {};    ///< how it was installed; empty if there is only one way
    QString note;          ///< its sizes, or how long it has not been opened
    bool isUnused = false; ///< whether the note is the latter
    QString sizeText;
    QString iconKey; ///< for `BundleIcon`

    [[nodiscard]] Key key() const { return {kind, path}; }
    /// The row's description for screen readers.
    [[nodiscard]] QString description() const;

    friend bool operator==(const AppRow &, const AppRow &) = default;

    /// "Not opened in 9 months", "Not opened in over a year", "Not opened in 3+ years"; from 6 months on.
    [[nodiscard]] static QString unusedLabel(int months);
    /// The entry for leftovers of deleted applications; `total` in bytes.
    [[nodiscard]] static AppRow ofOrphans(std::span<const OrphanGroup> groups, std::int64_t total);
};

/// The rows of all applications, for repeated searching and sorting.
class AppRows {
public:
    AppRows() = default;
    AppRows(std::span<const InstalledApp> apps, Time now, const Calendar &calendar);

    /// The rows whose name or identifier contains the text, ignoring case; all rows if it is empty. Ties are sorted by
    /// size, then by name.
    [[nodiscard]] std::vector<AppRow> visible(const QString &search, AppSort sort) const;

private:
    struct App {
        AppRow row;
        std::string searchedName; ///< folded for the search
        std::string searchedID;
        std::int64_t size = 0;
        Time lastUsed = distantPast;
        std::size_t place = 0; ///< rank by name among all rows
    };

    void sortByName();

    Casing m_casing = userCasing();
    std::vector<App> m_apps;
};

} // namespace corvane
