#pragma once

#include <vector>

#include "apps/found_app.h"
#include "apps/icon_search.h"
#include "apps/search_context.h"

namespace corvane {

/// The applications in the home folder that the user's own desktop files start: AppImages and unpacked folders. If
/// several entries start the same application, the first counts. A folder from which entries start several programs
/// does not count. The context must outlive the result.
[[nodiscard]] std::vector<FoundApp> appsInHome(const LinuxData &data, const IconSearch &icons,
                                               const SearchContext &context);

} // namespace corvane
