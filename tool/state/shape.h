// What the state consists of: where it is read, and what sets it.
//
// The library leaves the meaning of what the module reports to the module. What is said here to be read where it was set is
// what the emulated one does.
#pragma once

#include "tool/description.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tool {

enum class Part : std::uint8_t
{
    Setting,
    Fixed,    // cannot be set
    Statistic // the module's own: changes by itself, or is new with its object
};

// A member of an object of the document. Its name is that of the parameter which sets it, where that names it well enough.
struct Field
{
    std::string_view name;
    std::string_view source; // the member of the record; of values, the operation; none: what the record was asked with
    Part part = Part::Setting;
    // Of a part of the member: where it begins, and what it is. No width: the whole member.
    std::uint16_t at = 0;
    std::uint16_t width = 0;
    Form form = Form::Number;
};

// An operation that sets something. Parameters get what has their name: a field of the object, or of the keys of it and of
// those that it is in. "parameter=field" and "parameter=constant" say what others get.
struct Setter
{
    std::string_view operation = {};
    std::string_view fields = {}; // it is called when one of these is to change
    std::string_view given = {};
    std::string_view if_zero = {}; // the operation instead if all of these are to be zero
    std::string_view given_if_zero = {};
};

// Of records, those with this value in these bits of the member.
struct Selection
{
    std::string_view member = {};
    std::uint64_t bits = 0;
    std::uint64_t value = 0;
};

// What of the records follows from other things, and is no object of the document.
enum class Derived : std::uint8_t
{
    Nothing,
    NetworksOfLifs
};

// An object of the document, or a collection of objects with keys.
struct Level
{
    std::string_view name;
    std::string_view brief;
    std::string_view read = {};  // the operation; none: see below
    std::string_view given = {}; // to it, as to setters
    // It is read for each record of this operation, with these members of the record.
    std::string_view each = {};
    std::string_view each_given = {};
    // It is read with each of these, which have blanks between them.
    std::string_view alternatives = {};
    std::string_view embedded = {}; // the member of the outer object's record that holds its records
    Selection selection = {};
    // The fields that are the key, with blanks between its parts: "dest/mask gateway lif". None: it is one object.
    std::string_view key = {};
    bool may_have_no_name = false; // the key, if it is a text alone
    std::span<const Field> fields = {};
    std::span<const Level* const> levels = {};
    Setter creation = {}; // of an object under its key; also changes it
    Setter deletion = {};
    std::span<const Setter> setters = {};
    unsigned rank = 0; // what is needed has a lower one than what needs it
    std::size_t cap = 0;
    Part part = Part::Setting;
    Derived derived = Derived::Nothing;
    std::string_view loss = {}; // of what its creation sets, and nobody reports
};

// Of a bridge's record: how many forwarding entries it has.
inline constexpr std::string_view count_of_entries = "value6";

// The whole document, whose levels are read one after the other.
const Level& whole_state();

const Field* find_field(const Level& level, std::string_view name);

// The record that a level is read from; null: it has none.
const Record* record_of(const Level& level, const Level* outer);
// What a field looks like, where it lies in the record.
Member member_of(const Level& level, const Level* outer, const Field& field);

} // namespace tool
