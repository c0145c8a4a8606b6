#include "text/RegExMBS.h"

#include "text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <new>
#include <utility>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

namespace velmarin {

namespace {

// A lazy group that is tried at every position of a line can take quadratic time. The engine's own limits do not catch
// this, because they start again at each position. Texts up to this length cannot take long; for longer ones the
// pattern is compiled with a callout before every item, and the callouts are counted.
constexpr std::size_t kLongText = 16'384;
constexpr std::uint64_t kLeastBudget = 2'000'000;
constexpr std::uint64_t kBudgetPerByte = 8;

constexpr std::uint32_t kMatchLimit = 1'000'000;
constexpr std::uint32_t kHeapLimitKiB = 65'536;
constexpr std::size_t kJitStackStart = 32'768;
constexpr std::size_t kJitStackMost = 1'048'576;
constexpr std::size_t kMostPatternsKept = 64;

using CompiledKey = std::pair<std::string, std::uint32_t>;

int countCallout(pcre2_callout_block*, void* data) {
    std::uint64_t& budget = *static_cast<std::uint64_t*>(data);
    if (budget == 0)
        return PCRE2_ERROR_CALLOUT;
    --budget;
    return 0;
}

/// The limits and the stack that all calls use in turn.
class MatchContext {
  public:
    MatchContext()
        : context_(pcre2_match_context_create(nullptr)),
          stack_(pcre2_jit_stack_create(kJitStackStart, kJitStackMost, nullptr)) {
        if (!context_ || !stack_)
            throw std::bad_alloc();
        pcre2_set_match_limit(context_.get(), kMatchLimit);
        pcre2_set_heap_limit(context_.get(), kHeapLimitKiB);
        pcre2_set_callout(context_.get(), countCallout, &budget_);
        pcre2_jit_stack_assign(context_.get(), nullptr, stack_.get());
    }

    pcre2_match_context* forText(std::size_t length) {
        budget_ = kLeastBudget + kBudgetPerByte * length;
        return context_.get();
    }

  private:
    template <auto release> struct Release {
        template <typename T> void operator()(T* object) const { release(object); }
    };
    std::unique_ptr<pcre2_match_context, Release<pcre2_match_context_free>> context_;
    std::unique_ptr<pcre2_jit_stack, Release<pcre2_jit_stack_free>> stack_;
    std::uint64_t budget_ = 0;
};

MatchContext& matchContext() {
    static MatchContext context;
    return context;
}

PCRE2_SPTR bytes(std::string_view text) {
    // The engine rejects a null pointer, which an empty view may hold.
    return reinterpret_cast<PCRE2_SPTR>(text.empty() ? "" : text.data());
}

std::size_t byteOfCharacter(std::string_view text, bool utf8, int start) {
    std::size_t skip = start > 1 ? static_cast<std::size_t>(start) - 1 : 0;
    if (!utf8)
        return std::min(skip, text.size() + 1);
    std::size_t pos = 0;
    for (; skip > 0 && pos < text.size(); --skip)
        pos += decodeUtf8(text, pos).length;
    return skip > 0 ? text.size() + 1 : pos;
}

} // namespace

class CompiledPattern {
  public:
    /// Null for a bad pattern.
    static std::shared_ptr<CompiledPattern> of(const std::string& pattern, std::uint32_t options) {
        static std::map<CompiledKey, std::shared_ptr<CompiledPattern>> kept;
        const CompiledKey key{pattern, options};
        if (const auto found = kept.find(key); found != kept.end())
            return found->second;
        int error = 0;
        PCRE2_SIZE errorOffset = 0;
        pcre2_code* code = pcre2_compile(bytes(pattern), pattern.size(), options, &error, &errorOffset, nullptr);
        if (!code)
            return nullptr;
        auto compiled = std::make_shared<CompiledPattern>(code);
        if (kept.size() >= kMostPatternsKept)
            kept.clear();
        kept.emplace(key, compiled);
        return compiled;
    }

    explicit CompiledPattern(pcre2_code* code)
        : code_(code), match_(pcre2_match_data_create_from_pattern(code, nullptr)) {
        // Without a just-in-time compiler for this processor, the interpreter runs the pattern.
        pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
    }
    ~CompiledPattern() {
        pcre2_match_data_free(match_);
        pcre2_code_free(code_);
    }
    CompiledPattern(const CompiledPattern&) = delete;
    CompiledPattern& operator=(const CompiledPattern&) = delete;

    /// The number of groups matched; 0 or less if there is no match.
    int match(std::string_view text, std::size_t from) {
        pcre2_match_context* context = matchContext().forText(text.size());
        const int groups = pcre2_match(code_, bytes(text), text.size(), from, PCRE2_NO_UTF_CHECK, match_, context);
        if (groups != PCRE2_ERROR_JIT_STACKLIMIT)
            return groups;
        context = matchContext().forText(text.size());
        return pcre2_match(code_, bytes(text), text.size(), from, PCRE2_NO_UTF_CHECK | PCRE2_NO_JIT, match_, context);
    }

    const PCRE2_SIZE* offsets() const { return pcre2_get_ovector_pointer(match_); }

    std::string replaceAll(std::string_view text, std::string_view replacement) {
        constexpr std::uint32_t options =
            PCRE2_SUBSTITUTE_GLOBAL | PCRE2_SUBSTITUTE_LITERAL | PCRE2_SUBSTITUTE_OVERFLOW_LENGTH | PCRE2_NO_UTF_CHECK;
        std::string result(text.size() + replacement.size() + 64, '\0');
        for (;;) {
            PCRE2_SIZE length = result.size();
            const int replaced = pcre2_substitute(
                code_, bytes(text), text.size(), 0, options, match_, matchContext().forText(text.size()),
                bytes(replacement), replacement.size(), reinterpret_cast<PCRE2_UCHAR*>(result.data()), &length);
            if (replaced >= 0) {
                result.resize(length);
                return result;
            }
            if (replaced != PCRE2_ERROR_NOMEMORY || length <= result.size())
                return std::string(text);
            result.resize(length);
        }
    }

  private:
    pcre2_code* code_;
    pcre2_match_data* match_;
};

bool RegExMBS::UTF8supported() {
    std::uint32_t supported = 0;
    return pcre2_config(PCRE2_CONFIG_UNICODE, &supported) >= 0 && supported != 0;
}

bool RegExMBS::Compile(std::string_view pattern) {
    pattern_ = pattern;
    groups_.clear();
    text_.clear();
    bool utf8 = false;
    compiled_ = patternFor({}, utf8) != nullptr;
    return compiled_;
}

std::shared_ptr<CompiledPattern> RegExMBS::patternFor(std::string_view text, bool& utf8) const {
    utf8 = CompileOptionUTF8 && UTF8supported() && isValidUtf8(text);
    std::uint32_t options = 0;
    options |= utf8 ? PCRE2_UTF : 0;
    options |= CompileOptionCaseLess ? PCRE2_CASELESS : 0;
    options |= CompileOptionDotAll ? PCRE2_DOTALL : 0;
    options |= CompileOptionUngreedy ? PCRE2_UNGREEDY : 0;
    options |= CompileOptionMultiline ? PCRE2_MULTILINE : 0;
    options |= text.size() > kLongText ? PCRE2_AUTO_CALLOUT : 0;
    return CompiledPattern::of(pattern_, options);
}

int RegExMBS::Execute(std::string text, int start) {
    groups_.clear();
    text_ = std::move(text);
    if (!compiled_)
        return 0;
    const std::shared_ptr<CompiledPattern> pattern = patternFor(text_, textIsUtf8_);
    const std::size_t from = byteOfCharacter(text_, textIsUtf8_, start);
    if (!pattern || from > text_.size())
        return 0;
    const int count = pattern->match(text_, from);
    const PCRE2_SIZE* offsets = pattern->offsets();
    for (int i = 0; i < count; ++i, offsets += 2)
        groups_.push_back({offsets[0], offsets[1]});
    return static_cast<int>(groups_.size());
}

const RegExMBS::Group* RegExMBS::group(int n) const {
    if (n < 0 || static_cast<std::size_t>(n) >= groups_.size())
        return nullptr;
    const Group& found = groups_[static_cast<std::size_t>(n)];
    // A group that took no part in the match is unset; \K in a lookahead can make a match end before it begins.
    return found.begin == PCRE2_UNSET || found.end < found.begin ? nullptr : &found;
}

int RegExMBS::OffsetCharacters(int n) const {
    const Group* found = group(n);
    if (!found)
        return 0;
    std::size_t characters = found->begin;
    if (textIsUtf8_)
        characters = static_cast<std::size_t>(
            std::count_if(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(found->begin),
                          [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
    return static_cast<int>(std::min<std::size_t>(characters + 1, std::numeric_limits<int>::max()));
}

std::string RegExMBS::Substring(int n) const {
    const Group* found = group(n);
    return found ? text_.substr(found->begin, found->end - found->begin) : std::string();
}

std::string RegExMBS::Replace(std::string_view replacement) const {
    const Group* found = group(0);
    std::string result = text_;
    if (found)
        result.replace(found->begin, found->end - found->begin, replacement);
    return result;
}

std::string RegExMBS::ReplaceAll(std::string_view text, std::string_view replacement) const {
    bool utf8 = false;
    const std::shared_ptr<CompiledPattern> pattern = compiled_ ? patternFor(text, utf8) : nullptr;
    return pattern ? pattern->replaceAll(text, replacement) : std::string(text);
}

} // namespace velmarin
