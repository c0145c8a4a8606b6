#include "book/ReadingLog.h"

#include "files/ReadOnlyFile.h"
#include "files/SystemCalls.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cerrno>
#include <optional>
#include <vector>

namespace velmarin {

using Json = nlohmann::json;

static void to_json(Json& json, const PageBox& box) {
    json = std::array{box.x, box.y, box.width, box.height};
}

static void from_json(const Json& json, PageBox& box) {
    const auto numbers = json.get<std::array<int, 4>>();
    box = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

NLOHMANN_JSON_SERIALIZE_ENUM(PageLook,
                             {{PageLook::Text, "text"}, {PageLook::Plate, "plate"}, {PageLook::Blank, "blank"}})
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(TextWord, text, box, confidence, others, bold)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TextLine, words, box)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(PageText, width, height, lines)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(PageReading, page, look, head, foot, entryStarts, headStrip,
                                                fromTextLayer)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(LoggedReading, reading, failure, languages, size, changed)

namespace {

constexpr std::chrono::seconds kBetweenFlushes(3);

/// JSON is UTF-8. The name of a page that is not is kept as an array of its bytes.
Json inUtf8(Json reading) {
    Json& page = reading["reading"]["page"];
    if (const std::string& name = page.get_ref<const std::string&>(); !isValidUtf8(name))
        page = Json(std::vector<std::uint8_t>(name.begin(), name.end()));
    return reading;
}

Json withNameOfPage(Json reading) {
    Json& page = reading["reading"]["page"];
    if (page.is_array()) {
        const auto bytes = page.get<std::vector<std::uint8_t>>();
        page = std::string(bytes.begin(), bytes.end());
    }
    return reading;
}

std::optional<LoggedReading> parseReading(std::string_view line) {
    const Json json = Json::parse(line, nullptr, false);
    if (!json.is_object())
        return std::nullopt;
    try {
        return withNameOfPage(json).get<LoggedReading>();
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

} // namespace

Readings readReadings(const FolderItem& file) {
    Readings readings;
    const std::string text = readFileIfAny(file);
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        if (auto read = parseReading(std::string_view(text).substr(begin, end - begin))) {
            const std::string page = read->reading.page;
            readings.insert_or_assign(page, std::move(*read));
        }
        begin = end + 1;
    }
    return readings;
}

Result ReadingLog::failed() const {
    return Failure{item_, "it could not be written: " + errorInWords(errno)};
}

Result ReadingLog::open(const FolderItem& file) {
    item_ = file;
    return file_.open(file.path()) ? Result() : failed();
}

Result ReadingLog::add(const LoggedReading& reading) {
    if (!file_.addLine(inUtf8(reading).dump(-1, ' ', false, Json::error_handler_t::replace)))
        return failed();
    return std::chrono::steady_clock::now() - flushed_ < kBetweenFlushes ? Result() : flush();
}

Result ReadingLog::flush() {
    flushed_ = std::chrono::steady_clock::now();
    return file_.flush() ? Result() : failed();
}

} // namespace velmarin
