#include "files/FolderLock.h"

#include "files/SystemCalls.h"

#include <cerrno>
#include <chrono>
#include <thread>

#include <sys/file.h>

namespace velmarin {

FolderLock::FolderLock(const std::filesystem::path& folder, Kind kind, Work& work) : folder_(openFolder(folder)) {
    constexpr std::chrono::milliseconds kBetweenTries(20); // short enough for the windows of the waiting run
    const int operation = kind == Kind::Shared ? LOCK_SH : LOCK_EX;
    while (folder_ && ::flock(folder_.number(), operation | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            break;
        work.waitFor(folder);
        std::this_thread::sleep_for(kBetweenTries);
    }
    work.waitFor({});
}

} // namespace velmarin
