#pragma once

class QQmlEngine;

namespace corvane {

/// What every engine that shows the program's screens needs: the embedded fonts as the application's font, the
/// import path of the embedded modules, and the image providers of icons and shadows. Main thread, before the
/// engine's first file.
void setUpShell(QQmlEngine &engine);

} // namespace corvane
