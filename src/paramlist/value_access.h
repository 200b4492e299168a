#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "paramlist/parameter_list.h"
#include "paramlist/value_form.h"

namespace orvell::paramlist {

// Single parameters and vectors by address, as the host's accessors need them. Every function fails
// for an address of an unknown kind and touches nothing then. Values are read from `EntryToRead`
// and written to `EntryToWrite`; a kind without handler gives no value, and a value written to it
// becomes undefined. Names and comments do not depend on declared-only mode. Writing throws
// std::bad_alloc when memory is short.

/// Name and comment that come with a new value, by the accessors' rule.
using Description = ParameterKind::Description;

/// Reads a value in a form into the buffer. A missing value gives zeros in the form's bytes.
/// Without a buffer, with one below the form's minimum length and with an unknown form the buffer
/// stays untouched.
bool GetValue(ParameterList& list, std::string_view address, std::span<std::uint8_t> buffer,
              ValueForm form);

/// Sets a value from the buffer. Without a buffer, with one below the form's minimum length and
/// with an unknown form no entry is created.
bool SetValue(ParameterList& list, std::string_view address, std::span<const std::uint8_t> buffer,
              ValueForm form);

/// Set a value by the handler's operation of the same name, then name and comment; these also when
/// the handler refuses the value.
bool SetFromWord(ParameterList& list, std::string_view address, std::uint16_t word,
                 const Description& description);
bool SetFromDword(ParameterList& list, std::string_view address, std::uint32_t dword,
                  const Description& description);
bool SetFromDouble(ParameterList& list, std::string_view address, double number,
                   const Description& description);
bool SetFromText(ParameterList& list, std::string_view address,
                 std::optional<std::string_view> text, const Description& description);

/// Sets the value only.
bool SetFromText(ParameterList& list, std::string_view address,
                 std::optional<std::string_view> text);

/// Read `count` values at consecutive numbers (modulo 2^32) from the address on, 0 in place of a
/// missing one. The destination has room for them and need not be aligned.
bool GetWords(ParameterList& list, std::string_view address, std::uint32_t count,
              void* destination);
bool GetDwords(ParameterList& list, std::string_view address, std::uint32_t count,
               void* destination);
bool GetDoubles(ParameterList& list, std::string_view address, std::uint32_t count,
                void* destination);

/// Name and comment of the oldest entry at the address, none when there is no entry. Valid until
/// the entry is changed.
[[nodiscard]] std::optional<Description> FindDescription(ParameterList& list,
                                                         std::string_view address);

/// Set the name or the comment of the oldest entry at the address. False when there is no entry;
/// none is created.
bool SetName(ParameterList& list, std::string_view address, std::string_view name);
bool SetComment(ParameterList& list, std::string_view address, std::string_view comment);

}  // namespace orvell::paramlist
