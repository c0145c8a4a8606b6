#include "cli/Finding.h"

#include <utility>

namespace velmarin {

namespace {

/// The file and the problem without what is in quotes and without numbers.
std::string kindOf(const Finding& finding) {
    std::string kind = finding.file.native() + '\0';
    bool quoted = false;
    for (const char c : finding.problem) {
        quoted = quoted != (c == '"');
        if (!quoted && (c < '0' || c > '9'))
            kind += c;
    }
    return kind;
}

/// "1,999,990"
std::string withSeparators(std::uint64_t number) {
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > 3; at -= 3)
        text.insert(at - 3, ",");
    return text;
}

} // namespace

void Findings::push_back(Finding finding) {
    Kind& kind = kinds_[kindOf(finding)];
    if (++kind.count > kMostOfAKind)
        return;
    kind.last = findings_.size();
    findings_.push_back(std::move(finding));
}

std::vector<Finding> Findings::take() {
    for (const auto& [name, kind] : kinds_) {
        if (kind.count > kMostOfAKind)
            findings_[kind.last].problem += "; and " + withSeparators(kind.count - kMostOfAKind) + " more";
    }
    kinds_.clear();
    return std::exchange(findings_, {});
}

} // namespace velmarin
