#include "cli/remove_json.h"

#include "cli/json_writer.h"

namespace corvane {

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
    json.endObject();
    json.finish();
}

} // namespace corvane
