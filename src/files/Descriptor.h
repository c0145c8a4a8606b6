#pragma once

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace velmarin {

/// An open file descriptor, closed when the object dies, which leaves errno as it was.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ < 0)
            return;
        const int error = errno;
        ::close(number_);
        errno = error;
    }

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }

  private:
    int number_ = -1;
};

} // namespace velmarin
