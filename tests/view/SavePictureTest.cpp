#include "FakeCanvas.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"
#include "view/Encoders.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::FakeCanvas;
using test::TempFolder;

TEST(SavePicture, WritesWhatItsExtensionAsksFor) {
    struct Case {
        const char* name;
        const char* start;
        int depth; ///< of what is read back
    };
    const Picture page = test::drawn(80, 60, 32, [](int x, int y) {
        return static_cast<std::uint32_t>(x < 40 ? 0x301008 : 0xe0f0d0) + static_cast<std::uint32_t>(y % 3);
    });
    for (const Case& c : {Case{"a.tif", "II*", 1}, Case{"b.TIFF", "II*", 1}, Case{"a.jpg", "\xff\xd8\xff", 32},
                          Case{"b.Jpeg", "\xff\xd8\xff", 32}, Case{"a.png", "\x89PNG", 32}, Case{"a.bmp", "BM", 32},
                          Case{"a.xyz", "\x89PNG", 32}, Case{"a", "\x89PNG", 32}}) {
        SCOPED_TRACE(c.name);
        const TempFolder folder;
        FakeCanvas canvas;
        canvas.view.SavePicture(page, FolderItem(folder.path() / c.name));
        EXPECT_TRUE(canvas.messages.empty());
        EXPECT_TRUE(folder.read(c.name).starts_with(c.start));
        const DecodedPicture back = decodePicture(FolderItem(folder.path() / c.name));
        ASSERT_TRUE(back.picture) << back.reason;
        EXPECT_EQ(back.picture.depth(), c.depth);
        EXPECT_NEAR(back.picture.pixel(10, 10).red, c.depth == 1 ? 0 : 0x30, 4);
        EXPECT_NEAR(back.picture.pixel(70, 10).green, c.depth == 1 ? 255 : 0xf0, 4);
    }
}

TEST(SavePicture, ReportsAFailureInThreeFormatsOnly) {
    struct Case {
        const char* name;
        bool reported;
    };
    for (const Case& c :
         {Case{"a.tif", true}, Case{"a.JPEG", true}, Case{"a.png", true}, Case{"a.bmp", false}, Case{"a", false}}) {
        const TempFolder folder;
        FakeCanvas canvas;
        canvas.view.SavePicture(Picture::make(9, 9, 1), FolderItem(folder.path() / "missing" / c.name));
        EXPECT_EQ(canvas.messages,
                  c.reported ? std::vector<std::string>{"Error: Picture is not saved."} : std::vector<std::string>{})
            << c.name;
    }
}

TEST(SavePicture, LeavesAGoodFileWhereTheFormatCannotHoldThePicture) {
    const TempFolder folder;
    const FolderItem file(folder.write("a.jpg", "good"));
    FakeCanvas canvas;
    canvas.view.SavePicture(Picture::make(70000, 1, 8), file);
    EXPECT_EQ(canvas.messages.size(), 1u);
    EXPECT_EQ(folder.read("a.jpg"), "good");
    canvas.view.SavePicture(Picture(), file);
    EXPECT_EQ(canvas.messages.size(), 1u) << "nil is nothing";
    EXPECT_THROW(canvas.view.SavePicture(Picture::make(1, 1), FolderItem()), NilObjectException);
}

TEST(Otsu, PartsTheTwoSorts) {
    struct Case {
        const char* name;
        int dark, light, low, high; ///< the threshold is between
    };
    for (const Case& c : {Case{"ink and paper", 30, 220, 31, 220}, Case{"faded", 120, 160, 121, 160},
                          Case{"on dark paper", 5, 60, 6, 60}}) {
        const Picture p = test::drawn(60, 60, 8, [&](int x, int y) {
            return static_cast<std::uint32_t>((x * y) % 7 == 0 ? c.dark + x % 3 - 1 : c.light + y % 3 - 1);
        });
        EXPECT_GE(otsuThreshold(p), c.low) << c.name;
        EXPECT_LE(otsuThreshold(p), c.high) << c.name;
    }
    EXPECT_EQ(otsuThreshold(Picture::make(5, 5, 8)), 128) << "all of one sort";
    EXPECT_EQ(otsuThreshold(test::drawn(9, 9, 1, [](int x, int) { return unsigned(x % 2); })), 128) << "the middle";
}

} // namespace
} // namespace velmarin
