#include "cli/removal_question.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace corvane {

namespace {

using Action = RemovalStep::Action;

RemovalStep step(const std::string &name, Action action)
{
    return {.path = "/home/u/" + name, .size = 1'000'000, .action = action};
}

std::vector<RemovalStep> steps(int count, Action action)
{
    std::vector<RemovalStep> result;
    for (int i = 0; i < count; ++i)
        result.push_back(step(std::to_string(i), action));
    return result;
}

/// The lines of a plan below its list of items.
std::string sentences(const std::vector<RemovalStep> &steps, bool permanently = false)
{
    const std::string text = planText(steps, permanently);
    const std::string last = steps.back().path;
    return text.substr(text.find('\n', text.find(last)) + 1);
}

TEST(RemovalPlanText, TheOneItemInTheTrashIsIt)
{
    EXPECT_EQ(sentences(steps(1, Action::erase)),
              "It is in the Trash and will be deleted permanently\nWould move 1 item (1 MB) to Trash\n");
}

TEST(RemovalPlanText, SeveralItemsThatAreAllInTheTrashAreNotCounted)
{
    EXPECT_EQ(sentences(steps(3, Action::erase)),
              "All of them are in the Trash and will be deleted permanently\nWould move 3 items (3 MB) to Trash\n");
}

TEST(RemovalPlanText, SomeItemsInTheTrashAreCountedInGroupsOfThreeDigits)
{
    std::vector<RemovalStep> some = steps(1'234, Action::erase);
    some.push_back(step("film.mov", Action::trash));
    EXPECT_EQ(sentences(some), "1,234 of them are in the Trash and will be deleted permanently\n"
                               "Would move 1,235 items (1.24 GB) to Trash\n");
}

TEST(RemovalPlanText, AnItemThatStaysIsOneOfThoseListed)
{
    EXPECT_EQ(sentences({step("old.txt", Action::erase), step("Documents", Action::refuse)}),
              "1 of them is in the Trash and will be deleted permanently\nWould move 1 item (1 MB) to Trash\n");
}

TEST(RemovalPlanText, ThePermanentDeletionOfEverythingDoesNotMentionTheTrash)
{
    EXPECT_EQ(sentences(steps(2, Action::erase), true), "Would permanently delete 2 items (2 MB)\n");
}

} // namespace

} // namespace corvane
