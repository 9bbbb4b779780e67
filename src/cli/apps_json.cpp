#include "cli/apps_json.h"

#include <string_view>

#include "cli/json_writer.h"

namespace corvane {

namespace {

void writeLeftovers(std::string_view name, const std::vector<Leftover> &leftovers, JsonWriter &json)
{
    json.key(name);
    json.beginArray();
    for (const Leftover &leftover : leftovers) {
        json.beginObject();
        json.bytes("path", leftover.path);
        json.key("size");
        json.value(leftover.size);
        json.bytes("location", leftover.location);
        json.bytes("match", rawValue(leftover.match));
        json.key("modified");
        json.value(leftover.modified.value_or(distantPast));
        json.endObject();
    }
    json.endArray();
}

void writeApp(const InstalledApp &app, Time now, const Calendar &calendar, JsonWriter &json)
{
    json.beginObject();
    json.bytes("name", app.name);
    json.bytes("bundleID", app.bundleID);
    json.bytes("version", app.version);
    json.key("isAppStore");
    json.value(app.isAppStore);
    json.key("appSize");
    json.value(app.appSize);
    json.key("lastUsed");
    json.value(app.lastUsed.value_or(distantPast));
    json.key("unusedForMonths");
    if (const std::optional<int> months = app.unusedForMonths(now, calendar))
        json.value(std::int64_t{*months});
    else
        json.null();
    json.bytes("path", app.path);
    if (app.source != InstalledApp::Source::none)
        json.bytes("source", rawValue(app.source));
    if (!app.removeCommand.empty())
        json.bytes("removeCommand", app.removeCommand);
    writeLeftovers("leftovers", app.leftovers, json);
    json.endObject();
}

} // namespace

void writeAppsJson(const AppInventory::Result &inventory, Time now, const Calendar &calendar, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.key("apps");
    json.beginArray();
    for (const InstalledApp &app : inventory.apps)
        writeApp(app, now, calendar, json);
    json.endArray();
    json.key("orphanGroups");
    json.beginArray();
    for (const OrphanGroup &group : inventory.orphanGroups) {
        json.beginObject();
        json.bytes("id", group.id);
        writeLeftovers("items", group.items, json);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    json.finish();
}

} // namespace corvane
