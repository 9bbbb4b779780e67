#pragma once

namespace corvane {

/// Milliseconds after which a wait fails. A wait ends as soon as its condition holds, so only a hang takes that long,
/// also under a sanitizer on a loaded machine.
inline constexpr int patience = 20'000;

} // namespace corvane
