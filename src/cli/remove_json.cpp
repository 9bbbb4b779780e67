#include "cli/remove_json.h"

#include "cli/json_writer.h"

namespace corvane {

namespace {

void writeFailedItems(const std::vector<RemovalFailure> &failures, JsonWriter &json)
{
    json.key("failedItems");
    json.beginArray();
    for (const RemovalFailure &failure : failures) {
        json.beginObject();
        json.bytes("path", failure.path);
        json.key("line");
        json.text(failure.line);
        if (failure.left == RemovalFailure::Left::aPart) {
            json.key("freed");
            json.value(failure.freed);
        }
        json.endObject();
    }
    json.endArray();
}

} // namespace

void writeRemovalJson(const RemovalOutcome &outcome, std::string_view message, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.key("message");
    json.text(message);
    json.key("removed");
    json.beginArray();
    for (const SelectedEntry &entry : outcome.removed) {
        json.beginObject();
        json.bytes("path", entry.path);
        json.key("size");
        json.value(entry.size);
        json.endObject();
    }
    json.endArray();
    json.key("failures");
    json.beginArray();
    for (const RemovalFailure &failure : outcome.failures)
        json.text(failure.line);
    json.endArray();
    if (!outcome.failures.empty())
        writeFailedItems(outcome.failures, json);
    if (outcome.isStopped) {
        json.key("cancelled");
        json.value(true);
    }
    json.endObject();
    json.finish();
}

} // namespace corvane
