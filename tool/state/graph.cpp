#include "tool/state/graph.h"

#include "tool/members.h"
#include "tool/mistakes.h"
#include "tool/state/shape.h"
#include "tool/state/texts.h"
#include "tool/words.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fmt/format.h>
#include <map>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tool {
namespace {

// What is down is told by a word, too: colours are not seen by everybody.
constexpr std::string_view colour_of_up = "#dcefdc";
constexpr std::string_view colour_of_down = "#f6c9c9";
constexpr std::string_view colour_of_others = "#ececec";
constexpr std::string_view ink_of_down = "#b00000";
constexpr std::string_view ink_of_beginning = "#b06000";
constexpr std::string_view ink_of_up = "#2e7d32";

// As the emulated module reports it.
enum class SessionState
{
    Unknown,
    Down,
    Beginning,
    Up
};

std::string escaped_for_dot(std::string_view text)
{
    std::string safe;
    for (const char c : printable(text))
        safe += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '"' ? "&quot;" : std::string(1, c);
    return safe.empty() ? " " : safe;
}

std::string bold(std::string_view text)
{
    return fmt::format("<B>{}</B>", escaped_for_dot(text));
}

std::string inked(std::string_view colour, const std::string& text)
{
    return fmt::format("<FONT COLOR=\"{}\">{}</FONT>", colour, text);
}

const std::string& text_under(const Value& object, const char* member)
{
    static const std::string none;
    const Value* const value = object.find(member);
    return value ? value->text : none;
}

const std::map<std::string, Value>& members_in(const Value& object, const char* member)
{
    static const std::map<std::string, Value> none;
    const Value* const value = object.find(member);
    return value ? value->members : none;
}

using Entry = std::pair<const std::string, Value>;

// eth2 before eth10.
std::vector<const Entry*> sorted(const std::map<std::string, Value>& entries)
{
    std::vector<const Entry*> all;
    all.reserve(entries.size());
    for (const Entry& entry : entries)
        all.push_back(&entry);
    std::ranges::sort(all, [](const Entry* a, const Entry* b) {
        const int order = strverscmp(a->first.c_str(), b->first.c_str());
        return order != 0 ? order < 0 : a->first < b->first;
    });
    return all;
}

std::string counted(std::size_t count, std::string_view what)
{
    return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

// Of what instances have.
const Level& level_of(std::string_view name)
{
    const Level& instances = **std::ranges::find(whole_state().levels, "instances", &Level::name);
    return **std::ranges::find(instances.levels, name, &Level::name);
}

class Graph
{
public:
    std::string of(const Value& state)
    {
        _text = "digraph state {\n"
                "  rankdir=LR; nodesep=0.4; ranksep=1.2;\n"
                "  node [shape=plain fontname=\"sans-serif\" fontsize=11];\n"
                "  edge [fontname=\"sans-serif\" fontsize=10];\n";
        for (const Entry& bridge : members_in(state, "bridges"))
            add_bridge(bridge.first, bridge.second);
        for (const Entry* const instance : sorted(members_in(state, "instances")))
            add_instance(instance->first, instance->second);
        add_endpoints(members_in(state, "endpoints"));
        for (const Entry* const cluster : sorted(members_in(state, "clusters")))
            add_cluster(cluster->first, cluster->second);
        add_ports(members_in(state, "bfdConnections"));
        for (const Entry& session : members_in(state, "bfdSessions"))
            add_session(session.first, session.second);
        return _text + _edges + "}\n";
    }

private:
    struct Cell
    {
        std::string text;
        std::string_view colour;
        std::string port;
    };

    // Of a table that is about as wide as it is high: cells are wider than high.
    static std::size_t square(const std::vector<Cell>& cells)
    {
        const double columns = std::ceil(std::sqrt(static_cast<double>(cells.size()) * 0.6));
        return std::max<std::size_t>(1, static_cast<std::size_t>(columns));
    }

    // Edges leave a column at its sides.
    std::string add_column(std::string_view title, const std::vector<Cell>& cells)
    {
        return add_table(title, colour_of_others, cells, 1);
    }

    // A table with a title.
    std::string add_table(
        std::string_view title, std::string_view colour, const std::vector<Cell>& cells, std::size_t columns)
    {
        std::string name = fmt::format("n{}", _nodes++);
        _text += fmt::format("  {} [label=<<TABLE BORDER=\"0\" CELLBORDER=\"1\" CELLSPACING=\"2\" CELLPADDING=\"4\">\n"
                             "    <TR><TD COLSPAN=\"{}\" BGCOLOR=\"{}\">{}</TD></TR>\n",
            name, columns, colour, title);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            _text += i % columns == 0 ? "    <TR>" : "";
            _text += fmt::format("<TD ALIGN=\"LEFT\" BALIGN=\"LEFT\" VALIGN=\"TOP\" BGCOLOR=\"{}\"{}>{}</TD>",
                cells[i].colour, cells[i].port.empty() ? "" : fmt::format(" PORT=\"{}\"", cells[i].port),
                cells[i].text);
            _text += (i + 1) % columns == 0 || i + 1 == cells.size() ? "</TR>\n" : "";
        }
        _text += "    </TABLE>>];\n";
        return name;
    }

    void add_edge(const std::string& from, const std::string& to, std::string_view attributes)
    {
        _edges += fmt::format("  {} -> {} [{}];\n", from, to, attributes);
    }

    void add_bridge(const std::string& name, const Value& bridge)
    {
        const bool is_up = text_under(bridge, "enabled") != "0";
        std::string title = "bridge " + bold(name);
        if (!is_up)
            title += "<BR/>" + inked(ink_of_down, "DISABLED");
        title += fmt::format("<BR/>{}, {}<BR/>{} forwarding entries that were set",
            counted(members_in(bridge, "networks").size(), "network"),
            counted(members_in(bridge, "ports").size(), "port"), members_in(bridge, "fdb").size());
        _bridges[name] = add_table(title, is_up ? colour_of_up : colour_of_down, {}, 1);
    }

    // The routes over each LIF; those over none have no name.
    static std::map<std::string, std::vector<std::string>> routes_of(const Value& instance)
    {
        std::map<std::string, std::vector<std::string>> routes;
        const Level& hops = *level_of("routes").levels.front();
        for (const Entry* const route : sorted(members_in(instance, "routes")))
            for (const Entry& hop : members_in(route->second, "nextHops")) {
                const Texts texts = fields_of_key(hops, &level_of("routes"), hop.first);
                routes[texts.at("lif")].push_back(fmt::format("{} via {}", route->first, texts.at("gateway")));
            }
        for (const Entry* const route : sorted(members_in(instance, "routes6"))) {
            const Texts texts = fields_of_key(level_of("routes6"), nullptr, route->first);
            routes[texts.at("lif")].push_back(
                fmt::format("{}/{} via {}", texts.at("dest"), texts.at("prefixLen"), texts.at("gateway")));
        }
        return routes;
    }

    static std::string lines_of(const std::vector<std::string>& routes, bool are_down)
    {
        constexpr std::size_t most = 4;
        std::string lines;
        for (std::size_t i = 0; i < std::min(routes.size(), most); ++i)
            lines += "<BR/>" + (are_down ? inked(ink_of_down, escaped_for_dot(routes[i])) : escaped_for_dot(routes[i]));
        if (routes.size() > most)
            lines += fmt::format("<BR/>and {} more", counted(routes.size() - most, "route"));
        return lines;
    }

    void add_instance(const std::string& name, const Value& instance)
    {
        std::map<std::string, std::vector<std::string>> routes = routes_of(instance);
        std::vector<Cell> cells;
        std::vector<std::pair<std::string, std::string>> ties; // of ports to bridges
        std::size_t down = 0;
        for (const char* const kind : {"lifs", "bridgeLifs"})
            for (const Entry* const lif : sorted(members_in(instance, kind))) {
                cells.push_back(cell_of(lif->first, lif->second, routes[lif->first]));
                routes.erase(lif->first);
                down += text_under(lif->second, "up") == "0" ? 1 : 0;
                cells.back().port = fmt::format("p{}", cells.size());
                if (std::string_view(kind) == "bridgeLifs" && !text_under(lif->second, "auxName").empty())
                    ties.emplace_back(cells.back().port, text_under(lif->second, "auxName"));
            }
        for (const auto& [lif, over] : routes)
            cells.push_back(lif.empty()
                                ? Cell {bold("routes over no LIF") + lines_of(over, false), colour_of_others, ""}
                                : Cell {bold(lif) + "<BR/>" + inked(ink_of_down, "IS NOT THERE") + lines_of(over, true),
                                      colour_of_down, ""});
        std::string title = fmt::format("instance {}<BR/>{}", bold(name),
            counted(members_in(instance, "lifs").size() + members_in(instance, "bridgeLifs").size(), "LIF"));
        if (down > 0)
            title += ", " + inked(ink_of_down, fmt::format("{} DOWN", down));
        const std::string node = add_table(title, colour_of_others, cells, square(cells));
        for (const auto& [port, bridge] : ties)
            tie(fmt::format("{}:{}", node, port), bridge);
    }

    static Cell cell_of(const std::string& name, const Value& lif, const std::vector<std::string>& routes)
    {
        const bool is_up = text_under(lif, "up") != "0";
        std::string text = bold(name);
        if (!is_up)
            text += " " + inked(ink_of_down, "DOWN");
        if (text_under(lif, "address") != "0.0.0.0")
            text += "<BR/>" + escaped_for_dot(key_of(level_of("routes"),
                                  {{"dest", text_under(lif, "address")}, {"mask", text_under(lif, "mask")}}));
        for (const Entry& address : members_in(lif, "ipv6"))
            text += "<BR/>" + escaped_for_dot(address.first + "/" + text_under(address.second, "prefixLen"));
        return {text + lines_of(routes, !is_up), is_up ? colour_of_up : colour_of_down, ""};
    }

    void tie(const std::string& from, const std::string& bridge)
    {
        if (!_bridges.contains(bridge))
            _bridges[bridge] = add_column("bridge " + bold(bridge), {});
        add_edge(from, _bridges[bridge], "dir=none");
    }

    void add_endpoints(const std::map<std::string, Value>& endpoints)
    {
        std::vector<Cell> cells;
        for (const Entry* const entry : sorted(endpoints))
            cells.push_back({bold(entry->first) + "<BR/>" + escaped_for_dot(text_under(entry->second, "name")),
                colour_of_others, ""});
        if (!cells.empty())
            add_table(counted(cells.size(), "bridge endpoint"), colour_of_others, cells, square(cells));
    }

    void add_cluster(const std::string& name, const Value& cluster)
    {
        std::vector<Cell> cells;
        std::vector<std::string> addresses;
        for (const Entry* const node : sorted(members_in(cluster, "nodes"))) {
            addresses.push_back(text_under(node->second, "mac"));
            cells.push_back({bold(node->first) + "<BR/>" + escaped_for_dot(addresses.back()), colour_of_others,
                fmt::format("p{}", addresses.size())});
        }
        const std::string table = add_column("cluster " + bold(name), cells);
        for (std::size_t i = 0; i < addresses.size(); ++i)
            _places.emplace(addresses[i], table + ":" + cells[i].port);
    }

    void add_ports(const std::map<std::string, Value>& ports)
    {
        std::vector<Cell> cells;
        std::vector<std::string> addresses;
        for (const Entry* const port : sorted(ports)) {
            addresses.push_back(text_under(port->second, "mac"));
            cells.push_back({bold(port->first) + "<BR/>" + escaped_for_dot(addresses.back()), colour_of_others,
                fmt::format("p{}", addresses.size())});
        }
        if (cells.empty())
            return;
        const std::string table = add_column("ports plumbed for BFD", cells);
        for (std::size_t i = 0; i < addresses.size(); ++i)
            _ports.emplace(addresses[i], table + ":" + cells[i].port);
    }

    // The key is both addresses and a value.
    void add_session(const std::string& key, const Value& session)
    {
        const std::vector<std::string_view> addresses = split(key, ' ');
        const std::string from = place(_ports, std::string(addresses[0]));
        const std::string to = place(_places, std::string(addresses[1]));
        const std::string& state = text_under(session, "value3");
        const auto known = state == "1"   ? SessionState::Down
                           : state == "2" ? SessionState::Beginning
                           : state == "3" ? SessionState::Up
                                          : SessionState::Unknown;
        switch (known) {
        case SessionState::Down:
            return add_edge(from, to,
                fmt::format("dir=none style=dashed color=\"{0}\" fontcolor=\"{0}\" label=\"BFD DOWN\"", ink_of_down));
        case SessionState::Beginning:
            return add_edge(from, to,
                fmt::format("dir=none color=\"{0}\" fontcolor=\"{0}\" label=\"BFD beginning\"", ink_of_beginning));
        case SessionState::Up:
            return add_edge(
                from, to, fmt::format("dir=none color=\"{0}\" fontcolor=\"{0}\" label=\"BFD up\"", ink_of_up));
        case SessionState::Unknown:
            return add_edge(from, to, fmt::format("dir=none label=\"BFD state {}\"", state));
        }
    }

    // Of what has no place, one by itself.
    std::string place(std::map<std::string, std::string>& places, const std::string& address)
    {
        const auto found = places.find(address);
        if (found != places.end())
            return found->second;
        return places[address] = add_column(escaped_for_dot(address), {});
    }

    std::string _text;
    std::string _edges;
    unsigned _nodes = 0;
    std::map<std::string, std::string> _bridges;
    std::map<std::string, std::string> _places; // of nodes of clusters, by their addresses
    std::map<std::string, std::string> _ports;
};

struct Descriptor
{
    explicit Descriptor(int descriptor) : number(descriptor) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (number >= 0)
            close(number);
    }

    int number;
};

[[noreturn]] void fail_to_draw(int error)
{
    if (error == ENOENT)
        throw Failure("there is no dot to draw it: Graphviz has it", "", 0, "");
    throw Failure(fmt::format("cannot run dot: {}", strerrordesc_np(error)), "", error, "");
}

} // namespace

std::string graph_of(const Value& state)
{
    return Graph().of(state);
}

std::string drawn(const std::string& graph)
{
    const Descriptor text(memfd_create("graph", MFD_CLOEXEC));
    const Descriptor picture(memfd_create("picture", MFD_CLOEXEC));
    if (text.number < 0 || picture.number < 0 ||
        write(text.number, graph.data(), graph.size()) != static_cast<ssize_t>(graph.size()) ||
        lseek(text.number, 0, SEEK_SET) != 0)
        fail_to_draw(errno);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, text.number, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, picture.number, STDOUT_FILENO);
    std::string words[] {"dot", "-Tsvg"};
    char* arguments[] {words[0].data(), words[1].data(), nullptr};
    pid_t dot = 0;
    const int error = posix_spawnp(&dot, arguments[0], &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        fail_to_draw(error);
    int status = 0;
    while (waitpid(dot, &status, 0) < 0 && errno == EINTR)
        continue;
    struct stat drawing
    {};
    if (status != 0 || fstat(picture.number, &drawing) != 0 || drawing.st_size == 0)
        throw Failure("dot did not draw it", "", 0, "");
    std::string svg(static_cast<std::size_t>(drawing.st_size), '\0');
    if (pread(picture.number, svg.data(), svg.size(), 0) != drawing.st_size)
        fail_to_draw(errno);
    return svg;
}

} // namespace tool
