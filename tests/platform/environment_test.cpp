#include "platform/environment.h"

#include <array>
#include <cstdlib>

#include <gtest/gtest.h>

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
