#include "tool/metrics.h"

#include "tool/carrying_out.h"
#include "tool/files.h"
#include "tool/lists.h"
#include "tool/members.h"
#include "tool/mistakes.h"
#include "tool/state/checking.h"
#include "tool/state/difference.h"
#include "tool/state/reading.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <optional>

namespace tool {
namespace {

enum class Type
{
    Counter,
    Gauge
};

// Of the same name, the samples are told apart by their labels.
struct Family
{
    Type type = Type::Gauge;
    std::string help;
    std::string_view unit = {};
    std::map<std::string, double> samples = {};
};

struct ListMetric
{
    std::string_view operation;
    std::string_view name;
    std::string_view family = {}; // where two lists are one metric
};

constexpr ListMetric list_metrics[] {
    {"GetInstances", "lumozeph_instances"},
    {"GetLifs", "lumozeph_lifs"},
    {"GetRoutes", "lumozeph_routes", "ipv4"},
    {"GetRoutesv6", "lumozeph_routes", "ipv6"},
    {"GetArps", "lumozeph_neighbours", "ipv4"},
    {"GetArpsv6", "lumozeph_neighbours", "ipv6"},
    {"GetProxyArps", "lumozeph_neighbour_proxies"},
    {"GetPolicy", "lumozeph_policies"},
    {"GetPolicyTable", "lumozeph_policy_tables"},
    {"GetBridgeInstances", "lumozeph_bridges"},
    {"GetBridgeNetworks", "lumozeph_bridge_networks"},
    {"GetBridgePorts", "lumozeph_bridge_ports"},
    {"GetBridgeLifs", "lumozeph_bridge_lifs"},
    {"GetBridgeFdbEntries", "lumozeph_fdb_entries"},
    {"GetPmac", "lumozeph_fdb_pmacs"},
    {"GetBridgeClusters", "lumozeph_clusters"},
    {"GetBridgeClusterNodes", "lumozeph_cluster_nodes"},
    {"GetBridgeEndpoints", "lumozeph_endpoints"},
    {"GetBridgeBFDSessions", "lumozeph_bfd_sessions"},
    {"GetBFDPortConnections", "lumozeph_bfd_connections"},
    {"GetMRoutingAllMcastGroups", "lumozeph_mcast_groups"},
    {"GetConnections", "lumozeph_connections"},
};

struct ValueMetric
{
    std::string_view operation;
    std::string_view name;
};

constexpr ValueMetric value_metrics[] {
    {"GetLogLevel", "lumozeph_log_level"},
    {"GetExtendedLogLevel", "lumozeph_extended_log_level"},
    {"GetStatsLevel", "lumozeph_stats_level"},
    {"GetTxDispQueueSize", "lumozeph_tx_disp_queue_size"},
    {"GetFullSyncSaveStatus", "lumozeph_full_sync_save_status"},
};

// Which counters a record of this kind has; the others are always 0.
bool has_counter(std::uint64_t kind, std::size_t counter)
{
    switch (kind) {
    case 0:
        return counter < 28 && counter != 8;
    case 1:
        return counter != 71 && counter != 77;
    case 3:
        return counter >= 1 && counter < 20;
    default:
        return false;
    }
}

std::string label(std::string_view name, std::string_view value)
{
    std::string text = fmt::format("{}=\"", name);
    for (const char c : printable(value)) {
        if (c == '\\' || c == '"')
            text += '\\';
        text += c;
    }
    return text + '"';
}

std::string joined(const std::string& labels, const std::string& more)
{
    return labels.empty() ? more : labels + "," + more;
}

std::string labels_of(std::span<const Given> place)
{
    std::string labels;
    for (const Given& given : place)
        labels = joined(labels, label(given.name == "key" ? "bridge" : given.name, given.value));
    return labels;
}

// "Reads an instance's routes." becomes "Reads an instance's routes: how many there are."
std::string help_of(const Operation& operation, std::string_view more)
{
    std::string_view brief = operation.brief;
    if (brief.ends_with('.'))
        brief.remove_suffix(1);
    return fmt::format("{}{}.", brief, more);
}

class Scrape
{
public:
    explicit Scrape(AddressOrder order) : _order(order), _names(order) {}

    std::map<std::string, Family, std::less<>> run(
        std::span<const std::string> targets, const std::optional<Value>& state)
    {
        const auto begin = std::chrono::steady_clock::now();
        _families["lumozeph_up"] = {Type::Gauge, "Whether the module answers.", "", {{"", 0}}};
        attempt("GetLogLevel", [&] {
            answer_of({nullptr, find_operation("GetLogLevel"), {}}, _order);
            _families["lumozeph_up"].samples[""] = 1;
        });
        read_lists();
        read_values();
        read_statistics();
        for (const std::string& target : targets)
            read_receive_side_scaling(target);
        if (state)
            compare_with(*state);
        Family errors {Type::Gauge, "Reads that failed, by the function of the library.", "", {}};
        for (const auto& [operation, count] : _errors)
            errors.samples[label("operation", operation)] = count;
        _families["lumozeph_scrape_errors"] = std::move(errors);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
        _families["lumozeph_scrape_duration_seconds"] = {
            Type::Gauge, "How long it took to read all this.", "seconds", {{"", took.count()}}};
        return std::move(_families);
    }

private:
    template <class Action>
    void attempt(std::string_view operation, Action action)
    {
        double& errors = _errors[std::string(operation)];
        try {
            action();
        } catch (const NoAnswer&) {
            throw; // The others would take as long, one after the other.
        } catch (const Failure& failure) {
            // It may be the names for the read that could not be read.
            if (failure.operation == operation)
                ++errors;
            else
                ++_errors[failure.operation];
        }
    }

    void add(std::string_view name, Type type, const std::string& help, const std::string& labels, double value)
    {
        Family& family = _families[std::string(name)];
        family.type = type;
        if (family.help.empty())
            family.help = help;
        family.samples[labels] = value;
    }

    void read_lists()
    {
        for (const Object& object : known_objects())
            for (const Verb* const verb : lists_of_object(object.name))
                attempt(verb->operation, [&] {
                    for (const List& list : lists_of(*verb, _names))
                        count(list);
                });
    }

    void count(const List& list)
    {
        const auto* const metric = std::ranges::find(list_metrics, list.verb->operation, &ListMetric::operation);
        attempt(list.verb->operation, [&] {
            std::string labels = labels_of(list.place);
            if (!metric->family.empty())
                labels = joined(labels, label("family", metric->family));
            const Operation& operation = *find_operation(list.verb->operation);
            const Reply reply = answer_of({list.verb, &operation, list.place}, _order);
            add(metric->name, Type::Gauge, help_of(operation, ": how many there are"), labels,
                static_cast<double>(records_of(operation, reply)->count));
        });
    }

    void read_values()
    {
        for (const ValueMetric& metric : value_metrics)
            attempt(metric.operation, [&] {
                const Operation& operation = *find_operation(metric.operation);
                const Reply reply = answer_of({nullptr, &operation, {}}, _order);
                add(metric.name, Type::Gauge, std::string(operation.brief), "", reply.value());
            });
    }

    void read_statistics()
    {
        read_counters("GetLumoDiStats", "lumozeph_distributed_events_total", {});
        for (const Object& object : known_objects())
            for (const Verb& verb : object.verbs) {
                if (verb.operation == "GetLumoInstanceCPStats")
                    read_counters_of_each(verb, "lumozeph_instance_control_plane_events_total");
                if (verb.operation == "GetLifStats")
                    read_counters_of_each(verb, "lumozeph_lif_events_total");
            }
    }

    void read_counters_of_each(const Verb& verb, std::string_view name)
    {
        attempt(verb.operation, [&] {
            for (const List& list : lists_of(verb, _names))
                read_counters(verb.operation, name, list.place);
        });
    }

    void read_counters(std::string_view operation_name, std::string_view name, std::span<const Given> place)
    {
        attempt(operation_name, [&] {
            const Operation& operation = *find_operation(operation_name);
            const Reply reply = answer_of({nullptr, &operation, {place.begin(), place.end()}}, _order);
            const Member& kind = *operation.record->find("statsKind");
            const Member& counters = *operation.record->find("counters");
            const std::string labels = labels_of(place);
            for (std::size_t i = 0; i < counters.length; ++i)
                if (has_counter(load_number(reply.data() + kind.offset, kind.width), i))
                    add(name, Type::Counter, help_of(operation, ", by the number of the counter"),
                        joined(labels, label("counter", std::to_string(i))), element(reply, counters, i));
        });
    }

    void read_receive_side_scaling(const std::string& target)
    {
        attempt("SoftRSSGetStats", [&] {
            const Operation& operation = *find_operation("SoftRSSGetStats");
            const Reply reply = answer_of({nullptr, &operation, {{"target", target}}}, _order);
            for (const std::string_view number : {"1", "2", "3"}) {
                const Member& member = *operation.record->find(fmt::format("rssCounter{}", number));
                const std::size_t entries = elements_in_use(*operation.record, member, reply.data());
                for (std::size_t i = 0; i < entries; ++i)
                    add("lumozeph_rss_events_total", Type::Counter,
                        help_of(operation, ", by the number of the counter and its entry"),
                        fmt::format("{},{},{}", label("target", target), label("counter", number),
                            label("entry", std::to_string(i))),
                        element(reply, member, i));
            }
        });
    }

    void compare_with(const Value& document)
    {
        try {
            const Value part = part_spoken_of(read_state(scope_of(document), _order), document);
            add("lumozeph_state_differences", Type::Gauge, "How many things are not as the file of the state says.", "",
                static_cast<double>(differences(part, document).size()));
        } catch (const NoAnswer&) {
            throw;
        } catch (const Failure& failure) {
            ++_errors[failure.operation];
        }
    }

    static double element(const Reply& reply, const Member& member, std::size_t i)
    {
        return static_cast<double>(load_number(reply.data() + member.offset + i * member.width, member.width));
    }

    AddressOrder _order;
    Names _names;
    std::map<std::string, double> _errors;
    std::map<std::string, Family, std::less<>> _families;
};

std::string exposed(const std::map<std::string, Family, std::less<>>& families, Exposition exposition)
{
    constexpr std::string_view total = "_total";
    const bool is_open = exposition == Exposition::OpenMetrics;
    std::string text;
    for (const auto& [name, family] : families) {
        if (family.samples.empty())
            continue;
        const bool is_counter = family.type == Type::Counter;
        const std::string_view shown =
            is_open && is_counter ? std::string_view(name).substr(0, name.size() - total.size()) : name;
        text +=
            fmt::format("# HELP {} {}\n# TYPE {} {}\n", shown, family.help, shown, is_counter ? "counter" : "gauge");
        if (is_open && !family.unit.empty())
            text += fmt::format("# UNIT {} {}\n", shown, family.unit);
        for (const auto& [labels, value] : family.samples)
            text += labels.empty() ? fmt::format("{} {}\n", name, value)
                                   : fmt::format("{}{{{}}} {}\n", name, labels, value);
    }
    return is_open ? text + "# EOF\n" : text;
}

} // namespace

void export_metrics(std::span<const std::string> targets, const MetricsTerms& terms, AddressOrder order, Output& output)
{
    std::optional<Value> state;
    if (!terms.state.empty())
        state = without_statistics(read_document(terms.state));
    const std::string text = exposed(Scrape(order).run(targets, state), terms.exposition);
    if (!terms.file.empty())
        return replace_contents(terms.file, text, Access::ReadByAll);
    output.write(text);
    output.flush();
}

std::string_view metric_of_list(std::string_view operation)
{
    const auto* const metric = std::ranges::find(list_metrics, operation, &ListMetric::operation);
    return metric == std::end(list_metrics) ? std::string_view() : metric->name;
}

} // namespace tool
