#include "side/SourceTable.h"

#include "side/ServiceSource.h"
#include "side/UserDictionarySource.h"
#include "side/WordsSource.h"

#include <algorithm>
#include <iterator>

namespace velmarin {

namespace {

template <typename Source> std::unique_ptr<LookUpSource> make(const SourceContext& context) {
    return std::make_unique<Source>(context);
}

constexpr SourceRow kSources[] = {
    {"DicAppCB", "Dictionary.app", {231, 629, 112, 20}, true, 4, make<ServiceSource>},
    {"LatinCB", "Latin Words", {231, 608, 100, 20}, false, 5, make<WordsSource>},
    {"UserDicCB", "Use", {166, 656, 53, 20}, false, 9, make<UserDictionarySource>},
};

/// The lines of `Subwindow` that hold other settings; see SubwindowFile.cpp.
constexpr std::size_t kOtherSettings[] = {1, 2, 3, 6, 7, 8, 10};

constexpr bool eachHasItsOwnLine() {
    for (const SourceRow& source : kSources) {
        const auto isIts = [&](std::size_t line) { return line == source.settingsLine; };
        const auto sharesIt = [&](const SourceRow& other) { return isIts(other.settingsLine); };
        if (std::any_of(std::begin(kOtherSettings), std::end(kOtherSettings), isIts) ||
            std::count_if(std::begin(kSources), std::end(kSources), sharesIt) != 1)
            return false;
    }
    return true;
}
static_assert(eachHasItsOwnLine(), "two settings would be kept in one line of the file");

} // namespace

std::span<const SourceRow> sourceTable() {
    return kSources;
}

std::size_t sourceRow(std::string_view checkBox) {
    const auto* row = std::find_if(std::begin(kSources), std::end(kSources),
                                   [&](const SourceRow& source) { return source.checkBox == checkBox; });
    return static_cast<std::size_t>(row - std::begin(kSources));
}

} // namespace velmarin
