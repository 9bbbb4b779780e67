#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <QTest>

#include "cleanup/dev_junk_rule.h"
#include "core/store/storage_store.h"
#include "platform/fake_host.h"

namespace corvane {

inline constexpr int patience = 20'000; // milliseconds; only a hang takes that long

/// Holds a background thread at a call of the system until the test lets it go on.
class Gate {
public:
    /// Holds the first call that is recorded as `line`.
    Gate(CallLog &log, std::string line) : m_log(log), m_line(std::move(line))
    {
        m_log.observe([this](const std::string &recorded) {
            if (recorded != m_line || m_reached.exchange(true))
                return;
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [this] { return m_isOpen; });
        });
    }
    ~Gate()
    {
        open();
        m_log.observe({});
    }

    bool waitUntilReached() const
    {
        return QTest::qWaitFor([this] { return m_reached.load(); }, patience);
    }
    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = true;
        m_changed.notify_all();
    }

private:
    CallLog &m_log;
    const std::string m_line;
    std::atomic<bool> m_reached = false;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isOpen = false;
};

/// A store over a small home folder in memory.
class StorageStoreTest : public testing::Test {
protected:
    StorageStoreTest()
    {
        fake.files.setHome(home);
        fake.files.addFile(at("Movies/a.mov"), 3'000'000);
        fake.files.addFile(at("Movies/b.mov"), 2'000'000);
        fake.files.addFile(at("Projects/deep/c.zip"), 4'000'000);
        fake.files.addFile(at("Projects/small.txt"), 5'000);
    }

    bool waitForReady()
    {
        return QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, patience);
    }
    void scanHome()
    {
        store.scanHome();
        ASSERT_TRUE(waitForReady());
    }
    std::string at(const std::string &relative) const { return home + "/" + relative; }
    std::int64_t sizeOf(const std::string &relative) const
    {
        const FileNode *node = store.node(at(relative));
        return node == nullptr ? -1 : node->size;
    }

    const std::string home = "/Users/u";
    FakeHost fake;
    ProtectedLocations locations{home, ProtectedPlaces{}};
    StorageStore store{fake.host(), locations};
};

inline std::shared_ptr<StorageStore::ScanResult> resultNamed(const std::string &path)
{
    auto result = std::make_shared<StorageStore::ScanResult>();
    result->root = std::make_shared<FileNode>(path, FileNode::Kind::directory);
    result->summary = ScanSummary::make(result->root, DevJunkRule::match);
    return result;
}

} // namespace corvane
