#include "platform/linux/package_extensions.h"

#include <string>

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(PackageExtensions, KnowsEveryPackageThatHasAFileTypeOfItsOwn)
{
    for (const char *extension :
         {"app", "photoslibrary", "photolibrary", "aplibrary", "fcpbundle", "imovielibrary", "tvlibrary", "logicx",
          "band", "musiclibrary", "xcarchive", "xcodeproj", "xcworkspace", "playground", "framework", "sparsebundle"})
        EXPECT_TRUE(isKnownPackageExtension(extension)) << extension;
}

TEST(PackageExtensions, IgnoresCase)
{
    EXPECT_TRUE(isKnownPackageExtension("APP"));
    EXPECT_TRUE(isKnownPackageExtension("dSYM"));
}

TEST(PackageExtensions, PlainFoldersExtensionsAreNotKnown)
{
    for (const char *extension : {"", "d", "git", "zip", "service", "download", "ap", "apps", "app "})
        EXPECT_FALSE(isKnownPackageExtension(extension)) << extension;
}

TEST(PackageExtensions, AnyBytesOfAnyLengthAreAnswered)
{
    using namespace std::string_view_literals;
    EXPECT_FALSE(isKnownPackageExtension(std::string(255, 'a')));
    EXPECT_FALSE(isKnownPackageExtension("\xff\xfe"));
    EXPECT_FALSE(isKnownPackageExtension("app\0"sv));
}

} // namespace
} // namespace corvane
