// Format texts as a wrong or malicious translation may hold them.
//
// The low three bits of the first byte are the number of arguments; the next two take hostile texts
// through the exports instead, or with the highest bit through import reports and the comments of
// vectors. An argument is its type and a number of four bytes, or a length and
// a text. What follows is the format.

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/require.h"
#include "fuzz/texts/format_reference.h"
#include "fuzz/texts/hostile_exports.h"
#include "fuzz/texts/hostile_messages.h"
#include "resources/checked_format.h"
#include "resources/format_conversion.h"

namespace orvell::fuzz {
namespace {

using resources::CheckedFormat;
using resources::FormatArgument;
using resources::FormatConversion;

FormatArgument TakeArgument(Input& input) {
    switch (input.TakeByte() % 3) {
        case 0:
            return input.TakeText(input.TakeByte());
        case 1:
            return static_cast<std::int32_t>(input.TakeInteger(4));
        default:
            return static_cast<std::uint32_t>(input.TakeInteger(4));
    }
}

/// No more than the format's own characters, its texts, and for each "%" a width, a precision or
/// the digits of a number with sign and prefix.
std::size_t LargestSize(std::string_view format, const std::vector<FormatArgument>& arguments) {
    const auto percentCount =
        static_cast<std::size_t>(std::count(format.begin(), format.end(), '%'));
    std::size_t size = format.size();
    for (const FormatArgument& argument : arguments) {
        const auto* text = std::get_if<std::string_view>(&argument);
        size += text != nullptr ? text->size() : 0;
    }
    constexpr std::size_t kPrefix = 2;
    return size +
           std::min(percentCount, arguments.size()) * (FormatConversion::kMaximumWidth + kPrefix);
}

void FormatAsReferenceDoes(Input& input, unsigned argumentCount) {
    std::vector<FormatArgument> arguments;
    while (arguments.size() < argumentCount) {
        arguments.push_back(TakeArgument(input));
    }
    const std::string text(input.TakeRest());
    const CheckedFormat format(text);
    const std::string expected = FormatByReference(text, arguments);
    const std::string before = "before";
    std::string out = before;
    format.AppendTo(out, arguments);
    Require(out == before + expected, "the text is what the run-time library makes of it");
    Require(expected.size() <= LargestSize(text, arguments), "the text is bounded");
    format.AppendTo(out, arguments);
    Require(out == before + expected + expected, "a format is not changed by its use");
}

}  // namespace
}  // namespace orvell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvell::fuzz;
    constexpr std::uint8_t kArgumentCount = 0x07;
    constexpr std::uint8_t kExports = 0x18;
    constexpr std::uint8_t kMessages = 0x98;
    Input input({data, size});
    const std::uint8_t mode = input.TakeByte();
    if ((mode & kMessages) == kMessages) {
        ReportWithTranslation(mode & kArgumentCount, std::string(input.TakeRest()));
    } else if ((mode & kExports) == kExports) {
        ExportWithTranslation(mode & kArgumentCount, std::string(input.TakeRest()));
    } else {
        FormatAsReferenceDoes(input, mode & kArgumentCount);
    }
    return 0;
}
