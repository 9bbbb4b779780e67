#include "main/start_environment.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include "platform/environment.h"

namespace corvane {
namespace {

/// Restores HOME.
class StartEnvironmentTest : public testing::Test {
protected:
    ~StartEnvironmentTest() override
    {
        if (m_before)
            ::setenv("HOME", m_before->c_str(), 1);
        else
            ::unsetenv("HOME");
    }

    static std::optional<std::string> home()
    {
        const char *const value = std::getenv("HOME");
        return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    }

private:
    const std::optional<std::string> m_before = home();
};

TEST_F(StartEnvironmentTest, ARelativeHomeIsRefusedWithOneLineAndTheAccountsIsUsed)
{
    ::setenv("HOME", "some/where", 1);
    EXPECT_EQ(settleEnvironment(),
              "HOME is \"some/where\"; it must be an absolute path — your account's home folder is used");
    EXPECT_EQ(home(), Environment::accountHome());
}

TEST_F(StartEnvironmentTest, AnEmptyHomeIsRefusedWithOneLineAndTheAccountsIsUsed)
{
    ::setenv("HOME", "", 1);
    EXPECT_EQ(settleEnvironment(), "HOME is empty; it must be an absolute path — your account's home folder is used");
    EXPECT_EQ(home(), Environment::accountHome());
}

TEST_F(StartEnvironmentTest, AnAbsoluteHomeStaysAsItIsWithoutAMessage)
{
    ::setenv("HOME", "/some/where", 1);
    EXPECT_EQ(settleEnvironment(), std::nullopt);
    EXPECT_EQ(home(), "/some/where");
}

} // namespace
} // namespace corvane
