#include "store/ImageIndex.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

TEST(MakeImageIndex, WritesTheLastIndexAndThePicturesByName) {
    const TempFolder folder;
    for (const char* name : {"p10.tif", "P2.JPEG", "p1.Png", "b.pict", "c.TIFF", "d.jpg", "e.bmp", "f.webp",
                             "notes.txt", "tif", ".hidden.png", "two\nlines.bmp"})
        folder.write(name, "");
    fs::create_directories(folder.path() / "folder.bmp");
    folder.write("elsewhere/x.dat", "");
    fs::create_symlink("elsewhere/x.dat", folder.path() / "alias.pct");
    fs::create_symlink("nowhere", folder.path() / "gone.tif");
    EXPECT_TRUE(mFiMod_MakeImageIndex(FolderItem(folder.path())));
    EXPECT_EQ(folder.read("ImageIndex"), "7\nalias.pct\nb.pict\nc.TIFF\nd.jpg\ne.bmp\np1.Png\np10.tif\nP2.JPEG\n");
}

TEST(MakeImageIndex, WithoutPictureOrFolderWritesNothing) {
    const TempFolder folder;
    folder.write("in/notes.txt", "");
    folder.write("asked/p.png", "");
    const FolderItem in(folder.path() / "in");
    EXPECT_FALSE(mFiMod_MakeImageIndex(in));
    EXPECT_EQ(in.items().size(), 1u);
    EXPECT_FALSE(mFiMod_MakeImageIndex(FolderItem()));
    EXPECT_FALSE(mFiMod_MakeImageIndex(FolderItem(), [] { return FolderItem(); }));
    EXPECT_TRUE(mFiMod_MakeImageIndex(FolderItem(), [&] { return FolderItem(folder.path() / "asked"); }));
    EXPECT_EQ(folder.read("asked/ImageIndex"), "0\np.png\n");
    // It cannot be written where a folder has its name.
    folder.write("full/p.png", "");
    fs::create_directories(folder.path() / "full/ImageIndex");
    EXPECT_FALSE(mFiMod_MakeImageIndex(FolderItem(folder.path() / "full")));
}

} // namespace
} // namespace velmarin
