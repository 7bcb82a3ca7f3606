#include "emulator/faults/fault.h"

#include "emulator/faults/counts.h"
#include "emulator/protocol/commands.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <fnmatch.h>
#include <optional>
#include <utility>

namespace emulator {

using namespace protocol;

namespace {

using EffectKind = Effect::Kind;

constexpr std::string_view digits = "0123456789";
constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

constexpr std::uint64_t billion = 1000000000;
constexpr std::uint64_t longest_delay = 86400 * billion; // a day

// What there is besides errno values.
struct Word
{
    std::string_view name;
    EffectKind kind;
};
constexpr std::array<Word, 7> words {{{"short", EffectKind::Short}, {"fragment", EffectKind::Fragment},
    {"long", EffectKind::Long}, {"garbage", EffectKind::Garbage}, {"count", EffectKind::Count},
    {"delay", EffectKind::Delay}, {"hang", EffectKind::Hang}}};

// Of errno values that have several, some of which are known already.
constexpr std::array<std::pair<std::string_view, int>, 4> other_names {
    {{"EDEADLOCK", EDEADLOCK}, {"ENOTSUP", ENOTSUP}, {"EOPNOTSUPP", EOPNOTSUPP}, {"EWOULDBLOCK", EWOULDBLOCK}}};

// Units of time, and how many of each are a second.
constexpr std::array<std::pair<std::string_view, std::uint64_t>, 4> units {
    {{"s", 1}, {"ms", 1000}, {"us", 1000000}, {"ns", billion}}};

// Of functions that send what others send, too.
constexpr std::array<std::pair<std::string_view, std::string_view>, 7> functions_without_a_command {
    {{"GetLifStatsCached", "GetLifStats"}, {"GetProxyArps", "GetArps"}, {"SetProxyArp", "SetArp"},
        {"DelProxyArp", "DelArp"}, {"SetProxyArpv6", "SetArpv6"}, {"DelProxyArpv6", "DelArpv6"},
        {"BridgeSetConfig", "the one whose number it is given"}}};

// An asterisk stands for any characters, or none. What else would be special is in no pattern.
bool fits(std::string_view pattern, std::string_view name)
{
    return fnmatch(std::string(pattern).c_str(), std::string(name).c_str(), 0) == 0;
}

std::optional<int> errno_of(std::string_view name)
{
    constexpr int last = 133;
    for (int error = 1; error <= last; ++error)
        if (const char* const known = strerrorname_np(error); known != nullptr && name == known)
            return error;
    const auto* const other =
        std::find_if(other_names.begin(), other_names.end(), [&](const auto& one) { return one.first == name; });
    return other != other_names.end() ? std::optional(other->second) : std::nullopt;
}

bool can_become(const Command& command, const Effect& effect)
{
    switch (effect.kind) {
    case EffectKind::Error:
    case EffectKind::Delay:
    case EffectKind::Hang:
        return true;
    case EffectKind::Count:
        return has_count(command.reply, effect.number);
    default:
        return command.reply.shape != Shape::Nothing;
    }
}

class Reader
{
public:
    explicit Reader(std::string_view text) : text_(text) {}

    Fault read()
    {
        Fault fault;
        fault.text = text_;
        read_whom(fault);
        std::string_view next = "expected #, % or =";
        if (accept('#')) {
            read_range(fault);
            next = "expected % or =";
        }
        if (accept('%')) {
            fault.probability = read_probability();
            next = "expected =";
        }
        if (!accept('='))
            refuse(next);
        const std::size_t begin = at_;
        fault.effect = read_effect();
        if (at_ < text_.size())
            refuse("expected the end");
        check(fault, begin);
        return fault;
    }

private:
    [[noreturn]] void refuse_at(std::size_t place, std::string_view why) const
    {
        throw FaultError(text_, place + 1, why);
    }
    [[noreturn]] void refuse(std::string_view why) const { refuse_at(at_, why); }

    bool accept(char expected)
    {
        const bool is_there = at_ < text_.size() && text_[at_] == expected;
        at_ += is_there ? 1 : 0;
        return is_there;
    }

    std::string_view read_all_of(std::string_view characters)
    {
        const std::string_view rest = text_.substr(at_);
        const std::string_view found = rest.substr(0, rest.find_first_not_of(characters));
        at_ += found.size();
        return found;
    }

    void read_whom(Fault& fault)
    {
        const std::string_view whom = read_all_of(std::string(letters).append(digits).append("*"));
        if (whom.empty())
            refuse("expected the name or number of a command, any or open");
        if (whom == "open") {
            fault.is_of_opens = true;
            return;
        }
        const bool is_number = whom.find_first_not_of(digits) == std::string_view::npos;
        add_commands(fault, [&](const Command& command) {
            return is_number ? whom == std::to_string(command.number) : whom == "any" || fits(whom, command.name);
        });
        // Of a function that has a command for each position of its switch, both.
        if (fault.commands.empty())
            add_commands(fault, [&](const Command& command) {
                return command.name == std::string(whom).append("On") ||
                       command.name == std::string(whom).append("Off");
            });
        if (fault.commands.empty())
            refuse_at(0, reason_for_no_command(whom));
    }

    template <class Predicate>
    static void add_commands(Fault& fault, Predicate is_meant)
    {
        for (const Command* command : commands_by_number)
            if (command != nullptr && is_meant(*command))
                fault.commands.push_back(command->number);
    }

    static std::string reason_for_no_command(std::string_view whom)
    {
        const auto* const function = std::find_if(functions_without_a_command.begin(),
            functions_without_a_command.end(), [&](const auto& one) { return one.first == whom; });
        std::string reason = "expected the name or number of a command: ";
        if (function == functions_without_a_command.end())
            return reason + "there is none of this";
        return reason.append("that of ").append(whom).append(" is ").append(function->second);
    }

    std::uint64_t read_number(std::uint64_t least, std::uint64_t most, std::string_view what)
    {
        const std::size_t begin = at_;
        const std::string_view found = read_all_of(digits);
        std::uint64_t number = 0;
        const auto [end, error] = std::from_chars(found.data(), found.data() + found.size(), number);
        if (found.empty() || error != std::errc() || number < least || number > most)
            refuse_at(begin, what);
        return number;
    }

    void read_range(Fault& fault)
    {
        fault.first = read_number(1, billion, "expected which of these commands, from 1 on");
        fault.last = fault.first;
        if (!accept('-'))
            return;
        if (at_ < text_.size() && digits.find(text_[at_]) != std::string_view::npos)
            fault.last = read_number(fault.first, billion, "expected a number that is not below the first one");
        else
            fault.last = std::numeric_limits<std::uint64_t>::max();
    }

    // A number with up to nine decimals, in billionths.
    std::uint64_t read_decimal(std::string_view what)
    {
        std::uint64_t value = read_number(0, billion, what) * billion;
        if (!accept('.'))
            return value;
        const std::size_t begin = at_;
        const std::string_view decimals = read_all_of(digits);
        if (decimals.empty() || decimals.size() > 9)
            refuse_at(begin, "expected one to nine decimals");
        std::uint64_t unit = billion;
        for (const char digit : decimals) {
            unit /= 10;
            value += static_cast<std::uint64_t>(digit - '0') * unit;
        }
        return value;
    }

    std::uint64_t read_probability()
    {
        constexpr std::string_view what = "expected a probability above 0, and up to 1";
        const std::size_t begin = at_;
        const std::uint64_t probability = read_decimal(what);
        if (probability == 0 || probability > certain)
            refuse_at(begin, what);
        return probability;
    }

    std::uint64_t read_time()
    {
        const std::size_t time_at = at_;
        const std::uint64_t number = read_decimal("expected a time, such as 50ms");
        const std::size_t begin = at_;
        const std::string_view unit = read_all_of(letters);
        const auto* const found =
            std::find_if(units.begin(), units.end(), [&](const auto& u) { return u.first == unit; });
        if (found == units.end())
            refuse_at(begin, "expected s, ms, us or ns");
        const std::uint64_t time = number / found->second;
        if (time > longest_delay)
            refuse_at(time_at, "expected a time of at most a day");
        return time;
    }

    Effect read_effect()
    {
        const std::size_t begin = at_;
        const std::string_view name = read_all_of(std::string(letters).append(digits));
        if (const auto error = errno_of(name))
            return {EffectKind::Error, static_cast<std::uint64_t>(*error)};
        const auto* const word =
            std::find_if(words.begin(), words.end(), [&](const Word& w) { return w.name == name; });
        if (word == words.end())
            refuse_at(begin, "expected an errno such as EIO, short:BYTES, fragment, long, garbage, count:NUMBER, "
                             "delay:TIME or hang");
        return {word->kind, read_argument(word->kind)};
    }

    std::uint64_t read_argument(EffectKind kind)
    {
        constexpr std::uint64_t largest = std::numeric_limits<std::uint32_t>::max();
        switch (kind) {
        case EffectKind::Short:
            expect_argument("expected :BYTES");
            return read_number(0, largest, "expected a number of bytes");
        case EffectKind::Count:
            expect_argument("expected :NUMBER");
            return read_number(0, largest, "expected a number of 32 bits");
        case EffectKind::Delay:
            expect_argument("expected :TIME");
            return read_time();
        default:
            return 0;
        }
    }

    void expect_argument(std::string_view what)
    {
        if (!accept(':'))
            refuse(what);
    }

    // Keeps the commands of which the effect can be: there must be some.
    void check(Fault& fault, std::size_t effect_at) const
    {
        const EffectKind kind = fault.effect.kind;
        if (fault.is_of_opens) {
            if (kind != EffectKind::Error && kind != EffectKind::Delay && kind != EffectKind::Hang)
                refuse_at(effect_at, "expected an errno, delay:TIME or hang: an open has no reply");
            return;
        }
        std::erase_if(fault.commands,
            [&](std::uint32_t number) { return !can_become(*commands_by_number[number], fault.effect); });
        if (fault.commands.empty())
            refuse_at(effect_at, kind == EffectKind::Count
                                     ? "expected something else: no count in the reply can be this number"
                                     : "expected an errno, delay:TIME or hang: the command has no reply");
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

std::string message(std::string_view text, std::size_t column, std::string_view why)
{
    std::string message = "column " + std::to_string(column) + " of '";
    return message.append(text).append("': ").append(why);
}

} // namespace

FaultError::FaultError(std::string_view text, std::size_t column, std::string_view why)
    : std::runtime_error(message(text, column, why))
{}

Fault parse_fault(std::string_view text)
{
    return Reader(text).read();
}

} // namespace emulator
