#include "core/scan_progress.h"

#include "core/checked_add.h"

namespace corvane {

void ScanProgress::record(std::int64_t files, std::int64_t bytes, std::string_view path)
{
    const std::scoped_lock lock(m_lock);
    m_counters.files = checkedAdd(m_counters.files, files);
    m_counters.bytes = checkedAdd(m_counters.bytes, bytes);
    m_counters.current = path;
}

void ScanProgress::cancel()
{
    const std::scoped_lock lock(m_lock);
    m_cancelled = true;
}

bool ScanProgress::isCancelled() const
{
    const std::scoped_lock lock(m_lock);
    return m_cancelled;
}

ScanProgress::Counters ScanProgress::counters() const
{
    const std::scoped_lock lock(m_lock);
    return m_counters;
}

} // namespace corvane
