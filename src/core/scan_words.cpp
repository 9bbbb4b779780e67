#include "core/scan_words.h"

#include "core/words/figures.h"
#include "platform/patient_open.h"

namespace corvane {

std::string deniedText(std::int64_t count)
{
    return formatCount(count, "folder", "folders") + " could not be opened";
}

std::string scanFailureText(const Error &failure)
{
    if (hasRunOutOfFileNumbers(failure))
        return "too many files are open at once; close some programs, or raise the limit (ulimit -n)";
    return failure.description();
}

} // namespace corvane
