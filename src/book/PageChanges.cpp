#include "book/PageChanges.h"

#include "making/PrintedNumbers.h"

#include <algorithm>

namespace velmarin {

namespace {

constexpr int kFullTurn = 360;

} // namespace

void turnPage(BookSettings& settings, int page, int degrees) {
    std::vector<TurnedPages>& turned = settings.pages.turned;
    // Of several that have the page, the last one counts.
    const auto now =
        std::find_if(turned.rbegin(), turned.rend(), [page](const TurnedPages& each) { return each.pages.has(page); });
    const int turn = ((now == turned.rend() ? 0 : now->degrees) + degrees + kFullTurn) % kFullTurn;
    const PageSpan alone{.first = page, .last = page};
    std::erase_if(turned, [&alone](const TurnedPages& each) { return each.pages == alone; });
    turned.push_back({alone, turn});
}

void leaveOutPage(BookSettings& settings, int page) {
    if (!settings.leavesOut(page))
        settings.leftOut.push_back({.first = page, .last = page});
}

void numberPagesFrom(BookSettings& settings, int page, const std::string& number) {
    std::erase_if(settings.numbers, [page](const GivenNumber& each) { return each.page == page; });
    settings.numbers.push_back({.page = page, .number = number.empty() ? std::string(kNoPrintedNumber) : number});
}

} // namespace velmarin
