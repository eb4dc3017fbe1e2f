#pragma once

// Compiles a function twice, for plain x86-64 and for processors with AVX2; the loader takes what fits. What it calls
// must be inlined into it.
#if defined(__x86_64__) && !defined(KOVREL_WITHOUT_CLONES)
#define KOVREL_SIMD __attribute__((target_clones("default", "avx2")))
#else
#define KOVREL_SIMD
#endif
#define KOVREL_SIMD_PART inline __attribute__((always_inline))
