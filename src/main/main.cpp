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

constexpr int wrongArguments = 2; // the exit status

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

/// Prints what the arguments request without a window, or what is wrong with them.
/// @return the exit status; nullopt if the window is requested
std::optional<int> answeredInTerminal(const CommandLine &line)
{
    switch (line.request) {
    case CommandLine::Request::help: {
        const std::string_view help = CommandLine::helpText();
        std::fwrite(help.data(), 1, help.size(), stdout);
        return EXIT_SUCCESS;
    }
    case CommandLine::Request::version:
        std::puts("corvane " CORVANE_VERSION);
        return EXIT_SUCCESS;
    case CommandLine::Request::wrong:
        std::fprintf(stderr, "corvane: %s (see corvane --help)\n", corvane::displayUtf8(line.error).c_str());
        return wrongArguments;
    case CommandLine::Request::window:
        break;
    }
    return std::nullopt;
}

/// The path of the folder to scan at the start; empty if none is given.
corvane::Judged<std::string> folderToScan(const CommandLine &line)
{
    return line.folder.empty() ? std::string() : corvane::folderArgument(line.folder, corvane::systemHost().files);
}

void nameApplication()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Corvane"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("corvane.app"));
    QCoreApplication::setApplicationName(QStringLiteral("Corvane"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CORVANE_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral(CORVANE_APP_ID));
}

} // namespace

int main(int argc, char **argv)
{
    // Check the arguments before Qt, which ends the program where there is no display.
    const CommandLine line = commandLine(argc, argv);
    if (const std::optional<int> status = answeredInTerminal(line))
        return *status;

    const std::optional<std::string> refusedHome = corvane::settleEnvironment();
    const corvane::DesktopStart desktop = corvane::desktopStart();
    corvane::installCrashHandler({corvane::AppInfo::version().toStdString(), corvane::AppInfo::build().toStdString()});

    const corvane::Judged<std::string> folder = folderToScan(line);
    if (!folder && !desktop.isOne) {
        std::fprintf(stderr, "corvane: %s\n", corvane::displayUtf8(folder.error()).c_str());
        return wrongArguments;
    }

    nameApplication();
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    const QtMessageHandler handler = qInstallMessageHandler(endWithoutDisplay);
    const QGuiApplication application(argc, argv);
    qInstallMessageHandler(handler);

    if (folder && corvane::RunningProgram::handOver({*folder, desktop.activationToken}))
        return EXIT_SUCCESS;
    QLocale::setDefault(corvane::dateLocale());

    corvane::CorvaneApp program;
    if (!program.openWindow())
        return EXIT_FAILURE;
    const auto answer = [&program](const corvane::StartRequest &later) { program.answer(later); };
    const corvane::RunningProgram running(answer);
    corvane::FolderOpener opener(answer);
    QCoreApplication::instance()->installEventFilter(&opener);
    if (refusedHome)
        program.store().showToast(*refusedHome, true);
    if (!folder)
        program.store().showToast(folder.error(), true);
    else if (!folder->empty())
        program.store().scan(*folder);
    return QGuiApplication::exec();
}
