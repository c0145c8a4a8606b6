#include "view/DecodeByHelper.h"

#include "files/Descriptor.h"
#include "files/SystemCalls.h"
#include "platform/ChildProgram.h"
#include "view/Picture.h"

#include <chrono>
#include <filesystem>
#include <string>

#include <sys/mman.h>

namespace velmarin {

namespace {

constexpr std::chrono::seconds kLongest{20};
constexpr std::uint64_t kMostMemory = std::uint64_t{6} << 30;
constexpr std::uint64_t kLargestAnswer = std::uint64_t{3} << 30;

#ifdef __SANITIZE_ADDRESS__
constexpr bool kLimitsMemory = false; // the sanitizer reserves terabytes
#else
constexpr bool kLimitsMemory = true;
#endif

std::filesystem::path helper() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / "velmarin-decode";
}

Descriptor fileInMemory() {
    return Descriptor(::memfd_create("picture", MFD_CLOEXEC));
}

/// The answer of a helper that has ended, which may be anything.
DecodedPix answerIn(int file) {
    DecodedHeader header;
    if (readAt(file, 0, &header, sizeof header) != sizeof header)
        return DecodedPix::failed("its decoder gave no answer");
    header.reason[sizeof header.reason - 1] = '\0';
    std::string reason = header.reason;
    if (header.depth == 0)
        return DecodedPix::failed(reason.empty() ? "the picture cannot be read" : reason);
    if (!isPictureSize(header.width, header.height) || (header.depth != 1 && header.depth != 8 && header.depth != 32))
        return DecodedPix::failed("its decoder gave a wrong answer");
    PixPtr pix =
        newPix(static_cast<int>(header.width), static_cast<int>(header.height), static_cast<int>(header.depth));
    if (!pix)
        return DecodedPix::noMemory();
    const std::size_t size = std::size_t{4} * static_cast<std::size_t>(pixGetWpl(pix.get())) * header.height;
    if (readAt(file, sizeof header, pixGetData(pix.get()), size) != size)
        return DecodedPix::failed("its decoder gave a wrong answer");
    return {std::move(pix), std::move(reason)};
}

std::string faultOf(const ChildResult& result) {
    switch (result.end) {
    case ChildResult::End::TooLong:
        return "decoding it takes longer than " + std::to_string(kLongest.count()) + " seconds";
    case ChildResult::End::NotStarted:
        return "velmarin-decode, which decodes pictures of this kind, could not be started";
    default:
        return "its decoder failed: the picture is damaged or of an unknown kind";
    }
}

} // namespace

bool isRareFormat(PictureFormat format) {
    return format != PictureFormat::Jpeg && format != PictureFormat::Png && format != PictureFormat::Tiff;
}

DecodedPix decodeByHelper(PictureFormat format, int file) {
    const Descriptor answer = fileInMemory();
    if (!answer)
        return DecodedPix::noMemory();
    const ChildResult result = runChild({.file = helper(),
                                         .arguments = {std::to_string(static_cast<int>(format))},
                                         .descriptors = {file, answer.number()},
                                         .limits = {.wall = kLongest,
                                                    .processor = kLongest,
                                                    .memory = kLimitsMemory ? kMostMemory : 0,
                                                    .fileSize = kLargestAnswer}});
    return result.ok() ? answerIn(answer.number()) : DecodedPix::failed(faultOf(result));
}

DecodedPix decodeByHelper(PictureFormat format, std::string_view bytes) {
    const Descriptor file = fileInMemory();
    if (!file || !writeAll(file.number(), bytes))
        return DecodedPix::noMemory();
    return decodeByHelper(format, file.number());
}

} // namespace velmarin
