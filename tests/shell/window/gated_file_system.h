#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "platform/held_folder.h"

namespace corvane {

/// A file system that blocks background threads at a folder while it is shut, so that a test can inspect a running
/// scan. The thread that created it is never blocked. Opens on destruction. Any thread.
class GatedFileSystem final : public FileSystem {
public:
    explicit GatedFileSystem(FileSystem &files) : m_files(files) {}
    ~GatedFileSystem() override { setShut(false); }

    void setShut(bool shut)
    {
        const std::lock_guard lock(m_mutex);
        m_shut = shut;
        m_opened.notify_all();
    }

    Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &path) override
    {
        std::unique_lock lock(m_mutex);
        m_opened.wait(lock, [this] { return !m_shut || std::this_thread::get_id() == m_owner; });
        return m_files.openFolder(path);
    }
    Expected<ItemFacts> facts(const std::string &path) override { return m_files.facts(path); }
    std::optional<std::string> ownerOf(const std::string &path) override { return m_files.ownerOf(path); }
    bool exists(const std::string &path) override { return m_files.exists(path); }
    bool canOpen(const std::string &path) override { return m_files.canOpen(path); }
    Expected<std::string> readFile(const std::string &path, std::size_t most) override
    {
        return m_files.readFile(path, most);
    }
    Expected<std::unique_ptr<FileReader>> openFile(const std::string &path) override { return m_files.openFile(path); }
    Expected<std::string> realPath(const std::string &path) override { return m_files.realPath(path); }
    Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) override
    {
        return m_files.holdFolder(path);
    }
    Expected<std::vector<std::string>> mountPoints() override { return m_files.mountPoints(); }
    std::string homeFolder() override { return m_files.homeFolder(); }
    SystemKind systemKind() override { return m_files.systemKind(); }
    std::optional<std::string> diskName() override { return m_files.diskName(); }
    std::vector<MountedFolder> mounts() override { return m_files.mounts(); }
    std::optional<OwnPlace> ownPlaceFor(std::string_view macPlace) override { return m_files.ownPlaceFor(macPlace); }
    std::vector<std::string> userFolders() override { return m_files.userFolders(); }
    std::vector<std::string> sharedDataFolders() override { return m_files.sharedDataFolders(); }
    std::vector<std::string> volumeTrashes() override { return m_files.volumeTrashes(); }

private:
    FileSystem &m_files;
    const std::thread::id m_owner = std::this_thread::get_id();
    std::mutex m_mutex;
    std::condition_variable m_opened;
    bool m_shut = false; // guarded by m_mutex
};

} // namespace corvane
