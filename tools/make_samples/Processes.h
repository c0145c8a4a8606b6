#pragma once

#include <cstddef>
#include <functional>

namespace velmarin {

/// Runs body(i) for every i below `count`, each in a process of its own and at most `atOnce` at a time; done(i) follows
/// in this process. Threads will not do: cairo 1.16 shares fonts between them and fails when one of them drops a font
/// that another is using. Throws std::runtime_error if a process fails; it says why on standard error.
void inProcesses(
    std::size_t count, std::size_t atOnce, const std::function<void(std::size_t)>& body,
    const std::function<void(std::size_t)>& done = [](std::size_t) {});

} // namespace velmarin
