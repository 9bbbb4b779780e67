#include "shell/ui/window/help_presenter.h"

#include <gmock/gmock.h>

#include "shell/app_info.h"
#include "shell/store_with_films.h"

namespace corvane {
namespace {

using testing::ElementsAre;

struct HelpCommands : testing::Test, StoreWithFilms {
    const std::string site = AppInfo::site().toString().toStdString();

    HelpPresenter presenter{store};
};

TEST_F(HelpCommands, OpenTheWebsite)
{
    presenter.openWebsite();
    EXPECT_THAT(fake.log->linesStartingWith("openUrl"), ElementsAre("openUrl " + site));
    EXPECT_FALSE(store.toast().has_value());
}

TEST_F(HelpCommands, OpenThePrivacyPolicy)
{
    presenter.openPrivacyPolicy();
    EXPECT_THAT(fake.log->linesStartingWith("openUrl"), ElementsAre("openUrl " + site + "privacy.html"));
}

TEST_F(HelpCommands, SayThatThereIsNoBrowser)
{
    fake.desktop.fail(site, "no browser");
    presenter.openWebsite();
    EXPECT_EQ(store.toast(), "Can't open " + site + ": no browser");
    EXPECT_TRUE(store.toastIsWarning());
}

} // namespace
} // namespace corvane
