#include "main/folder_opener.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFileOpenEvent>

#include "core/store/store_fixture.h"

namespace corvane {
namespace {

/// The system hands files over by events to the application.
class FolderOpenerTest : public StorageStoreTest {
protected:
    FolderOpenerTest() { QCoreApplication::instance()->installEventFilter(&m_opener); }

    static void open(const QUrl &url)
    {
        QFileOpenEvent event(url);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &event);
    }

private:
    FolderOpener m_opener{store};
};

TEST_F(FolderOpenerTest, AFolderThatTheSystemHandsOverIsScanned)
{
    open(QUrl::fromLocalFile(QString::fromStdString(at("Movies"))));
    EXPECT_EQ(store.phase(), StorageStore::Phase::scanning);
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.root()->path(), at("Movies"));
}

TEST_F(FolderOpenerTest, AFolderKeepsTheBytesOfItsName)
{
    fake.files.addFile(at("odd \xff/a.bin"), 2'000'000);
    open(QUrl::fromEncoded(QByteArray("file://") + at("odd%20%FF").c_str()));
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.root()->path(), at("odd \xff"));
}

TEST_F(FolderOpenerTest, AFileThatTheSystemHandsOverIsNotScannedAndTheToastSaysSo)
{
    open(QUrl::fromLocalFile(QString::fromStdString(at("Movies/a.mov"))));
    EXPECT_EQ(store.phase(), StorageStore::Phase::idle);
    EXPECT_TRUE(store.toastIsWarning());
}

TEST_F(FolderOpenerTest, AnAddressThatIsNoFileDoesNothing)
{
    open(QUrl(QStringLiteral("https://example.com/Movies")));
    EXPECT_EQ(store.phase(), StorageStore::Phase::idle);
    EXPECT_FALSE(store.toast());
}

} // namespace
} // namespace corvane
