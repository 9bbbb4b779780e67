#include "core/file_type.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

#include "platform/path.h"

namespace corvane {
namespace {

struct TypeFacts {
    FileType::Case type;
    std::string_view caseName;
    std::string_view label;
    Color color;
};

constexpr TypeFacts allTypes[] = {
    {FileType::video, "video", "Videos", {0.62, 0.36, 0.96}},
    {FileType::image, "image", "Photos & Images", {0.20, 0.74, 0.47}},
    {FileType::audio, "audio", "Audio", {0.96, 0.36, 0.58}},
    {FileType::archive, "archive", "Archives", {0.98, 0.58, 0.20}},
    {FileType::diskImage, "diskImage", "Disk Images & Installers", {0.78, 0.52, 0.32}},
    {FileType::app, "app", "Apps", {0.24, 0.52, 0.98}},
    {FileType::document, "document", "Documents", {0.95, 0.76, 0.18}},
    {FileType::code, "code", "Code & Data", {0.13, 0.70, 0.75}},
    {FileType::other, "other", "Other", {0.55, 0.58, 0.64}},
    {FileType::folder, "folder", "Folder", {0.36, 0.45, 1.00}},
    {FileType::small, "small", "Small Files", {0.68, 0.70, 0.75}},
};

TEST(FileType, CasesComeInTheirOrderWithTheirLabelsAndColours)
{
    ASSERT_EQ(FileType::allCases().size(), std::size(allTypes));
    for (std::size_t i = 0; i < std::size(allTypes); ++i) {
        const FileType type = FileType::allCases()[i];
        EXPECT_EQ(type, allTypes[i].type) << i;
        EXPECT_EQ(type.caseName(), allTypes[i].caseName);
        EXPECT_EQ(type.label(), allTypes[i].label);
        EXPECT_EQ(type.color(), allTypes[i].color) << allTypes[i].label;
    }
}

struct Classified {
    FileType::Case type;
    std::size_t count;
    std::string_view extensions; ///< separated by one space
};

constexpr Classified files[] = {
    {FileType::video, 15, "mp4 mov m4v mkv avi wmv flv webm mpg mpeg 3gp mts m2ts braw r3d"},
    {FileType::image, 24,
     "jpg jpeg png gif heic heif tiff tif bmp raw cr2 cr3 nef arw dng orf raf psd webp svg ai sketch fig xcf"},
    {FileType::audio, 12, "mp3 wav aac m4a flac aiff aif ogg opus caf mid midi"},
    {FileType::archive, 17, "zip rar 7z tar gz tgz bz2 xz zst lz jar aar apk aab ipa xip whl"},
    {FileType::diskImage, 11, "dmg iso img vmdk vdi qcow2 vhd vhdx sparseimage pkg mpkg"},
    {FileType::document, 17, "pdf doc docx xls xlsx ppt pptx key pages numbers txt rtf md epub csv odt ods"},
    {FileType::code, 35,
     "swift kt java js ts py rb go rs c cpp h m json xml yml yaml sql db sqlite sqlite3 realm so dylib a o class dex "
     "bin dat model gguf safetensors onnx pt"},
};

constexpr Classified packages[] = {
    {FileType::app, 1, "app"},
    {FileType::image, 3, "photoslibrary photolibrary aplibrary"},
    {FileType::video, 3, "fcpbundle imovielibrary tvlibrary"},
    {FileType::audio, 3, "logicx band musiclibrary"},
    {FileType::code, 5, "xcarchive xcodeproj xcworkspace playground framework"},
    {FileType::diskImage, 1, "sparsebundle"},
};

std::set<std::string> words(std::string_view text)
{
    std::set<std::string> result;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        result.emplace(word);
        text.remove_prefix(std::min(word.size() + 1, text.size()));
    }
    return result;
}

TEST(FileType, EveryExtensionOfAFileBelongsToItsType)
{
    for (const Classified &expected : files) {
        const std::set<std::string> extensions = words(expected.extensions);
        EXPECT_EQ(extensions.size(), expected.count);
        for (const std::string &extension : extensions)
            EXPECT_EQ(FileType::from(extension, false), expected.type) << extension;
    }
}

TEST(FileType, EveryExtensionOfAPackageBelongsToItsType)
{
    for (const Classified &expected : packages) {
        const std::set<std::string> extensions = words(expected.extensions);
        EXPECT_EQ(extensions.size(), expected.count);
        for (const std::string &extension : extensions)
            EXPECT_EQ(FileType::from(extension, true), expected.type) << extension;
    }
}

TEST(FileType, CaseOfTheExtensionIsIgnored)
{
    EXPECT_EQ(FileType::from("MP4", false), FileType::video);
    EXPECT_EQ(FileType::from("SafeTensors", false), FileType::code);
    EXPECT_EQ(FileType::from("PhotosLibrary", true), FileType::image);
}

TEST(FileType, AppIsAnAppOnlyAsAPackage)
{
    EXPECT_EQ(FileType::from("app", false), FileType::other);
    EXPECT_EQ(FileType::from("app", true), FileType::app);
}

TEST(FileType, PackageNeverFallsBackToTheSetsOfFiles)
{
    for (const Classified &set : files) {
        for (const std::string &extension : words(set.extensions))
            EXPECT_EQ(FileType::from(extension, true), FileType::other) << extension;
    }
}

TEST(FileType, FileNeverTakesTheRulesOfPackages)
{
    for (const Classified &set : packages) {
        for (const std::string &extension : words(set.extensions))
            EXPECT_EQ(FileType::from(extension, false), FileType::other) << extension;
    }
}

TEST(FileType, EmptyExtensionIsOther)
{
    EXPECT_EQ(FileType::from("", false), FileType::other);
    EXPECT_EQ(FileType::from("", true), FileType::other);
}

TEST(FileType, UnknownExtensionIsOther)
{
    EXPECT_EQ(FileType::from("mp", false), FileType::other);
    EXPECT_EQ(FileType::from("mp44", false), FileType::other);
    EXPECT_EQ(FileType::from(".mp4", false), FileType::other);
    EXPECT_EQ(FileType::from(std::string_view("mp4\0", 4), false), FileType::other);
    EXPECT_EQ(FileType::from("\xff\xfe", false), FileType::other);
    EXPECT_EQ(FileType::from(std::string(5000, 'x'), false), FileType::other);
    EXPECT_EQ(FileType::from("photoslibraryx", true), FileType::other);
}

TEST(PathExtension, IsWhatFollowsTheLastDot)
{
    EXPECT_EQ(nameExtension("archive.tar.gz"), "gz");
    EXPECT_EQ(nameExtension("a.b"), "b");
    EXPECT_EQ(nameExtension(".config.json"), "json");
    EXPECT_EQ(nameExtension("Report v1.2 final"), "2 final");
    EXPECT_EQ(nameExtension("clip.MP4"), "MP4");
}

TEST(PathExtension, HiddenNameHasNone)
{
    EXPECT_EQ(nameExtension(".profile"), "");
}

TEST(PathExtension, NameThatEndsInADotHasNone)
{
    EXPECT_EQ(nameExtension("a."), "");
    EXPECT_EQ(nameExtension("a.b."), "");
    EXPECT_EQ(nameExtension("."), "");
    EXPECT_EQ(nameExtension(".."), "");
}

TEST(PathExtension, NameWithoutADotHasNone)
{
    EXPECT_EQ(nameExtension("Makefile"), "");
    EXPECT_EQ(nameExtension(""), "");
}

} // namespace
} // namespace corvane
