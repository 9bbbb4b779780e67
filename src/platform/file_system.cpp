#include "platform/file_system.h"

#include "platform/file_reader.h"

namespace corvane {

Expected<std::string> FileSystem::readFile(const std::string &path, std::size_t /*most*/)
{
    return tl::unexpected(Error{"read", path, std::make_error_code(std::errc::not_supported), {}});
}

Expected<std::unique_ptr<FileReader>> FileSystem::openFile(const std::string &path)
{
    return tl::unexpected(Error{"open", path, std::make_error_code(std::errc::not_supported), {}});
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
