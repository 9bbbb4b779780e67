#include "shell/ui/type_to_find.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QStringList>

namespace corvane {
namespace {

class TypeToFindTest : public testing::Test {
protected:
    int find(const QString &typed, int current, quint64 after = 100)
    {
        time += after;
        return finder.find(typed, time, current, static_cast<int>(names.size()),
                           [this](int row) { return names[row]; });
    }

    QStringList names{QStringLiteral("Movies"), QStringLiteral("music"), QStringLiteral("Archive"),
                      QStringLiteral("mail"), QStringLiteral("\u00c9tude")};
    TypeToFind finder;
    quint64 time = 10'000;
};

TEST_F(TypeToFindTest, LettersInARowNarrowTheSearch)
{
    EXPECT_EQ(find(QStringLiteral("m"), 2), 3);
    EXPECT_EQ(find(QStringLiteral("u"), 3), 1) << "goes on behind the last row from the first";
    EXPECT_EQ(find(QStringLiteral("S"), 1), 1) << "whatever the case";
    EXPECT_EQ(find(QStringLiteral("x"), 1), -1);
}

TEST_F(TypeToFindTest, TheSameLetterAgainLeadsToTheNext)
{
    EXPECT_EQ(find(QStringLiteral("m"), 0), 1);
    EXPECT_EQ(find(QStringLiteral("m"), 1), 3);
    EXPECT_EQ(find(QStringLiteral("m"), 3), 0);
    names[2] = QStringLiteral("mmap");
    EXPECT_EQ(find(QStringLiteral("m"), 1, 5'000), 2);
    EXPECT_EQ(find(QStringLiteral("m"), 2), 2) << "a name that has it twice is meant first";
}

TEST_F(TypeToFindTest, AfterAPauseAnotherSearchBegins)
{
    EXPECT_EQ(find(QStringLiteral("m"), 2), 3);
    EXPECT_EQ(find(QStringLiteral("a"), 3, 1'001), 2);
    EXPECT_EQ(find(QStringLiteral("r"), 2, 1'000), 2) << "within a second it goes on";
}

TEST_F(TypeToFindTest, AnAccentIsPartOfItsLetterHoweverItIsEncoded)
{
    EXPECT_EQ(find(QStringLiteral("e\u0301"), 0), 4);
    EXPECT_EQ(find(QStringLiteral("\u00e9"), 0, 5'000), 4);
}

TEST_F(TypeToFindTest, WithoutRowsNothingIsFound)
{
    names.clear();
    EXPECT_EQ(find(QStringLiteral("m"), -1), -1);
}

TEST(TypedText, CommandsAndSpaceAreNotTyped)
{
    const auto typed = [](Qt::Key key, Qt::KeyboardModifiers modifiers, const QString &text) {
        return TypeToFind::typedText(QKeyEvent(QEvent::KeyPress, key, modifiers, text));
    };
    EXPECT_EQ(typed(Qt::Key_M, Qt::NoModifier, QStringLiteral("m")), QStringLiteral("m"));
    EXPECT_EQ(typed(Qt::Key_M, Qt::ShiftModifier, QStringLiteral("M")), QStringLiteral("M"));
    EXPECT_EQ(typed(Qt::Key_M, Qt::ControlModifier, QStringLiteral("m")), QString());
    EXPECT_EQ(typed(Qt::Key_M, Qt::AltModifier, QStringLiteral("m")), QString());
    EXPECT_EQ(typed(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" ")), QString());
    EXPECT_EQ(typed(Qt::Key_Delete, Qt::NoModifier, QStringLiteral("\x7f")), QString());
    EXPECT_EQ(typed(Qt::Key_Left, Qt::NoModifier, QString()), QString());
}

} // namespace
} // namespace corvane
