#include "shell/updates/update_key.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "platform/file_descriptor.h"
#include "shell/updates/signing_key.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

bool verifies(const UpdateKey &key, const QByteArray &message, const QByteArray &signature)
{
    return key.verifies(std::as_bytes(std::span(message.data(), static_cast<std::size_t>(message.size()))), signature);
}

struct UpdateSignature : testing::Test {
    const SigningKey signer;
    const UpdateKey key = *UpdateKey::fromBase64(signer.publicKey());
    const QByteArray message = "the whole file";
    const QByteArray signature = signer.sign(message);
};

TEST_F(UpdateSignature, OfTheKeyIsRight)
{
    EXPECT_TRUE(verifies(key, message, signature));
    EXPECT_TRUE(verifies(key, {}, signer.sign({})));
}

TEST_F(UpdateSignature, OfTheStandardsFirstExampleIsRight)
{
    // RFC 8032, 7.1, test 1: an empty message.
    const auto published = UpdateKey::fromBase64(QString::fromLatin1(
        QByteArray::fromHex("d75a980182b10ab7d54bfed3c964073a0ee172f3daa62325af021a68f707511a").toBase64()));
    ASSERT_TRUE(published);
    EXPECT_TRUE(verifies(*published, {},
                         QByteArray::fromHex("e5564300c360ac729086e2cc806e828a84877f1eb8e5d974d873e06522490155"
                                             "5fb8821590a33bacc61e39701cf9b46bd25bf5f0595bbe24655141438e7a100b")));
}

TEST_F(UpdateSignature, OfOtherBytesIsWrong)
{
    EXPECT_FALSE(verifies(key, message + "x", signature));
    EXPECT_FALSE(verifies(key, message.chopped(1), signature));
    QByteArray changed = signature;
    changed[10] = static_cast<char>(changed[10] ^ 1);
    EXPECT_FALSE(verifies(key, message, changed));
}

TEST_F(UpdateSignature, OfAnotherKeyIsWrong)
{
    EXPECT_FALSE(verifies(key, message, SigningKey(8).sign(message)));
}

TEST_F(UpdateSignature, OfAnotherLengthIsWrong)
{
    EXPECT_FALSE(verifies(key, message, signature.chopped(1)));
    EXPECT_FALSE(verifies(key, message, signature + 'x'));
    EXPECT_FALSE(verifies(key, message, {}));
}

TEST_F(UpdateSignature, IsCheckedOverAWholeFile)
{
    const TemporaryFolder folder;
    const QByteArray content = QByteArray("0123456789").repeated(100'000);
    const std::string path = folder.writeText("file", content.toStdString());
    const FileDescriptor file(::open(path.c_str(), O_RDONLY));
    const auto right = key.verifiesFile(file.number(), signer.sign(content));
    EXPECT_TRUE(right && *right);
    const auto wrong = key.verifiesFile(file.number(), signer.sign(content + "x"));
    EXPECT_TRUE(wrong && !*wrong);

    const FileDescriptor empty(::open(folder.writeText("empty", "").c_str(), O_RDONLY));
    const auto ofNothing = key.verifiesFile(empty.number(), signer.sign({}));
    EXPECT_TRUE(ofNothing && *ofNothing);
    EXPECT_FALSE(key.verifiesFile(-1, signature));
}

TEST(UpdateKeyText, OfAnythingButThirtyTwoBytesIsNone)
{
    for (const QByteArray &text :
         {QByteArray(), QByteArray("REPLACE_WITH_KEY"), QByteArray(31, 'k').toBase64(), QByteArray(33, 'k').toBase64(),
          QByteArray(32, 'k').toBase64() + "!", QByteArray(32, 'k')})
        EXPECT_FALSE(UpdateKey::fromBase64(QString::fromLatin1(text))) << text.constData();
    EXPECT_TRUE(UpdateKey::fromBase64(QString::fromLatin1(QByteArray(32, 'k').toBase64())));
}

} // namespace
} // namespace corvane
