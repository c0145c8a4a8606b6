#include "files/NewFile.h"

#include "files/SystemCalls.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {

NewFile::NewFile(const std::filesystem::path& path) {
    do
        descriptor_ = Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    while (!descriptor_ && errno == EINTR);
    noteError(static_cast<bool>(descriptor_));
}

bool NewFile::noteError(bool done) {
    if (!done && error_ == 0)
        error_ = errno;
    errno = error_;
    return error_ == 0;
}

bool NewFile::hasAllBytes() {
    struct stat found {};
    if (::fstat(descriptor_.number(), &found) != 0)
        return false;
    errno = EIO;
    return static_cast<std::uint64_t>(found.st_size) == size_;
}

bool NewFile::write(std::string_view bytes) {
    size_ += bytes.size();
    return noteError(error_ == 0 && writeAll(descriptor_.number(), bytes));
}

bool NewFile::flush() {
    return noteError(error_ == 0 && hasAllBytes() && flushOpen(descriptor_.number()));
}

bool NewFile::check() {
    if (!noteError(error_ == 0 && hasAllBytes()))
        return false;
    const int second = ::fcntl(descriptor_.number(), F_DUPFD_CLOEXEC, 0);
    return noteError(second >= 0 && (::close(second) == 0 || errno == EINTR));
}

} // namespace velmarin
