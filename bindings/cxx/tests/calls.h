// Every operation of the C++ layer as something that the tables of operations/ can call, by the name of its function in
// C: calls.cpp.jinja has a line for each.
#pragma once

#include "layer.h"

#include <lumozeph.hpp>

namespace calls {

using layer::bytes_of;
using layer::Got;

// The arguments of a case, each as the type that C++ wants for it.
class Given
{
public:
    Given(const operations::Case& one, lumozeph::cmd_result* answer)
        : arguments_(one.arguments.begin()), answer_(answer)
    {}

    const char* text(std::size_t index) const { return static_cast<const char*>(arguments_[index].at); }
    template <class Number>
    Number number(std::size_t index) const
    {
        return static_cast<Number>(arguments_[index].number);
    }
    template <class Type>
    const Type* at(std::size_t index) const
    {
        return static_cast<const Type*>(arguments_[index].at);
    }
    lumozeph::switched switched(std::size_t index) const
    {
        return arguments_[index].number != 0 ? lumozeph::switched::on : lumozeph::switched::off;
    }
    lumozeph::mac mac(std::size_t index) const { return lumozeph::mac(*at<std::uint8_t[6]>(index)); }
    std::optional<lumozeph::mac> maybe_mac(std::size_t index) const
    {
        return at<void>(index) != nullptr ? std::optional<lumozeph::mac>(mac(index)) : std::nullopt;
    }
    // Where the module's answer goes, if the caller wants it.
    lumozeph::cmd_result* answer() const { return answer_; }

private:
    const operations::Argument* arguments_;
    lumozeph::cmd_result* answer_;
};

template <class Record, auto Release>
Got got(const lumozeph::owned<Record, Release>& record)
{
    return {bytes_of(record.get()), 1};
}
template <class List, auto Release, std::size_t Cap>
Got got(const lumozeph::list<List, Release, Cap>& list)
{
    return {bytes_of(list.data(), list.size()), list.size()};
}
template <std::size_t Size, bool InPlace>
Got got(const lumozeph::raw<Size, InPlace>& reply)
{
    return {bytes_of(reply.data(), reply.size()), 1};
}
template <class Entries>
Got got_entries(const Entries& entries)
{
    Got all {{}, entries.reported()};
    for (const auto entry : entries)
        all.bytes += bytes_of(entry.data(), entry.size());
    return all;
}
template <std::size_t Size>
Got got(const lumozeph::entries<Size>& entries)
{
    return got_entries(entries);
}
template <std::size_t Size, std::size_t Sure, std::size_t Largest>
Got got(const lumozeph::entry_block<Size, Sure, Largest>& entries)
{
    return got_entries(entries);
}
inline Got got(const lumozeph::mac& address)
{
    return {bytes_of(address.data(), 6), 1};
}
inline Got got(lumozeph::ipv4 address)
{
    const std::uint32_t value = address.value();
    return {bytes_of(&value), 1};
}
inline Got got(std::uint32_t value)
{
    return {bytes_of(&value), 1};
}
inline Got got(const lumozeph::rss_tunables& tunables)
{
    return {bytes_of(&tunables), 1};
}

struct Call
{
    const char* c_name;
    const char* name;
    Got (*throwing)(const Given& given);
    std::error_code (*trying)(const Given& given, Got& into);
};

std::span<const Call> all();

} // namespace calls
