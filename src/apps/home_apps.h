#pragma once

#include <vector>

#include "apps/found_app.h"
#include "apps/icon_search.h"

namespace corvane {

/// The applications in the home folder that a desktop file of the user's own starts: AppImages, and folders that were
/// unpacked there. Of several entries for one application the first counts. A folder that other programs are started
/// from as well is none. The surroundings must outlive the result.
[[nodiscard]] std::vector<FoundApp> appsInHome(const LinuxData &data, const IconSearch &icons,
                                               const AppInventory::Surroundings &surroundings);

} // namespace corvane
