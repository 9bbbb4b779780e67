// Deleting a folder for good, as the window and the command line do: bench_remove FOLDER
//
//   bench_remove make files|levels COUNT FOLDER   makes a folder of so many files, a thousand to a folder, or of so
//   many
//                                                 levels, one inside the other

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include "platform/held_folder.h"
#include "platform/host.h"
#include "platform/path.h"

namespace {

void check(bool succeeded, const std::string &path)
{
    if (!succeeded)
        throw std::system_error(errno, std::generic_category(), path);
}

void makeFiles(std::size_t count, const std::string &top)
{
    constexpr std::size_t filesInFolder = 1'000;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string folder = fmt::format("{}/{}", top, i / filesInFolder);
        if (i % filesInFolder == 0)
            check(::mkdir(folder.c_str(), 0755) == 0, folder);
        const std::string path = fmt::format("{}/file {}.txt", folder, i);
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        check(file >= 0, path);
        ::close(file);
    }
}

void makeLevels(std::size_t count, const std::string &top)
{
    int folder = ::open(top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (std::size_t i = 0; i < count; ++i) {
        check(::mkdirat(folder, "level", 0755) == 0, top);
        const int inner = ::openat(folder, "level", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        check(inner >= 0, top);
        ::close(folder);
        folder = inner;
    }
    ::close(folder);
}

void make(std::string_view shape, std::string_view countText, const std::string &top)
{
    std::size_t count = 0;
    std::from_chars(countText.data(), countText.data() + countText.size(), count);
    check(::mkdir(top.c_str(), 0755) == 0, top);
    shape == "levels" ? makeLevels(count, top) : makeFiles(count, top);
}

void eraseForGood(const std::string &path)
{
    const auto failure = [](const corvane::Error &error) { return std::runtime_error(error.description()); };
    const auto folder = corvane::systemHost().files.holdFolder(std::string(corvane::containingFolder(path)));
    if (!folder)
        throw failure(folder.error());
    const std::string name(corvane::lastPathComponent(path));
    const auto facts = (*folder)->facts(name);
    if (!facts)
        throw failure(facts.error());
    if (const auto removed = (*folder)->removeItem(name, facts->identity); !removed)
        throw failure(removed.error());
}

} // namespace

int main(int argc, char **argv)
try {
    if (argc == 5 && std::string_view(argv[1]) == "make")
        make(argv[2], argv[3], argv[4]);
    else if (argc == 2)
        eraseForGood(argv[1]);
    else
        throw std::invalid_argument("usage: bench_remove FOLDER, or: bench_remove make files|levels COUNT FOLDER");
    return EXIT_SUCCESS;
} catch (const std::exception &error) {
    fmt::print(stderr, "bench_remove: {}\n", error.what());
    return EXIT_FAILURE;
}
