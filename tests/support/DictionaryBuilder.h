#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmarin::test {

/// A 1-bit BMP file: white with a black frame of one pixel, so that different sizes look different.
std::string oneBitBmp(int width = 16, int height = 16);

/// Builds a dictionary folder. By default it is one that loads: `FW`, `ind`, `txt` and `mImg`, which has a picture of
/// each page and an `ImageIndex` of the pages in the order of the entries.
///
///     DictionaryBuilder("Latin").entry("amo", "p1.bmp").entry("amor", "p2.bmp", {"e1.bmp"}).ijuv().writeTo(group);
class DictionaryBuilder {
  public:
    explicit DictionaryBuilder(std::string name) : name_(std::move(name)) {}

    /// An `ind` line and its `txt` line. An empty page gives a line without a page. Errata name pictures in `mPimg`.
    DictionaryBuilder& entry(const std::string& headword, const std::string& page,
                             const std::vector<std::string>& errata = {});
    /// Entries on separate pages, from "p1.bmp" on.
    DictionaryBuilder& entries(const std::vector<std::string>& headwords);

    DictionaryBuilder& spanish() { return member("Spanish", ""); }
    DictionaryBuilder& ijuv() { return member("IJUV", ""); }
    DictionaryBuilder& format(const std::string& picture, bool independent = false) {
        return member("Format", picture + "\n" + (independent ? "true\n" : ""));
    }

    /// `ImageIndex2` with these names and captions.
    DictionaryBuilder& captions(const std::vector<std::pair<std::string, std::string>>& namesAndCaptions);
    /// `ImageIndex` with these names instead of those of the entries.
    DictionaryBuilder& imageIndex(const std::vector<std::string>& names);
    /// A picture file in `mImg`, by default a small BMP.
    DictionaryBuilder& picture(const std::string& name, const std::string& bytes = oneBitBmp()) {
        return member("mImg/" + name, bytes);
    }
    /// A picture file in `mPimg`.
    DictionaryBuilder& extraPicture(const std::string& name, const std::string& bytes = oneBitBmp()) {
        return member("mPimg/" + name, bytes);
    }

    /// Any member ("ind", "mImg/ImageIndex") with these bytes instead of the default ones.
    DictionaryBuilder& member(const std::string& name, const std::string& bytes) {
        members_[name] = bytes;
        return *this;
    }
    /// Leaves out a default member ("FW", "txt", "mImg", "mImg/ImageIndex", "mImg/p1.bmp").
    DictionaryBuilder& without(const std::string& name) {
        without_.insert(name);
        return *this;
    }

    /// Writes the dictionary into `folder`, which is created if missing, and returns its path.
    std::filesystem::path writeTo(const std::filesystem::path& folder) const;

  private:
    std::string name_;
    std::vector<std::string> pages_;
    std::map<std::string, std::string> defaults_{{"FW", ""}, {"ind", ""}, {"txt", ""}}, members_;
    std::set<std::string> without_;
};

/// Builds a group folder with its dictionaries and, if given, its preferences.
class GroupBuilder {
  public:
    explicit GroupBuilder(std::string name) : name_(std::move(name)) {}

    GroupBuilder& dictionary(DictionaryBuilder dictionary) {
        dictionaries_.push_back(std::move(dictionary));
        return *this;
    }
    /// A link called `name` to anything.
    GroupBuilder& alias(const std::string& name, const std::filesystem::path& target) {
        aliases_[name] = target;
        return *this;
    }
    /// The bytes of `DictionaryPreferences.txt`.
    GroupBuilder& preferences(std::string bytes) {
        preferences_ = std::move(bytes);
        return *this;
    }

    std::filesystem::path writeTo(const std::filesystem::path& dictionaryFolder) const;

  private:
    std::string name_;
    std::vector<DictionaryBuilder> dictionaries_;
    std::map<std::string, std::filesystem::path> aliases_;
    std::optional<std::string> preferences_;
};

} // namespace velmarin::test
