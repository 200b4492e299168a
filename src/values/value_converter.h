#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orvell/orvell.h"
#include "values/base_types.h"
#include "values/value_transfer.h"

namespace orvell::values {

/// Turns the stored bytes of one base type into text and back, and hands values to the host.
///
/// A converter has no state of its own. A buffer is usable when it holds at least the type's width;
/// every operation that reads or writes one checks this first and returns false otherwise. Texts
/// are bytes in the ANSI code page; no operation depends on the locale. An operation that produces
/// a text empties it first.
class ValueConverter {
  public:
    ValueConverter() = default;
    ValueConverter(const ValueConverter&) = delete;
    ValueConverter& operator=(const ValueConverter&) = delete;
    virtual ~ValueConverter() = default;

    /// Width of a stored value in bytes.
    [[nodiscard]] virtual std::uint32_t GetSize(const TypeDescription& type) const = 0;

    /// True when the buffer holds at least one value.
    [[nodiscard]] virtual bool HasRoom(const TypeDescription& type, ConstValueBuffer buffer) const;

    /// Display text of the stored value. `raw` leaves a STRING without quotation marks.
    virtual bool ValueToText(const TypeDescription& type, ConstValueBuffer buffer,
                             std::string& text, DisplayFormat format, bool raw) const = 0;

    /// Text of a new value that has not been set yet.
    virtual bool DefaultText(const TypeDescription& type, std::string& text,
                             DisplayFormat format) const = 0;

    /// Stores the value that a display text spells; writes nothing beyond the type's width.
    virtual bool TextToValue(const TypeDescription& type, ValueBuffer buffer, std::string_view text,
                             DisplayFormat format) const = 0;

    /// The value's text in lists of leaf values: decimal comma, STRING in quotation marks.
    virtual bool ExportText(const TypeDescription& type, ConstValueBuffer buffer,
                            std::string& text) const;

    /// Stores the value that a text made by `ExportText` spells.
    virtual bool ImportText(const TypeDescription& type, std::string_view text,
                            ValueBuffer buffer) const;

    /// Hands the value to the host's setter for its width. `first` and `second` (element index and
    /// byte offset) are passed on unchanged. False when the host has no such setter or it fails.
    virtual bool PutToHost(const TypeDescription& type, std::uint32_t first, std::uint32_t second,
                           ConstValueBuffer buffer, const OnlineAccessRecord& host) const;

    /// Fetches the value through the host's getter for its width. False when the host has no such
    /// getter or it fails; the value is then unchanged.
    virtual bool GetFromHost(const TypeDescription& type, std::uint32_t first, std::uint32_t second,
                             ValueBuffer buffer, const OnlineAccessRecord& host) const;

    /// As `PutToHost` through the setters of online writing.
    virtual bool PutToHostAlt(const TypeDescription& type, std::uint32_t first,
                              std::uint32_t second, ConstValueBuffer buffer,
                              const OnlineAccessRecord& host) const;

    /// Hands the host the first min(buffer size, width) bytes with the type's parameter-kind
    /// number; the host may fill them. False for a null buffer or without a host function.
    virtual bool PutRawToHost(const TypeDescription& type, std::uint32_t first,
                              std::uint32_t second, ValueBuffer buffer,
                              const FillRecord& host) const;

    /// The one number that `Normalize` needs of a type: a width, a date format code or 0.
    [[nodiscard]] virtual std::uint32_t NormalizeParam(const TypeDescription& type) const = 0;

    /// Rewrites `text` into the canonical text of the value that it spells.
    virtual bool Normalize(std::uint32_t param, std::string& text, DisplayFormat format) const = 0;

  protected:
    /// How the host's functions take this type's values.
    [[nodiscard]] virtual HostForm GetHostForm(const TypeDescription& type) const = 0;
};

}  // namespace orvell::values
