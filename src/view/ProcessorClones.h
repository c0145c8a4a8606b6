#pragma once

/// Compiles a function both with and without an instruction set. The loader chooses the one that the processor can run.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
#define VELMARIN_CLONES(set) __attribute__((target_clones(set, "default")))
#else
#define VELMARIN_CLONES(set)
#endif
