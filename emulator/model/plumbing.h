// Plumbed connections, of ports and for BFD.
#pragma once

#include "emulator/model/state.h"

#include <cerrno>

namespace emulator {

// A connection of the same name is replaced.
template <class Connection>
int plumb(const Connection& connection, Collection<Connection>& all)
{
    if (connection.name.empty())
        return EINVAL;
    if (Connection* existing = all.find(connection.name))
        *existing = connection;
    else if (all.size() == protocol::connections::most)
        return ENOSPC;
    else
        all.add(connection);
    return 0;
}

// What is plumbed takes a second to come up, unless the other end cannot be reached.
template <class Connection>
bool is_up(const Connection& connection, Time now)
{
    return connection.link == LinkState::Up && now >= connection.since + std::chrono::seconds(1);
}

} // namespace emulator
