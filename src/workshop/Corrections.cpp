#include "workshop/Corrections.h"

#include "making/SeparatedValues.h"
#include "store/UserPreferencesFolder.h"

#include <algorithm>
#include <array>

namespace velmarin {

namespace {

constexpr std::array<const char*, 3> kKinds{"page", "headword", "missing"}; // in the order of CorrectionKind

std::string inQuotes(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

Failure refused(std::string_view headword, const std::string& reason) {
    return {FolderItem(std::filesystem::path(headword)), reason};
}

/// Blanks at the ends do not last in a table. Only lines that return to another page have them.
bool canBeKept(const std::string& headword) {
    return !headword.empty() && !headword.starts_with(' ') && !headword.ends_with(' ') &&
           headword.find_first_of("\t\r\n") == std::string::npos && headword.find("__DLM__") == std::string::npos;
}

/// Whether a text can be the headword of a line of its own.
Result checkNew(const std::string& headword, const DictionaryText& text) {
    if (text.lineOf(headword))
        return refused(headword, "it is in the dictionary already");
    if (const std::size_t place = text.placeOfNew(headword); !text.isWhole(place))
        return refused(headword, place == text.size() ? "it sorts after the last line of \"ind\", which is never found"
                                                      : "\"txt\" has no line for it");
    return {};
}

Result correctPage(const Correction& correction, DictionaryText& text) {
    const auto line = text.lineOf(correction.headword);
    if (!line || !text.isWhole(*line))
        return refused(correction.headword, "it is not in the dictionary");
    if (const std::string page = text.page(*line); page != correction.was)
        return refused(correction.headword, "it opens " + inQuotes(page) + ", not " + inQuotes(correction.was));
    text.setPage(*line, correction.page);
    return {};
}

Result correctHeadword(const Correction& correction, DictionaryText& text) {
    if (const Result possible = checkNew(correction.headword, text); !possible)
        return possible;
    const auto line = text.lineOf(correction.was);
    if (!line || !text.isWhole(*line) || text.page(*line) != correction.page)
        return refused(correction.was, "it is not in the dictionary with the page " + inQuotes(correction.page));
    text.rename(*line, correction.headword);
    return {};
}

Result insertMissing(const Correction& correction, const ImageDictionaryMap& pages, DictionaryText& text) {
    if (const Result possible = checkNew(correction.headword, text); !possible)
        return possible;
    const std::size_t place = text.placeOfNew(correction.headword);
    const std::string before = place == 0 ? correction.page : text.page(place - 1);
    const int page = pages.value(correction.page);
    const bool inOrder = pages.value(before) <= page && page <= pages.value(text.page(place));
    text.insert(correction.headword, "", correction.page);
    // No headword sorts between a word and the same with a blank after it.
    const std::string after = correction.headword + ' ';
    if (before != correction.page && !inOrder && !text.lineOf(after))
        text.insert(after, "after " + correction.headword, before);
    return {};
}

/// Joins a correction with an earlier one of the same entry. False if it is not one.
bool joined(Correction& earlier, const Correction& later) {
    if (later.kind == CorrectionKind::Page && earlier.kind != CorrectionKind::Headword &&
        later.headword == earlier.headword && later.was == earlier.page)
        earlier.page = later.page;
    else if (later.kind == CorrectionKind::Headword && earlier.kind != CorrectionKind::Page &&
             later.was == earlier.headword)
        earlier.headword = later.headword;
    else
        return false;
    return true;
}

} // namespace

std::string countOf(std::size_t corrections) {
    return std::to_string(corrections) + (corrections == 1 ? " correction" : " corrections");
}

std::string headwordsOf(const std::vector<Correction>& corrections) {
    constexpr std::size_t kMost = 5;
    std::string words;
    for (std::size_t i = 0; i < std::min(corrections.size(), kMost); ++i)
        words += (i > 0 ? ", “" : "“") + corrections[i].headword + "”";
    return words + (corrections.size() > kMost ? " …" : ".");
}

const char* nameOf(CorrectionKind kind) {
    return kKinds[static_cast<std::size_t>(kind)];
}

std::string formatCorrections(const std::vector<Correction>& corrections) {
    std::string table = "change\theadword\tpage\twas\n";
    for (const Correction& each : corrections) {
        table += nameOf(each.kind);
        for (const std::string& field : {each.headword, each.page, each.was})
            table += '\t' + tabSeparatedField(field);
        table += '\n';
    }
    return table;
}

std::vector<Correction> parseCorrections(std::string_view table) {
    const SeparatedValues rows = SeparatedValues::parse(table);
    std::vector<Correction> corrections;
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        const auto field = [&](std::string_view column) { return std::string(rows.field(row, column)); };
        const auto kind = std::find(kKinds.begin(), kKinds.end(), field("change"));
        Correction read{
            .kind = CorrectionKind::Page, .headword = field("headword"), .page = field("page"), .was = field("was")};
        if (kind == kKinds.end() || read.headword.empty() || read.page.empty())
            continue;
        read.kind = static_cast<CorrectionKind>(kind - kKinds.begin());
        corrections.push_back(std::move(read));
    }
    return corrections;
}

void addCorrection(std::vector<Correction>& corrections, const Correction& correction) {
    for (std::size_t i = corrections.size(); i-- > 0;) {
        Correction& earlier = corrections[i];
        if (!joined(earlier, correction))
            continue;
        const bool back = (earlier.kind == CorrectionKind::Page && earlier.page == earlier.was) ||
                          (earlier.kind == CorrectionKind::Headword && earlier.headword == earlier.was);
        if (back)
            corrections.erase(corrections.begin() + static_cast<std::ptrdiff_t>(i));
        return;
    }
    corrections.push_back(correction);
}

FolderItem correctionsFolder() {
    return pFiMod_UserPrefContainer.Child("Corrections");
}

FolderItem correctionsFile(const FolderItem& folder, const FolderItem& dictionary) {
    const std::filesystem::path path = dictionary.AbsolutePath();
    return FolderItem(folder.path() / path.parent_path().filename() / (path.filename().native() + ".tsv"));
}

bool isDone(const Correction& correction, const DictionaryText& text) {
    const auto line = text.lineOf(correction.headword);
    switch (correction.kind) {
    case CorrectionKind::Page:
        return line && text.page(*line) == correction.page;
    case CorrectionKind::Headword:
        return line.has_value();
    case CorrectionKind::Missing:
        break;
    }
    const std::size_t place = text.placeOf(correction.headword);
    return line || (place > 0 && place < text.size() && text.page(place - 1) == correction.page);
}

Result makeCorrection(const Correction& correction, const ImageDictionaryMap& pages, DictionaryText& text) {
    if (!pages.has(correction.page))
        return refused(correction.page, "it is not a page of the dictionary");
    const bool renamed = correction.kind == CorrectionKind::Headword;
    for (const std::string& headword : {correction.headword, renamed ? correction.was : correction.headword})
        if (!canBeKept(headword))
            return refused("The headword " + inQuotes(headword), "it cannot be corrected");
    switch (correction.kind) {
    case CorrectionKind::Page:
        return correctPage(correction, text);
    case CorrectionKind::Headword:
        return correctHeadword(correction, text);
    case CorrectionKind::Missing:
        break;
    }
    return insertMissing(correction, pages, text);
}

} // namespace velmarin
