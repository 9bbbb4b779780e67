#include "shell/crash_reporter.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QPointer>

#include "core/store/qt_words.h"
#include "core/words/utf8.h"
#include "platform/crash_handler.h"
#include "platform/file_reader.h"
#include "platform/path.h"
#include "shell/app_info.h"

namespace corvane {

namespace {

constexpr std::size_t mostCharacters = 400'000;
constexpr std::size_t mostBytes = mostCharacters * 4; // of UTF-8

bool isNamedLikeReport(std::string_view name, std::string_view executable)
{
    return name.size() > executable.size() && name.starts_with(executable) &&
           (name[executable.size()] == '-' || name[executable.size()] == '_') &&
           (name.ends_with(".ips") || name.ends_with(".crash"));
}

// Directory listings round dates to seconds; comparing those would miss a crash shortly after the last check.
bool isLater(const std::string &path, Time modified, const QDateTime &since)
{
    // Compare in seconds: the dates of some file systems overflow in smaller units.
    const qint64 listed = modified.time_since_epoch().count();
    const qint64 looked = since.toSecsSinceEpoch();
    if (listed != looked)
        return listed > looked;
    return QFileInfo(QFile::decodeName(QByteArray::fromStdString(path))).lastModified() > since;
}

// The start of the report as text; nullopt if it cannot be read.
std::optional<QString> readReport(FileSystem &files, const std::string &path)
{
    const Expected<std::unique_ptr<FileReader>> file = files.openFile(path);
    if (!file)
        return std::nullopt;
    std::string bytes(mostBytes, '\0');
    const Expected<std::size_t> count = (*file)->read(0, std::as_writable_bytes(std::span(bytes)));
    if (!count)
        return std::nullopt;
    bytes.resize(*count);
    std::size_t end = 0;
    for (std::size_t characters = 0; end < bytes.size() && characters < mostCharacters; ++characters)
        end += decodeUtf8(bytes, end).length;
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(std::min(end, bytes.size())));
}

} // namespace

CrashReporter::Places CrashReporter::places(FileSystem &files)
{
    Places places;
    places.folders.push_back(files.homeFolder() + "/Library/Logs/DiagnosticReports");
    if (std::optional<std::string> own = crashReportsFolder())
        places.folders.push_back(*std::move(own));
    const QString executable = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    places.executable = executable.isEmpty() ? "Corvane" : QFile::encodeName(executable).toStdString();
    return places;
}

CrashReporter::CrashReporter(UserDefaults &defaults, API &api, FileSystem &files, Places places,
                             std::function<QDateTime()> now, QObject *parent)
    : QObject(parent),
      m_defaults(defaults),
      m_api(api),
      m_files(files),
      m_places(std::move(places)),
      m_now(std::move(now))
{
    m_pool.setMaxThreadCount(1);
    m_pool.setThreadPriority(QThread::LowPriority);
}

CrashReporter::~CrashReporter() = default;

void CrashReporter::setShowPrompt(bool show)
{
    if (show == m_showPrompt)
        return;
    m_showPrompt = show;
    emit showPromptChanged();
}

void CrashReporter::checkOnLaunch()
{
    if (m_didCheck)
        return;
    m_didCheck = true;
    const std::optional<QDateTime> last = m_defaults.crashReportLastCheck();
    // Set before the search, so that a report that crashes the program is processed only once.
    m_defaults.setCrashReportLastCheck(m_now());
    if (!last)
        return;
    const std::vector<std::string> found = findReports(*last);
    if (found.empty())
        return;
    switch (m_defaults.crashReportMode()) {
    case UserDefaults::ReportMode::ask:
        m_pending = found;
        setShowPrompt(true);
        break;
    case UserDefaults::ReportMode::always:
        for (const std::string &path : found)
            upload(path);
        break;
    case UserDefaults::ReportMode::never:
        break;
    }
}

std::vector<std::string> CrashReporter::findReports(const QDateTime &since) const
{
    std::vector<std::string> found;
    for (const std::string &folder : m_places.folders) {
        const Expected<std::unique_ptr<OpenFolder>> open = m_files.openFolder(folder);
        if (!open)
            continue;
        static_cast<void>((*open)->list([&](const DirectoryEntry &entry) {
            if (entry.type != EntryType::file || !isNamedLikeReport(entry.name, m_places.executable))
                return;
            std::string path = folder + "/" + std::string(entry.name);
            if (isLater(path, entry.modified, since))
                found.push_back(std::move(path));
        }));
    }
    std::ranges::sort(found, {}, [](std::string_view path) { return std::tuple(lastPathComponent(path), path); });
    return found;
}

void CrashReporter::sendPending(bool always)
{
    if (always)
        m_defaults.setCrashReportMode(UserDefaults::ReportMode::always);
    for (const std::string &path : std::exchange(m_pending, {}))
        upload(path);
    setShowPrompt(false);
}

void CrashReporter::upload(const std::string &path)
{
    m_uploads.push_back(path);
    if (!m_isUploading)
        uploadNext();
}

// One at a time: there may be thousands.
void CrashReporter::uploadNext()
{
    m_isUploading = !m_uploads.empty();
    if (!m_isUploading)
        return;
    std::string path = std::move(m_uploads.front());
    m_uploads.pop_front();
    m_pool.start([this, path = std::move(path)] {
        QJsonObject message;
        if (const std::optional<QString> report = readReport(m_files, path)) {
            message.insert(QLatin1String("report"), *report);
            message.insert(QLatin1String("reportName"), displayText(lastPathComponent(path)));
            message.insert(QLatin1String("info"), AppInfo::system(m_files));
        }
        QMetaObject::invokeMethod(
            this, [this, message] { post(message); }, Qt::QueuedConnection);
    });
}

void CrashReporter::post(const QJsonObject &message)
{
    if (message.isEmpty()) {
        uploadNext();
        return;
    }
    m_api.post(QStringLiteral("api/crash"), message, [reporter = QPointer(this)](const std::optional<API::Failure> &) {
        if (reporter)
            reporter->uploadNext();
    });
}

} // namespace corvane
