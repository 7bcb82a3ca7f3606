// Addresses as values: read from their texts, printed, compared and hashed.
#pragma once

#include <lumozeph.h>

#include <arpa/inet.h>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

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
