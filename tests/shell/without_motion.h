#pragma once

#include "shell/ui/theme.h"

namespace corvane {

/// Disables animations while this object lives.
struct WithoutMotion {
    WithoutMotion() { Theme::instance()->setReducedMotion(true); }
    ~WithoutMotion() { Theme::instance()->setReducedMotion(false); }
    WithoutMotion(const WithoutMotion &) = delete;
    WithoutMotion &operator=(const WithoutMotion &) = delete;
};

} // namespace corvane
