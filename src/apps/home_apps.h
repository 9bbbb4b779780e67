#pragma once

#include <vector>

#include "apps/found_app.h"
#include "apps/icon_search.h"

namespace corvane {

/// The applications in the home folder that the user's own desktop files start: AppImages and unpacked folders. If
/// several entries start the same application, the first counts. A folder from which entries start several programs
/// does not count. The surroundings must outlive the result.
[[nodiscard]] std::vector<FoundApp> appsInHome(const LinuxData &data, const IconSearch &icons,
                                               const AppInventory::Surroundings &surroundings);

} // namespace corvane
