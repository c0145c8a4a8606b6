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
/// A text that is not well-formed UTF-8 is matched byte by byte: a marker in it is found, and a name with a stray byte
/// comes out as it stands. Effort is bounded whatever pattern and text are: a match that takes more than some tenths of
/// a second of trying counts as none. Compiled patterns are kept and shared by all objects, so that compiling one again
/// costs a look-up. One thread only.
class RegExMBS {
  public:
    bool CompileOptionUTF8 = false;
    bool CompileOptionCaseLess = false;
    bool CompileOptionDotAll = false;
    bool CompileOptionUngreedy = false;
    bool CompileOptionMultiline = false;

    static bool UTF8supported();

    /// False for a bad pattern; matches are then refused until a good one has been compiled. Forgets the last match.
    bool Compile(std::string_view pattern);

    /// Looks for the first match at or after the character `start`, counted from 1; less than 1 is the start of the
    /// text. Returns the number of groups held, the whole match included, or 0 where there is no match.
    int Execute(std::string text, int start);

    /// Position from 1, in characters, of group `n` of the last match (0 is the whole); 0 where there is none.
    int OffsetCharacters(int n) const;
    /// Text of group `n` of the last match; empty where there is none.
    std::string Substring(int n) const;

    /// The text of the last Execute with its match replaced; the text itself where there was none. The replacement
    /// stands as it is, no character in it has a meaning of its own.
    std::string Replace(std::string_view replacement) const;

    /// `text` with every match replaced; the last match is left alone.
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
