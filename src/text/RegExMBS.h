#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

class CompiledPattern;

/// A Perl-compatible regular expression and its last match (PCRE2). `\w` is the ASCII class whatever the options.
///
/// A text that is not well-formed UTF-8 is matched byte by byte, so that markers in it are still found. The effort is
/// bounded for every pattern and text: a search that takes more than some tenths of a second ends without a match. All
/// objects share a cache of compiled patterns. Not thread-safe.
class RegExMBS {
  public:
    bool CompileOptionUTF8 = false;
    bool CompileOptionCaseLess = false;
    bool CompileOptionDotAll = false;
    bool CompileOptionUngreedy = false;
    bool CompileOptionMultiline = false;

    static bool UTF8supported();

    /// False for a bad pattern; nothing matches then until a good one has been compiled. Discards the last match.
    bool Compile(std::string_view pattern);

    /// Searches for the first match at or after character `start`, counted from 1 (less than 1: the start of the text).
    /// Returns the number of groups, the whole match included, or 0 if there is no match.
    int Execute(std::string text, int start);

    /// The position, in characters from 1, of group `n` of the last match (group 0 is the whole match); 0 if there is
    /// none.
    int OffsetCharacters(int n) const;
    /// The text of group `n` of the last match; empty if there is none.
    std::string Substring(int n) const;

    /// The text of the last Execute with its match replaced; unchanged if there was no match. The replacement is
    /// literal.
    std::string Replace(std::string_view replacement) const;

    /// `text` with every match replaced. The last match is kept.
    std::string ReplaceAll(std::string_view text, std::string_view replacement) const;

  private:
    struct Group {
        std::size_t begin;
        std::size_t end;
    };

    std::shared_ptr<CompiledPattern> patternFor(std::string_view text, bool& utf8) const;
    const Group* group(int n) const;

    std::string pattern_;
    bool compiled_ = false;
    std::string text_;
    bool textIsUtf8_ = false;
    std::vector<Group> groups_;
};

} // namespace velmarin
