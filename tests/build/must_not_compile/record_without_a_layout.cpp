// A read of a record whose layout is not included. Diagnosed: the record has no layout
#include "channel/read.h"

#ifndef WRONG
#include "lif/records.h"
#endif

int32_t read(LumoLifInfo** out)
{
    return lumo::get_one(lumo::Command::GetLif, lumo::Request(), out);
}
