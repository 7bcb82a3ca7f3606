// A call of the library and of its limit, for each shape of operation, as something that can be called again and again.
#pragma once

#include "limit.h"
#include "operations/operation.h"

#include <cstdint>
#include <cstdlib>
#include <lumozeph.h>

namespace bench {

inline void expect(bool holds)
{
    if (!holds)
        std::abort();
}

inline auto library_get(const operations::Operation& operation)
{
    return [&operation] {
        void* record = nullptr;
        expect(call(operation, *operation.cases.begin(), {&record}) == 0);
        operation.release.call(record);
    };
}

inline auto limit_of_get(const operations::Operation& operation)
{
    return [&operation] {
        char* record = nullptr;
        expect(limit_get(38, operation.room, &record) == 0);
        free(record);
    };
}

inline auto library_get_value(const operations::Operation& operation)
{
    return [&operation] {
        std::uint32_t got;
        expect(call(operation, *operation.cases.begin(), {&got}) == 0);
    };
}

inline auto limit_of_get_value()
{
    return [] {
        std::uint32_t got;
        expect(limit_get_value(20, &got) == 0);
    };
}

inline auto library_get_list(const operations::Operation& operation, std::size_t count)
{
    return [&operation, count] {
        LimitList* list = nullptr;
        expect(
            call(operation, *operation.cases.begin(), {&list}) == 0 && list->count == static_cast<std::int32_t>(count));
        operation.release.call(list);
    };
}

inline auto limit_of_get_list(const operations::Operation& operation)
{
    return [&operation] {
        LimitList* list = nullptr;
        const std::size_t size = operation.layouts.begin()->size;
        expect(limit_get_list(38, size, static_cast<std::size_t>(operation.cap), &list) == 0);
        limit_release_list(list);
    };
}

inline constexpr char some_instance[] = "0000002a-51b3-4f0e-9c1d-00005e00532a";
inline constexpr char some_lif[] = "lif-0000-17";

struct Set
{
    const char* name;
    std::int32_t (*send)();
    std::int32_t (*limit)();
};

// Operations that read nothing.
inline constexpr Set sets[] = {
    {"value", [] { return LUMOZEPH_SetLogLevel(7); }, [] { return limit_send_value(10, 7); }},
    {"no_text", [] { return LUMOZEPH_DelPolicyTable(7, nullptr); }, [] { return limit_send(89); }},
    {"one_text",
        [] { return LUMOZEPH_SetRoute(0x0a000000, 0xff000000, 0x0a000001, nullptr, some_instance, 1, nullptr); },
        [] { return limit_send(89); }},
    {"two_texts",
        [] { return LUMOZEPH_SetRoute(0x0a000000, 0xff000000, 0x0a000001, some_lif, some_instance, 1, nullptr); },
        [] { return limit_send(89); }},
    {"result",
        [] {
            LumoCmdResult result;
            return LUMOZEPH_DelPolicyTable(7, &result);
        },
        [] { return limit_send(89); }},
};

} // namespace bench
