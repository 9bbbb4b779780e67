#include "duplicates/duplicate_finder.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <random>
#include <utility>

#include <fmt/format.h>

#include "duplicates/fingerprint.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

using Node = std::shared_ptr<FileNode>;

/// A candidate and the file's status when it was read.
struct Candidate {
    Node node;
    FileStatus seen;
};
using Candidates = std::vector<Candidate>;

/// A random (version 4) UUID.
std::string freshId()
{
    std::random_device source;
    std::uniform_int_distribution<unsigned> digits(0, 0xffff);
    const auto word = [&] { return digits(source); };
    const unsigned version = 0x4000U | (word() & 0x0fffU);
    const unsigned variant = 0x8000U | (word() & 0x3fffU);
    return fmt::format("{:04x}{:04x}-{:04x}-{:04x}-{:04x}-{:04x}{:04x}{:04x}", word(), word(), word(), version, variant,
                       word(), word(), word());
}

/// Groups the files that share a size with another one: largest size first, each group in the given order.
std::vector<Candidates> groupedBySize(std::span<const Node> nodes)
{
    std::map<std::int64_t, Candidates, std::greater<>> bySize;
    for (const Node &node : nodes) {
        if (node->kind == FileNode::Kind::file)
            bySize[node->size].push_back({node, {}});
    }
    std::vector<Candidates> groups;
    for (auto &[size, candidates] : bySize) {
        if (candidates.size() > 1)
            groups.push_back(std::move(candidates));
    }
    return groups;
}

class ProgressSteps {
public:
    ProgressSteps(std::size_t candidates, const DuplicateFinder::Progress &report)
        : m_whole(static_cast<double>(std::max<std::size_t>(2 * candidates, 1))), m_report(report)
    {
    }

    void advance()
    {
        ++m_count;
        const double fraction = std::min(static_cast<double>(m_count) / m_whole, 1.0);
        if (fraction - m_last < 0.01)
            return;
        m_last = fraction;
        m_report(fraction);
    }

private:
    const double m_whole;
    const DuplicateFinder::Progress &m_report;
    std::size_t m_count = 0;
    double m_last = 0;
};

/// Opens files in the given order, a few ahead of the current one, so that the disk reads ahead while the processor
/// hashes.
class FilesAhead {
public:
    using Announce = void (*)(FileReader &);

    FilesAhead(FileSystem &files, std::size_t ahead, Announce announce)
        : m_files(files), m_ahead(ahead), m_announce(announce)
    {
    }

    /// Appends files to the queue.
    void add(const Candidates &candidates)
    {
        for (const Candidate &candidate : candidates)
            m_waiting.push_back(candidate.node.get());
    }

    /// The next file, or null if it cannot be opened.
    std::unique_ptr<FileReader> next()
    {
        open(1);
        std::unique_ptr<FileReader> file = std::move(m_open.front());
        m_open.pop_front();
        open(m_ahead);
        return file;
    }

private:
    void open(std::size_t count)
    {
        while (m_open.size() < count && !m_waiting.empty()) {
            auto file = m_files.openFile(m_waiting.front()->path());
            m_waiting.pop_front();
            m_open.push_back(file ? std::move(*file) : nullptr);
            if (m_open.back())
                m_announce(*m_open.back());
        }
    }

    FileSystem &m_files;
    const std::size_t m_ahead;
    const Announce m_announce;
    std::deque<const FileNode *> m_waiting;
    std::deque<std::unique_ptr<FileReader>> m_open;
};

/// Groups files with equal fingerprints, in the order of each group's first file.
class Fingerprinted {
public:
    void add(const Fingerprint &fingerprint, Candidate candidate)
    {
        const auto [place, isNew] = m_places.try_emplace(fingerprint, m_groups.size());
        if (isNew)
            m_groups.emplace_back();
        m_groups[place->second].push_back(std::move(candidate));
    }

    /// Without groups of a single file.
    [[nodiscard]] std::vector<Candidates> take()
    {
        std::erase_if(m_groups, [](const Candidates &group) { return group.size() < 2; });
        return std::move(m_groups);
    }

private:
    std::map<Fingerprint, std::size_t> m_places;
    std::vector<Candidates> m_groups;
};

DuplicateGroup groupOf(Candidates candidates)
{
    std::ranges::stable_sort(candidates, std::greater<>{}, [](const Candidate &each) { return each.node->modified; });
    DuplicateGroup group{.id = freshId(), .size = candidates.front().node->size, .files = {}, .seen = {}};
    for (Candidate &candidate : candidates) {
        group.files.push_back(std::move(candidate.node));
        group.seen.push_back(candidate.seen);
    }
    return group;
}

class Search {
public:
    Search(std::vector<Candidates> bySize, const DuplicateFinder::Progress &report, FileSystem &files,
           const StopFlag &stop)
        : m_bySize(std::move(bySize)), m_progress(countOf(m_bySize), report), m_files(files), m_stop(stop)
    {
    }

    std::vector<DuplicateGroup> run()
    {
        constexpr std::size_t endsAhead = 8;
        FilesAhead ends(m_files, endsAhead, Fingerprinter::announceEnds);
        for (const Candidates &candidates : m_bySize)
            ends.add(candidates);
        for (Candidates &candidates : m_bySize) {
            for (Candidates &alike : byEnds(std::move(candidates), ends))
                addGroups(std::move(alike));
            if (m_stop)
                break;
        }
        std::ranges::stable_sort(m_groups, std::greater<>{}, &DuplicateGroup::waste);
        return std::move(m_groups);
    }

private:
    static std::size_t countOf(const std::vector<Candidates> &groups)
    {
        std::size_t count = 0;
        for (const Candidates &group : groups)
            count += group.size();
        return count;
    }

    std::vector<Candidates> byEnds(Candidates candidates, FilesAhead &ahead)
    {
        Fingerprinted alike;
        for (Candidate &candidate : candidates) {
            if (m_stop)
                return {};
            const std::unique_ptr<FileReader> file = ahead.next();
            if (const auto fingerprint = file ? m_fingerprinter.ofEnds(*file) : std::nullopt)
                alike.add(*fingerprint, std::move(candidate));
            m_progress.advance();
        }
        return alike.take();
    }

    void addGroups(Candidates candidates)
    {
        constexpr std::size_t wholeAhead = 1;
        FilesAhead ahead(m_files, wholeAhead, Fingerprinter::announceAll);
        ahead.add(candidates);
        Fingerprinted same;
        for (Candidate &candidate : candidates) {
            if (m_stop)
                return;
            if (const std::unique_ptr<FileReader> file = ahead.next()) {
                candidate.seen = file->status().value_or(FileStatus{});
                if (const auto fingerprint = m_fingerprinter.ofAll(*file, m_stop))
                    same.add(*fingerprint, std::move(candidate));
            }
            m_progress.advance();
        }
        if (m_stop) // the last fingerprint may cover only a part
            return;
        for (Candidates &group : same.take())
            m_groups.push_back(groupOf(std::move(group)));
    }

    std::vector<Candidates> m_bySize;
    ProgressSteps m_progress;
    FileSystem &m_files;
    const StopFlag &m_stop;
    Fingerprinter m_fingerprinter;
    std::vector<DuplicateGroup> m_groups;
};

} // namespace

std::vector<DuplicateGroup> DuplicateFinder::find(std::span<const std::shared_ptr<FileNode>> nodes,
                                                  const Progress &progress, FileSystem &files, const StopFlag &stop)
{
    const WalkConditions conditions;
    return Search(groupedBySize(nodes), progress, files, stop).run();
}

} // namespace corvane
