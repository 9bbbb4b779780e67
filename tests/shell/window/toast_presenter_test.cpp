#include "shell/ui/window/toast_presenter.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QTest>

#include "shell/window/fake_store.h"

namespace corvane {
namespace {

struct Toast : testing::Test {
    Toast() { presenter.setStay(60, 5'000); }

    FakeStore fake;
    ToastPresenter presenter{fake.store};
};

TEST_F(Toast, ShowsWhatTheStoreSays)
{
    EXPECT_FALSE(presenter.isShown());
    fake.store.showToast("Moved 1 item (2 MB) to Trash");
    EXPECT_TRUE(presenter.isShown());
    EXPECT_FALSE(presenter.isWarning());
    EXPECT_EQ(presenter.text(), "Moved 1 item (2 MB) to Trash");
}

TEST_F(Toast, NamesThatAreNotTextStayOnOneLine)
{
    fake.store.showToast("a\nb\xff: refused", true);
    EXPECT_TRUE(presenter.isWarning());
    EXPECT_EQ(presenter.text(), QString::fromUtf8("a\xe2\x90\x8a"
                                                  "b\xef\xbf\xbd: refused"));
}

TEST_F(Toast, GoesByItselfAndKeepsItsTextWhileItFades)
{
    fake.store.showToast("Done");
    QTRY_VERIFY_WITH_TIMEOUT(!presenter.isShown(), 2'000);
    EXPECT_FALSE(presenter.isShown());
    EXPECT_FALSE(fake.store.toast().has_value());
    EXPECT_EQ(presenter.text(), "Done");
}

TEST_F(Toast, AReportOfFailuresStaysLonger)
{
    fake.store.showToast("Nothing was removed", true);
    QTest::qWait(200);
    EXPECT_TRUE(presenter.isShown());
}

TEST_F(Toast, ThePointerHoldsIt)
{
    fake.store.showToast("Done");
    presenter.setHovered(true);
    QTest::qWait(200);
    EXPECT_TRUE(presenter.isShown());
    presenter.setHovered(false);
    QTRY_VERIFY_WITH_TIMEOUT(!presenter.isShown(), 2'000);
    EXPECT_FALSE(presenter.isShown());
}

TEST_F(Toast, OneThatAppearsUnderThePointerIsHeldToo)
{
    presenter.setHovered(true);
    fake.store.showToast("Done");
    QTest::qWait(200);
    EXPECT_TRUE(presenter.isShown());
    presenter.setHovered(false);
    QTRY_VERIFY_WITH_TIMEOUT(!presenter.isShown(), 2'000);
    EXPECT_FALSE(presenter.isShown());
}

TEST_F(Toast, ANewMessageHasItsWholeTime)
{
    fake.store.showToast("First");
    fake.store.showToast("Second", true);
    QTest::qWait(200);
    EXPECT_TRUE(presenter.isShown());
    EXPECT_EQ(presenter.text(), "Second");
}

TEST_F(Toast, DismissingEndsItInTheStore)
{
    fake.store.showToast("Done", true);
    presenter.dismiss();
    EXPECT_FALSE(presenter.isShown());
    EXPECT_FALSE(fake.store.toast().has_value());
}

} // namespace
} // namespace corvane
