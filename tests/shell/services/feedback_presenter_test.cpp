#include "shell/ui/services/feedback_presenter.h"

#include <gmock/gmock.h>

#include <QJsonDocument>
#include <QSignalSpy>
#include <QtTest/QTest>

#include "shell/app_info.h"
#include "shell/services/services_over_a_store.h"

namespace corvane {
namespace {

class FeedbackTest : public testing::Test {
protected:
    FeedbackTest() { program.store.setShowFeedback(true); }

    void sendAndWait()
    {
        presenter.send();
        ASSERT_TRUE(presenter.isSending());
        ASSERT_TRUE(QTest::qWaitFor([&] { return !presenter.isSending(); }));
    }
    [[nodiscard]] QJsonObject posted() const
    {
        return QJsonDocument::fromJson(program.server.requests().back().body).object();
    }

    ServicesOverAStore program;
    FeedbackPresenter presenter{program.store, program.services};
};

TEST_F(FeedbackTest, StartsAsAnIdeaWithTheFactsAboutTheMachine)
{
    EXPECT_EQ(presenter.category(), QStringLiteral("idea"));
    EXPECT_TRUE(presenter.includesInfo());
    EXPECT_FALSE(presenter.isSending());
    EXPECT_FALSE(presenter.isSent());
    EXPECT_TRUE(presenter.errorText().isEmpty());
}

TEST_F(FeedbackTest, HasThreeCategoriesWithTheirTags)
{
    EXPECT_EQ(FeedbackPresenter::categories(),
              QStringList({QStringLiteral("💡 Idea"), QStringLiteral("🐞 Bug"), QStringLiteral("💬 Other")}));
    presenter.setCategoryIndex(1);
    EXPECT_EQ(presenter.category(), QStringLiteral("bug"));
    EXPECT_FALSE(presenter.messageHint().isEmpty());
    presenter.setCategoryIndex(2);
    EXPECT_EQ(presenter.category(), QStringLiteral("other"));
    for (const int none : {-1, 3}) {
        presenter.setCategoryIndex(none);
        EXPECT_EQ(presenter.category(), QStringLiteral("other"));
    }
}

TEST_F(FeedbackTest, AMessageOfOnlySpacesCannotBeSent)
{
    for (const char *message : {"", "   ", "\n\t \n"}) {
        presenter.setMessage(QString::fromLatin1(message));
        EXPECT_FALSE(presenter.canSend());
        presenter.send();
        EXPECT_FALSE(presenter.isSending());
    }
    presenter.setMessage(QStringLiteral(" x "));
    EXPECT_TRUE(presenter.canSend());
    EXPECT_EQ(program.server.connections(), 0);
}

TEST_F(FeedbackTest, PostsWhatWasWrittenWithoutTheSpaceAroundIt)
{
    presenter.setCategoryIndex(1);
    presenter.setMessage(QStringLiteral("\n  It hangs.\n\nOften. \n"));
    presenter.setEmail(QStringLiteral("  ada@example.org\n"));
    sendAndWait();

    ASSERT_EQ(program.server.requests().size(), 1u);
    EXPECT_EQ(program.server.requests()[0].method, "POST");
    EXPECT_EQ(program.server.requests()[0].path, "/api/feedback");
    const QJsonObject expected{{QStringLiteral("message"), QStringLiteral("It hangs.\n\nOften.")},
                               {QStringLiteral("email"), QStringLiteral("ada@example.org")},
                               {QStringLiteral("category"), QStringLiteral("bug")},
                               {QStringLiteral("source"), QStringLiteral("app")},
                               {QStringLiteral("info"), AppInfo::system(program.fake.files)}};
    EXPECT_EQ(posted(), expected);
    EXPECT_TRUE(presenter.isSent());
    EXPECT_EQ(presenter.thanksText(), QStringLiteral("We'll reply to ada@example.org"));
}

TEST_F(FeedbackTest, WithTheToggleOffTheBodyHasNoInfoAtAll)
{
    presenter.setMessage(QStringLiteral("x"));
    presenter.setIncludeInfo(false);
    sendAndWait();
    const QJsonObject expected{{QStringLiteral("message"), QStringLiteral("x")},
                               {QStringLiteral("email"), QString()},
                               {QStringLiteral("category"), QStringLiteral("idea")},
                               {QStringLiteral("source"), QStringLiteral("app")}};
    EXPECT_EQ(posted(), expected);
    EXPECT_TRUE(presenter.thanksText().isEmpty()) << "nobody is told of a reply who left no address";
}

TEST_F(FeedbackTest, IsSentOnceHoweverOftenTheButtonIsPressed)
{
    presenter.setMessage(QStringLiteral("x"));
    presenter.send();
    EXPECT_FALSE(presenter.canSend());
    presenter.send();
    ASSERT_TRUE(QTest::qWaitFor([&] { return presenter.isSent(); }));
    presenter.send();
    QTest::qWait(20);
    EXPECT_EQ(program.server.requests().size(), 1u);
}

TEST_F(FeedbackTest, AFailureIsShownAndTheTextIsKept)
{
    program.server.answerAll({.status = 500, .body = R"({"error": "The inbox is full."})"});
    presenter.setMessage(QStringLiteral("A way to compare two scans"));
    presenter.setEmail(QStringLiteral("ada@example.org"));
    sendAndWait();
    EXPECT_EQ(presenter.errorText(), QStringLiteral("The inbox is full."));
    EXPECT_FALSE(presenter.isSent());
    EXPECT_EQ(presenter.message(), QStringLiteral("A way to compare two scans"));
    EXPECT_EQ(presenter.email(), QStringLiteral("ada@example.org"));
    EXPECT_FALSE(program.store.toast().has_value()) << "the form tells it";

    program.server.answerAll({.status = 200});
    ASSERT_TRUE(presenter.canSend());
    presenter.send();
    EXPECT_TRUE(presenter.errorText().isEmpty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return presenter.isSent(); }));
}

TEST_F(FeedbackTest, ClosesTheFormInTheStore)
{
    EXPECT_TRUE(presenter.isWanted());
    presenter.close();
    EXPECT_FALSE(program.store.showFeedback());
    EXPECT_FALSE(presenter.isWanted());
}

TEST_F(FeedbackTest, WhatWasWrittenIsThereWhenTheFormIsOpenedAgain)
{
    program.server.answerAll({.status = 500});
    presenter.setMessage(QStringLiteral("half a thought"));
    sendAndWait();
    EXPECT_EQ(presenter.errorText(), QStringLiteral("The server had a problem (500)."));
    presenter.close();
    program.store.setShowFeedback(true);
    EXPECT_EQ(presenter.message(), QStringLiteral("half a thought"));
    EXPECT_TRUE(presenter.errorText().isEmpty()) << "it has been read";
}

TEST_F(FeedbackTest, AfterItWasSentTheNextFormIsEmpty)
{
    presenter.setCategoryIndex(2);
    presenter.setMessage(QStringLiteral("x"));
    presenter.setEmail(QStringLiteral("ada@example.org"));
    presenter.setIncludeInfo(false);
    sendAndWait();
    presenter.close();
    EXPECT_TRUE(presenter.isSent()) << "nothing changes while the sheet fades";
    program.store.setShowFeedback(true);
    EXPECT_FALSE(presenter.isSent());
    EXPECT_EQ(presenter.category(), QStringLiteral("idea"));
    EXPECT_TRUE(presenter.message().isEmpty());
    EXPECT_TRUE(presenter.email().isEmpty());
    EXPECT_TRUE(presenter.includesInfo());
}

TEST_F(FeedbackTest, AFormThatIsClosedWhileItIsSentIsConfirmedByTheToast)
{
    presenter.setMessage(QStringLiteral("x"));
    presenter.send();
    presenter.close();
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.store.toast().has_value(); }));
    EXPECT_EQ(program.store.toast(), "Feedback sent. Thank you!");
    EXPECT_FALSE(program.store.toastIsWarning());
    program.store.setShowFeedback(true);
    EXPECT_FALSE(presenter.isSent());
    EXPECT_TRUE(presenter.message().isEmpty());
}

TEST_F(FeedbackTest, AFailureAfterTheFormWasClosedIsShownInTheToastAndTheForm)
{
    program.server.answerAll({.ending = LoopbackAnswer::Ending::closed});
    presenter.setMessage(QStringLiteral("x"));
    presenter.send();
    presenter.close();
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.store.toast().has_value(); }));
    EXPECT_EQ(program.store.toast(), "Feedback not sent: Couldn't reach the server. Check your internet connection.");
    EXPECT_TRUE(program.store.toastIsWarning());
    program.store.setShowFeedback(true);
    EXPECT_EQ(presenter.message(), QStringLiteral("x"));
    EXPECT_EQ(presenter.errorText(), QStringLiteral("Couldn't reach the server. Check your internet connection."));
    EXPECT_TRUE(presenter.canSend());
}

TEST_F(FeedbackTest, AFormThatIsGoneReceivesNothing)
{
    {
        FeedbackPresenter shortLived(program.store, program.services);
        shortLived.setMessage(QStringLiteral("x"));
        shortLived.send();
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return !program.server.requests().empty(); }));
    QTest::qWait(20);
}

TEST_F(FeedbackTest, SaysWhatItWouldSendInTheWordsOfTheSystem)
{
    EXPECT_EQ(presenter.infoText(), QStringLiteral("Include app and system versions and computer model"));
    program.becomeMac();
    EXPECT_EQ(presenter.infoText(), QStringLiteral("Include app version, macOS version and Mac model"));
}

} // namespace
} // namespace corvane
