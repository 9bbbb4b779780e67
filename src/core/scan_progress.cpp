#include "core/scan_progress.h"

#include <utility>

#include "core/checked_add.h"

namespace corvane {

void ScanProgress::record(std::int64_t files, std::int64_t bytes, std::string_view path)
{
    const std::scoped_lock lock(m_lock);
    m_counters.files = checkedAdd(m_counters.files, files);
    m_counters.bytes = checkedAdd(m_counters.bytes, bytes);
    m_counters.current = path;
}

void ScanProgress::recordWait(std::string_view path)
{
    const std::scoped_lock lock(m_lock);
    m_counters.current = path;
}

void ScanProgress::recordDenied()
{
    const std::scoped_lock lock(m_lock);
    ++m_counters.denied;
}

void ScanProgress::recordLeftOut()
{
    const std::scoped_lock lock(m_lock);
    ++m_counters.leftOut;
}

void ScanProgress::cancel()
{
    const std::scoped_lock lock(m_lock);
    m_cancelled = true;
    m_shouldStop = true;
}

void ScanProgress::fail(Error error)
{
    const std::scoped_lock lock(m_lock);
    if (!m_failure)
        m_failure = std::move(error);
    m_shouldStop = true;
}

std::optional<Error> ScanProgress::failure() const
{
    const std::scoped_lock lock(m_lock);
    return m_failure;
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
