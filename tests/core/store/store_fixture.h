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
#include "support/patience.h"

namespace corvane {

/// Blocks a background thread at a system call until the test opens the gate. Other threads may still be waiting when
/// it is destroyed.
class Gate {
public:
    /// Blocks the first call that is recorded as `line`.
    Gate(CallLog &log, std::string line) : m_log(log)
    {
        m_log.observe([state = m_state, line = std::move(line)](const std::string &recorded) {
            if (recorded != line || state->isReached.exchange(true))
                return;
            std::unique_lock lock(state->mutex);
            state->changed.wait(lock, [&] { return state->isOpen; });
        });
    }
    ~Gate()
    {
        open();
        m_log.observe({});
    }

    bool waitUntilReached() const
    {
        return QTest::qWaitFor([this] { return m_state->isReached.load(); }, patience);
    }
    void open()
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->isOpen = true;
        m_state->changed.notify_all();
    }

private:
    struct State {
        std::atomic<bool> isReached = false;
        std::mutex mutex;
        std::condition_variable changed;
        bool isOpen = false; // guarded by the mutex
    };

    CallLog &m_log;
    const std::shared_ptr<State> m_state = std::make_shared<State>();
};

/// A store over a small fake home folder.
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
