// Reads and writes bytes by the fields that lie in them.
#pragma once

#include "emulator/protocol/layout.h"

namespace emulator::protocol {

// The entries of a table, each of which is again an Input or a Record.
template <class Part, class Byte>
class Entries
{
public:
    Entries(std::span<Byte> bytes, std::size_t stride) : bytes_(bytes), stride_(stride) {}

    Part operator[](std::size_t index) const { return Part(bytes_.subspan(index * stride_, stride_)); }

private:
    std::span<Byte> bytes_;
    std::size_t stride_;
};

// What was received.
class Input
{
public:
    explicit Input(std::span<const std::byte> bytes) : bytes_(bytes) {}

    template <class Typed>
    typename Typed::Value operator[](const Typed& field) const
    {
        return field.load(bytes_.data() + field.offset);
    }

    Entries<Input, const std::byte> operator[](const Table& table) const
    {
        return {bytes_.subspan(table.offset, table.width), table.entry->size};
    }

private:
    std::span<const std::byte> bytes_;
};

// What is to be sent. Its bytes belong to another and are zero to begin with.
class Record
{
public:
    explicit Record(std::span<std::byte> bytes) : bytes_(bytes) {}

    template <class Typed>
    class Place
    {
    public:
        Place(const Typed& field, std::byte* record) : field_(field), record_(record) {}

        Place& operator=(typename Typed::Written value)
        {
            field_.store(record_ + field_.offset, value);
            return *this;
        }

    private:
        const Typed& field_;
        std::byte* record_;
    };

    template <class Typed>
    Place<Typed> operator[](const Typed& field) const
    {
        return {field, bytes_.data()};
    }

    Entries<Record, std::byte> operator[](const Table& table) const
    {
        return {bytes_.subspan(table.offset, table.width), table.entry->size};
    }

private:
    std::span<std::byte> bytes_;
};

} // namespace emulator::protocol
