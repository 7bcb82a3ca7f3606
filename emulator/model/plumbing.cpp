#include "emulator/model/plumbing.h"
#include <cerrno>

namespace emulator {

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

int unplumb(const std::string& name, Collection<Connection>& all)
{
    return all.remove_if_found(name) ? 0 : ENOENT;
}

} // namespace emulator
