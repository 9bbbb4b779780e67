#pragma once

class QQmlEngine;

namespace corvane {

/// Prepares an engine for the program's screens: sets the embedded fonts as the application's font, and adds the import
/// path of the embedded modules and the image providers of icons and shadows. Main thread, before the engine loads its
/// first file.
void setUpShell(QQmlEngine &engine);

} // namespace corvane
