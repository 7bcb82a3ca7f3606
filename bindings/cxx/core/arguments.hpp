// Arguments of operations: texts that know what they name, switches, and what C passes as a pointer and a number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

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
