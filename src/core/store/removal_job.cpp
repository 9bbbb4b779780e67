#include "core/store/removal_job.h"

#include <utility>

#include <QCoreApplication>
#include <QMetaObject>

#include "cleanup/dev_junk_rule.h"
#include "core/foreign_sum.h"
#include "core/scanner.h"
#include "core/size_walk.h"
#include "core/stoppable_files.h"

namespace corvane {
namespace {

constexpr int turn = 20; // milliseconds between two rounds of main-thread events

} // namespace

RemovalJob::RemovalJob(const Host &host, const ProtectedLocations &locations, Receiver receive)
    : m_host(host), m_locations(locations), m_receive(std::move(receive))
{
    m_pool.setMaxThreadCount(1);
}

RemovalJob::~RemovalJob()
{
    close();
}

bool RemovalJob::start(const Selection &entries, bool permanently, const SeenItems &seen,
                       const RemovalConditions &conditions)
{
    if (m_isClosing || m_isRunning || entries.empty())
        return false;
    m_isRunning = true;
    m_stop = false;
    m_pool.start([this, entries, permanently, seen, conditions] {
        const auto steps =
            Removal::plan(entries, permanently, m_locations, m_host.trash.trashFolders(), seen, conditions);
        RemovalOutcome outcome = Removal::perform(steps, m_locations, m_host, m_stop);
        auto remains = remainsOf(outcome);
        QMetaObject::invokeMethod(
            &m_mainThread,
            [this, outcome = std::move(outcome), permanently, remains = std::move(remains)] {
                m_receive(outcome, permanently, remains);
            },
            Qt::QueuedConnection);
    });
    return true;
}

/// Rescans a path; nothing if there is nothing that a tree shows, or if the rescan failed.
std::optional<MeasuredTree> RemovalJob::measuredAnew(const std::string &path)
{
    const Expected<ItemFacts> facts = m_host.files.facts(path);
    if (!facts || facts->type == EntryType::symbolicLink)
        return std::nullopt;
    if (facts->type == EntryType::directory) {
        const auto progress = std::make_shared<ScanProgress>();
        {
            const std::scoped_lock lock(m_lock);
            m_rescan = progress;
        }
        if (m_isClosing)
            progress->cancel(); // `close` may have come before the rescan was known to it
        std::shared_ptr<FileNode> root = Scanner::scan(path, *progress, m_host.files);
        if (progress->shouldStop())
            return std::nullopt;
        StoppableFiles files(m_host.files, path, Scanner::waiting(*progress));
        return MeasuredTree::of(std::move(root), DevJunkRule::match, files);
    }
    auto file = std::make_shared<FileNode>(path, FileNode::Kind::file);
    file->size = fileSize(*facts);
    file->modified = facts->modified;
    return MeasuredTree::of(std::move(file), DevJunkRule::match, m_host.files);
}

std::vector<MeasuredTree> RemovalJob::remainsOf(RemovalOutcome &outcome)
{
    std::vector<MeasuredTree> remains;
    for (RemovalFailure &failure : outcome.failures) {
        if (m_isClosing)
            break;
        if (failure.left != RemovalFailure::Left::aPart && failure.left != RemovalFailure::Left::somethingElse)
            continue;
        if (std::optional<MeasuredTree> left = measuredAnew(failure.path))
            remains.push_back(std::move(*left));
        else if (failure.left == RemovalFailure::Left::somethingElse)
            failure.left = RemovalFailure::Left::nothing; // trees do not show what replaced it
    }
    return remains;
}

bool RemovalJob::stop()
{
    if (!m_isRunning || m_stop)
        return false;
    m_stop = true;
    return true;
}

void RemovalJob::close()
{
    m_isClosing = true;
    m_stop = true;
    {
        const std::scoped_lock lock(m_lock);
        if (m_rescan)
            m_rescan->cancel();
    }
    // A removal may block on the main thread: some system services answer only there.
    while (m_isRunning && !m_pool.waitForDone(turn))
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_pool.waitForDone();
    QCoreApplication::sendPostedEvents(&m_mainThread);
}

} // namespace corvane
