#include "core/file_type.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <unordered_map>

#include "platform/ascii_case.h"

namespace corvane {
namespace {

constexpr std::string_view videoExt[] = {"mp4", "mov",  "m4v", "mkv", "avi",  "wmv",  "flv", "webm",
                                         "mpg", "mpeg", "3gp", "mts", "m2ts", "braw", "r3d"};
constexpr std::string_view imageExt[] = {"jpg", "jpeg", "png",  "gif", "heic", "heif",   "tiff", "tif",
                                         "bmp", "raw",  "cr2",  "cr3", "nef",  "arw",    "dng",  "orf",
                                         "raf", "psd",  "webp", "svg", "ai",   "sketch", "fig",  "xcf"};
constexpr std::string_view audioExt[] = {"mp3", "wav", "aac",  "m4a", "flac", "aiff",
                                         "aif", "ogg", "opus", "caf", "mid",  "midi"};
constexpr std::string_view archiveExt[] = {"zip", "rar", "7z",  "tar", "gz",  "tgz", "bz2", "xz", "zst",
                                           "lz",  "jar", "aar", "apk", "aab", "ipa", "xip", "whl"};
constexpr std::string_view diskImageExt[] = {"dmg", "iso",  "img",         "vmdk", "vdi", "qcow2",
                                             "vhd", "vhdx", "sparseimage", "pkg",  "mpkg"};
constexpr std::string_view documentExt[] = {"pdf",     "doc", "docx", "xls", "xlsx", "ppt", "pptx", "key", "pages",
                                            "numbers", "txt", "rtf",  "md",  "epub", "csv", "odt",  "ods"};
constexpr std::string_view codeExt[] = {
    "swift", "kt",   "java",  "js",  "ts",   "py",  "rb",    "go",     "rs",          "c",     "cpp", "h",
    "m",     "json", "xml",   "yml", "yaml", "sql", "db",    "sqlite", "sqlite3",     "realm", "so",  "dylib",
    "a",     "o",    "class", "dex", "bin",  "dat", "model", "gguf",   "safetensors", "onnx",  "pt"};

struct ExtensionSet {
    std::span<const std::string_view> extensions;
    FileType type;
};

// In order of precedence, should an extension be in two sets.
constexpr ExtensionSet fileSets[] = {
    {videoExt, FileType::video},     {imageExt, FileType::image},         {audioExt, FileType::audio},
    {archiveExt, FileType::archive}, {diskImageExt, FileType::diskImage}, {documentExt, FileType::document},
    {codeExt, FileType::code},
};

constexpr std::string_view appPackages[] = {"app"};
constexpr std::string_view imagePackages[] = {"photoslibrary", "photolibrary", "aplibrary"};
constexpr std::string_view videoPackages[] = {"fcpbundle", "imovielibrary", "tvlibrary"};
constexpr std::string_view audioPackages[] = {"logicx", "band", "musiclibrary"};
constexpr std::string_view codePackages[] = {"xcarchive", "xcodeproj", "xcworkspace", "playground", "framework"};
constexpr std::string_view diskImagePackages[] = {"sparsebundle"};

constexpr ExtensionSet packageSets[] = {
    {appPackages, FileType::app},     {imagePackages, FileType::image}, {videoPackages, FileType::video},
    {audioPackages, FileType::audio}, {codePackages, FileType::code},   {diskImagePackages, FileType::diskImage},
};

using TypeTable = std::unordered_map<std::string_view, FileType>;

TypeTable makeTable(std::span<const ExtensionSet> sets)
{
    TypeTable table;
    for (const ExtensionSet &set : sets) {
        for (const std::string_view extension : set.extensions)
            table.try_emplace(extension, set.type);
    }
    return table;
}

// The longest extension in any table has 13 bytes, so longer ones need no lookup.
constexpr std::size_t longestExtension = 13;

struct Facts {
    std::string_view caseName;
    std::string_view label;
    Color color;
};

constexpr std::array<Facts, FileType::count> allFacts{{
    {"video", "Videos", {0.62, 0.36, 0.96}},
    {"image", "Photos & Images", {0.20, 0.74, 0.47}},
    {"audio", "Audio", {0.96, 0.36, 0.58}},
    {"archive", "Archives", {0.98, 0.58, 0.20}},
    {"diskImage", "Disk Images & Installers", {0.78, 0.52, 0.32}},
    {"app", "Apps", {0.24, 0.52, 0.98}},
    {"document", "Documents", {0.95, 0.76, 0.18}},
    {"code", "Code & Data", {0.13, 0.70, 0.75}},
    {"other", "Other", {0.55, 0.58, 0.64}},
    {"folder", "Folder", {0.36, 0.45, 1.00}},
    {"small", "Small Files", {0.68, 0.70, 0.75}},
}};

} // namespace

FileType FileType::from(std::string_view extension, bool isPackage)
{
    static const TypeTable files = makeTable(fileSets);
    static const TypeTable packages = makeTable(packageSets);

    if (extension.size() > longestExtension)
        return other;
    char lowered[longestExtension];
    std::ranges::transform(extension, lowered, [](char c) { return lowerAscii(c); });
    const TypeTable &table = isPackage ? packages : files;
    const auto found = table.find(std::string_view(lowered, extension.size()));
    return found == table.end() ? FileType(other) : found->second;
}

const std::array<FileType, FileType::count> &FileType::allCases()
{
    static constexpr std::array<FileType, count> cases{video,    image, audio, archive, diskImage, app,
                                                       document, code,  other, folder,  small};
    return cases;
}

std::string_view FileType::label() const
{
    return allFacts[m_value].label;
}

std::string_view FileType::caseName() const
{
    return allFacts[m_value].caseName;
}

Color FileType::color() const
{
    return allFacts[m_value].color;
}

} // namespace corvane
