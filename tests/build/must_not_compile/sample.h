// A record for the layouts beside this file.
#pragma once

#include "channel/record.h"

#pragma pack(push, 1)
struct Sample
{
    uint32_t number;
    char name[64];
    uint16_t value;
    uint32_t last;
};
#pragma pack(pop)
