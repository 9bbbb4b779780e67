// The databases of dpkg and pacman, and rpm's output. For any input, the result is what could be read: sizes that a
// disk can have, names of dpkg that are safe in a command, and lists of absolute paths.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "apps/name_pieces.h"
#include "apps/package_databases.h"
#include "core/foreign_sum.h"
#include "fuzz/expect.h"
#include "platform/text.h"

using corvane::fuzz::expect;

namespace {

bool isOneLine(std::string_view text)
{
    return text.find('\n') == std::string_view::npos;
}

void checkDebian(std::string_view status)
{
    for (const auto &[key, package] : corvane::debianPackages(status)) {
        // A name has no colon, which separates it from the architecture.
        expect(corvane::isPlainName(std::string_view(key).substr(0, key.find(':'))));
        expect(key.find(':') == std::string::npos || key.ends_with(":" + package.architecture));
        expect(isOneLine(package.version) && isOneLine(package.architecture));
        expect(corvane::isPlausibleSize(package.size));
    }
}

void checkPacman(std::string_view description)
{
    for (const std::string_view heading : {"%NAME%", "%VERSION%", "%SIZE%"}) {
        const std::string_view value = corvane::fieldOf(description, heading);
        expect(isOneLine(value) && description.find(value) != std::string_view::npos);
        expect(corvane::isPlausibleSize(corvane::sizeIn(value)));
        expect(value.find(corvane::upstreamVersion(value)) != std::string_view::npos);
    }
}

void checkRpm(std::string_view output)
{
    for (const corvane::RpmPackage &package : corvane::rpmPackagesIn(output)) {
        expect(isOneLine(package.name) && isOneLine(package.version) && !package.name.starts_with('/'));
        expect(corvane::isPlausibleSize(package.size));
        expect(package.list.empty() || package.list.ends_with('\n'));
        for (std::string_view rest = package.list; !rest.empty();)
            expect(corvane::takeLine(rest).starts_with('/'));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    checkDebian(text);
    checkPacman(text);
    checkRpm(text);
    return 0;
}
