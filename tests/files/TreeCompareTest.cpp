#include "files/TreeCompare.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace velmarin
