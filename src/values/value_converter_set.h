#pragma once

#include <array>
#include <memory>

#include "platform/local_clock.h"
#include "values/value_converter.h"

namespace orvell::values {

/// The eleven converters, found by base-type code; every operation is forwarded to the code's
/// converter. For a code without converter (none, Structured, unknown) an operation returns false
/// or 0 and empties its text output.
class ValueConverterSet {
  public:
    static constexpr std::size_t kConverterCount = 11;

    /// `clock` gives the default of OLE-DATE+TIME and must outlive the set.
    explicit ValueConverterSet(const platform::LocalClock& clock);
    ~ValueConverterSet();

    /// The converter of the code, null when it has none. Owned by the set.
    [[nodiscard]] const ValueConverter* Find(BaseTypeCode code) const;

    [[nodiscard]] std::uint32_t GetSize(const TypeDescription& type) const;
    [[nodiscard]] bool HasRoom(const TypeDescription& type, ConstValueBuffer buffer) const;
    bool ValueToText(const TypeDescription& type, ConstValueBuffer buffer, std::string& text,
                     DisplayFormat format, bool raw) const;
    bool DefaultText(const TypeDescription& type, std::string& text, DisplayFormat format) const;
    bool TextToValue(const TypeDescription& type, ValueBuffer buffer, std::string_view text,
                     DisplayFormat format) const;
    bool ExportText(const TypeDescription& type, ConstValueBuffer buffer, std::string& text) const;
    bool ImportText(const TypeDescription& type, std::string_view text, ValueBuffer buffer) const;
    bool PutToHost(const TypeDescription& type, std::uint32_t first, std::uint32_t second,
                   ConstValueBuffer buffer, const OnlineAccessRecord& host) const;
    bool GetFromHost(const TypeDescription& type, std::uint32_t first, std::uint32_t second,
                     ValueBuffer buffer, const OnlineAccessRecord& host) const;
    bool PutToHostAlt(const TypeDescription& type, std::uint32_t first, std::uint32_t second,
                      ConstValueBuffer buffer, const OnlineAccessRecord& host) const;
    bool PutRawToHost(const TypeDescription& type, std::uint32_t first, std::uint32_t second,
                      ValueBuffer buffer, const FillRecord& host) const;
    [[nodiscard]] std::uint32_t NormalizeParam(const TypeDescription& type) const;
    bool Normalize(BaseTypeCode code, std::uint32_t param, std::string& text,
                   DisplayFormat format) const;

  private:
    /// As `Find`, but for a code without converter one that fails in everything.
    [[nodiscard]] const ValueConverter& ConverterOf(BaseTypeCode code) const;

    std::array<std::unique_ptr<const ValueConverter>, kConverterCount> converters_;
};

}  // namespace orvell::values
