#include "screenshots/example.h"

namespace corvane {

const Example &exampleOf(SystemKind kind)
{
    static const Example mac{
        .kind = SystemKind::mac,
        .mark = {},
        .home = "/Users/studio",
        .videos = "Movies",
        .closedFolder = "/Users/studio/Library/Application Support/com.apple.TCC",
        .duplicatesFolder = "/Users/studio/Projects/ml-experiments",
        .filesUnderWay = 1'000,
        .app = QStringLiteral("Signal Deck"),
        .otherApp = QStringLiteral("Star Atlas"),
        .otherAppMark = QStringLiteral("appstore"),
        .cleanupRow = QStringLiteral("Xcode DerivedData"),
        .cachesTicked = {QStringLiteral("Northwind Browser"), QStringLiteral("com.framewright.studio"),
                         QStringLiteral("com.signaldeck.desktop")},
    };
    static const Example linuxSystem{
        .kind = SystemKind::linuxSystem,
        .mark = QStringLiteral("-linux"),
        .home = "/home/studio",
        .videos = "Videos",
        .closedFolder = "/var/lib/private",
        .duplicatesFolder = "/home/studio/Downloads",
        .filesUnderWay = 400,
        .app = QStringLiteral("Framewright Studio"),
        .otherApp = QStringLiteral("Wavetable Live"),
        .otherAppMark = QStringLiteral("appimage"),
        .cleanupRow = QStringLiteral("Thumbnails"),
        .cachesTicked = {QStringLiteral("northwind-browser"), QStringLiteral("mesa_shader_cache"),
                         QStringLiteral("code-harbor")},
    };
    return kind == SystemKind::mac ? mac : linuxSystem;
}

} // namespace corvane
