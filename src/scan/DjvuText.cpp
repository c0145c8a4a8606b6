#include "scan/DjvuText.h"

#include "scan/TextGeometry.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

namespace velmarin {

namespace {

/// Reads the expression in one pass; the depth of zones is kept in a list, not in calls.
class ZoneReader {
  public:
    explicit ZoneReader(std::string_view rest) : rest_(rest) {}

    PageText read() {
        while (!rest_.empty()) {
            const char c = rest_.front();
            if (c == '(') {
                rest_.remove_prefix(1);
                openZone();
            } else if (c == ')') {
                rest_.remove_prefix(1);
                closeZone();
            } else if (c == '"') {
                rest_.remove_prefix(1);
                takeString();
            } else {
                rest_.remove_prefix(1);
            }
        }
        endLine();
        return std::move(text_);
    }

  private:
    struct Zone {
        std::string_view kind;
        PageBox box;
    };

    int takeInteger() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \n"), rest_.size()));
        int number = 0;
        const auto end = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number).ptr;
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
        constexpr int kMost = 1'000'000;
        return std::clamp(number, -kMost, kMost);
    }

    void openZone() {
        const std::size_t end = std::min(rest_.find_first_of(" \n()\""), rest_.size());
        Zone zone{rest_.substr(0, end), {}};
        rest_.remove_prefix(end);
        const int left = takeInteger(), bottom = takeInteger(), right = takeInteger(), top = takeInteger();
        if (zones_.empty()) {
            text_.width = right;
            text_.height = top;
        }
        zone.box = {left, text_.height - top, right - left, top - bottom};
        if (zone.kind == "line")
            endLine();
        if (zone.kind == "word")
            line_.words.push_back({.text = {}, .box = zone.box});
        zones_.push_back(zone);
    }

    void closeZone() {
        if (!zones_.empty())
            zones_.pop_back();
    }

    void takeString() {
        std::string value;
        while (!rest_.empty() && rest_.front() != '"') {
            char c = rest_.front();
            rest_.remove_prefix(1);
            if (c == '\\' && !rest_.empty())
                c = escaped();
            value += c;
        }
        rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
        if (!zones_.empty())
            addText(zones_.back(), toValidUtf8(value));
    }

    /// What the characters after a backslash mean: up to three octal digits, or one character.
    char escaped() {
        const std::size_t digits = std::min({rest_.find_first_not_of("01234567"), std::size_t{3}, rest_.size()});
        if (digits > 0) {
            int code = 0;
            std::from_chars(rest_.data(), rest_.data() + digits, code, 8);
            rest_.remove_prefix(digits);
            return static_cast<char>(code);
        }
        const char c = rest_.front();
        rest_.remove_prefix(1);
        return c == 'n' || c == 't' || c == 'r' ? ' ' : c;
    }

    /// Larger zones than lines say nothing of where their words are.
    void addText(const Zone& zone, const std::string& value) {
        if (zone.kind == "line")
            addWords(zone.box, value);
        else if ((zone.kind == "word" || zone.kind == "char") && !line_.words.empty())
            line_.words.back().text += value;
    }

    /// The words of a line, each with a share of its box that is as long as its text.
    void addWords(const PageBox& box, const std::string& value) {
        const auto at = [&](std::size_t byte) {
            return box.x + static_cast<int>(static_cast<double>(box.width) * static_cast<double>(byte) /
                                            static_cast<double>(value.size()));
        };
        std::size_t from = 0;
        for (const std::string& word : Split(value, " ")) {
            const std::size_t to = from + word.size();
            line_.words.push_back({.text = word, .box = {at(from), box.y, at(to) - at(from), box.height}});
            from = to + 1;
        }
    }

    void endLine() {
        appendLine(text_, std::move(line_));
        line_ = {};
    }

    std::string_view rest_;
    std::vector<Zone> zones_;
    PageText text_;
    TextLine line_;
};

} // namespace

std::optional<PageText> readDjvuText(std::string_view expression) {
    PageText text = ZoneReader(expression).read();
    if (text.lines.empty() || text.width <= 0 || text.height <= 0)
        return std::nullopt;
    return text;
}

} // namespace velmarin
