#pragma once

#include "text/RegExMBS.h"

#include <string>
#include <string_view>

namespace velmarin {

/// The patterns of the system: the page and the errata markers of a line of `txt`, the name in group 1, and the
/// separator of the fields of a number format.
inline constexpr std::string_view pageMarkerPattern = R"(<@_(.+?)_>)";
inline constexpr std::string_view errataMarkerPattern = R"(<\^_(.+?)_>)";
inline constexpr std::string_view fieldSeparatorPattern = R"([^\w])";

/// An expression with the options of `Grep`: UTF-8 and multiline on, all else off.
RegExMBS markupExpression();

/// The expression that the functions below share, made at first use; it holds the last match.
RegExMBS& Grep();

// In all of these CR LF and CR count as LF, in the text looked at and in the texts given back, LF being the end of a
// line on this platform. A text with bytes that are no UTF-8 is matched byte by byte.

/// Position from 1, in characters, of the first match at or after character `start` (less than 1: from the start of the
/// text); 0 where there is none. A bad pattern is told to the user and finds nothing.
int mStrMod_GrepMBS_Search(int start, std::string_view text, std::string_view pattern);

/// Group 1 of the first match at or after `start`, empty where there is none. A bad pattern is told to the user.
std::string mStrMod_GrepMBS_Find(int start, std::string_view text, std::string_view pattern);

/// The whole of the last match of `Grep`; empty where it found none.
std::string mStrMod_GrepMBS_FoundStr();

/// `text` with the first match replaced, by the replacement as it stands. A bad pattern gives `text` back as it is,
/// without a word.
std::string mStrMod_GrepMBS_Replace(std::string_view text, std::string_view pattern, std::string_view replacement);

/// The same for every match, on an expression of its own, so that FoundStr stays. It works on bytes: each byte of a
/// character beyond ASCII is a match of `[^\w]`.
std::string mStrMod_GrepMBS_ReplaceAll(std::string_view text, std::string_view pattern, std::string_view replacement);

} // namespace velmarin
