#pragma once

namespace corvane {

/// Milliseconds after which a wait fails. A wait ends as soon as its condition holds, so only a hang takes that long.
/// 20 seconds were too few for a scan of 1,200 levels under a sanitizer on a loaded machine.
inline constexpr int patience = 60'000;

} // namespace corvane
