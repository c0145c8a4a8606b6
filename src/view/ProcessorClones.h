#pragma once

/// Compiles a function for processors with and without an instruction set; the one that fits is chosen at start.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
#define VELMARIN_CLONES(set) __attribute__((target_clones(set, "default")))
#else
#define VELMARIN_CLONES(set)
#endif
