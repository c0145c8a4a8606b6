#include "book/BookSettings.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace velmarin {

using Json = nlohmann::json;

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(PageSpan, first, last)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(TurnedPages, pages, degrees)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(GivenNumber, page, number)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(PageSettings, dpi, spread, rightToLeft, turned)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(About, title, edition, year, language, source, rights)

namespace {

/// Tells the settings of a book from any other JSON, and its value which ones.
constexpr const char* kMark = "velmarinBook";
constexpr int kVersion = 1;

} // namespace

bool BookSettings::leavesOut(int page) const {
    return std::any_of(leftOut.begin(), leftOut.end(), [page](const PageSpan& span) { return span.has(page); });
}

KeyRule keyRuleOf(const BookSettings& settings) {
    return KeyRule::parse(settings.ignore, settings.alike).value_or(KeyRule());
}

std::string formatBookSettings(const BookSettings& settings) {
    const Json json{{kMark, kVersion},
                    {"languages", settings.languages},
                    {"wordLists", settings.wordLists},
                    {"pages", settings.pages},
                    {"leftOut", settings.leftOut},
                    {"numbers", settings.numbers},
                    {"ignore", settings.ignore},
                    {"alike", settings.alike},
                    {"spanish", settings.order.SpanishMode},
                    {"ijuv", settings.order.IJUVMode},
                    {"format", settings.order.FormatFom},
                    {"independent", settings.independent},
                    {"extraPages", settings.extraPages},
                    {"about", settings.about},
                    {"takenFrom", settings.takenFrom},
                    {"takenAs", settings.takenAs}};
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<BookSettings> parseBookSettings(std::string_view text) {
    const Json json = Json::parse(text, nullptr, false);
    if (!json.is_object())
        return std::nullopt;
    try {
        if (json.value(kMark, 0) != kVersion)
            return std::nullopt;
        BookSettings settings;
        settings.languages = json.value("languages", settings.languages);
        settings.wordLists = json.value("wordLists", settings.wordLists);
        settings.pages = json.value("pages", settings.pages);
        settings.leftOut = json.value("leftOut", settings.leftOut);
        settings.numbers = json.value("numbers", settings.numbers);
        settings.ignore = json.value("ignore", "");
        settings.alike = json.value("alike", "");
        settings.order.SpanishMode = json.value("spanish", false);
        settings.order.IJUVMode = json.value("ijuv", false);
        settings.order.FormatFom = json.value("format", "");
        settings.independent = json.value("independent", false);
        settings.extraPages = json.value("extraPages", "");
        settings.about = json.value("about", settings.about);
        settings.takenFrom = json.value("takenFrom", "");
        settings.takenAs = json.value("takenAs", settings.takenAs);
        return settings;
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

} // namespace velmarin
