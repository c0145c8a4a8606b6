#include "make_samples/FontSet.h"

#include <cmath>
#include <stdexcept>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include <hb.h>

#include "make_samples/TextPieces.h"
#include "text/StringRules.h"

namespace velmarin {

namespace {

/// Of the em: what thickening adds to a stem, and the height of capitals that stand in for small ones.
constexpr double thickness = 0.032;
constexpr double smallCapitals = 0.80;

bool isCombining(char32_t c) {
    return (c >= 0x300 && c <= 0x36F) || c == 0x200D;
}

std::uint16_t sizeIn64ths(double pixels) {
    return static_cast<std::uint16_t>(std::lround(pixels * 64));
}

} // namespace

struct FontSet::Library {
    FT_Library handle = nullptr;
    Library() {
        if (FT_Init_FreeType(&handle) != 0)
            throw std::runtime_error("FreeType cannot start");
    }
    ~Library() { FT_Done_FreeType(handle); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
};

struct FontSet::Face {
    std::string file;
    FT_Face outlines = nullptr;
    hb_face_t* shapes = nullptr;
    std::unordered_map<std::uint16_t, hb_font_t*> fonts;

    Face(FT_Library library, const std::string& path) : file(path) {
        hb_blob_t* blob = hb_blob_create_from_file_or_fail(path.c_str());
        if (blob == nullptr || FT_New_Face(library, path.c_str(), 0, &outlines) != 0) {
            hb_blob_destroy(blob);
            throw std::runtime_error("cannot open the font " + path);
        }
        shapes = hb_face_create(blob, 0);
        hb_blob_destroy(blob);
    }
    ~Face() {
        for (auto& [size, font] : fonts)
            hb_font_destroy(font);
        hb_face_destroy(shapes);
        FT_Done_Face(outlines);
    }
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    hb_font_t* at(std::uint16_t size) {
        hb_font_t*& font = fonts[size];
        if (font == nullptr) {
            font = hb_font_create(shapes);
            hb_font_set_scale(font, size, size);
        }
        return font;
    }

    bool has(char32_t c) const { return FT_Get_Char_Index(outlines, c) != 0; }
};

/// What a stretch of text is shaped with.
struct FontSet::Run {
    FontKey font;
    bool smallCaps = false;
};

FontSet::FontSet(const Typeface& typeface)
    : library_(std::make_unique<Library>()), thickenBold_(typeface.thickenBold), ownSmallCaps_(typeface.ownSmallCaps) {
    roman_ = facesOf(typeface.roman);
    italic_ = facesOf(typeface.italic);
    bold_ = facesOf(typeface.bold);
}

FontSet::~FontSet() = default;

std::vector<std::size_t> FontSet::facesOf(const std::vector<std::string>& files) {
    std::vector<std::size_t> chain;
    for (const std::string& file : files) {
        std::size_t i = 0;
        while (i < faces_.size() && faces_[i]->file != file)
            ++i;
        if (i == faces_.size())
            faces_.push_back(std::make_unique<Face>(library_->handle, file));
        chain.push_back(i);
    }
    return chain;
}

const ShapedText& FontSet::shape(Style style, double pixels, std::string_view text) {
    const std::uint16_t size = sizeIn64ths(pixels);
    std::string key(1, static_cast<char>(style));
    key += static_cast<char>(size & 0xFF);
    key += static_cast<char>(size >> 8);
    key += text;
    const auto [place, isNew] = shaped_.try_emplace(std::move(key));
    ShapedText& shaped = place->second;
    if (!isNew)
        return shaped;
    if (style == Style::SmallCaps && !ownSmallCaps_) {
        shapeSmallCaps(shaped, pixels, text);
        return shaped;
    }
    const auto& chain = style == Style::Italic ? italic_ : style == Style::Bold ? bold_ : roman_;
    const Run run{{0, style == Style::Bold && thickenBold_, size}, style == Style::SmallCaps};
    shapeCovered(shaped, chain, run, text, 0);
    return shaped;
}

void FontSet::shapeSmallCaps(ShapedText& shaped, double pixels, std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t start = at;
        std::size_t end = at;
        bool isSmall = false;
        while (at < text.size()) {
            nextCodePoint(text, at);
            const std::string_view letter = text.substr(end, at - end);
            const bool thisIsSmall = Uppercase(letter) != letter;
            if (end > start && thisIsSmall != isSmall)
                break;
            isSmall = thisIsSmall;
            end = at;
        }
        at = end;
        const std::string_view part = text.substr(start, end - start);
        const Run run{{0, false, sizeIn64ths(isSmall ? pixels * smallCapitals : pixels)}, false};
        shapeCovered(shaped, roman_, run, isSmall ? Uppercase(part) : std::string(part), start);
    }
}

void FontSet::shapeCovered(ShapedText& shaped, const std::vector<std::size_t>& chain, const Run& run,
                           std::string_view text, std::size_t offset) {
    const std::size_t none = faces_.size();
    std::size_t runStart = 0;
    std::size_t runFace = none;
    const auto finish = [&](std::size_t end) {
        if (runFace == none || end == runStart)
            return;
        Run found = run;
        found.font.face = static_cast<std::uint8_t>(runFace);
        found.font.thick |= run.font.thick;
        shapeRun(shaped, found, text.substr(runStart, end - runStart), offset + runStart);
    };
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t start = at;
        const char32_t c = nextCodePoint(text, at);
        std::size_t face = none;
        if (runFace != none && isCombining(c) && faces_[runFace]->has(c))
            face = runFace;
        for (std::size_t i = 0; i < chain.size() && face == none; ++i)
            if (faces_[chain[i]]->has(c))
                face = chain[i];
        if (face == runFace)
            continue;
        finish(start);
        runStart = start;
        runFace = face;
    }
    finish(text.size());
}

void FontSet::shapeRun(ShapedText& shaped, const Run& run, std::string_view text, std::size_t offset) {
    hb_buffer_t* buffer = hb_buffer_create();
    hb_buffer_add_utf8(buffer, text.data(), static_cast<int>(text.size()), 0, static_cast<int>(text.size()));
    hb_buffer_guess_segment_properties(buffer);
    const hb_feature_t smallCaps{HB_TAG('s', 'm', 'c', 'p'), 1, 0, HB_FEATURE_GLOBAL_END};
    hb_shape(faces_[run.font.face]->at(run.font.size), buffer, &smallCaps, run.smallCaps ? 1 : 0);
    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
    const auto widened = run.font.thick ? static_cast<float>(thickness * run.font.size / 64) : 0.0F;
    for (unsigned i = 0; i < count; ++i) {
        ShapedGlyph glyph;
        glyph.font = run.font;
        glyph.id = infos[i].codepoint;
        glyph.cluster = infos[i].cluster + static_cast<std::uint32_t>(offset);
        glyph.advance = static_cast<float>(positions[i].x_advance) / 64;
        if (glyph.advance > 0)
            glyph.advance += widened;
        glyph.dx = static_cast<float>(positions[i].x_offset) / 64;
        glyph.dy = static_cast<float>(positions[i].y_offset) / 64;
        shaped.width += glyph.advance;
        shaped.glyphs.push_back(glyph);
    }
    hb_buffer_destroy(buffer);
}

const GlyphBitmap& FontSet::bitmap(const FontKey& font, std::uint32_t glyph, int subpixel) {
    const std::uint64_t key = std::uint64_t{glyph} << 32 | std::uint64_t{font.size} << 16 |
                              std::uint64_t{font.face} << 8 | std::uint64_t{font.thick} << 4 |
                              static_cast<std::uint64_t>(subpixel);
    const auto [place, isNew] = bitmaps_.try_emplace(key);
    GlyphBitmap& bitmap = place->second;
    if (!isNew)
        return bitmap;
    FT_Face face = faces_[font.face]->outlines;
    if (FT_Set_Char_Size(face, 0, font.size, 72, 72) != 0 ||
        FT_Load_Glyph(face, glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0 ||
        face->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
        return bitmap;
    if (font.thick)
        FT_Outline_Embolden(&face->glyph->outline, static_cast<FT_Pos>(std::lround(thickness * font.size)));
    FT_Outline_Translate(&face->glyph->outline, subpixel * 64 / subpixels, 0);
    if (FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) != 0)
        return bitmap;
    const FT_Bitmap& drawn = face->glyph->bitmap;
    bitmap.left = face->glyph->bitmap_left;
    bitmap.top = face->glyph->bitmap_top;
    bitmap.width = static_cast<int>(drawn.width);
    bitmap.height = static_cast<int>(drawn.rows);
    bitmap.coverage.reserve(std::size_t{drawn.width} * drawn.rows);
    for (unsigned y = 0; y < drawn.rows; ++y) {
        const unsigned char* row = drawn.buffer + static_cast<std::ptrdiff_t>(y) * drawn.pitch;
        bitmap.coverage.insert(bitmap.coverage.end(), row, row + drawn.width);
    }
    return bitmap;
}

} // namespace velmarin
