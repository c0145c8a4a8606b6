#include "files/AppendFile.h"

#include "files/SystemCalls.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {

bool AppendFile::open(const std::filesystem::path& path) {
    descriptor_ = Descriptor(
        ::open(path.c_str(), O_RDWR | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666));
    struct stat found {};
    if (!descriptor_ || ::fstat(descriptor_.number(), &found) != 0)
        return false;
    if (!S_ISREG(found.st_mode)) {
        errno = EINVAL;
        return false;
    }
    char last = '\n';
    torn_ = found.st_size > 0 && ::pread(descriptor_.number(), &last, 1, found.st_size - 1) == 1 && last != '\n';
    return true;
}

bool AppendFile::addLine(std::string_view line) {
    // In one write, so that a kill does not come between its parts.
    const std::string bytes = (torn_ ? "\n" : "") + std::string(line) + "\n";
    torn_ = !writeAll(descriptor_.number(), bytes);
    return !torn_;
}

bool AppendFile::flush() {
    return flushOpen(descriptor_.number());
}

} // namespace velmarin
