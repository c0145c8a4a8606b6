#include "SweepFileSystems.h"

#include <cstdlib>
#include <fstream>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

bool enterNamespace() {
    const uid_t user = ::getuid();
    const gid_t group = ::getgid();
    if (::unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0)
        return false;
    if (user != 0) {
        std::ofstream("/proc/self/setgroups") << "deny";
        std::ofstream("/proc/self/uid_map") << user << " " << user << " 1";
        std::ofstream("/proc/self/gid_map") << group << " " << group << " 1";
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

} // namespace

SweepFileSystems::SweepFileSystems() : near_(folder_.path() / "near"), far_(folder_.path() / "far") {
    fs::create_directory(near_);
    fs::create_directory(far_);
    if (enterNamespace() && ::mount("none", near_.c_str(), "ramfs", 0, nullptr) == 0) {
        mounted_.push_back(near_);
        if (::mount("none", far_.c_str(), "tmpfs", 0, "size=16m") == 0)
            mounted_.push_back(far_);
    }
    if (mounted_.size() < 2)
        useSharedMemoryFolder();
}

SweepFileSystems::~SweepFileSystems() {
    for (const fs::path& each : mounted_)
        ::umount(each.c_str());
    std::error_code ignored;
    if (!far_.empty())
        fs::remove_all(far_, ignored);
}

void SweepFileSystems::useSharedMemoryFolder() {
    std::string pattern = "/dev/shm/velmarin-test-XXXXXX";
    struct stat here {
    }, there{};
    const bool other = ::mkdtemp(pattern.data()) != nullptr && ::stat(pattern.c_str(), &there) == 0 &&
                       ::stat(near_.c_str(), &here) == 0 && here.st_dev != there.st_dev;
    far_ = other ? pattern : "";
}

} // namespace velmarin::test
