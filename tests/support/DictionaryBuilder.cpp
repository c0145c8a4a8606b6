#include "support/DictionaryBuilder.h"

#include "support/TempFolder.h"

#include <cstdint>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

std::string imageIndexOf(const std::vector<std::string>& lines) {
    std::string text = std::to_string(static_cast<long>(lines.size()) - 1) + "\n";
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

} // namespace

std::string oneBitBmp(int width, int height) {
    const auto across = static_cast<std::uint32_t>(width), down = static_cast<std::uint32_t>(height);
    const std::uint32_t stride = (across + 31) / 32 * 4, size = stride * down;
    constexpr std::uint32_t kHeaders = 14 + 40 + 8, kOnePlaneOfOneBit = 0x00010001, kPixelsPerMeter = 11811;
    constexpr std::uint32_t kColors = 2, kWhite = 0x00FFFFFF;
    std::string file = "BM";
    for (const std::uint32_t value : {kHeaders + size, 0U, kHeaders, 40U, across, down, kOnePlaneOfOneBit, 0U, size,
                                      kPixelsPerMeter, kPixelsPerMeter, kColors, 0U, 0U, kWhite}) {
        for (int shift = 0; shift < 32; shift += 8)
            file += static_cast<char>(value >> shift);
    }
    for (std::uint32_t y = 0; y < down; ++y) {
        std::string row(stride, '\0');
        for (std::uint32_t x = 1; x + 1 < across && y > 0 && y + 1 < down; ++x)
            row[x / 8] = static_cast<char>(row[x / 8] | (0x80 >> (x % 8)));
        file += row;
    }
    return file;
}

DictionaryBuilder& DictionaryBuilder::entry(const std::string& headword, const std::string& page,
                                            const std::vector<std::string>& errata) {
    std::string line = headword;
    if (!page.empty()) {
        line += " <@_" + page + "_>";
        if (defaults_.try_emplace("mImg/" + page, oneBitBmp()).second)
            pages_.push_back(page);
    }
    for (const std::string& name : errata) {
        line += " <^_" + name + "_>";
        defaults_.try_emplace("mPimg/" + name, oneBitBmp());
    }
    defaults_["txt"] += line + "\n";
    defaults_["ind"] += headword + "\n";
    return *this;
}

DictionaryBuilder& DictionaryBuilder::entries(const std::vector<std::string>& headwords) {
    for (const std::string& headword : headwords)
        entry(headword, "p" + std::to_string(pages_.size() + 1) + ".bmp");
    return *this;
}

DictionaryBuilder&
DictionaryBuilder::captions(const std::vector<std::pair<std::string, std::string>>& namesAndCaptions) {
    std::vector<std::string> lines;
    for (const auto& [name, caption] : namesAndCaptions)
        lines.push_back(name + "\t" + caption);
    return member("mImg/ImageIndex2", imageIndexOf(lines));
}

DictionaryBuilder& DictionaryBuilder::imageIndex(const std::vector<std::string>& names) {
    return member("mImg/ImageIndex", imageIndexOf(names));
}

fs::path DictionaryBuilder::writeTo(const fs::path& folder) const {
    std::map<std::string, std::string> files = defaults_;
    files["mImg/ImageIndex"] = imageIndexOf(pages_);
    std::erase_if(files, [&](const auto& file) {
        return without_.contains(file.first) || without_.contains(file.first.substr(0, file.first.find('/')));
    });
    for (const auto& [name, bytes] : members_)
        files[name] = bytes;
    const fs::path own = folder / name_;
    fs::create_directories(without_.contains("mImg") ? own : own / "mImg");
    for (const auto& [name, bytes] : files)
        writeFile(own / name, bytes);
    return own;
}

fs::path GroupBuilder::writeTo(const fs::path& dictionaryFolder) const {
    const fs::path own = dictionaryFolder / name_;
    fs::create_directories(own);
    for (const DictionaryBuilder& dictionary : dictionaries_)
        dictionary.writeTo(own);
    for (const auto& [name, target] : aliases_)
        fs::create_symlink(target, own / name);
    if (preferences_)
        writeFile(own / "DictionaryPreferences.txt", *preferences_);
    return own;
}

} // namespace velmarin::test
