#include "emulator/model/plumbing.h"

#include <algorithm>
#include <cerrno>

namespace emulator {

namespace {

auto is_called(const std::string& name)
{
    return [&name](const Connection& connection) { return connection.name == name; };
}

} // namespace

int plumb(const Connection& connection, std::vector<Connection>& all)
{
    if (connection.name.empty())
        return EINVAL;
    const auto existing = std::find_if(all.begin(), all.end(), is_called(connection.name));
    if (existing != all.end())
        *existing = connection;
    else if (all.size() == protocol::connections::most)
        return ENOSPC;
    else
        all.push_back(connection);
    return 0;
}

int unplumb(const std::string& name, std::vector<Connection>& all)
{
    return std::erase_if(all, is_called(name)) == 1 ? 0 : ENOENT;
}

const Connection* find_connection(const std::string& name, const std::vector<Connection>& all)
{
    const auto found = std::find_if(all.begin(), all.end(), is_called(name));
    return found == all.end() ? nullptr : &*found;
}

} // namespace emulator
