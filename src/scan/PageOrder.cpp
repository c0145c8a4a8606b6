#include "scan/PageOrder.h"

#include "text/LetterCase.h"

#include <algorithm>

namespace velmarin {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The digits at the start of `text` without leading zeros. They are cut off.
std::string_view takeNumber(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
    std::string_view number = text.substr(0, end);
    text.remove_prefix(end);
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

} // namespace

bool comesBefore(std::string_view one, std::string_view other) {
    const std::string capitalsOfOne = Uppercase(one), capitalsOfOther = Uppercase(other);
    std::string_view left = capitalsOfOne, right = capitalsOfOther;
    while (!left.empty() && !right.empty()) {
        if (isDigit(left.front()) && isDigit(right.front())) {
            const std::string_view leftNumber = takeNumber(left), rightNumber = takeNumber(right);
            if (leftNumber.size() != rightNumber.size())
                return leftNumber.size() < rightNumber.size();
            if (leftNumber != rightNumber)
                return leftNumber < rightNumber;
            continue;
        }
        if (left.front() != right.front())
            return static_cast<unsigned char>(left.front()) < static_cast<unsigned char>(right.front());
        left.remove_prefix(1);
        right.remove_prefix(1);
    }
    if (left.empty() != right.empty())
        return left.empty();
    return ListingOrder()(one, other);
}

void sortPages(std::vector<std::string>& names) {
    std::sort(names.begin(), names.end(), comesBefore);
}

} // namespace velmarin
