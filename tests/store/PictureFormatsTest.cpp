#include "store/PictureFormats.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using namespace std::string_literals;

std::string pict(std::size_t headerBytes) {
    return std::string(headerBytes + 10, '\0') + "\0\x11\x02\xff"s;
}

TEST(PictureFormat, IsThatOfTheExtensionOrElseOfTheContent) {
    using enum PictureFormat;
    const struct {
        std::string bytes;
        const char* extension;
        std::optional<PictureFormat> format;
    } rows[] = {
        {"BM", "JPEG", Jpeg},
        {"", "png", Png},
        {"BM", "tif", Bmp},
        {"\xff\xd8\xff", "tif", Jpeg},
        {"\x89PNG", "", Png},
        {"II*\0"s, "bmp", Tiff},
        {"MM\0+"s, "", Tiff},
        {"\xff\x4f\xff\x51", "", Jpeg2000},
        {"GIF89a", "", Gif},
        {"RIFF1234WEBPV", "", WebP},
        {"RIFF1234WEBP", "", std::nullopt},
        {"P1 ", "", Pnm},
        {"P6 ", "", Pnm},
        {"P7 ", "", std::nullopt},
        {"P0 ", "", std::nullopt},
        {"P6", "", std::nullopt},
        {"\n\5\1" + std::string(126, '\0'), "", Pcx},
        {"\n\6\1" + std::string(126, '\0'), "", std::nullopt},
        {"\n\5\1" + std::string(125, '\0'), "", std::nullopt},
        {pict(0), "", Pict},
        {pict(512), "", Pict},
        {pict(0).substr(0, 13), "pict", std::nullopt},
        {"BM", "tga", Bmp},
        {"?", "TGA", Tga},
    };
    for (const auto& row : rows)
        EXPECT_EQ(pictureFormat(row.bytes, row.extension), row.format) << row.bytes.substr(0, 20) << row.extension;
    EXPECT_EQ(pictStart(pict(512)), 512u);
    EXPECT_EQ(pictStart(pict(0)), 0u);
}

} // namespace
} // namespace velmarin
