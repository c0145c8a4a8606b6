#include "ImageFiles.h"
#include "support/PictureDifference.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <set>

#include <allheaders.h>
#include <sys/stat.h>
#include <zlib.h>

namespace velmarin {
namespace {

using namespace std::string_literals;
using test::asText;
using test::decoded;
using test::difference;
using test::drawn;
using test::encoded;
using test::noise;

struct Sample {
    std::string name;
    int format, depth, tolerance;

    /// Noise in one bit; otherwise without sharp changes, which lossy formats keep nearly as it is.
    Picture picture() const {
        return depth == 1 ? noise(67, 45, 1, 1) : drawn(64, 48, depth, [this](int x, int y) {
            const auto a = static_cast<std::uint32_t>(x * 4), b = static_cast<std::uint32_t>(y * 5);
            return depth == 8 ? a : a << 16 | b << 8 | (255 - a);
        });
    }
    std::string bytes() const { return encoded(picture().pix(), format); }
};

const Sample kSamples[] = {
    {"g4.tif", IFF_TIFF_G4, 1, 0},     {"g3.tiff", IFF_TIFF_G3, 1, 0},   {"lzw1.TIF", IFF_TIFF_LZW, 1, 0},
    {"lzw.tif", IFF_TIFF_LZW, 32, 0},  {"j.tif", IFF_TIFF_JPEG, 32, 20}, {"a.png", IFF_PNG, 1, 0},
    {"b.PNG", IFF_PNG, 8, 0},          {"c.png", IFF_PNG, 32, 0},        {"a.jpg", IFF_JFIF_JPEG, 8, 12},
    {"b.JPeG", IFF_JFIF_JPEG, 32, 20}, {"b.bmp", IFF_BMP, 8, 0},         {"c.bmp", IFF_BMP, 32, 0},
    {"a.gif", IFF_GIF, 8, 0},          {"a.pnm", IFF_PNM, 1, 0},         {"b.ppm", IFF_PNM, 32, 0},
    {"a.webp", IFF_WEBP, 32, 40},      {"a.jp2", IFF_JP2, 32, 60},       {"no-extension", IFF_PNG, 8, 0},
    {"png.tif", IFF_PNG, 32, 0},       {"zip.tif", IFF_TIFF_ZIP, 8, 0}};

TEST(Decoding, ReturnsWhatWasWrittenInItsOwnDepth) {
    for (const Sample& sample : kSamples) {
        SCOPED_TRACE(sample.name);
        const DecodedPicture result = decoded(sample.name, sample.bytes());
        ASSERT_TRUE(result.picture) << result.reason;
        EXPECT_EQ(result.reason, "");
        EXPECT_EQ(result.picture.depth(), sample.depth);
        EXPECT_LE(difference(result.picture, sample.picture()), sample.tolerance);
        const test::TempFolder folder;
        const DecodedPicture asTiff = decodeTiffFile(FolderItem(folder.write("a", sample.bytes())));
        EXPECT_EQ(asTiff.picture.isNil(), !sample.bytes().starts_with("II*"));
    }
}

TEST(Decoding, KnowsPcxByItsSignatureAndTgaByItsExtension) {
    // A red and a white pixel.
    const std::string pcx = "\n\5\1\x08\0\0\0\0\1\0\0\0"s + std::string(53, '\0') + "\3\2\0\1\0"s +
                            std::string(58, '\0') + "\xc2\xff\0\xc1\xff\0\xc1\xff"s;
    const std::string tga = "\0\0\2\0\0\0\0\0\0\0\0\0\2\0\1\0\x18\x20\0\0\xff\xff\xff\xff"s;
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"a.pcx", pcx, "Rf"},
        {"a", pcx, "Rf"},
        {"version.pcx", std::string(pcx).replace(1, 1, "\6"), ""},
        {"coding.pcx", std::string(pcx).replace(2, 1, "\2"), ""},
        {"a.TGA", tga, "Rf"},
        {"a", tga, ""}};
    for (const auto& [name, bytes, shown] : cases)
        EXPECT_EQ(asText(decoded(name, bytes).picture), shown) << name << decoded(name, bytes).reason;
}

TEST(Decoding, ScalesGreysOfOtherDepths) {
    for (const int format : {IFF_PNG, IFF_TIFF_LZW})
        for (const int bits : {2, 4, 16}) {
            SCOPED_TRACE(std::to_string(format) + ", " + std::to_string(bits) + " bits");
            const l_uint32 most = (1u << bits) - 1;
            const auto value = [&](int x) { return static_cast<l_uint32>(x) * 79 % (most + 1); };
            Pix* pix = pixCreate(851, 1, bits);
            for (int x = 0; x < 851; ++x)
                pixSetPixel(pix, x, 0, value(x));
            const DecodedPicture result = decoded("a", encoded(pix, format));
            pixDestroy(&pix);
            ASSERT_TRUE(result.picture) << result.reason;
            EXPECT_EQ(result.picture.depth(), 8);
            for (int x = 0; x < 851; ++x)
                ASSERT_EQ(result.picture.pixel(x, 0).red, std::lround(value(x) * 255.0 / most)) << x;
        }
}

TEST(Decoding, TakesPalettesInTheSmallestDepth) {
    const Color dark = RGB(0x80, 0x80, 0x80), red = RGB(255, 0, 0);
    struct Case {
        const char* name;
        int format, bits;
        std::vector<Color> palette; ///< of pixels 0, 1 and so on
        int depth;
        const char* shown;
    };
    const Case cases[] = {{"PNG, black is 0", IFF_PNG, 1, {kBlack, kWhite}, 1, "0f"},
                          {"PNG, white is 0", IFF_PNG, 1, {kWhite, kBlack}, 1, "f0"},
                          {"PNG, grey and white", IFF_PNG, 1, {dark, kWhite}, 8, "8f"},
                          {"PNG, white and grey", IFF_PNG, 1, {kWhite, dark}, 8, "f8"},
                          {"PNG, black and grey", IFF_PNG, 1, {kBlack, dark}, 8, "08"},
                          {"PNG, red and white", IFF_PNG, 1, {red, kWhite}, 32, "Rf"},
                          {"PNG, four colors", IFF_PNG, 2, {kWhite, red, kBlack, dark}, 32, "fR08"},
                          {"TIFF, greys", IFF_TIFF_LZW, 4, {kWhite, dark, kBlack}, 8, "f80"},
                          {"TIFF, colors", IFF_TIFF_LZW, 4, {kWhite, red, kBlack}, 32, "fR0"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Pix* pix = pixCreate(static_cast<int>(c.palette.size()), 1, c.bits);
        PIXCMAP* palette = pixcmapCreate(c.bits);
        for (std::size_t i = 0; i < c.palette.size(); ++i) {
            pixcmapAddColor(palette, c.palette[i].red, c.palette[i].green, c.palette[i].blue);
            pixSetPixel(pix, static_cast<int>(i), 0, static_cast<l_uint32>(i));
        }
        pixSetColormap(pix, palette);
        const DecodedPicture result = decoded("a", encoded(pix, c.format));
        EXPECT_EQ(asText(result.picture), c.shown) << result.reason;
        EXPECT_EQ(result.picture.depth(), c.depth);
        pixDestroy(&pix);
    }
}

TEST(TiffDecoding, ReadsStripsTilesAndPlanes) {
    struct Case {
        const char* name;
        int depth;
        test::TiffLayout layout;
    };
    for (const Case& c :
         {Case{"ink, white is 0", 1, {.photometric = 0}}, Case{"ink, black is 0", 1, {.photometric = 1}},
          Case{"fax, white is 0", 1, {.photometric = 0, .compression = 4}},
          Case{"fax, black is 0", 1, {.photometric = 1, .compression = 4}},
          Case{"ink in tiles", 1, {.photometric = 0, .tile = 16}},
          Case{"fax in tiles", 1, {.photometric = 0, .compression = 4, .tile = 32}}, Case{"grey", 8, {}},
          Case{"grey, white is 0", 8, {.photometric = 0}}, Case{"grey in tiles", 8, {.tile = 16}},
          Case{"grey in planes", 8, {.planes = true}}, Case{"color", 32, {.photometric = 2}},
          Case{"color in tiles", 32, {.photometric = 2, .tile = 16}},
          Case{"color in planes", 32, {.photometric = 2, .compression = 5, .planes = true}}}) {
        SCOPED_TRACE(c.name);
        const Picture written = noise(67, 45, c.depth, 5);
        Pix* expected = pixCopy(nullptr, written.pix());
        // In Leptonica 1 is black in 1 bit, and 0 is black in 8 bits.
        if (c.depth < 32 && (c.layout.photometric == 1) == (c.depth == 1))
            pixInvert(expected, expected);
        const DecodedPicture result = decoded("t.tif", test::tiff(written.pix(), c.layout));
        ASSERT_TRUE(result.picture) << result.reason;
        EXPECT_EQ(result.picture.depth(), c.depth);
        EXPECT_EQ(difference(result.picture, Picture::adopt(expected)), 0);
    }
}

TEST(TiffDecoding, TurnsThePictureUpright) {
    const char* const upright[] = {"08f/fff",  "f80/fff",  "fff/f80",  "fff/08f",
                                   "0f/8f/ff", "f0/f8/ff", "ff/f8/f0", "ff/8f/0f"};
    for (const int depth : {8, 32})
        for (int orientation = 1; orientation <= 8; ++orientation) {
            const Picture stored = drawn(3, 2, depth, [&](int x, int y) {
                const std::uint32_t grey = y > 0 || x > 1 ? 255u : x == 0 ? 0u : 0x80u;
                return depth == 8 ? grey : grey * 0x010101u;
            });
            const DecodedPicture result = decoded(
                "t.tif", test::tiff(stored.pix(), {.photometric = depth == 8 ? 1 : 2, .orientation = orientation}));
            EXPECT_EQ(asText(result.picture), upright[orientation - 1]) << orientation << ", " << depth << " bits";
        }
}

TEST(Transparency, LiesOverWhite) {
    // Black at three quarters of full cover, in each format that has alpha.
    Pix* pix = pixCreate(8, 4, 32);
    pixSetSpp(pix, 4);
    pixSetAllArbitrary(pix, 0x000000bf);
    const Picture grey = drawn(8, 4, 32, [](int, int) { return 0x404040u; });
    for (const std::string& bytes :
         {encoded(pix, IFF_PNG), encoded(pix, IFF_WEBP), test::tiff(pix, {.photometric = 2, .samples = 4})})
        EXPECT_LE(difference(decoded("a", bytes).picture, grey), 1);
    pixDestroy(&pix);
}

TEST(JpegDecoding, TurnsInkIntoLight) {
    const Picture expected = drawn(16, 16, 32, [](int, int) { return 0x218989u; }); // 55 and 225 of 255, by 155 of 255
    for (const bool adobe : {true, false})
        EXPECT_LE(difference(decoded("a.jpg", test::cmykJpeg(adobe)).picture, expected), 3) << adobe;
}

std::string times(int count, const std::string& text) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

TEST(PictDecoding, ReadsMapsInEveryLayout) {
    // Tables of white, red, black and grey 80: by the numbers of their entries, and in order.
    const std::string white = "ffff ffff ffff", red = "ffff 0000 0000", black = "0000 0000 0000",
                      grey = "8000 8000 8000";
    const std::string table = "00000000 0000 0003 0003" + grey + "0000" + white + "0002" + black + "0001" + red;
    const std::string ordered = "00000000 8000 0003 0009" + white + "0009" + red + "0009" + black + "0009" + grey;
    const std::string ramp = "00000000 8000 0002 0000" + white + "0000" + grey + "0000" + black;
    const std::string ink = "0000ffff", paper = "ffff0000";
    const auto rows = [&](int bytes) { return times(bytes, ink) + "/" + times(bytes, paper); };
    const std::string cut = times(4, ink) + times(32, "f") + "/" + times(8, paper);
    struct Case {
        const char* name;
        test::PictMapLayout map;
        int depth;
        std::string shown;
    };
    const Case cases[] = {
        {"bit map", {0x90, 8, 1, "f000 0f00", ""}, 1, rows(1)},
        {"narrow", {0x98, 8, 1, "f000 0f00", ""}, 1, rows(1)},
        {"mask", {0x91, 8, 1, "f000 0f00", ""}, 1, rows(1)},
        {"run and literal", {0x98, 64, 1, "02 f9f0 09 07 0f0f0f0f0f0f0f0f", ""}, 1, rows(8)},
        {"packed with mask", {0x99, 64, 1, "02 f9f0 02 f90f", ""}, 1, rows(8)},
        {"byte 80 is ignored", {0x98, 64, 1, "03 80 f9f0 02 f90f", ""}, 1, rows(8)},
        {"row too short", {0x98, 64, 1, "02 fdf0 02 f90f", ""}, 1, cut},
        {"250 bytes", {0x98, 2000, 1, "04 81f0 87f0 04 810f 870f", ""}, 1, rows(250)},
        {"252 bytes", {0x98, 2016, 1, "0004 81f0 85f0 0004 810f 850f", ""}, 1, rows(252)},
        {"2 bits", {0x98, 32, 2, "02 f91b 02 f900", table}, 32, times(8, "fR08") + "/" + times(32, "f")},
        {"4 bits", {0x98, 16, 4, "02 f901 02 f923", ordered}, 32, times(8, "fR") + "/" + times(8, "08")},
        {"8 bits", {0x98, 8, 8, "02 f901 09 07 0001020001020001", ramp}, 8, "88888888/f80f80f8"},
        {"16 bits", {0x9a, 4, 16, "03 fd7c00 09 03 7fff 0000 03e0 001f", ""}, 32, "RRRR/f0GB"},
        {"16, plain", {0x9a, 4, 16, "7c007c007c007c00 7fff000003e0001f", "", 1}, 32, "RRRR/f0GB"},
        {"16, narrow", {0x9a, 3, 16, "7c007c007c00 7fff03e0001f", "", 3}, 32, "RRR/fGB"},
        {"planes", {0x9a, 4, 32, "06 fdff fd00 fd00 0d 0b ff000000 ff00ff00 ff0000ff", ""}, 32, "RRRR/f0GB"},
        {"alpha", {0x9b, 2, 32, "08 ff55 ffff ff00 ff00 09 07 5555 ff00 ff00 ff00", "", 4, 4}, 32, "RR/f0"},
        {"32, plain", {0x9a, 2, 32, "55ff0000 5500ff00 55ffffff 550000ff", "", 1}, 32, "RG/fB"},
        {"32, narrow", {0x9a, 1, 32, "55ff0000 5500ff00", "", 4}, 32, "R/G"},
        {"32, three bytes", {0x9a, 2, 32, "ff0000 00ff00 ffffff 0000ff", "", 2}, 32, "RG/fB"},
    };
    for (const Case& c : cases)
        for (const int version : {1, 2}) {
            if (version == 1 && c.map.bits > 8)
                continue; // its opcodes are of version 2
            SCOPED_TRACE(c.name);
            const std::string bytes = test::pict({c.map}, version);
            for (const std::string& file : {bytes, bytes.substr(512)}) {
                const DecodedPicture result = decoded("a.pict", file);
                EXPECT_EQ(asText(result.picture), c.shown) << result.reason;
                EXPECT_EQ(result.picture.depth(), c.depth);
            }
        }
}

TEST(PictDecoding, DrawsEachMapInItsRectangle) {
    const test::PictMapLayout map{0x90, 8, 1, "f000 0f00", ""};
    EXPECT_EQ(asText(decoded("a", test::pict({map, map})).picture), "0000ffff/ffff0000/0000ffff/ffff0000");
    const DecodedPicture large = decoded("a", test::pict({{0x90, 8, 1, "f0f0 f0f0", "", 0, 3, 3}}));
    ASSERT_EQ(large.picture.Width(), 24);
    EXPECT_EQ(large.picture.Height(), 6);
    EXPECT_EQ(large.picture.pixel(8, 3), kBlack);
    EXPECT_EQ(large.picture.pixel(15, 3), kWhite);
}

/// Names and contents of at least one file of every format.
std::map<std::string, std::string> oneOfEach() {
    std::map<std::string, std::string> files = {{"tiles.tif", test::tiff(noise(67, 45, 8, 2).pix(), {.tile = 16})},
                                                {"cmyk.jpg", test::cmykJpeg(true)},
                                                {"a.pict", test::smallPict()},
                                                {"bare.pct", test::smallPict().substr(512)}};
    for (const Sample& sample : kSamples)
        files[sample.name] = sample.bytes();
    return files;
}

/// Decodes damaged files; each gives a picture or a reason, and a library says nothing on standard error.
class DamagedFiles : public testing::Test {
  protected:
    DamagedFiles() { testing::internal::CaptureStderr(); }
    ~DamagedFiles() override { EXPECT_EQ(testing::internal::GetCapturedStderr(), ""); }

    static DecodedPicture expectAnswer(const std::string& name, std::string_view bytes) {
        DecodedPicture result = decoded(name, bytes);
        EXPECT_TRUE(result.picture || !result.reason.empty()) << name << ", " << bytes.size() << " bytes";
        return result;
    }
};

TEST_F(DamagedFiles, CutShortAnywhereEndInAPictureOrAReason) {
    const std::set<std::string> shownInPart = {"a.jpg", "b.JPeG", "cmyk.jpg", "j.tif", "a.jp2"};
    for (const auto& [name, content] : oneOfEach()) {
        const std::string_view bytes = content;
        for (std::size_t part = 0; part < 24; ++part)
            expectAnswer(name, bytes.substr(0, part < 12 ? part * 7 : bytes.size() * (part - 11) / 13));
        const DecodedPicture half = expectAnswer(name, bytes.substr(0, bytes.size() / 2));
        EXPECT_TRUE(shownInPart.contains(name) || half.picture.isNil()) << name;
        if (name == "a.jpg") {
            const DecodedPicture most = expectAnswer(name, bytes.substr(0, bytes.size() - 40));
            EXPECT_TRUE(most.picture && !most.reason.empty()) << "what there is, and a reason";
            EXPECT_TRUE(expectAnswer(name, bytes.substr(0, bytes.find("\xff\xda") + 16)).picture.isNil());
        }
    }
}

TEST_F(DamagedFiles, WithBytesChangedEndInAPictureOrAReason) {
    std::mt19937 random(4);
    for (const auto& [name, content] : oneOfEach()) {
        std::string middle = content;
        expectAnswer(name, middle.replace(middle.size() / 2, 8, "\xff\xd9\0\0\xff\xff\0\x01"s));
        for (int round = 0; round < 30; ++round) {
            std::string bytes = content;
            // The first rounds damage what controls a decoder: the bytes before the pixels.
            const std::size_t within = round < 20 ? std::min<std::size_t>(bytes.size(), 120) : bytes.size();
            for (int change = 0; change <= round % 3; ++change)
                bytes[random() % within] = static_cast<char>(random());
            expectAnswer(name, bytes);
        }
    }
}

TEST(FilesThatCannotBeShown, AreRefused) {
    const Picture small = noise(40, 40, 8, 1);
    const std::string bmp = encoded(small.pix(), IFF_BMP), jpeg = encoded(small.pix(), IFF_JFIF_JPEG),
                      gif = encoded(small.pix(), IFF_GIF), tif = test::tiff(small.pix(), {});
    const auto with = [](std::string bytes, std::size_t at, const std::string& put) {
        return bytes.replace(at, put.size(), put);
    };
    const std::size_t frame = jpeg.find("\xff\xc0"), block = gif.find("\x2c\0\0\0\0\x28\0\x28\0"s),
                      tag = tif.find("\0\1\3\0\1\0\0\0"s), high = tif.find("\1\1\3\0\1\0\0\0"s);
    std::string png = with(encoded(small.pix(), IFF_PNG), 16, "\0\0\xea\x60\0\0\xea\x60"s);
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(png.data() + 12), 17);
    for (int i = 0; i < 4; ++i)
        png[29 + i] = static_cast<char>(sum >> (24 - 8 * i));
    const struct {
        const char* name;
        std::string bytes;
        const char* reason;
    } cases[] = {
        {"a.bmp", with(bmp, 18, "\x60\xea\0\0\x60\xea\0\0"s), "60000 x 60000"},
        {"b.bmp", with(bmp, 18, "\0\0\0\x80\0\0\0\x80"s), "-2147483648"},
        {"c.bmp", with(bmp, 22, "\0\0\0\0"s), "40 x 0"},
        {"a.png", png, "60000 x 60000"},
        {"chunk.png", encoded(small.pix(), IFF_PNG).substr(0, 33) + "\x7f\xff\xff\xf0sCAL"s, "the file ends"},
        {"a.jpg", with(jpeg, frame + 5, "\xea\x60\xea\x60"), "60000 x 60000"},
        {"a.tif", with(with(tif, tag + 8, "\x60\xea"), high + 8, "\x60\xea"), "60000 x 60000"},
        {"b.tif", with(tif, tag + 2, "\4\0\1\0\0\0\xff\xff\xff\xff"s), "4294967295 x 40"},
        {"c.tif", with(tif, tag + 8, "\0\0"s), ""},
        {"float.tif", test::tiff(small.pix(), {.sampleFormat = 3}), "floating-point"},
        {"damaged.tif", with(encoded(small.pix(), IFF_TIFF_ZIP), 8, "damaged"), ""},
        {"a.pict", with(test::smallPict(), 514, "\x80\0\x80\0\x7f\xff\x7f\xff"s), "65535 x 65535"},
        {"a.gif", with(gif, block + 5, "\x60\xea\x60\xea"), ""},
        {"a.ppm", "P6\n60000 60000\n255\nxxx", ""},
        {"b.ppm", "P6\n20000 20000\n255\nxxx", ""},
    };
    const long before = test::mostMemory();
    for (const auto& c : cases) {
        const DecodedPicture result = decoded(c.name, c.bytes);
        EXPECT_LT(test::mostMemory() - before, 200'000) << c.name << ", in KB";
        EXPECT_TRUE(result.picture.isNil()) << c.name;
        EXPECT_NE(result.reason, "") << c.name;
        EXPECT_NE(result.reason.find(c.reason), std::string::npos) << c.name << ": " << result.reason;
    }
    // Leptonica reads past the smaller components of this picture.
    const DecodedPicture ended = decodePicture(FolderItem(SUBSAMPLED_JPEG_2000));
    EXPECT_TRUE(ended.picture || ended.reason.starts_with("its decoder failed")) << ended.reason;
}

TEST(Scripts, WithThePictureExtensionsAreNotPictures) {
    // What GraphicsMagick would read, run or fetch if it chose the format itself.
    const char* const scripts[] = {"push graphic-context\nviewbox 0 0 9 9\nfill 'url(https://example.org/x.png)'\n",
                                   "<?xml version=\"1.0\"?><image><read filename=\"/etc/hostname\"/></image>",
                                   "%!PS-Adobe-3.0\n%%BoundingBox: 0 0 9 9\nshowpage\n", "@/etc/hostname", "GIF89a"};
    testing::internal::CaptureStderr(); // a missing helper program would be named here
    for (const char* script : scripts)
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
    const test::TempFolder folder;
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
