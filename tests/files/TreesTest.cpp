#include "files/RemoveTree.h"
#include "files/StagedMembers.h"
#include "files/TreeCompare.h"
#include "support/TempFolder.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <map>

namespace velmarin {
namespace {

using test::TempFolder;

/// Files by their text; a name that ends in "/" is a folder, a text that begins with "->" a link.
using Tree = std::map<std::string, std::string>;

void make(const TempFolder& folder, const Tree& tree) {
    for (const auto& [name, text] : tree)
        if (name.ends_with('/'))
            std::filesystem::create_directories(folder.at(name));
        else if (text.starts_with("->"))
            std::filesystem::create_symlink(text.substr(2), folder.at(name));
        else
            folder.write(name, text);
}

TEST(TreeCompare, TakesNoTwoTreesForTheSame) {
    const struct {
        const char* what;
        Tree one, other;
        bool same = false;
    } cases[] = {
        {"the same", {{"a/x", "1"}, {"b", "->a/x"}, {"c/", ""}}, {{"a/x", "1"}, {"b", "->a/x"}, {"c/", ""}}, true},
        {"a byte", {{"a", "12"}}, {{"a", "13"}}},
        {"a longer file", {{"a", "12"}}, {{"a", "123"}}},
        {"a shorter file", {{"a", "123"}}, {{"a", "12"}}},
        {"another name", {{"a", "1"}}, {{"b", "1"}}},
        {"one item more", {{"a", "1"}}, {{"a", "1"}, {"b", "1"}}},
        {"a hidden one more", {{"a", "1"}}, {{"a", "1"}, {".b", "1"}}},
        {"a folder for a file", {{"a", ""}}, {{"a/", ""}}},
        {"another target", {{"a", "->x"}}, {{"a", "->y"}}},
    };
    for (const auto& c : cases) {
        const TempFolder one, other;
        make(one, c.one);
        make(other, c.other);
        Work work;
        const TreePlan plan = planTree(one.path(), {}, Links::Kept, Purpose::Move, work);
        EXPECT_EQ(sameContents(plan, other.path(), work), c.same) << c.what;
    }
}

TEST(StagedMembers, GiveACopyItsNameAndLeaveNothingBeside) {
    const TempFolder folder;
    // The link usually leads to another file system, where the kernel does not copy.
    make(folder, {{"from/a/text", "bytes"}, {"from/empty", ""}, {"from/passwd", "->/etc/passwd"}, {"to/taken", ""}});
    Work work;
    Failures failures;
    const TreePlan plan = planTree(folder.at("from"), folder.at("to"), Links::Followed, Purpose::Copy, work);
    auto staged = StagedMembers::in(folder.at("to"));
    ASSERT_TRUE(staged);
    EXPECT_EQ(staged->copy(plan, "new", work, failures), CopyOutcome::Whole);
    EXPECT_FALSE(staged->moveTo("new", folder.at("to/taken")));
    EXPECT_TRUE(staged->moveTo("new", folder.at("to/new")));
    EXPECT_TRUE(staged->drop(work));
    auto wanted = test::treeOf(folder.at("from"));
    wanted["passwd"] = "file " + test::readFile("/etc/passwd");
    EXPECT_EQ(test::treeOf(folder.at("to/new")), wanted);
    EXPECT_EQ(*listNames(folder.at("to")), (std::vector<std::string>{"new", "taken"}));
}

TEST(RemoveTree, SaysWhyTheFolderItselfStays) {
    const TempFolder folder;
    folder.write("top/a/file", "");
    Work work;
    EXPECT_FALSE(removeTree(folder.at("top/."), work));
    EXPECT_EQ(errno, EINVAL);
    EXPECT_TRUE(listNames(folder.at("top"))->empty());
}

} // namespace
} // namespace velmarin
