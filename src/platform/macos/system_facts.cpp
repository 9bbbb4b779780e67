#include "platform/system_facts.h"

#include <array>
#include <cstddef>

#include <sys/sysctl.h>
#include <sys/utsname.h>

#include "platform/file_system.h"

namespace corvane {

namespace {

// The string value of that sysctl; empty if there is none.
std::string kernelText(const char *name)
{
    std::array<char, 256> text{};
    std::size_t size = text.size() - 1;
    return ::sysctlbyname(name, text.data(), &size, nullptr, 0) == 0 ? std::string(text.data()) : std::string{};
}

} // namespace

std::string SystemFacts::system(FileSystem & /*files*/)
{
    const std::string version = kernelText("kern.osproductversion");
    return version.empty() ? "macOS" : version;
}

std::string SystemFacts::model(FileSystem & /*files*/)
{
    return kernelText("hw.model");
}

std::string SystemFacts::architecture()
{
    // A process under translation sees the other architecture.
    int isArm = 0;
    std::size_t size = sizeof(isArm);
    if (::sysctlbyname("hw.optional.arm64", &isArm, &size, nullptr, 0) == 0 && isArm == 1)
        return "arm64";
    utsname name{};
    return ::uname(&name) == 0 ? name.machine : "unknown";
}

} // namespace corvane
