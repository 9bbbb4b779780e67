#include "shell/ui/shell_ui.h"

#include <QGuiApplication>
#include <QQmlEngine>

#include "shell/ui/fonts.h"
#include "shell/ui/icon_provider.h"
#include "shell/ui/theme.h"

namespace corvane {

void setUpShell(QQmlEngine &engine)
{
    registerFonts();
    QGuiApplication::setFont(Theme::instance()->bodyFont());
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.addImageProvider(QStringLiteral("icon"), new IconProvider(IconProvider::Names::icons));
    engine.addImageProvider(QStringLiteral("symbol"), new IconProvider(IconProvider::Names::symbols));
}

} // namespace corvane
