#include <gtest/gtest.h>

#include "shell/updates/feed_session_fixture.h"

namespace corvane {
namespace {

TEST(UpdateFailureLines, SayThatTheDiskIsFull)
{
    const auto error = [](int code) { return Error{"write", "/home/a\nb", {code, std::generic_category()}, {}}; };
    for (const int code : {ENOSPC, EDQUOT}) {
        EXPECT_EQ(UpdateFailure::ofWriting(error(code)), UpdateFailure{Kind::diskFull});
        EXPECT_EQ(UpdateFailure::ofFolder(error(code)), UpdateFailure{Kind::diskFull});
    }
    EXPECT_EQ(UpdateFailure::ofWriting(error(EIO)).sentence(),
              QStringLiteral("Can't write the download: Input/output error."));
    EXPECT_EQ(UpdateFailure::ofFolder(error(EACCES)).sentence(),
              QStringLiteral("Can't use the folder for downloads, /home/a\u240Ab: Permission denied."));
}

TEST(UpdateFailureLines, AreOneEach)
{
    for (int kind = 0; kind <= static_cast<int>(Kind::notWritten); ++kind) {
        const QString sentence = UpdateFailure{static_cast<Kind>(kind), QStringLiteral("detail")}.sentence();
        EXPECT_TRUE(sentence.endsWith(QLatin1Char('.'))) << kind;
        EXPECT_FALSE(sentence.contains(QLatin1Char('\n'))) << kind;
        EXPECT_FALSE(sentence.contains(QLatin1Char('%'))) << kind;
    }
}

} // namespace
} // namespace corvane
