#include "values/value_converter_set.h"

#include "values/date_converter.h"
#include "values/date_time_converter.h"
#include "values/duration_converter.h"
#include "values/enumerated_converter.h"
#include "values/floating_converter.h"
#include "values/integer_converter.h"
#include "values/ole_date_time_converter.h"
#include "values/string_converter.h"
#include "values/time_converter.h"

namespace orvell::values {
namespace {

/// Stands in for the codes without a converter: fails in everything and empties texts.
class NoConverter final : public ValueConverter {
  public:
    [[nodiscard]] std::uint32_t GetSize(const TypeDescription& /*type*/) const override {
        return 0;
    }

    [[nodiscard]] bool HasRoom(const TypeDescription& /*type*/,
                               ConstValueBuffer /*buffer*/) const override {
        return false;
    }

    bool ValueToText(const TypeDescription& /*type*/, ConstValueBuffer /*buffer*/,
                     std::string& text, DisplayFormat /*format*/, bool /*raw*/) const override {
        text.clear();
        return false;
    }

    bool DefaultText(const TypeDescription& /*type*/, std::string& text,
                     DisplayFormat /*format*/) const override {
        text.clear();
        return false;
    }

    bool TextToValue(const TypeDescription& /*type*/, ValueBuffer /*buffer*/,
                     std::string_view /*text*/, DisplayFormat /*format*/) const override {
        return false;
    }

    bool PutRawToHost(const TypeDescription& /*type*/, std::uint32_t /*first*/,
                      std::uint32_t /*second*/, ValueBuffer /*buffer*/,
                      const FillRecord& /*host*/) const override {
        return false;
    }

    [[nodiscard]] std::uint32_t NormalizeParam(const TypeDescription& /*type*/) const override {
        return 0;
    }

    bool Normalize(std::uint32_t /*param*/, std::string& text,
                   DisplayFormat /*format*/) const override {
        text.clear();
        return false;
    }

  protected:
    [[nodiscard]] HostForm GetHostForm(const TypeDescription& /*type*/) const override {
        return {};
    }
};

}  // namespace

ValueConverterSet::ValueConverterSet(const platform::LocalClock& clock)
    : converters_{
          std::make_unique<IntConverter>(),       std::make_unique<UIntConverter>(),
          std::make_unique<FloatConverter>(),     std::make_unique<DoubleConverter>(),
          std::make_unique<StringConverter>(),    std::make_unique<DurationConverter>(),
          std::make_unique<TimeConverter>(),      std::make_unique<DateConverter>(),
          std::make_unique<DateTimeConverter>(),  std::make_unique<OleDateTimeConverter>(clock),
          std::make_unique<EnumeratedConverter>()} {}

ValueConverterSet::~ValueConverterSet() = default;

const ValueConverter* ValueConverterSet::Find(BaseTypeCode code) const {
    const std::uint32_t index = static_cast<std::uint32_t>(code) - kFirstBaseTypeCode;
    return index < kConverterCount ? converters_[index].get() : nullptr;
}

const ValueConverter& ValueConverterSet::ConverterOf(BaseTypeCode code) const {
    static const NoConverter kNoConverter;
    const ValueConverter* converter = Find(code);
    return converter != nullptr ? *converter : kNoConverter;
}

std::uint32_t ValueConverterSet::GetSize(const TypeDescription& type) const {
    return ConverterOf(type.baseType).GetSize(type);
}

bool ValueConverterSet::HasRoom(const TypeDescription& type, ConstValueBuffer buffer) const {
    return ConverterOf(type.baseType).HasRoom(type, buffer);
}

bool ValueConverterSet::ValueToText(const TypeDescription& type, ConstValueBuffer buffer,
                                    std::string& text, DisplayFormat format, bool raw) const {
    return ConverterOf(type.baseType).ValueToText(type, buffer, text, format, raw);
}

bool ValueConverterSet::DefaultText(const TypeDescription& type, std::string& text,
                                    DisplayFormat format) const {
    return ConverterOf(type.baseType).DefaultText(type, text, format);
}

bool ValueConverterSet::TextToValue(const TypeDescription& type, ValueBuffer buffer,
                                    std::string_view text, DisplayFormat format) const {
    return ConverterOf(type.baseType).TextToValue(type, buffer, text, format);
}

bool ValueConverterSet::ExportText(const TypeDescription& type, ConstValueBuffer buffer,
                                   std::string& text) const {
    return ConverterOf(type.baseType).ExportText(type, buffer, text);
}

bool ValueConverterSet::ImportText(const TypeDescription& type, std::string_view text,
                                   ValueBuffer buffer) const {
    return ConverterOf(type.baseType).ImportText(type, text, buffer);
}

bool ValueConverterSet::PutToHost(const TypeDescription& type, std::uint32_t first,
                                  std::uint32_t second, ConstValueBuffer buffer,
                                  const OnlineAccessRecord& host) const {
    return ConverterOf(type.baseType).PutToHost(type, first, second, buffer, host);
}

bool ValueConverterSet::GetFromHost(const TypeDescription& type, std::uint32_t first,
                                    std::uint32_t second, ValueBuffer buffer,
                                    const OnlineAccessRecord& host) const {
    return ConverterOf(type.baseType).GetFromHost(type, first, second, buffer, host);
}

bool ValueConverterSet::PutToHostAlt(const TypeDescription& type, std::uint32_t first,
                                     std::uint32_t second, ConstValueBuffer buffer,
                                     const OnlineAccessRecord& host) const {
    return ConverterOf(type.baseType).PutToHostAlt(type, first, second, buffer, host);
}

bool ValueConverterSet::PutRawToHost(const TypeDescription& type, std::uint32_t first,
                                     std::uint32_t second, ValueBuffer buffer,
                                     const FillRecord& host) const {
    return ConverterOf(type.baseType).PutRawToHost(type, first, second, buffer, host);
}

std::uint32_t ValueConverterSet::NormalizeParam(const TypeDescription& type) const {
    return ConverterOf(type.baseType).NormalizeParam(type);
}

bool ValueConverterSet::Normalize(BaseTypeCode code, std::uint32_t param, std::string& text,
                                  DisplayFormat format) const {
    return ConverterOf(code).Normalize(param, text, format);
}

}  // namespace orvell::values
