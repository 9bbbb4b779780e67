#include "platform/environment.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace corvane {
namespace {

/// What the account database answers while a test sets it.
struct MadeUpAccounts {
    bool areUsed = false;
    bool exist = true;
    std::size_t recordSize = 0; ///< bytes that a caller must provide
    int interruptions = 0;      ///< calls that a signal interrupts first
};
MadeUpAccounts accounts;

int answer(passwd *record, char *memory, std::size_t size, passwd **found)
{
    static constexpr char home[] = "/home/of/the/account";
    *found = nullptr;
    if (accounts.interruptions > 0) {
        --accounts.interruptions;
        return EINTR;
    }
    if (!accounts.exist)
        return 0;
    if (size < accounts.recordSize || size < sizeof home)
        return ERANGE;
    record->pw_name = record->pw_dir = static_cast<char *>(std::memcpy(memory, home, sizeof home));
    *found = record;
    return 0;
}

} // namespace
} // namespace corvane

/// Takes the place of the system's function in this program.
extern "C" int getpwuid_r(uid_t user, passwd *record, char *memory, std::size_t size, passwd **found)
{
    if (corvane::accounts.areUsed)
        return corvane::answer(record, memory, size, found);
    static void *const real = ::dlsym(RTLD_NEXT, "getpwuid_r");
    return reinterpret_cast<decltype(&::getpwuid_r)>(real)(user, record, memory, size, found); // NOLINT
}

namespace corvane {
namespace {

/// Restores the variables that a test changes.
class EnvironmentTest : public testing::Test {
protected:
    EnvironmentTest()
    {
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (const char *const value = std::getenv(names[i]))
                m_before[i] = value;
        }
    }
    ~EnvironmentTest() override
    {
        accounts = {};
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (m_before[i])
                ::setenv(names[i], m_before[i]->c_str(), 1);
            else
                ::unsetenv(names[i]);
        }
    }

    static std::string value(const char *name)
    {
        const char *const found = std::getenv(name);
        return found != nullptr ? found : "(none)";
    }

private:
    static constexpr std::array names{"HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_DIRS"};
    std::array<std::optional<std::string>, names.size()> m_before;
};

TEST_F(EnvironmentTest, AHomeThatIsAbsoluteOrNotSetIsFine)
{
    ::setenv("HOME", "/some/where", 1);
    EXPECT_EQ(Environment::homeComplaint(), std::nullopt);
    ::unsetenv("HOME");
    EXPECT_EQ(Environment::homeComplaint(), std::nullopt);
}

TEST_F(EnvironmentTest, AHomeThatIsRelativeOrEmptyIsNamed)
{
    ::setenv("HOME", "some/where", 1);
    EXPECT_EQ(Environment::homeComplaint(), "HOME is \"some/where\"; it must be an absolute path");
    ::setenv("HOME", "", 1);
    EXPECT_EQ(Environment::homeComplaint(), "HOME is empty; it must be an absolute path");
}

TEST_F(EnvironmentTest, TheAccountsHomeDoesNotFollowTheVariable)
{
    ::setenv("HOME", "/some/where", 1);
    EXPECT_TRUE(Environment::accountHome().starts_with('/'));
    EXPECT_NE(Environment::accountHome(), "/some/where");
    Environment::useAccountHome();
    EXPECT_EQ(value("HOME"), Environment::accountHome());
}

TEST_F(EnvironmentTest, AnAccountWithALongRecordHasItsHome)
{
    accounts = {.areUsed = true, .recordSize = 1'000'000};
    EXPECT_EQ(Environment::accountHome(), "/home/of/the/account");
    EXPECT_EQ(Environment::accountName(::getuid()), "/home/of/the/account");
}

TEST_F(EnvironmentTest, AnInterruptedLookUpOfTheAccountIsRepeated)
{
    accounts = {.areUsed = true, .interruptions = 2};
    EXPECT_EQ(Environment::accountHome(), "/home/of/the/account");
}

TEST_F(EnvironmentTest, AnEndlessAccountRecordAndAMissingAccountGiveTheRootFolder)
{
    accounts = {.areUsed = true, .recordSize = static_cast<std::size_t>(-1)};
    EXPECT_EQ(Environment::accountHome(), "/");
    EXPECT_EQ(Environment::accountName(::getuid()), std::nullopt);
    accounts = {.areUsed = true, .exist = false};
    EXPECT_EQ(Environment::accountHome(), "/");
    EXPECT_EQ(Environment::accountName(::getuid()), std::nullopt);
}

TEST_F(EnvironmentTest, RelativeBaseFoldersAreIgnored)
{
    ::setenv("XDG_DATA_HOME", "data", 1);
    ::setenv("XDG_CACHE_HOME", "/cache", 1);
    ::setenv("XDG_DATA_DIRS", "/usr/share:share::/usr/local/share", 1);
    ::setenv("XDG_CONFIG_DIRS", "etc:./xdg", 1);
    Environment::ignoreRelativeBaseFolders();
    EXPECT_EQ(value("XDG_DATA_HOME"), "(none)");
    EXPECT_EQ(value("XDG_CACHE_HOME"), "/cache");
    EXPECT_EQ(value("XDG_DATA_DIRS"), "/usr/share:/usr/local/share");
    EXPECT_EQ(value("XDG_CONFIG_DIRS"), "(none)");
}

} // namespace
} // namespace corvane
