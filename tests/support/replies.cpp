// What single reads and list reads make of any reply that a module could send: every length, every count, every byte.
#include "support/reads.h"

using testing::SizeIs;

namespace world {

namespace {

// Thousands of calls to a test: of a room of megabytes, the records at its beginning are enough.
const System guarded {.guarded_blocks = true, .kept_content = 4096};
const System unguarded {.kept_content = 4096};

// All that a field of one byte can say. Of a wider one, the counts around the table's room and around what one, two and
// four bytes and their signs can say.
std::vector<std::uint64_t> counts_for(const Table& table)
{
    const unsigned bits = 8 * static_cast<unsigned>(table.count.width);
    const std::uint64_t largest = (std::uint64_t {1} << bits) - 1;
    std::vector<std::uint64_t> counts;
    for (std::uint64_t count = 0; count <= (bits == 8 ? largest : table.capacity + 2); ++count)
        counts.push_back(count);
    for (unsigned bit = 7; bit < bits; ++bit)
        for (const std::uint64_t count : {(std::uint64_t {1} << bit) - 1, std::uint64_t {1} << bit})
            if (count > counts.back())
                counts.push_back(count);
    if (counts.back() != largest)
        counts.push_back(largest);
    return counts;
}

// A reply record whose texts end half-way and whose tables are not full.
Bytes sparse_record(const Layout& layout, std::size_t index)
{
    Bytes bytes = reply_record(layout, index);
    for (const Range& text : layout.texts)
        bytes[text.offset + text.width / 2] = '\0';
    for (const Table& table : layout.tables) {
        for (std::size_t i = 0; i < table.capacity; ++i)
            for (const Range& text : table.texts)
                bytes[table.offset + i * table.stride + text.offset + text.width / 2] = '\0';
        if (table.count.width != 0)
            put(bytes, table.count.offset, table.capacity / 2, table.count.width);
    }
    return bytes;
}

std::vector<Range> texts_of(const Layout& layout)
{
    std::vector<Range> texts = layout.texts;
    for (const Table& table : layout.tables)
        for (const std::size_t entry : {std::size_t {0}, table.capacity - 1})
            for (const Range& text : table.texts)
                texts.push_back({table.offset + entry * table.stride + text.offset, text.width});
    return texts;
}

// Reply records of which one text ends early, at every place, and has at most one byte behind its end, at every place.
// All other texts are empty.
std::vector<Bytes> records_with_strays(const Layout& layout)
{
    Bytes clean = reply_record(layout, 1);
    for (const Range& text : texts_of(layout))
        clean.replace(text.offset, text.width, text.width, '\0');
    std::vector<Bytes> records;
    for (const Range& text : texts_of(layout)) {
        Bytes record = clean;
        for (std::size_t end = 0; end < text.width; ++end) {
            records.push_back(record);
            for (std::size_t stray = end + 1; stray < text.width; ++stray) {
                records.push_back(record);
                records.back()[text.offset + stray] = 'x';
            }
            record[text.offset + end] = 't';
        }
        records.push_back(record);
    }
    return records;
}

bool is_pinned(const Layout& layout, std::size_t offset)
{
    for (const Pinned& pinned : layout.pinned)
        if (offset >= pinned.offset && offset < pinned.offset + pinned.width)
            return true;
    return false;
}

// A reply record of which one byte has been changed.
struct Change
{
    Bytes before;
    Bytes after;
    std::size_t offset;
};

// Every byte becomes another one and NUL, in a record without NULs and in one whose texts end early.
std::vector<Change> changes_of(const Layout& layout)
{
    std::vector<Change> changes;
    for (const Bytes& before : {reply_record(layout, 0), sparse_record(layout, 1)})
        for (std::size_t offset = 0; offset < layout.size; ++offset)
            for (const char byte : {static_cast<char>(before[offset] ^ 0x80), '\0'}) {
                if (byte == before[offset] || is_pinned(layout, offset))
                    continue;
                Bytes after = before;
                after[offset] = byte;
                changes.push_back({before, after, offset});
            }
    return changes;
}

// The record that arrived of a changed reply differs from that of the unchanged one where the change reaches, and
// nowhere else.
void expect_reached(const Layout& layout, const Change& change, const Bytes& arrived)
{
    ASSERT_EQ(arrived, decoded(layout, change.after)) << "byte " << change.offset << " changed";
    Bytes expected = decoded(layout, change.before);
    for (const Range& range : reached_from(layout, change.before, change.offset)) {
        if (range.width == 1) {
            ASSERT_NE(arrived[range.offset], expected[range.offset]) << "byte " << change.offset << " changed";
        }
        expected.replace(range.offset, range.width, arrived, range.offset, range.width);
    }
    ASSERT_EQ(arrived, expected) << "byte " << change.offset << " changed";
}

} // namespace

TEST_P(SingleReads, TakeAReplyOfAnyLengthFromOneRecordOn)
{
    const Bytes reply = reply_record(row.layout, 1) + reply_record(row.layout, 2) + "x";
    const Bytes expected = decoded(row.layout, reply.substr(0, size));
    const auto expect_by_length = [&](const Bytes& sent, std::int32_t length) {
        out = elsewhere;
        const Call call = read(reports(sent, length), guarded);
        if (length < static_cast<std::int32_t>(size)) {
            ASSERT_THAT(call, Fails(EBADMSG)) << length;
            ASSERT_EQ(out, nullptr) << length;
            ASSERT_EQ(call.events, rejected_after_the_call()) << length;
            return;
        }
        ASSERT_THAT(call, Succeeds()) << length;
        ASSERT_THAT(call.blocks_left, SizeIs(1)) << length;
        ASSERT_EQ(record(), expected) << length;
        release();
    };
    for (std::size_t length = 0; length <= reply.size(); ++length)
        ASSERT_NO_FATAL_FAILURE(expect_by_length(reply.substr(0, length), static_cast<std::int32_t>(length)));
    for (const std::int32_t length : {-1, -static_cast<std::int32_t>(size), INT32_MIN, INT32_MAX})
        ASSERT_NO_FATAL_FAILURE(expect_by_length(reply, length));
}

// Kept: a count is passed on as the module reports it. It moves nothing outside the reply and the record.
TEST_P(SingleReads, PassCountsOnAndStayInside)
{
    for (const Table& table : row.layout.tables) {
        if (table.count.width == 0)
            continue;
        for (const std::uint64_t count : counts_for(table)) {
            Bytes reply = reply_record(row.layout, 1);
            put(reply, table.count.offset, count, table.count.width);
            ASSERT_THAT(read(replies(reply), guarded), Succeeds());
            ASSERT_EQ(get(record(), table.count.offset, table.count.width), count);
            ASSERT_EQ(record(), decoded(row.layout, reply)) << "count " << count;
            release();
        }
    }
}

TEST_P(SingleReads, ShowAChangedByteWhereItBelongsAndNowhereElse)
{
    for (const Change& change : changes_of(row.layout)) {
        ASSERT_THAT(read(replies(change.after), unguarded), Succeeds());
        ASSERT_NO_FATAL_FAILURE(expect_reached(row.layout, change, record()));
        release();
    }
}

TEST_P(SingleReads, EndTextsWhateverFollows)
{
    for (const Bytes& reply : records_with_strays(row.layout)) {
        ASSERT_THAT(read(replies(reply), unguarded), Succeeds());
        ASSERT_EQ(record(), decoded(row.layout, reply));
        release();
    }
}

TEST_P(ListReads, DecodeWholeRecordsOfAReplyOfAnyLength)
{
    const Bytes reply = reply_of(3);
    for (std::size_t length = 0; length <= 2 * size + 1; ++length) {
        const Call call = read(reports(reply, static_cast<std::int32_t>(length)), guarded);
        if (length % size != 0 && row.fragment == Fragment::Rejected) {
            expect_failure(call, EBADMSG, rejected_after_the_call());
            ASSERT_FALSE(HasFailure()) << length;
            continue;
        }
        ASSERT_THAT(call, Succeeds()) << length;
        ASSERT_THAT(call.blocks_left, SizeIs(2)) << length;
        ASSERT_NO_FATAL_FAILURE(expect_records((length + size - 1) / size)) << length;
        release();
    }
}

TEST_P(ListReads, AreEmptyForANegativeLength)
{
    for (const std::int32_t length : {-1, -static_cast<std::int32_t>(size), INT32_MIN}) {
        ASSERT_THAT(read(reports(reply_of(2), length), guarded), Succeeds());
        ASSERT_NO_FATAL_FAILURE(expect_records(0)) << length;
        release();
    }
}

// What is reported beyond the cap is not looked at, a fragment included.
TEST_P(ListReads, StopAtTheCap)
{
    const std::size_t last = row.cap - 1;
    Answer answer = replies(reply_of(2));
    answer.at = (last - 1) * size;
    std::vector<std::size_t> lengths;
    for (const std::size_t records : {row.cap - 1, row.cap, row.cap + 1})
        for (const std::size_t length : {records * size - 1, records * size, records * size + 1})
            lengths.push_back(length);
    lengths.push_back(INT32_MAX);
    for (const std::size_t length : lengths) {
        answer.length = static_cast<std::int32_t>(length);
        const Call call = read(answer, guarded);
        if (length < row.room && length % size != 0 && row.fragment == Fragment::Rejected) {
            expect_failure(call, EBADMSG, rejected_after_the_call());
            ASSERT_FALSE(HasFailure()) << length;
            continue;
        }
        ASSERT_THAT(call, Succeeds()) << length;
        const std::size_t count = std::min(row.cap, (length + size - 1) / size);
        ASSERT_EQ(list().count, static_cast<std::int32_t>(count)) << length;
        ASSERT_EQ(record(last - 1), decoded(row.layout, answer.reply.substr(0, size))) << length;
        ASSERT_EQ(record(last), count > last ? decoded(row.layout, answer.reply.substr(size)) : Bytes(size, '\0'))
            << length;
        release();
    }
}

// Kept: a count is passed on as the module reports it. It moves nothing outside the reply and the record: the records
// beside it arrive unharmed, and the last one ends with the reply and with the array.
TEST_P(ListReads, PassCountsOnAndStayInside)
{
    for (const Table& table : row.layout.tables) {
        if (table.count.width == 0)
            continue;
        const std::vector<std::uint64_t> counts = counts_for(table);
        Answer answer = replies(reply_of(counts.size()));
        for (std::size_t i = 0; i < counts.size(); ++i)
            put(answer.reply, i * size + table.count.offset, counts[i], table.count.width);
        const std::size_t first = row.cap - counts.size();
        answer.at = first * size;
        answer.length = static_cast<std::int32_t>(row.room);
        ASSERT_THAT(read(answer, guarded), Succeeds());
        for (std::size_t i = 0; i < counts.size(); ++i) {
            ASSERT_EQ(get(record(first + i), table.count.offset, table.count.width), counts[i]);
            ASSERT_EQ(record(first + i), decoded(row.layout, answer.reply.substr(i * size, size))) << counts[i];
        }
        release();
    }
}

TEST_P(ListReads, EndTextsWhateverFollows)
{
    const std::vector<Bytes> records = records_with_strays(row.layout);
    for (std::size_t first = 0; first < records.size(); first += row.cap) {
        const std::size_t count = std::min(row.cap, records.size() - first);
        Bytes reply;
        for (std::size_t i = 0; i < count; ++i)
            reply += records[first + i];
        ASSERT_THAT(read(replies(reply), guarded), Succeeds());
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(record(i), decoded(row.layout, records[first + i]));
        release();
    }
}

// Every record of a reply has another byte changed.
TEST_P(ListReads, ShowAChangedByteWhereItBelongsAndNowhereElse)
{
    const std::vector<Change> changes = changes_of(row.layout);
    for (std::size_t first = 0; first < changes.size(); first += row.cap) {
        const std::size_t count = std::min(row.cap, changes.size() - first);
        Bytes reply;
        for (std::size_t i = 0; i < count; ++i)
            reply += changes[first + i].after;
        ASSERT_THAT(read(replies(reply), guarded), Succeeds());
        ASSERT_EQ(list().count, static_cast<std::int32_t>(count));
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_NO_FATAL_FAILURE(expect_reached(row.layout, changes[first + i], record(i)));
        release();
    }
}

} // namespace world
