#include "make_scans/Scanner.h"

#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

#include "make_scans/Chance.h"

namespace velmarin {

namespace {

constexpr float kInkDark = 225;     ///< how much darker full ink is than white
constexpr double kScannerDpi = 300; ///< lengths below are for this resolution

float clampUnit(float v) {
    return std::clamp(v, 0.0F, 1.0F);
}

/// The share of a kind of wear that one page gets.
double share(Chance& chance, double strength) {
    return strength * chance.between(0.35, 1);
}

/// What the press left of the type: strokes broken where it took no ink, or thickened where ink ran.
Raster pressed(Raster ink, const Wear& wear, double scale, Chance& chance) {
    const auto broken = static_cast<float>(share(chance, wear.broken));
    const auto spread = static_cast<float>(chance.between(-1, 1) * wear.spread);
    const SmoothNoise fine(chance.next(), 3.4 * scale);
    const SmoothNoise letters(chance.next(), 22 * scale);
    const SmoothNoise patches(chance.next(), 260 * scale);
    blur(ink, 0.6 * scale);
    for (int y = 0; y < ink.height; ++y) {
        std::uint8_t* row = ink.row(y);
        for (int x = 0; x < ink.width; ++x) {
            if (row[x] < 6)
                continue;
            const auto fx = static_cast<float>(x);
            const auto fy = static_cast<float>(y);
            const float patch = patches.at(fx, fy);
            const float level =
                0.36F - 0.16F * spread * (0.7F + 0.3F * patch) +
                broken * (0.24F * fine.at(fx, fy) * (0.6F + 0.6F * patch) + 0.1F * letters.at(fx, fy) + 0.06F * patch);
            const float value = (static_cast<float>(row[x]) / 255 - level) * 4 + 0.5F;
            row[x] = static_cast<std::uint8_t>(clampUnit(value) * 255 * (1 - 0.12F * broken * clampUnit(patch)));
        }
    }
    return ink;
}

/// Where a pixel of the scan lies on the book.
struct BookPoint {
    float x = 0, y = 0; ///< on the page, whose gutter edge is at x = 0; negative on the facing page
    float depth = 0;    ///< how deep in the gutter, 0 to 1
};

/// Maps the scan to the book that lies skewed and bent on the glass.
class Pose {
  public:
    Pose(const OpenBook& book, const Wear& wear, double scale, Chance& chance)
        : width_(static_cast<float>(book.page.width)), height_(static_cast<float>(book.page.height)),
          recto_(book.recto), waveNoise_(chance.next(), 500 * scale) {
        const double angle = std::clamp(chance.normal() * 0.6, -1.0, 1.0) * wear.skew * std::numbers::pi / 180;
        sine_ = static_cast<float>(std::sin(angle));
        cosine_ = static_cast<float>(std::cos(angle));
        const double curl = share(chance, wear.curl);
        zone_ = width_ * static_cast<float>(chance.between(0.12, 0.25));
        squeeze_ = static_cast<float>(0.10 * curl) * zone_;
        lift_ = static_cast<float>(0.016 * curl);
        waves_ = static_cast<float>(3.0 * scale * share(chance, wear.waves));
        outer_ = static_cast<float>(chance.between(-0.3, 1) * 0.03 * wear.border) * width_;
        gutter_ = static_cast<float>(chance.between(0.2, 1) * 0.035 * wear.border) * width_;
        top_ = static_cast<float>(chance.between(-0.4, 1) * 0.012 * wear.border) * height_;
        bottom_ = static_cast<float>(chance.between(-0.2, 1) * 0.012 * wear.border) * height_;
    }

    int scanWidth() const { return static_cast<int>(width_ + outer_ + gutter_); }
    int scanHeight() const { return static_cast<int>(height_ + top_ + bottom_); }

    BookPoint of(float x, float y) const {
        // From here on x counts from the gutter, for both sides alike.
        const float dx = (recto_ ? x - gutter_ : static_cast<float>(scanWidth()) - gutter_ - x) - width_ / 2;
        const float dy = y - top_ - height_ / 2;
        const float side = recto_ ? 1.0F : -1.0F;
        BookPoint point{.x = dx * cosine_ + side * dy * sine_ + width_ / 2,
                        .y = -side * dx * sine_ + dy * cosine_ + height_ / 2};
        const float near = clampUnit(1 - std::abs(point.x) / zone_);
        point.depth = near * near;
        const float bent = point.depth * squeeze_;
        point.x += point.x >= 0 ? -bent * clampUnit(point.x / zone_ * 4) : bent;
        point.y = height_ / 2 + (point.y - height_ / 2) * (1 + lift_ * point.depth);
        if (waves_ > 0)
            point.y += waves_ * waveNoise_.at(x, y * 0.6F);
        return point;
    }

  private:
    float width_, height_;
    bool recto_;
    SmoothNoise waveNoise_;
    float sine_ = 0, cosine_ = 1;
    float zone_ = 1, squeeze_ = 0, lift_ = 0, waves_ = 0;
    float outer_ = 0, gutter_ = 0, top_ = 0, bottom_ = 0;
};

/// Paper and light, without the ink: how much light a place gives, 0 to 255.
class Paper {
  public:
    Paper(const Wear& wear, double scale, int width, int height, Chance& chance)
        : width_(static_cast<float>(width)), height_(static_cast<float>(height)), fiber_(chance.next(), 2.5 * scale),
          cloud_(chance.next(), 420 * scale), stain_(chance.next(), 38 * scale), yellow_(share(chance, wear.yellow)),
          stains_(static_cast<float>(share(chance, wear.stains))), curl_(static_cast<float>(wear.curl)) {
        const double angle = chance.between(0, 2 * std::numbers::pi);
        const double light = share(chance, wear.light);
        lightX_ = static_cast<float>(std::cos(angle) * light * 0.16);
        lightY_ = static_cast<float>(std::sin(angle) * light * 0.16);
        tone_ = static_cast<float>(252 - 42 * yellow_);
    }

    float at(float x, float y, float depth) const {
        float value = tone_ + static_cast<float>(yellow_) * (3.5F * fiber_.at(x, y) + 7 * cloud_.at(x, y));
        const float stain = stain_.at(x, y) + 0.5F * cloud_.at(y, x);
        if (stain > 1.05F)
            value -= stains_ * 160 * (stain - 1.05F);
        const float edge = std::max(std::abs(2 * x / width_ - 1), std::abs(2 * y / height_ - 1));
        if (edge > 0.8F)
            value -= static_cast<float>(yellow_) * 60 * (edge - 0.8F);
        value *= 1 + lightX_ * (x / width_ - 0.5F) + lightY_ * (y / height_ - 0.5F) -
                 (std::abs(lightX_) + std::abs(lightY_)) * 0.5F;
        return value * (1 - 0.45F * curl_ * depth * depth);
    }
    float tone() const { return tone_; }

  private:
    float width_, height_;
    SmoothNoise fiber_, cloud_, stain_;
    double yellow_;
    float stains_, curl_;
    float lightX_ = 0, lightY_ = 0, tone_ = 255;
};

/// The book on the glass, seen without a scanner's faults.
Raster photographed(const OpenBook& book, const Wear& wear, const Pose& pose, const Paper& paper, double scale,
                    Chance& chance) {
    const Raster page = pressed(book.page, wear, scale, chance);
    const Raster facing = book.facing.empty() ? Raster() : pressed(book.facing, wear, scale, chance);
    Raster back = book.back;
    blur(back, 2.2 * scale);
    const auto bleed = static_cast<float>(share(chance, wear.bleed) * 0.30);
    const auto width = static_cast<float>(page.width);
    const auto height = static_cast<float>(page.height);
    const bool black = chance.unit() < 0.6; // else the lid or the leaves below are white
    Raster scan(pose.scanWidth(), pose.scanHeight());
    for (int y = 0; y < scan.height; ++y)
        for (int x = 0; x < scan.width; ++x) {
            const BookPoint at = pose.of(static_cast<float>(x), static_cast<float>(y));
            float value = paper.at(at.x, at.y, at.depth);
            if (at.x > width || at.y < 0 || at.y > height) {
                value = black ? 22 : 0.86F * value;
            } else if (at.x < 0) {
                value -= facing.empty() ? 0 : facing.at(book.recto ? width + at.x : -at.x, at.y) * kInkDark / 255;
            } else {
                const float left = book.recto ? at.x : width - at.x;
                const float through = back.empty() ? 0 : back.at(width - left, at.y) * bleed;
                value -= std::max(through, page.at(left, at.y)) * kInkDark / 255 * (value / 255);
            }
            scan.row(y)[x] = static_cast<std::uint8_t>(std::clamp(value, 0.0F, 255.0F));
        }
    return scan;
}

/// Darkens a round spot.
void addSpot(Raster& scan, double x, double y, double radius, double darkness) {
    for (int py = std::max(0, static_cast<int>(y - radius)); py <= std::min(scan.height - 1.0, y + radius); ++py)
        for (int px = std::max(0, static_cast<int>(x - radius)); px <= std::min(scan.width - 1.0, x + radius); ++px)
            if (std::hypot(px - x, py - y) <= radius)
                scan.row(py)[px] = static_cast<std::uint8_t>(scan.row(py)[px] * (1 - darkness));
}

/// Specks, hairs, and the lines that a grain of dust draws along the way of the sensor.
void addDust(Raster& scan, double dust, double scale, Chance& chance) {
    const auto many = [&](double most) { return static_cast<int>(share(chance, dust) * most); };
    for (int i = many(60); i > 0; --i)
        addSpot(scan, chance.unit() * scan.width, chance.unit() * scan.height, chance.between(0.8, 3.2) * scale,
                chance.between(0.4, 0.9));
    for (int i = many(5); i > 0; --i) {
        double x = chance.unit() * scan.width;
        double y = chance.unit() * scan.height;
        double direction = chance.between(0, 2 * std::numbers::pi);
        for (int step = 0; step < static_cast<int>(90 * scale); ++step) {
            addSpot(scan, x, y, 0.9 * scale, 0.5);
            x += std::cos(direction);
            y += std::sin(direction);
            direction += chance.between(-0.12, 0.12);
        }
    }
    for (int i = many(3.9); i > 0; --i) {
        const int x = static_cast<int>(chance.unit() * scan.width);
        const double darkness = chance.between(0.15, 0.6);
        for (int y = 0; y < scan.height; ++y)
            scan.row(y)[x] = static_cast<std::uint8_t>(scan.row(y)[x] * (1 - darkness));
    }
}

void addSensorNoise(Raster& scan, double strength, Chance& chance) {
    std::array<std::int8_t, 65536> table{};
    for (auto& value : table)
        value = static_cast<std::int8_t>(std::lround(chance.normal() * strength));
    for (std::uint8_t& pixel : scan.pixels)
        pixel = static_cast<std::uint8_t>(std::clamp(pixel + table[chance.next() & 0xFFFF], 0, 255));
}

/// Makes the picture black and white, by a level that follows the light of the surroundings as scanners' do.
void makeBilevel(Raster& scan, const Wear& wear, const Paper& paper, double scale, Chance& chance) {
    const int step = std::max(8, static_cast<int>(64 * scale));
    const int columns = scan.width / step + 1;
    Raster light(columns, scan.height / step + 1);
    for (int y = 0; y < scan.height; ++y)
        for (int x = 0; x < scan.width; ++x) {
            std::uint8_t& brightest = light.row(y / step)[x / step];
            brightest = std::max(brightest, scan.row(y)[x]);
        }
    blur(light, 1.5);
    const double follow = chance.between(0.4, 0.9);
    const double level = 0.60 + wear.threshold * chance.between(-0.25, 0.22);
    for (int y = 0; y < scan.height; ++y)
        for (int x = 0; x < scan.width; ++x) {
            const int brightest = light.row(y / step)[x / step];
            const double white = follow * brightest + (1 - follow) * paper.tone();
            scan.row(y)[x] = scan.row(y)[x] > white * level ? 255 : 0;
        }
    const auto flips = static_cast<int>(share(chance, wear.salt) * 9e-5 * scan.width * scan.height);
    for (int i = 0; i < flips; ++i) {
        const int x = static_cast<int>(chance.unit() * (scan.width - 1));
        std::uint8_t* row = scan.row(static_cast<int>(chance.unit() * scan.height));
        row[x] = static_cast<std::uint8_t>(255 - row[x]);
        if (chance.unit() < 0.4)
            row[x + 1] = row[x];
    }
}

} // namespace

Raster scanned(const OpenBook& book, const ScannerSettings& settings) {
    const Wear& wear = settings.wear;
    const double scale = settings.dpi / kScannerDpi;
    Chance chance(settings.seed);
    const Pose pose(book, wear, scale, chance);
    const Paper paper(wear, scale, book.page.width, book.page.height, chance);
    Raster scan = photographed(book, wear, pose, paper, scale, chance);
    addDust(scan, wear.dust, scale, chance);
    blur(scan, share(chance, wear.blur) * scale);
    addSensorNoise(scan, share(chance, wear.noise) * 7, chance);
    if (settings.tone == ScanTone::Bilevel)
        makeBilevel(scan, wear, paper, scale, chance);
    return scan;
}

Raster spreadOf(const Raster& left, const Raster& right) {
    Raster both(left.width + right.width, std::max(left.height, right.height), 255);
    for (int y = 0; y < left.height; ++y)
        std::memcpy(both.row(y), left.row(y), static_cast<std::size_t>(left.width));
    for (int y = 0; y < right.height; ++y)
        std::memcpy(both.row(y) + left.width, right.row(y), static_cast<std::size_t>(right.width));
    return both;
}

Raster onTable(const Raster& scan) {
    const int margin = scan.width / 15, patch = scan.width / 12;
    Raster table(scan.width + 2 * margin, scan.height + 3 * margin + patch, 0);
    for (int y = 0; y < scan.height; ++y)
        std::memcpy(table.row(margin + y) + margin, scan.row(y), static_cast<std::size_t>(scan.width));
    for (int i = 0; i < 8; ++i)
        for (int y = 0; y < patch; ++y)
            std::memset(table.row(scan.height + 2 * margin + y) + margin + i * patch, i % 2 == 0 ? 255 - 30 * i : 0,
                        static_cast<std::size_t>(patch));
    return table;
}

} // namespace velmarin
