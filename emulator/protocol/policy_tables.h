// Policy tables, and the references from interfaces to them.
#pragma once

#include "emulator/protocol/command.h"
#include "emulator/protocol/policies.h"

namespace emulator::protocol::policy_tables {

inline constexpr std::size_t most = 1000;
inline constexpr std::size_t most_refs = 20;

using addressed::instance;
using addressed::lif;
using policies::table;

inline constexpr Text name {"name", 224, 64};

namespace ref {
inline constexpr Bytes<24> bytes {"bytes", 0};
inline constexpr Layout layout = bare<bytes>;
} // namespace ref

inline constexpr U16 count {"count", 288};
inline constexpr Table entries {"entries", 292, ref::layout, most_refs};

namespace record {
inline constexpr U32 id {"policyTableId", 0};
inline constexpr Text name {"policyTableName", 4, 64};
inline constexpr U32 policies {"value1", 68};
inline constexpr Layout layout = fields_in<72, id, name, policies>;
} // namespace record

namespace refs_record {
inline constexpr Text lif {"text1", 0, 64};
inline constexpr U16 count {"refCount", 64};
inline constexpr Table refs {"refs", 66, ref::layout, most_refs};
inline constexpr Layout layout = fields_in<546, lif, count, refs>;
} // namespace refs_record

inline constexpr Command commands[] = {
    {143, "GetPolicyTable", request<>, list(record::layout, most)},
    {144, "SetPolicyTable", request<table, name>, result_if_asked},
    {145, "DelPolicyTable", request<table>, result_if_asked},
    {146, "GetLifPolicyTableRef", request<instance, lif>, one(refs_record::layout)},
    {147, "SetLifPolicyTableRef", request<instance, lif, count, entries>, result_if_asked},
    {148, "DelLifPolicyTableRef", request<instance, lif>, result_if_asked},
};

} // namespace emulator::protocol::policy_tables
