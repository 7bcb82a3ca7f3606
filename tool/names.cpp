#include "tool/names.h"

#include "tool/carrying_out.h"
#include "tool/members.h"
#include "tool/records.h"

#include <algorithm>

namespace tool {
namespace {

// The first that fits is meant.
constexpr Source all_sources[] {
    {"bridge lif", "lif", "GetBridgeLifs", "lifName"},
    {"", "instance", "GetInstances", "instanceKey"},
    {"", "lif", "GetLifs", "lifName"},
    {"bridge", "key", "GetBridgeInstances", "name"},
    {"fdb", "key", "GetBridgeInstances", "name"},
    {"cluster", "key", "GetBridgeClusters", "ident"},
    {"cluster", "node", "GetBridgeClusterNodes", "ident"},
    {"endpoint", "key", "GetBridgeEndpoints", "ident"},
    {"policy", "table", "GetPolicyTable", "policyTableId"},
    {"connection", "name", "GetConnections", "name"},
    {"bfd connection", "port", "GetBFDPortConnections", "port"},
};

const Verb* verb_of(std::string_view operation)
{
    for (const Object& object : known_objects())
        for (const Verb& verb : object.verbs)
            if (verb.operation == operation)
                return &verb;
    return nullptr;
}

} // namespace

const Source* find_source(const Verb& verb, std::string_view parameter)
{
    const auto found = std::ranges::find_if(all_sources,
        [&](const Source& source) { return source.parameter == parameter && verb.words.starts_with(source.verb); });
    return found == std::end(all_sources) ? nullptr : found;
}

std::span<const Source> sources()
{
    return all_sources;
}

const std::vector<std::string>& Names::from(const Source& source, std::span<const Given> within)
{
    Step step {verb_of(source.operation), find_operation(source.operation), {}};
    std::string id(source.operation);
    for (const Given& given : within)
        if (step.operation->position(given.name) >= 0 && given.name != source.parameter) {
            step.given.push_back(given);
            id += '\0' + given.value;
        }
    if (const auto known = _read.find(id); known != _read.end())
        return known->second;
    const Reply reply = answer_of(step, _order);
    const Records records = *records_of(*step.operation, reply);
    const Member& member = *records.record->find(source.field);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < records.count; ++i)
        names.push_back(member.form == Form::Text ? std::string(text_in(records[i] + member.offset, member.width))
                                                  : member_text(*records.record, member, records[i], _order));
    return _read[id] = std::move(names);
}

} // namespace tool
