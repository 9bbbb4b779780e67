#include "shell/app_info.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include <QLocale>
#include <QStringList>

#include "core/path_guard.h"
#include "core/store/qt_words.h"
#include "platform/property_list.h"
#include "platform/system_facts.h"

namespace corvane {

namespace {

constexpr std::size_t mostBytes = 1024UL * 1024;

// Expands "14.2" to "14.2.0"; nullopt if the text is not a version.
std::optional<QString> threeNumbers(const QString &version)
{
    QStringList numbers = version.split(QLatin1Char('.'));
    const bool allNumbers = std::ranges::all_of(numbers, [](const QString &number) {
        bool isNumber = false;
        static_cast<void>(number.toUShort(&isNumber));
        return isNumber;
    });
    if (!allNumbers || numbers.size() > 3)
        return std::nullopt;
    while (numbers.size() < 3)
        numbers.append(QStringLiteral("0"));
    return numbers.join(QLatin1Char('.'));
}

std::optional<QString> macVersion(FileSystem &files)
{
    const Expected<std::string> bytes = files.readFile(std::string(macSystemFile), mostBytes);
    const std::optional<PropertyList> list = bytes ? PropertyList::parse(*bytes) : std::nullopt;
    const PropertyList *version = list ? list->find("ProductVersion") : nullptr;
    const std::string *text = version != nullptr ? version->string() : nullptr;
    return text != nullptr ? threeNumbers(QString::fromStdString(*text)) : std::nullopt;
}

} // namespace

QUrl AppInfo::pageOf(QUrl site, const QString &path)
{
    const QString folder = site.path();
    site.setPath(folder.endsWith(QLatin1Char('/')) ? folder + path : folder + QLatin1Char('/') + path);
    return site;
}

QUrl AppInfo::site()
{
    return pageOf(QUrl(QStringLiteral(CORVANE_SITE)), {});
}

QUrl AppInfo::feedbackPage()
{
    QUrl page = site();
    page.setFragment(QStringLiteral("feedback"));
    return page;
}

QUrl AppInfo::privacyPage()
{
    return pageOf(site(), QStringLiteral("privacy.html"));
}

QString AppInfo::version()
{
    return QStringLiteral(CORVANE_VERSION);
}

QString AppInfo::build()
{
    return QStringLiteral(CORVANE_BUILD);
}

QString AppInfo::macOS(FileSystem &files)
{
    if (files.systemKind() == SystemKind::mac) {
        if (std::optional<QString> version = macVersion(files))
            return *std::move(version);
    }
    return displayText(SystemFacts::system(files));
}

QString AppInfo::model(FileSystem &files)
{
    return displayText(SystemFacts::model(files));
}

QString AppInfo::arch(FileSystem &files)
{
    const std::string architecture = SystemFacts::architecture();
    // Linux uses another name for this architecture, even when run on a Mac-shaped root.
    if (files.systemKind() == SystemKind::mac && (architecture == "arm64" || architecture == "aarch64"))
        return QStringLiteral("Apple Silicon");
    return displayText(architecture);
}

QJsonObject AppInfo::system(FileSystem &files)
{
    return {
        {QStringLiteral("appVersion"), version()},
        {QStringLiteral("build"), build()},
        {QStringLiteral("macOS"), macOS(files)},
        {QStringLiteral("model"), model(files)},
        {QStringLiteral("arch"), arch(files)},
        {QStringLiteral("locale"), QLocale::system().name()},
        {QStringLiteral("fullDiskAccess"),
         PathGuard::probeFullDiskAccess(files) ? QStringLiteral("true") : QStringLiteral("false")},
    };
}

} // namespace corvane
