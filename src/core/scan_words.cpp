#include "core/scan_words.h"

#include <fmt/format.h>

#include "core/byte_count.h"
#include "platform/patient_open.h"

namespace corvane {

std::string deniedText(std::int64_t count)
{
    return fmt::format("{} folder{} could not be opened", formatCount(count), count == 1 ? "" : "s");
}

std::string scanFailureText(const Error &failure)
{
    if (hasRunOutOfFileNumbers(failure))
        return "too many files are open at once; close some programs, or raise the limit (ulimit -n)";
    return failure.description();
}

} // namespace corvane
