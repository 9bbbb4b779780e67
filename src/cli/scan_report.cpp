#include "cli/scan_report.h"

#include <algorithm>
#include <cstdint>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "core/words/shared_texts.h"

namespace corvane {

namespace {

std::int64_t leftOutOf(std::span<const FolderScan> scans)
{
    std::int64_t count = 0;
    for (const FolderScan &scan : scans)
        count += scan.leftOut;
    return count;
}

} // namespace

ExitStatus report(const FolderScan &scan, Console &console, bool resultSaysSo)
{
    if (!scan.unreadableReason.empty())
        console.complain(fmt::format("cannot read {}: {}", scan.root->path(), scan.unreadableReason));
    if (scan.isCancelled && !(resultSaysSo && console.outIsTerminal()))
        console.complain(stoppedScanText);
    return scan.isCancelled || !scan.unreadableReason.empty() ? ExitStatus::doneWithFailures : ExitStatus::done;
}

ExitStatus report(std::span<const FolderScan> scans, Console &console, bool resultSaysSo)
{
    auto worst = ExitStatus::done;
    for (const FolderScan &scan : scans)
        worst = std::max(worst, report(scan, console, resultSaysSo));
    return worst;
}

std::vector<std::string> filterNotes(std::span<const FolderScan> scans)
{
    const ScanFilter &filter = scans.front().filter;
    std::vector<std::string> notes;
    if (!filter.excluded.empty())
        notes.push_back(fmt::format("Left out {}: {}", formatCount(leftOutOf(scans), "item", "items"),
                                    displayUtf8(fmt::format("{}", fmt::join(filter.excluded, ", ")))));
    if (filter.mounts == ScanFilter::Mounts::none)
        notes.emplace_back("Left out what is mounted inside");
    if (filter.sizes == ScanFilter::Sizes::apparent)
        notes.emplace_back("Sizes are the lengths of files, not the space that they occupy");
    return notes;
}

void writeFilter(std::span<const FolderScan> scans, JsonWriter &json)
{
    const ScanFilter &filter = scans.front().filter;
    if (filter.isUsual())
        return;
    json.key("filter");
    json.beginObject();
    json.key("exclude");
    json.beginArray();
    for (const std::string &pattern : filter.excluded)
        json.text(pattern);
    json.endArray();
    json.value("leftOut", leftOutOf(scans));
    json.value("oneFileSystem", filter.mounts == ScanFilter::Mounts::none);
    json.value("apparent", filter.sizes == ScanFilter::Sizes::apparent);
    json.endObject();
}

} // namespace corvane
