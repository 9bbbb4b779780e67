#include "main/folder_opener.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QFileOpenEvent>
#include <QUrl>

namespace corvane {
namespace {

using ::testing::ElementsAre;

/// The system passes files to the application as events.
class FolderOpenerTest : public testing::Test {
protected:
    FolderOpenerTest() { QCoreApplication::instance()->installEventFilter(&m_opener); }

    static void open(const QUrl &url)
    {
        QFileOpenEvent event(url);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &event);
    }

    std::vector<std::string> folders;

private:
    FolderOpener m_opener{[this](const StartRequest &request) { folders.push_back(request.folder); }};
};

TEST_F(FolderOpenerTest, EachItemThatTheSystemHandsOverIsARequest)
{
    open(QUrl::fromLocalFile(QStringLiteral("/Users/u/Movies")));
    open(QUrl::fromLocalFile(QStringLiteral("/Users/u/a b#c?d%41")));
    EXPECT_THAT(folders, ElementsAre("/Users/u/Movies", "/Users/u/a b#c?d%41"));
}

TEST_F(FolderOpenerTest, AFolderKeepsTheBytesOfItsName)
{
    open(QUrl::fromEncoded("file:///Users/u/odd%20%FF"));
    EXPECT_THAT(folders, ElementsAre("/Users/u/odd \xff"));
}

TEST_F(FolderOpenerTest, AnAddressThatIsNoFileIsNone)
{
    open(QUrl(QStringLiteral("https://example.com/Movies")));
    EXPECT_THAT(folders, ElementsAre());
}

TEST_F(FolderOpenerTest, OtherEventsGoOnToTheApplication)
{
    QEvent event(QEvent::ApplicationPaletteChange);
    FolderOpener opener([this](const StartRequest &request) { folders.push_back(request.folder); });
    EXPECT_FALSE(opener.eventFilter(QCoreApplication::instance(), &event));
    EXPECT_THAT(folders, ElementsAre());
}

} // namespace
} // namespace corvane
