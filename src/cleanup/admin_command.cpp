#include "cleanup/admin_command.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <utility>

#include "core/allocated_size.h"
#include "core/foreign_sum.h"
#include "core/told_size.h"
#include "platform/path.h"

namespace corvane {

namespace {

using Answer = CommandDefinition::Answer;

constexpr int decimal = 1'000;
constexpr int binary = 1'024;
/// Maximum number of packages on the command line of a query.
constexpr std::size_t packagesAskedFor = 500;

std::vector<std::string_view> partsOf(std::string_view text, std::string_view marks)
{
    std::vector<std::string_view> parts;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find_first_of(marks, start), text.size());
        if (end > start)
            parts.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

std::vector<std::string_view> linesOf(std::string_view text)
{
    return partsOf(text, "\n");
}

std::vector<std::string_view> columnsOf(std::string_view line)
{
    return partsOf(line, " \t");
}

std::int64_t plus(std::int64_t sum, std::int64_t more)
{
    static_cast<void>(addForeign(sum, more));
    return sum;
}

/// What a command would free, as reported by its tool.
class Question {
public:
    Question(const CommandDefinition &definition, FileSystem &files, const ToolRunner &runTool, const StopFlag &stop)
        : m_definition(definition), m_files(files), m_runTool(runTool), m_stop(stop)
    {
    }

    /// Nothing if there is nothing to free.
    [[nodiscard]] std::optional<AdminCommand> ask() const
    {
        if (m_stop || !m_files.exists(std::string(m_definition.tool)))
            return std::nullopt;
        switch (m_definition.answer) {
        case Answer::folders:
            return ifAny(sizeOfFolders());
        case Answer::journal:
            return ifAny(journal() - m_definition.kept);
        case Answer::containers:
            return containers();
        case Answer::snapRevisions:
            return ifAny(snapRevisions());
        case Answer::unneededPackages:
            return unneededPackages();
        case Answer::severalKernels: {
            const std::optional<std::string> kernels = run("/usr/bin/rpm", {"-q", "kernel-core"});
            return kernels && linesOf(*kernels).size() > 1 ? std::optional(offered({})) : std::nullopt;
        }
        case Answer::unusedRuntimes:
            return unusedRuntimes();
        }
        return std::nullopt;
    }

private:
    [[nodiscard]] AdminCommand offered(std::optional<std::int64_t> bytes) const
    {
        return {m_definition.id,
                m_definition.title,
                m_definition.detail,
                m_definition.symbol,
                m_definition.tint,
                m_definition.command,
                bytes};
    }

    [[nodiscard]] std::optional<AdminCommand> ifAny(std::int64_t bytes) const
    {
        return bytes > 0 ? std::optional(offered(bytes)) : std::nullopt;
    }

    [[nodiscard]] std::optional<std::string> run(std::string_view tool, const std::vector<std::string> &arguments) const
    {
        return m_stop ? std::nullopt : m_runTool(std::string(tool), arguments);
    }
    [[nodiscard]] std::optional<std::string> run(const std::vector<std::string> &arguments) const
    {
        return run(m_definition.tool, arguments);
    }

    [[nodiscard]] std::int64_t sizeOfFolders() const
    {
        std::int64_t sum = 0;
        for (const std::string_view folder : m_definition.folders) {
            if (!folder.empty())
                sum = plus(sum, allocatedSize(std::string(folder), m_files, m_stop));
        }
        return sum;
    }

    /// The tool only counts files readable by the user, so the folders' size may be larger.
    [[nodiscard]] std::int64_t journal() const
    {
        // "Archived and active journals take up 512.0M in the file system."
        constexpr std::string_view before = "take up ";
        std::int64_t told = 0;
        if (const auto output = run({"--disk-usage"}); output && output->find(before) != std::string::npos) {
            const std::size_t figure = output->find(before) + before.size();
            told = toldSize(std::string_view(*output).substr(figure), binary).value_or(0);
        }
        return std::max(told, sizeOfFolders());
    }

    /// The tool may be configured for another computer, whose containers must not be deleted to free space here.
    [[nodiscard]] bool speaksToThisComputer() const
    {
        if (m_definition.serviceArguments.front().empty())
            return true;
        const auto address = run({m_definition.serviceArguments.begin(), m_definition.serviceArguments.end()});
        return !address || address->starts_with("unix://");
    }

    [[nodiscard]] std::optional<AdminCommand> containers() const
    {
        if (!speaksToThisComputer())
            return std::nullopt;
        const auto kinds = run({"system", "df", "--format", "{{.Type}}\t{{.Reclaimable}}"});
        const auto unnamed = run({"images", "--filter", "dangling=true", "--format", "{{.Size}}"});
        if (!kinds || !unnamed) {
            if (m_stop || m_definition.deniedCommand.empty() ||
                !m_files.exists(std::string(m_definition.folders.front())))
                return std::nullopt;
            AdminCommand command = offered({});
            command.command = m_definition.deniedCommand;
            return command;
        }
        std::int64_t sum = 0;
        for (const std::string_view line : linesOf(*kinds)) {
            // Of the images, the command removes only unnamed ones; it removes no volumes.
            const std::vector<std::string_view> parts = partsOf(line, "\t");
            if (parts.size() == 2 && (parts.front() == "Containers" || parts.front() == "Build Cache"))
                sum = plus(sum, toldSize(parts.back(), decimal).value_or(0));
        }
        for (const std::string_view line : linesOf(*unnamed))
            sum = plus(sum, toldSize(line, decimal).value_or(0));
        return ifAny(sum);
    }

    [[nodiscard]] std::int64_t snapRevisions() const
    {
        // "Name  Version  Rev  Tracking  Publisher  Notes", with "disabled" in the notes of an earlier revision.
        std::map<std::string_view, std::vector<std::string_view>> earlier;
        const std::string output = run({"list", "--all"}).value_or("");
        for (const std::string_view line : linesOf(output)) {
            const std::vector<std::string_view> columns = columnsOf(line);
            constexpr std::size_t columnCount = 6;
            if (columns.size() >= columnCount && columns.back().find("disabled") != std::string_view::npos)
                earlier[columns[0]].push_back(columns[2]);
        }
        std::int64_t sum = 0;
        for (auto &[name, revisions] : earlier) {
            const auto numberOf = [](std::string_view revision) {
                std::int64_t number = 0; // also for a locally built revision such as "x3"
                revision.remove_prefix(revision.starts_with('x') ? 1 : 0);
                static_cast<void>(std::from_chars(revision.data(), revision.data() + revision.size(), number));
                return number;
            };
            std::ranges::sort(revisions, std::ranges::greater(), numberOf);
            for (const std::string_view revision : std::span(revisions).subspan(1)) {
                const std::string file = std::string(name) + "_" + std::string(revision) + ".snap";
                sum = plus(sum, allocatedSize(joined(m_definition.folders.front(), file), m_files, m_stop));
            }
        }
        return sum;
    }

    [[nodiscard]] std::optional<AdminCommand> unneededPackages() const
    {
        // A dry run, which changes nothing and needs no lock: "Remv linux-image-6.1.0-17-amd64 [6.1.69-1]".
        const std::string output =
            run({"--simulate", "-o", "Debug::NoLocking=true", "autoremove"}).value_or(std::string());
        std::vector<std::string> query{"--show", "--showformat=${Installed-Size}\n"};
        const std::size_t options = query.size();
        bool hasKernel = false;
        for (const std::string_view line : linesOf(output)) {
            const std::vector<std::string_view> columns = columnsOf(line);
            if (columns.size() < 2 || columns.front() != "Remv" || columns[1].starts_with('-'))
                continue;
            hasKernel |= columns[1].starts_with("linux-image-");
            if (query.size() < options + packagesAskedFor)
                query.emplace_back(columns[1]);
        }
        if (!hasKernel)
            return std::nullopt;
        const std::optional<std::string> sizes = run("/usr/bin/dpkg-query", query);
        if (!sizes)
            return offered({});
        std::int64_t sum = 0;
        for (const std::string_view line : linesOf(*sizes)) {
            std::int64_t kilobytes = 0;
            const auto [end, failure] = std::from_chars(line.data(), line.data() + line.size(), kilobytes);
            if (failure == std::errc{} && kilobytes >= 0 && kilobytes < foreignSumLimit / binary)
                sum = plus(sum, kilobytes * binary);
        }
        return offered(sum > 0 ? std::optional(sum) : std::nullopt);
    }

    [[nodiscard]] std::optional<AdminCommand> unusedRuntimes() const
    {
        const auto installed = run({"list", "--runtime", "--columns=ref,size"});
        const auto used = run({"list", "--app", "--columns=runtime"});
        const auto pinned = run({"pin"});
        if (!installed || !used || !pinned)
            return std::nullopt;
        const std::vector<std::string_view> usedLines = linesOf(*used);
        std::set<std::string_view> kept(usedLines.begin(), usedLines.end());
        constexpr std::string_view runtimePrefix = "runtime/";
        for (const std::string_view line : linesOf(*pinned)) {
            const std::size_t pin = line.find(runtimePrefix);
            if (pin == std::string_view::npos)
                continue;
            const std::string_view ref = line.substr(pin + runtimePrefix.size());
            kept.insert(ref.substr(0, ref.find_first_of(" \t")));
        }
        struct Runtime {
            std::string_view ref; ///< "org.gnome.Platform/x86_64/45"
            std::string_view id;
            std::int64_t size;
        };
        std::vector<Runtime> runtimes;
        for (const std::string_view line : linesOf(*installed)) {
            const std::vector<std::string_view> columns = partsOf(line, "\t");
            if (columns.size() == 2)
                runtimes.push_back({columns[0], columns[0].substr(0, columns[0].find('/')),
                                    toldSize(columns[1], decimal).value_or(0)});
        }
        // Extensions of another runtime are removed with it.
        const auto isExtension = [&](const Runtime &runtime) {
            return std::ranges::any_of(
                runtimes, [&](const Runtime &other) { return runtime.id.starts_with(std::string(other.id) + "."); });
        };
        std::int64_t sum = 0;
        bool hasUnused = false;
        for (const Runtime &runtime : runtimes) {
            if (kept.contains(runtime.ref) || isExtension(runtime))
                continue;
            hasUnused = true;
            sum = plus(sum, runtime.size);
        }
        return hasUnused ? std::optional(offered(sum > 0 ? std::optional(sum) : std::nullopt)) : std::nullopt;
    }

    const CommandDefinition &m_definition;
    FileSystem &m_files;
    const ToolRunner &m_runTool;
    const StopFlag &m_stop;
};

} // namespace

std::vector<AdminCommand> findAdminCommands(FileSystem &files, const ToolRunner &runTool, const StopFlag &stop)
{
    std::vector<AdminCommand> commands;
    for (const CommandDefinition &definition : cleanupTableOf(files.systemKind()).commands) {
        if (std::optional<AdminCommand> command = Question(definition, files, runTool, stop).ask())
            commands.push_back(*std::move(command));
    }
    std::ranges::stable_sort(commands, std::ranges::greater(), &AdminCommand::bytes);
    return commands;
}

std::vector<AdminCommand> findAdminCommands(FileSystem &files, const StopFlag &stop)
{
    return findAdminCommands(files, Shell::runner(stop), stop);
}

std::int64_t bytesOf(std::span<const AdminCommand> commands)
{
    std::int64_t sum = 0;
    for (const AdminCommand &command : commands)
        sum = plus(sum, command.bytes.value_or(0));
    return sum;
}

} // namespace corvane
