#include "cli/duplicates_json.h"

#include "cli/json_writer.h"

namespace corvane {

namespace {

void writeGroup(const DuplicateGroup &group, JsonWriter &json)
{
    json.beginObject();
    json.key("size");
    json.value(group.size);
    json.key("waste");
    json.value(group.reclaimable());
    json.key("files");
    json.beginArray();
    const std::vector<std::optional<std::size_t>> shared = group.sharedStorage();
    for (std::size_t i = 0; i < group.files.size(); ++i) {
        json.beginObject();
        json.bytes("path", group.files[i]->path());
        json.key("modified");
        json.value(group.files[i]->modified);
        if (const auto other = shared[i])
            json.bytes("sharesStorageWith", group.files[*other]->path());
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

} // namespace

void writeDuplicatesJson(const DuplicatesFound &found, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.key("groups");
    json.beginArray();
    for (const DuplicateGroup &group : found.groups)
        writeGroup(group, json);
    json.endArray();
    json.key("waste");
    json.value(totalReclaimable(found.groups));
    json.key("cancelled");
    json.value(found.isStopped);
    json.endObject();
    json.finish();
}

} // namespace corvane
