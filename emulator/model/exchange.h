// One command on its way through the module.
#pragma once

#include "emulator/model/state.h"
#include "emulator/protocol/access.h"

#include <cerrno>

namespace emulator {

struct Exchange
{
    State& state;
    protocol::Input request;
    std::uint32_t room;
    std::vector<std::byte> reply {};

    // Adds a record of zeros to the reply, to be filled before the next one is added.
    protocol::Record add(const protocol::Layout& layout)
    {
        reply.resize(reply.size() + layout.size);
        return protocol::Record(std::span(reply).last(layout.size));
    }

    // Adds a record that is one field.
    template <const auto& Named>
    void add(const protocol::ValueOf<Named>& value)
    {
        add(protocol::bare<Named>)[Named] = value;
    }
};

} // namespace emulator
