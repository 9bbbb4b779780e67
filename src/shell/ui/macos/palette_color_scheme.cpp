// For systems whose palette follows the user's choice of light or dark.

#include "shell/ui/color_scheme_setting.h"

namespace corvane {

std::unique_ptr<ColorSchemeSetting> systemColorSchemeSetting()
{
    return nullptr;
}

} // namespace corvane
