// Revealing and opening run in this process, with a private session bus and fake programs; state that GLib keeps for
// the whole life of a process (log, animation settings) is tested through the probe.

#include "platform/linux/linux_desktop.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <mutex>
#include <optional>
#include <sstream>
#include <thread>

#include <gio/gdesktopappinfo.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include "platform/file_descriptor.h"
#include "platform/linux/probe_home.h"
#include "support/patience.h"

namespace corvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

template <typename Condition>
bool waitFor(Condition condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(patience);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

std::vector<std::string> linesOf(const std::string &path)
{
    std::vector<std::string> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

/// A session bus and a folder that declares the opener programs. GLib reads the variables once, so there is one session
/// for the whole run.
class Session : public ::testing::Environment {
public:
    static Session &instance() { return *s_instance; }

    void SetUp() override
    {
        s_instance = this;
        m_folder.emplace();
        m_record = *m_folder / "opened";
        m_opener = script("opener", "printf '%s\\n' \"$1\" >> '" + m_record + "'");
        m_folder->writeText("data/applications/opener.desktop",
                            "[Desktop Entry]\nType=Application\nName=Opener\nNoDisplay=true\n"
                            "MimeType=inode/directory;x-scheme-handler/corvane-test;\nExec=" +
                                m_opener + " %u\n");
        m_folder->writeText("data/applications/corvane.desktop",
                            "[Desktop Entry]\nType=Application\nName=Corvane\nMimeType=inode/directory;\nExec=" +
                                script("corvane", "printf 'corvane %s\\n' \"$1\" >> '" + m_record + "'") + " %f\n");
        m_folder->writeText("data/applications/mimeinfo.cache",
                            "[MIME Cache]\ninode/directory=corvane.desktop;opener.desktop;\n");
        m_folder->writeText("config/mimeapps.list", "[Default Applications]\ninode/directory=opener.desktop\n"
                                                    "x-scheme-handler/corvane-test=opener.desktop\n");
        ::setenv("HOME", m_folder->path().c_str(), 1);
        ::setenv("XDG_DATA_HOME", (*m_folder / "data").c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (*m_folder / "config").c_str(), 1);
        ::setenv("XDG_CONFIG_DIRS", (*m_folder / "config").c_str(), 1);
        ::unsetenv("DISPLAY");
        ::unsetenv("WAYLAND_DISPLAY");
        if (!GStringPointer(g_find_program_in_path("dbus-daemon")))
            return;
        m_bus = g_test_dbus_new(G_TEST_DBUS_NONE);
        g_test_dbus_up(m_bus);
    }

    void TearDown() override
    {
        if (m_bus != nullptr) {
            g_test_dbus_stop(m_bus);
            g_object_unref(m_bus);
        }
        m_folder.reset();
    }

    [[nodiscard]] bool hasBus() const { return m_bus != nullptr; }
    [[nodiscard]] std::string busAddress() const { return g_test_dbus_get_bus_address(m_bus); }
    [[nodiscard]] const TemporaryFolder &folder() const { return *m_folder; }

    /// Returns and clears the URLs passed to the opener.
    [[nodiscard]] std::vector<std::string> takeOpened() const
    {
        std::vector<std::string> lines = linesOf(m_record);
        std::filesystem::remove(m_record);
        return lines;
    }

    /// Makes the opener impossible to start, while this object lives.
    class WithoutOpener {
    public:
        WithoutOpener() { std::filesystem::rename(instance().m_opener, instance().m_opener + "-away"); }
        WithoutOpener(const WithoutOpener &) = delete;
        WithoutOpener &operator=(const WithoutOpener &) = delete;
        ~WithoutOpener() { std::filesystem::rename(instance().m_opener + "-away", instance().m_opener); }
    };

    /// Makes a program with Corvane's name the default for folders, while this object lives.
    class CorvaneAsFileManager {
    public:
        CorvaneAsFileManager() { choose("corvane.desktop"); }
        CorvaneAsFileManager(const CorvaneAsFileManager &) = delete;
        CorvaneAsFileManager &operator=(const CorvaneAsFileManager &) = delete;
        ~CorvaneAsFileManager() { choose("opener.desktop"); }

    private:
        static void choose(const char *entry)
        {
            const GObjectPointer<GDesktopAppInfo> app(g_desktop_app_info_new(entry));
            g_app_info_set_as_default_for_type(G_APP_INFO(app.get()), "inode/directory", nullptr);
        }
    };

    [[nodiscard]] bool somethingWasOpened() const { return !linesOf(m_record).empty(); }

private:
    std::string script(const std::string &name, const std::string &line) const
    {
        std::string path = m_folder->writeText(name, "#!/bin/sh\n" + line + "\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }

    std::optional<TemporaryFolder> m_folder;
    std::string m_record;
    std::string m_opener;
    inline static Session *s_instance = nullptr;
    GTestDBus *m_bus = nullptr;
};

[[maybe_unused]] const ::testing::Environment *const session = ::testing::AddGlobalTestEnvironment(new Session);

/// A fake file manager on the bus, while this object lives.
class FileManager {
public:
    enum class Manner { answers, refuses };

    explicit FileManager(Manner manner) : m_manner(manner)
    {
        m_thread = std::thread([this] { serve(); });
        EXPECT_TRUE(waitFor([this] { return m_ready.load(); }));
    }

    ~FileManager()
    {
        g_main_loop_quit(m_loop);
        m_thread.join();
        g_main_loop_unref(m_loop);
        g_main_context_unref(m_context);
    }

    /// The URLs of each request, in order.
    [[nodiscard]] std::vector<std::string> shown() const
    {
        const std::lock_guard lock(m_mutex);
        return m_shown;
    }

private:
    void serve()
    {
        g_main_context_push_thread_default(m_context);
        constexpr auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                                 G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        const GObjectPointer<GDBusConnection> bus(g_dbus_connection_new_for_address_sync(
            Session::instance().busAddress().c_str(), flags, nullptr, nullptr, nullptr));
        GDBusNodeInfo *const description = g_dbus_node_info_new_for_xml(
            "<node><interface name='org.freedesktop.FileManager1'><method name='ShowItems'>"
            "<arg type='as' direction='in'/><arg type='s' direction='in'/></method></interface></node>",
            nullptr);
        static constexpr GDBusInterfaceVTable table{
            .method_call = &FileManager::answer, .get_property = nullptr, .set_property = nullptr, .padding = {}};
        g_dbus_connection_register_object(bus.get(), "/org/freedesktop/FileManager1", description->interfaces[0],
                                          &table, this, nullptr, nullptr);
        const GVariantPointer owned(g_dbus_connection_call_sync(
            bus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
            g_variant_new("(su)", "org.freedesktop.FileManager1", 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
            nullptr));
        EXPECT_TRUE(owned);
        m_ready = true;
        g_main_loop_run(m_loop);
        g_dbus_connection_close_sync(bus.get(), nullptr, nullptr);
        g_dbus_node_info_unref(description);
        g_main_context_pop_thread_default(m_context);
    }

    static void answer(GDBusConnection *, const gchar *, const gchar *, const gchar *, const gchar *,
                       GVariant *parameters, GDBusMethodInvocation *call, gpointer self)
    {
        auto &manager = *static_cast<FileManager *>(self);
        GVariantIter *uris = nullptr;
        const gchar *startup = nullptr;
        g_variant_get(parameters, "(as&s)", &uris, &startup);
        {
            const std::lock_guard lock(manager.m_mutex);
            const gchar *uri = nullptr;
            while (g_variant_iter_loop(uris, "&s", &uri))
                manager.m_shown.emplace_back(uri);
        }
        g_variant_iter_free(uris);
        if (manager.m_manner == Manner::answers)
            g_dbus_method_invocation_return_value(call, nullptr);
        else
            g_dbus_method_invocation_return_dbus_error(call, "org.example.Refused", "Not today.");
    }

    const Manner m_manner;
    GMainContext *const m_context = g_main_context_new();
    GMainLoop *const m_loop = g_main_loop_new(m_context, FALSE);
    std::atomic<bool> m_ready = false;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_shown; // guarded by m_mutex
    std::thread m_thread;
};

#define REQUIRE_BUS()                                                                                                  \
    if (!Session::instance().hasBus())                                                                                 \
    GTEST_SKIP() << "dbus-daemon is not installed"

TEST(LinuxDesktop, RevealedItemIsShownInTheFileManager)
{
    REQUIRE_BUS();
    const FileManager manager(FileManager::Manner::answers);
    LinuxDesktop desktop;
    const std::string item = Session::instance().folder().writeText("a 100%/\xff.txt", "");
    ASSERT_TRUE(desktop.reveal(item, {}));
    ASSERT_TRUE(waitFor([&] { return !manager.shown().empty(); }));
    EXPECT_THAT(manager.shown(), ElementsAre("file://" + Session::instance().folder().path() + "/a%20100%25/%FF.txt"));
    EXPECT_THAT(Session::instance().takeOpened(), IsEmpty());
}

TEST(LinuxDesktop, ItemsAreRevealedInTheOrderAskedFor)
{
    REQUIRE_BUS();
    const FileManager manager(FileManager::Manner::answers);
    LinuxDesktop desktop;
    std::vector<std::string> expected;
    for (const std::string name : {"1", "2", "3", "4"}) {
        ASSERT_TRUE(desktop.reveal(Session::instance().folder().writeText("order/" + name, ""), {}));
        expected.push_back("file://" + Session::instance().folder().path() + "/order/" + name);
    }
    ASSERT_TRUE(waitFor([&] { return manager.shown().size() == expected.size(); }));
    EXPECT_EQ(manager.shown(), expected);
}

TEST(LinuxDesktop, DanglingLinkCanBeRevealed)
{
    REQUIRE_BUS();
    const FileManager manager(FileManager::Manner::answers);
    LinuxDesktop desktop;
    const std::string link = Session::instance().folder().link("dangling", "/nowhere");
    ASSERT_TRUE(desktop.reveal(link, {}));
    ASSERT_TRUE(waitFor([&] { return !manager.shown().empty(); }));
    EXPECT_THAT(manager.shown(), ElementsAre("file://" + link));
}

TEST(LinuxDesktop, FolderOpensWhereNoFileManagerShowsItems)
{
    REQUIRE_BUS();
    LinuxDesktop desktop;
    ASSERT_TRUE(desktop.reveal(Session::instance().folder().writeText("holder/item", ""), {}));
    ASSERT_TRUE(waitFor([] { return Session::instance().somethingWasOpened(); }));
    EXPECT_THAT(Session::instance().takeOpened(), ElementsAre(Session::instance().folder() / "holder"));
}

TEST(LinuxDesktop, FolderOpensWhereTheFileManagerRefuses)
{
    REQUIRE_BUS();
    const FileManager manager(FileManager::Manner::refuses);
    LinuxDesktop desktop;
    ASSERT_TRUE(desktop.reveal(Session::instance().folder().writeText("refused/item", ""), {}));
    ASSERT_TRUE(waitFor([] { return Session::instance().somethingWasOpened(); }));
    EXPECT_THAT(Session::instance().takeOpened(), ElementsAre(Session::instance().folder() / "refused"));
    EXPECT_EQ(manager.shown().size(), 1U);
}

TEST(LinuxDesktop, FolderIsNotRevealedInThisProgramWhereThatOpensFolders)
{
    REQUIRE_BUS();
    const Session::CorvaneAsFileManager chosen;
    LinuxDesktop desktop;
    ASSERT_TRUE(desktop.reveal(Session::instance().folder().writeText("chosen/item", ""), {}));
    ASSERT_TRUE(waitFor([] { return Session::instance().somethingWasOpened(); }));
    EXPECT_THAT(Session::instance().takeOpened(), ElementsAre(Session::instance().folder() / "chosen"));
}

TEST(LinuxDesktop, ItemThatNothingCanShowIsReportedAsFailed)
{
    REQUIRE_BUS();
    const Session::WithoutOpener none;
    LinuxDesktop desktop;
    const std::string item = Session::instance().folder().writeText("nobody/item", "");
    std::atomic<bool> isDone = false;
    Error reported;
    ASSERT_TRUE(desktop.reveal(item, [&](const Error &error) {
        reported = error;
        isDone = true;
    }));
    ASSERT_TRUE(waitFor([&] { return isDone.load(); }));
    EXPECT_EQ(reported.path, item);
    EXPECT_EQ(reported.description(), "no file manager is available");
}

TEST(LinuxDesktop, MissingItemIsNotRevealed)
{
    LinuxDesktop desktop;
    const auto result = desktop.reveal(Session::instance().folder() / "none", {});
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, std::errc::no_such_file_or_directory);
}

TEST(LinuxDesktop, AddressOpensInTheProgramThatHandlesIt)
{
    LinuxDesktop desktop;
    const auto result = desktop.openUrl("corvane-test:page?a=b%20c");
    ASSERT_TRUE(result) << result.error().description();
    ASSERT_TRUE(waitFor([] { return Session::instance().somethingWasOpened(); }));
    EXPECT_THAT(Session::instance().takeOpened(), ElementsAre("corvane-test:page?a=b%20c"));
}

TEST(LinuxDesktop, AddressThatNothingHandlesFails)
{
    LinuxDesktop desktop;
    const auto result = desktop.openUrl("corvane-unknown:pane");
    ASSERT_FALSE(result);
    EXPECT_NE(result.error().description(), "");
    EXPECT_EQ(result.error().code, std::errc::not_supported);
}

TEST(LinuxDesktop, EachLineOfALogMessageGoesToTheSystemsLog)
{
    if (!ProbeHome::canSandbox())
        GTEST_SKIP() << "bwrap cannot make a sandbox here";
    const ProbeHome home;
    const std::string socketPath = home.folder / "log";
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    ASSERT_LT(socketPath.size(), sizeof address.sun_path);
    socketPath.copy(address.sun_path, socketPath.size());
    ASSERT_EQ(::bind(socket.number(), reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);

    (void)home.runSandboxed({"--dev", "/dev", "--ro-bind", socketPath, "/dev/log"},
                            "$probe log 'Removal failures:\na%s: \xff no'");
    std::vector<std::string> messages;
    std::string buffer(4096, '\0');
    for (ssize_t length = 0; (length = ::recv(socket.number(), buffer.data(), buffer.size(), 0)) > 0;)
        messages.push_back(buffer.substr(0, static_cast<std::size_t>(length)));
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_THAT(messages[0], ::testing::EndsWith("Removal failures:"));
    EXPECT_THAT(messages[1], ::testing::EndsWith("a%s: \xff no"));
    EXPECT_THAT(messages[0], StartsWith("<13>")); // user, notice
}

TEST(LinuxDesktop, MovementIsUsualWithoutASetting)
{
    ProbeHome home;
    home.setVariable("XDG_DATA_DIRS", home.folder.makeFolder("no-schemas"));
    EXPECT_EQ(home.ask("motion"), "as usual");
}

class LinuxDesktopSettings : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!GStringPointer(g_find_program_in_path("glib-compile-schemas")))
            GTEST_SKIP() << "glib-compile-schemas is not installed";
        m_home.setVariable("XDG_DATA_DIRS", m_home.folder.makeFolder("no-schemas"));
        m_home.setVariable("GSETTINGS_BACKEND", "keyfile");
    }

    void declareSchema(const std::string &key)
    {
        m_home.folder.writeText("schemas/test.gschema.xml",
                                "<schemalist><schema id='org.gnome.desktop.interface' "
                                "path='/org/gnome/desktop/interface/'><key name='" +
                                    key + "' type='b'><default>true</default></key></schema></schemalist>");
        const std::string command = "glib-compile-schemas '" + m_home.folder / "schemas" + "'";
        ASSERT_EQ(std::system(command.c_str()), 0);
        m_home.setVariable("GSETTINGS_SCHEMA_DIR", m_home.folder / "schemas");
    }

    void chooseAnimations(const std::string &value)
    {
        m_home.folder.writeText("home/config/glib-2.0/settings/keyfile",
                                "[org/gnome/desktop/interface]\nenable-animations=" + value + "\n");
    }

    ProbeHome m_home;
};

TEST_F(LinuxDesktopSettings, AnimationsSwitchedOffMeanLessMovement)
{
    declareSchema("enable-animations");
    chooseAnimations("false");
    EXPECT_EQ(m_home.ask("motion"), "less");
}

TEST_F(LinuxDesktopSettings, AnimationsSwitchedOnMeanUsualMovement)
{
    declareSchema("enable-animations");
    chooseAnimations("true");
    EXPECT_EQ(m_home.ask("motion"), "as usual");
}

TEST_F(LinuxDesktopSettings, SchemaWithoutTheKeyMeansUsualMovement)
{
    declareSchema("other-key");
    EXPECT_EQ(m_home.ask("motion"), "as usual");
}

TEST(LinuxDesktop, PlasmasFactorOfNoDurationMeansLessMovement)
{
    ProbeHome home;
    home.setVariable("XDG_DATA_DIRS", home.folder.makeFolder("no-schemas"));
    home.folder.writeText("home/config/kdeglobals", "[KDE]\nAnimationDurationFactor=0\n");
    EXPECT_EQ(home.ask("motion"), "less");
    home.folder.writeText("home/config/kdeglobals", "[KDE]\nAnimationDurationFactor=0.5\n");
    EXPECT_EQ(home.ask("motion"), "as usual");
    home.folder.writeText("home/config/kdeglobals", "[KDE]\nSingleClick=true\n");
    EXPECT_EQ(home.ask("motion"), "as usual");
}

TEST(LinuxDesktop, PlasmaSettingsThatAreAPipeAreNotRead)
{
    ProbeHome home;
    home.setVariable("XDG_DATA_DIRS", home.folder.makeFolder("no-schemas"));
    home.folder.makeFolder("home/config");
    ASSERT_EQ(::mkfifo((home.folder / "home/config/kdeglobals").c_str(), 0600), 0);
    EXPECT_EQ(home.ask("motion"), "as usual");
}

} // namespace
} // namespace corvane
