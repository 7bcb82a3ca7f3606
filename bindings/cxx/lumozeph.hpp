/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * lumozeph for C++: the operations of lumozeph.h with results that free themselves, arguments that cannot be swapped and
 * failures that cannot be overlooked. Header-only, for C++17 and later; it costs what the calls of C cost.
 *
 * Made from api/lumozeph.json and bindings/cxx/ by scripts/bindings: change those.
 *
 * Each operation has the name of its function in C, in small letters: LUMOZEPH_GetLifs is get_lifs. It throws error if
 * it fails. With try_ before its name it throws nothing and returns a std::error_code, and what it gets goes into its
 * last parameter, which is empty after a failure if it is a list or a record of its own.
 *
 * Operations with many arguments, or with some that could be swapped, take them by name:
 *
 *     lumozeph::set_route({.dest = lumozeph::ipv4_prefix("192.0.2.0/24"),
 *         .gateway = lumozeph::ipv4("198.51.100.1"),
 *         .lif = "uplink",
 *         .instance = "blue"});
 *
 * C++17 gives them in the same order without their names. Records are those of C, as they lie; what holds for them, for
 * the errors and for threads is said in lumozeph.h.
 */
#ifndef LUMOZEPH_HPP
#define LUMOZEPH_HPP

#if !defined(__cplusplus) || __cplusplus < 201703L
#error "lumozeph.hpp needs C++17"
#endif

#if __has_include(<version>)
#include <version>
#endif
#if defined(__cpp_lib_format)
#include <format>
#endif
#if defined(__cpp_lib_span)
#include <span>
#endif

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
#include <lumozeph.h>
#include <memory>
#include <new>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>

// How a failed call is told: as an exception that names the operation, or as a code.

namespace lumozeph {

/** A call that failed: code() is its errno, operation() its name here, and what() says both. */
class error : public std::system_error
{
public:
    error(std::error_code code, const char* operation) : std::system_error(code, operation), operation_(operation) {}

    /** The name of the operation, which is that of its function: "get_lifs". */
    const char* operation() const noexcept { return operation_; }

private:
    const char* operation_;
};

namespace detail {

// Why the call before has failed. The one failure that leaves errno as it was is told as EOVERFLOW, to be no success.
inline std::error_code failure() noexcept
{
    return {errno != 0 ? errno : EOVERFLOW, std::system_category()};
}

inline std::error_code rejected() noexcept
{
    return {EINVAL, std::system_category()};
}

inline std::error_code code_of(std::int32_t result) noexcept
{
    return result == 0 ? std::error_code() : failure();
}

[[noreturn, gnu::cold, gnu::noinline]] inline void fail(const char* operation)
{
    throw error(failure(), operation);
}

inline void check(std::int32_t result, const char* operation)
{
    if (result != 0)
        fail(operation);
}

inline void check(std::error_code code, const char* operation)
{
    if (code)
        throw error(code, operation);
}

} // namespace detail

} // namespace lumozeph

// Addresses as values: read from their texts, printed, compared and hashed.

namespace lumozeph {

/** A short text in place, ended by NUL: what a value looks like when it is printed. */
template <std::size_t Capacity>
class short_text
{
public:
    const char* c_str() const& noexcept { return text_; }
    const char* c_str() const&& = delete;
    std::string_view view() const& noexcept { return {text_, size_}; }
    std::string_view view() const&& = delete;
    std::string str() const { return std::string(text_, size_); }

    short_text& append(std::string_view text) noexcept
    {
        const std::size_t size = text.size() < Capacity - size_ ? text.size() : Capacity - size_;
        std::memcpy(text_ + size_, text.data(), size);
        size_ += size;
        return *this;
    }
    short_text& append(unsigned number) noexcept
    {
        char digits[10];
        std::size_t at = sizeof digits;
        do {
            digits[--at] = static_cast<char>('0' + number % 10);
            number /= 10;
        } while (number != 0);
        return append(std::string_view(digits + at, sizeof digits - at));
    }

private:
    char text_[Capacity + 1] = {};
    std::size_t size_ = 0;
};

/** What all values have: comparison, output to a stream, and reading from a text. */
template <class Value>
class comparable_value
{
public:
    friend bool operator==(const Value& a, const Value& b) noexcept { return a.compare(b) == 0; }
    friend bool operator!=(const Value& a, const Value& b) noexcept { return a.compare(b) != 0; }
    friend bool operator<(const Value& a, const Value& b) noexcept { return a.compare(b) < 0; }
    friend bool operator>(const Value& a, const Value& b) noexcept { return a.compare(b) > 0; }
    friend bool operator<=(const Value& a, const Value& b) noexcept { return a.compare(b) <= 0; }
    friend bool operator>=(const Value& a, const Value& b) noexcept { return a.compare(b) >= 0; }
    friend std::ostream& operator<<(std::ostream& out, const Value& value)
    {
        const auto text = value.text();
        return out << text.view();
    }
    friend std::string to_string(const Value& value) { return value.text().str(); }

protected:
    static Value parsed(std::string_view text)
    {
        const std::optional<Value> value = Value::parse(text);
        if (!value)
            throw std::invalid_argument("lumozeph: not " + std::string(Value::described) + ": " + std::string(text));
        return *value;
    }
};

namespace detail {

// For inet_pton, which wants a text that ends in NUL. None is longer than an IPv6 address in full.
inline bool read_address(int family, std::string_view text, void* address) noexcept
{
    char copy[INET6_ADDRSTRLEN];
    if (text.size() >= sizeof copy || text.find('\0') != std::string_view::npos)
        return false;
    text.copy(copy, text.size());
    copy[text.size()] = '\0';
    return inet_pton(family, copy, address) == 1;
}

template <std::size_t Capacity>
short_text<Capacity> address_text(int family, const void* address) noexcept
{
    char text[INET6_ADDRSTRLEN];
    inet_ntop(family, address, text, sizeof text);
    return short_text<Capacity>().append(std::string_view(text));
}

// A decimal number of at most so much.
inline std::optional<unsigned> read_number(std::string_view text, unsigned most) noexcept
{
    if (text.empty() || text.size() > 3)
        return std::nullopt;
    unsigned number = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9')
            return std::nullopt;
        number = 10 * number + static_cast<unsigned>(digit - '0');
    }
    return number <= most ? std::optional<unsigned>(number) : std::nullopt;
}

inline int hex_digit(char character) noexcept
{
    if (character >= '0' && character <= '9')
        return character - '0';
    if (character >= 'a' && character <= 'f')
        return character - 'a' + 10;
    if (character >= 'A' && character <= 'F')
        return character - 'A' + 10;
    return -1;
}

} // namespace detail

/** A mask of IPv4: any four bytes; most are those of a length. */
class ipv4_mask : public comparable_value<ipv4_mask>
{
public:
    static constexpr const char* described = "an IPv4 mask";
    static constexpr unsigned bits = 32;

    constexpr ipv4_mask() noexcept = default;
    /** From the four bytes as records hold them, in network order. */
    explicit constexpr ipv4_mask(std::uint32_t value) noexcept : value_(value) {}
    /** From "24" or "255.255.255.0". */
    explicit ipv4_mask(std::string_view text) : ipv4_mask(parsed(text)) {}

    static ipv4_mask of_length(unsigned length) noexcept
    {
        return ipv4_mask(htonl(length == 0 ? 0 : length >= bits ? 0xffffffffU : 0xffffffffU << (bits - length)));
    }
    static std::optional<ipv4_mask> parse(std::string_view text) noexcept
    {
        if (const std::optional<unsigned> length = detail::read_number(text, bits))
            return of_length(*length);
        std::uint32_t value = 0;
        return detail::read_address(AF_INET, text, &value) ? std::optional<ipv4_mask>(ipv4_mask(value)) : std::nullopt;
    }

    constexpr std::uint32_t value() const noexcept { return value_; }
    /** None if the mask is not that of a length. */
    std::optional<unsigned> length() const noexcept
    {
        for (unsigned length = 0; length <= bits; ++length)
            if (of_length(length).value_ == value_)
                return length;
        return std::nullopt;
    }
    short_text<15> text() const noexcept
    {
        if (const std::optional<unsigned> known = length())
            return short_text<15>().append(*known);
        return detail::address_text<15>(AF_INET, &value_);
    }
    int compare(const ipv4_mask& other) const noexcept { return std::memcmp(&value_, &other.value_, sizeof value_); }
    std::size_t hash() const noexcept { return std::hash<std::uint32_t>()(value_); }

private:
    std::uint32_t value_ = 0;
};

/** The length of an IPv6 prefix, in bits. The library passes any number on; only its low byte is sent. */
class ipv6_length : public comparable_value<ipv6_length>
{
public:
    static constexpr const char* described = "a prefix length";
    static constexpr unsigned bits = 128;

    constexpr ipv6_length() noexcept = default;
    explicit constexpr ipv6_length(std::uint32_t value) noexcept : value_(value) {}

    static constexpr ipv6_length of_length(unsigned length) noexcept { return ipv6_length(length); }
    static std::optional<ipv6_length> parse(std::string_view text) noexcept
    {
        const std::optional<unsigned> length = detail::read_number(text, bits);
        return length ? std::optional<ipv6_length>(ipv6_length(*length)) : std::nullopt;
    }

    constexpr std::uint32_t value() const noexcept { return value_; }
    constexpr std::optional<unsigned> length() const noexcept { return value_; }
    short_text<15> text() const noexcept { return short_text<15>().append(value_); }
    int compare(const ipv6_length& other) const noexcept
    {
        return value_ == other.value_ ? 0 : value_ < other.value_ ? -1 : 1;
    }
    std::size_t hash() const noexcept { return value_; }

private:
    std::uint32_t value_ = 0;
};

/** An IPv4 address. */
class ipv4 : public comparable_value<ipv4>
{
public:
    using mask_type = ipv4_mask;
    static constexpr const char* described = "an IPv4 address";

    constexpr ipv4() noexcept = default;
    /** From the four bytes as records hold them, in network order. */
    explicit constexpr ipv4(std::uint32_t value) noexcept : value_(value) {}
    /** From "192.0.2.1". */
    explicit ipv4(std::string_view text) : ipv4(parsed(text)) {}

    static std::optional<ipv4> parse(std::string_view text) noexcept
    {
        ipv4 address;
        return detail::read_address(AF_INET, text, &address.value_) ? std::optional<ipv4>(address) : std::nullopt;
    }

    constexpr std::uint32_t value() const noexcept { return value_; }
    short_text<15> text() const noexcept { return detail::address_text<15>(AF_INET, &value_); }
    int compare(const ipv4& other) const noexcept { return std::memcmp(&value_, &other.value_, sizeof value_); }
    std::size_t hash() const noexcept { return std::hash<std::uint32_t>()(value_); }

private:
    std::uint32_t value_ = 0;
};

/** An IPv6 address. */
class ipv6 : public comparable_value<ipv6>
{
public:
    using mask_type = ipv6_length;
    static constexpr const char* described = "an IPv6 address";

    constexpr ipv6() noexcept = default;
    /** From the sixteen bytes as records hold them, in wire order. */
    explicit ipv6(const std::uint8_t (&bytes)[16]) noexcept { std::memcpy(words_, bytes, sizeof words_); }
    /** From the two words that hold those bytes unchanged. */
    constexpr ipv6(std::uint64_t word1, std::uint64_t word2) noexcept : words_ {word1, word2} {}
    /** From "2001:db8::1". */
    explicit ipv6(std::string_view text) : ipv6(parsed(text)) {}

    static std::optional<ipv6> parse(std::string_view text) noexcept
    {
        ipv6 address;
        return detail::read_address(AF_INET6, text, address.words_) ? std::optional<ipv6>(address) : std::nullopt;
    }

    constexpr std::uint64_t word1() const noexcept { return words_[0]; }
    constexpr std::uint64_t word2() const noexcept { return words_[1]; }
    short_text<45> text() const noexcept { return detail::address_text<45>(AF_INET6, words_); }
    int compare(const ipv6& other) const noexcept { return std::memcmp(words_, other.words_, sizeof words_); }
    std::size_t hash() const noexcept
    {
        const std::size_t first = std::hash<std::uint64_t>()(words_[0]);
        return first * 31 + std::hash<std::uint64_t>()(words_[1]);
    }

private:
    std::uint64_t words_[2] = {};
};

/** An address and how much of it names the network: that of an interface, or of a route's destination. */
template <class Address>
class prefix : public comparable_value<prefix<Address>>
{
public:
    using mask_type = typename Address::mask_type;
    static constexpr const char* described = "an address and its prefix length";

    constexpr prefix() noexcept = default;
    constexpr prefix(Address address, mask_type mask) noexcept : address_(address), mask_(mask) {}
    prefix(Address address, unsigned length) noexcept : prefix(address, mask_type::of_length(length)) {}
    /** From "192.0.2.0/24", "192.0.2.0/255.255.255.0" or "2001:db8::/32". */
    explicit prefix(std::string_view text) : prefix(prefix::parsed(text)) {}

    static std::optional<prefix> parse(std::string_view text) noexcept
    {
        const std::size_t slash = text.find('/');
        if (slash == std::string_view::npos)
            return std::nullopt;
        const std::optional<Address> address = Address::parse(text.substr(0, slash));
        const std::optional<mask_type> mask = mask_type::parse(text.substr(slash + 1));
        return address && mask ? std::optional<prefix>(prefix(*address, *mask)) : std::nullopt;
    }

    constexpr Address address() const noexcept { return address_; }
    constexpr mask_type mask() const noexcept { return mask_; }
    /** None if the mask is not that of a length. */
    std::optional<unsigned> length() const noexcept { return mask_.length(); }
    short_text<61> text() const noexcept
    {
        const auto address = address_.text();
        const auto mask = mask_.text();
        return short_text<61>().append(address.view()).append("/").append(mask.view());
    }
    int compare(const prefix& other) const noexcept
    {
        const int addresses = address_.compare(other.address_);
        return addresses != 0 ? addresses : mask_.compare(other.mask_);
    }
    std::size_t hash() const noexcept { return address_.hash() * 31 + mask_.hash(); }

private:
    Address address_;
    mask_type mask_;
};

using ipv4_prefix = prefix<ipv4>;
using ipv6_prefix = prefix<ipv6>;

/** A MAC address. */
class mac : public comparable_value<mac>
{
public:
    static constexpr const char* described = "a MAC address";
    static constexpr std::size_t size = LUMOZEPH_MAC_SIZE;

    constexpr mac() noexcept = default;
    /** From the six bytes as records hold them. */
    explicit mac(const std::uint8_t (&bytes)[size]) noexcept { std::memcpy(bytes_, bytes, size); }
    /** From "00:11:22:aa:bb:cc" or "00-11-22-AA-BB-CC". */
    explicit mac(std::string_view text) : mac(parsed(text)) {}

    static std::optional<mac> parse(std::string_view text) noexcept
    {
        mac address;
        if (text.size() != 3 * size - 1)
            return std::nullopt;
        for (std::size_t i = 0; i < size; ++i) {
            const int high = detail::hex_digit(text[3 * i]);
            const int low = detail::hex_digit(text[3 * i + 1]);
            if (high < 0 || low < 0 || (i > 0 && text[3 * i - 1] != ':' && text[3 * i - 1] != '-'))
                return std::nullopt;
            address.bytes_[i] = static_cast<std::uint8_t>(16 * high + low);
        }
        return address;
    }

    const std::uint8_t* data() const& noexcept { return bytes_; }
    std::uint8_t* data() & noexcept { return bytes_; }
    const std::uint8_t* data() const&& = delete;
    short_text<17> text() const noexcept
    {
        short_text<17> text;
        for (std::size_t i = 0; i < size; ++i) {
            const char pair[] {':', "0123456789abcdef"[bytes_[i] >> 4], "0123456789abcdef"[bytes_[i] & 15]};
            text.append(std::string_view(pair, sizeof pair).substr(i == 0 ? 1 : 0));
        }
        return text;
    }
    int compare(const mac& other) const noexcept { return std::memcmp(bytes_, other.bytes_, size); }
    std::size_t hash() const noexcept
    {
        std::uint64_t number = 0;
        std::memcpy(&number, bytes_, size);
        return std::hash<std::uint64_t>()(number);
    }

private:
    std::uint8_t bytes_[size] = {};
};

/** The key that names an instance, a bridge or the like: a name or a UUID in text form, at most 63 bytes. */
class instance_key : public comparable_value<instance_key>
{
public:
    static constexpr const char* described = "an instance key";
    static constexpr std::size_t capacity = LUMOZEPH_KEY_SIZE - 1;

    instance_key() noexcept = default;
    /** Throws std::invalid_argument if the text is longer than a key or holds a NUL. */
    explicit instance_key(std::string_view text) : instance_key(parsed(text)) {}
    /** From a record. */
    explicit instance_key(const char (&text)[LUMOZEPH_KEY_SIZE]) noexcept
    {
        std::memcpy(text_, text, strnlen(text, capacity));
    }

    static std::optional<instance_key> parse(std::string_view text) noexcept
    {
        if (text.size() > capacity || text.find('\0') != std::string_view::npos)
            return std::nullopt;
        instance_key key;
        text.copy(key.text_, text.size());
        return key;
    }

    const char* c_str() const& noexcept { return text_; }
    const char* c_str() const&& = delete;
    std::string_view view() const& noexcept { return text_; }
    std::string_view view() const&& = delete;
    /** Whether it is a UUID in lower case, which the module takes as one. */
    bool is_uuid() const noexcept
    {
        const std::string_view text = view();
        if (text.size() != 36)
            return false;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool hyphen = i == 8 || i == 13 || i == 18 || i == 23;
            const bool digit = (text[i] >= '0' && text[i] <= '9') || (text[i] >= 'a' && text[i] <= 'f');
            if (hyphen ? text[i] != '-' : !digit)
                return false;
        }
        return true;
    }
    short_text<capacity> text() const noexcept { return short_text<capacity>().append(view()); }
    int compare(const instance_key& other) const noexcept { return std::strcmp(text_, other.text_); }
    std::size_t hash() const noexcept { return std::hash<std::string_view>()(view()); }

private:
    char text_[LUMOZEPH_KEY_SIZE] = {};
};

/** A text of a record, up to its NUL, or all of it where the module sends it without one. */
template <std::size_t Size>
std::string_view text(const char (&field)[Size]) noexcept
{
    return {field, strnlen(field, Size)};
}

namespace detail {

template <class Value>
struct hash_of_value
{
    std::size_t operator()(const Value& value) const noexcept { return value.hash(); }
};

} // namespace detail

} // namespace lumozeph

template <>
struct std::hash<lumozeph::ipv4> : lumozeph::detail::hash_of_value<lumozeph::ipv4>
{};
template <>
struct std::hash<lumozeph::ipv4_mask> : lumozeph::detail::hash_of_value<lumozeph::ipv4_mask>
{};
template <>
struct std::hash<lumozeph::ipv6> : lumozeph::detail::hash_of_value<lumozeph::ipv6>
{};
template <>
struct std::hash<lumozeph::ipv6_length> : lumozeph::detail::hash_of_value<lumozeph::ipv6_length>
{};
template <class Address>
struct std::hash<lumozeph::prefix<Address>> : lumozeph::detail::hash_of_value<lumozeph::prefix<Address>>
{};
template <>
struct std::hash<lumozeph::mac> : lumozeph::detail::hash_of_value<lumozeph::mac>
{};
template <>
struct std::hash<lumozeph::instance_key> : lumozeph::detail::hash_of_value<lumozeph::instance_key>
{};

#if defined(__cpp_lib_format)
/** Printed with std::format as with a stream; the specifications of texts hold: "{:>15}". */
template <class Value>
requires std::is_base_of_v<lumozeph::comparable_value<Value>, Value>
struct std::formatter<Value, char> : std::formatter<std::string_view, char>
{
    template <class Context>
    auto format(const Value& value, Context& context) const
    {
        const auto text = value.text();
        return std::formatter<std::string_view, char>::format(text.view(), context);
    }
};
#endif

// Arguments of operations: texts that know what they name, switches, and what C passes as a pointer and a number.

namespace lumozeph {

/**
 * A text as an argument, of which Kind says what it names. Plain texts become whatever is asked for; a LIF's name never
 * becomes an instance's key.
 *
 * It refers to the text and does not copy it: what it is made from must live as long. Temporary texts are refused.
 */
template <class Kind>
class text_of
{
public:
    constexpr text_of(const char* text) noexcept : text_(text) {}
    text_of(const std::string& text) noexcept : text_(text.c_str()) {}
    text_of(const std::string&&) = delete;
    text_of(std::nullptr_t) = delete;
    template <std::size_t Capacity>
    text_of(const short_text<Capacity>& text) noexcept : text_(text.c_str())
    {}
    template <std::size_t Capacity>
    text_of(const short_text<Capacity>&&) = delete;
    template <class Key, std::enable_if_t<Kind::is_key && std::is_same_v<Key, instance_key>, int> = 0>
    text_of(const Key& key) noexcept : text_(key.c_str())
    {}
    template <class Key,
        std::enable_if_t<std::is_same_v<Key, instance_key> || std::is_same_v<Key, const instance_key>, int> = 0>
    text_of(Key&&) = delete;

    constexpr const char* c_str() const noexcept { return text_; }

private:
    const char* text_;
};

/** A text as an argument that may be left out. */
template <class Argument>
class maybe
{
public:
    constexpr maybe() noexcept = default;
    constexpr maybe(Argument argument) noexcept : text_(argument.c_str()) {}
    /** Null is none. */
    constexpr maybe(const char* text) noexcept : text_(text) {}
    template <class Text,
        std::enable_if_t<std::is_convertible_v<Text&&, Argument> && !std::is_convertible_v<Text&&, const char*>, int> =
            0>
    constexpr maybe(Text&& text) noexcept : maybe(Argument(std::forward<Text>(text)))
    {}

    constexpr const char* c_str() const noexcept { return text_; }

private:
    const char* text_ = nullptr;
};

/** Which way an operation that can do two things does its own. */
enum class switched : std::uint8_t
{
    off,
    on
};

/** Several records or bytes that lie one behind the other and belong to someone else. */
template <class Element>
class view
{
public:
    using value_type = std::remove_cv_t<Element>;
    using iterator = Element*;

    constexpr view() noexcept = default;
    constexpr view(Element* data, std::size_t size) noexcept : data_(data), size_(size) {}
    template <std::size_t Size>
    constexpr view(Element (&elements)[Size]) noexcept : data_(elements), size_(Size)
    {}
    /** Of a container that stays: a vector, an array, a span. */
    template <class Container,
        std::enable_if_t<std::is_convertible_v<decltype(std::declval<Container&>().data()), Element*>, int> = 0>
    constexpr view(Container& container) noexcept : data_(container.data()), size_(container.size())
    {}

    constexpr Element* data() const noexcept { return data_; }
    constexpr std::size_t size() const noexcept { return size_; }
    constexpr bool empty() const noexcept { return size_ == 0; }
    constexpr Element* begin() const noexcept { return data_; }
    constexpr Element* end() const noexcept { return data_ + size_; }
    constexpr Element& operator[](std::size_t index) const noexcept { return data_[index]; }

private:
    Element* data_ = nullptr;
    std::size_t size_ = 0;
};

/** So many bytes that someone else holds. */
template <std::size_t Size>
class bytes_argument
{
public:
    bytes_argument(const std::array<std::byte, Size>& bytes) noexcept : data_(bytes.data()) {}
    bytes_argument(const std::array<std::uint8_t, Size>& bytes) noexcept : data_(bytes.data()) {}
    bytes_argument(const std::uint8_t (&bytes)[Size]) noexcept : data_(bytes) {}
    bytes_argument(const std::array<std::byte, Size>&&) = delete;
    bytes_argument(const std::array<std::uint8_t, Size>&&) = delete;

    const void* data() const noexcept { return data_; }

private:
    const void* data_;
};

namespace detail {

// A size as C takes it. What is too large for that is larger than anything the library uses of it.
template <class Number>
constexpr Number counted(std::size_t size) noexcept
{
    constexpr Number most = static_cast<Number>(-1);
    return size < most ? static_cast<Number>(size) : most;
}

} // namespace detail

} // namespace lumozeph

// What operations get: memory that frees itself, and ranges over it.

namespace lumozeph {

/** A record, which is freed with its owner. */
template <class Record, auto Release>
class owned
{
public:
    owned() noexcept = default;
    /** Takes over what a function of lumozeph.h has handed out. */
    explicit owned(Record* record) noexcept : record_(record) {}
    owned(owned&& other) noexcept : record_(other.release()) {}
    owned& operator=(owned&& other) noexcept
    {
        reset(other.release());
        return *this;
    }
    owned(const owned&) = delete;
    owned& operator=(const owned&) = delete;
    ~owned() { Release(record_); }

    Record& operator*() & noexcept { return *record_; }
    const Record& operator*() const& noexcept { return *record_; }
    /** Of an owner that goes: a copy. */
    Record operator*() && noexcept { return *record_; }
    Record* operator->() noexcept { return record_; }
    const Record* operator->() const noexcept { return record_; }
    explicit operator bool() const noexcept { return record_ != nullptr; }
    Record* get() & noexcept { return record_; }
    const Record* get() const& noexcept { return record_; }
    Record* get() && = delete;

    /** Gives the record to the caller. */
    Record* release() noexcept { return std::exchange(record_, nullptr); }
    void reset(Record* record = nullptr) noexcept
    {
        if (record_ != nullptr)
            Release(record_);
        record_ = record;
    }

private:
    Record* record_ = nullptr;
};

/** The cap of what has none. */
inline constexpr std::size_t no_cap = static_cast<std::size_t>(-1);

/** A list, which is freed with its owner: a range over its records as they lie. */
template <class List, auto Release, std::size_t Cap>
class list
{
public:
    using value_type = std::remove_pointer_t<decltype(List::records)>;
    using size_type = std::size_t;
    using difference_type = std::ptrdiff_t;
    using reference = value_type&;
    using const_reference = const value_type&;
    using iterator = value_type*;
    using const_iterator = const value_type*;

    list() noexcept = default;
    /** Takes over what a function of lumozeph.h has handed out. */
    explicit list(List* from) noexcept { hold(from); }
    list(list&& other) noexcept : list() { swap(other); }
    list& operator=(list&& other) noexcept
    {
        list(std::move(other)).swap(*this);
        return *this;
    }
    list(const list&) = delete;
    list& operator=(const list&) = delete;
    ~list() { Release(list_); }

    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    /** Whether the list is at its cap: there may be more than it holds. */
    template <std::size_t Most = Cap, std::enable_if_t<Most != no_cap, int> = 0>
    bool truncated() const noexcept
    {
        return size_ >= Most;
    }

    iterator begin() & noexcept { return records_; }
    iterator end() & noexcept { return records_ + size_; }
    const_iterator begin() const& noexcept { return records_; }
    const_iterator end() const& noexcept { return records_ + size_; }
    value_type* data() & noexcept { return records_; }
    const value_type* data() const& noexcept { return records_; }
    reference operator[](std::size_t index) & noexcept { return records_[index]; }
    const_reference operator[](std::size_t index) const& noexcept { return records_[index]; }
#if defined(__cpp_lib_span)
    std::span<value_type> span() & noexcept
    {
        return {records_, size_};
    }
    std::span<const value_type> span() const& noexcept
    {
        return {records_, size_};
    }
    void span() && = delete;
#endif
    // Of a list that goes: what pointed into it would outlive it. A range-based for keeps its list.
    iterator begin() && = delete;
    iterator end() && = delete;
    value_type* data() && = delete;
    /** Of a list that goes: a copy. */
    value_type operator[](std::size_t index) && noexcept
    {
        return records_[index];
    }

    void reset(List* from = nullptr) noexcept
    {
        if (list_ != nullptr)
            Release(list_);
        hold(from);
    }
    void swap(list& other) noexcept
    {
        std::swap(list_, other.list_);
        std::swap(records_, other.records_);
        std::swap(size_, other.size_);
    }

private:
    void hold(List* from) noexcept
    {
        list_ = from;
        records_ = from != nullptr ? from->records : nullptr;
        size_ = from != nullptr ? static_cast<std::size_t>(from->count) : 0;
    }

    List* list_ = nullptr;
    value_type* records_ = nullptr;
    std::size_t size_ = 0;
};

/** Numbers of a record, which may be unaligned there: they are read one by one, by value. */
template <class Number>
class numbers
{
public:
    class iterator
    {
    public:
        using value_type = Number;
        using difference_type = std::ptrdiff_t;
        using reference = Number;
        using pointer = void;
        using iterator_category = std::input_iterator_tag;

        iterator() noexcept = default;
        explicit iterator(const void* at) noexcept : at_(static_cast<const unsigned char*>(at)) {}
        Number operator*() const noexcept
        {
            Number number;
            std::memcpy(&number, at_, sizeof number);
            return number;
        }
        iterator& operator++() noexcept
        {
            at_ += sizeof(Number);
            return *this;
        }
        iterator operator++(int) noexcept { return std::exchange(*this, iterator(at_ + sizeof(Number))); }
        friend bool operator==(iterator a, iterator b) noexcept { return a.at_ == b.at_; }
        friend bool operator!=(iterator a, iterator b) noexcept { return a.at_ != b.at_; }

    private:
        const unsigned char* at_ = nullptr;
    };

    numbers(const void* first, std::size_t size) noexcept
        : first_(static_cast<const unsigned char*>(first)), size_(size)
    {}

    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    iterator begin() const noexcept { return iterator(first_); }
    iterator end() const noexcept { return iterator(first_ + size_ * sizeof(Number)); }
    Number operator[](std::size_t index) const noexcept { return *iterator(first_ + index * sizeof(Number)); }

private:
    const unsigned char* first_;
    std::size_t size_;
};

/** Entries of so many bytes each, in the module's layout, in memory of someone else's. */
template <std::size_t EntrySize>
class entries
{
public:
    using value_type = view<const std::byte>;

    class iterator
    {
    public:
        using value_type = view<const std::byte>;
        using difference_type = std::ptrdiff_t;
        using reference = value_type;
        using pointer = void;
        using iterator_category = std::input_iterator_tag;

        iterator() noexcept = default;
        explicit iterator(const std::byte* at) noexcept : at_(at) {}
        value_type operator*() const noexcept { return {at_, EntrySize}; }
        iterator& operator++() noexcept
        {
            at_ += EntrySize;
            return *this;
        }
        iterator operator++(int) noexcept { return std::exchange(*this, iterator(at_ + EntrySize)); }
        friend bool operator==(iterator a, iterator b) noexcept { return a.at_ == b.at_; }
        friend bool operator!=(iterator a, iterator b) noexcept { return a.at_ != b.at_; }

    private:
        const std::byte* at_ = nullptr;
    };

    entries() noexcept = default;
    /** As many entries as are reported, but no more than there is room for. */
    entries(const void* first, std::size_t room, std::size_t reported) noexcept
        : first_(static_cast<const std::byte*>(first)), size_(reported < room ? reported : room), reported_(reported)
    {}

    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    /** How many there are, as the module says. */
    std::size_t reported() const noexcept { return reported_; }
    /** Whether the module says that there are more than are here. */
    bool truncated() const noexcept { return reported_ > size_; }
    iterator begin() const noexcept { return iterator(first_); }
    iterator end() const noexcept { return iterator(first_ + size_ * EntrySize); }
    view<const std::byte> operator[](std::size_t index) const noexcept
    {
        return {first_ + index * EntrySize, EntrySize};
    }

private:
    const std::byte* first_ = nullptr;
    std::size_t size_ = 0;
    std::size_t reported_ = 0;
};

namespace detail {

// Gives an owner what a call has handed out, or nothing if it has failed.
template <class Owner, class Handed>
std::error_code handed_over(std::int32_t result, Handed*& from, Owner& to) noexcept
{
    if (result != 0) {
        const std::error_code code = failure();
        to.reset();
        return code;
    }
    to.reset(from);
    return {};
}

inline void release_block(void* block) noexcept
{
    std::free(block);
}

// The room of the block of IPv6 routes, in entries: the smaller one, and the one where there are more routes than that.
inline constexpr std::size_t sure_room = 8000;
inline constexpr std::size_t largest_room = 30000;

// Release functions leave the array of a table without entries allocated.
template <class Table, std::int32_t (*Release)(Table*)>
void release_table(Table* table) noexcept
{
    if (table != nullptr && table->count == 0)
        std::free(table->records);
    Release(table);
}

} // namespace detail

/**
 * A block of entries, which is freed with its owner: a range over those that are sure to lie in it.
 *
 * The block has room for SureRoom or for LargestRoom entries, and the library does not tell which. Those of all() lie
 * in it, too, if the module is well behaved.
 */
template <std::size_t EntrySize, std::size_t SureRoom, std::size_t LargestRoom>
class entry_block
{
public:
    using iterator = typename entries<EntrySize>::iterator;

    entry_block() noexcept = default;
    /** Takes over what a function of lumozeph.h has handed out. */
    entry_block(void* block, std::size_t reported) noexcept : block_(block), reported_(reported) {}

    std::size_t size() const noexcept { return sure().size(); }
    bool empty() const noexcept { return size() == 0; }
    /** How many there are, as the module says. */
    std::size_t reported() const noexcept { return reported_; }
    /** Whether the module says that there are more than are sure to be here. */
    bool truncated() const noexcept { return sure().truncated(); }
    iterator begin() const& noexcept { return sure().begin(); }
    iterator end() const& noexcept { return sure().end(); }
    view<const std::byte> operator[](std::size_t index) const& noexcept { return sure()[index]; }
    /** All that the module reports: for programs that trust it. */
    entries<EntrySize> all() const& noexcept { return {block_.get(), LargestRoom, reported_}; }
    iterator begin() && = delete;
    iterator end() && = delete;
    view<const std::byte> operator[](std::size_t index) && = delete;
    entries<EntrySize> all() && = delete;

private:
    struct free_block
    {
        void operator()(void* block) const noexcept { std::free(block); }
    };

    entries<EntrySize> sure() const noexcept { return {block_.get(), SureRoom, reported_}; }

    std::unique_ptr<void, free_block> block_;
    std::size_t reported_ = 0;
};

/**
 * A reply in the module's own layout: Size bytes. What the module does not write of it is zero, or what was there
 * before if it is read into again. Large ones lie in memory of their own.
 */
template <std::size_t Size, bool InPlace = (Size <= 4096)>
class raw
{
public:
    static constexpr std::size_t size() noexcept { return Size; }
    std::byte* data() & noexcept { return bytes_; }
    const std::byte* data() const& noexcept { return bytes_; }
    std::byte* begin() & noexcept { return bytes_; }
    std::byte* end() & noexcept { return bytes_ + Size; }
    const std::byte* begin() const& noexcept { return bytes_; }
    const std::byte* end() const& noexcept { return bytes_ + Size; }
    std::byte& operator[](std::size_t index) & noexcept { return bytes_[index]; }
    std::byte operator[](std::size_t index) const& noexcept { return bytes_[index]; }
    std::byte* data() && = delete;
    std::byte* begin() && = delete;
    std::byte* end() && = delete;

private:
    std::byte bytes_[Size] = {};
};

template <std::size_t Size>
class raw<Size, false>
{
public:
    /** Throws std::bad_alloc. */
    raw() : bytes_(static_cast<std::byte*>(std::calloc(1, Size)))
    {
        if (bytes_ == nullptr)
            throw std::bad_alloc();
    }

    static constexpr std::size_t size() noexcept { return Size; }
    std::byte* data() & noexcept { return bytes_.get(); }
    const std::byte* data() const& noexcept { return bytes_.get(); }
    std::byte* begin() & noexcept { return bytes_.get(); }
    std::byte* end() & noexcept { return bytes_.get() + Size; }
    const std::byte* begin() const& noexcept { return bytes_.get(); }
    const std::byte* end() const& noexcept { return bytes_.get() + Size; }
    std::byte& operator[](std::size_t index) & noexcept { return bytes_.get()[index]; }
    std::byte operator[](std::size_t index) const& noexcept { return bytes_.get()[index]; }
    std::byte* data() && = delete;
    std::byte* begin() && = delete;
    std::byte* end() && = delete;

private:
    struct free_block
    {
        void operator()(std::byte* block) const noexcept { std::free(block); }
    };

    std::unique_ptr<std::byte, free_block> bytes_;
};

} // namespace lumozeph

namespace lumozeph {

/** What texts name: keys, or anything else. */
namespace kinds {

struct key
{
    static constexpr bool is_key = true;
};
struct name
{
    static constexpr bool is_key = false;
};

struct text : name
{};
struct instance_key : key
{};
struct instance : key
{};
struct bridge : key
{};
struct cluster : key
{};
struct endpoint : key
{};
struct lif : name
{};
struct lif_second_name : name
{};
struct connection : name
{};
struct policy_table_name : name
{};
struct node : name
{};
struct endpoint_name : name
{};
struct port : name
{};
struct target : name
{};
struct mac_text : name
{};

} // namespace kinds

/** A text that the library does not interpret. */
using text_argument = text_of<kinds::text>;
/** The key of what it names. */
using instance_key_argument = text_of<kinds::instance_key>;
/** The key of a router instance. */
using instance_argument = text_of<kinds::instance>;
/** The key of a bridge. */
using bridge_argument = text_of<kinds::bridge>;
/** The key of a bridge cluster. */
using cluster_argument = text_of<kinds::cluster>;
/** The key of a bridge endpoint. */
using endpoint_argument = text_of<kinds::endpoint>;
/** The name of a LIF. */
using lif_argument = text_of<kinds::lif>;
/** The second name of a LIF. */
using lif_second_name_argument = text_of<kinds::lif_second_name>;
/** The name of a port connection. */
using connection_argument = text_of<kinds::connection>;
/** The name of a policy table. */
using policy_table_name_argument = text_of<kinds::policy_table_name>;
/** The name of a cluster's node. */
using node_argument = text_of<kinds::node>;
/** The name of a bridge endpoint. */
using endpoint_name_argument = text_of<kinds::endpoint_name>;
/** The name of a port. */
using port_argument = text_of<kinds::port>;
/** The name of a target of receive-side scaling. */
using target_argument = text_of<kinds::target>;
/** A MAC address as text. */
using mac_text_argument = text_of<kinds::mac_text>;

/* ------------------------------------------------------------------------------------------------------------------ *
 * instances: Router instances
 * ------------------------------------------------------------------------------------------------------------------ */

/** One router instance as the module reports it. */
using instance_info = ::LumoInstanceInfo;
using owned_instance_info = owned<::LumoInstanceInfo, ::LUMOZEPH_ReleaseInstance>;
/** Router instances. */
using instance_list = list<::LumoInstanceList, ::LUMOZEPH_ReleaseInstances, LUMOZEPH_INSTANCES_MAX>;

/** The arguments of set_lumo_instance. */
struct set_lumo_instance_arguments
{
    instance_argument instance;     /**< its key, at most 63 bytes */
    std::uint32_t value1 = 0;       /**< comes back as LumoInstanceInfo.value1 */
    maybe<text_argument> text = {}; /**< unterminated at 18 bytes; left out: none */
    std::uint32_t value2 = 0;       /**< passed on as it stands */
};

/** Creates an instance, or updates it if it exists. */
inline void set_lumo_instance(const set_lumo_instance_arguments& with)
{
    detail::check(::LUMOZEPH_SetLumoInstance(with.instance.c_str(), with.value1, with.text.c_str(), with.value2),
        "set_lumo_instance");
}
[[nodiscard]] inline std::error_code try_set_lumo_instance(const set_lumo_instance_arguments& with) noexcept
{
    return detail::code_of(
        ::LUMOZEPH_SetLumoInstance(with.instance.c_str(), with.value1, with.text.c_str(), with.value2));
}

/**
 * Deletes an instance.
 *
 * @param instance  its key, at most 63 bytes
 */
inline void del_lumo_instance(instance_argument instance)
{
    detail::check(::LUMOZEPH_DelLumoInstance(instance.c_str()), "del_lumo_instance");
}
[[nodiscard]] inline std::error_code try_del_lumo_instance(instance_argument instance) noexcept
{
    return detail::code_of(::LUMOZEPH_DelLumoInstance(instance.c_str()));
}

/**
 * Sets an instance's tunables.
 *
 * @param instance  its key, at most 63 bytes
 * @param tunables  at most 63 bytes
 * @param value     passed on as it stands
 */
inline void set_lumo_instance_tunables(instance_argument instance, text_argument tunables, std::uint32_t value)
{
    detail::check(
        ::LUMOZEPH_SetLumoInstanceTunables(instance.c_str(), tunables.c_str(), value), "set_lumo_instance_tunables");
}
[[nodiscard]] inline std::error_code try_set_lumo_instance_tunables(
    instance_argument instance, text_argument tunables, std::uint32_t value) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLumoInstanceTunables(instance.c_str(), tunables.c_str(), value));
}

/**
 * Reads one instance.
 *
 * @param instance  its key, at most 63 bytes
 * @return          the record
 */
inline owned_instance_info get_instance(instance_argument instance)
{
    LumoInstanceInfo* out = nullptr;
    detail::check(::LUMOZEPH_GetInstance(instance.c_str(), &out), "get_instance");
    return owned_instance_info(out);
}
[[nodiscard]] inline std::error_code try_get_instance(instance_argument instance, owned_instance_info& result) noexcept
{
    LumoInstanceInfo* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetInstance(instance.c_str(), &out), out, result);
}

/**
 * Reads all instances.
 *
 * @return  the list
 */
inline instance_list get_instances()
{
    LumoInstanceList* out = nullptr;
    detail::check(::LUMOZEPH_GetInstances(&out), "get_instances");
    return instance_list(out);
}
[[nodiscard]] inline std::error_code try_get_instances(instance_list& result) noexcept
{
    LumoInstanceList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetInstances(&out), out, result);
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * levels: Runtime levels and queue tunables
 *
 * Four module-wide 32-bit settings. The library checks no range; the module owns the values. The length that the module
 * reports is not looked at: if it answers a read with fewer than four bytes, the rest of the value is undefined.
 * ------------------------------------------------------------------------------------------------------------------ */

/**
 * Reads the log level.
 *
 * @return  the level
 */
inline std::uint32_t get_log_level()
{
    std::uint32_t level {};
    detail::check(::LUMOZEPH_GetLogLevel(&level), "get_log_level");
    return level;
}
[[nodiscard]] inline std::error_code try_get_log_level(std::uint32_t& result) noexcept
{
    return detail::code_of(::LUMOZEPH_GetLogLevel(&result));
}

/**
 * Sets the log level.
 *
 * @param level  the level; what levels there are is the module's
 */
inline void set_log_level(std::uint32_t level)
{
    detail::check(::LUMOZEPH_SetLogLevel(level), "set_log_level");
}
[[nodiscard]] inline std::error_code try_set_log_level(std::uint32_t level) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLogLevel(level));
}

/**
 * Reads the extended log level.
 *
 * @return  the level
 */
inline std::uint32_t get_extended_log_level()
{
    std::uint32_t level {};
    detail::check(::LUMOZEPH_GetExtendedLogLevel(&level), "get_extended_log_level");
    return level;
}
[[nodiscard]] inline std::error_code try_get_extended_log_level(std::uint32_t& result) noexcept
{
    return detail::code_of(::LUMOZEPH_GetExtendedLogLevel(&result));
}

/**
 * Sets the extended log level.
 *
 * @param level  the level; what levels there are is the module's
 */
inline void set_extended_log_level(std::uint32_t level)
{
    detail::check(::LUMOZEPH_SetExtendedLogLevel(level), "set_extended_log_level");
}
[[nodiscard]] inline std::error_code try_set_extended_log_level(std::uint32_t level) noexcept
{
    return detail::code_of(::LUMOZEPH_SetExtendedLogLevel(level));
}

/**
 * Reads the statistics level.
 *
 * @return  the level
 */
inline std::uint32_t get_stats_level()
{
    std::uint32_t level {};
    detail::check(::LUMOZEPH_GetStatsLevel(&level), "get_stats_level");
    return level;
}
[[nodiscard]] inline std::error_code try_get_stats_level(std::uint32_t& result) noexcept
{
    return detail::code_of(::LUMOZEPH_GetStatsLevel(&result));
}

/**
 * Sets the statistics level.
 *
 * @param level  the level; what levels there are is the module's
 */
inline void set_stats_level(std::uint32_t level)
{
    detail::check(::LUMOZEPH_SetStatsLevel(level), "set_stats_level");
}
[[nodiscard]] inline std::error_code try_set_stats_level(std::uint32_t level) noexcept
{
    return detail::code_of(::LUMOZEPH_SetStatsLevel(level));
}

/**
 * Reads the size of the transmit dispatch queue.
 *
 * @return  the size, in the module's unit
 */
inline std::uint32_t get_tx_disp_queue_size()
{
    std::uint32_t size {};
    detail::check(::LUMOZEPH_GetTxDispQueueSize(&size), "get_tx_disp_queue_size");
    return size;
}
[[nodiscard]] inline std::error_code try_get_tx_disp_queue_size(std::uint32_t& result) noexcept
{
    return detail::code_of(::LUMOZEPH_GetTxDispQueueSize(&result));
}

/**
 * Sets the size of the transmit dispatch queue.
 *
 * @param size  the size, in the module's unit
 */
inline void set_tx_disp_queue_size(std::uint32_t size)
{
    detail::check(::LUMOZEPH_SetTxDispQueueSize(size), "set_tx_disp_queue_size");
}
[[nodiscard]] inline std::error_code try_set_tx_disp_queue_size(std::uint32_t size) noexcept
{
    return detail::code_of(::LUMOZEPH_SetTxDispQueueSize(size));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * stats: Statistics
 *
 * All reads give one record, whose counters its first word chooses.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Counters. */
using stats = ::LumoStats;
using owned_stats = owned<::LumoStats, ::LUMOZEPH_ReleaseStats>;

/**
 * Reads the counters of an instance's control-plane traffic.
 *
 * @param instance  its key, at most 63 bytes
 * @return          the record
 */
inline owned_stats get_lumo_instance_cp_stats(instance_argument instance)
{
    LumoStats* out = nullptr;
    detail::check(::LUMOZEPH_GetLumoInstanceCPStats(instance.c_str(), &out), "get_lumo_instance_cp_stats");
    return owned_stats(out);
}
[[nodiscard]] inline std::error_code try_get_lumo_instance_cp_stats(
    instance_argument instance, owned_stats& result) noexcept
{
    LumoStats* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetLumoInstanceCPStats(instance.c_str(), &out), out, result);
}

/**
 * Resets the counters of an instance's control-plane traffic.
 *
 * @param instance  its key, at most 63 bytes
 */
inline void reset_lumo_instance_cp_stats(instance_argument instance)
{
    detail::check(::LUMOZEPH_ResetLumoInstanceCPStats(instance.c_str()), "reset_lumo_instance_cp_stats");
}
[[nodiscard]] inline std::error_code try_reset_lumo_instance_cp_stats(instance_argument instance) noexcept
{
    return detail::code_of(::LUMOZEPH_ResetLumoInstanceCPStats(instance.c_str()));
}

/**
 * Reads a LIF's counters.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @return          the record
 */
inline owned_stats get_lif_stats(instance_argument instance, lif_argument lif)
{
    LumoStats* out = nullptr;
    detail::check(::LUMOZEPH_GetLifStats(instance.c_str(), lif.c_str(), &out), "get_lif_stats");
    return owned_stats(out);
}
[[nodiscard]] inline std::error_code try_get_lif_stats(
    instance_argument instance, lif_argument lif, owned_stats& result) noexcept
{
    LumoStats* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetLifStats(instance.c_str(), lif.c_str(), &out), out, result);
}

/**
 * Reads a LIF's counters as the module has cached them.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @return          the record
 */
inline owned_stats get_lif_stats_cached(instance_argument instance, lif_argument lif)
{
    LumoStats* out = nullptr;
    detail::check(::LUMOZEPH_GetLifStatsCached(instance.c_str(), lif.c_str(), &out), "get_lif_stats_cached");
    return owned_stats(out);
}
[[nodiscard]] inline std::error_code try_get_lif_stats_cached(
    instance_argument instance, lif_argument lif, owned_stats& result) noexcept
{
    LumoStats* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetLifStatsCached(instance.c_str(), lif.c_str(), &out), out, result);
}

/**
 * Resets a LIF's counters.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 */
inline void reset_lif_stats(instance_argument instance, lif_argument lif)
{
    detail::check(::LUMOZEPH_ResetLifStats(instance.c_str(), lif.c_str()), "reset_lif_stats");
}
[[nodiscard]] inline std::error_code try_reset_lif_stats(instance_argument instance, lif_argument lif) noexcept
{
    return detail::code_of(::LUMOZEPH_ResetLifStats(instance.c_str(), lif.c_str()));
}

/**
 * Reads the counters of distributed interfaces, of the module as a whole.
 *
 * @return  the record
 */
inline owned_stats get_lumo_di_stats()
{
    LumoStats* out = nullptr;
    detail::check(::LUMOZEPH_GetLumoDiStats(&out), "get_lumo_di_stats");
    return owned_stats(out);
}
[[nodiscard]] inline std::error_code try_get_lumo_di_stats(owned_stats& result) noexcept
{
    LumoStats* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetLumoDiStats(&out), out, result);
}

/** Resets the counters of distributed interfaces, of the module as a whole. */
inline void reset_lumo_di_stats()
{
    detail::check(::LUMOZEPH_ResetLumoDiStats(), "reset_lumo_di_stats");
}
[[nodiscard]] inline std::error_code try_reset_lumo_di_stats() noexcept
{
    return detail::code_of(::LUMOZEPH_ResetLumoDiStats());
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * control_plane: Control-plane attachment
 * ------------------------------------------------------------------------------------------------------------------ */

/** One entry of a synchronisation state. */
using cp_sync_state_entry = ::LumoCPSyncStateEntry;
/** The state of an instance's synchronisation with its control plane. */
using cp_sync_state = ::LumoCPSyncState;
using owned_cp_sync_state = owned<::LumoCPSyncState, ::LUMOZEPH_ReleaseStats>;

/**
 * Activates the module's control-plane connection.
 *
 * @param value  passed on as it stands
 */
inline void cp_activate(std::uint32_t value)
{
    detail::check(::LUMOZEPH_CPActivate(value), "cp_activate");
}
[[nodiscard]] inline std::error_code try_cp_activate(std::uint32_t value) noexcept
{
    return detail::code_of(::LUMOZEPH_CPActivate(value));
}

/**
 * Sets an instance's control-plane address.
 *
 * @param instance  its key, at most 63 bytes
 * @param address   IPv4
 */
inline void set_cp_ip(instance_argument instance, ipv4 address)
{
    detail::check(::LUMOZEPH_SetCPIp(instance.c_str(), address.value()), "set_cp_ip");
}
[[nodiscard]] inline std::error_code try_set_cp_ip(instance_argument instance, ipv4 address) noexcept
{
    return detail::code_of(::LUMOZEPH_SetCPIp(instance.c_str(), address.value()));
}

/**
 * Reads an instance's synchronisation state.
 *
 * @param instance  its key, at most 63 bytes
 * @return          the record
 */
inline owned_cp_sync_state get_lumo_instance_cp_sync_state(instance_argument instance)
{
    LumoCPSyncState* out = nullptr;
    detail::check(::LUMOZEPH_GetLumoInstanceCPSyncState(instance.c_str(), &out), "get_lumo_instance_cp_sync_state");
    return owned_cp_sync_state(out);
}
[[nodiscard]] inline std::error_code try_get_lumo_instance_cp_sync_state(
    instance_argument instance, owned_cp_sync_state& result) noexcept
{
    LumoCPSyncState* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetLumoInstanceCPSyncState(instance.c_str(), &out), out, result);
}

/**
 * Sets an instance's synchronisation state.
 *
 * @param instance  its key, at most 63 bytes
 * @param state     passed on as it stands
 */
inline void set_lumo_instance_cp_sync_state(instance_argument instance, std::uint32_t state)
{
    detail::check(::LUMOZEPH_SetLumoInstanceCPSyncState(instance.c_str(), state), "set_lumo_instance_cp_sync_state");
}
[[nodiscard]] inline std::error_code try_set_lumo_instance_cp_sync_state(
    instance_argument instance, std::uint32_t state) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLumoInstanceCPSyncState(instance.c_str(), state));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * connections: Port connections
 *
 * A connection is named by a text of at most 63 bytes. None of these functions names an instance.
 * ------------------------------------------------------------------------------------------------------------------ */

/**
 * Reads all connections.
 *
 * @return  LUMOZEPH_CONNECTIONS_SIZE bytes
 */
inline raw<LUMOZEPH_CONNECTIONS_SIZE> get_connections()
{
    raw<LUMOZEPH_CONNECTIONS_SIZE> buffer;
    detail::check(::LUMOZEPH_GetConnections(buffer.data()), "get_connections");
    return buffer;
}
[[nodiscard]] inline std::error_code try_get_connections(raw<LUMOZEPH_CONNECTIONS_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_GetConnections(buffer.data()));
}

/**
 * Reads one connection.
 *
 * @param name  its name, at most 63 bytes
 * @return      LUMOZEPH_CONNECTION_SIZE bytes
 */
inline raw<LUMOZEPH_CONNECTION_SIZE> get_connection(connection_argument name)
{
    raw<LUMOZEPH_CONNECTION_SIZE> buffer;
    detail::check(::LUMOZEPH_GetConnection(name.c_str(), buffer.data()), "get_connection");
    return buffer;
}
[[nodiscard]] inline std::error_code try_get_connection(
    connection_argument name, raw<LUMOZEPH_CONNECTION_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_GetConnection(name.c_str(), buffer.data()));
}

/**
 * Reads the virtual MAC address that goes with a name.
 *
 * @param name  the name, at most 63 bytes
 * @return      the address
 */
inline lumozeph::mac get_vmac(text_argument name)
{
    lumozeph::mac mac;
    detail::check(::LUMOZEPH_GetVMAC(name.c_str(), mac.data()), "get_vmac");
    return mac;
}
[[nodiscard]] inline std::error_code try_get_vmac(text_argument name, lumozeph::mac& mac) noexcept
{
    return detail::code_of(::LUMOZEPH_GetVMAC(name.c_str(), mac.data()));
}

/** The arguments of plumb_lumo_connection. */
struct plumb_lumo_connection_arguments
{
    connection_argument name;        /**< its name, at most 63 bytes */
    text_argument text1;             /**< at most 15 bytes */
    maybe<text_argument> text2 = {}; /**< at most 17 bytes; left out: none */
    maybe<text_argument> text3 = {}; /**< at most 31 bytes; left out: none */
    maybe<text_argument> text4 = {}; /**< at most 255 bytes; left out: none */
};

/** Plumbs a connection. */
inline void plumb_lumo_connection(const plumb_lumo_connection_arguments& with)
{
    detail::check(::LUMOZEPH_PlumbLumoConnection(with.name.c_str(), with.text1.c_str(), 0, with.text2.c_str(),
                      with.text3.c_str(), with.text4.c_str()),
        "plumb_lumo_connection");
}
[[nodiscard]] inline std::error_code try_plumb_lumo_connection(const plumb_lumo_connection_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_PlumbLumoConnection(
        with.name.c_str(), with.text1.c_str(), 0, with.text2.c_str(), with.text3.c_str(), with.text4.c_str()));
}

/**
 * Unplumbs a connection.
 *
 * @param name  its name, at most 63 bytes
 */
inline void unplumb_lumo_connection(connection_argument name)
{
    detail::check(::LUMOZEPH_UnPlumbLumoConnection(name.c_str()), "unplumb_lumo_connection");
}
[[nodiscard]] inline std::error_code try_unplumb_lumo_connection(connection_argument name) noexcept
{
    return detail::code_of(::LUMOZEPH_UnPlumbLumoConnection(name.c_str()));
}

/**
 * Reads the value of the module's connection-deletion check.
 *
 * The length that the module reports is not looked at: if it answers with fewer than four bytes, the rest of the value
 * is undefined.
 *
 * @return  the value
 */
inline std::uint32_t lumo_dev_check_conn_deletion()
{
    std::uint32_t value {};
    detail::check(::LUMOZEPH_LUMODevCheckConnDeletion(&value), "lumo_dev_check_conn_deletion");
    return value;
}
[[nodiscard]] inline std::error_code try_lumo_dev_check_conn_deletion(std::uint32_t& result) noexcept
{
    return detail::code_of(::LUMOZEPH_LUMODevCheckConnDeletion(&result));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * housekeeping: Flush, full-sync save and preparation for unloading
 * ------------------------------------------------------------------------------------------------------------------ */

/** The arguments of generic_flush. */
struct generic_flush_arguments
{
    std::uint32_t value1 = 0;       /**< passed on as it stands */
    std::uint8_t value2 = 0;        /**< passed on as it stands */
    std::uint8_t value3 = 0;        /**< passed on as it stands */
    std::uint8_t value4 = 0;        /**< passed on as it stands */
    maybe<text_argument> text = {}; /**< at most 63 bytes; left out: none */
    std::uint32_t value5 = 0;       /**< passed on as it stands */
};

/**
 * Sends the module's generic flush.
 *
 * What is flushed, and what the values and the text have to do with it, is the module's.
 */
inline void generic_flush(const generic_flush_arguments& with)
{
    detail::check(
        ::LUMOZEPH_GenericFlush(with.value1, with.value2, with.value3, with.value4, with.text.c_str(), with.value5),
        "generic_flush");
}
[[nodiscard]] inline std::error_code try_generic_flush(const generic_flush_arguments& with) noexcept
{
    return detail::code_of(
        ::LUMOZEPH_GenericFlush(with.value1, with.value2, with.value3, with.value4, with.text.c_str(), with.value5));
}

/** Prepares the module for being unloaded. */
inline void pre_unload()
{
    detail::check(::LUMOZEPH_PreUnload(), "pre_unload");
}
[[nodiscard]] inline std::error_code try_pre_unload() noexcept
{
    return detail::code_of(::LUMOZEPH_PreUnload());
}

/**
 * Starts a full-sync save of the whole module.
 *
 * @param value  passed on as it stands
 * @return       as the module writes it
 */
inline std::uint32_t perform_full_sync_save(std::uint8_t value)
{
    std::uint32_t result {};
    detail::check(::LUMOZEPH_PerformFullSyncSave(value, &result), "perform_full_sync_save");
    return result;
}
[[nodiscard]] inline std::error_code try_perform_full_sync_save(std::uint8_t value, std::uint32_t& result) noexcept
{
    return detail::code_of(::LUMOZEPH_PerformFullSyncSave(value, &result));
}

/**
 * Reads the status of the full-sync save.
 *
 * @return  as the module writes it
 */
inline std::uint32_t get_full_sync_save_status()
{
    std::uint32_t status {};
    detail::check(::LUMOZEPH_GetFullSyncSaveStatus(&status), "get_full_sync_save_status");
    return status;
}
[[nodiscard]] inline std::error_code try_get_full_sync_save_status(std::uint32_t& result) noexcept
{
    return detail::code_of(::LUMOZEPH_GetFullSyncSaveStatus(&result));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * lifs: Logical interfaces
 *
 * A router instance owns logical interfaces (LIFs): routed interfaces, and bridge LIFs, which attach a bridge to it. A
 * LIF is named by its instance's key and its own name, at most 63 bytes.
 * ------------------------------------------------------------------------------------------------------------------ */

/** One IPv6 address of a LIF. */
using lif_ipv6_addr = ::LumoLifIpv6Addr;
/** One DHCP server that a LIF relays to. */
using dhcp_relay_server = ::LumoDhcpRelayServer;
/** The DHCP servers that a LIF relays to, byte for byte as the module sent them. */
using dhcp_relay = ::LumoDhcpRelay;
/** One logical interface as the module reports it. */
using lif_info = ::LumoLifInfo;
using owned_lif_info = owned<::LumoLifInfo, ::LUMOZEPH_ReleaseLif>;
/** Logical interfaces. */
using lif_list = list<::LumoLifList, ::LUMOZEPH_ReleaseLifs, LUMOZEPH_LIFS_MAX>;

/** servers of a record: as many as relayCount says, but no more than there is room for. */
inline view<const dhcp_relay_server> servers(const dhcp_relay& of) noexcept
{
    return {of.servers, std::min<std::size_t>(of.relayCount, 8)};
}
inline view<const dhcp_relay_server> servers(const dhcp_relay&& of) = delete;

/** ipv6Addrs of a record: as many as ipv6Count says, but no more than there is room for. */
inline view<const lif_ipv6_addr> ipv6_addrs(const lif_info& of) noexcept
{
    return {of.ipv6Addrs, std::min<std::size_t>(of.ipv6Count, 10)};
}
inline view<const lif_ipv6_addr> ipv6_addrs(const lif_info&& of) = delete;

/** The arguments of set_lif. */
struct set_lif_arguments
{
    lif_argument lif;                      /**< its name, at most 63 bytes */
    lif_second_name_argument aux_name;     /**< its second name, at most 63 bytes */
    ipv4_prefix address;                   /**< IPv4, and its mask */
    std::uint32_t param_a = 0;             /**< passed on as it stands */
    std::uint32_t param_b = 0;             /**< passed on as it stands */
    ipv4 di_address;                       /**< designated-instance address, IPv4 */
    std::uint32_t param_c = 0;             /**< passed on as it stands */
    instance_argument instance;            /**< the instance's key, at most 63 bytes */
    std::optional<lumozeph::mac> mac = {}; /**< the MAC address; left out: none, which sends six zero bytes */
};

/** Creates a LIF. */
inline void set_lif(const set_lif_arguments& with)
{
    detail::check(::LUMOZEPH_SetLif(with.lif.c_str(), with.aux_name.c_str(), with.address.address().value(),
                      with.address.mask().value(), with.param_a, with.param_b, with.di_address.value(), with.param_c,
                      with.instance.c_str(), with.mac ? with.mac->data() : nullptr),
        "set_lif");
}
[[nodiscard]] inline std::error_code try_set_lif(const set_lif_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLif(with.lif.c_str(), with.aux_name.c_str(), with.address.address().value(),
        with.address.mask().value(), with.param_a, with.param_b, with.di_address.value(), with.param_c,
        with.instance.c_str(), with.mac ? with.mac->data() : nullptr));
}

/**
 * Removes a LIF.
 *
 * @param lif       its name, at most 63 bytes
 * @param aux_name  its second name, at most 63 bytes
 * @param instance  the instance's key, at most 63 bytes
 */
inline void del_lif(lif_argument lif, lif_second_name_argument aux_name, instance_argument instance)
{
    detail::check(::LUMOZEPH_DelLif(lif.c_str(), aux_name.c_str(), instance.c_str()), "del_lif");
}
[[nodiscard]] inline std::error_code try_del_lif(
    lif_argument lif, lif_second_name_argument aux_name, instance_argument instance) noexcept
{
    return detail::code_of(::LUMOZEPH_DelLif(lif.c_str(), aux_name.c_str(), instance.c_str()));
}

/** The arguments of set_bridge_lif. */
struct set_bridge_lif_arguments
{
    lif_argument lif;                  /**< its name, at most 63 bytes */
    lif_second_name_argument aux_name; /**< its second name, at most 63 bytes */
    std::uint32_t param_a = 0;         /**< passed on as it stands */
    std::uint32_t param_b = 0;         /**< passed on as it stands */
    std::uint32_t di_value = 0; /**< passed on as it stands, where a routed LIF has its designated-instance address */
    instance_argument instance; /**< the instance's key, at most 63 bytes */
    switched add;               /**< on: adds; off: removes */
};

/**
 * Adds a bridge LIF, or removes it.
 *
 * The same values are sent in both cases.
 */
inline void set_bridge_lif(const set_bridge_lif_arguments& with)
{
    detail::check(::LUMOZEPH_SetBridgeLif(with.lif.c_str(), with.aux_name.c_str(), with.param_a, with.param_b,
                      with.di_value, with.instance.c_str(), static_cast<int>(with.add)),
        "set_bridge_lif");
}
[[nodiscard]] inline std::error_code try_set_bridge_lif(const set_bridge_lif_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_SetBridgeLif(with.lif.c_str(), with.aux_name.c_str(), with.param_a, with.param_b,
        with.di_value, with.instance.c_str(), static_cast<int>(with.add)));
}

/**
 * Reads one routed LIF.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @return          the record
 */
inline owned_lif_info get_lif(instance_argument instance, lif_argument lif)
{
    LumoLifInfo* out = nullptr;
    detail::check(::LUMOZEPH_GetLif(instance.c_str(), lif.c_str(), &out), "get_lif");
    return owned_lif_info(out);
}
[[nodiscard]] inline std::error_code try_get_lif(
    instance_argument instance, lif_argument lif, owned_lif_info& result) noexcept
{
    LumoLifInfo* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetLif(instance.c_str(), lif.c_str(), &out), out, result);
}

/**
 * Reads one bridge LIF.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @return          the record
 */
inline owned_lif_info get_bridge_lif(instance_argument instance, lif_argument lif)
{
    LumoLifInfo* out = nullptr;
    detail::check(::LUMOZEPH_GetBridgeLif(instance.c_str(), lif.c_str(), &out), "get_bridge_lif");
    return owned_lif_info(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_lif(
    instance_argument instance, lif_argument lif, owned_lif_info& result) noexcept
{
    LumoLifInfo* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetBridgeLif(instance.c_str(), lif.c_str(), &out), out, result);
}

/**
 * Reads an instance's routed LIFs.
 *
 * @param instance  its key, at most 63 bytes
 * @return          the list
 */
inline lif_list get_lifs(instance_argument instance)
{
    LumoLifList* out = nullptr;
    detail::check(::LUMOZEPH_GetLifs(instance.c_str(), &out), "get_lifs");
    return lif_list(out);
}
[[nodiscard]] inline std::error_code try_get_lifs(instance_argument instance, lif_list& result) noexcept
{
    LumoLifList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetLifs(instance.c_str(), &out), out, result);
}

/**
 * Reads an instance's bridge LIFs.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param instance  its key, at most 63 bytes
 * @return          the list
 */
inline lif_list get_bridge_lifs(instance_argument instance)
{
    LumoLifList* out = nullptr;
    detail::check(::LUMOZEPH_GetBridgeLifs(instance.c_str(), &out), "get_bridge_lifs");
    return lif_list(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_lifs(instance_argument instance, lif_list& result) noexcept
{
    LumoLifList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetBridgeLifs(instance.c_str(), &out), out, result);
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * lif_options: Interface addressing and options
 *
 * Each function but the last changes one property of a LIF that exists. No value is range-checked.
 * ------------------------------------------------------------------------------------------------------------------ */

/**
 * Sets a LIF's IPv4 address.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @param address   IPv4, and its mask
 */
inline void set_lif_ip(instance_argument instance, lif_argument lif, ipv4_prefix address)
{
    detail::check(::LUMOZEPH_SetLifIp(instance.c_str(), lif.c_str(), address.address().value(), address.mask().value()),
        "set_lif_ip");
}
[[nodiscard]] inline std::error_code try_set_lif_ip(
    instance_argument instance, lif_argument lif, ipv4_prefix address) noexcept
{
    return detail::code_of(
        ::LUMOZEPH_SetLifIp(instance.c_str(), lif.c_str(), address.address().value(), address.mask().value()));
}

/**
 * Removes a LIF's IPv4 address.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @param address   IPv4, and its mask
 */
inline void del_lif_ip(instance_argument instance, lif_argument lif, ipv4_prefix address)
{
    detail::check(::LUMOZEPH_DelLifIp(instance.c_str(), lif.c_str(), address.address().value(), address.mask().value()),
        "del_lif_ip");
}
[[nodiscard]] inline std::error_code try_del_lif_ip(
    instance_argument instance, lif_argument lif, ipv4_prefix address) noexcept
{
    return detail::code_of(
        ::LUMOZEPH_DelLifIp(instance.c_str(), lif.c_str(), address.address().value(), address.mask().value()));
}

/**
 * Sets a LIF's designated-instance address.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @param address   IPv4
 */
inline void set_lif_di_ip(instance_argument instance, lif_argument lif, ipv4 address)
{
    detail::check(::LUMOZEPH_SetLifDIIp(instance.c_str(), lif.c_str(), address.value()), "set_lif_di_ip");
}
[[nodiscard]] inline std::error_code try_set_lif_di_ip(
    instance_argument instance, lif_argument lif, ipv4 address) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLifDIIp(instance.c_str(), lif.c_str(), address.value()));
}

/**
 * Sets a LIF's VXLAN multicast address.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @param address   IPv4
 */
inline void set_lif_vxlan_multicast_ip(instance_argument instance, lif_argument lif, ipv4 address)
{
    detail::check(::LUMOZEPH_SetLifVxlanMulticastIp(instance.c_str(), lif.c_str(), address.value()),
        "set_lif_vxlan_multicast_ip");
}
[[nodiscard]] inline std::error_code try_set_lif_vxlan_multicast_ip(
    instance_argument instance, lif_argument lif, ipv4 address) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLifVxlanMulticastIp(instance.c_str(), lif.c_str(), address.value()));
}

/**
 * Attaches a LIF to the VXLAN control plane.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 */
inline void set_lif_vxlan_cp(instance_argument instance, lif_argument lif)
{
    detail::check(::LUMOZEPH_SetLifVxlanCP(instance.c_str(), lif.c_str()), "set_lif_vxlan_cp");
}
[[nodiscard]] inline std::error_code try_set_lif_vxlan_cp(instance_argument instance, lif_argument lif) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLifVxlanCP(instance.c_str(), lif.c_str()));
}

/**
 * Detaches a LIF from the VXLAN control plane.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 */
inline void del_lif_vxlan_cp(instance_argument instance, lif_argument lif)
{
    detail::check(::LUMOZEPH_DelLifVxlanCP(instance.c_str(), lif.c_str()), "del_lif_vxlan_cp");
}
[[nodiscard]] inline std::error_code try_del_lif_vxlan_cp(instance_argument instance, lif_argument lif) noexcept
{
    return detail::code_of(::LUMOZEPH_DelLifVxlanCP(instance.c_str(), lif.c_str()));
}

/**
 * Sets a LIF's administrative state to up.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 */
inline void enable_lif(instance_argument instance, lif_argument lif)
{
    detail::check(::LUMOZEPH_EnableLif(instance.c_str(), lif.c_str()), "enable_lif");
}
[[nodiscard]] inline std::error_code try_enable_lif(instance_argument instance, lif_argument lif) noexcept
{
    return detail::code_of(::LUMOZEPH_EnableLif(instance.c_str(), lif.c_str()));
}

/**
 * Sets a LIF's administrative state to down.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 */
inline void disable_lif(instance_argument instance, lif_argument lif)
{
    detail::check(::LUMOZEPH_DisableLif(instance.c_str(), lif.c_str()), "disable_lif");
}
[[nodiscard]] inline std::error_code try_disable_lif(instance_argument instance, lif_argument lif) noexcept
{
    return detail::code_of(::LUMOZEPH_DisableLif(instance.c_str(), lif.c_str()));
}

/**
 * Switches multicast routing on a LIF on or off.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @param on        on: on; off: off
 */
inline void set_lif_mcast_routing(instance_argument instance, lif_argument lif, switched on)
{
    detail::check(::LUMOZEPH_SetLifMcastRouting(instance.c_str(), lif.c_str(), static_cast<std::uint8_t>(on)),
        "set_lif_mcast_routing");
}
[[nodiscard]] inline std::error_code try_set_lif_mcast_routing(
    instance_argument instance, lif_argument lif, switched on) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLifMcastRouting(instance.c_str(), lif.c_str(), static_cast<std::uint8_t>(on)));
}

/**
 * Sets the MTU that a LIF advertises in IPv6 router advertisements.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @param mtu       in bytes
 */
inline void ramtu_set_v6(instance_argument instance, lif_argument lif, std::uint32_t mtu)
{
    detail::check(::LUMOZEPH_RAMTUSetv6(instance.c_str(), lif.c_str(), mtu), "ramtu_set_v6");
}
[[nodiscard]] inline std::error_code try_ramtu_set_v6(
    instance_argument instance, lif_argument lif, std::uint32_t mtu) noexcept
{
    return detail::code_of(::LUMOZEPH_RAMTUSetv6(instance.c_str(), lif.c_str(), mtu));
}

/**
 * Adds an IPv6 address to a LIF.
 *
 * @param instance  the instance's key, unterminated at 64 bytes
 * @param lif       the LIF's name, unterminated at 64 bytes
 * @param address   the address, and its length in bits; only its low byte is sent
 */
inline void set_lif_ipv6(instance_argument instance, lif_argument lif, ipv6_prefix address)
{
    detail::check(::LUMOZEPH_SetLifIpv6(instance.c_str(), lif.c_str(), address.address().word1(),
                      address.address().word2(), address.mask().value()),
        "set_lif_ipv6");
}
[[nodiscard]] inline std::error_code try_set_lif_ipv6(
    instance_argument instance, lif_argument lif, ipv6_prefix address) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLifIpv6(
        instance.c_str(), lif.c_str(), address.address().word1(), address.address().word2(), address.mask().value()));
}

/**
 * Removes an IPv6 address from a LIF.
 *
 * @param instance  the instance's key, unterminated at 64 bytes
 * @param lif       the LIF's name, unterminated at 64 bytes
 * @param address   the address, and its length in bits; only its low byte is sent
 */
inline void del_lif_ipv6(instance_argument instance, lif_argument lif, ipv6_prefix address)
{
    detail::check(::LUMOZEPH_DelLifIpv6(instance.c_str(), lif.c_str(), address.address().word1(),
                      address.address().word2(), address.mask().value()),
        "del_lif_ipv6");
}
[[nodiscard]] inline std::error_code try_del_lif_ipv6(
    instance_argument instance, lif_argument lif, ipv6_prefix address) noexcept
{
    return detail::code_of(::LUMOZEPH_DelLifIpv6(
        instance.c_str(), lif.c_str(), address.address().word1(), address.address().word2(), address.mask().value()));
}

/** The arguments of set_mcast_routing. */
struct set_mcast_routing_arguments
{
    instance_argument instance; /**< its key, at most 63 bytes */
    text_argument name;         /**< at most 63 bytes */
    std::uint32_t value1 = 0;   /**< passed on as it stands */
    std::uint32_t value2 = 0;   /**< passed on as it stands */
    std::uint16_t value3 = 0;   /**< passed on as it stands */
    std::uint8_t value4 = 0;    /**< passed on as it stands */
};

/** Configures multicast routing for an instance as a whole. */
inline void set_mcast_routing(const set_mcast_routing_arguments& with)
{
    detail::check(::LUMOZEPH_SetMcastRouting(
                      with.instance.c_str(), with.name.c_str(), with.value1, with.value2, with.value3, with.value4),
        "set_mcast_routing");
}
[[nodiscard]] inline std::error_code try_set_mcast_routing(const set_mcast_routing_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_SetMcastRouting(
        with.instance.c_str(), with.name.c_str(), with.value1, with.value2, with.value3, with.value4));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * dhcp_relay: DHCP relay
 * ------------------------------------------------------------------------------------------------------------------ */

/**
 * Replaces the DHCP servers that a LIF relays to.
 *
 * As it stands, only the empty list can be configured: a server is accepted only if its text is well-formed both as an
 * IPv4 and as an IPv6 address, which none is.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @param servers   addresses separated by commas, in writable memory: EINVAL, and the commas that were passed, in
 *                  practice the first one, are overwritten with NUL; left out: no servers
 * @throws error    EINVAL: if servers is not null
 */
inline void configure_lif_dhcp_relay(instance_argument instance, lif_argument lif, char* servers = nullptr)
{
    detail::check(::LUMOZEPH_ConfigureLifDhcpRelay(instance.c_str(), lif.c_str(), servers), "configure_lif_dhcp_relay");
}
[[nodiscard]] inline std::error_code try_configure_lif_dhcp_relay(
    instance_argument instance, lif_argument lif, char* servers = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_ConfigureLifDhcpRelay(instance.c_str(), lif.c_str(), servers));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * routes: IPv4 routes
 * ------------------------------------------------------------------------------------------------------------------ */

/**
 * The module's own answer to setting or deleting an IPv4 route, an interface policy, a policy, a policy table or the
 * references to one, for a caller that asks for it.
 */
using cmd_result = ::LumoCmdResult;
/** One next hop of a route. */
using next_hop = ::LumoNextHop;
/** One route, or one interface policy, as the module reports it. */
using route_info = ::LumoRouteInfo;
using owned_route_info = owned<::LumoRouteInfo, ::LUMOZEPH_ReleaseRoute>;
/** Routes, or interface policies. */
using route_list = list<::LumoRouteList, ::LUMOZEPH_ReleaseRoutes, LUMOZEPH_ROUTES_MAX>;

/** nextHops of a record: as many as nextHopCount says, but no more than there is room for. */
inline view<const next_hop> next_hops(const route_info& of) noexcept
{
    return {of.nextHops, std::min<std::size_t>(of.nextHopCount, 8)};
}
inline view<const next_hop> next_hops(const route_info&& of) = delete;

/** The arguments of set_route. */
struct set_route_arguments
{
    ipv4_prefix dest;             /**< IPv4 address of the destination network, and its mask */
    ipv4 gateway;                 /**< IPv4 address of the next hop */
    maybe<lif_argument> lif = {}; /**< name of the outgoing LIF, at most 63 bytes; left out: none */
    instance_argument instance;   /**< the instance's key, at most 63 bytes */
    std::uint32_t param = 0;      /**< passed on as it stands */
};

/**
 * Adds an IPv4 route.
 *
 * @param[out] answer  the module's answer; null: it is not asked for
 */
inline void set_route(const set_route_arguments& with, cmd_result* answer = nullptr)
{
    detail::check(::LUMOZEPH_SetRoute(with.dest.address().value(), with.dest.mask().value(), with.gateway.value(),
                      with.lif.c_str(), with.instance.c_str(), with.param, answer),
        "set_route");
}
[[nodiscard]] inline std::error_code try_set_route(
    const set_route_arguments& with, cmd_result* answer = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_SetRoute(with.dest.address().value(), with.dest.mask().value(),
        with.gateway.value(), with.lif.c_str(), with.instance.c_str(), with.param, answer));
}

/** The arguments of del_route. */
struct del_route_arguments
{
    ipv4_prefix dest;             /**< IPv4 address of the destination network, and its mask */
    ipv4 gateway;                 /**< IPv4 address of the next hop */
    maybe<lif_argument> lif = {}; /**< name of the outgoing LIF, at most 63 bytes; left out: none */
    instance_argument instance;   /**< the instance's key, at most 63 bytes */
};

/**
 * Deletes an IPv4 route.
 *
 * @param[out] answer  the module's answer; null: it is not asked for
 */
inline void del_route(const del_route_arguments& with, cmd_result* answer = nullptr)
{
    detail::check(::LUMOZEPH_DelRoute(with.dest.address().value(), with.dest.mask().value(), with.gateway.value(),
                      with.lif.c_str(), with.instance.c_str(), answer),
        "del_route");
}
[[nodiscard]] inline std::error_code try_del_route(
    const del_route_arguments& with, cmd_result* answer = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_DelRoute(with.dest.address().value(), with.dest.mask().value(),
        with.gateway.value(), with.lif.c_str(), with.instance.c_str(), answer));
}

/**
 * Reads an instance's routes.
 *
 * @param instance  its key, at most 63 bytes
 * @return          the list
 */
inline route_list get_routes(instance_argument instance)
{
    LumoRouteList* out = nullptr;
    detail::check(::LUMOZEPH_GetRoutes(instance.c_str(), &out), "get_routes");
    return route_list(out);
}
[[nodiscard]] inline std::error_code try_get_routes(instance_argument instance, route_list& result) noexcept
{
    LumoRouteList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetRoutes(instance.c_str(), &out), out, result);
}

/** The arguments of get_resolve_route. */
struct get_resolve_route_arguments
{
    instance_argument instance; /**< the instance's key, at most 63 bytes */
    ipv4 dest;                  /**< IPv4 address of the destination */
    ipv4_mask mask;             /**< a mask value */
    std::uint32_t param = 0;    /**< passed on as it stands */
};

/**
 * Asks the module which route it uses for a destination.
 *
 * @return  the route
 */
inline owned_route_info get_resolve_route(const get_resolve_route_arguments& with)
{
    LumoRouteInfo* out = nullptr;
    detail::check(
        ::LUMOZEPH_GetResolveRoute(with.instance.c_str(), with.dest.value(), with.mask.value(), with.param, &out),
        "get_resolve_route");
    return owned_route_info(out);
}
[[nodiscard]] inline std::error_code try_get_resolve_route(
    const get_resolve_route_arguments& with, owned_route_info& result) noexcept
{
    LumoRouteInfo* out = nullptr;
    return detail::handed_over(
        ::LUMOZEPH_GetResolveRoute(with.instance.c_str(), with.dest.value(), with.mask.value(), with.param, &out), out,
        result);
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * routes6: IPv6 routes and path MTU
 * ------------------------------------------------------------------------------------------------------------------ */

/** The arguments of set_route_v6. */
struct set_route_v6_arguments
{
    ipv6_prefix dest;             /**< the destination prefix, and its length in bits; only its low byte is sent */
    ipv6 gateway;                 /**< the next hop */
    maybe<lif_argument> lif = {}; /**< name of the outgoing LIF, unterminated at 64 bytes; left out: none */
    instance_argument instance;   /**< the instance's key, unterminated at 64 bytes */
};

/** Adds an IPv6 route. */
inline void set_route_v6(const set_route_v6_arguments& with)
{
    detail::check(
        ::LUMOZEPH_SetRoutev6(with.dest.address().word1(), with.dest.address().word2(), with.dest.mask().value(),
            with.gateway.word1(), with.gateway.word2(), with.lif.c_str(), with.instance.c_str()),
        "set_route_v6");
}
[[nodiscard]] inline std::error_code try_set_route_v6(const set_route_v6_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_SetRoutev6(with.dest.address().word1(), with.dest.address().word2(),
        with.dest.mask().value(), with.gateway.word1(), with.gateway.word2(), with.lif.c_str(), with.instance.c_str()));
}

/** The arguments of del_route_v6. */
struct del_route_v6_arguments
{
    ipv6_prefix dest;             /**< the destination prefix, and its length in bits; only its low byte is sent */
    ipv6 gateway;                 /**< the next hop */
    maybe<lif_argument> lif = {}; /**< name of the outgoing LIF, unterminated at 64 bytes; left out: none */
    instance_argument instance;   /**< the instance's key, unterminated at 64 bytes */
};

/** Deletes an IPv6 route. */
inline void del_route_v6(const del_route_v6_arguments& with)
{
    detail::check(
        ::LUMOZEPH_DelRoutev6(with.dest.address().word1(), with.dest.address().word2(), with.dest.mask().value(),
            with.gateway.word1(), with.gateway.word2(), with.lif.c_str(), with.instance.c_str()),
        "del_route_v6");
}
[[nodiscard]] inline std::error_code try_del_route_v6(const del_route_v6_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_DelRoutev6(with.dest.address().word1(), with.dest.address().word2(),
        with.dest.mask().value(), with.gateway.word1(), with.gateway.word2(), with.lif.c_str(), with.instance.c_str()));
}

/** The entries of get_routes_v6. */
using route_v6_block = entry_block<LUMOZEPH_ROUTE6_SIZE, detail::sure_room, detail::largest_room>;

/**
 * Reads an instance's IPv6 routes as the module lays them out, in entries of LUMOZEPH_ROUTE6_SIZE bytes.
 *
 * Sends two commands: the first asks how many routes there are, by which the block gets room for 8000 entries if there
 * are fewer than that, or else for 30000 (a number of 2^31 or more counts as a negative one, which is fewer than 8000);
 * the second reads them. The caller does not learn which: count is what the module reports, and may be larger than the
 * room if the module is not well behaved. Only the first 8000 entries are sure to lie in the block. What the module has
 * not written of them is undefined.
 *
 * @param instance  its key, unterminated at 64 bytes
 * @return          the entries
 * @throws error    ENOMEM: if the first command fails, whatever it failed of (without a device, too), and if there are
 *                  30000 routes or more, but fewer than 2^31; nothing is allocated then
 */
inline route_v6_block get_routes_v6(instance_argument instance)
{
    void* block = nullptr;
    std::uint32_t count = 0;
    detail::check(::LUMOZEPH_GetRoutesv6(instance.c_str(), &block, &count), "get_routes_v6");
    return {block, count};
}
[[nodiscard]] inline std::error_code try_get_routes_v6(instance_argument instance, route_v6_block& result) noexcept
{
    void* block = nullptr; // After a failure, it may point to what has been freed.
    std::uint32_t count = 0;
    const std::error_code code = detail::code_of(::LUMOZEPH_GetRoutesv6(instance.c_str(), &block, &count));
    result = code ? route_v6_block() : route_v6_block(block, count);
    return code;
}

/** Clears the module-wide IPv6 path-MTU table. */
inline void pmtu_table_cear_v6()
{
    detail::check(::LUMOZEPH_PMTUTableCearv6(), "pmtu_table_cear_v6");
}
[[nodiscard]] inline std::error_code try_pmtu_table_cear_v6() noexcept
{
    return detail::code_of(::LUMOZEPH_PMTUTableCearv6());
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * neighbours: ARP entries, IPv6 neighbours and proxy entries
 *
 * A proxy entry is an address that the router answers for. ARP entries and proxy entries of IPv4 are read apart; there
 * is no read of the proxy entries of IPv6.
 * ------------------------------------------------------------------------------------------------------------------ */

/** The arguments of set_arp. */
struct set_arp_arguments
{
    ipv4 address;               /**< IPv4 */
    mac_text_argument mac;      /**< the MAC address as text, at most 17 bytes */
    lif_argument lif;           /**< name of the LIF that the entry is on, at most 63 bytes */
    instance_argument instance; /**< the instance's key, at most 63 bytes */
};

/** Adds an ARP entry. */
inline void set_arp(const set_arp_arguments& with)
{
    detail::check(
        ::LUMOZEPH_SetArp(with.address.value(), with.mac.c_str(), with.lif.c_str(), with.instance.c_str()), "set_arp");
}
[[nodiscard]] inline std::error_code try_set_arp(const set_arp_arguments& with) noexcept
{
    return detail::code_of(
        ::LUMOZEPH_SetArp(with.address.value(), with.mac.c_str(), with.lif.c_str(), with.instance.c_str()));
}

/**
 * Deletes an ARP entry.
 *
 * @param address   IPv4
 * @param lif       name of the LIF that the entry is on, at most 63 bytes
 * @param instance  the instance's key, at most 63 bytes
 */
inline void del_arp(ipv4 address, lif_argument lif, instance_argument instance)
{
    detail::check(::LUMOZEPH_DelArp(address.value(), lif.c_str(), instance.c_str()), "del_arp");
}
[[nodiscard]] inline std::error_code try_del_arp(ipv4 address, lif_argument lif, instance_argument instance) noexcept
{
    return detail::code_of(::LUMOZEPH_DelArp(address.value(), lif.c_str(), instance.c_str()));
}

/**
 * Adds a proxy entry of IPv4.
 *
 * @param address   IPv4
 * @param lif       name of the LIF that the entry is on, at most 63 bytes
 * @param instance  the instance's key, at most 63 bytes
 */
inline void set_proxy_arp(ipv4 address, lif_argument lif, instance_argument instance)
{
    detail::check(::LUMOZEPH_SetProxyArp(address.value(), lif.c_str(), instance.c_str()), "set_proxy_arp");
}
[[nodiscard]] inline std::error_code try_set_proxy_arp(
    ipv4 address, lif_argument lif, instance_argument instance) noexcept
{
    return detail::code_of(::LUMOZEPH_SetProxyArp(address.value(), lif.c_str(), instance.c_str()));
}

/**
 * Deletes a proxy entry of IPv4.
 *
 * @param address   IPv4
 * @param lif       name of the LIF that the entry is on, at most 63 bytes
 * @param instance  the instance's key, at most 63 bytes
 */
inline void del_proxy_arp(ipv4 address, lif_argument lif, instance_argument instance)
{
    detail::check(::LUMOZEPH_DelProxyArp(address.value(), lif.c_str(), instance.c_str()), "del_proxy_arp");
}
[[nodiscard]] inline std::error_code try_del_proxy_arp(
    ipv4 address, lif_argument lif, instance_argument instance) noexcept
{
    return detail::code_of(::LUMOZEPH_DelProxyArp(address.value(), lif.c_str(), instance.c_str()));
}

/**
 * Reads the ARP entries of a LIF, or of a whole instance.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes; left out: those of the whole instance
 * @return          LUMOZEPH_ARP_TABLE_SIZE bytes
 */
inline raw<LUMOZEPH_ARP_TABLE_SIZE> get_arps(instance_argument instance, maybe<lif_argument> lif = {})
{
    raw<LUMOZEPH_ARP_TABLE_SIZE> buffer;
    detail::check(::LUMOZEPH_GetArps(instance.c_str(), lif.c_str(), buffer.data()), "get_arps");
    return buffer;
}
[[nodiscard]] inline std::error_code try_get_arps(
    instance_argument instance, maybe<lif_argument> lif, raw<LUMOZEPH_ARP_TABLE_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_GetArps(instance.c_str(), lif.c_str(), buffer.data()));
}

/**
 * Reads the proxy entries of IPv4 of a LIF, or of a whole instance.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes; left out: those of the whole instance
 * @return          LUMOZEPH_ARP_TABLE_SIZE bytes
 */
inline raw<LUMOZEPH_ARP_TABLE_SIZE> get_proxy_arps(instance_argument instance, maybe<lif_argument> lif = {})
{
    raw<LUMOZEPH_ARP_TABLE_SIZE> buffer;
    detail::check(::LUMOZEPH_GetProxyArps(instance.c_str(), lif.c_str(), buffer.data()), "get_proxy_arps");
    return buffer;
}
[[nodiscard]] inline std::error_code try_get_proxy_arps(
    instance_argument instance, maybe<lif_argument> lif, raw<LUMOZEPH_ARP_TABLE_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_GetProxyArps(instance.c_str(), lif.c_str(), buffer.data()));
}

/**
 * Clears the ARP table of a LIF, or of a whole instance.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes; left out: that of the whole instance
 */
inline void clear_arp(instance_argument instance, maybe<lif_argument> lif = {})
{
    detail::check(::LUMOZEPH_ClearArp(instance.c_str(), lif.c_str()), "clear_arp");
}
[[nodiscard]] inline std::error_code try_clear_arp(instance_argument instance, maybe<lif_argument> lif = {}) noexcept
{
    return detail::code_of(::LUMOZEPH_ClearArp(instance.c_str(), lif.c_str()));
}

/**
 * Clears the IPv6 neighbours of a LIF, or of a whole instance.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes; left out: those of the whole instance
 */
inline void clear_arp_v6(instance_argument instance, maybe<lif_argument> lif = {})
{
    detail::check(::LUMOZEPH_ClearArpv6(instance.c_str(), lif.c_str()), "clear_arp_v6");
}
[[nodiscard]] inline std::error_code try_clear_arp_v6(instance_argument instance, maybe<lif_argument> lif = {}) noexcept
{
    return detail::code_of(::LUMOZEPH_ClearArpv6(instance.c_str(), lif.c_str()));
}

/** The arguments of set_arp_v6. */
struct set_arp_v6_arguments
{
    ipv6 address;               /**< the address */
    mac_text_argument mac;      /**< the MAC address as text, unterminated at 18 bytes */
    lif_argument lif;           /**< name of the LIF that the neighbour is on, unterminated at 64 bytes */
    instance_argument instance; /**< the instance's key, unterminated at 64 bytes */
};

/** Adds an IPv6 neighbour. */
inline void set_arp_v6(const set_arp_v6_arguments& with)
{
    detail::check(::LUMOZEPH_SetArpv6(with.address.word1(), with.address.word2(), with.mac.c_str(), with.lif.c_str(),
                      with.instance.c_str()),
        "set_arp_v6");
}
[[nodiscard]] inline std::error_code try_set_arp_v6(const set_arp_v6_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_SetArpv6(
        with.address.word1(), with.address.word2(), with.mac.c_str(), with.lif.c_str(), with.instance.c_str()));
}

/**
 * Deletes an IPv6 neighbour.
 *
 * @param address   the address
 * @param lif       name of the LIF that the neighbour is on, unterminated at 64 bytes
 * @param instance  the instance's key, unterminated at 64 bytes
 */
inline void del_arp_v6(ipv6 address, lif_argument lif, instance_argument instance)
{
    detail::check(::LUMOZEPH_DelArpv6(address.word1(), address.word2(), lif.c_str(), instance.c_str()), "del_arp_v6");
}
[[nodiscard]] inline std::error_code try_del_arp_v6(ipv6 address, lif_argument lif, instance_argument instance) noexcept
{
    return detail::code_of(::LUMOZEPH_DelArpv6(address.word1(), address.word2(), lif.c_str(), instance.c_str()));
}

/**
 * Adds a proxy entry of IPv6.
 *
 * @param address   the address
 * @param lif       name of the LIF that the entry is on, unterminated at 64 bytes
 * @param instance  the instance's key, unterminated at 64 bytes
 */
inline void set_proxy_arp_v6(ipv6 address, lif_argument lif, instance_argument instance)
{
    detail::check(
        ::LUMOZEPH_SetProxyArpv6(address.word1(), address.word2(), lif.c_str(), instance.c_str()), "set_proxy_arp_v6");
}
[[nodiscard]] inline std::error_code try_set_proxy_arp_v6(
    ipv6 address, lif_argument lif, instance_argument instance) noexcept
{
    return detail::code_of(::LUMOZEPH_SetProxyArpv6(address.word1(), address.word2(), lif.c_str(), instance.c_str()));
}

/**
 * Deletes a proxy entry of IPv6.
 *
 * @param address   the address
 * @param lif       name of the LIF that the entry is on, unterminated at 64 bytes
 * @param instance  the instance's key, unterminated at 64 bytes
 */
inline void del_proxy_arp_v6(ipv6 address, lif_argument lif, instance_argument instance)
{
    detail::check(
        ::LUMOZEPH_DelProxyArpv6(address.word1(), address.word2(), lif.c_str(), instance.c_str()), "del_proxy_arp_v6");
}
[[nodiscard]] inline std::error_code try_del_proxy_arp_v6(
    ipv6 address, lif_argument lif, instance_argument instance) noexcept
{
    return detail::code_of(::LUMOZEPH_DelProxyArpv6(address.word1(), address.word2(), lif.c_str(), instance.c_str()));
}

/**
 * Reads the IPv6 neighbours of a LIF, or of a whole instance.
 *
 * @param instance  the instance's key, unterminated at 64 bytes
 * @param lif       the LIF's name, unterminated at 64 bytes; left out: those of the whole instance
 * @return          LUMOZEPH_ARP_TABLE_SIZE bytes
 */
inline raw<LUMOZEPH_ARP_TABLE_SIZE> get_arps_v6(instance_argument instance, maybe<lif_argument> lif = {})
{
    raw<LUMOZEPH_ARP_TABLE_SIZE> buffer;
    detail::check(::LUMOZEPH_GetArpsv6(instance.c_str(), lif.c_str(), buffer.data()), "get_arps_v6");
    return buffer;
}
[[nodiscard]] inline std::error_code try_get_arps_v6(
    instance_argument instance, maybe<lif_argument> lif, raw<LUMOZEPH_ARP_TABLE_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_GetArpsv6(instance.c_str(), lif.c_str(), buffer.data()));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * lif_policies: Interface policies
 *
 * Route-shaped entries kept under a policy kind; kind 4 carries a text that names what the policy applies to.
 * ------------------------------------------------------------------------------------------------------------------ */

/** The arguments of set_lif_policy. */
struct set_lif_policy_arguments
{
    std::int32_t kind = 0; /**< the policy's kind */
    maybe<text_argument> text =
        {}; /**< ignored unless kind is 4, at most 63 bytes; left out: EINVAL if kind is 4, and otherwise none */
    ipv4_prefix dest;             /**< IPv4 address of the destination network, and its mask */
    ipv4 gateway;                 /**< IPv4 address of the next hop */
    maybe<lif_argument> lif = {}; /**< name of the LIF, at most 63 bytes; left out: none */
    instance_argument instance;   /**< the instance's key, at most 63 bytes */
    std::uint32_t param = 0;      /**< passed on as it stands */
};

/**
 * Adds an interface policy.
 *
 * @param[out] answer  the module's answer; null: it is not asked for
 */
inline void set_lif_policy(const set_lif_policy_arguments& with, cmd_result* answer = nullptr)
{
    detail::check(
        ::LUMOZEPH_SetLifPolicy(with.kind, with.text.c_str(), with.dest.address().value(), with.dest.mask().value(),
            with.gateway.value(), with.lif.c_str(), with.instance.c_str(), with.param, answer),
        "set_lif_policy");
}
[[nodiscard]] inline std::error_code try_set_lif_policy(
    const set_lif_policy_arguments& with, cmd_result* answer = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLifPolicy(with.kind, with.text.c_str(), with.dest.address().value(),
        with.dest.mask().value(), with.gateway.value(), with.lif.c_str(), with.instance.c_str(), with.param, answer));
}

/** The arguments of del_lif_policy. */
struct del_lif_policy_arguments
{
    std::int32_t kind = 0; /**< the policy's kind */
    maybe<text_argument> text =
        {}; /**< ignored unless kind is 4, at most 63 bytes; left out: EINVAL if kind is 4, and otherwise none */
    ipv4_prefix dest;             /**< IPv4 address of the destination network, and its mask */
    ipv4 gateway;                 /**< IPv4 address of the next hop */
    maybe<lif_argument> lif = {}; /**< name of the LIF, at most 63 bytes; left out: none */
    instance_argument instance;   /**< the instance's key, at most 63 bytes */
    std::uint32_t param = 0;      /**< passed on as it stands */
};

/**
 * Deletes an interface policy.
 *
 * @param[out] answer  the module's answer; null: it is not asked for
 */
inline void del_lif_policy(const del_lif_policy_arguments& with, cmd_result* answer = nullptr)
{
    detail::check(
        ::LUMOZEPH_DelLifPolicy(with.kind, with.text.c_str(), with.dest.address().value(), with.dest.mask().value(),
            with.gateway.value(), with.lif.c_str(), with.instance.c_str(), with.param, answer),
        "del_lif_policy");
}
[[nodiscard]] inline std::error_code try_del_lif_policy(
    const del_lif_policy_arguments& with, cmd_result* answer = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_DelLifPolicy(with.kind, with.text.c_str(), with.dest.address().value(),
        with.dest.mask().value(), with.gateway.value(), with.lif.c_str(), with.instance.c_str(), with.param, answer));
}

/**
 * Reads an instance's interface policies of one kind, as route records.
 *
 * @param instance  its key, at most 63 bytes
 * @param kind      the policies' kind
 * @param text      sent whatever the kind, at most 63 bytes; left out: EINVAL if kind is 4, and otherwise none
 * @return          the list
 */
inline route_list get_lif_policies(instance_argument instance, std::uint32_t kind, maybe<text_argument> text = {})
{
    LumoRouteList* out = nullptr;
    detail::check(::LUMOZEPH_GetLifPolicies(instance.c_str(), kind, text.c_str(), &out), "get_lif_policies");
    return route_list(out);
}
[[nodiscard]] inline std::error_code try_get_lif_policies(
    instance_argument instance, std::uint32_t kind, maybe<text_argument> text, route_list& result) noexcept
{
    LumoRouteList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetLifPolicies(instance.c_str(), kind, text.c_str(), &out), out, result);
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * policies: Policies
 *
 * Policies lie in policy tables, which are numbered and belong to the module as a whole, not to an instance. A policy
 * is named by two numbers within its table.
 * ------------------------------------------------------------------------------------------------------------------ */

/** One policy as the module reports it. */
using policy_info = ::LumoPolicyInfo;
/** Policies. */
using policy_list = list<::LumoPolicyList, ::LUMOZEPH_ReleaseAllPolicy, LUMOZEPH_POLICIES_MAX>;

/**
 * Reads the policies of one table.
 *
 * @param table  the table's number
 * @return       the list
 */
inline policy_list get_policy(std::uint32_t table)
{
    LumoPolicyList* out = nullptr;
    detail::check(::LUMOZEPH_GetPolicy(table, &out), "get_policy");
    return policy_list(out);
}
[[nodiscard]] inline std::error_code try_get_policy(std::uint32_t table, policy_list& result) noexcept
{
    LumoPolicyList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetPolicy(table, &out), out, result);
}

/**
 * Counts the policies of one table.
 *
 * Of the request, 768 bytes are sent as the stack held them. If the module's reply is too short (EBADMSG), 4 bytes stay
 * allocated.
 *
 * @param table   the table's number
 * @return        the number of policies
 * @throws error  ENOMEM: the library could not allocate memory for the module's reply
 * @throws error  EBADMSG: the module's reply is shorter than 4 bytes
 */
inline std::uint32_t get_policy_count(std::uint32_t table)
{
    std::uint32_t count {};
    detail::check(::LUMOZEPH_GetPolicyCount(table, &count), "get_policy_count");
    return count;
}
[[nodiscard]] inline std::error_code try_get_policy_count(std::uint32_t table, std::uint32_t& result) noexcept
{
    return detail::code_of(::LUMOZEPH_GetPolicyCount(table, &result));
}

/** The arguments of set_policy. */
struct set_policy_arguments
{
    std::uint32_t table = 0; /**< the table's number */
    std::uint32_t key1 = 0;  /**< first of the two numbers that name the policy */
    std::uint32_t key2 = 0;  /**< second of them */
    std::uint32_t value = 0; /**< stored with the policy */
};

/**
 * Sets a policy.
 *
 * @param[out] answer  the module's answer; null: it is not asked for
 */
inline void set_policy(const set_policy_arguments& with, cmd_result* answer = nullptr)
{
    detail::check(::LUMOZEPH_SetPolicy(with.table, with.key1, with.key2, with.value, answer), "set_policy");
}
[[nodiscard]] inline std::error_code try_set_policy(
    const set_policy_arguments& with, cmd_result* answer = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_SetPolicy(with.table, with.key1, with.key2, with.value, answer));
}

/** The arguments of del_policy. */
struct del_policy_arguments
{
    std::uint32_t table = 0; /**< the table's number */
    std::uint32_t key1 = 0;  /**< first of the two numbers that name the policy */
    std::uint32_t key2 = 0;  /**< second of them */
};

/**
 * Deletes a policy.
 *
 * @param[out] answer  the module's answer; null: it is not asked for
 */
inline void del_policy(const del_policy_arguments& with, cmd_result* answer = nullptr)
{
    detail::check(::LUMOZEPH_DelPolicy(with.table, with.key1, with.key2, answer), "del_policy");
}
[[nodiscard]] inline std::error_code try_del_policy(
    const del_policy_arguments& with, cmd_result* answer = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_DelPolicy(with.table, with.key1, with.key2, answer));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * policy_tables: Policy tables, and the references from interfaces to them
 * ------------------------------------------------------------------------------------------------------------------ */

/** One policy table as the module reports it. */
using policy_table_info = ::LumoPolicyTableInfo;
/** One reference to a policy table, as the module lays it out. */
using policy_table_ref_entry = ::LumoPolicyTableRefEntry;
/** The references from one LIF to policy tables. */
using lif_policy_table_ref = ::LumoLifPolicyTableRef;
using owned_lif_policy_table_ref = owned<::LumoLifPolicyTableRef, ::LUMOZEPH_ReleaseLifPolicyTableRef>;
/** Policy tables. */
using policy_table_list = list<::LumoPolicyTableList, ::LUMOZEPH_ReleaseAllPolicyTable, LUMOZEPH_POLICY_TABLES_MAX>;

/** refs of a record: as many as refCount says, but no more than there is room for. */
inline view<const policy_table_ref_entry> refs(const lif_policy_table_ref& of) noexcept
{
    return {of.refs, std::min<std::size_t>(of.refCount, 20)};
}
inline view<const policy_table_ref_entry> refs(const lif_policy_table_ref&& of) = delete;

/**
 * Reads the policy tables.
 *
 * @return  the list
 */
inline policy_table_list get_policy_table()
{
    LumoPolicyTableList* out = nullptr;
    detail::check(::LUMOZEPH_GetPolicyTable(&out), "get_policy_table");
    return policy_table_list(out);
}
[[nodiscard]] inline std::error_code try_get_policy_table(policy_table_list& result) noexcept
{
    LumoPolicyTableList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetPolicyTable(&out), out, result);
}

/**
 * Creates a policy table.
 *
 * @param table        its number
 * @param name         its name, at most 63 bytes
 * @param[out] answer  the module's answer; null: it is not asked for
 */
inline void set_policy_table(std::uint32_t table, policy_table_name_argument name, cmd_result* answer = nullptr)
{
    detail::check(::LUMOZEPH_SetPolicyTable(table, name.c_str(), answer), "set_policy_table");
}
[[nodiscard]] inline std::error_code try_set_policy_table(
    std::uint32_t table, policy_table_name_argument name, cmd_result* answer = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_SetPolicyTable(table, name.c_str(), answer));
}

/**
 * Deletes a policy table.
 *
 * @param table        its number
 * @param[out] answer  the module's answer; null: it is not asked for
 */
inline void del_policy_table(std::uint32_t table, cmd_result* answer = nullptr)
{
    detail::check(::LUMOZEPH_DelPolicyTable(table, answer), "del_policy_table");
}
[[nodiscard]] inline std::error_code try_del_policy_table(std::uint32_t table, cmd_result* answer = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_DelPolicyTable(table, answer));
}

/**
 * Reads a LIF's references to policy tables.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param lif       the LIF's name, at most 63 bytes
 * @return          the record
 */
inline owned_lif_policy_table_ref get_lif_policy_table_ref(instance_argument instance, lif_argument lif)
{
    LumoLifPolicyTableRef* out = nullptr;
    detail::check(::LUMOZEPH_GetLifPolicyTableRef(instance.c_str(), lif.c_str(), &out), "get_lif_policy_table_ref");
    return owned_lif_policy_table_ref(out);
}
[[nodiscard]] inline std::error_code try_get_lif_policy_table_ref(
    instance_argument instance, lif_argument lif, owned_lif_policy_table_ref& result) noexcept
{
    LumoLifPolicyTableRef* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetLifPolicyTableRef(instance.c_str(), lif.c_str(), &out), out, result);
}

/**
 * Sets a LIF's references to policy tables.
 *
 * @param instance     the instance's key, at most 63 bytes
 * @param lif          the LIF's name, at most 63 bytes
 * @param entries      at most LUMOZEPH_POLICY_TABLE_REFS_MAX. A larger number is itself sent, but of its entries only
 *                     what fits into the request
 * @param[out] answer  the module's answer; null: it is not asked for
 */
inline void set_lif_policy_table_ref(instance_argument instance, lif_argument lif,
    view<const policy_table_ref_entry> entries = {}, cmd_result* answer = nullptr)
{
    detail::check(::LUMOZEPH_SetLifPolicyTableRef(instance.c_str(), lif.c_str(),
                      detail::counted<std::uint16_t>(entries.size()), entries.data(), answer),
        "set_lif_policy_table_ref");
}
[[nodiscard]] inline std::error_code try_set_lif_policy_table_ref(instance_argument instance, lif_argument lif,
    view<const policy_table_ref_entry> entries = {}, cmd_result* answer = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_SetLifPolicyTableRef(
        instance.c_str(), lif.c_str(), detail::counted<std::uint16_t>(entries.size()), entries.data(), answer));
}

/**
 * Deletes a LIF's references to policy tables.
 *
 * @param instance     the instance's key, at most 63 bytes
 * @param lif          the LIF's name, at most 63 bytes
 * @param[out] answer  the module's answer; null: it is not asked for
 */
inline void del_lif_policy_table_ref(instance_argument instance, lif_argument lif, cmd_result* answer = nullptr)
{
    detail::check(::LUMOZEPH_DelLifPolicyTableRef(instance.c_str(), lif.c_str(), answer), "del_lif_policy_table_ref");
}
[[nodiscard]] inline std::error_code try_del_lif_policy_table_ref(
    instance_argument instance, lif_argument lif, cmd_result* answer = nullptr) noexcept
{
    return detail::code_of(::LUMOZEPH_DelLifPolicyTableRef(instance.c_str(), lif.c_str(), answer));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * bridges: Bridges
 *
 * Layer-2 bridges, named by an instance key as router instances are.
 * ------------------------------------------------------------------------------------------------------------------ */

/** One bridge as the module reports it. */
using bridge_instance_info = ::LumoBridgeInstanceInfo;
using owned_bridge_instance_info = owned<::LumoBridgeInstanceInfo, ::LUMOZEPH_ReleaseBridgeInstance>;
/** Bridges. */
using bridge_instance_list = list<::LumoBridgeInstanceList, ::LUMOZEPH_ReleaseBridgeInstances, LUMOZEPH_BRIDGES_MAX>;

/**
 * Reads one bridge.
 *
 * @param key  its key, at most 63 bytes
 * @return     the record
 */
inline owned_bridge_instance_info get_bridge_instance(bridge_argument key)
{
    LumoBridgeInstanceInfo* out = nullptr;
    detail::check(::LUMOZEPH_GetBridgeInstance(key.c_str(), &out), "get_bridge_instance");
    return owned_bridge_instance_info(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_instance(
    bridge_argument key, owned_bridge_instance_info& result) noexcept
{
    LumoBridgeInstanceInfo* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetBridgeInstance(key.c_str(), &out), out, result);
}

/**
 * Reads all bridges.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @return  the list
 */
inline bridge_instance_list get_bridge_instances()
{
    LumoBridgeInstanceList* out = nullptr;
    detail::check(::LUMOZEPH_GetBridgeInstances(&out), "get_bridge_instances");
    return bridge_instance_list(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_instances(bridge_instance_list& result) noexcept
{
    LumoBridgeInstanceList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetBridgeInstances(&out), out, result);
}

/**
 * Creates a bridge.
 *
 * @param key    its key, at most 63 bytes
 * @param value  passed on as it stands
 */
inline void bridge_add(bridge_argument key, std::uint32_t value)
{
    detail::check(::LUMOZEPH_BridgeAdd(key.c_str(), value), "bridge_add");
}
[[nodiscard]] inline std::error_code try_bridge_add(bridge_argument key, std::uint32_t value) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeAdd(key.c_str(), value));
}

/**
 * Removes a bridge.
 *
 * @param key    its key, at most 63 bytes
 * @param value  passed on as it stands
 */
inline void bridge_del(bridge_argument key, std::uint32_t value)
{
    detail::check(::LUMOZEPH_BridgeDel(key.c_str(), value), "bridge_del");
}
[[nodiscard]] inline std::error_code try_bridge_del(bridge_argument key, std::uint32_t value) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeDel(key.c_str(), value));
}

/**
 * Switches a bridge on.
 *
 * @param key    its key, at most 63 bytes
 * @param value  one byte, passed on as it stands; it does not choose between on and off
 */
inline void bridge_enable(bridge_argument key, std::uint8_t value)
{
    detail::check(::LUMOZEPH_BridgeEnable(key.c_str(), value), "bridge_enable");
}
[[nodiscard]] inline std::error_code try_bridge_enable(bridge_argument key, std::uint8_t value) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeEnable(key.c_str(), value));
}

/**
 * Switches a bridge off.
 *
 * @param key    its key, at most 63 bytes
 * @param value  one byte, passed on as it stands; it does not choose between on and off
 */
inline void bridge_disable(bridge_argument key, std::uint8_t value)
{
    detail::check(::LUMOZEPH_BridgeDisable(key.c_str(), value), "bridge_disable");
}
[[nodiscard]] inline std::error_code try_bridge_disable(bridge_argument key, std::uint8_t value) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeDisable(key.c_str(), value));
}

/**
 * Sets a bridge's high-availability administrative state.
 *
 * @param key    its key, at most 63 bytes
 * @param state  passed on as it stands
 */
inline void bridge_set_ha_admin_state(bridge_argument key, std::uint32_t state)
{
    detail::check(::LUMOZEPH_BridgeSetHAAdminState(key.c_str(), state), "bridge_set_ha_admin_state");
}
[[nodiscard]] inline std::error_code try_bridge_set_ha_admin_state(bridge_argument key, std::uint32_t state) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeSetHAAdminState(key.c_str(), state));
}

/**
 * Sets a bridge's replication mode.
 *
 * @param key   its key, at most 63 bytes
 * @param mode  passed on as it stands
 */
inline void set_bridge_rep_mode(bridge_argument key, std::uint32_t mode)
{
    detail::check(::LUMOZEPH_SetBridgeRepMode(key.c_str(), mode), "set_bridge_rep_mode");
}
[[nodiscard]] inline std::error_code try_set_bridge_rep_mode(bridge_argument key, std::uint32_t mode) noexcept
{
    return detail::code_of(::LUMOZEPH_SetBridgeRepMode(key.c_str(), mode));
}

/** The arguments of bridge_set_config. */
struct bridge_set_config_arguments
{
    bridge_argument key;      /**< the bridge's key, at most 63 bytes */
    std::int32_t command = 0; /**< the number that is sent, sign-extended */
    std::uint32_t value = 0;  /**< passed on as it stands */
};

/**
 * Sets one numeric setting of a bridge, which the command number chooses.
 *
 * The number is sent unchecked, also that of a command of another chapter. No room is offered for a reply.
 */
inline void bridge_set_config(const bridge_set_config_arguments& with)
{
    detail::check(::LUMOZEPH_BridgeSetConfig(with.key.c_str(), with.command, with.value), "bridge_set_config");
}
[[nodiscard]] inline std::error_code try_bridge_set_config(const bridge_set_config_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeSetConfig(with.key.c_str(), with.command, with.value));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * networks: Bridge networks and ports
 * ------------------------------------------------------------------------------------------------------------------ */

/** One network of a bridge as the module reports it. */
using bridge_network_info = ::LumoBridgeNetworkInfo;
/** One port of a bridge as the module reports it. */
using bridge_port_info = ::LumoBridgePortInfo;
/** Networks of a bridge. */
using bridge_network_list =
    list<::LumoBridgeNetworkList, ::LUMOZEPH_ReleaseBridgeNetworks, LUMOZEPH_BRIDGE_NETWORKS_MAX>;
/** Ports of a bridge. */
using bridge_port_list = list<::LumoBridgePortList, ::LUMOZEPH_ReleaseBridgePorts, LUMOZEPH_BRIDGE_PORTS_MAX>;

/**
 * Reads a bridge's networks.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param key  the bridge's key, at most 63 bytes
 * @return     the list
 */
inline bridge_network_list get_bridge_networks(bridge_argument key)
{
    LumoBridgeNetworkList* out = nullptr;
    detail::check(::LUMOZEPH_GetBridgeNetworks("", key.c_str(), &out), "get_bridge_networks");
    return bridge_network_list(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_networks(bridge_argument key, bridge_network_list& result) noexcept
{
    LumoBridgeNetworkList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetBridgeNetworks("", key.c_str(), &out), out, result);
}

/** The arguments of get_bridge_ports. */
struct get_bridge_ports_arguments
{
    bridge_argument key;       /**< the bridge's key, at most 63 bytes */
    std::uint16_t value16 = 0; /**< first of the two values that select the ports; sent as 32 bits */
    std::uint32_t value32 = 0; /**< second of them */
};

/**
 * Reads a bridge's ports.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @return  the list
 */
inline bridge_port_list get_bridge_ports(const get_bridge_ports_arguments& with)
{
    LumoBridgePortList* out = nullptr;
    detail::check(
        ::LUMOZEPH_GetBridgePorts("", with.key.c_str(), with.value16, with.value32, &out), "get_bridge_ports");
    return bridge_port_list(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_ports(
    const get_bridge_ports_arguments& with, bridge_port_list& result) noexcept
{
    LumoBridgePortList* out = nullptr;
    return detail::handed_over(
        ::LUMOZEPH_GetBridgePorts("", with.key.c_str(), with.value16, with.value32, &out), out, result);
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * fdb: Forwarding table, FL table and PMACs
 *
 * Read, set and clear of a forwarding table have two selectors, whose meaning is the module's. The first one has 16
 * bits in the read and 32 in the set and the clear; all send it as 32.
 * ------------------------------------------------------------------------------------------------------------------ */

/** One entry of a bridge's forwarding table as the module reports it. */
using bridge_fdb_entry = ::LumoBridgeFdbEntry;
/** Entries of a bridge's forwarding table. */
using bridge_fdb_list = list<::LumoBridgeFdbList, ::LUMOZEPH_ReleaseBridgeFdbEntries, LUMOZEPH_BRIDGE_FDB_ENTRIES_MAX>;

/** The arguments of get_bridge_fdb_entries. */
struct get_bridge_fdb_entries_arguments
{
    bridge_argument key;       /**< the bridge's key, at most 63 bytes */
    std::uint16_t value16 = 0; /**< first selector */
    std::uint32_t value32 = 0; /**< second selector */
};

/**
 * Reads entries of a bridge's forwarding table.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @return  the list
 */
inline bridge_fdb_list get_bridge_fdb_entries(const get_bridge_fdb_entries_arguments& with)
{
    LumoBridgeFdbList* out = nullptr;
    detail::check(
        ::LUMOZEPH_GetBridgeFdbEntries(with.key.c_str(), with.value16, with.value32, &out), "get_bridge_fdb_entries");
    return bridge_fdb_list(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_fdb_entries(
    const get_bridge_fdb_entries_arguments& with, bridge_fdb_list& result) noexcept
{
    LumoBridgeFdbList* out = nullptr;
    return detail::handed_over(
        ::LUMOZEPH_GetBridgeFdbEntries(with.key.c_str(), with.value16, with.value32, &out), out, result);
}

/** The arguments of bridge_set_fdb_entry. */
struct bridge_set_fdb_entry_arguments
{
    bridge_argument key;               /**< the bridge's key, at most 63 bytes */
    maybe<mac_text_argument> mac = {}; /**< the MAC address as text, at most 17 bytes; left out: none */
    std::uint32_t selector1 = 0;       /**< first selector */
    std::uint32_t selector2 = 0;       /**< second selector */
    std::uint32_t value = 0;           /**< passed on as it stands */
    std::uint8_t flags = 0;            /**< passed on as they stand */
};

/** Sets an entry of a bridge's forwarding table. */
inline void bridge_set_fdb_entry(const bridge_set_fdb_entry_arguments& with)
{
    detail::check(::LUMOZEPH_BridgeSetFdbEntry(
                      with.key.c_str(), with.mac.c_str(), with.selector1, with.selector2, with.value, with.flags),
        "bridge_set_fdb_entry");
}
[[nodiscard]] inline std::error_code try_bridge_set_fdb_entry(const bridge_set_fdb_entry_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeSetFdbEntry(
        with.key.c_str(), with.mac.c_str(), with.selector1, with.selector2, with.value, with.flags));
}

/** The arguments of bridge_clear_fdb_table. */
struct bridge_clear_fdb_table_arguments
{
    bridge_argument key;         /**< the bridge's key, at most 63 bytes */
    std::uint32_t selector1 = 0; /**< first selector */
    std::uint32_t selector2 = 0; /**< second selector */
};

/** Clears a bridge's forwarding table. */
inline void bridge_clear_fdb_table(const bridge_clear_fdb_table_arguments& with)
{
    detail::check(
        ::LUMOZEPH_BridgeClearFdbTable(with.key.c_str(), with.selector1, with.selector2), "bridge_clear_fdb_table");
}
[[nodiscard]] inline std::error_code try_bridge_clear_fdb_table(const bridge_clear_fdb_table_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeClearFdbTable(with.key.c_str(), with.selector1, with.selector2));
}

/**
 * Reads the module's FL table.
 *
 * @param selector  passed on as it stands
 * @return          LUMOZEPH_FL_TABLE_SIZE bytes
 */
inline raw<LUMOZEPH_FL_TABLE_SIZE> dump_fl_table(std::uint16_t selector)
{
    raw<LUMOZEPH_FL_TABLE_SIZE> buffer;
    detail::check(::LUMOZEPH_DumpFLTable(selector, buffer.data()), "dump_fl_table");
    return buffer;
}
[[nodiscard]] inline std::error_code try_dump_fl_table(
    std::uint16_t selector, raw<LUMOZEPH_FL_TABLE_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_DumpFLTable(selector, buffer.data()));
}

/**
 * Reads the PMAC table.
 *
 * @return  LUMOZEPH_PMAC_TABLE_SIZE bytes
 */
inline raw<LUMOZEPH_PMAC_TABLE_SIZE> get_pmac()
{
    raw<LUMOZEPH_PMAC_TABLE_SIZE> buffer;
    detail::check(::LUMOZEPH_GetPmac(buffer.data()), "get_pmac");
    return buffer;
}
[[nodiscard]] inline std::error_code try_get_pmac(raw<LUMOZEPH_PMAC_TABLE_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_GetPmac(buffer.data()));
}

/**
 * Adds a PMAC.
 *
 * @param value  passed on as it stands
 * @param mac    the MAC address; left out: none, which sends six zero bytes
 */
inline void add_pmac(std::uint32_t value, std::optional<lumozeph::mac> mac = {})
{
    detail::check(::LUMOZEPH_AddPmac(value, mac ? mac->data() : nullptr), "add_pmac");
}
[[nodiscard]] inline std::error_code try_add_pmac(std::uint32_t value, std::optional<lumozeph::mac> mac = {}) noexcept
{
    return detail::code_of(::LUMOZEPH_AddPmac(value, mac ? mac->data() : nullptr));
}

/**
 * Deletes a PMAC.
 *
 * @param mac  the MAC address; left out: none, which sends six zero bytes
 */
inline void del_pmac(std::optional<lumozeph::mac> mac = {})
{
    detail::check(::LUMOZEPH_DelPmac(mac ? mac->data() : nullptr), "del_pmac");
}
[[nodiscard]] inline std::error_code try_del_pmac(std::optional<lumozeph::mac> mac = {}) noexcept
{
    return detail::code_of(::LUMOZEPH_DelPmac(mac ? mac->data() : nullptr));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * clusters: Bridge clusters, their nodes and the local transport node
 *
 * Clusters are named by an instance key, as bridges are.
 * ------------------------------------------------------------------------------------------------------------------ */

/** One cluster as the module reports it. */
using bridge_cluster_info = ::LumoBridgeClusterInfo;
/** One node of a cluster as the module reports it. */
using bridge_cluster_node_info = ::LumoBridgeClusterNodeInfo;
/** Clusters. */
using bridge_cluster_list =
    list<::LumoBridgeClusterList, ::LUMOZEPH_ReleaseBridgeClusters, LUMOZEPH_BRIDGE_CLUSTERS_MAX>;
/** Nodes of clusters. */
using bridge_cluster_node_list =
    list<::LumoBridgeClusterNodeList, ::LUMOZEPH_ReleaseBridgeClusterNodes, LUMOZEPH_BRIDGE_CLUSTER_NODES_MAX>;

/**
 * Reads the locale identifier.
 *
 * @return  LUMOZEPH_LOCALE_ID_SIZE bytes
 */
inline raw<LUMOZEPH_LOCALE_ID_SIZE> get_locale_id()
{
    raw<LUMOZEPH_LOCALE_ID_SIZE> buffer;
    detail::check(::LUMOZEPH_GetLocaleId(buffer.data()), "get_locale_id");
    return buffer;
}
[[nodiscard]] inline std::error_code try_get_locale_id(raw<LUMOZEPH_LOCALE_ID_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_GetLocaleId(buffer.data()));
}

/**
 * Reads clusters.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param key  an instance key, at most 63 bytes; left out: no key is sent
 * @return     the list
 */
inline bridge_cluster_list get_bridge_clusters(maybe<instance_key_argument> key = {})
{
    LumoBridgeClusterList* out = nullptr;
    detail::check(::LUMOZEPH_GetBridgeClusters(key.c_str(), &out), "get_bridge_clusters");
    return bridge_cluster_list(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_clusters(
    maybe<instance_key_argument> key, bridge_cluster_list& result) noexcept
{
    LumoBridgeClusterList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetBridgeClusters(key.c_str(), &out), out, result);
}

/**
 * Sets a cluster, or removes it.
 *
 * @param key  its key, at most 63 bytes
 * @param on   on: sets; off: removes
 */
inline void bridge_cluster_set(cluster_argument key, switched on)
{
    detail::check(::LUMOZEPH_BridgeClusterSet(key.c_str(), static_cast<std::int8_t>(on)), "bridge_cluster_set");
}
[[nodiscard]] inline std::error_code try_bridge_cluster_set(cluster_argument key, switched on) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeClusterSet(key.c_str(), static_cast<std::int8_t>(on)));
}

/**
 * Reads nodes of clusters.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param key  an instance key, at most 63 bytes; left out: no key is sent
 * @return     the list
 */
inline bridge_cluster_node_list get_bridge_cluster_nodes(maybe<instance_key_argument> key = {})
{
    LumoBridgeClusterNodeList* out = nullptr;
    detail::check(::LUMOZEPH_GetBridgeClusterNodes(key.c_str(), &out), "get_bridge_cluster_nodes");
    return bridge_cluster_node_list(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_cluster_nodes(
    maybe<instance_key_argument> key, bridge_cluster_node_list& result) noexcept
{
    LumoBridgeClusterNodeList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetBridgeClusterNodes(key.c_str(), &out), out, result);
}

/** The arguments of bridge_cluster_node_set. */
struct bridge_cluster_node_set_arguments
{
    cluster_argument key;                  /**< the cluster's key, at most 63 bytes */
    node_argument node;                    /**< the node's name, at most 63 bytes */
    std::optional<lumozeph::mac> mac = {}; /**< the MAC address; left out, if on is off: it is neither read nor sent */
    switched on;                           /**< on: sets; off: removes */
};

/**
 * Sets a node of a cluster, or removes it.
 *
 * @throws error  EINVAL: mac is left out though on is not off
 */
inline void bridge_cluster_node_set(const bridge_cluster_node_set_arguments& with)
{
    if (!with.mac && with.on != switched::off)
        detail::check(detail::rejected(), "bridge_cluster_node_set");
    detail::check(::LUMOZEPH_BridgeClusterNodeSet(with.key.c_str(), with.node.c_str(),
                      with.mac ? with.mac->data() : nullptr, static_cast<std::int8_t>(with.on)),
        "bridge_cluster_node_set");
}
[[nodiscard]] inline std::error_code try_bridge_cluster_node_set(const bridge_cluster_node_set_arguments& with) noexcept
{
    if (!with.mac && with.on != switched::off)
        return detail::rejected();
    return detail::code_of(::LUMOZEPH_BridgeClusterNodeSet(
        with.key.c_str(), with.node.c_str(), with.mac ? with.mac->data() : nullptr, static_cast<std::int8_t>(with.on)));
}

/** The arguments of bridge_local_transport_node_set. */
struct bridge_local_transport_node_set_arguments
{
    text_argument text1;     /**< at most 63 bytes */
    text_argument text2;     /**< at most 63 bytes */
    text_argument text3;     /**< at most 15 bytes */
    std::uint32_t value = 0; /**< passed on as it stands */
    bytes_argument<LUMOZEPH_LOCAL_TRANSPORT_BLOCK_SIZE>
        block;   /**< LUMOZEPH_LOCAL_TRANSPORT_BLOCK_SIZE bytes, sent as they stand */
    switched on; /**< chooses between two commands of the module, which are sent the same values */
};

/** Sets the local transport node. */
inline void bridge_local_transport_node_set(const bridge_local_transport_node_set_arguments& with)
{
    detail::check(::LUMOZEPH_BridgeLocalTransportNodeSet(with.text1.c_str(), with.text2.c_str(), with.text3.c_str(),
                      with.value, with.block.data(), static_cast<std::int8_t>(with.on)),
        "bridge_local_transport_node_set");
}
[[nodiscard]] inline std::error_code try_bridge_local_transport_node_set(
    const bridge_local_transport_node_set_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeLocalTransportNodeSet(with.text1.c_str(), with.text2.c_str(),
        with.text3.c_str(), with.value, with.block.data(), static_cast<std::int8_t>(with.on)));
}

/**
 * Reads the local transport node.
 *
 * @param selector  passed on as it stands
 * @return          LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE bytes
 */
inline raw<LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE> bridge_get_local_transport_node(std::uint32_t selector)
{
    raw<LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE> buffer;
    detail::check(::LUMOZEPH_BridgeGetLocalTransportNode(buffer.data(), selector), "bridge_get_local_transport_node");
    return buffer;
}
[[nodiscard]] inline std::error_code try_bridge_get_local_transport_node(
    std::uint32_t selector, raw<LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_BridgeGetLocalTransportNode(buffer.data(), selector));
}

/**
 * Flushes a cluster.
 *
 * @param key  its key, at most 63 bytes; left out: no key is sent
 * @param on   chooses between two commands of the module
 */
inline void flush_bridge_cluster(maybe<cluster_argument> key, switched on)
{
    detail::check(::LUMOZEPH_FlushBridgeCluster(key.c_str(), static_cast<std::int8_t>(on)), "flush_bridge_cluster");
}
[[nodiscard]] inline std::error_code try_flush_bridge_cluster(maybe<cluster_argument> key, switched on) noexcept
{
    return detail::code_of(::LUMOZEPH_FlushBridgeCluster(key.c_str(), static_cast<std::int8_t>(on)));
}

/**
 * Sets the debug level of a cluster.
 *
 * @param key    its key, at most 63 bytes; left out: no key is sent
 * @param level  passed on as it stands
 */
inline void set_bridge_cluster_debug(maybe<cluster_argument> key, std::uint8_t level)
{
    detail::check(::LUMOZEPH_SetBridgeClusterDebug(key.c_str(), level), "set_bridge_cluster_debug");
}
[[nodiscard]] inline std::error_code try_set_bridge_cluster_debug(
    maybe<cluster_argument> key, std::uint8_t level) noexcept
{
    return detail::code_of(::LUMOZEPH_SetBridgeClusterDebug(key.c_str(), level));
}

/** The arguments of bridge_cluster_bfd_ha_profile_set. */
struct bridge_cluster_bfd_ha_profile_set_arguments
{
    cluster_argument key;     /**< its key, at most 63 bytes */
    std::uint8_t flag = 0;    /**< passed on as it stands */
    std::uint32_t value1 = 0; /**< passed on as it stands */
    std::uint32_t value2 = 0; /**< passed on as it stands */
};

/** Sets the BFD high-availability profile of a cluster. */
inline void bridge_cluster_bfd_ha_profile_set(const bridge_cluster_bfd_ha_profile_set_arguments& with)
{
    detail::check(::LUMOZEPH_BridgeClusterBfdHAProfileSet(with.key.c_str(), with.flag, with.value1, with.value2),
        "bridge_cluster_bfd_ha_profile_set");
}
[[nodiscard]] inline std::error_code try_bridge_cluster_bfd_ha_profile_set(
    const bridge_cluster_bfd_ha_profile_set_arguments& with) noexcept
{
    return detail::code_of(
        ::LUMOZEPH_BridgeClusterBfdHAProfileSet(with.key.c_str(), with.flag, with.value1, with.value2));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * endpoints: Bridge endpoints
 * ------------------------------------------------------------------------------------------------------------------ */

/** One bridge endpoint as the module reports it. */
using bridge_endpoint_info = ::LumoBridgeEndpointInfo;
/** Bridge endpoints. */
using bridge_endpoint_list =
    list<::LumoBridgeEndpointList, ::LUMOZEPH_ReleaseBridgeEndpoints, LUMOZEPH_BRIDGE_ENDPOINTS_MAX>;

/** The arguments of add_bridge_endpoint. */
struct add_bridge_endpoint_arguments
{
    endpoint_argument key;       /**< its key, at most 63 bytes */
    text_argument text1;         /**< at most 63 bytes */
    endpoint_name_argument name; /**< its name, at most 63 bytes */
    std::uint32_t value1 = 0;    /**< passed on as it stands */
    std::uint32_t value2 = 0;    /**< passed on as it stands */
    text_argument text2;         /**< at most 63 bytes */
    std::uint16_t value3 = 0;    /**< passed on as it stands */
    std::uint8_t flag1 = 0;      /**< passed on as it stands */
    text_argument text3;         /**< at most 63 bytes */
    std::uint8_t flag2 = 0;      /**< passed on as it stands */
};

/** Adds a bridge endpoint. */
inline void add_bridge_endpoint(const add_bridge_endpoint_arguments& with)
{
    detail::check(::LUMOZEPH_AddBridgeEndpoint(with.key.c_str(), with.text1.c_str(), with.name.c_str(), with.value1,
                      with.value2, with.text2.c_str(), with.value3, with.flag1, with.text3.c_str(), with.flag2),
        "add_bridge_endpoint");
}
[[nodiscard]] inline std::error_code try_add_bridge_endpoint(const add_bridge_endpoint_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_AddBridgeEndpoint(with.key.c_str(), with.text1.c_str(), with.name.c_str(),
        with.value1, with.value2, with.text2.c_str(), with.value3, with.flag1, with.text3.c_str(), with.flag2));
}

/**
 * Deletes a bridge endpoint.
 *
 * @param key   its key, at most 63 bytes
 * @param name  its name, at most 63 bytes
 */
inline void del_bridge_endpoint(endpoint_argument key, endpoint_name_argument name)
{
    detail::check(::LUMOZEPH_DelBridgeEndpoint(key.c_str(), name.c_str()), "del_bridge_endpoint");
}
[[nodiscard]] inline std::error_code try_del_bridge_endpoint(
    endpoint_argument key, endpoint_name_argument name) noexcept
{
    return detail::code_of(::LUMOZEPH_DelBridgeEndpoint(key.c_str(), name.c_str()));
}

/**
 * Flushes the bridge endpoints.
 *
 * @param on  chooses between two commands of the module
 */
inline void flush_bridge_endpoint(switched on)
{
    detail::check(::LUMOZEPH_FlushBridgeEndpoint(static_cast<std::int8_t>(on)), "flush_bridge_endpoint");
}
[[nodiscard]] inline std::error_code try_flush_bridge_endpoint(switched on) noexcept
{
    return detail::code_of(::LUMOZEPH_FlushBridgeEndpoint(static_cast<std::int8_t>(on)));
}

/**
 * Reads bridge endpoints.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param key  an instance key, at most 63 bytes; left out: no key is sent
 * @return     the list
 */
inline bridge_endpoint_list get_bridge_endpoints(maybe<instance_key_argument> key = {})
{
    LumoBridgeEndpointList* out = nullptr;
    detail::check(::LUMOZEPH_GetBridgeEndpoints(key.c_str(), &out), "get_bridge_endpoints");
    return bridge_endpoint_list(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_endpoints(
    maybe<instance_key_argument> key, bridge_endpoint_list& result) noexcept
{
    LumoBridgeEndpointList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetBridgeEndpoints(key.c_str(), &out), out, result);
}

/**
 * Reads the statistics of a bridge endpoint.
 *
 * @param key  its key, at most 63 bytes
 * @return     LUMOZEPH_BE_STATS_SIZE bytes
 */
inline raw<LUMOZEPH_BE_STATS_SIZE> get_be_stats(endpoint_argument key)
{
    raw<LUMOZEPH_BE_STATS_SIZE> buffer;
    detail::check(::LUMOZEPH_GetBeStats(key.c_str(), buffer.data()), "get_be_stats");
    return buffer;
}
[[nodiscard]] inline std::error_code try_get_be_stats(
    endpoint_argument key, raw<LUMOZEPH_BE_STATS_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_GetBeStats(key.c_str(), buffer.data()));
}

/**
 * Reads the status of a bridge endpoint.
 *
 * @param key  its key, at most 63 bytes
 * @return     LUMOZEPH_BE_STATUS_SIZE bytes
 */
inline raw<LUMOZEPH_BE_STATUS_SIZE> get_be_status(endpoint_argument key)
{
    raw<LUMOZEPH_BE_STATUS_SIZE> buffer;
    detail::check(::LUMOZEPH_GetBeStatus(key.c_str(), buffer.data()), "get_be_status");
    return buffer;
}
[[nodiscard]] inline std::error_code try_get_be_status(
    endpoint_argument key, raw<LUMOZEPH_BE_STATUS_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_GetBeStatus(key.c_str(), buffer.data()));
}

/**
 * Reads all bridge endpoints as the module lays them out.
 *
 * @param[out] buffer  room for the entries
 * @return             the entries that lie in the buffer, and how many the module reports
 */
inline entries<LUMOZEPH_BE_SIZE> get_be_all(view<std::byte> buffer)
{
    std::uint32_t count = 0;
    detail::check(
        ::LUMOZEPH_GetBeAll(buffer.data(), detail::counted<std::uint32_t>(buffer.size()), &count), "get_be_all");
    return {buffer.data(), buffer.size() / LUMOZEPH_BE_SIZE, count};
}
[[nodiscard]] inline std::error_code try_get_be_all(view<std::byte> buffer, entries<LUMOZEPH_BE_SIZE>& result) noexcept
{
    std::uint32_t count = 0;
    const std::error_code code =
        detail::code_of(::LUMOZEPH_GetBeAll(buffer.data(), detail::counted<std::uint32_t>(buffer.size()), &count));
    result = code ? entries<LUMOZEPH_BE_SIZE>()
                  : entries<LUMOZEPH_BE_SIZE>(buffer.data(), buffer.size() / LUMOZEPH_BE_SIZE, count);
    return code;
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * bfd: BFD sessions and port connections
 * ------------------------------------------------------------------------------------------------------------------ */

/** One BFD session as the module reports it. */
using bridge_bfd_session_info = ::LumoBridgeBfdSessionInfo;
/** BFD sessions. */
using bridge_bfd_session_list =
    list<::LumoBridgeBfdSessionList, ::LUMOZEPH_ReleaseBridgeBFDSessions, LUMOZEPH_BRIDGE_BFD_SESSIONS_MAX>;

/**
 * Reads BFD sessions.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param key  an instance key, at most 63 bytes; left out: no key is sent
 * @return     the list
 */
inline bridge_bfd_session_list get_bridge_bfd_sessions(maybe<instance_key_argument> key = {})
{
    LumoBridgeBfdSessionList* out = nullptr;
    detail::check(::LUMOZEPH_GetBridgeBFDSessions(key.c_str(), &out), "get_bridge_bfd_sessions");
    return bridge_bfd_session_list(out);
}
[[nodiscard]] inline std::error_code try_get_bridge_bfd_sessions(
    maybe<instance_key_argument> key, bridge_bfd_session_list& result) noexcept
{
    LumoBridgeBfdSessionList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetBridgeBFDSessions(key.c_str(), &out), out, result);
}

/**
 * Plumbs a port connection for BFD.
 *
 * @param port  the port's name, at most 63 bytes
 * @param text  at most 15 bytes
 * @param mac   the MAC address; left out: none, which sends six zero bytes
 */
inline void plumb_bfd_port_connection(port_argument port, text_argument text, std::optional<lumozeph::mac> mac = {})
{
    detail::check(::LUMOZEPH_PlumbBFDPortConnection(port.c_str(), text.c_str(), mac ? mac->data() : nullptr),
        "plumb_bfd_port_connection");
}
[[nodiscard]] inline std::error_code try_plumb_bfd_port_connection(
    port_argument port, text_argument text, std::optional<lumozeph::mac> mac = {}) noexcept
{
    return detail::code_of(::LUMOZEPH_PlumbBFDPortConnection(port.c_str(), text.c_str(), mac ? mac->data() : nullptr));
}

/**
 * Unplumbs a port connection for BFD.
 *
 * @param port  the port's name, at most 63 bytes
 */
inline void unplumb_bfd_port_connection(port_argument port)
{
    detail::check(::LUMOZEPH_UnPlumbBFDPortConnection(port.c_str()), "unplumb_bfd_port_connection");
}
[[nodiscard]] inline std::error_code try_unplumb_bfd_port_connection(port_argument port) noexcept
{
    return detail::code_of(::LUMOZEPH_UnPlumbBFDPortConnection(port.c_str()));
}

/**
 * Reads the port connections for BFD.
 *
 * @return  LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE bytes
 */
inline raw<LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE> get_bfd_port_connections()
{
    raw<LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE> buffer;
    detail::check(::LUMOZEPH_GetBFDPortConnections(buffer.data()), "get_bfd_port_connections");
    return buffer;
}
[[nodiscard]] inline std::error_code try_get_bfd_port_connections(
    raw<LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE>& buffer) noexcept
{
    return detail::code_of(::LUMOZEPH_GetBFDPortConnections(buffer.data()));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * mcast_receivers: Multicast domain and receivers
 *
 * Receivers are kept under a 32-bit value of their instance.
 * ------------------------------------------------------------------------------------------------------------------ */

/** An instance's multicast domain as the module reports it. */
using mcast_domain_info = ::LumoMcastDomainInfo;
/** One local receiver as the module reports it. */
using local_rcvr_info = ::LumoLocalRcvrInfo;
/** One tunnel endpoint, as the module lays it out. */
using vtep_entry = ::LumoVtepEntry;
using owned_mcast_domain_info = owned<::LumoMcastDomainInfo, ::LUMOZEPH_ReleaseMRoutingDomainData>;
/** Local receivers. */
using local_rcvr_list = list<::LumoLocalRcvrList, ::LUMOZEPH_ReleaseMRoutingLocalRcvrs, LUMOZEPH_LOCAL_RCVRS_MAX>;
/** Tunnel endpoints. */
using vtep_table = list<::LumoVtepTable, detail::release_table<::LumoVtepTable, ::LUMOZEPH_ReleaseVTEPTable>, no_cap>;

/**
 * Reads an instance's multicast domain.
 *
 * @param instance  its key, at most 63 bytes
 * @return          the record
 */
inline owned_mcast_domain_info get_mrouting_domain(instance_argument instance)
{
    LumoMcastDomainInfo* out = nullptr;
    detail::check(::LUMOZEPH_GetMRoutingDomain(instance.c_str(), &out), "get_mrouting_domain");
    return owned_mcast_domain_info(out);
}
[[nodiscard]] inline std::error_code try_get_mrouting_domain(
    instance_argument instance, owned_mcast_domain_info& result) noexcept
{
    LumoMcastDomainInfo* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetMRoutingDomain(instance.c_str(), &out), out, result);
}

/**
 * Reads an instance's local receivers under a value.
 *
 * If the device call fails, 16 bytes stay allocated.
 *
 * @param instance  its key, at most 63 bytes
 * @param value     the value
 * @return          the list
 */
inline local_rcvr_list get_mrouting_local_rcvrs(instance_argument instance, std::uint32_t value)
{
    LumoLocalRcvrList* out = nullptr;
    detail::check(::LUMOZEPH_GetMRoutingLocalRcvrs(instance.c_str(), value, &out), "get_mrouting_local_rcvrs");
    return local_rcvr_list(out);
}
[[nodiscard]] inline std::error_code try_get_mrouting_local_rcvrs(
    instance_argument instance, std::uint32_t value, local_rcvr_list& result) noexcept
{
    LumoLocalRcvrList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetMRoutingLocalRcvrs(instance.c_str(), value, &out), out, result);
}

/**
 * Adds a local receiver.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param value     the value that the receiver is under
 * @param text      at most 63 bytes; left out: none
 */
inline void add_mrouting_local_rcvrs(instance_argument instance, std::uint32_t value, maybe<text_argument> text = {})
{
    detail::check(::LUMOZEPH_AddMRoutingLocalRcvrs(instance.c_str(), value, text.c_str()), "add_mrouting_local_rcvrs");
}
[[nodiscard]] inline std::error_code try_add_mrouting_local_rcvrs(
    instance_argument instance, std::uint32_t value, maybe<text_argument> text = {}) noexcept
{
    return detail::code_of(::LUMOZEPH_AddMRoutingLocalRcvrs(instance.c_str(), value, text.c_str()));
}

/**
 * Deletes a local receiver.
 *
 * @param instance  the instance's key, at most 63 bytes
 * @param value     the value that the receiver is under
 * @param text      at most 63 bytes; left out: none
 */
inline void del_mrouting_local_rcvrs(instance_argument instance, std::uint32_t value, maybe<text_argument> text = {})
{
    detail::check(::LUMOZEPH_DelMRoutingLocalRcvrs(instance.c_str(), value, text.c_str()), "del_mrouting_local_rcvrs");
}
[[nodiscard]] inline std::error_code try_del_mrouting_local_rcvrs(
    instance_argument instance, std::uint32_t value, maybe<text_argument> text = {}) noexcept
{
    return detail::code_of(::LUMOZEPH_DelMRoutingLocalRcvrs(instance.c_str(), value, text.c_str()));
}

/**
 * Reads an instance's remote receivers under a value.
 *
 * @param instance  its key, at most 63 bytes
 * @param value     the value
 * @return          the table
 * @throws error    EBADMSG: the reply has no count, or is shorter than its count and the entries that this announces: a
 *                  length that is computed in 32 bits and compared as signed, so that of 2 GiB or more not every reply
 *                  that is too short is found
 * @throws error    EOVERFLOW: the entries that the count announces are 2 GiB or more, and neither EBADMSG nor ENOMEM
 *                  has come first
 */
inline vtep_table get_mrouting_remote_rcvrs(instance_argument instance, std::uint32_t value)
{
    LumoVtepTable* out = nullptr;
    errno = 0;
    detail::check(::LUMOZEPH_GetMRoutingRemoteRcvrs(instance.c_str(), value, &out), "get_mrouting_remote_rcvrs");
    return vtep_table(out);
}
[[nodiscard]] inline std::error_code try_get_mrouting_remote_rcvrs(
    instance_argument instance, std::uint32_t value, vtep_table& result) noexcept
{
    LumoVtepTable* out = nullptr;
    errno = 0;
    return detail::handed_over(::LUMOZEPH_GetMRoutingRemoteRcvrs(instance.c_str(), value, &out), out, result);
}

/** The arguments of add_mrouting_remote_rcvrs. */
struct add_mrouting_remote_rcvrs_arguments
{
    instance_argument instance; /**< the instance's key, at most 63 bytes */
    std::uint32_t value = 0;    /**< the value that the receiver is under */
    std::uint32_t key = 0;      /**< the receiver's key */
    lumozeph::mac hw_addr;      /**< the MAC address */
    std::uint32_t value1 = 0;   /**< passed on as it stands */
    std::uint32_t value2 = 0;   /**< passed on as it stands */
};

/** Adds a remote receiver. */
inline void add_mrouting_remote_rcvrs(const add_mrouting_remote_rcvrs_arguments& with)
{
    detail::check(::LUMOZEPH_AddMRoutingRemoteRcvrs(
                      with.instance.c_str(), with.value, with.key, with.hw_addr.data(), with.value1, with.value2),
        "add_mrouting_remote_rcvrs");
}
[[nodiscard]] inline std::error_code try_add_mrouting_remote_rcvrs(
    const add_mrouting_remote_rcvrs_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_AddMRoutingRemoteRcvrs(
        with.instance.c_str(), with.value, with.key, with.hw_addr.data(), with.value1, with.value2));
}

/** The arguments of del_mrouting_remote_rcvrs. */
struct del_mrouting_remote_rcvrs_arguments
{
    instance_argument instance; /**< the instance's key, at most 63 bytes */
    std::uint32_t value = 0;    /**< the value that the receiver is under */
    std::uint32_t key = 0;      /**< the receiver's key */
};

/**
 * Deletes a remote receiver.
 *
 * Of the request, 704 bytes are sent as the stack held them.
 */
inline void del_mrouting_remote_rcvrs(const del_mrouting_remote_rcvrs_arguments& with)
{
    detail::check(
        ::LUMOZEPH_DelMRoutingRemoteRcvrs(with.instance.c_str(), with.value, with.key), "del_mrouting_remote_rcvrs");
}
[[nodiscard]] inline std::error_code try_del_mrouting_remote_rcvrs(
    const del_mrouting_remote_rcvrs_arguments& with) noexcept
{
    return detail::code_of(::LUMOZEPH_DelMRoutingRemoteRcvrs(with.instance.c_str(), with.value, with.key));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * mcast_groups: Multicast groups, replication and router addresses
 * ------------------------------------------------------------------------------------------------------------------ */

/** One multicast group as the module reports it. */
using mcast_group_info = ::LumoMcastGroupInfo;
/** Multicast groups. */
using mcast_group_list = list<::LumoMcastGroupList, ::LUMOZEPH_ReleaseMRoutingMcastGroups, LUMOZEPH_MCAST_GROUPS_MAX>;

/**
 * Reads an instance's multicast groups.
 *
 * A fragment at the end of the module's reply is no error: it counts as a group, whose missing bytes are undefined. If
 * the device call fails, 16 bytes stay allocated. EBADMSG can only be the module's own answer.
 *
 * @param instance  its key, at most 63 bytes
 * @return          the list
 */
inline mcast_group_list get_mrouting_all_mcast_groups(instance_argument instance)
{
    LumoMcastGroupList* out = nullptr;
    detail::check(::LUMOZEPH_GetMRoutingAllMcastGroups(instance.c_str(), &out), "get_mrouting_all_mcast_groups");
    return mcast_group_list(out);
}
[[nodiscard]] inline std::error_code try_get_mrouting_all_mcast_groups(
    instance_argument instance, mcast_group_list& result) noexcept
{
    LumoMcastGroupList* out = nullptr;
    return detail::handed_over(::LUMOZEPH_GetMRoutingAllMcastGroups(instance.c_str(), &out), out, result);
}

/**
 * Reads an instance's replication address under a value.
 *
 * @param instance  its key, at most 63 bytes
 * @param value     the value
 * @return          the address
 */
inline lumozeph::ipv4 get_mrouting_replication_ip(instance_argument instance, std::uint32_t value)
{
    std::uint32_t address = 0;
    detail::check(
        ::LUMOZEPH_GetMRoutingReplicationIP(instance.c_str(), value, &address), "get_mrouting_replication_ip");
    return ipv4(address);
}
[[nodiscard]] inline std::error_code try_get_mrouting_replication_ip(
    instance_argument instance, std::uint32_t value, lumozeph::ipv4& result) noexcept
{
    std::uint32_t address = 0;
    const std::error_code code =
        detail::code_of(::LUMOZEPH_GetMRoutingReplicationIP(instance.c_str(), value, &address));
    result = ipv4(address);
    return code;
}

/**
 * Reads the address of an instance's multicast router under a value.
 *
 * @param instance  its key, at most 63 bytes
 * @param value     the value
 * @return          the address
 */
inline lumozeph::ipv4 get_mrouting_mrouter_ip(instance_argument instance, std::uint32_t value)
{
    std::uint32_t address = 0;
    detail::check(::LUMOZEPH_GetMRoutingMRouterIP(instance.c_str(), value, &address), "get_mrouting_mrouter_ip");
    return ipv4(address);
}
[[nodiscard]] inline std::error_code try_get_mrouting_mrouter_ip(
    instance_argument instance, std::uint32_t value, lumozeph::ipv4& result) noexcept
{
    std::uint32_t address = 0;
    const std::error_code code = detail::code_of(::LUMOZEPH_GetMRoutingMRouterIP(instance.c_str(), value, &address));
    result = ipv4(address);
    return code;
}

/**
 * Adds a multicast router to an instance.
 *
 * @param instance  its key, at most 63 bytes
 * @param value     passed on as it stands
 */
inline void add_mrouting_mrouter(instance_argument instance, std::uint32_t value)
{
    detail::check(::LUMOZEPH_AddMRoutingMRouter(instance.c_str(), value), "add_mrouting_mrouter");
}
[[nodiscard]] inline std::error_code try_add_mrouting_mrouter(instance_argument instance, std::uint32_t value) noexcept
{
    return detail::code_of(::LUMOZEPH_AddMRoutingMRouter(instance.c_str(), value));
}

/**
 * Removes an instance's multicast router.
 *
 * @param instance  its key, at most 63 bytes
 */
inline void del_mrouting_mrouter(instance_argument instance)
{
    detail::check(::LUMOZEPH_DelMRoutingMRouter(instance.c_str()), "del_mrouting_mrouter");
}
[[nodiscard]] inline std::error_code try_del_mrouting_mrouter(instance_argument instance) noexcept
{
    return detail::code_of(::LUMOZEPH_DelMRoutingMRouter(instance.c_str()));
}

/* ------------------------------------------------------------------------------------------------------------------ *
 * rss: Software receive-side scaling
 *
 * A target is named by a text of at most 63 bytes. The lengths that the module reports are not looked at: what it does
 * not write of a reply is undefined.
 * ------------------------------------------------------------------------------------------------------------------ */

/** Statistics of a target. */
using rss_stats = ::LumoRssStats;
/** Tunables of a target. */
using rss_tunables = ::LumoRssTunables;
/** An indirection table that is to be set. */
using rss_ind_table = ::LumoRssIndTable;
using owned_rss_stats = owned<::LumoRssStats, detail::release_block>;

/** rssWord of a record: as many as rssEntryCount says, but no more than there is room for. */
inline numbers<std::uint32_t> rss_word(const rss_stats& of) noexcept
{
    return {reinterpret_cast<const std::byte*>(&of) + 8, std::min<std::size_t>(of.rssEntryCount, 16)};
}
inline numbers<std::uint32_t> rss_word(const rss_stats&& of) = delete;

/** rssCounter1 of a record: as many as rssEntryCount says, but no more than there is room for. */
inline numbers<std::uint64_t> rss_counter1(const rss_stats& of) noexcept
{
    return {reinterpret_cast<const std::byte*>(&of) + 76, std::min<std::size_t>(of.rssEntryCount, 16)};
}
inline numbers<std::uint64_t> rss_counter1(const rss_stats&& of) = delete;

/** rssCounter2 of a record: as many as rssEntryCount says, but no more than there is room for. */
inline numbers<std::uint64_t> rss_counter2(const rss_stats& of) noexcept
{
    return {reinterpret_cast<const std::byte*>(&of) + 204, std::min<std::size_t>(of.rssEntryCount, 16)};
}
inline numbers<std::uint64_t> rss_counter2(const rss_stats&& of) = delete;

/** rssCounter3 of a record: as many as rssEntryCount says, but no more than there is room for. */
inline numbers<std::uint64_t> rss_counter3(const rss_stats& of) noexcept
{
    return {reinterpret_cast<const std::byte*>(&of) + 332, std::min<std::size_t>(of.rssEntryCount, 16)};
}
inline numbers<std::uint64_t> rss_counter3(const rss_stats&& of) = delete;

/**
 * Reads a target's statistics.
 *
 * A reply that is too short is no error. EBADMSG can only be the module's own answer.
 *
 * @param target  its name, at most 63 bytes
 * @return        the record
 */
inline owned_rss_stats soft_rss_get_stats(target_argument target)
{
    LumoRssStats* out = nullptr;
    detail::check(::LUMOZEPH_SoftRSSGetStats(target.c_str(), &out), "soft_rss_get_stats");
    return owned_rss_stats(out);
}
[[nodiscard]] inline std::error_code try_soft_rss_get_stats(target_argument target, owned_rss_stats& result) noexcept
{
    LumoRssStats* out = nullptr;
    return detail::handed_over(::LUMOZEPH_SoftRSSGetStats(target.c_str(), &out), out, result);
}

/**
 * Resets a target's statistics.
 *
 * @param target  its name, at most 63 bytes
 */
inline void soft_rss_stats_reset(target_argument target)
{
    detail::check(::LUMOZEPH_SoftRSSStatsReset(target.c_str()), "soft_rss_stats_reset");
}
[[nodiscard]] inline std::error_code try_soft_rss_stats_reset(target_argument target) noexcept
{
    return detail::code_of(::LUMOZEPH_SoftRSSStatsReset(target.c_str()));
}

/**
 * Reads a target's tunables.
 *
 * @param target  its name, at most 63 bytes
 * @return        the value
 * @throws error  ENOMEM: the library could not allocate memory for the module's reply
 */
inline rss_tunables soft_rss_get_tunables(target_argument target)
{
    rss_tunables tunables {};
    detail::check(::LUMOZEPH_SoftRSSGetTunables(target.c_str(), &tunables), "soft_rss_get_tunables");
    return tunables;
}
[[nodiscard]] inline std::error_code try_soft_rss_get_tunables(target_argument target, rss_tunables& result) noexcept
{
    return detail::code_of(::LUMOZEPH_SoftRSSGetTunables(target.c_str(), &result));
}

/**
 * Sets a target's tunables: value1 only.
 *
 * @param target    its name, at most 63 bytes
 * @param tunables  value1 of which is sent
 */
inline void soft_rss_set_tunables(target_argument target, const rss_tunables& tunables)
{
    detail::check(::LUMOZEPH_SoftRSSSetTunables(target.c_str(), &tunables), "soft_rss_set_tunables");
}
[[nodiscard]] inline std::error_code try_soft_rss_set_tunables(
    target_argument target, const rss_tunables& tunables) noexcept
{
    return detail::code_of(::LUMOZEPH_SoftRSSSetTunables(target.c_str(), &tunables));
}

/**
 * Reads a target's indirection table.
 *
 * @param target  its name, at most 63 bytes
 * @return        LUMOZEPH_RSS_IND_TABLE_SIZE bytes
 * @throws error  ENOMEM: the library could not allocate memory for the module's reply
 */
inline raw<LUMOZEPH_RSS_IND_TABLE_SIZE> soft_rss_get_ind_table(target_argument target)
{
    raw<LUMOZEPH_RSS_IND_TABLE_SIZE> entries;
    detail::check(::LUMOZEPH_SoftRSSGetIndTable(target.c_str(), reinterpret_cast<std::uint8_t*>(entries.data())),
        "soft_rss_get_ind_table");
    return entries;
}
[[nodiscard]] inline std::error_code try_soft_rss_get_ind_table(
    target_argument target, raw<LUMOZEPH_RSS_IND_TABLE_SIZE>& entries) noexcept
{
    return detail::code_of(
        ::LUMOZEPH_SoftRSSGetIndTable(target.c_str(), reinterpret_cast<std::uint8_t*>(entries.data())));
}

/**
 * Sets a target's indirection table.
 *
 * The size is sent as it stands, also a negative one.
 *
 * @param target  its name, at most 63 bytes
 * @param table   the table; its size must not exceed 128, or the call reads and sends what lies behind its entries
 * @throws error  EINVAL: table.size is larger than 128
 */
inline void soft_rss_table_set(target_argument target, const rss_ind_table& table)
{
    if (table.size > 128)
        detail::check(detail::rejected(), "soft_rss_table_set");
    detail::check(::LUMOZEPH_SoftRSSTableSet(target.c_str(), &table), "soft_rss_table_set");
}
[[nodiscard]] inline std::error_code try_soft_rss_table_set(target_argument target, const rss_ind_table& table) noexcept
{
    if (table.size > 128)
        return detail::rejected();
    return detail::code_of(::LUMOZEPH_SoftRSSTableSet(target.c_str(), &table));
}

} // namespace lumozeph

#endif
