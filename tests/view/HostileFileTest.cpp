#include "ImageFiles.h"
#include "Pictures.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

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
    const Picture ink = noise(67, 45, 1, 1), grey = noise(67, 45, 8, 2), color = noise(67, 45, 32, 3);
    std::vector<File> files = {{"tiles.tif", test::tiff(grey.pix(), {.tile = 16})},
                               {"cmyk.jpg", test::cmykJpeg(true)},
                               {"a.pict", test::smallPict()},
                               {"bare.pct", test::smallPict().substr(512)}};
    const std::tuple<const char*, Picture, int> written[] = {
        {"g4.tif", ink, IFF_TIFF_G4},    {"g3.tif", ink, IFF_TIFF_G3},    {"lzw.tif", color, IFF_TIFF_LZW},
        {"zip.tif", grey, IFF_TIFF_ZIP}, {"j.tif", color, IFF_TIFF_JPEG}, {"a.jpg", color, IFF_JFIF_JPEG},
        {"ink.png", ink, IFF_PNG},       {"color.png", color, IFF_PNG},   {"ink.bmp", ink, IFF_BMP},
        {"color.bmp", color, IFF_BMP},   {"a.gif", grey, IFF_GIF},        {"a.webp", color, IFF_WEBP},
        {"a.pnm", color, IFF_PNM},       {"a.jp2", color, IFF_JP2}};
    for (const auto& [name, picture, format] : written)
        files.push_back({name, test::encoded(picture, format)});
    return files;
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
        const bool showsHalf = file.name.ends_with(".jpg") || file.name == "j.tif" || file.name == "a.jp2";
        const DecodedPicture half = expectAnswer(file, bytes.substr(0, bytes.size() / 2));
        EXPECT_TRUE(showsHalf || half.picture.isNil()) << file.name;
        if (file.name == "a.jpg") {
            EXPECT_TRUE(half.picture && !half.reason.empty()) << "what there is, and a reason";
            EXPECT_TRUE(expectAnswer(file, bytes.substr(0, bytes.find("\xff\xda") + 16)).picture.isNil());
        }
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
                      gif = test::encoded(small, IFF_GIF);
    const std::size_t frame = jpeg.find("\xff\xc0"), block = gif.find("\x2c\0\0\0\0\x28\0\x28\0"s);
    std::string png = enlarged(test::encoded(small, IFF_PNG), 16, 20, bigEndian32(60000));
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(png.data() + 12), 17);
    png.replace(29, 4, bigEndian32(static_cast<std::uint32_t>(sum)));
    std::string pictOf65535 = test::smallPict();
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
                                   "%!PS-Adobe-3.0\n%%BoundingBox: 0 0 9 9\nshowpage\n", "@/etc/hostname", "GIF89a"};
    testing::internal::CaptureStderr(); // a missing helper program would be named here
    for (const std::string& script : scripts)
        for (const char* name : {"a.mvg", "a.msl", "a.ps", "a.pict", "a.tga", "a.tif", "a"})
            EXPECT_TRUE(decoded(name, script).picture.isNil()) << name << ": " << script;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Scripts, BeforeAPictureAreNotRun) {
    // Nothing defines the 512 bytes before a PICT.
    const std::string script = "%!PS-Adobe-3.0\n%%BoundingBox: 0 0 9 9\nshowpage\n";
    EXPECT_EQ(test::asText(decoded("a.pict", test::smallPict().replace(0, script.size(), script)).picture),
              "0000ffff/ffff0000");
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
