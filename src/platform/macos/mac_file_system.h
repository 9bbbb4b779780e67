#pragma once

#include "platform/file_system.h"
#include "platform/package_extension_cache.h"

namespace corvane {

/// Files and folders, through system calls for bulk operations and through Foundation otherwise.
class MacFileSystem final : public FileSystem {
public:
    MacFileSystem();

    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &path) override;
    [[nodiscard]] Expected<ItemFacts> facts(const std::string &path) override;
    [[nodiscard]] bool exists(const std::string &path) override;
    [[nodiscard]] bool canOpen(const std::string &path) override;
    [[nodiscard]] Expected<std::string> readFile(const std::string &path, std::size_t most) override;
    [[nodiscard]] Expected<std::unique_ptr<FileReader>> openFile(const std::string &path) override;
    [[nodiscard]] Expected<std::string> realPath(const std::string &path) override;
    [[nodiscard]] Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) override;
    [[nodiscard]] Expected<std::vector<std::string>> mountPoints() override;
    [[nodiscard]] std::vector<std::string> unsureMounts() override;
    [[nodiscard]] std::string homeFolder() override;

private:
    PackageExtensionCache m_packages;
};

} // namespace corvane
