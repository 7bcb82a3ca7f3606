#include "emulator/trace/summary.h"

#include "emulator/trace/reply.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

namespace emulator {

void Summary::Row::add(const Row& other)
{
    calls += other.calls;
    errors += other.errors;
    sent += other.sent;
    received += other.received;
    time += other.time;
}

void Summary::count(const Event& event)
{
    const Call* const call = std::get_if<Call>(&event.what);
    Row row {.calls = 1, .errors = event.error.value_or(0) != 0 ? 1u : 0u, .time = event.took};
    std::size_t place = opens;
    if (call != nullptr) {
        row.sent = call->input.size();
        row.received = event.error == 0 ? call->reply_size : 0;
        place = command_of(call->number) != nullptr ? call->number : unknown;
    }
    rows_[place].add(row);
}

void Summary::append_row(std::string& out, const Row& row, std::string_view name)
{
    char line[160];
    const double microseconds = std::chrono::duration<double, std::micro>(row.time).count();
    std::snprintf(line, sizeof line, "%9llu %9llu %12llu %12llu %12.6f %9.1f  %.*s\n",
        static_cast<unsigned long long>(row.calls), static_cast<unsigned long long>(row.errors),
        static_cast<unsigned long long>(row.sent), static_cast<unsigned long long>(row.received), microseconds / 1e6,
        row.calls > 0 ? microseconds / static_cast<double>(row.calls) : 0, static_cast<int>(name.size()), name.data());
    out.append(line);
}

std::string Summary::table() const
{
    std::vector<std::size_t> order;
    Row total;
    for (std::size_t place = 0; place < rows_.size(); ++place) {
        if (rows_[place].calls > 0)
            order.push_back(place);
        total.add(rows_[place]);
    }
    std::stable_sort(order.begin(), order.end(),
        [this](std::size_t left, std::size_t right) { return rows_[left].time > rows_[right].time; });
    std::string out = "    calls    errors   bytes sent     received      seconds   us/call  command\n";
    for (const std::size_t place : order) {
        const std::string_view name = place == opens     ? "open"
                                      : place == unknown ? "unknown"
                                                         : protocol::commands_by_number[place]->name;
        append_row(out, rows_[place], name);
    }
    append_row(out, total, "total");
    return out;
}

} // namespace emulator
