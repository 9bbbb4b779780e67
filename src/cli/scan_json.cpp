#include "cli/scan_json.h"

#include <string_view>
#include <vector>

#include "cli/json_writer.h"

namespace corvane {

namespace {

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

/// Everything of a node up to and with the bracket that opens its children.
void openNode(const FileNode &node, JsonWriter &json)
{
    json.beginObject();
    json.bytes("name", node.name);
    json.bytes("path", node.path());
    json.key("kind");
    json.text(kindName(node.kind));
    json.key("size");
    json.value(node.size);
    json.key("fileCount");
    json.value(node.fileCount);
    json.key("smallFilesSize");
    json.value(node.smallFilesSize);
    json.key("smallFilesCount");
    json.value(node.smallFilesCount);
    json.key("modified");
    json.value(node.modified);
    json.key("unreadable");
    json.value(node.unreadable);
    json.key("children");
    json.beginArray();
}

void closeNode(JsonWriter &json)
{
    json.endArray();
    json.endObject();
}

void writeTree(const FileNode &root, JsonWriter &json)
{
    struct Place {
        const FileNode *folder;
        std::size_t nextChild;
    };
    openNode(root, json);
    std::vector<Place> way{{&root, 0}};
    while (!way.empty() && !json.isClosed()) {
        Place &place = way.back();
        if (place.nextChild == place.folder->children.size()) {
            closeNode(json);
            way.pop_back();
            continue;
        }
        const FileNode &child = *place.folder->children[place.nextChild++];
        openNode(child, json);
        way.push_back({&child, 0});
    }
}

void writeTypes(const FileNode &root, JsonWriter &json)
{
    json.key("types");
    json.beginArray();
    for (const TypeSlice &slice : ScanSummary::types(root)) {
        json.beginObject();
        json.key("type");
        json.text(slice.type.caseName());
        json.key("label");
        json.text(slice.type.label());
        json.key("size");
        json.value(slice.size);
        json.endObject();
    }
    json.endArray();
}

void writeFiles(const ScanSummary &summary, JsonWriter &json)
{
    json.key("allFiles");
    json.beginArray();
    for (const std::shared_ptr<FileNode> &file : summary.allFiles) {
        json.beginObject();
        json.bytes("path", file->path());
        json.key("size");
        json.value(file->size);
        json.key("modified");
        json.value(file->modified);
        json.key("type");
        json.text(typeOf(*file).caseName());
        json.endObject();
    }
    json.endArray();
}

void writeBuildFolders(const ScanSummary &summary, JsonWriter &json)
{
    json.key("devJunk");
    json.beginArray();
    for (const DevJunkItem &item : summary.devJunk) {
        json.beginObject();
        json.bytes("path", item.node->path());
        json.key("kind");
        json.text(item.kind);
        json.key("size");
        json.value(item.node->size);
        json.endObject();
    }
    json.endArray();
}

} // namespace

void writeScanJson(const FolderScan &scan, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.key("root");
    writeTree(*scan.root, json);
    json.key("files");
    json.value(scan.root->fileCount);
    json.key("bytes");
    json.value(scan.root->size);
    json.key("unreadable");
    json.value(scan.summary->unreadableCount);
    json.key("denied");
    json.value(scan.denied);
    json.key("seconds");
    json.value(scan.seconds);
    json.key("cancelled");
    json.value(scan.isCancelled);
    writeTypes(*scan.root, json);
    writeFiles(*scan.summary, json);
    writeBuildFolders(*scan.summary, json);
    json.endObject();
    json.finish();
}

} // namespace corvane
