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

/// The orders of the list of applications.
enum class AppSort : std::uint8_t {
    name,
    lastUsed, ///< what has not been opened for longest first, and before it what was never opened as far as is known
    size,     ///< largest first
};

/// What the control that sets the order calls the case.
[[nodiscard]] QString rawValue(AppSort sort);
/// All of them, in the order of the control; without that by last use where nothing remembers it.
[[nodiscard]] std::vector<AppSort> appSorts(bool tellsLastUse);

/// "app 740 MB + data 8.66 GB"; without data "app 740 MB".
[[nodiscard]] QString sizesText(const InstalledApp &app);

/// A text that a bundle gives of itself, as far as anybody reads: at most 255 bytes of it. It may be of megabytes, on
/// whose lines a screen would work for minutes; no identifier that names a file is longer.
[[nodiscard]] QString bundleText(std::string_view text);

/// For `BundleIcon`.
[[nodiscard]] QString appIconKey(const InstalledApp &app);

/// One row of the list: an application, or the entry for what deleted ones have left. Its words and figures are made
/// once.
struct AppRow {
    enum class Kind : std::uint8_t { orphans, app };

    /// What it stands for, whatever its figures are by now. Of an application the path of its bundle, bytes.
    using Key = std::tuple<Kind, std::string_view>;

    Kind kind = Kind::app;
    std::string path; ///< of the bundle, bytes; empty for the orphans
    QString name;
    QString badge = {};    ///< how it came here; empty where there is only one way
    QString note;          ///< its sizes, or for how long it has not been opened
    bool isUnused = false; ///< what the note says
    QString sizeText;
    QString iconKey; ///< for `BundleIcon`

    [[nodiscard]] Key key() const { return {kind, path}; }
    /// What a reader says of it.
    [[nodiscard]] QString description() const;

    friend bool operator==(const AppRow &, const AppRow &) = default;

    /// "Not opened in 9 months", "Not opened in over a year", "Not opened in 3+ years"; from 6 months on.
    [[nodiscard]] static QString unusedLabel(int months);
    /// The entry for what deleted applications have left, which comes to that many bytes.
    [[nodiscard]] static AppRow ofOrphans(std::span<const OrphanGroup> groups, std::int64_t total);
};

/// The rows of all applications, to be searched and sorted as often as one likes.
class AppRows {
public:
    AppRows() = default;
    AppRows(std::span<const InstalledApp> apps, Time now, const Calendar &calendar);

    /// Those whose name or identifier contains the text, whatever the case; all of them for an empty one. Rows that the
    /// order does not tell apart stand by size, then by name.
    [[nodiscard]] std::vector<AppRow> visible(const QString &search, AppSort sort) const;

private:
    struct App {
        AppRow row;
        std::string searchedName; ///< made ready for a search
        std::string searchedID;
        std::int64_t size = 0;
        Time lastUsed = distantPast;
        std::size_t place = 0; ///< among all by name
    };

    void sortByName();

    Casing m_casing = userCasing();
    std::vector<App> m_apps;
};

} // namespace corvane
