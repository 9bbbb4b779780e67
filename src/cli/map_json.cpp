#include "cli/map_json.h"

#include "cli/json_writer.h"

namespace corvane {

namespace {

void writeTile(const TreemapTile &tile, JsonWriter &json)
{
    json.beginObject();
    json.key("label");
    json.text(tile.label);
    json.hexUnlessText("nameHex", tile.label);
    if (tile.node) {
        json.bytes("path", tile.node->path());
    } else {
        json.key("path");
        json.null();
    }
    json.key("size");
    json.value(tile.size);
    json.key("x");
    json.value(tile.rect.x);
    json.key("y");
    json.value(tile.rect.y);
    json.key("width");
    json.value(tile.rect.width);
    json.key("height");
    json.value(tile.rect.height);
    json.key("color");
    json.value(tile.color);
    json.key("depth");
    json.value(std::int64_t{tile.depth});
    json.key("hasNested");
    json.value(tile.hasNested);
    json.endObject();
}

} // namespace

void writeMapJson(const FolderScan &scan, const std::vector<TreemapTile> &tiles, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.key("denied");
    json.value(scan.denied);
    json.key("cancelled");
    json.value(scan.isCancelled);
    json.key("tiles");
    json.beginArray();
    for (const TreemapTile &tile : tiles)
        writeTile(tile, json);
    json.endArray();
    json.endObject();
    json.finish();
}

} // namespace corvane
