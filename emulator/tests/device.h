/* The module's device as C programs without the library see it. */
#pragma once

#include <stdint.h>

#define NORMAL "/pelt/devices/char/zephdriver/kola_lumo"
#define UPGRADE "/pelt/devices/char/zephdriver/kola_lumo_ugrade"

struct envelope
{
    uint32_t in_len;
    const void* in;
    uint32_t out_len;
    void* out;
} __attribute__((packed));
