#include "shell/ui/window/toast_presenter.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QTest>

#include "shell/store_with_films.h"

namespace corvane {
namespace {

struct Toast : testing::Test, StoreWithFilms {
    Toast() { presenter.setStay(60, 5'000); }

    ToastPresenter presenter{store};
};

TEST_F(Toast, ShowsWhatTheStoreSays)
{
    EXPECT_FALSE(presenter.isShown());
    store.showToast("Moved 1 item (2 MB) to Trash");
    EXPECT_TRUE(presenter.isShown());
    EXPECT_FALSE(presenter.isWarning());
    EXPECT_EQ(presenter.text(), "Moved 1 item (2 MB) to Trash");
}

TEST_F(Toast, NamesThatAreNotTextStayOnOneLine)
{
    store.showToast("a\nb\xff: refused", true);
    EXPECT_TRUE(presenter.isWarning());
    EXPECT_EQ(presenter.text(), QString::fromUtf8("a\xe2\x90\x8a"
                                                  "b\xef\xbf\xbd: refused"));
}

TEST_F(Toast, GoesByItselfAndKeepsItsTextWhileItFades)
{
    store.showToast("Done");
    QTRY_VERIFY_WITH_TIMEOUT(!presenter.isShown(), 2'000);
    EXPECT_FALSE(presenter.isShown());
    EXPECT_FALSE(store.toast().has_value());
    EXPECT_EQ(presenter.text(), "Done");
}

TEST_F(Toast, AReportOfFailuresStaysLonger)
{
    store.showToast("Nothing was removed", true);
    QTest::qWait(200);
    EXPECT_TRUE(presenter.isShown());
}

TEST_F(Toast, ThePointerHoldsIt)
{
    store.showToast("Done");
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
    store.showToast("Done");
    QTest::qWait(200);
    EXPECT_TRUE(presenter.isShown());
    presenter.setHovered(false);
    QTRY_VERIFY_WITH_TIMEOUT(!presenter.isShown(), 2'000);
    EXPECT_FALSE(presenter.isShown());
}

TEST_F(Toast, ANewMessageHasItsWholeTime)
{
    store.showToast("First");
    store.showToast("Second", true);
    QTest::qWait(200);
    EXPECT_TRUE(presenter.isShown());
    EXPECT_EQ(presenter.text(), "Second");
}

TEST_F(Toast, DismissingEndsItInTheStore)
{
    store.showToast("Done", true);
    presenter.dismiss();
    EXPECT_FALSE(presenter.isShown());
    EXPECT_FALSE(store.toast().has_value());
}

} // namespace
} // namespace corvane
