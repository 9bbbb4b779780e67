#pragma once

#include <map>
#include <memory>
#include <mutex>

#include "platform/call_log.h"
#include "platform/volume.h"

namespace corvane {

/// Returns the facts set by the test, and none for other paths. Any thread. Recorded call: "volume P".
class FakeVolumes final : public Volumes {
public:
    explicit FakeVolumes(std::shared_ptr<CallLog> log = std::make_shared<CallLog>()) : m_log(std::move(log)) {}

    void set(const std::string &path, VolumeFacts facts)
    {
        const std::lock_guard lock(m_mutex);
        m_facts[path] = std::move(facts);
    }

    [[nodiscard]] VolumeFacts facts(const std::string &path) override
    {
        m_log->record("volume " + path);
        const std::lock_guard lock(m_mutex);
        const auto found = m_facts.find(path);
        return found == m_facts.end() ? VolumeFacts{} : found->second;
    }

    void addSwapFile(SwapFile file) { m_swapFiles.push_back(std::move(file)); }
    void addDeletedFiles(OpenDeletedFiles files) { m_deletedFiles.push_back(std::move(files)); }
    [[nodiscard]] std::vector<SwapFile> swapFiles() override { return m_swapFiles; }
    [[nodiscard]] std::vector<OpenDeletedFiles> deletedFiles(const std::string & /*home*/) override
    {
        return m_deletedFiles;
    }

private:
    std::vector<SwapFile> m_swapFiles; // set before the test begins
    std::vector<OpenDeletedFiles> m_deletedFiles;
    const std::shared_ptr<CallLog> m_log;
    std::mutex m_mutex;
    std::map<std::string, VolumeFacts> m_facts; // guarded by m_mutex
};

} // namespace corvane
