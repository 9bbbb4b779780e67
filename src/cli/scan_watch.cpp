#include "cli/scan_watch.h"

#include <fmt/format.h>

#include "core/words/figures.h"

namespace corvane {

namespace {

std::string lineOf(const ScanProgress::Counters &counters, std::size_t columns)
{
    const std::string figures =
        fmt::format("Scanning… {} · {}", formatCount(counters.files, "file", "files"), formatByteCount(counters.bytes));
    return lineWithPath(figures, counters.current, columns);
}

} // namespace

ScanWatch::ScanWatch(ScanProgress &progress, Display display)
    : m_watch([&progress] { progress.cancel(); },
              [&progress](std::size_t columns) { return lineOf(progress.counters(), columns); }, display)
{
}

} // namespace corvane
