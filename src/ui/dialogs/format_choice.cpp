#include "ui/dialogs/format_choice.h"

namespace orvell::ui {

using values::DisplayFormat;

namespace {

/// `Default` itself is listed only for a type that has no format of its own.
std::vector<DisplayFormat> FormatsBesides(DisplayFormat proposed) {
    std::vector<DisplayFormat> formats{DisplayFormat::Signed, DisplayFormat::Unsigned,
                                       DisplayFormat::Hexadecimal};
    if (proposed == DisplayFormat::Default) {
        formats.insert(formats.begin(), DisplayFormat::Default);
    }
    return formats;
}

}  // namespace

FormatChoice OfferFormats(values::BaseTypeCode code, std::optional<DisplayFormat> wanted) {
    const std::int32_t proposed = values::ProposedDisplayFormat(code);
    if (!wanted.has_value() || proposed < 0) {
        return {};
    }
    const auto own = static_cast<DisplayFormat>(proposed);
    const DisplayFormat selected = *wanted == DisplayFormat::Default ? own : *wanted;
    return {FormatsBesides(own), selected};
}

resources::StringId FormatName(DisplayFormat format) {
    return static_cast<resources::StringId>(
        static_cast<std::uint32_t>(resources::StringId::FormatDefault) +
        static_cast<std::uint32_t>(format));
}

}  // namespace orvell::ui
