// Every operation of a layer against the tables of operations/ and against the same call of C.
#include "layer.h"
#include "operations/reply.h"

#include <set>

using namespace operations;
using shapes::Answer;
using shapes::Row;
using shapes::ScriptedDevice;

namespace {

// The layer has no workers: their lists come from the other form.
std::vector<Row> rows_of_the_layer()
{
    std::vector<Row> rows;
    for_each_operation([&](const Chapter& chapter, const Operation& operation) {
        if (operation.shape == Shape::ListWorker)
            return;
        for (const Case& one : operation.cases)
            rows.push_back(
                {&chapter, &operation, &one, operation.layouts.size() > 0 ? operation.layouts.begin() : nullptr});
    });
    return rows;
}

using layer::Outcome;

// Bytes of which none is zero and no two neighbours are the same.
Bytes pattern(std::size_t size)
{
    Bytes bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(1 + i % 127);
    return bytes;
}

// What the device answers to a row: first, where there are two commands, and then.
std::vector<Answer> replies_to(const Operation& operation)
{
    Bytes count(4, '\0');
    put(count, 0, 2, 4);
    switch (operation.shape) {
    case Shape::SingleRead:
        return {fake::replies(reply_record(*operation.layouts.begin(), 1))};
    case Shape::ListRead: {
        Bytes records;
        for (std::size_t i = 0; i < 3; ++i)
            records += reply_record(*operation.layouts.begin(), i);
        return {fake::replies(records)};
    }
    case Shape::CountedTable:
        return {fake::replies(count + pattern(2 * 68))};
    case Shape::CountedArrays: {
        Bytes block = pattern(operation.room);
        put(block, 4, 3, 4);
        return {fake::replies(block)};
    }
    case Shape::CountedBlock:
        return {fake::replies(count), fake::replies(pattern(2 * 776))};
    case Shape::CountedRead:
        return {fake::replies(pattern(2 * 235))};
    case Shape::ResultSend:
        return {fake::replies(pattern(88))};
    default:
        return {fake::replies(pattern(reply_room(operation)))};
    }
}

// What C hands out, as the layer would.
layer::Got got_by_c(const Operation& operation, void* target, std::uint32_t count)
{
    const auto handed_out = [&] {
        void* pointer;
        std::memcpy(&pointer, target, sizeof pointer);
        return static_cast<const char*>(pointer);
    };
    const auto holder = [&](std::size_t size) -> layer::Got {
        std::int32_t records;
        const char* first;
        std::memcpy(&records, handed_out(), 4);
        std::memcpy(&first, handed_out() + 8, 8);
        return {layer::bytes_of(first, static_cast<std::size_t>(records) * size), static_cast<std::size_t>(records)};
    };
    switch (operation.shape) {
    case Shape::SingleRead:
    case Shape::CountedArrays:
        return {layer::bytes_of(handed_out(), operation.room), 1};
    case Shape::ListRead:
        return holder(operation.layouts.begin()->size);
    case Shape::CountedTable:
        return holder(68);
    case Shape::CountedBlock:
        return {layer::bytes_of(handed_out(), count * 776), count};
    case Shape::CountedRead:
        return {layer::bytes_of(static_cast<char*>(target), std::min(count * 235u, 1000u / 235 * 235)), count};
    default:
        return {layer::bytes_of(static_cast<char*>(target), target_size(operation)), 1};
    }
}

// The same call of C.
void call_c(const Row& row, LumoCmdResult* answer, Outcome& outcome)
{
    const Operation& operation = *row.operation;
    std::vector<char> memory(std::max<std::size_t>(target_size(operation), sizeof(void*)));
    std::uint32_t count = 0;
    if (row.call(answer != nullptr ? static_cast<void*>(answer) : memory.data(), &count) != 0) {
        outcome.error = errno;
        return;
    }
    if (hands_out(operation) || (target_size(operation) > 0 && answer == nullptr))
        outcome.got = got_by_c(operation, memory.data(), count);
    if (hands_out(operation)) {
        void* result;
        std::memcpy(&result, memory.data(), sizeof result);
        if (operation.release.name != nullptr)
            row.release(result);
        else
            free(result);
    }
}

constexpr layer::Form in_c {call_c, layer::Failure::IsErrnoAlone};

class LayerOperations : public shapes::Rows
{
protected:
    const Operation& operation = *row.operation;

    // Calls the operation, and releases what it hands out.
    Outcome run(const layer::Form& form, const std::vector<Answer>& answers,
        const fake::System& system = {.kept_content = 4096}) const
    {
        ScriptedDevice device;
        for (const Answer& answer : answers)
            device.next(answer);
        Outcome outcome;
        LumoCmdResult answer {};
        const bool answered = operation.shape == Shape::ResultSend;
        outcome.call = observe(device, system, [&] {
            form.call(row, answered ? &answer : nullptr, outcome);
            return outcome.error == 0 ? 0 : -1;
        });
        outcome.answer = layer::bytes_of(&answer);
        return outcome;
    }

    // The layer makes the same calls of the system as C, and tells the same.
    void expect_like_c(const std::vector<Answer>& answers, const fake::System& system = {.kept_content = 4096}) const
    {
        const Outcome due = run(in_c, answers, system);
        for (const layer::Form& form : layer::forms()) {
            const Outcome here = run(form, answers, system);
            EXPECT_EQ(here.error, due.error);
            EXPECT_EQ(here.answer, due.answer);
            EXPECT_EQ(here.call.descriptors_left, 0);
            EXPECT_EQ(here.call.sent.size(), due.call.sent.size());
            for (std::size_t i = 0; i < here.call.sent.size(); ++i)
                expect_same(here.call.sent[i], due.call.sent.at(i));
            if (due.error == 0) {
                EXPECT_EQ(here.got.bytes, due.got.bytes);
                EXPECT_EQ(here.got.count, due.got.count);
            } else if (form.failure == layer::Failure::NamesOperation) {
                EXPECT_EQ(here.operation, layer::names().at(operation.function.name));
            }
            // A large reply lies in memory that C's caller has and the layer allocates.
            if (operation.shape != Shape::RawRead || operation.room <= 4096) {
                EXPECT_EQ(without_free_of_null(here.call.events), due.call.events);
                EXPECT_EQ(here.call.blocks_left, due.call.blocks_left);
            } else {
                EXPECT_THAT(here.call, fake::LeavesNothingAllocated());
            }
            free_left(here.call);
        }
        free_left(due.call);
    }

    // An owner of nothing gives null to what frees it, which is free itself for one record.
    std::vector<std::string> without_free_of_null(std::vector<std::string> events) const
    {
        if (hands_out(operation) && operation.release.name == nullptr && !events.empty() &&
            events.back() == "free(of what was not allocated)")
            events.pop_back();
        return events;
    }

    void expect_same(const fake::Sent& here, const fake::Sent& due) const
    {
        EXPECT_EQ(here.number, due.number);
        EXPECT_EQ(here.in_len, due.in_len);
        EXPECT_EQ(here.out_len, due.out_len);
        expect_named_same(here.input, due.input);
    }

    // What the tables name is the same; the rest, too, where it is cleared.
    void expect_named_same(std::string_view here, std::string_view due) const
    {
        ASSERT_EQ(here.size(), due.size());
        for (std::size_t i = 0; i < here.size(); ++i)
            if ((operation.remainder == Remainder::Cleared || row.one->request.names(i)) && here[i] != due[i])
                FAIL() << "byte " << i << " is " << int(here[i]) << " instead of " << int(due[i]);
    }
};

TEST_P(LayerOperations, SendWhatTheTablesSay)
{
    for (const layer::Form& form : layer::forms()) {
        const Outcome outcome = run(form, replies_to(operation));
        EXPECT_EQ(outcome.error, 0);
        ASSERT_FALSE(outcome.call.sent.empty());
        const fake::Sent& sent = outcome.call.sent.back();
        EXPECT_EQ(sent.number, static_cast<unsigned long>(row.command()));
        EXPECT_EQ(sent.in_len, input_length(operation));
        EXPECT_EQ(sent.out_len, reply_room(operation));
        if (sent.in_len == request_size)
            expect_named_same(sent.input, row.one->request.content());
        free_left(outcome.call);
    }
}

TEST_P(LayerOperations, GetAndFreeWhatCDoes)
{
    expect_like_c(replies_to(operation));
    // What the module does not write of a number is undefined.
    if (operation.shape != Shape::GetValue)
        expect_like_c({});
}

TEST_P(LayerOperations, DecodeRecords)
{
    if (row.layout == nullptr)
        return;
    const std::vector<Answer> answers = replies_to(operation);
    const Outcome outcome = run(layer::forms()[0], answers);
    Bytes expected;
    for (std::size_t at = 0; at < answers[0].reply.size(); at += row.layout->size) {
        const Bytes record = answers[0].reply.substr(at, row.layout->size);
        expected += decoded(layout_of(operation.layouts, record), record);
    }
    EXPECT_EQ(outcome.got.bytes, expected);
}

TEST_P(LayerOperations, TellEveryErrnoOfTheDevice)
{
    for (int error = 1; error < 134; ++error)
        expect_like_c({fake::fails(error)});
    if (operation.shape == Shape::CountedBlock) {
        for (int error = 1; error < 134; ++error)
            expect_like_c({replies_to(operation)[0], fake::fails(error)});
    }
}

TEST_P(LayerOperations, TellWhatFailsInTheLibrary)
{
    expect_like_c({}, {.open_error = ENOENT, .kept_content = 4096});
    if (operation.shape != Shape::GetValue) {
        expect_like_c({fake::replies("x")});
        expect_like_c({fake::reports("x", -1)});
    }
    if (operation.shape == Shape::RawRead)
        return; // It allocates nothing.
    for (const int allocation : {1, 2, 3})
        expect_like_c(replies_to(operation), {.failing_allocation = allocation, .kept_content = 4096});
}

INSTANTIATE_TEST_SUITE_P(, LayerOperations, testing::ValuesIn(rows_of_the_layer()), shapes::NameOfRow());

// Tables whose length the module says.
class LayerTables : public LayerOperations
{};

// Their release leaves the array of an empty one allocated.
TEST_P(LayerTables, AreFreedAlsoIfTheyAreEmpty)
{
    for (const layer::Form& form : layer::forms()) {
        const Outcome outcome = run(form, {fake::replies(Bytes(4, '\0'))});
        EXPECT_EQ(outcome.error, 0);
        EXPECT_EQ(outcome.got.count, 0u);
        EXPECT_THAT(outcome.call, fake::LeavesNothingAllocated());
    }
}

// The library leaves errno as it is there.
TEST_P(LayerTables, OfACountThatWrapsAroundAreNoSuccess)
{
    Bytes count(4, '\0');
    put(count, 0, 31580642, 4);
    for (const layer::Form& form : layer::forms())
        EXPECT_EQ(run(form, {fake::reports(count, 139268)}).error, EOVERFLOW);
}

INSTANTIATE_TEST_SUITE_P(, LayerTables, testing::ValuesIn(shapes::rows_of(Shape::CountedTable)), shapes::NameOfRow());

// 146 were the first.
TEST(Layer, HasEveryOperationOfTheTables)
{
    std::set<std::string> rows;
    for (const Row& row : rows_of_the_layer())
        rows.insert(row.operation->function.name);
    std::set<std::string> here;
    std::set<std::string> names;
    for (const auto& [c_name, name] : layer::names()) {
        here.insert(c_name);
        names.insert(name);
    }
    EXPECT_EQ(here, rows);
    EXPECT_EQ(names.size(), here.size());
    EXPECT_GE(here.size(), 146u);
}

} // namespace
