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

/// A whole 1-bit BMP file: white, with a black frame of one pixel, so that two sizes are two pictures.
std::string oneBitBmp(int width = 16, int height = 16);

/// A dictionary folder, told member by member. Without further words it is one that loads: `FW`, `ind`, `txt` and
/// `mImg` with a picture of each page and an `ImageIndex` in the order in which the entries first name the pages.
///
///     DictionaryBuilder("Latin").entry("amo", "p1.bmp").entry("amor", "p2.bmp", {"e1.bmp"}).ijuv().writeTo(group);
class DictionaryBuilder {
  public:
    explicit DictionaryBuilder(std::string name) : name_(std::move(name)) {}

    /// An `ind` line and its `txt` line. The pages need not be named in order; an empty one gives a line without a
    /// page. Errata name pictures in `mPimg`.
    DictionaryBuilder& entry(std::string headword, const std::string& page,
                             const std::vector<std::string>& errata = {});
    /// Entries on pages of their own, "p1.bmp" onwards.
    DictionaryBuilder& entries(const std::vector<std::string>& headwords);

    DictionaryBuilder& spanish() { return member("Spanish", ""); }
    DictionaryBuilder& ijuv() { return member("IJUV", ""); }
    DictionaryBuilder& format(const std::string& picture, bool independent = false);
    DictionaryBuilder& independent() { return format("", true); }

    /// `ImageIndex2` with these names and captions.
    DictionaryBuilder& captions(const std::vector<std::pair<std::string, std::string>>& namesAndCaptions);
    /// `ImageIndex` with these names, whatever the entries say.
    DictionaryBuilder& imageIndex(const std::vector<std::string>& names);
    /// A picture file in `mImg`, by default a small BMP whatever its name.
    DictionaryBuilder& picture(const std::string& name, std::string bytes = oneBitBmp());
    /// A picture file in `mPimg`.
    DictionaryBuilder& extraPicture(const std::string& name, std::string bytes = oneBitBmp());

    /// Any member with these very bytes ("ind", "mImg/ImageIndex"), in place of what would have been written.
    DictionaryBuilder& member(const std::string& name, std::string bytes);
    /// Leaves out what would have been written unasked ("FW", "txt", "mImg", "mImg/ImageIndex", "mImg/p1.bmp").
    DictionaryBuilder& without(const std::string& name);

    const std::string& name() const { return name_; }
    /// Writes the folder into `folder`, which is made where needed, and returns its path.
    std::filesystem::path writeTo(const std::filesystem::path& folder) const;

  private:
    std::map<std::string, std::string> allFiles() const;

    std::string name_;
    std::string ind_;
    std::string txt_;
    std::vector<std::string> pages_;
    std::set<std::string> errata_;
    std::map<std::string, std::string> members_;
    std::set<std::string> without_;
};

/// A group folder with its dictionaries, and its preferences where any are told.
class GroupBuilder {
  public:
    explicit GroupBuilder(std::string name) : name_(std::move(name)) {}

    GroupBuilder& dictionary(DictionaryBuilder dictionary);
    /// `count` small dictionaries, "D01" onwards, of the same words.
    GroupBuilder& manyDictionaries(int count, const std::vector<std::string>& headwords);
    /// A link called `name` to anything.
    GroupBuilder& alias(std::string name, std::filesystem::path target);
    /// `DictionaryPreferences.txt` as these bytes.
    GroupBuilder& preferences(std::string bytes);

    std::filesystem::path writeTo(const std::filesystem::path& dictionaryFolder) const;

  private:
    std::string name_;
    std::vector<DictionaryBuilder> dictionaries_;
    std::vector<std::pair<std::string, std::filesystem::path>> aliases_;
    std::optional<std::string> preferences_;
};

} // namespace velmarin::test
