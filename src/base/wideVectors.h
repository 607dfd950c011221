#pragma once

/// Marks a function for wide vectors: it is compiled twice, and the processor's version is chosen when the
/// library is loaded. Both give the same bits, as multiplications and additions are never fused. Where the
/// platform cannot choose, and under AddressSanitizer, which is not ready so early, there is one version.
#if defined(__x86_64__) && defined(__gnu_linux__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define VELMAR_WIDE_VECTORS __attribute__((target_clones("avx2", "default")))
#else
#define VELMAR_WIDE_VECTORS
#endif
