#include "tool/description.h"

#include <algorithm>

namespace tool {

const Member* Record::find(std::string_view member) const
{
    const auto found =
        std::find_if(members.begin(), members.end(), [member](const Member& m) { return m.name == member; });
    return found == members.end() ? nullptr : &*found;
}

int Operation::position(std::string_view parameter) const
{
    for (std::size_t i = 0; i < parameters.size(); ++i)
        if (parameters[i].name == parameter)
            return static_cast<int>(i);
    return -1;
}

const Operation* find_operation(std::string_view name)
{
    for (const Operation& operation : operations())
        if (operation.name == name)
            return &operation;
    return nullptr;
}

std::string_view without_prefix(std::string_view function)
{
    return function.starts_with(function_prefix) ? function.substr(function_prefix.size()) : function;
}

const Operation* find_function(std::string_view name)
{
    return find_operation(without_prefix(name));
}

} // namespace tool
