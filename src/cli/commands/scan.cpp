#include "cli/commands/commands.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "cli/argument_values.h"
#include "cli/folder_heading.h"
#include "cli/folder_scan.h"
#include "cli/item_order.h"
#include "cli/json_writer.h"
#include "cli/scan_options.h"
#include "cli/scan_report.h"
#include "cli/table.h"
#include "cli/terminal_text.h"
#include "core/checked_add.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "map/treemap_builder.h"

namespace corvane {

namespace {

/// How much of a scan to show, and in which order.
struct View {
    std::optional<std::size_t> depth; ///< levels of the tree; if absent, only the folder's own items
    std::optional<std::size_t> most;  ///< limit for the items of one folder, and for each list
    ItemOrder order = ItemOrder::size;
    bool countsFiles = false;
};

std::string_view kindName(FileNode::Kind kind)
{
    switch (kind) {
    case FileNode::Kind::file:
        return "file";
    case FileNode::Kind::directory:
        return "directory";
    case FileNode::Kind::package:
        return "package";
    }
    return {};
}

FileType typeOf(const FileNode &node)
{
    return FileType::from(node.extension(), node.kind == FileNode::Kind::package);
}

/// Writes a node up to and including the bracket that opens its children.
void openNode(const FileNode &node, JsonWriter &json)
{
    json.beginObject();
    json.bytes("name", node.name);
    json.bytes("path", node.path());
    json.text("kind", kindName(node.kind));
    json.value("size", node.size);
    json.value("fileCount", node.fileCount);
    json.value("smallFilesSize", node.smallFilesSize);
    json.value("smallFilesCount", node.smallFilesCount);
    json.value("modified", node.modified);
    json.value("unreadable", node.unreadable);
    json.key("children");
    json.beginArray();
}

void closeNode(JsonWriter &json)
{
    json.endArray();
    json.endObject();
}

void writeTree(const FileNode &root, const View &view, JsonWriter &json)
{
    struct Place {
        const FileNode *folder;
        std::size_t nextChild;
    };
    openNode(root, json);
    std::vector<Place> way{{&root, 0}};
    while (!way.empty() && !json.isClosed()) {
        Place &place = way.back();
        const std::size_t most = view.depth && way.size() > *view.depth ? 0 : view.most.value_or(std::string::npos);
        if (place.nextChild == std::min(place.folder->children.size(), most)) {
            closeNode(json);
            way.pop_back();
            continue;
        }
        const FileNode &child = *place.folder->children[place.nextChild++];
        openNode(child, json);
        way.push_back({&child, 0});
    }
}

/// The first `most` items of a list.
template <typename Item>
std::span<const Item> firstOf(const std::vector<Item> &items, std::size_t most)
{
    return std::span(items).first(std::min(items.size(), most));
}

void writeTypes(const FileNode &root, JsonWriter &json)
{
    json.key("types");
    json.beginArray();
    for (const TypeSlice &slice : ScanSummary::types(root)) {
        json.beginObject();
        json.text("type", slice.type.caseName());
        json.text("label", slice.type.label());
        json.value("size", slice.size);
        json.endObject();
    }
    json.endArray();
}

void writeFiles(const ScanSummary &summary, std::size_t most, JsonWriter &json)
{
    json.key("allFiles");
    json.beginArray();
    for (const std::shared_ptr<FileNode> &file : firstOf(summary.allFiles, most)) {
        json.beginObject();
        json.bytes("path", file->path());
        json.value("size", file->size);
        json.value("modified", file->modified);
        json.text("type", typeOf(*file).caseName());
        json.endObject();
    }
    json.endArray();
}

void writeBuildFolders(const ScanSummary &summary, std::size_t most, JsonWriter &json)
{
    json.key("devJunk");
    json.beginArray();
    for (const DevJunkItem &item : firstOf(summary.devJunk, most)) {
        json.beginObject();
        json.bytes("path", item.node->path());
        json.text("kind", item.kind);
        json.value("size", item.node->size);
        json.endObject();
    }
    json.endArray();
}

/// A scan with its summary as one JSON object. Iterative and streaming: a tree may have hundreds of thousands of nodes
/// and thousands of levels.
void writeScan(const FolderScan &scan, const View &view, JsonWriter &json)
{
    const std::size_t most = view.most.value_or(std::string::npos);
    json.beginObject();
    json.key("root");
    writeTree(*scan.root, view, json);
    json.value("files", scan.root->fileCount);
    json.value("bytes", scan.root->size);
    json.value("unreadable", scan.summary->unreadableCount);
    json.value("denied", scan.denied);
    json.value("seconds", scan.seconds);
    json.value("cancelled", scan.isCancelled);
    writeFilter({&scan, 1}, json);
    writeTypes(*scan.root, json);
    writeFiles(*scan.summary, most, json);
    writeBuildFolders(*scan.summary, most, json);
    json.endObject();
}

/// An array if there are several scans.
void writeJson(const std::vector<FolderScan> &scans, const View &view, Output &out)
{
    JsonWriter json(out);
    if (scans.size() > 1)
        json.beginArray();
    for (const FolderScan &scan : scans)
        writeScan(scan, view, json);
    if (scans.size() > 1)
        json.endArray();
    json.finish();
}

constexpr std::size_t usualItems = 20;
constexpr std::size_t usualBranches = 10;
constexpr std::size_t usualLines = 10;
constexpr std::size_t dateColumns = 10;

/// A folder's items in the requested order, followed by the items not listed individually.
std::vector<TreemapItem> itemsOf(const FileNode &folder, ItemOrder order, std::size_t most)
{
    if (order == ItemOrder::size)
        return TreemapBuilder::items(folder, most);
    std::vector<TreemapItem> items = TreemapBuilder::items(folder, folder.children.size());
    std::ranges::stable_sort(items, [order](const TreemapItem &a, const TreemapItem &b) {
        return a.node && b.node ? standsBefore(*a.node, *b.node, order) : a.node != nullptr;
    });
    const auto nodes =
        static_cast<std::size_t>(std::ranges::count_if(items, [](const auto &item) { return item.node != nullptr; }));
    if (nodes > most) {
        TreemapItem rest{.node = nullptr,
                         .label = formatCount(static_cast<std::int64_t>(nodes - most), "more item", "more items")};
        for (const TreemapItem &item : std::span(items).subspan(most))
            rest.size = checkedAdd(rest.size, item.size);
        items.resize(most);
        items.push_back(std::move(rest));
    }
    return items;
}

bool isFolder(const TreemapItem &item)
{
    return item.node && item.node->kind != FileNode::Kind::file;
}

void writeItem(const TreemapItem &item, std::size_t place, std::string_view indentation, ShareTable &table)
{
    table.write({.size = item.size,
                 .color = TreemapBuilder::itemColor(item.node.get(), static_cast<int>(place)),
                 .name = item.label,
                 .mark = isFolder(item) ? "/" : "",
                 .indentation = indentation,
                 .files = item.node ? std::optional(item.node->fileCount) : std::nullopt});
}

ShareTable::FileCounts countsOf(const View &view)
{
    return view.countsFiles ? ShareTable::FileCounts::always : ShareTable::FileCounts::whereWide;
}

std::string_view headingOf(ItemOrder order)
{
    switch (order) {
    case ItemOrder::size:
        return "Largest items";
    case ItemOrder::files:
        return "Items with the most files";
    case ItemOrder::name:
        return "Items by name";
    case ItemOrder::modified:
        return "Items modified last";
    }
    return {};
}

void writeItems(const FileNode &root, const View &view, Console &console)
{
    const std::vector<TreemapItem> items = itemsOf(root, view.order, view.most.value_or(usualItems));
    if (items.empty()) {
        writeNoItems(root, console);
        return;
    }
    console.out.write(console.strong(headingOf(view.order)) + "\n");
    ShareTable table(console, root.size, countsOf(view));
    for (std::size_t i = 0; i < items.size(); ++i)
        writeItem(items[i], i, {}, table);
}

/// Writes the contents of a folder down to the requested depth; recursion is limited by the maximum of `--depth`.
void writeBranches(const FileNode &folder, const View &view, std::size_t depth, const std::string &indentation,
                   ShareTable &table)
{
    const std::vector<TreemapItem> items = itemsOf(folder, view.order, view.most.value_or(usualBranches));
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool isLast = i + 1 == items.size();
        writeItem(items[i], i, indentation + (isLast ? "└─ " : "├─ "), table);
        if (isFolder(items[i]) && depth > 1)
            writeBranches(*items[i].node, view, depth - 1, indentation + (isLast ? "   " : "│  "), table);
    }
}

void writeTypes(const FileNode &root, Console &console)
{
    const std::vector<TypeSlice> types = ScanSummary::types(root);
    if (types.empty())
        return;
    console.out.write("\n" + console.strong("File types") + "\n");
    ShareTable table(console, root.size);
    for (const TypeSlice &slice : types)
        table.write({.size = slice.size, .color = slice.type.color(), .name = slice.type.label()});
}

/// The path of an item relative to the scanned folder, shortened to fit beside `taken` columns.
std::string pathBeneath(const FileNode &root, const FileNode &node, std::size_t taken, const Console &console)
{
    const std::string path = node.path();
    const std::size_t start = std::min(root.path() == "/" ? 0 : root.path().size() + 1, path.size());
    return elidedAtFront(displayUtf8(std::string_view(path).substr(start)), console.roomBeside(taken));
}

void writeLargestFiles(const FolderScan &scan, std::size_t most, Console &console)
{
    // Skip the list if all its files already appear in the list of items.
    const auto files = firstOf(scan.summary->allFiles, most);
    if (std::ranges::all_of(files, [&](const auto &file) { return file->parent.lock() == scan.root; }))
        return;
    console.out.write("\n" + console.strong("Largest files") + "\n");
    for (const std::shared_ptr<FileNode> &file : files) {
        const std::size_t taken = sizeColumns() + 2 + dateColumns + 2;
        console.out.write(fmt::format("{}  {}  {}\n", sizeCell(file->size),
                                      leftAligned(dateText(file->modified), dateColumns),
                                      pathBeneath(*scan.root, *file, taken, console)));
    }
}

void writeBuildFolders(const FolderScan &scan, std::size_t most, Console &console)
{
    const std::vector<DevJunkItem> &folders = scan.summary->devJunk;
    if (folders.empty())
        return;
    std::int64_t total = 0;
    for (const DevJunkItem &folder : folders)
        total = checkedAdd(total, folder.node->size);
    console.out.write(fmt::format("\n{}, {}\n", console.strong("Build folders"), formatByteCount(total)));
    for (const DevJunkItem &folder : firstOf(folders, most))
        console.out.write(fmt::format("{}  {}/\n", sizeCell(folder.node->size),
                                      pathBeneath(*scan.root, *folder.node, sizeColumns() + 3, console)));
    if (folders.size() > most)
        console.out.write(
            formatCount(static_cast<std::int64_t>(folders.size() - most), "more build folder", "more build folders") +
            "\n");
}

/// A scan as text: the folder's figures, and its largest items, file types, largest files and build folders; or its
/// contents as a tree.
void writeTable(const FolderScan &scan, const View &view, std::string_view home, Console &console)
{
    writeFolderHeading(scan, home, console);
    if (view.depth) {
        ShareTable table(console, scan.root->size, countsOf(view));
        writeItem({scan.root, scan.root->name, scan.root->size}, 0, {}, table);
        writeBranches(*scan.root, view, *view.depth, {}, table);
        return;
    }
    writeItems(*scan.root, view, console);
    writeTypes(*scan.root, console);
    writeLargestFiles(scan, view.most.value_or(usualLines), console);
    writeBuildFolders(scan, view.most.value_or(usualLines), console);
}

ExitStatus run(const Arguments &given, Console &console, const Host &host)
{
    const bool json = given.has("json");
    const View view{.depth = given.value("depth", levelCount, validLevels()),
                    .most = given.value("top", lineCount, validLines()),
                    .order = given.value("sort", orderNamed, "size, files, name or modified").value_or(ItemOrder::size),
                    .countsFiles = given.has("files") || given.text("sort") == "files"};
    Arguments arguments = given;
    if (arguments.paths.empty())
        arguments.paths.push_back(host.files.homeFolder());
    // A tree shows nothing from the summary, which costs memory and a check of every project.
    const auto extent = view.depth && !json ? FolderScan::Extent::tree : FolderScan::Extent::treeAndSummary;
    const auto scans = FolderScan::ofArguments(arguments, extent, console, host.files);
    if (!scans)
        return scans.error();
    if (json) {
        writeJson(*scans, view, console.out);
    } else {
        for (const FolderScan &scan : *scans) {
            if (&scan != &scans->front())
                console.out.write('\n');
            writeTable(scan, view, host.files.homeFolder(), console);
        }
    }
    return report(*scans, console, !json);
}

std::vector<Option> options()
{
    std::vector<Option> options{
        {.name = "depth", .value = "N", .help = "Show a tree of N levels, at most 100"},
        {.name = "top", .value = "N", .help = "Show at most N items per folder and N lines per list"},
        {.name = "sort", .value = "KEY", .help = "Order items by size (the default), files, name or modified"},
        {.name = "files", .help = "Show how many files each item contains"}};
    std::ranges::copy(excludeOptions(), std::back_inserter(options));
    options.push_back(apparentOption());
    return options;
}

} // namespace

Command scanCommand()
{
    return {.name = "scan",
            .summary = "Show where the space in a folder went.",
            .paths = {.help = "The folders; your home folder if none is given", .most = PathArguments::anyNumber},
            .options = options(),
            .example = "corvane-cli scan ~/Projects --depth 2 --exclude .git",
            .home = Command::Home::neededWithoutPath,
            .run = run};
}

} // namespace corvane
