#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/detached_call.h"
#include "platform/file_system.h"

namespace corvane {

/// A file system for work that the user may stop: calls to a file system that may never answer run on another thread,
/// which is abandoned when the wait ends. Such a call fails with `std::errc::operation_canceled`. A walk on a local
/// disk is unaffected, apart from the folders above mounts of other file systems. Reading from files and held folders
/// are not covered.
///
/// `files` must outlive the abandoned calls, `waiting` only this object and its folders.
class StoppableFiles final : public FileSystem {
public:
    /// `root` is the folder to work on, absolute.
    StoppableFiles(FileSystem &files, const std::string &root, Waiting waiting);
    ~StoppableFiles() override;

    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &path) override;
    [[nodiscard]] Expected<ItemFacts> facts(const std::string &path) override;
    [[nodiscard]] bool exists(const std::string &path) override;
    [[nodiscard]] bool canOpen(const std::string &path) override;
    [[nodiscard]] Expected<std::string> realPath(const std::string &path) override;

    [[nodiscard]] std::optional<std::string> ownerOf(const std::string &path) override;
    [[nodiscard]] Expected<std::string> readFile(const std::string &path, std::size_t most) override;
    [[nodiscard]] Expected<std::unique_ptr<FileReader>> openFile(const std::string &path) override;
    [[nodiscard]] Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) override;
    [[nodiscard]] Expected<std::vector<std::string>> mountPoints() override;
    [[nodiscard]] std::string homeFolder() override;
    [[nodiscard]] SystemKind systemKind() override;
    [[nodiscard]] std::optional<std::string> diskName() override;
    [[nodiscard]] std::vector<MountedFolder> mounts() override;
    [[nodiscard]] std::vector<std::string> unsureMounts() override;
    [[nodiscard]] std::optional<OwnPlace> ownPlaceFor(std::string_view macPlace) override;
    [[nodiscard]] std::vector<std::string> userFolders() override;
    [[nodiscard]] std::vector<std::string> sharedDataFolders() override;
    [[nodiscard]] std::vector<std::string> volumeTrashes() override;

private:
    struct Surroundings;
    class UnsureFolder;
    class FolderOnTheWay;

    /// Whether the path is known to be on a local disk.
    [[nodiscard]] bool answers(const std::string &path) const;

    FileSystem &m_files;
    std::shared_ptr<const Surroundings> m_surroundings; // shared with the folders
};

} // namespace corvane
