#include "shell/updates/newest_update.h"

#include <QSysInfo>

namespace corvane {

namespace {

bool isFor(const AppcastItem &item, const UpdateSystem &system)
{
    return item.system.isEmpty() || item.system == system.name ||
           item.system == system.name + QLatin1Char('-') + system.architecture;
}

bool runsOn(const AppcastItem &item, const UpdateSystem &system)
{
    return !item.minimumSystem || !system.version || *item.minimumSystem <= *system.version;
}

void keepNewer(const AppcastItem *&newest, const AppcastItem &item)
{
    if (newest == nullptr || item.build > newest->build)
        newest = &item;
}

} // namespace

UpdateSystem UpdateSystem::ofThisMachine()
{
#ifdef Q_OS_MACOS
    return {QStringLiteral("macos"), QSysInfo::currentCpuArchitecture(),
            DottedVersion::leading(QSysInfo::productVersion())};
#else
    return {QStringLiteral("linux"), QSysInfo::currentCpuArchitecture(),
            DottedVersion::leading(QSysInfo::kernelVersion())};
#endif
}

tl::expected<std::optional<AppcastItem>, UpdateFailure> newestUpdate(const std::vector<AppcastItem> &items,
                                                                     const DottedVersion &running,
                                                                     const UpdateSystem &system)
{
    using Kind = UpdateFailure::Kind;
    const AppcastItem *newest = nullptr;
    const AppcastItem *newestThatRuns = nullptr;
    for (const AppcastItem &item : items) {
        if (!isFor(item, system))
            continue;
        keepNewer(newest, item);
        if (runsOn(item, system))
            keepNewer(newestThatRuns, item);
    }
    if (newest == nullptr)
        return tl::unexpected(UpdateFailure{Kind::nothingForSystem});
    if (newestThatRuns == nullptr || (newestThatRuns->build <= running && newest->build > running))
        return tl::unexpected(UpdateFailure{Kind::newerSystemNeeded, newest->minimumSystemText});
    if (newestThatRuns->build < running)
        return tl::unexpected(UpdateFailure{Kind::onlyOlder, newestThatRuns->version});
    if (newestThatRuns->build == running)
        return std::nullopt;
    if (newestThatRuns->download.scheme() != QLatin1String("https"))
        return tl::unexpected(UpdateFailure{Kind::insecureDownload});
    if (newestThatRuns->signature.isEmpty())
        return tl::unexpected(UpdateFailure{Kind::notSigned});
    return *newestThatRuns;
}

} // namespace corvane
