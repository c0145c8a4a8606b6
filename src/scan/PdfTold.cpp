#include "scan/PdfTold.h"

#include "text/NumberText.h"
#include "text/StringFields.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace velmarin {

namespace {

/// The words of a line, which are separated by any number of blanks.
std::vector<std::string> wordsOf(const std::string& line) {
    std::vector<std::string> words = Split(line, " ");
    std::erase(words, "");
    return words;
}

std::optional<int> integer(const std::string& word) {
    int value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    return error == std::errc() && end == word.data() + word.size() ? std::optional(value) : std::nullopt;
}

} // namespace

std::size_t pdfPageCount(std::string_view told) {
    for (const std::string& line : Split(told, "\n")) {
        const std::vector<std::string> words = wordsOf(line);
        if (words.size() == 2 && words[0] == "Pages:")
            return static_cast<std::size_t>(std::max(0, integer(words[1]).value_or(0)));
    }
    return 0;
}

PdfPage pdfPage(std::string_view told) {
    PdfPage page;
    for (const std::string& line : Split(told, "\n")) {
        // "Page    2 size:  450 x 650 pts (A4)", "Page    2 rot:   90"
        const std::vector<std::string> words = wordsOf(line);
        if (words.size() < 4 || words[0] != "Page")
            continue;
        if (words[2] == "size:" && words.size() >= 6) {
            page.width = CDbl(words[3]);
            page.height = CDbl(words[5]);
        } else if (words[2] == "rot:") {
            page.turn = (integer(words[3]).value_or(0) % 360 + 360) % 360;
        }
    }
    return page;
}

std::vector<PdfImage> pdfImages(std::string_view told) {
    std::vector<PdfImage> images;
    for (const std::string& line : Split(told, "\n")) {
        // page num type width height color comp bpc enc interp object ...
        const std::vector<std::string> words = wordsOf(line);
        if (words.size() < 10 || !integer(words[0]))
            continue;
        images.push_back({.type = words[2],
                          .width = integer(words[3]).value_or(0),
                          .height = integer(words[4]).value_or(0),
                          .ink = words[6] == "1" && words[7] == "1",
                          .coding = words[8]});
    }
    return images;
}

} // namespace velmarin
