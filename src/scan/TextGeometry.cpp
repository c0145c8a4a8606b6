#include "scan/TextGeometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmarin {

namespace {

/// The text with `change` applied to each box.
template <typename Change> PageText withBoxes(const PageText& text, int width, int height, Change change) {
    PageText result = text;
    result.width = width;
    result.height = height;
    for (TextLine& line : result.lines) {
        line.box = change(line.box);
        for (TextWord& word : line.words)
            word.box = change(word.box);
    }
    return result;
}

} // namespace

PageText scaledText(const PageText& text, int width, int height) {
    if (text.width <= 0 || text.height <= 0)
        return {.width = width, .height = height};
    const double across = static_cast<double>(width) / text.width, down = static_cast<double>(height) / text.height;
    return withBoxes(text, width, height, [&](const PageBox& box) {
        const auto x = static_cast<int>(std::lround(box.x * across)), y = static_cast<int>(std::lround(box.y * down));
        return PageBox{x, y, static_cast<int>(std::lround(box.right() * across)) - x,
                       static_cast<int>(std::lround(box.bottom() * down)) - y};
    });
}

PageText turnedText(const PageText& text, int degrees) {
    const int width = text.width, height = text.height;
    switch (degrees) {
    case 90:
        return withBoxes(text, height, width, [&](const PageBox& box) {
            return PageBox{height - box.bottom(), box.x, box.height, box.width};
        });
    case 180:
        return withBoxes(text, width, height, [&](const PageBox& box) {
            return PageBox{width - box.right(), height - box.bottom(), box.width, box.height};
        });
    case 270:
        return withBoxes(text, height, width, [&](const PageBox& box) {
            return PageBox{box.y, width - box.right(), box.height, box.width};
        });
    default:
        return text;
    }
}

PageText textInColumns(const PageText& text, int left, int right) {
    PageText result{.width = right - left, .height = text.height};
    for (const TextLine& line : text.lines) {
        TextLine part;
        for (const TextWord& word : line.words) {
            const int middle = word.box.x + word.box.width / 2;
            if (middle < left || middle >= right)
                continue;
            part.words.push_back(word);
            PageBox& box = part.words.back().box;
            const int from = std::max(box.x, left), to = std::min(box.right(), right);
            box.x = from - left;
            box.width = to - from;
        }
        appendLine(result, std::move(part));
    }
    return result;
}

PageBox unitedBox(const PageBox& one, const PageBox& other) {
    if (one.empty() || other.empty())
        return one.empty() ? other : one;
    const int x = std::min(one.x, other.x), y = std::min(one.y, other.y);
    return {x, y, std::max(one.right(), other.right()) - x, std::max(one.bottom(), other.bottom()) - y};
}

void appendLine(PageText& text, TextLine line) {
    std::erase_if(line.words, [](const TextWord& word) { return word.text.empty(); });
    if (line.words.empty())
        return;
    line.box = {};
    for (const TextWord& word : line.words)
        line.box = unitedBox(line.box, word.box);
    text.lines.push_back(std::move(line));
}

} // namespace velmarin
