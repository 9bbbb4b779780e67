#include "cli/breakdown_json.h"

#include <string_view>

#include "cli/json_writer.h"
#include "platform/time.h"

namespace corvane {

namespace {

std::string_view kindName(BreakdownSegment::Kind kind)
{
    switch (kind) {
    case BreakdownSegment::Kind::system:
        return "system";
    case BreakdownSegment::Kind::support:
        return "support";
    case BreakdownSegment::Kind::vm:
        return "vm";
    case BreakdownSegment::Kind::scanned:
        return "scanned";
    case BreakdownSegment::Kind::measured:
        return "measured";
    case BreakdownSegment::Kind::purgeable:
        return "purgeable";
    case BreakdownSegment::Kind::hidden:
        return "hidden";
    case BreakdownSegment::Kind::otherVolume:
        return "otherVolume";
    }
    return {};
}

std::string_view actionName(BreakdownAction::Kind kind)
{
    switch (kind) {
    case BreakdownAction::Kind::reveal:
        return "reveal";
    case BreakdownAction::Kind::openMap:
        return "openMap";
    case BreakdownAction::Kind::scanHome:
        return "scanHome";
    case BreakdownAction::Kind::fullDiskAccess:
        return "fullDiskAccess";
    }
    return {};
}

void writeText(std::string_view name, std::string_view text, JsonWriter &json)
{
    json.key(name);
    json.text(text);
}

void writeNumber(std::string_view name, std::int64_t number, JsonWriter &json)
{
    json.key(name);
    json.value(number);
}

void writeSegment(const BreakdownSegment &segment, JsonWriter &json)
{
    json.beginObject();
    json.bytes("id", segment.id);
    writeText("kind", kindName(segment.kind), json);
    json.bytes("title", segment.title);
    writeText("detail", segment.detail, json);
    writeText("symbol", segment.symbol, json);
    json.key("color");
    json.value(segment.color);
    writeNumber("size", segment.size, json);
    json.key("children");
    json.beginArray();
    for (const NamedSize &child : segment.children) {
        json.beginObject();
        json.bytes("name", child.name);
        writeNumber("size", child.size, json);
        json.endObject();
    }
    json.endArray();
    json.key("action");
    if (segment.action) {
        json.beginObject();
        writeText("kind", actionName(segment.action->kind), json);
        if (segment.action->kind == BreakdownAction::Kind::reveal)
            json.bytes("path", segment.action->path);
        json.endObject();
    } else {
        json.null();
    }
    json.key("actionTitle");
    if (segment.actionTitle)
        json.text(*segment.actionTitle);
    else
        json.null();
    json.endObject();
}

void writeSnapshots(const std::vector<LocalSnapshot> &snapshots, JsonWriter &json)
{
    json.beginArray();
    for (const LocalSnapshot &snapshot : snapshots) {
        json.beginObject();
        writeText("name", snapshot.name, json);
        json.key("date");
        json.value(snapshot.date.value_or(distantPast));
        if (!snapshot.deleteCommand.empty()) {
            json.key("size");
            if (snapshot.size)
                json.value(*snapshot.size);
            else
                json.null();
            writeText("command", snapshot.deleteCommand, json);
        }
        json.endObject();
    }
    json.endArray();
}

} // namespace

void writeBreakdownJson(const DiskBreakdown &breakdown, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.bytes("volumeName", breakdown.volumeName);
    writeNumber("total", breakdown.total, json);
    writeNumber("free", breakdown.free, json);
    writeNumber("purgeable", breakdown.purgeable, json);
    json.key("segments");
    json.beginArray();
    for (const BreakdownSegment &segment : breakdown.segments)
        writeSegment(segment, json);
    json.endArray();
    json.key("snapshots");
    writeSnapshots(breakdown.snapshots, json);
    json.key("hasScan");
    json.value(breakdown.hasScan);
    json.key("fromAPFS");
    json.value(breakdown.fromAPFS);
    writeNumber("overcount", breakdown.overcount, json);
    writeNumber("hidden", breakdown.hidden(), json);
    json.key("cancelled");
    json.value(breakdown.scanIsPartial);
    json.endObject();
    json.finish();
}

void writeSnapshotsJson(const std::vector<LocalSnapshot> &snapshots, Output &out)
{
    JsonWriter json(out);
    writeSnapshots(snapshots, json);
    json.finish();
}

} // namespace corvane
