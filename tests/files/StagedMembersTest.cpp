#include "files/StagedMembers.h"
#include "files/RemoveTree.h"
#include "support/TempFolder.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace velmarin {
namespace {

using test::TempFolder;
using test::treeOf;

TEST(StagedMembers, GiveACopyItsNameAndLeaveNothingBeside) {
    const TempFolder folder;
    folder.write("from/a/text", "bytes");
    folder.write("from/empty", "");
    folder.link("from/passwd", "/etc/passwd"); // usually on another file system, where the kernel does not copy
    folder.write("to/taken", "");
    Work work;
    Failures failures;
    const TreePlan plan = planTree(folder.at("from"), folder.at("to"), Links::Followed, Purpose::Copy, work);
    auto staged = StagedMembers::in(folder.at("to"));
    ASSERT_TRUE(staged);
    EXPECT_EQ(staged->copy(plan, "new", work, failures), CopyOutcome::Whole);
    EXPECT_FALSE(staged->moveTo("new", folder.at("to/taken")));
    EXPECT_TRUE(staged->moveTo("new", folder.at("to/new")));
    EXPECT_TRUE(staged->drop(work));
    test::Tree wanted = treeOf(folder.at("from"));
    wanted["passwd"] = "file " + test::readFile("/etc/passwd");
    EXPECT_EQ(treeOf(folder.at("to/new")), wanted);
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
