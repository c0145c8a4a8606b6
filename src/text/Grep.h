#pragma once

#include "text/RegExMBS.h"

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The patterns of the program: the page marker and the errata marker of a `txt` line, with the name in group 1, and
/// the separator between the fields of a number format.
inline constexpr std::string_view kPageMarkerPattern = R"(<@_(.+?)_>)";
inline constexpr std::string_view kErrataMarkerPattern = R"(<\^_(.+?)_>)";
inline constexpr std::string_view kFieldSeparatorPattern = R"([^\w])";

/// An expression with the options of `Grep`: UTF-8 and multiline on, all others off.
RegExMBS markupExpression();

/// The expression that the functions below share. It holds the last match.
RegExMBS& Grep();

// All of these functions turn CR LF and CR into LF, in the text they search and in the text they return. A text with
// bytes that are not UTF-8 is matched byte by byte.

/// The position, in characters from 1, of the first match at or after character `start` (less than 1: the start of the
/// text); 0 if there is none. A bad pattern shows a message and finds nothing.
int mStrMod_GrepMBS_Search(int start, std::string_view text, std::string_view pattern);

/// Group 1 of the first match at or after `start`; empty if there is none. A bad pattern shows a message.
std::string mStrMod_GrepMBS_Find(int start, std::string_view text, std::string_view pattern);

/// The text of the last match of `Grep`; empty if it found none.
std::string mStrMod_GrepMBS_FoundStr();

/// `text` with the first match replaced by the literal replacement. A bad pattern returns `text` unchanged, without a
/// message.
std::string mStrMod_GrepMBS_Replace(std::string_view text, std::string_view pattern, std::string_view replacement);

/// The same for every match. It has its own expression, so the last match of `Grep` is kept. It works on bytes: each
/// byte of a character outside ASCII matches `[^\w]`.
std::string mStrMod_GrepMBS_ReplaceAll(std::string_view text, std::string_view pattern, std::string_view replacement);

/// The names of the known text encodings. Empty until the module is opened.
extern std::vector<std::string> pStrMod_Encodings;

/// Resets `Grep` and fills `pStrMod_Encodings`. Nothing else in `text/` needs this call.
void mStrMod_OpenThisModule();

} // namespace velmarin
