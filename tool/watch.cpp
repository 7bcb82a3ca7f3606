#include "tool/watch.h"

#include "tool/failures.h"
#include "tool/grammar.h"
#include "tool/json_writer.h"
#include "tool/lists.h"
#include "tool/members.h"
#include "tool/mistakes.h"
#include "tool/pattern.h"
#include "tool/record_json.h"
#include "tool/spelling.h"
#include "tool/waiting.h"
#include "tool/words.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <map>

namespace tool {
namespace {

using Clock = std::chrono::steady_clock;

std::string now()
{
    timespec time {};
    clock_gettime(CLOCK_REALTIME, &time);
    tm parts {};
    gmtime_r(&time.tv_sec, &parts);
    char text[sizeof "2026-01-01T00:00:00"];
    const std::size_t size = std::strftime(text, sizeof text, "%FT%T", &parts);
    return fmt::format("{}.{:03}Z", std::string_view(text, size), time.tv_nsec / 1'000'000);
}

// Writes events, one a line.
class Reporter
{
public:
    Reporter(const WatchTerms& terms, const Manner& manner, Output& output)
        : _terms(terms), _manner(manner), _output(output)
    {}

    std::size_t count() const { return _count; }
    bool has_enough() const { return _terms.count > 0 && _count >= _terms.count; }

    // What was asked for and is not there may come yet.
    void begun(std::size_t lists, std::size_t records, std::span<const std::string> absent)
    {
        if (_manner.style == Style::Text) {
            begin_line();
            _output.format("watching {} {} with {} {}{}{}\n", lists, lists == 1 ? "list" : "lists", records,
                records == 1 ? "record" : "records",
                absent.empty() ? "" : "; not there yet: ", printable(fmt::format("{}", fmt::join(absent, ", "))));
            return;
        }
        JsonWriter json = begin_object("begun");
        json.key("lists");
        json.number(lists);
        json.key("records");
        json.number(records);
        if (!absent.empty()) {
            json.key("absent");
            json.begin_array();
            for (const std::string& word : absent)
                json.string(word);
            json.end_array();
        }
        end_object(json);
    }

    void came(const List& list, const std::string& record) { whole("added", list, record); }
    void went(const List& list, const std::string& record) { whole("removed", list, record); }

    void changed(const List& list, const std::string& before, const std::string& after)
    {
        const Record& record = record_in(list);
        const std::vector<const Member*> members = differences(record, before, after, _manner.order);
        if (members.empty() || has_enough())
            return;
        ++_count;
        if (_manner.style == Style::Text) {
            begin_line();
            _output.format("changed {}{}:", described(list), key_text(list, after));
            for (const Member* const member : members)
                _output.format("{} {} {} -> {}", member == members.front() ? "" : ",", member->name,
                    text_of(record, *member, before), text_of(record, *member, after));
            _output.write("\n");
            return;
        }
        JsonWriter json = begin_object("changed");
        write_list(json, list);
        write_key(json, list, after);
        json.key("changes");
        json.begin_object();
        for (const Member* const member : members) {
            json.key(member->name);
            json.begin_object();
            json.key("old");
            write_member(json, record, *member, data(before), _manner.order);
            json.key("new");
            write_member(json, record, *member, data(after), _manner.order);
            json.end_object();
        }
        json.end_object();
        end_object(json);
    }

    void failed(const List& list, const Failure& failure)
    {
        if (has_enough())
            return;
        ++_count;
        if (_manner.style == Style::Text) {
            begin_line();
            _output.format("failed {}{}{}\n", failure.what(), failure.advice.empty() ? "" : ": ", failure.advice);
            return;
        }
        JsonWriter json = begin_object("failed");
        write_list(json, list);
        json.key("error");
        json.string(failure.what());
        json.key("errno");
        json.string(name_of(failure.number));
        json.key("number");
        json.number(failure.number);
        json.key("advice");
        json.string(failure.advice);
        end_object(json);
    }

    void answered(const List& list)
    {
        if (has_enough())
            return;
        ++_count;
        if (_manner.style == Style::Text) {
            begin_line();
            _output.format("answered {}\n", described(list));
            return;
        }
        JsonWriter json = begin_object("answered");
        write_list(json, list);
        end_object(json);
    }

private:
    static const Record& record_in(const List& list) { return *record_of(*find_operation(list.verb->operation)); }
    static const std::byte* data(const std::string& record) { return std::as_bytes(std::span(record)).data(); }

    static std::string described(const List& list)
    {
        std::string words(list.verb->words);
        for (const Given& given : list.place)
            words += " " + printable(given.value);
        return words;
    }

    std::string text_of(const Record& record, const Member& member, const std::string& bytes) const
    {
        const std::string text = member_text(record, member, data(bytes), _manner.order);
        return text.empty() ? "''" : text;
    }

    static std::vector<const Member*> key_of(const List& list)
    {
        const std::vector<std::string_view> names = split(list.verb->key, ',');
        return members_named(record_in(list), names);
    }

    std::string key_text(const List& list, const std::string& record) const
    {
        std::string text;
        for (const Member* const member : key_of(list))
            text += " " + text_of(record_in(list), *member, record);
        return text;
    }

    void begin_line()
    {
        if (_terms.timestamps)
            _output.format("{} ", now());
    }

    JsonWriter begin_object(std::string_view event)
    {
        JsonWriter json(_output, JsonWriter::Layout::OneLine);
        json.begin_object();
        if (_terms.timestamps) {
            json.key("time");
            json.string(now());
        }
        json.key("event");
        json.string(event);
        return json;
    }

    void end_object(JsonWriter& json)
    {
        json.end_object();
        _output.write("\n");
    }

    static void write_list(JsonWriter& json, const List& list)
    {
        json.key("list");
        json.string(list.verb->words);
        json.key("operation");
        json.string(list.verb->operation);
        json.key("place");
        json.begin_object();
        for (const Given& given : list.place) {
            json.key(given.name);
            json.string(given.value);
        }
        json.end_object();
    }

    void write_key(JsonWriter& json, const List& list, const std::string& record)
    {
        json.key("key");
        write_record(json, record_in(list), key_of(list), data(record), _manner.order);
    }

    // With the usual fields of its table, but for those that are empty or 0.
    void whole(std::string_view event, const List& list, const std::string& bytes)
    {
        if (has_enough())
            return;
        ++_count;
        const Record& record = record_in(list);
        if (_manner.style != Style::Text) {
            JsonWriter json = begin_object(event);
            write_list(json, list);
            write_key(json, list, bytes);
            json.key("record");
            write_record(json, record, all_members(record), data(bytes), _manner.order);
            return end_object(json);
        }
        begin_line();
        _output.format("{} {}{}", event, described(list), key_text(list, bytes));
        const std::vector<std::string_view> usual = split(list.verb->fields, ',');
        const std::vector<const Member*> key = key_of(list);
        const char* between = ":";
        for (const Member* const member : usual.empty() ? all_members(record) : members_named(record, usual)) {
            const std::string text = member_text(record, *member, data(bytes), _manner.order);
            const bool says_nothing = text.find_first_not_of("0.: ") == std::string::npos;
            if (says_nothing || std::ranges::find(key, member) != key.end())
                continue;
            _output.format("{} {} {}", between, member->name, text);
            between = ",";
        }
        _output.write("\n");
    }

    const WatchTerms& _terms;
    const Manner& _manner;
    Output& _output;
    std::size_t _count = 0;
};

// The lists of one verb.
class WatchedVerb
{
public:
    WatchedVerb(const Verb& verb, std::string only) : _verb(&verb), _only(std::move(only)) {}

    bool covers(const WatchedVerb& other) const
    {
        return _verb == other._verb && (_only.empty() || _only == other._only);
    }

    // As it is asked for.
    std::string word() const { return fmt::format("{}={}", split(_verb->words, ' ').front(), _only); }
    bool found_nothing() const { return _error == 0 && _known.empty(); }
    bool is_narrowed() const { return !_only.empty(); }
    std::size_t lists() const { return _known.size(); }
    std::size_t records() const
    {
        std::size_t sum = 0;
        for (const auto& [id, known] : _known)
            sum += known.contents.size();
        return sum;
    }

    enum class Round
    {
        First,
        Later
    };

    // False if the end of the watch interrupted it.
    bool read(Round round, Names& names, Reporter& reporter, AddressOrder order)
    {
        std::vector<List> lists;
        try {
            lists = lists_of(*_verb, names);
            settle({_verb, {}}, _error, reporter);
        } catch (const Failure& failure) {
            return fail({_verb, {}}, _error, failure, reporter);
        }
        std::erase_if(lists, [&](const List& list) {
            return !_only.empty() && std::ranges::find(list.place, _only, &Given::value) == list.place.end();
        });
        forget_all_but(lists, reporter);
        for (const List& list : lists) {
            const bool is_new = !_known.contains(id_of(list));
            Known& known = _known[id_of(list)];
            known.list = list;
            try {
                Contents contents = contents_of(list, order);
                settle(list, known.error, reporter);
                if (!(is_new && round == Round::First))
                    compare(list, known.contents, contents, reporter);
                known.contents = std::move(contents);
            } catch (const Failure& failure) {
                // The next round will not look for it.
                if (is_there(list, order) && !fail(list, known.error, failure, reporter))
                    return false;
            }
        }
        return true;
    }

private:
    struct Known
    {
        List list;
        Contents contents;
        int error = 0;
    };

    static std::string id_of(const List& list)
    {
        std::string id;
        for (const Given& given : list.place)
            id += given.value + '\0';
        return id;
    }

    // What it is the list of may have gone after the names were read.
    bool is_there(const List& list, AddressOrder order) const
    {
        try {
            Names names(order);
            const std::vector<List> lists = lists_of(*_verb, names);
            return std::ranges::find(lists, id_of(list), id_of) != lists.end();
        } catch (const Failure&) {
            return true;
        }
    }

    // Once, until it succeeds or fails for another reason. False if the end of the watch is that.
    static bool fail(const List& list, int& error, const Failure& failure, Reporter& reporter)
    {
        if (Waiting::is_ended())
            return false;
        if (error != failure.number)
            reporter.failed(list, failure);
        error = failure.number;
        return true;
    }

    static void settle(const List& list, int& error, Reporter& reporter)
    {
        if (error != 0)
            reporter.answered(list);
        error = 0;
    }

    void forget_all_but(const std::vector<List>& lists, Reporter& reporter)
    {
        for (auto known = _known.begin(); known != _known.end();) {
            if (std::ranges::find(lists, known->first, id_of) != lists.end()) {
                ++known;
                continue;
            }
            compare(known->second.list, known->second.contents, {}, reporter);
            known = _known.erase(known);
        }
    }

    static void compare(const List& list, const Contents& before, const Contents& after, Reporter& reporter)
    {
        for (const auto& [key, record] : before)
            if (!after.contains(key))
                reporter.went(list, record);
        for (const auto& [key, record] : after)
            if (const auto old = before.find(key); old == before.end())
                reporter.came(list, record);
            else
                reporter.changed(list, old->second, record);
    }

    const Verb* _verb;
    std::string _only;
    int _error = 0;
    std::map<std::string, Known> _known;
};

// What one covers is watched once.
void add(std::vector<WatchedVerb>& all, WatchedVerb verb)
{
    if (std::ranges::any_of(all, [&](const WatchedVerb& one) { return one.covers(verb); }))
        return;
    std::erase_if(all, [&](const WatchedVerb& one) { return verb.covers(one); });
    all.push_back(std::move(verb));
}

bool is_of_something(const Verb* verb)
{
    return !Pattern(verb->form).demanded().empty();
}

std::vector<WatchedVerb> watched(std::span<const std::string> words)
{
    std::vector<WatchedVerb> all;
    for (const std::string& word : words) {
        const std::size_t equals = std::min(word.find('='), word.size());
        const Object* const meant = find_object(word.substr(0, equals));
        const std::string object(meant ? meant->name : word.substr(0, equals));
        const std::vector<const Verb*> verbs = lists_of_object(object);
        if (verbs.empty()) {
            std::vector<std::string_view> known;
            for (const Object& one : known_objects())
                if (!lists_of_object(one.name).empty())
                    known.push_back(one.name);
            throw Misuse(fmt::format("'{}' has no lists that can be watched{}", object, nearest(object, known)));
        }
        const bool is_narrowed = equals < word.size();
        const std::string only = is_narrowed ? word.substr(equals + 1) : "";
        if (is_narrowed && std::ranges::none_of(verbs, is_of_something))
            throw Misuse(
                fmt::format("'{}': {} has no lists of one thing alone; watch {} shows all", word, object, object));
        if (is_narrowed && only.empty())
            throw Misuse(fmt::format("'{}': a name is missing behind the equals sign", word));
        for (const Verb* const verb : verbs)
            if (!is_narrowed || is_of_something(verb))
                add(all, WatchedVerb(*verb, only));
    }
    return all;
}

bool read_all(std::span<WatchedVerb> verbs, WatchedVerb::Round round, Reporter& reporter, AddressOrder order)
{
    Names names(order);
    return std::ranges::all_of(verbs, [&](WatchedVerb& verb) { return verb.read(round, names, reporter, order); });
}

// What has none of its lists.
std::vector<std::string> absent(std::span<const WatchedVerb> verbs)
{
    std::vector<std::string> words;
    for (const WatchedVerb& verb : verbs) {
        const auto is_there = [&](const WatchedVerb& one) { return one.word() == verb.word() && !one.found_nothing(); };
        if (verb.is_narrowed() && std::ranges::none_of(verbs, is_there) &&
            std::ranges::find(words, verb.word()) == words.end())
            words.push_back(verb.word());
    }
    return words;
}

void report_begin(std::span<const WatchedVerb> verbs, Reporter& reporter)
{
    std::size_t lists = 0;
    std::size_t records = 0;
    for (const WatchedVerb& verb : verbs) {
        lists += verb.lists();
        records += verb.records();
    }
    reporter.begun(lists, records, absent(verbs));
}

// Whether there is anybody to read it.
bool is_read(Output& output)
{
    try {
        output.flush();
        return true;
    } catch (const Failure& failure) {
        if (failure.number != EPIPE)
            throw;
        return false;
    }
}

} // namespace

void watch(std::span<const std::string> words, const WatchTerms& terms, const Manner& manner, Output& output)
{
    if (words.empty())
        throw Misuse("which objects? lumozephctl --help lists them");
    std::vector<WatchedVerb> verbs = watched(words);
    const auto interval = std::chrono::duration_cast<Clock::duration>(terms.interval);
    const auto begin = Clock::now();
    const bool has_end = terms.duration.count() > 0;
    const Waiting waiting(
        has_end ? begin + std::chrono::duration_cast<Clock::duration>(terms.duration) : Clock::time_point::max());

    Reporter reporter(terms, manner, output);
    auto round = WatchedVerb::Round::First;
    for (auto next = begin;; round = WatchedVerb::Round::Later) {
        const bool is_done = read_all(verbs, round, reporter, manner.order);
        if (is_done && round == WatchedVerb::Round::First)
            report_begin(verbs, reporter);
        if (!is_read(output) || reporter.has_enough() || Waiting::is_ended())
            return;
        // After a read that took longer, not at once.
        next = std::max(next + interval, Clock::now());
        if (!Waiting::until(next))
            return;
    }
}

} // namespace tool
