#include <cstdio>
#include <cstdlib>
#include <exception>

#include <QDir>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QLocale>
#include <QQuickStyle>
#include <QQuickWindow>

#include "main/corvane_app.h"
#include "screenshots/photographer.h"
#include "screenshots/screen_reader.h"
#include "shell/ui/theme.h"

int main(int argc, char **argv)
{
    // Fix the renderer, the scale and the locale, so that two runs give identical screenshots.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_SCALE_FACTOR", "1");
    qputenv("TZ", "UTC");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));

    QCoreApplication::setOrganizationName(QStringLiteral("Corvane"));
    QCoreApplication::setApplicationName(QStringLiteral("Corvane"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CORVANE_VERSION));
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) {
        std::fputs("screenshots: name the folder that takes the pictures, and the pictures if not all; or --read\n",
                   stderr);
        return EXIT_FAILURE;
    }

    corvane::CorvaneApp program;
    program.services().defaults()->setDidOnboard(true); // the welcome sheet has separate screenshots
    corvane::Theme::instance()->setReducedMotion(true);
    if (!program.openWindow())
        return EXIT_FAILURE;
    QQuickWindow *const window = program.window();
    try {
        if (arguments[1] == QStringLiteral("--read")) {
            const QJsonObject texts = corvane::ScreenReader(*window, program.store()).readAll();
            std::puts(QJsonDocument(texts).toJson(QJsonDocument::Compact).constData());
        } else {
            corvane::Photographer(*window, program.store(), program.services(), QDir(arguments[1]), arguments.mid(2))
                .takeAll();
        }
    } catch (const std::exception &failure) {
        std::fprintf(stderr, "screenshots: %s\n", failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
