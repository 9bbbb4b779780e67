#include "platform/linux/package_extensions.h"

#include <algorithm>
#include <array>

#include "platform/ascii_case.h"

namespace corvane {

namespace {

using namespace std::string_view_literals;

// Linux has no folders that appear as one document, so this table replaces what a Mac declares: the bundle types of the
// system itself, of its media and office programs, of its developer tools, and of common audio plug-ins and virtual
// machine programs. It omits extensions that are also common in ordinary folder names ("download", "service",
// "template", "trace"): hiding the contents of an ordinary folder is worse than showing those of a document. Lower case
// and sorted, for binary search.
constexpr std::array packageExtensions{"aaxplugin"sv,
                                       "aplibrary"sv,
                                       "app"sv,
                                       "appex"sv,
                                       "backupbundle"sv,
                                       "band"sv,
                                       "bundle"sv,
                                       "component"sv,
                                       "dictionary"sv,
                                       "docset"sv,
                                       "dsym"sv,
                                       "fcpbundle"sv,
                                       "fcpcache"sv,
                                       "framework"sv,
                                       "imovielibrary"sv,
                                       "kext"sv,
                                       "key"sv,
                                       "logicx"sv,
                                       "lrdata"sv,
                                       "lrlibrary"sv,
                                       "mdimporter"sv,
                                       "migratedphotolibrary"sv,
                                       "mpkg"sv,
                                       "musiclibrary"sv,
                                       "numbers"sv,
                                       "pages"sv,
                                       "photolibrary"sv,
                                       "photoslibrary"sv,
                                       "pkg"sv,
                                       "playground"sv,
                                       "playgroundbook"sv,
                                       "plugin"sv,
                                       "prefpane"sv,
                                       "pvm"sv,
                                       "qlgenerator"sv,
                                       "rtfd"sv,
                                       "saver"sv,
                                       "scptd"sv,
                                       "slidesaver"sv,
                                       "sparsebundle"sv,
                                       "swiftpm"sv,
                                       "theater"sv,
                                       "tvlibrary"sv,
                                       "utm"sv,
                                       "vmwarevm"sv,
                                       "vst"sv,
                                       "vst3"sv,
                                       "wdgt"sv,
                                       "workflow"sv,
                                       "xcarchive"sv,
                                       "xcdatamodel"sv,
                                       "xcdatamodeld"sv,
                                       "xcodeproj"sv,
                                       "xcplugin"sv,
                                       "xcresult"sv,
                                       "xctest"sv,
                                       "xcworkspace"sv,
                                       "xpc"sv};
static_assert(std::ranges::is_sorted(packageExtensions));

constexpr std::size_t longestExtension =
    std::ranges::max(packageExtensions, {}, [](std::string_view e) { return e.size(); }).size();

} // namespace

bool isKnownPackageExtension(std::string_view extension)
{
    if (extension.empty() || extension.size() > longestExtension)
        return false;
    std::array<char, longestExtension> buffer{};
    std::ranges::transform(extension, buffer.begin(), [](char c) { return lowerAscii(c); });
    return std::ranges::binary_search(packageExtensions, std::string_view(buffer.data(), extension.size()));
}

} // namespace corvane
