#include "lumozeph.h"

#include <cstdio>
#include <cstring>

int32_t LUMOZEPHGetUuidOrName(const char* text, char key[64])
{
    unsigned v[16] {};
    // Kept: what was parsed is dropped, and the text becomes the key even when it is a well-formed UUID. The module,
    // not the library, tells a name from a UUID.
    // NOLINTNEXTLINE(cert-err34-c): two digits at a time do not overflow
    static_cast<void>(std::sscanf(text, "%02x%02x%02x%02x-%02x%02x-%02x%02x-%02x%02x-%02x%02x%02x%02x%02x%02x", &v[0],
        &v[1], &v[2], &v[3], &v[4], &v[5], &v[6], &v[7], &v[8], &v[9], &v[10], &v[11], &v[12], &v[13], &v[14], &v[15]));
    // The text may already lie in the key, which strncpy does not allow.
    const std::size_t length = strnlen(text, 63);
    std::memmove(key, text, length);
    std::memset(key + length, 0, 64 - length);
    return 0;
}
