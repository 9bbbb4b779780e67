#include "core/store/file_url.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(FileUrl, EncodesEveryByteThatAUrlCannotHold)
{
    EXPECT_EQ(fileUrl("/home/ann/a b#c?d%e"), "file:///home/ann/a%20b%23c%3Fd%25e");
    EXPECT_EQ(fileUrl("/tmp/x\xff\n"), "file:///tmp/x%FF%0A");
    EXPECT_EQ(fileUrl("/"), "file:///");
}

TEST(FileUrl, LeadsBackToThePath)
{
    for (const std::string path : {"/home/studio", "/a b/100%/#1?", "/Bücher/\xff\xfe", "/"})
        EXPECT_EQ(pathOfFileUrl(fileUrlOfPath(path)), path);
}

TEST(FileUrl, ByteInPercentEncodingIsThatByte)
{
    EXPECT_EQ(pathOfFileUrl(QUrl::fromEncoded("file:///tmp/x%FFy%0Az")), "/tmp/x\xffy\nz");
    EXPECT_EQ(pathOfFileUrl(QUrl::fromLocalFile(QStringLiteral("/tmp/a b#c?d%41é"))), "/tmp/a b#c?d%41é");
}

TEST(FileUrl, OtherUrlsHaveNoPath)
{
    EXPECT_EQ(pathOfFileUrl(QUrl(QStringLiteral("https://example.com/tmp"))), "");
    EXPECT_EQ(pathOfFileUrl(QUrl()), "");
}

} // namespace
} // namespace corvane
