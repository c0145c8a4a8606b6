#include "files/LinePlaces.h"

#include "files/LineReader.h"
#include "files/LineScanner.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace velmarin {

namespace {

/// Few enough that the line ends of a block can be counted in a byte.
constexpr std::size_t kBlock = 128;

/// 1 if a line ends at `at`, which must have a byte after it. Without branches, so that the compiler can look at many
/// bytes at a time.
unsigned char endsLine(const char* at) {
    return static_cast<unsigned char>((at[0] == '\n') | ((at[0] == '\r') & (at[1] != '\n')));
}

std::uint64_t countEnds(const char* from, const char* to) {
    unsigned char count = 0;
    for (; from < to; ++from)
        count = static_cast<unsigned char>(count + endsLine(from));
    return count;
}

/// Notes the lines that end in `text`, which begins at `offset` of the file and has a byte after it.
void noteEnds(std::string_view text, std::uint64_t offset, LinePlaces& places) {
    const char* const end = text.data() + text.size();
    for (const char* block = text.data(); block < end;) {
        const char* const blockEnd = block + std::min<std::ptrdiff_t>(kBlock, end - block);
        const std::uint64_t ends = countEnds(block, blockEnd);
        const std::uint64_t beforeKept = (LinePlaces::kStep - places.lines % LinePlaces::kStep) % LinePlaces::kStep;
        if (ends > 0 && ends > beforeKept) {
            for (const char* at = block; at < blockEnd; ++at)
                if (endsLine(at) != 0)
                    places.add(offset + static_cast<std::uint64_t>(at + 1 - text.data()));
        } else if (ends > 0) {
            places.lines += ends;
            const char* last = blockEnd - 1;
            while (endsLine(last) == 0)
                --last;
            places.end = offset + static_cast<std::uint64_t>(last + 1 - text.data());
        }
        block = blockEnd;
    }
}

} // namespace

LinePlaces findLinePlaces(const ReadOnlyFile& file) {
    LinePlaces places;
    std::vector<char> window(LineScanner::kWindow + 1);
    std::uint64_t offset = 0;
    for (bool last = false; !last;) {
        const std::size_t got = file.readOrRaise(offset, window.data(), LineScanner::kWindow);
        last = got < LineScanner::kWindow;
        window[got] = '\0';
        // A CR at the end of the window may have its LF after it: it is read again.
        const std::size_t taken = last ? got : got - 1;
        noteEnds({window.data(), taken}, offset, places);
        offset += taken;
        const bool onlyMark = offset == kByteOrderMark.size() && std::string_view(window.data()) == kByteOrderMark;
        if (last && places.end < offset && !onlyMark)
            places.add(offset);
    }
    return places;
}

} // namespace velmarin
