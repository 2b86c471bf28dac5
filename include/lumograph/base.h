/* What every header of the host's protocol builds on: fixed-width types, layout checks and the
 * version of the protocol.
 *
 * The protocol is plain C with the platform's default calling convention and 64-bit pointers. All
 * values are in the machine's own byte order, which is little-endian on every supported system.
 * Records marked as packed are laid out byte by byte as their offsets say, so that pointers may lie
 * at addresses that are multiples of 4 only: copy such a field, never take its address.
 *
 * These headers compile alone, as C11 and as C++20. */
#ifndef LUMOGRAPH_BASE_H
#define LUMOGRAPH_BASE_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define LUMOGRAPH_BEGIN extern "C" {
#define LUMOGRAPH_END }
#define LUMOGRAPH_ASSERT(condition, text) static_assert(condition, text)
#else
#define LUMOGRAPH_BEGIN
#define LUMOGRAPH_END
#define LUMOGRAPH_ASSERT(condition, text) _Static_assert(condition, text)
#endif

/* Fails the build when a field of a record is not where the host puts it. */
#define LUMOGRAPH_OFFSET(type, field, offset)                                                      \
    LUMOGRAPH_ASSERT(offsetof(type, field) == (offset), #type "." #field " must lie at " #offset)

LUMOGRAPH_ASSERT(sizeof(void*) == 8, "the host's protocol has 64-bit pointers");

/* A four-character key or signature: the first character lies in the top byte. */
#define LUMOGRAPH_KEY(a, b, c, d) ((a)*0x1000000U + (b)*0x10000U + (c)*0x100U + (d))

/* The signature under which the host keeps its own properties. */
#define kLumographSignature LUMOGRAPH_KEY('7', 'R', 'N', 'C')

#endif
