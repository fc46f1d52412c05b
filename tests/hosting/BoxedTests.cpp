#include "hosting/Boxed.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vantel {
namespace {

struct Tree {
    std::string name;
    std::vector<Boxed<Tree>> branches = {};

    bool operator==(const Tree&) const = default;
};

TEST(Boxed, ATypeCanHoldOneOfItsOwnKind) {
    const Tree tree{"root", {Tree{"leaf"}}};
    EXPECT_EQ(tree.branches.front()->name, "leaf");
    EXPECT_EQ((*tree.branches.front()).name, "leaf");
}

TEST(Boxed, ACopyIsAValueOfItsOwn) {
    const Boxed<std::string> original(std::string("a"));
    Boxed<std::string> copy = original;
    *copy = "b";
    EXPECT_EQ(*original, "a");
    EXPECT_EQ(*copy, "b");
}

TEST(Boxed, AssigningCopiesTheValue) {
    const Boxed<std::string> original(std::string("a"));
    Boxed<std::string> target(std::string("b"));
    target = original;
    EXPECT_EQ(*target, "a");
    target->append("c");
    EXPECT_EQ(*original, "a");
}

TEST(Boxed, AssigningItselfChangesNothing) {
    Boxed<std::string> box(std::string("a"));
    const Boxed<std::string>& same = box;
    box = same;
    EXPECT_EQ(*box, "a");
}

TEST(Boxed, MovingTakesTheValueAlong) {
    Boxed<std::string> box(std::string("a"));
    const std::string* address = &*box;
    const Boxed<std::string> moved = std::move(box);
    EXPECT_EQ(&*moved, address);
}

TEST(Boxed, EqualityIsThatOfTheValues) {
    EXPECT_EQ((Tree{"root", {Tree{"leaf"}}}), (Tree{"root", {Tree{"leaf"}}}));
    EXPECT_NE((Tree{"root", {Tree{"leaf"}}}), (Tree{"root", {Tree{"twig"}}}));
    EXPECT_NE(Boxed<int>(1), Boxed<int>(2));
}

} // namespace
} // namespace vantel
