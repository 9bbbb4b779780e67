#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include <QGuiApplication>
#include <QLocale>
#include <QQuickStyle>

#include "core/store/qt_words.h"
#include "core/words/display_text.h"
#include "main/command_line.h"
#include "main/corvane_app.h"
#include "main/folder_argument.h"
#include "main/folder_opener.h"
#include "main/running_program.h"
#include "main/start_environment.h"
#include "platform/crash_handler.h"
#include "platform/host.h"
#include "shell/app_info.h"

namespace {

using corvane::CommandLine;

CommandLine commandLine(int argc, char **argv)
{
    const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return CommandLine::parse(arguments);
}

// Without a display, Qt's constructor prints several lines and calls abort(). Print one line and exit without a crash
// report.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext &, const QString &)
{
    if (type != QtFatalMsg)
        return;
    const bool isWayland = std::getenv("WAYLAND_DISPLAY") != nullptr;
    std::fputs(isWayland ? "corvane: no window can be opened on this Wayland display; is qt6-wayland installed?\n"
                         : "corvane: there is no display to open a window on\n",
               stderr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace

int main(int argc, char **argv)
{
    // Check the arguments before Qt, which ends the program where there is no display.
    const CommandLine line = commandLine(argc, argv);
    if (line.request == CommandLine::Request::help) {
        const std::string_view help = CommandLine::helpText();
        std::fwrite(help.data(), 1, help.size(), stdout);
        return EXIT_SUCCESS;
    }
    if (line.request == CommandLine::Request::version) {
        std::puts("corvane " CORVANE_VERSION);
        return EXIT_SUCCESS;
    }
    if (line.request == CommandLine::Request::wrong) {
        std::fprintf(stderr, "corvane: %s (see corvane --help)\n", corvane::displayUtf8(line.error).c_str());
        return 2;
    }

    const std::optional<std::string> refusedHome = corvane::settleEnvironment();
    const corvane::DesktopStart desktop = corvane::desktopStart();
    corvane::installCrashHandler({corvane::AppInfo::version().toStdString(), corvane::AppInfo::build().toStdString()});

    corvane::StartRequest start{.folder = {}, .activationToken = desktop.activationToken};
    std::string refusedFolder;
    if (!line.folder.empty()) {
        const corvane::Judged<std::string> judged = corvane::folderArgument(line.folder, corvane::systemHost().files);
        if (!judged && !desktop.isOne) {
            std::fprintf(stderr, "corvane: %s\n", corvane::displayUtf8(judged.error()).c_str());
            return 2;
        }
        if (judged)
            start.folder = *judged;
        else
            refusedFolder = judged.error();
    }

    QCoreApplication::setOrganizationName(QStringLiteral("Corvane"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("corvane.app"));
    QCoreApplication::setApplicationName(QStringLiteral("Corvane"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CORVANE_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral(CORVANE_APP_ID));
    QQuickStyle::setStyle(QStringLiteral("Basic"));

    const QtMessageHandler handler = qInstallMessageHandler(endWithoutDisplay);
    const QGuiApplication application(argc, argv);
    qInstallMessageHandler(handler);

    if (refusedFolder.empty() && corvane::RunningProgram::handOver(start))
        return EXIT_SUCCESS;
    QLocale::setDefault(corvane::dateLocale());

    corvane::CorvaneApp program;
    if (!program.openWindow())
        return EXIT_FAILURE;
    const auto answer = [&program](const corvane::StartRequest &later) { program.answer(later); };
    const corvane::RunningProgram running(answer);
    corvane::FolderOpener opener(answer);
    QCoreApplication::instance()->installEventFilter(&opener);
    for (const std::string &refused : {refusedHome.value_or(""), refusedFolder}) {
        if (!refused.empty())
            program.store().showToast(refused, true);
    }
    if (!start.folder.empty())
        program.store().scan(start.folder);
    return QGuiApplication::exec();
}
