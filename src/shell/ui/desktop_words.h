#pragma once

#include <QString>

namespace corvane {

/// What the command is called that shows an item in the desktop's file manager.
[[nodiscard]] inline QString revealWords()
{
#ifdef Q_OS_MACOS
    return QStringLiteral("Reveal in Finder");
#else
    return QStringLiteral("Show in File Manager");
#endif
}

} // namespace corvane
