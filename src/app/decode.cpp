// Decodes one picture for the other programs: see view/DecodeByHelper.h. Its one argument is the number of the format.

#include "files/SystemCalls.h"
#include "view/DecodeByHelper.h"
#include "view/RareDecoders.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <new>
#include <string_view>

#include <allheaders.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using namespace velmarin;

#if defined(__x86_64__)
constexpr unsigned kArchitecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr unsigned kArchitecture = AUDIT_ARCH_AARCH64;
#else
constexpr unsigned kArchitecture = 0;
#endif

/// Memory, the two open files, and the end; all else fails with EPERM. No signal can be sent, since any process of the
/// user would be within reach: abort() then ends the process by a fault.
constexpr unsigned kAllowed[] = {
    SYS_read,          SYS_pread64,     SYS_write,          SYS_fstat,        SYS_lseek,  SYS_mmap,
    SYS_munmap,        SYS_mremap,      SYS_mprotect,       SYS_madvise,      SYS_brk,    SYS_futex,
    SYS_rt_sigaction,  SYS_exit_group,  SYS_exit,           SYS_getpid,       SYS_gettid, SYS_getrandom,
    SYS_clock_gettime, SYS_sched_yield, SYS_rt_sigprocmask, SYS_rt_sigreturn, SYS_close};

/// Gives up all that a decoder does not need. A system without such filters decodes within the limits alone.
void enterSandbox() {
#ifndef __SANITIZE_ADDRESS__ // the sanitizer needs more calls
    if (kArchitecture == 0 || ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0)
        return;
    constexpr std::size_t kChecks = std::size(kAllowed);
    sock_filter filter[kChecks + 6] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, arch)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, kArchitecture, 1, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
    };
    for (std::size_t i = 0; i < kChecks; ++i)
        filter[4 + i] = BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, kAllowed[i], static_cast<unsigned char>(kChecks - i), 0);
    filter[4 + kChecks] = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM);
    filter[5 + kChecks] = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW);
    const sock_fprog program{.len = static_cast<unsigned short>(std::size(filter)), .filter = filter};
    ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
#endif
}

/// The bytes of the picture. If the file shrinks meanwhile, the process ends.
std::string_view input() {
    struct stat found {};
    if (::fstat(kDecoderInput, &found) != 0 || found.st_size == 0)
        return {};
    const auto size = static_cast<std::size_t>(found.st_size);
    const void* bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, kDecoderInput, 0);
    return bytes == MAP_FAILED ? std::string_view() : std::string_view(static_cast<const char*>(bytes), size);
}

bool answer(const DecodedPix& decoded) {
    DecodedHeader header;
    decoded.reason.copy(header.reason, sizeof header.reason - 1);
    std::size_t size = 0;
    if (const Pix* pix = decoded.pix.get(); pix != nullptr) {
        header.width = static_cast<std::uint32_t>(pixGetWidth(pix));
        header.height = static_cast<std::uint32_t>(pixGetHeight(pix));
        header.depth = static_cast<std::uint32_t>(pixGetDepth(pix));
        size = std::size_t{4} * static_cast<std::size_t>(pixGetWpl(pix)) * header.height;
    }
    const auto bytes = [](const void* from, std::size_t count) {
        return std::string_view(static_cast<const char*>(from), count);
    };
    return writeAll(kDecoderOutput, bytes(&header, sizeof header)) &&
           (size == 0 || writeAll(kDecoderOutput, bytes(pixGetData(decoded.pix.get()), size)));
}

DecodedPix decode(PictureFormat format, std::string_view bytes) {
    try {
        return bytes.empty() ? DecodedPix::failed("it could not be read") : decodeRare(format, bytes);
    } catch (const std::bad_alloc&) {
        return DecodedPix::noMemory();
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return EXIT_FAILURE;
    const auto format = static_cast<PictureFormat>(std::atoi(argv[1]));
    prepareRareDecoder(format);
    const std::string_view bytes = input();
    enterSandbox();
    // Nothing is cleaned up: the memory goes with the process.
    ::_exit(answer(decode(format, bytes)) ? EXIT_SUCCESS : EXIT_FAILURE);
}
