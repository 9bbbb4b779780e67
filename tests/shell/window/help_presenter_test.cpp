#include "shell/ui/window/help_presenter.h"

#include <gmock/gmock.h>

#include "shell/app_info.h"
#include "shell/window/fake_store.h"

namespace corvane {
namespace {

using testing::ElementsAre;

struct HelpCommands : testing::Test {
    const std::string site = AppInfo::site().toString().toStdString();

    FakeStore fake;
    HelpPresenter presenter{fake.store};
};

TEST_F(HelpCommands, OpenTheWebsite)
{
    presenter.openWebsite();
    EXPECT_THAT(fake.fake.log->linesStartingWith("openUrl"), ElementsAre("openUrl " + site));
    EXPECT_FALSE(fake.store.toast().has_value());
}

TEST_F(HelpCommands, OpenThePrivacyPolicy)
{
    presenter.openPrivacyPolicy();
    EXPECT_THAT(fake.fake.log->linesStartingWith("openUrl"), ElementsAre("openUrl " + site + "privacy.html"));
}

TEST_F(HelpCommands, SayThatThereIsNoBrowser)
{
    fake.fake.desktop.fail(site, "no browser");
    presenter.openWebsite();
    EXPECT_EQ(fake.store.toast(), "Can't open " + site + ": no browser");
    EXPECT_TRUE(fake.store.toastIsWarning());
}

} // namespace
} // namespace corvane
