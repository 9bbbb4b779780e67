#include "apps/ui/app_leftovers_model.h"

#include <algorithm>

#include <QLocale>

#include "apps/ui/app_row.h"
#include "core/checked_add.h"
#include "core/store/qt_words.h"

namespace corvane {

namespace {

using Match = Leftover::Match;

/// Adds a heading and the items of that kind in their order; nothing if there are none.
void addSection(std::vector<LeftoverRow> &rows, const InstalledApp &app, Match match, const QString &title,
                const QString &note, const std::optional<std::string> &home)
{
    std::int64_t size = 0;
    std::vector<LeftoverRow> items;
    for (const Leftover &leftover : app.leftovers) {
        if (leftover.match != match)
            continue;
        size = checkedAdd(size, leftover.size);
        items.push_back(LeftoverRow::ofItem(leftover, QLocale(), home));
        items.back().date.clear(); // here the owner matters, not the date
    }
    if (items.empty())
        return;
    rows.push_back(LeftoverRow::ofHeading(std::string(caseName(match)), title, note, size));
    rows.insert(rows.end(), items.begin(), items.end());
}

} // namespace

void AppLeftoversModel::show(const InstalledApp &app)
{
    m_chosen.clear();
    for (const Leftover &leftover : app.leftovers) {
        if (app.proposes(leftover))
            m_chosen.insert(leftover.path);
    }
    installRowsOf(app);
    emit replaced();
}

void AppLeftoversModel::update(const InstalledApp &app)
{
    std::set<std::string> chosen;
    for (const Leftover &leftover : app.leftovers) {
        const auto before = std::ranges::find(rows(), leftover.path, &LeftoverRow::id);
        const bool isDoubtfulNow =
            leftover.match == Match::name && before != rows().end() && before->leftover.match == Match::exact;
        if (m_chosen.contains(leftover.path) && !isDoubtfulNow)
            chosen.insert(leftover.path);
    }
    m_chosen = std::move(chosen);
    installRowsOf(app);
}

void AppLeftoversModel::clear()
{
    m_chosen.clear();
    install({});
    emit chosenChanged();
}

void AppLeftoversModel::installRowsOf(const InstalledApp &app)
{
    const QString certain = displayText(store().appsTable().dataTitle);
    const std::optional<std::string> home = homeOfPaths(store());
    std::vector<LeftoverRow> rows;
    addSection(rows, app, Match::exact, certain,
               QStringLiteral("Matched by the app's ID (%1), so these belong to it.").arg(bundleText(app.bundleID)),
               home);
    addSection(rows, app, Match::name, QStringLiteral("Possible matches"),
               QStringLiteral("Folders with the same name as the app. Probably its data, but check before removing."),
               home);
    if (rows.empty()) {
        rows.push_back(
            {.kind = LeftoverRow::Kind::heading, .id = std::string(caseName(Match::exact)), .title = certain});
        rows.push_back({.kind = LeftoverRow::Kind::none,
                        .id = std::string(caseName(Match::exact)),
                        .title = QStringLiteral("None found. This app keeps its data tidy.")});
    }
    install(std::move(rows));
    announceChecks();
    emit chosenChanged();
}

std::vector<Leftover> AppLeftoversModel::chosenLeftovers() const
{
    std::vector<Leftover> chosen;
    for (const LeftoverRow &row : rows()) {
        if (row.kind == LeftoverRow::Kind::item && m_chosen.contains(row.leftover.path))
            chosen.push_back(row.leftover);
    }
    return chosen;
}

CheckFacts AppLeftoversModel::checkFacts(const Leftover &leftover) const
{
    return {m_chosen.contains(leftover.path) ? Qt::Checked : Qt::Unchecked, true, {}};
}

void AppLeftoversModel::setChosen(const std::string &path, bool isChosen)
{
    if (isChosen)
        m_chosen.insert(path);
    else
        m_chosen.erase(path);
    announceChecks();
    emit chosenChanged();
}

void AppLeftoversModel::toggle(int row)
{
    if (const Leftover *const item = itemAt(row))
        setChosen(item->path, !m_chosen.contains(item->path));
}

void AppLeftoversModel::select(int row)
{
    if (const Leftover *const item = itemAt(row))
        setChosen(item->path, true);
}

void AppLeftoversModel::selectAll()
{
    for (const LeftoverRow &row : rows()) {
        if (row.kind == LeftoverRow::Kind::item)
            m_chosen.insert(row.leftover.path);
    }
    announceChecks();
    emit chosenChanged();
}

} // namespace corvane
