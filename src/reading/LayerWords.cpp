#include "reading/LayerWords.h"

#include <algorithm>
#include <cmath>

namespace velmarin {

namespace {

PageBox scaledBox(const PageBox& box, double across, double down) {
    const auto length = [](double value) { return static_cast<int>(std::lround(value)); };
    return {length(box.x * across), length(box.y * down), length(box.width * across), length(box.height * down)};
}

} // namespace

TextLine layerWordsIn(const PageText& layer, const Straightening& straightening, const PageBox& row) {
    TextLine found{{}, straightening.onPage(row)};
    const double across = layer.width > 0 ? static_cast<double>(straightening.pageWidth) / layer.width : 1;
    const double down = layer.height > 0 ? static_cast<double>(straightening.pageHeight) / layer.height : 1;
    const int slack = row.height / 2;
    for (const TextLine& line : layer.lines) {
        for (const TextWord& word : line.words) {
            const PageBox box = scaledBox(word.box, across, down);
            const PageBox straight = straightening.onStraight(box);
            const int x = straight.x + straight.width / 2, y = straight.y + straight.height / 2;
            if (x < row.x - slack || x > row.right() + slack || y < row.y - slack || y > row.bottom() + slack)
                continue;
            found.words.push_back(word);
            found.words.back().box = box;
        }
    }
    std::ranges::stable_sort(found.words, {}, [](const TextWord& word) { return word.box.x; });
    return found;
}

} // namespace velmarin
