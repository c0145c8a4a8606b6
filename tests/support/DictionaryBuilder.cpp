#include "support/DictionaryBuilder.h"

#include "support/TempFolder.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>

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
    constexpr std::uint32_t kHeaders = 14 + 40 + 8, kPixelsPerMeter = 11811, kWhite = 0x00FFFFFF;
    std::string file = "BM";
    const auto append = [&file](std::initializer_list<std::uint32_t> values) {
        for (const std::uint32_t value : values) {
            for (int shift = 0; shift < 32; shift += 8)
                file += static_cast<char>(value >> shift);
        }
    };
    constexpr std::uint32_t kOnePlaneOfOneBit = 0x00010001, kColors = 2;
    append({kHeaders + size, 0, kHeaders});
    append({40, across, down, kOnePlaneOfOneBit, 0, size, kPixelsPerMeter, kPixelsPerMeter, kColors, 0, 0, kWhite});
    for (std::uint32_t y = 0; y < down; ++y) {
        std::string row(stride, '\0');
        for (std::uint32_t x = 1; x + 1 < across && y > 0 && y + 1 < down; ++x)
            row[x / 8] = static_cast<char>(row[x / 8] | (0x80 >> (x % 8)));
        file += row;
    }
    return file;
}

DictionaryBuilder& DictionaryBuilder::entry(std::string headword, const std::string& page,
                                            const std::vector<std::string>& errata) {
    txt_ += headword;
    if (!page.empty()) {
        txt_ += " <@_" + page + "_>";
        if (std::find(pages_.begin(), pages_.end(), page) == pages_.end())
            pages_.push_back(page);
    }
    for (const std::string& name : errata) {
        txt_ += " <^_" + name + "_>";
        errata_.insert(name);
    }
    txt_ += "\n";
    ind_ += std::move(headword) + "\n";
    return *this;
}

DictionaryBuilder& DictionaryBuilder::entries(const std::vector<std::string>& headwords) {
    for (const std::string& headword : headwords)
        entry(headword, "p" + std::to_string(pages_.size() + 1) + ".bmp");
    return *this;
}

DictionaryBuilder& DictionaryBuilder::format(const std::string& picture, bool independent) {
    return member("Format", picture + "\n" + (independent ? "true\n" : ""));
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

DictionaryBuilder& DictionaryBuilder::picture(const std::string& name, std::string bytes) {
    return member("mImg/" + name, std::move(bytes));
}

DictionaryBuilder& DictionaryBuilder::extraPicture(const std::string& name, std::string bytes) {
    return member("mPimg/" + name, std::move(bytes));
}

DictionaryBuilder& DictionaryBuilder::member(const std::string& name, std::string bytes) {
    members_[name] = std::move(bytes);
    return *this;
}

DictionaryBuilder& DictionaryBuilder::without(const std::string& name) {
    without_.insert(name);
    return *this;
}

std::map<std::string, std::string> DictionaryBuilder::allFiles() const {
    std::map<std::string, std::string> files = {{"FW", ""}, {"ind", ind_}, {"txt", txt_}};
    files["mImg/ImageIndex"] = imageIndexOf(pages_);
    for (const std::string& page : pages_)
        files["mImg/" + page] = oneBitBmp();
    for (const std::string& name : errata_)
        files["mPimg/" + name] = oneBitBmp();
    std::erase_if(files, [&](const auto& file) {
        return std::any_of(without_.begin(), without_.end(), [&](const std::string& name) {
            return file.first == name || file.first.starts_with(name + "/");
        });
    });
    for (const auto& [name, bytes] : members_)
        files[name] = bytes;
    return files;
}

fs::path DictionaryBuilder::writeTo(const fs::path& folder) const {
    const fs::path own = folder / name_;
    fs::create_directories(without_.contains("mImg") ? own : own / "mImg");
    for (const auto& [name, bytes] : allFiles())
        writeFile(own / name, bytes);
    return own;
}

GroupBuilder& GroupBuilder::dictionary(DictionaryBuilder dictionary) {
    dictionaries_.push_back(std::move(dictionary));
    return *this;
}

GroupBuilder& GroupBuilder::manyDictionaries(int count, const std::vector<std::string>& headwords) {
    for (int i = 1; i <= count; ++i)
        dictionary(DictionaryBuilder((i < 10 ? "D0" : "D") + std::to_string(i)).entries(headwords));
    return *this;
}

GroupBuilder& GroupBuilder::alias(std::string name, fs::path target) {
    aliases_.emplace_back(std::move(name), std::move(target));
    return *this;
}

GroupBuilder& GroupBuilder::preferences(std::string bytes) {
    preferences_ = std::move(bytes);
    return *this;
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
