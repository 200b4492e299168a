// Addresses of parameters, as the accessors read them and as CSV files spell them. The input is an
// address.

#include <algorithm>
#include <string>

#include "fuzz/require.h"
#include "fuzz/texts/address_reference.h"
#include "paramlist/csv_file_address.h"
#include "paramlist/parameter_address.h"
#include "paramlist/parameter_list.h"
#include "resources/built_in_strings.h"

namespace orvell::fuzz {
namespace {

using paramlist::AddressScan;
using paramlist::CsvAddress;
using paramlist::ParameterAddress;
using paramlist::ParameterKind;
using paramlist::ParameterList;

/// Longer addresses tell no more, and the reference looks at each of their ends.
constexpr std::size_t kMaximumLength = 300;

ParameterList& KindsOnly() {
    static const resources::BuiltInStrings kSource;
    static const resources::StringTable kStrings(kSource);
    static ParameterList list(kStrings);
    list.KindCount() == 0 && list.BuildKinds();
    return list;
}

const ParameterKind* KindOf(std::string_view keyword) {
    for (const ParameterKind& kind : KindsOnly().Kinds()) {
        if (kind.Keyword() == keyword) {
            return &kind;
        }
    }
    return nullptr;
}

bool IsBit(const ParameterKind* kind) {
    return kind != nullptr && kind->ValueType() == paramlist::ValueTypeCode::Bit;
}

void ScanAsReferenceDoes(std::string_view text) {
    const SplitAddress expected = SplitBehindKeyword(text, 1);
    const std::uint32_t number = NumberOfDigits(expected.digits);
    const std::uint32_t lastNumber = NumberOfDigits(expected.lastDigits);
    const AddressScan scan = paramlist::ScanAddress(text);
    Require(scan.keyword == expected.keyword, "the keyword is the shortest");
    Require(scan.keyword.data() == text.data(), "the keyword is the text's beginning");
    Require(scan.isDotted == expected.isDotted, "a point makes byte and bit");
    Require(scan.number == (expected.isDotted ? number * 8 + lastNumber : number),
            "all digits count, modulo 2^32");
    Require(scan.hasDigits == !(expected.isDotted ? expected.lastDigits : expected.digits).empty(),
            "an address has digits if it ends in one");

    const ParameterAddress address = KindsOnly().ParseAddress(text);
    const ParameterKind* const kind = KindOf(scan.keyword);
    Require(address.kind == kind && address.keyword == scan.keyword, "the keyword finds its kind");
    Require(address.hasDigits == scan.hasDigits, "parsing an address scans it");
    Require(address.number == scan.number * (IsBit(kind) && !scan.isDotted ? 8 : 1),
            "without a point the number of a bit is that of its byte");
}

/// One more digit behind an address moves the others up.
void AppendDigits(const std::string& text) {
    const AddressScan scan = paramlist::ScanAddress(text);
    const std::uint32_t last =
        scan.isDotted ? NumberOfDigits(SplitBehindKeyword(text, 1).lastDigits) : scan.number;
    for (const char digit : {'0', '9'}) {
        const std::string longer = text + digit;
        const AddressScan longerScan = paramlist::ScanAddress(longer);
        if (text.empty()) {
            Require(longerScan.keyword == longer, "the first character is no digit");
            continue;
        }
        const auto value = static_cast<std::uint32_t>(digit - '0');
        Require(longerScan.hasDigits, "a digit at the end is one");
        Require(longerScan.keyword == scan.keyword, "a digit does not belong to the keyword");
        Require(longerScan.number == scan.number + last * 9 + value, "no digit is lost");
    }
}

void ReadCsvAddressAsReferenceDoes(std::string_view text) {
    const SplitAddress expected = SplitBehindKeyword(text, 0);
    const CsvAddress address = paramlist::SplitCsvAddress(text);
    Require(address.keyword == expected.keyword, "the keyword is the shortest in CSV files too");
    Require(std::string(address.keyword).append(address.number) == text,
            "keyword and number are the address");
    for (const bool isBit : {false, true}) {
        Require(paramlist::ReadCsvNumber(address.number, isBit) == CsvNumberOf(expected, isBit),
                "CSV files take one octal digit behind the point of a bit");
    }
}

/// What a CSV file says of the parameter at an address leads back to it, and so does the accessors'
/// reading of the same text.
void SpellAndReadAgain(std::string_view text) {
    const ParameterAddress address = KindsOnly().ParseAddress(text);
    if (address.kind == nullptr) {
        return;
    }
    const bool isBit = IsBit(address.kind);
    const std::uint32_t number = address.number;
    std::string spelled(address.keyword);
    spelled += isBit ? std::to_string(number / 8) + '.' + std::to_string(number % 8)
                     : std::to_string(number);
    const ParameterAddress again = KindsOnly().ParseAddress(spelled);
    Require(again.kind == address.kind && again.number == number, "an address can be spelled");
    const CsvAddress csv = paramlist::SplitCsvAddress(spelled);
    Require(csv.keyword == address.keyword, "CSV files find the kind");
    Require(paramlist::ReadCsvNumber(csv.number, isBit) == number, "CSV files find the number");
}

}  // namespace
}  // namespace orvell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvell::fuzz;
    const std::string text(data, data + std::min(size, kMaximumLength));
    ScanAsReferenceDoes(text);
    AppendDigits(text);
    ReadCsvAddressAsReferenceDoes(text);
    SpellAndReadAgain(text);
    return 0;
}
