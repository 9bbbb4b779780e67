#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/detached_call.h"
#include "platform/file_system.h"

namespace corvane {

/// The same files, for work that the user may stop: what is asked of a file system that may never answer is asked by
/// another thread, which is left behind once the wait is over. Such a call fails with
/// `std::errc::operation_canceled`. The walk of a folder on a disk of this computer is not touched by it: only the top
/// of the way to other file systems beneath is. What is read from files or held is not covered.
///
/// `files` must outlive the calls that were left behind, `waiting` only this object and its folders.
class StoppableFiles final : public FileSystem {
public:
    /// `root` is the folder that the work is about, absolute.
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

    /// Whether the path is known to lie on a disk of this computer.
    [[nodiscard]] bool answers(const std::string &path) const;

    FileSystem &m_files;
    std::shared_ptr<const Surroundings> m_surroundings; // shared with the folders
};

} // namespace corvane
