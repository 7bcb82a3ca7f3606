#include "tool/rates.h"

#include "tool/carrying_out.h"
#include "tool/json_writer.h"
#include "tool/members.h"
#include "tool/mistakes.h"
#include "tool/records.h"
#include "tool/words.h"

#include <algorithm>
#include <thread>

namespace tool {
namespace {

bool is_counter(const Member& member)
{
    return member.kind == "counter";
}

void print(std::span<const Rates> all, const Manner& manner, Output& output)
{
    if (manner.style == Style::Text) {
        for (const Rates& rates : all)
            for (std::size_t i = 0; i < rates.values.size(); ++i)
                if (rates.values[i] != 0)
                    output.format(
                        "{}{}  {:.7g}/s\n", rates.name, rates.is_array ? fmt::format("[{}]", i) : "", rates.values[i]);
        return;
    }
    JsonWriter json(output, manner.style == Style::Json ? JsonWriter::Layout::OneLine : JsonWriter::Layout::Indented);
    json.begin_object();
    for (const Rates& rates : all) {
        json.key(rates.name);
        if (rates.is_array)
            json.begin_array();
        for (const double value : rates.values)
            json.decimal(value);
        if (rates.is_array)
            json.end_array();
    }
    json.end_object();
    output.write("\n");
}

} // namespace

std::vector<Rates> rates_between(const Record& record, const std::byte* before, const std::byte* after, double seconds)
{
    std::vector<Rates> all;
    for (const Member& member : record.members) {
        if (!is_counter(member))
            continue;
        Rates rates {member.name, member.length > 0, {}};
        for (std::size_t i = 0; i < elements_in_use(record, member, after); ++i) {
            const std::size_t offset = member.offset + i * member.width;
            const std::uint64_t old_count = load_number(before + offset, member.width);
            const std::uint64_t new_count = load_number(after + offset, member.width);
            rates.values.push_back(
                static_cast<double>(new_count < old_count ? new_count : new_count - old_count) / seconds);
        }
        all.push_back(std::move(rates));
    }
    return all;
}

bool has_rates(const Operation& operation)
{
    const Record* const record = record_of(operation);
    return operation.answer == Answer::Record && record && std::ranges::any_of(record->members, is_counter);
}

void show_rates(
    std::span<const Step> steps, std::chrono::duration<double> interval, const Manner& manner, Output& output)
{
    const Step& step = steps.back();
    const Record* const record = record_of(*step.operation);
    if (steps.size() > 1 || !has_rates(*step.operation))
        throw Misuse("--rates is for what reads counters");
    if (!manner.filters.empty())
        throw Misuse("--rates takes no --filter");
    const std::vector<std::string_view> names = split(manner.fields, ',');
    members_named(*record, names);

    const auto begin = std::chrono::steady_clock::now();
    const Reply before = answer_of(step, manner.order);
    std::this_thread::sleep_until(begin + interval);
    const auto end = std::chrono::steady_clock::now();
    const Reply after = answer_of(step, manner.order);
    const std::chrono::duration<double> passed = end - begin;
    std::vector<Rates> rates = rates_between(*record, before.data(), after.data(), passed.count());
    if (!names.empty())
        std::erase_if(rates, [&](const Rates& one) { return std::ranges::find(names, one.name) == names.end(); });
    print(rates, manner, output);
    output.flush();
}

} // namespace tool
