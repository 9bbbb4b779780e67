#include "cli/cleanup_json.h"

#include <string_view>

#include "cli/json_writer.h"

namespace corvane {

namespace {

void writeText(std::string_view name, std::string_view text, JsonWriter &json)
{
    json.key(name);
    json.text(text);
}

void writeItem(const CleanupItem &item, JsonWriter &json)
{
    json.beginObject();
    writeText("id", item.def->id, json);
    writeText("title", item.def->title, json);
    writeText("detail", item.def->detail, json);
    writeText("risk", rawValue(item.def->risk), json);
    writeText("group", rawValue(item.def->group), json);
    writeText("relativePath", item.def->relativePath, json);
    if (item.path.empty()) {
        json.key("path");
        json.null();
    } else {
        json.bytes("path", item.path);
    }
    json.key("accessible");
    json.value(item.accessible);
    json.key("total");
    json.value(item.total());
    json.key("entries");
    json.beginArray();
    for (const CleanupEntry &entry : item.entries) {
        json.beginObject();
        json.bytes("path", entry.path);
        json.key("size");
        json.value(entry.size);
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

} // namespace

void writeCleanupJson(const std::vector<CleanupItem> &items, Output &out)
{
    JsonWriter json(out);
    json.beginArray();
    for (const CleanupItem &item : items)
        writeItem(item, json);
    json.endArray();
    json.finish();
}

} // namespace corvane
