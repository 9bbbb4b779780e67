#include "shell/ui/shell_ui.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>

#include "shell/ui/app_icon.h"
#include "shell/ui/bundle_icons.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/focus_keeper.h"
#include "shell/ui/fonts.h"
#include "shell/ui/graphics_device.h"
#include "shell/ui/icon_provider.h"
#include "shell/ui/shadow_provider.h"
#include "shell/ui/system_symbols.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

/// Milliseconds from one frame to the start of the next where no screen sets the pace: about as many frames as a screen
/// shows. With Qt's own 5 each movement of the mouse makes a frame, also those that no screen shows.
constexpr char pauseBetweenFrames[] = "14";

/// Unless the user has chosen a renderer.
void chooseRenderer()
{
    const bool isChosen = qEnvironmentVariableIsSet("QT_QUICK_BACKEND") || qEnvironmentVariableIsSet("QSG_RHI_BACKEND");
    if (!isChosen && !hasGraphicsDevice())
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QString renderer = qEnvironmentVariable("QT_QUICK_BACKEND", QQuickWindow::sceneGraphBackend());
    if (renderer == QLatin1String("software") && !qEnvironmentVariableIsSet("QT_QPA_UPDATE_IDLE_TIME"))
        qputenv("QT_QPA_UPDATE_IDLE_TIME", pauseBetweenFrames);
}

} // namespace

void setUpShell(QQmlEngine &engine)
{
    chooseRenderer();
    registerFonts();
    FocusKeeper::install();
    QGuiApplication::setFont(Theme::bodyFont());
    // Small text is sharpest where the system's own rasteriser draws it.
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.addImageProvider(QStringLiteral("icon"), new IconProvider(IconProvider::Names::icons));
    engine.addImageProvider(QStringLiteral("symbol"), new IconProvider(IconProvider::Names::symbols, systemSymbols()));
    engine.addImageProvider(QStringLiteral("file"), new FileIconProvider);
    engine.addImageProvider(QStringLiteral("bundle"), new BundleIconProvider);
    engine.addImageProvider(QStringLiteral("shadow"), new ShadowProvider);
    engine.addImageProvider(QStringLiteral("app"), new AppIconProvider);
}

} // namespace corvane
