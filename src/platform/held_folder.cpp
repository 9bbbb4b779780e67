#include "platform/held_folder.h"

#include <utility>

#include "platform/failure.h"

namespace corvane {

Error replacedMeanwhile(std::string operation, std::string path)
{
    return kernelError(std::move(operation), std::move(path), ESTALE, "it was replaced while it was being removed");
}

} // namespace corvane
