#include "platform/macos/mac_file_system.h"

#import <CoreServices/CoreServices.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/file_descriptor.h"
#include "platform/macos/foundation_bridge.h"
#include "platform/macos/mac_held_folder.h"
#include "platform/macos/mac_open_folder.h"
#include "platform/macos/mounted_volumes.h"
#include "platform/posix/item_at.h"
#include "platform/posix/real_path.h"
#include "platform/posix/regular_file.h"

namespace corvane {

namespace {

/// Queries the declared types, so no folder with the extension is needed.
bool isDeclaredAsPackage(const std::string &extension)
{
    return guardedAnswer(false, [&] {
        NSString *text = [NSString stringWithUTF8String:extension.c_str()];
        if (text == nil)
            return false;
// The deprecated functions work on every version that we support; their replacement class provides nothing more.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"
        NSString *type = CFBridgingRelease(UTTypeCreatePreferredIdentifierForTag(
            kUTTagClassFilenameExtension, (__bridge CFStringRef)text, kUTTypeDirectory));
        return type != nil && UTTypeConformsTo((__bridge CFStringRef)type, kUTTypePackage);
#pragma clang diagnostic pop
    });
}

} // namespace

MacFileSystem::MacFileSystem() : m_packages(isDeclaredAsPackage) {}

Expected<std::unique_ptr<OpenFolder>> MacFileSystem::openFolder(const std::string &path)
{
    return MacOpenFolder::open(AT_FDCWD, path, 0, m_packages);
}

Expected<ItemFacts> MacFileSystem::facts(const std::string &path)
{
    Expected<ItemFacts> found = factsAt(AT_FDCWD, path, path);
    if (found)
        found->isPackage = found->type == EntryType::directory && isShownAsPackage(path);
    return found;
}

bool MacFileSystem::exists(const std::string &path)
{
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

bool MacFileSystem::canOpen(const std::string &path)
{
    return FileDescriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)).isOpen();
}

Expected<std::string> MacFileSystem::readFile(const std::string &path, std::size_t most)
{
    return RegularFile::open(AT_FDCWD, path.c_str(), path, LinkRule::follow).and_then([&](const auto &file) {
        return file->readAll(most);
    });
}

Expected<std::unique_ptr<FileReader>> MacFileSystem::openFile(const std::string &path)
{
    return RegularFile::open(AT_FDCWD, path.c_str(), path, LinkRule::refuse);
}

Expected<std::string> MacFileSystem::realPath(const std::string &path)
{
    return resolvedPath(path);
}

Expected<std::unique_ptr<HeldFolder>> MacFileSystem::holdFolder(const std::string &path)
{
    return MacHeldFolder::hold(path, m_packages);
}

Expected<std::vector<std::string>> MacFileSystem::mountPoints()
{
    std::vector<std::string> points;
    for (const struct statfs &volume : mountedVolumes())
        points.emplace_back(volume.f_mntonname);
    if (points.empty())
        return failure("list the disks", "/", errno);
    return points;
}

std::vector<std::string> MacFileSystem::unsureMounts()
{
    std::vector<std::string> unsure;
    for (const struct statfs &volume : mountedVolumes()) {
        if ((volume.f_flags & MNT_LOCAL) == 0)
            unsure.emplace_back(volume.f_mntonname);
    }
    return unsure;
}

std::string MacFileSystem::homeFolder()
{
    return guardedAnswer(std::string(), [] { return std::string(NSHomeDirectory().fileSystemRepresentation); });
}

} // namespace corvane
