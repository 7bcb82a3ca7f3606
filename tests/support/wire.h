// Requests, replies and what the caller gets of them, said in literal offsets.
#pragma once

#include "support/device.h"

namespace world {

// Little-endian integers at literal offsets.
void put(Bytes& bytes, std::size_t offset, std::uint64_t value, std::size_t width);
std::uint64_t get(const Bytes& bytes, std::size_t offset, std::size_t width);

// A request record as the module must see it: what is not named is zero.
class Record
{
public:
    Record& text(std::size_t offset, std::string_view text); // without a NUL of its own
    Record& u8(std::size_t offset, std::uint64_t value) { return number(offset, value, 1); }
    Record& u16(std::size_t offset, std::uint64_t value) { return number(offset, value, 2); }
    Record& u32(std::size_t offset, std::uint64_t value) { return number(offset, value, 4); }
    Record& u64(std::size_t offset, std::uint64_t value) { return number(offset, value, 8); }
    operator const Bytes&() const { return bytes_; }

private:
    Record& number(std::size_t offset, std::uint64_t value, std::size_t width);
    Bytes bytes_ = Bytes(776, '\0');
};

// What a decoder does to a reply record; every byte not named here reaches the caller as it stands.
struct Range
{
    std::size_t offset;
    std::size_t width;
};

struct Table
{
    std::size_t offset;
    std::size_t stride;
    std::size_t capacity;
    Range count; // width 0: every entry counts
    std::vector<Range> texts;
    std::vector<Range> zeroed;
};

// Bytes that arrive a second time, in the place of others.
struct Repeat
{
    std::size_t from;
    std::size_t to;
    std::size_t width;
};

// A number that makes the record one of this layout.
struct Pinned
{
    std::size_t offset;
    std::size_t width;
    std::uint64_t value;
};

struct Layout
{
    std::size_t size;
    std::vector<Range> texts {};
    std::vector<Range> zeroed {};
    std::vector<Table> tables {};
    std::vector<Repeat> repeated {};
    std::vector<Pinned> pinned {};
};

// A reply record in which no byte that is not pinned is zero and neighbouring records differ; tables are counted as
// full.
Bytes reply_record(const Layout& layout, std::size_t index);

// The caller's record for a reply record.
Bytes decoded(const Layout& layout, const Bytes& reply);

// Where in the caller's record a change of one byte of the reply may be seen. A range of one byte must change with it;
// of a longer range, any part may.
std::vector<Range> reached_from(const Layout& layout, const Bytes& reply, std::size_t offset);

} // namespace world
