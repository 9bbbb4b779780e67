#pragma once

#include "platform/file_system.h"

namespace corvane {

/// Files and folders through system calls. Stateless.
class LinuxFileSystem final : public FileSystem {
public:
    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &path) override;
    [[nodiscard]] Expected<ItemFacts> facts(const std::string &path) override;
    [[nodiscard]] std::optional<std::string> ownerOf(const std::string &path) override;
    [[nodiscard]] bool exists(const std::string &path) override;
    [[nodiscard]] bool canOpen(const std::string &path) override;
    [[nodiscard]] Expected<std::string> readFile(const std::string &path, std::size_t most) override;
    [[nodiscard]] Expected<std::unique_ptr<FileReader>> openFile(const std::string &path) override;
    [[nodiscard]] Expected<std::string> realPath(const std::string &path) override;
    [[nodiscard]] Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) override;
    [[nodiscard]] Expected<std::vector<std::string>> mountPoints() override;
    [[nodiscard]] std::string homeFolder() override;
    [[nodiscard]] std::optional<std::string> diskName() override;
    [[nodiscard]] std::vector<MountedFolder> mounts() override;
    [[nodiscard]] std::optional<OwnPlace> ownPlaceFor(std::string_view macPlace) override;
    [[nodiscard]] std::vector<std::string> sharedDataFolders() override;
    [[nodiscard]] std::vector<std::string> volumeTrashes() override;
    [[nodiscard]] std::vector<std::string> userFolders() override;
};

} // namespace corvane
