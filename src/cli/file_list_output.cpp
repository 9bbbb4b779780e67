#include "cli/file_list_output.h"

#include <algorithm>

#include <fmt/format.h>

#include "cli/json_writer.h"
#include "cli/terminal_text.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

constexpr std::size_t sizeColumns = 10;
constexpr std::size_t dateColumns = 10;
constexpr std::size_t leastPathColumns = 8;

} // namespace

void writeFileListJson(const FoundFiles &found, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.key("title");
    json.text(found.title);
    json.key("subtitle");
    json.text(found.subtitle);
    json.key("files");
    json.beginArray();
    for (const std::shared_ptr<FileNode> &file : found.files) {
        if (json.isClosed())
            break;
        json.beginObject();
        json.bytes("path", file->path());
        json.key("size");
        json.value(file->size);
        json.key("kindLabel");
        json.text(file->kindLabel());
        json.key("modified");
        json.value(file->modified);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    json.finish();
}

void writeFileListTable(const FoundFiles &found, std::string_view home, Console &console)
{
    if (found.files.empty()) {
        console.out.write(fmt::format("{}\n", found.none));
        return;
    }
    console.out.write(console.strong(found.title));
    console.out.write(fmt::format(" · {}\n\n", found.subtitle));
    const std::size_t columns = console.outColumns();
    const std::size_t taken = sizeColumns + 2 + dateColumns + 2;
    for (const std::shared_ptr<FileNode> &file : found.files) {
        if (console.out.isClosed())
            break;
        const std::string path = elidedAtFront(formatPath(file->path(), home),
                                               std::max(columns - std::min(columns, taken), leastPathColumns));
        console.out.write(fmt::format("{}  {}  {}\n", rightAligned(formatByteCount(file->size), sizeColumns),
                                      leftAligned(dateText(file->modified), dateColumns), path));
    }
}

} // namespace corvane
