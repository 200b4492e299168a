#include "fuzz/values/text_properties.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "fuzz/require.h"
#include "fuzz/values/reference_texts.h"

namespace orvell::fuzz {

using values::BaseTypeCode;

namespace {

/// The longest text of a value, without quotation marks.
std::size_t LongestText(const ConverterCase& testCase, std::size_t width) {
    switch (testCase.Type().baseType) {
        case BaseTypeCode::Int:
        case BaseTypeCode::UInt:
            return std::strlen("-9223372036854775808");
        case BaseTypeCode::Float:
            return std::strlen("-1.234567e-38");
        case BaseTypeCode::Double:
            return std::strlen("-1.23456789012345e-308");
        case BaseTypeCode::String:
            return width - 1;
        case BaseTypeCode::Duration:
            return std::strlen("49 d 17 h 2 min 47 s 295 ms") + 2;
        case BaseTypeCode::Time:
            return std::strlen("23:59:59");
        case BaseTypeCode::Date:
            return std::strlen("31.12.2106");
        case BaseTypeCode::DateTime:
            return std::strlen("31.12.2106 23:59:59");
        case BaseTypeCode::OleDateTime:
            return std::strlen("31.12.9999 23:59:59,999");
        default:
            break;
    }
    std::size_t longest = std::strlen("4294967295");
    for (const values::EnumItem& item : testCase.EnumItems()) {
        longest = std::max(longest, item.name.size());
    }
    return longest;
}

/// What must come out when the printed text of a floating number is read and printed again: the
/// same text, but for what such texts cannot hold.
std::string FloatingPrintedAgain(const std::string& text, bool isFloat) {
    if (text == "inf" || text == "-inf" || text == "nan") {
        return "0";  // the words are not read
    }
    // The digits of the largest numbers may round up to what is none any more.
    double number = std::strtod(text.c_str(), nullptr);
    number = isFloat ? static_cast<float>(number) : number;
    return std::isinf(number) ? (number < 0 ? "-inf" : "inf") : text;
}

/// As above for a name or number. An item may be named as a number that it is not, and have a value
/// that its type has no room for.
std::string EnumeratedPrintedAgain(const ConverterCase& testCase, const std::string& text,
                                   std::size_t width) {
    const auto read = ReferenceParse(testCase, text, width);
    return ReferencePrint(testCase, read->value).value();
}

std::string PrintedAgain(const Conversions& conversions, const ConverterCase& testCase,
                         const std::string& text) {
    switch (testCase.Type().baseType) {
        case BaseTypeCode::Float:
            return FloatingPrintedAgain(text, true);
        case BaseTypeCode::Double:
            return FloatingPrintedAgain(text, false);
        case BaseTypeCode::Enumerated:
            return EnumeratedPrintedAgain(testCase, text, conversions.Width());
        default:
            return text;
    }
}

/// An OLE date rounded up to the next day is shown as hour 24 of its own day, but read as hour 0 of
/// the next one.
bool IsHour24(BaseTypeCode baseType, const std::string& text) {
    return baseType == BaseTypeCode::OleDateTime && text.find("24:00:00") != std::string::npos;
}

/// The value that is left of one which was printed and read.
Bytes ValueOfItsText(BaseTypeCode baseType, Bytes value) {
    constexpr std::uint32_t kSecondsPerDay = 86400;
    std::uint32_t count = 0;
    std::memcpy(&count, value.data(), std::min(sizeof count, value.size()));
    if (baseType == BaseTypeCode::Time) {
        count %= kSecondsPerDay;
    } else if (baseType == BaseTypeCode::Date) {
        count -= count % kSecondsPerDay;
    }
    std::memcpy(value.data(), &count, std::min(sizeof count, value.size()));
    return value;
}

bool KeepsValueInText(BaseTypeCode baseType) {
    return baseType != BaseTypeCode::Float && baseType != BaseTypeCode::Double &&
           baseType != BaseTypeCode::String && baseType != BaseTypeCode::OleDateTime &&
           baseType != BaseTypeCode::Enumerated;
}

void CheckPrinting(const Conversions& conversions, const ConverterCase& testCase,
                   const Bytes& value) {
    const BaseTypeCode baseType = testCase.Type().baseType;
    const std::string printed = conversions.Print(value);
    Require(printed.size() <= LongestText(testCase, value.size()), "texts are bounded");
    const auto expected = ReferencePrint(testCase, value);
    Require(!expected || printed == *expected, "the text is that of the reference");

    const StoredText read = conversions.Parse(printed);
    Require(read.isAccepted, "a printed text is accepted");
    const std::string again = conversions.Print(read.value);
    if (IsHour24(baseType, printed)) {
        Require(conversions.Print(conversions.Parse(again).value) == again, "hour 24 passes once");
    } else {
        Require(again == PrintedAgain(conversions, testCase, printed),
                "print, parse, print gives the same");
    }
    Require(!KeepsValueInText(baseType) || read.value == ValueOfItsText(baseType, value),
            "a printed text keeps the value");
    Require(baseType != BaseTypeCode::String ||
                conversions.Print(value, /*isRaw=*/false) == '"' + printed + '"',
            "a string stands in quotation marks");
}

void CheckExport(const Conversions& conversions, const ConverterCase& testCase,
                 const Bytes& value) {
    const std::string exported = conversions.Export(value);
    const auto expected = ReferenceExport(testCase, value);
    Require(!expected || exported == *expected, "the text for lists is that of the reference");
    const StoredText read = conversions.Import(exported);
    Require(read.isAccepted, "an exported text is accepted");
    const std::string again = conversions.Export(read.value);
    if (IsHour24(testCase.Type().baseType, exported)) {
        return;
    }
    // Both kinds of text differ in the decimal point and in quotation marks only.
    const std::string printed = conversions.Print(value);
    const std::string printedAgain = PrintedAgain(conversions, testCase, printed);
    Require(again == (printedAgain == printed ? exported : printedAgain),
            "export, import, export is stable");
}

std::string NormalizedAgain(BaseTypeCode baseType, const std::string& text) {
    const bool isFloat = baseType == BaseTypeCode::Float;
    return isFloat || baseType == BaseTypeCode::Double ? FloatingPrintedAgain(text, isFloat) : text;
}

void CheckNormalizing(const Conversions& conversions, const ConverterCase& testCase,
                      const StoredText& parsed) {
    const BaseTypeCode baseType = testCase.Type().baseType;
    const std::string once = conversions.Normalize(testCase.Text());
    const std::string twice = conversions.Normalize(once);
    Require(twice == NormalizedAgain(baseType, once), "normalizing once is enough");
    if (baseType == BaseTypeCode::Enumerated) {
        Require(once == testCase.Text(), "names stay as they are");
    } else if (baseType == BaseTypeCode::String) {
        Require(once == testCase.Text().substr(0, parsed.value.size() - 1), "strings are cut");
    } else {
        Require(once == conversions.Print(parsed.value), "the normal text is the value's text");
        Require(conversions.Normalize(conversions.DefaultText()) == conversions.DefaultText(),
                "the default text is normal");
    }
}

/// The parameter comes back from whoever has kept it.
void CheckNormalizingByAnyParameter(const Conversions& conversions, const ConverterCase& testCase) {
    std::uint32_t param = 0;
    const Bytes bytes = testCase.Value(sizeof param);
    std::memcpy(&param, bytes.data(), sizeof param);
    const std::string once = conversions.Normalize(testCase.Text(), param);
    Require(conversions.Normalize(once, param) == NormalizedAgain(testCase.Type().baseType, once),
            "normalizing by any parameter once is enough");
}

void CheckReading(const Conversions& conversions, const ConverterCase& testCase,
                  const StoredText& parsed, const StoredText& imported) {
    const auto expected = ReferenceParse(testCase, testCase.Text(), conversions.Width());
    Require(!expected || parsed == *expected, "the value is that of the reference");
    const auto expectedOfList = ReferenceImport(testCase, testCase.Text(), conversions.Width());
    Require(!expectedOfList || imported == *expectedOfList,
            "the value of a list's text is that of the reference");
    const auto defaultText = ReferenceDefault(testCase);
    Require(!defaultText || conversions.DefaultText() == *defaultText,
            "the default text is that of the reference");
}

}  // namespace

void CheckTexts(const Conversions& conversions, const ConverterCase& testCase) {
    const StoredText parsed = conversions.Parse(testCase.Text());
    const StoredText imported = conversions.Import(testCase.Text());
    CheckReading(conversions, testCase, parsed, imported);
    CheckNormalizing(conversions, testCase, parsed);
    CheckNormalizingByAnyParameter(conversions, testCase);
    const Bytes given = testCase.Value(parsed.value.size());
    for (const Bytes& value : {given, parsed.value, imported.value}) {
        CheckPrinting(conversions, testCase, value);
        CheckExport(conversions, testCase, value);
    }
}

}  // namespace orvell::fuzz
