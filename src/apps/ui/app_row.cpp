#include "apps/ui/app_row.h"

#include <algorithm>

#include <QCollator>

#include "core/store/qt_words.h"
#include "core/words/shared_texts.h"
#include "platform/text.h"
#include "shell/ui/bundle_icons.h"

namespace corvane {

namespace {

constexpr int monthsOfYear = 12;
constexpr std::size_t longestBundleText = 255; // bytes, the maximum of a file name

AppRow makeRow(const InstalledApp &app, Time now, const Calendar &calendar)
{
    const std::optional<int> months = app.unusedForMonths(now, calendar);
    return {.kind = AppRow::Kind::app,
            .path = app.path,
            .name = displayText(app.name),
            .badge = displayText(caseName(app.source)),
            .note = months ? AppRow::unusedLabel(*months) : sizesText(app),
            .isUnused = months.has_value(),
            .sizeText = sizeText(app.totalSize()),
            .iconKey = appIconKey(app)};
}

} // namespace

QString label(AppSort sort)
{
    switch (sort) {
    case AppSort::name:
        return QStringLiteral("Name");
    case AppSort::lastUsed:
        return QStringLiteral("Last Use");
    case AppSort::size:
        return QStringLiteral("Size");
    }
    return {};
}

std::vector<AppSort> appSorts(bool tellsLastUse)
{
    if (tellsLastUse)
        return {AppSort::name, AppSort::lastUsed, AppSort::size};
    return {AppSort::name, AppSort::size};
}

QString appIconKey(const InstalledApp &app)
{
    return bundleIconKey(app.icon.empty() ? app.path : app.icon);
}

QString sizesText(const InstalledApp &app)
{
    const QString own = QStringLiteral("app ") + sizeText(app.appSize);
    return app.leftovers.empty() ? own : own + QStringLiteral(" + data ") + sizeText(app.dataSize());
}

QString bundleText(std::string_view text)
{
    if (text.size() <= longestBundleText)
        return displayText(text);
    return displayText(startOf(text, longestBundleText)) + QStringLiteral("…");
}

// --- One row

QString AppRow::description() const
{
    QStringList parts{name};
    for (const QString &part : {badge, note, sizeText}) {
        if (!part.isEmpty())
            parts << part;
    }
    return parts.join(QStringLiteral(", "));
}

QString AppRow::unusedLabel(int months)
{
    if (months < monthsOfYear)
        return QStringLiteral("Not opened in %1 months").arg(months);
    if (months < 2 * monthsOfYear)
        return QStringLiteral("Not opened in over a year");
    return QStringLiteral("Not opened in %1+ years").arg(months / monthsOfYear);
}

AppRow AppRow::ofOrphans(std::span<const OrphanGroup> groups, std::int64_t total)
{
    std::size_t count = 0;
    for (const OrphanGroup &group : groups)
        count += group.items.size();
    return {.kind = Kind::orphans,
            .path = {},
            .name = displayText(orphansTitle),
            .note = count == 0 ? QStringLiteral("Nothing left behind")
                               : countText(static_cast<std::int64_t>(count), "item", "items"),
            .isUnused = false,
            .sizeText = count == 0 ? QString() : ::corvane::sizeText(total),
            .iconKey = {}};
}

// --- All of them

AppRows::AppRows(std::span<const InstalledApp> apps, Time now, const Calendar &calendar)
{
    m_apps.reserve(apps.size());
    for (const InstalledApp &app : apps)
        m_apps.push_back({.row = makeRow(app, now, calendar),
                          .searchedName = searchable(app.name, m_casing),
                          .searchedID = searchable(app.bundleID, m_casing),
                          .size = app.totalSize(),
                          .lastUsed = app.lastUsed.value_or(distantPast)});
    sortByName();
}

// Locale-aware comparison is slow, so it is done only once.
void AppRows::sortByName()
{
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    std::ranges::sort(m_apps, [&](const App &a, const App &b) {
        const int order = collator.compare(a.row.name, b.row.name);
        return order != 0 ? order < 0 : a.row.path < b.row.path;
    });
    for (std::size_t i = 0; i < m_apps.size(); ++i)
        m_apps[i].place = i;
}

std::vector<AppRow> AppRows::visible(const QString &search, AppSort sort) const
{
    const std::string text = searchable(search.toStdString(), m_casing);
    std::vector<const App *> found;
    for (const App &app : m_apps) {
        if (holds(app.searchedName, text) || holds(app.searchedID, text))
            found.push_back(&app);
    }
    std::ranges::sort(found, [sort](const App *a, const App *b) {
        if (sort == AppSort::lastUsed && a->lastUsed != b->lastUsed)
            return a->lastUsed < b->lastUsed;
        if (sort != AppSort::name && a->size != b->size)
            return a->size > b->size;
        return a->place < b->place;
    });
    std::vector<AppRow> rows;
    rows.reserve(found.size());
    for (const App *app : found)
        rows.push_back(app->row);
    return rows;
}

} // namespace corvane
