#include "platform/file_system.h"

#include "platform/failure.h"
#include "platform/file_reader.h"

namespace corvane {

Expected<std::string> FileSystem::readFile(const std::string &path, std::size_t /*most*/)
{
    return failure("read", path, ENOTSUP);
}

Expected<std::unique_ptr<FileReader>> FileSystem::openFile(const std::string &path)
{
    return failure("open", path, ENOTSUP);
}

std::vector<std::string> FileSystem::unsureMounts()
{
    std::vector<std::string> unsure;
    for (MountedFolder &mount : mounts()) {
        if (mount.mayNotAnswer)
            unsure.push_back(std::move(mount.path));
    }
    return unsure;
}

SystemKind FileSystem::systemKind()
{
    std::call_once(m_kindKnown,
                   [this] { m_kind = exists(std::string(macSystemFile)) ? SystemKind::mac : SystemKind::linuxSystem; });
    return m_kind;
}

} // namespace corvane
