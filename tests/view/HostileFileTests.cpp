#include "ImageFiles.h"
#include "Pictures.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <random>

#include <allheaders.h>
#include <sys/stat.h>
#include <zlib.h>

namespace velmarin {
namespace {

using namespace std::string_literals;
using test::decoded;
using test::noise;
using test::TempFolder;

struct File {
    std::string name;
    std::string bytes;
};

/// One file of every format.
std::vector<File> oneOfEach() {
    const Picture ink = noise(67, 45, 1, 1), grey = noise(67, 45, 8, 2), colour = noise(67, 45, 32, 3);
    return {{"g4.tif", test::encoded(ink, IFF_TIFF_G4)},
            {"g3.tif", test::encoded(ink, IFF_TIFF_G3)},
            {"lzw.tif", test::encoded(colour, IFF_TIFF_LZW)},
            {"zip.tif", test::encoded(grey, IFF_TIFF_ZIP)},
            {"jpeg.tif", test::encoded(colour, IFF_TIFF_JPEG)},
            {"tiles.tif", test::tiff({.bits = 8, .tile = 16}, [](int x, int, int) { return unsigned(x); })},
            {"a.jpg", test::encoded(colour, IFF_JFIF_JPEG)},
            {"cmyk.jpg", test::cmykJpeg(40, 40, true, [](int x, int, int) { return unsigned(x); })},
            {"ink.png", test::encoded(ink, IFF_PNG)},
            {"colour.png", test::encoded(colour, IFF_PNG)},
            {"ink.bmp", test::encoded(ink, IFF_BMP)},
            {"colour.bmp", test::encoded(colour, IFF_BMP)},
            {"a.gif", test::encoded(grey, IFF_GIF)},
            {"a.webp", test::encoded(colour, IFF_WEBP)},
            {"a.pnm", test::encoded(colour, IFF_PNM)},
            {"a.jp2", test::encoded(colour, IFF_JP2)},
            {"a.pict", test::pict(ink)},
            {"bare.pct", test::pict(ink, {.lead = 0})},
            {"colours.pict", test::pict(grey, {.bits = 8})}};
}

/// Decodes damaged files; each gives a picture or a reason, and a library says nothing on standard error.
class DamagedFiles : public testing::Test {
  protected:
    DamagedFiles() { testing::internal::CaptureStderr(); }
    ~DamagedFiles() override { EXPECT_EQ(testing::internal::GetCapturedStderr(), ""); }

    static DecodedPicture expectAnswer(const File& file, std::string_view bytes) {
        DecodedPicture result = decoded(file.name, bytes);
        EXPECT_TRUE(result.picture || !result.reason.empty()) << file.name << ", " << bytes.size() << " bytes";
        return result;
    }
};

TEST_F(DamagedFiles, CutShortAnywhereEndInAPictureOrAReason) {
    for (const File& file : oneOfEach()) {
        const std::string_view bytes = file.bytes;
        for (std::size_t part = 0; part < 24; ++part)
            expectAnswer(file, bytes.substr(0, part < 12 ? part * 7 : bytes.size() * (part - 11) / 13));
        const bool showsHalf = file.name.ends_with(".jpg") || file.name == "jpeg.tif" || file.name == "a.jp2";
        const DecodedPicture half = expectAnswer(file, bytes.substr(0, bytes.size() / 2));
        EXPECT_TRUE(showsHalf || half.picture.isNil()) << file.name;
    }
}

TEST_F(DamagedFiles, WithBytesChangedEndInAPictureOrAReason) {
    std::mt19937 random(4);
    for (const File& file : oneOfEach()) {
        std::string middle = file.bytes;
        expectAnswer(file, middle.replace(middle.size() / 2, 8, "\xff\xd9\0\0\xff\xff\0\x01"s));
        for (int round = 0; round < 30; ++round) {
            std::string bytes = file.bytes;
            // The first rounds damage what controls a decoder: the bytes before the pixels.
            const std::size_t within = round < 20 ? std::min<std::size_t>(bytes.size(), 120) : bytes.size();
            for (int change = 0; change <= round % 3; ++change)
                bytes[random() % within] = static_cast<char>(random());
            expectAnswer(file, bytes);
        }
    }
}

TEST_F(DamagedFiles, OfJpegShowWhatThereIs) {
    const Picture colour = noise(200, 200, 32, 3);
    const std::string bytes = test::encoded(colour, IFF_JFIF_JPEG);
    const DecodedPicture half = decoded("a.jpg", std::string_view(bytes).substr(0, bytes.size() / 2));
    EXPECT_TRUE(half.picture);
    EXPECT_NE(half.reason, "");
    const std::size_t scan = bytes.find("\xff\xda");
    EXPECT_TRUE(decoded("a.jpg", std::string_view(bytes).substr(0, scan + 16)).picture.isNil()) << "nothing to see";
}

std::string bigEndian32(std::uint32_t value) {
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
            static_cast<char>(value)};
}

/// `bytes` with 60000 written at two places.
std::string enlarged(std::string bytes, std::size_t widthAt, std::size_t heightAt, const std::string& side) {
    return bytes.replace(widthAt, side.size(), side).replace(heightAt, side.size(), side);
}

/// A TIFF of a header and nothing else.
std::string bareTiff(std::uint32_t width, std::uint32_t height) {
    std::string out = "II*\0\x08\0\0\0"s;
    auto put = [&](std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            out += static_cast<char>(value >> 8 * i & 0xff);
    };
    const std::pair<std::uint32_t, std::uint32_t> tags[] = {
        {256, width}, {257, height}, {258, 1}, {259, 4}, {262, 0}, {273, 8}, {277, 1}, {278, height}, {279, 8}};
    put(std::size(tags), 2);
    for (const auto& [tag, value] : tags) {
        put(tag, 2);
        put(4, 2); // a long
        put(1, 4);
        put(value, 4);
    }
    put(0, 4);
    return out;
}

TEST(HugeHeaders, AreRefused) {
    const Picture small = noise(40, 40, 8, 1);
    const std::string bmp = test::encoded(small, IFF_BMP), jpeg = test::encoded(small, IFF_JFIF_JPEG),
                      gif = test::encoded(small, IFF_GIF), pict = test::pict(noise(40, 40, 1, 1));
    const std::size_t frame = jpeg.find("\xff\xc0"), block = gif.find("\x2c\0\0\0\0\x28\0\x28\0"s);
    std::string png = enlarged(test::encoded(small, IFF_PNG), 16, 20, bigEndian32(60000));
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(png.data() + 12), 17);
    png.replace(29, 4, bigEndian32(static_cast<std::uint32_t>(sum)));
    std::string pictOf65535 = pict;
    pictOf65535.replace(514, 8, "\x80\0\x80\0\x7f\xff\x7f\xff"s);
    struct Case {
        const char* name;
        std::string bytes;
        const char* reason;
    };
    const Case cases[] = {
        {"a.bmp", enlarged(bmp, 18, 22, "\x60\xea\0\0"s), "60000 x 60000"},
        {"b.bmp", enlarged(bmp, 18, 22, "\0\0\0\x80"s), "-2147483648"},
        {"a.png", png, "60000 x 60000"},
        {"a.jpg", enlarged(jpeg, frame + 7, frame + 5, "\xea\x60"s), "60000 x 60000"},
        {"a.tif", bareTiff(60000, 60000), "60000 x 60000"},
        {"b.tif", bareTiff(4294967295, 1), "4294967295 x 1"},
        {"c.tif", bareTiff(0, 5), ""},
        {"a.pict", pictOf65535, "65535 x 65535"},
        {"a.gif", enlarged(gif, block + 5, block + 7, "\x60\xea"s), ""},
        {"a.ppm", "P6\n60000 60000\n255\nxxx", ""},
        {"b.ppm", "P6\n20000 20000\n255\nxxx", ""},
    };
    for (const Case& c : cases) {
        const DecodedPicture result = decoded(c.name, c.bytes);
        EXPECT_TRUE(result.picture.isNil()) << c.name;
        EXPECT_NE(result.reason, "") << c.name;
        EXPECT_NE(result.reason.find(c.reason), std::string::npos) << c.name << ": " << result.reason;
    }
}

TEST(Scripts, WithThePictureExtensionsAreNotPictures) {
    // What GraphicsMagick would read, run or fetch if it chose the format itself.
    const std::string scripts[] = {"push graphic-context\nviewbox 0 0 9 9\nfill 'url(https://example.org/x.png)'\n",
                                   "<?xml version=\"1.0\"?><image><read filename=\"/etc/hostname\"/></image>",
                                   "<svg xmlns=\"http://www.w3.org/2000/svg\"><rect width=\"9\" height=\"9\"/></svg>",
                                   "%!PS-Adobe-3.0\n%%BoundingBox: 0 0 9 9\nshowpage\n",
                                   "@/etc/hostname",
                                   "/etc/hostname",
                                   "GIF89a",
                                   "P9\n1 1\n255\n"};
    testing::internal::CaptureStderr(); // a missing helper program would be named here
    for (const std::string& script : scripts)
        for (const char* name : {"a.mvg", "a.msl", "a.svg", "a.ps", "a.txt", "a.pict", "a.bmp", "a.tga", "a.tif", "a"})
            EXPECT_TRUE(decoded(name, script).picture.isNil()) << name << ": " << script;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Scripts, BeforeAPictureAreNotRun) {
    // Nothing defines the 512 bytes before a PICT.
    const Picture ink = noise(83, 31, 1, 11);
    const std::string script = "%!PS-Adobe-3.0\n%%BoundingBox: 0 0 9 9\nshowpage\n";
    std::string bytes = test::pict(ink);
    bytes.replace(0, script.size(), script);
    const DecodedPicture result = decoded("a.pict", bytes);
    ASSERT_TRUE(result.picture) << result.reason;
    EXPECT_TRUE(test::samePixels(result.picture, ink));
}

TEST(FileWithoutAPicture, IsReported) {
    const TempFolder folder;
    const std::filesystem::path fifo = folder.path() / "fifo.tif";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    std::filesystem::create_directory(folder.path() / "folder.png");
    for (const FolderItem& item :
         {FolderItem(fifo), FolderItem(folder.path() / "folder.png"), FolderItem(folder.path() / "missing.jpg"),
          FolderItem(), FolderItem(folder.write("empty.png", ""))}) {
        const DecodedPicture result = decodePicture(item);
        EXPECT_TRUE(result.picture.isNil());
        EXPECT_NE(result.reason, "");
    }
}

} // namespace
} // namespace velmarin
