#include "platform/linux/linux_desktop.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>

#include <sys/stat.h>
#include <syslog.h>

#include "platform/failure.h"
#include "platform/linux/gio_error.h"
#include "platform/path.h"
#include "platform/text.h"

namespace corvane {

namespace {

void writeToLog(std::string_view message)
{
    // Use the system's log, since stderr of a program started from the desktop may go nowhere. Most logs escape line
    // breaks, so write one line at a time.
    while (!message.empty()) {
        const std::string_view line = takeLine(message);
        ::syslog(LOG_USER | LOG_NOTICE, "%.*s", static_cast<int>(line.size()), line.data());
    }
}

/// Asks the file manager to show the item, selected.
Expected<void> showItem(const std::string &path, const std::string &uri, GCancellable *cancel)
{
    GError *failure = nullptr;
    const GObjectPointer<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancel, &failure));
    if (bus) {
        GVariantBuilder uris;
        g_variant_builder_init(&uris, G_VARIANT_TYPE("as"));
        g_variant_builder_add(&uris, "s", uri.c_str());
        constexpr int longestStart = 10'000; // milliseconds: the file manager may have to be started first
        const GVariantPointer answer(
            g_dbus_connection_call_sync(bus.get(), "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                                        "org.freedesktop.FileManager1", "ShowItems", g_variant_new("(ass)", &uris, ""),
                                        nullptr, G_DBUS_CALL_FLAGS_NONE, longestStart, cancel, &failure));
        if (answer)
            return {};
    }
    const GErrorPointer owner(failure);
    return tl::unexpected(gioError("reveal", path, *failure));
}

Expected<void> openWithDefault(const std::string &operation, const std::string &path, const std::string &uri)
{
    GError *failure = nullptr;
    if (g_app_info_launch_default_for_uri(uri.c_str(), nullptr, &failure))
        return {};
    const GErrorPointer owner(failure);
    return tl::unexpected(gioError(operation, path, *failure));
}

Expected<std::string> uriOf(const std::string &path)
{
    GError *error = nullptr;
    const GStringPointer uri(g_filename_to_uri(path.c_str(), nullptr, &error));
    if (uri)
        return std::string(uri.get());
    const GErrorPointer owner(error);
    return failure("reveal", path, EINVAL, error->message);
}

bool isThisProgram(GAppInfo *app)
{
    const char *const program = g_app_info_get_executable(app);
    return program != nullptr && lastPathComponent(program) == "corvane";
}

/// Opens a folder in the default program, or in another one if this program is the default.
Expected<void> openFolder(const std::string &path, const std::string &uri)
{
    constexpr const char *folderType = "inode/directory";
    const GObjectPointer<GAppInfo> usual(g_app_info_get_default_for_type(folderType, FALSE));
    if (!usual || !isThisProgram(usual.get()))
        return openWithDefault("open", path, uri);
    GList *const apps = g_app_info_get_all_for_type(folderType);
    Expected<void> opened = failure("open", path, ENOTSUP);
    for (const GList *each = apps; each != nullptr && !opened; each = each->next) {
        auto *const app = static_cast<GAppInfo *>(each->data);
        if (isThisProgram(app))
            continue;
        GList uris{const_cast<char *>(uri.c_str()), nullptr, nullptr}; // only read
        if (g_app_info_launch_uris(app, &uris, nullptr, nullptr))
            opened = {};
    }
    g_list_free_full(apps, g_object_unref);
    return opened;
}

struct Reveal {
    std::string path;
    std::string uri;
    Desktop::FailureHandler failed;
};

void perform(gpointer data, gpointer userData)
{
    const std::unique_ptr<Reveal> request(static_cast<Reveal *>(data));
    auto *const cancel = static_cast<GCancellable *>(userData);
    if (showItem(request->path, request->uri, cancel) || g_cancellable_is_cancelled(cancel))
        return;
    const std::string folder = request->uri.substr(0, std::max<std::size_t>(request->uri.rfind('/'), sizeof "file://"));
    const auto opened = openFolder(request->path, folder);
    if (opened)
        return;
    writeToLog("Could not show " + request->uri + ": " + opened.error().description());
    if (request->failed)
        request->failed(Error{"reveal", request->path, opened.error().code, "no file manager is available"});
}

/// Whether animations are disabled in a desktop that stores its settings in GSettings.
bool settingsForbidAnimations()
{
    // Look it up first: GSettings aborts the program for a schema that is not installed.
    GSettingsSchemaSource *const source = g_settings_schema_source_get_default();
    if (source == nullptr)
        return false;
    constexpr const char *key = "enable-animations";
    const GSchemaPointer schema(g_settings_schema_source_lookup(source, "org.gnome.desktop.interface", TRUE));
    if (!schema || !g_settings_schema_has_key(schema.get(), key))
        return false;
    const GObjectPointer<GSettings> settings(g_settings_new_full(schema.get(), nullptr, nullptr));
    return !g_settings_get_boolean(settings.get(), key);
}

/// The same for Plasma, which stores an animation duration factor in a file.
bool plasmaForbidsAnimations()
{
    const GKeyFilePointer file(g_key_file_new());
    const std::string path = std::string(g_get_user_config_dir()) + "/kdeglobals";
    // Reading a pipe or a device might block forever.
    if (g_file_test(path.c_str(), G_FILE_TEST_IS_REGULAR) == FALSE)
        return false;
    if (!g_key_file_load_from_file(file.get(), path.c_str(), G_KEY_FILE_NONE, nullptr))
        return false;
    GError *failure = nullptr;
    const double factor = g_key_file_get_double(file.get(), "KDE", "AnimationDurationFactor", &failure);
    const GErrorPointer owner(failure);
    return failure == nullptr && factor <= 0;
}

} // namespace

LinuxDesktop::~LinuxDesktop()
{
    g_cancellable_cancel(m_cancel.get());
    if (m_reveals != nullptr)
        g_thread_pool_free(m_reveals, FALSE, TRUE);
}

Expected<void> LinuxDesktop::reveal(const std::string &path, FailureHandler failed)
{
    struct stat facts {};
    if (::lstat(path.c_str(), &facts) != 0)
        return failure("reveal", path, errno);
    return uriOf(path).map([&](std::string uri) {
        if (m_reveals == nullptr)
            m_reveals = g_thread_pool_new(perform, m_cancel.get(), 1, FALSE, nullptr);
        g_thread_pool_push(
            m_reveals, std::make_unique<Reveal>(Reveal{path, std::move(uri), std::move(failed)}).release(), nullptr);
    });
}

Expected<void> LinuxDesktop::openUrl(const std::string &url)
{
    return openWithDefault("open", url, url);
}

void LinuxDesktop::log(std::string_view message)
{
    writeToLog(message);
}

bool LinuxDesktop::prefersReducedMotion()
{
    return settingsForbidAnimations() || plasmaForbidsAnimations();
}

} // namespace corvane
