#include "files/NewFile.h"

#include "files/SystemCalls.h"

#include <cerrno>

#include <sys/stat.h>

namespace velmarin {

NewFile::NewFile(const std::filesystem::path& path) : descriptor_(makeFile(path, 0666)) {
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
    return noteError(error_ == 0 && hasAllBytes() && closeDuplicate(descriptor_.number()));
}

} // namespace velmarin
