#include "ImageFiles.h"
#include "Pictures.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include <allheaders.h>

namespace velmarin {
namespace {

using test::decoded;
using test::drawn;
using test::noise;
using test::TempFolder;
using test::TiffLayout;

/// A picture without sharp changes, which lossy formats keep nearly as it is.
Picture slopes(int depth) {
    return drawn(64, 48, depth, [&](int x, int y) {
        const auto a = static_cast<std::uint32_t>(x * 4), b = static_cast<std::uint32_t>(y * 5);
        return depth == 8 ? a : a << 16 | b << 8 | (255 - a);
    });
}

/// The greatest difference of any channel, or 256 where sizes differ.
int difference(const Picture& a, const Picture& b) {
    if (a.Width() != b.Width() || a.Height() != b.Height())
        return 256;
    int most = 0;
    for (int y = 0; y < a.Height(); ++y)
        for (int x = 0; x < a.Width(); ++x) {
            const Color c = a.pixel(x, y), d = b.pixel(x, y);
            most = std::max({most, std::abs(c.red - d.red), std::abs(c.green - d.green), std::abs(c.blue - d.blue)});
        }
    return most;
}

TEST(Decoding, GivesBackWhatWasWrittenInItsOwnDepth) {
    struct Case {
        const char* file;
        int format, depth, tolerance;
    };
    const Case cases[] = {
        {"g4.tif", IFF_TIFF_G4, 1, 0},
        {"g3.tiff", IFF_TIFF_G3, 1, 0},
        {"rle.tif", IFF_TIFF_RLE, 1, 0},
        {"packbits.tif", IFF_TIFF_PACKBITS, 1, 0},
        {"lzw1.TIF", IFF_TIFF_LZW, 1, 0},
        {"lzw8.tif", IFF_TIFF_LZW, 8, 0},
        {"lzw32.tif", IFF_TIFF_LZW, 32, 0},
        {"jpeg32.tif", IFF_TIFF_JPEG, 32, 20},
        {"a.png", IFF_PNG, 1, 0},
        {"b.PNG", IFF_PNG, 8, 0},
        {"c.png", IFF_PNG, 32, 0},
        {"a.jpg", IFF_JFIF_JPEG, 8, 12},
        {"b.JPeG", IFF_JFIF_JPEG, 32, 20},
        {"b.bmp", IFF_BMP, 8, 0},
        {"c.bmp", IFF_BMP, 32, 0},
        {"a.gif", IFF_GIF, 8, 0},
        {"a.pnm", IFF_PNM, 1, 0},
        {"b.ppm", IFF_PNM, 32, 0},
        {"a.webp", IFF_WEBP, 32, 40},
        {"a.jp2", IFF_JP2, 32, 60},
        {"png-without-extension", IFF_PNG, 8, 0},
        {"png.tif", IFF_PNG, 32, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        const Picture source = c.depth == 1 ? noise(67, 45, 1, 1) : slopes(c.depth);
        const DecodedPicture result = decoded(c.file, test::encoded(source, c.format));
        ASSERT_TRUE(result.picture) << result.reason;
        EXPECT_EQ(result.reason, "");
        EXPECT_EQ(result.picture.depth(), c.depth);
        EXPECT_LE(difference(result.picture, source), c.tolerance);
    }
}

unsigned pattern(int x, int y, int most) {
    return static_cast<unsigned>((x * 7 + y * 13 + x * y) % (most + 1));
}

TEST(TiffDecoding, ReadsEveryLayout) {
    const std::pair<const char*, TiffLayout> cases[] = {
        {"ink, black is 0", {.photometric = 1}},
        {"ink in strips of fax, white is 0", {.photometric = 0, .compression = 4}},
        {"ink in strips of fax, black is 0", {.photometric = 1, .compression = 4}},
        {"ink with the bits of bytes reversed", {.photometric = 0, .compression = 4, .fillOrder = 2}},
        {"ink in tiles", {.photometric = 0, .tile = 16}},
        {"ink in tiles of fax", {.photometric = 0, .compression = 4, .tile = 32}},
        {"one strip for all", {.rowsPerStrip = 1000}},
        {"grey of 2 bits", {.bits = 2}},
        {"grey of 4 bits, white is 0", {.bits = 4, .photometric = 0}},
        {"grey of 8 bits in tiles", {.bits = 8, .tile = 16}},
        {"grey of 16 bits", {.bits = 16}},
        {"colour", {.bits = 8, .samples = 3, .photometric = 2}},
        {"colour in tiles", {.bits = 8, .samples = 3, .photometric = 2, .tile = 16}},
        {"colour in planes", {.bits = 8, .samples = 3, .photometric = 2, .compression = 5, .planes = true}},
    };
    for (const auto& [name, layout] : cases) {
        SCOPED_TRACE(name);
        const int most = (1 << layout.bits) - 1;
        const auto sample = [most](int x, int y, int s) { return pattern(x + 5 * s, y, most); };
        const DecodedPicture result = decoded("t.tif", test::tiff(layout, sample));
        ASSERT_TRUE(result.picture) << result.reason;
        EXPECT_EQ(result.picture.depth(), layout.samples == 3 ? 32 : layout.bits == 1 ? 1 : 8);
        for (int y = 0; y < 23; ++y)
            for (int x = 0; x < 37; ++x) {
                const auto light = [&](int s) {
                    const double value = sample(x, y, layout.samples == 3 ? s : 0) * 255.0 / most;
                    return std::lround(layout.photometric == 0 ? 255 - value : value);
                };
                const Color read = result.picture.pixel(x, y);
                ASSERT_NEAR(read.red, light(0), 1) << x << "," << y;
                ASSERT_NEAR(read.green, light(1), 1) << x << "," << y;
                ASSERT_NEAR(read.blue, light(2), 1) << x << "," << y;
            }
    }
}

TEST(TiffDecoding, KeepsAPaletteOfGreysGrey) {
    TiffLayout layout{.bits = 4, .photometric = 3};
    for (int channel = 0; channel < 3; ++channel)
        for (int i = 0; i < 16; ++i)
            layout.palette.push_back(static_cast<std::uint16_t>((15 - i) * 0x1111));
    auto value = [](int x, int y, int) { return pattern(x, y, 15); };
    const DecodedPicture grey = decoded("t.tif", test::tiff(layout, value));
    ASSERT_TRUE(grey.picture) << grey.reason;
    EXPECT_EQ(grey.picture.depth(), 8);
    EXPECT_EQ(grey.picture.pixel(3, 2).green, (15 - pattern(3, 2, 15)) * 17);
    layout.palette[0] = 0xffff; // of entry 0 the red alone
    layout.palette[16] = layout.palette[32] = 0;
    const DecodedPicture colour = decoded("t.tif", test::tiff(layout, value));
    EXPECT_EQ(colour.picture.depth(), 32);
    EXPECT_EQ(colour.picture.pixel(0, 0), RGB(255, 0, 0));
}

TEST(TiffDecoding, TurnsThePictureUpright) {
    // A dark pixel in the first row and column of what is stored, a grey one beside it in the row.
    struct Case {
        int orientation;
        int darkX, darkY, greyX, greyY;
    };
    const int w = 37, h = 23;
    const Case cases[] = {
        {1, 0, 0, 1, 0}, {2, w - 1, 0, w - 2, 0}, {3, w - 1, h - 1, w - 2, h - 1}, {4, 0, h - 1, 1, h - 1},
        {5, 0, 0, 0, 1}, {6, h - 1, 0, h - 1, 1}, {7, h - 1, w - 1, h - 1, w - 2}, {8, 0, w - 1, 0, w - 2}};
    for (const Case& c : cases)
        for (const int samples : {1, 3}) {
            SCOPED_TRACE("orientation " + std::to_string(c.orientation) + ", " + std::to_string(samples) + " samples");
            const TiffLayout layout{
                .bits = 8, .samples = samples, .photometric = samples == 1 ? 1 : 2, .orientation = c.orientation};
            const DecodedPicture result = decoded("t.tif", test::tiff(layout, [](int x, int y, int) {
                                                      return y > 0 || x > 1 ? 255u : x == 0 ? 0u : 100u;
                                                  }));
            ASSERT_TRUE(result.picture) << result.reason;
            EXPECT_EQ(result.picture.Width(), c.orientation > 4 ? h : w);
            EXPECT_EQ(result.picture.pixel(c.darkX, c.darkY).red, 0);
            EXPECT_EQ(result.picture.pixel(c.greyX, c.greyY).red, 100);
        }
}

TEST(Transparency, LiesOverWhite) {
    // Black at three quarters of full cover, in each format that has alpha.
    Pix* pix = pixCreate(8, 4, 32);
    pixSetSpp(pix, 4);
    pixSetAllArbitrary(pix, 0x000000bf);
    const Picture black = Picture::adopt(pix);
    const std::string files[] = {
        test::encoded(black, IFF_PNG),
        test::tiff({.width = 8, .height = 4, .bits = 8, .samples = 4, .photometric = 2, .extraSample = 2},
                   [](int, int, int s) { return s == 3 ? 0xbfu : 0u; })};
    for (const std::string& bytes : files) {
        const DecodedPicture result = decoded("a", bytes);
        ASSERT_TRUE(result.picture) << result.reason;
        EXPECT_NEAR(result.picture.pixel(3, 3).red, 64, 1);
        EXPECT_NEAR(result.picture.pixel(3, 3).blue, 64, 1);
    }
}

TEST(PngDecoding, ReadsAPaletteOfInkAsInk) {
    for (const bool inkFirst : {true, false}) {
        const Picture source = noise(41, 17, 1, 9);
        Pix* pix = pixCopy(nullptr, source.pix());
        PIXCMAP* colours = pixcmapCreate(1);
        for (const int light : {inkFirst ? 0 : 255, inkFirst ? 255 : 0})
            pixcmapAddColor(colours, light, light, light);
        pixSetColormap(pix, colours);
        const DecodedPicture result = decoded("a.png", test::encoded(Picture::adopt(pix), IFF_PNG));
        ASSERT_TRUE(result.picture) << result.reason;
        EXPECT_EQ(result.picture.depth(), 1);
        for (int y = 0; y < 17; ++y)
            for (int x = 0; x < 41; ++x)
                ASSERT_EQ(result.picture.pixel(x, y).red == 0, (source.pixel(x, y).red == 255) == inkFirst);
    }
}

TEST(JpegDecoding, TurnsInkIntoLight) {
    auto ink = [](int x, int, int i) { return i == 0 ? 200u : i == 3 ? static_cast<unsigned>(x < 8 ? 0 : 100) : 30u; };
    for (const bool adobe : {true, false}) {
        const DecodedPicture result = decoded("a.jpg", test::cmykJpeg(16, 16, adobe, ink));
        ASSERT_TRUE(result.picture) << result.reason;
        EXPECT_NEAR(result.picture.pixel(3, 3).red, 55, 3) << adobe;
        EXPECT_NEAR(result.picture.pixel(3, 3).green, 225, 3) << adobe;
        EXPECT_NEAR(result.picture.pixel(12, 3).green, 225 * 155 / 255, 3) << adobe;
    }
}

TEST(PictDecoding, ReadsMapsInEveryLayout) {
    struct Case {
        const char* name;
        test::PictLayout layout;
        int depth = 1;
        int width = 83;
        int tolerance = 0;
    };
    const Case cases[] = {{"with its header", {}},
                          {"without its header", {.lead = 0}},
                          {"of version 1", {.version = 1}},
                          {"in bands", {.bands = 4}},
                          {"with mask regions", {.masked = true}},
                          {"too narrow to be packed", {}, 1, 33},
                          {"with rows of more than 250 bytes", {}, 1, 2100},
                          {"with a colour table", {.bits = 8}, 8, 84},
                          {"with colours of 16 bits", {.bands = 3, .bits = 16}, 32, 83, 7},
                          {"with colours in planes", {.masked = true, .bits = 32}, 32}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const Picture source = noise(c.width, 31, c.depth, 11);
        const DecodedPicture result = decoded("a.pict", test::pict(source, c.layout));
        ASSERT_TRUE(result.picture) << result.reason;
        EXPECT_EQ(result.picture.depth(), c.depth);
        EXPECT_LE(difference(result.picture, source), c.tolerance);
    }
}

TEST(PictDecoding, DrawsMapsAtTheSizeAsked) {
    const Picture ink = drawn(40, 20, 1, [](int x, int) { return x < 20 ? 1u : 0u; });
    const DecodedPicture result = decoded("a.pict", test::pict(ink, {.scale = 3}));
    ASSERT_TRUE(result.picture) << result.reason;
    EXPECT_EQ(result.picture.Width(), 120);
    EXPECT_EQ(result.picture.Height(), 60);
    EXPECT_EQ(result.picture.pixel(50, 30).red, 0);
    EXPECT_EQ(result.picture.pixel(70, 30).red, 255);
}

TEST(Decoding, HoldsEachExtensionToItsFormat) {
    const std::string png = test::encoded(noise(9, 9, 8, 1), IFF_PNG);
    const std::string jpeg = test::encoded(noise(9, 9, 8, 1), IFF_JFIF_JPEG);
    EXPECT_TRUE(decoded("a.jpg", png).picture.isNil());
    EXPECT_TRUE(decoded("a.png", jpeg).picture.isNil());
    const TempFolder folder;
    EXPECT_TRUE(decodeTiffFile(FolderItem(folder.write("a.tif", jpeg))).picture.isNil());
    EXPECT_FALSE(decodeTiffFile(FolderItem(folder.write("b.tif", test::encoded(noise(9, 9, 1, 1), IFF_TIFF_G4))))
                     .picture.isNil());
}

} // namespace
} // namespace velmarin
