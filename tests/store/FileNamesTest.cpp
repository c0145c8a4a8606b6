#include "store/FileNames.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::TempFolder;

TEST(FileNames, ExtensionIsWhatFollowsTheLastPoint) {
    const struct {
        const char *name, *extension, *rest;
    } cases[] = {{"", "", ""},          {"name", "", "name"},      {"a.b.TIFF", "TIFF", "a.b"},
                 {"name.", "", "name"}, {".hidden", "hidden", ""}, {".", "", ""}};
    for (const auto& each : cases) {
        EXPECT_EQ(mFiMod_GetExtensionFromFileName(each.name), each.extension) << each.name;
        EXPECT_EQ(mFiMod_RemoveExtesionFromFileName(each.name), each.rest) << each.name;
    }
}

std::string x(std::size_t count) {
    return std::string(count, 'x');
}

std::string accents(int count) {
    return count == 0 ? "" : "\xC3\xA9" + accents(count - 1);
}

TEST(FileNames, AreMadeUnique) {
    const struct {
        const char* reason;
        std::vector<std::string> taken;
        std::string name;
        std::string unique;
    } cases[] = {{"FreeLongNameStays", {}, x(40) + ".tif", x(40) + ".tif"},
                 {"TakenGetsANumberBeforeItsExtension", {"a.tif"}, "a.tif", "a_1.tif"},
                 {"NumbersGoOn", {"a.tif", "a_1.tif", "a_2.tif"}, "a.tif", "a_3.tif"},
                 {"WithoutExtension", {"Latin"}, "Latin", "Latin_1"},
                 {"PointAtTheEndIsDropped", {"a."}, "a.", "a"},
                 {"OtherCaseIsTaken", {"A.TIF"}, "a.tif", "a_1.tif"},
                 {"LongIsCutTo31Bytes", {x(40) + ".tif"}, x(40) + ".tif", x(27) + ".tif"},
                 {"OneByteTooLongIsCut", {x(28) + ".tif"}, x(28) + ".tif", x(27) + ".tif"},
                 {"FittingIsNotCutButItsNumberedFormIs", {x(27) + ".tif"}, x(27) + ".tif", x(25) + "_1.tif"},
                 {"NumberedFormOf32BytesIsNot", {x(25) + ".jpeg"}, x(25) + ".jpeg", x(24) + "_1.jpeg"},
                 {"TwoDigitsCutOneMore",
                  {x(27) + ".tif", x(25) + "_1.tif", x(25) + "_2.tif", x(25) + "_3.tif", x(25) + "_4.tif",
                   x(25) + "_5.tif", x(25) + "_6.tif", x(25) + "_7.tif", x(25) + "_8.tif", x(25) + "_9.tif"},
                  x(27) + ".tif",
                  x(24) + "_10.tif"},
                 {"FirstCutCountsCharacters", {accents(40) + ".tif"}, accents(40) + ".tif", accents(27) + ".tif"},
                 {"SecondCutCountsBytes",
                  {accents(40) + ".tif", accents(27) + ".tif"},
                  accents(40) + ".tif",
                  accents(12) + "\xC3_1.tif"},
                 {"ExtensionAloneFillsTheRoom", {"b." + x(40)}, "b." + x(40), "." + x(40)},
                 {"ExtensionBeyondTheRoom", {"b." + x(40), "." + x(40)}, "b." + x(40), "_1." + x(40)}};
    for (const auto& each : cases) {
        const TempFolder folder;
        for (const std::string& name : each.taken)
            folder.write(name, "");
        EXPECT_EQ(mFiMod_GetUniqueFileName(each.name, FolderItem(folder.path())), each.unique) << each.reason;
    }
}

} // namespace
} // namespace velmarin
