#include "platform/held_folder.h"

#include <string_view>

#include "platform/failure.h"

namespace corvane {

Error replacedMeanwhile(std::string_view operation, std::string_view path)
{
    return kernelError(operation, path, ESTALE, "it was replaced while it was being removed");
}

} // namespace corvane
