#include "fuzz/boundary/vocabulary.h"

#include <limits>

namespace orvell::fuzz {
namespace {

using Doubles = std::numeric_limits<double>;

constexpr const char* kAddresses[] = {
    "PW5",           // a
    "PW6",           // b
    "PW7",           // c
    "PW0",           // d
    "PW",            // e
    "PW4294967295",  // f
    "PW4294967301",  // g: PW5
    "PW12.3",        // h: PW99
    "PW99",          // i
    "E3",            // j
    "E3.0",          // k
    "E3.5",          // l
    "E2.13",         // m: E3.5
    "A3.5",          // n
    "B.",            // o: B0
    "UCHARPARA5",    // p
    "PL5",           // q
    "PL6",           // r
    "INT64PARA5",    // s
    "PF5",           // t
    "DOUBLEPARA5",   // u
    "PT5",           // v
    "PT6",           // w
    "TIMEPARA5",     // x
    "DATEPARA5",     // y
    "TODPARA5",      // z
    "DTPARA5",
    "OLEDTPARA5",
    nullptr,
    "",
    "12",
    "pw5",
    "PD5",
    "X1",
    ".5",
    "PW-5",
    "PT0000000000000000000000000000000000000005",
};

constexpr const char* kTexts[] = {
    nullptr,
    "",
    "1",
    "0",
    "-5",
    "%%",
    "300",
    "65536",
    "4294967296",
    "-9223372036854775809",
    "18446744073709551621",
    "1.5",
    "1,5",
    "-2.96",
    "2,5E3",
    "1e999",
    "9e18",
    "1e25",
    " \t+7x",
    "inf",
    "nan",
    "undef",
    "one blank",
    "seven77",
    "eight888",
    "sixteen characte",
    "thirty-one characters are these",
    "Vektorelement %lu",
    "\xE4\xF6\xFC",
    "e",
};

constexpr double kNumbers[] = {
    0.0,
    1.0,
    -1.5,
    300.7,
    -0.0,
    0.25,
    65535.0,
    -32769.0,
    2147483648.0,
    4294967295.5,
    -4294967297.0,
    9223372036854774784.0,
    9223372036854775808.0,
    -9223372036854775808.0,
    1e300,
    Doubles::denorm_min(),
    0.1 + 0.2,
    Doubles::infinity(),
    -Doubles::infinity(),
    Doubles::quiet_NaN(),
};

constexpr std::uint64_t kIntegers[] = {
    0,
    1,
    2,
    0x7F,
    0x80,
    0xFF,
    0x100,
    0x7FFF,
    0x8000,
    0xFFFF,
    0x10000,
    0x7FFFFFFF,
    0x80000000U,
    0xFFFFFFFFU,
    0x100000000U,
    0x7FFFFFFFFFFFFFFFU,
    0x8000000000000000U,
    0xFFFFFFFFFFFFFFFFU,
};

constexpr std::uint32_t kLengths[] = {0, 1, 2, 3, 4, 5, 7, 8, 9, 16, 31, 64};

std::optional<std::string> TextOrNone(const char* text) {
    return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

}  // namespace

std::optional<std::string> ChooseAddress(Program& program) {
    return TextOrNone(program.Pick(kAddresses));
}

std::optional<std::string> ChooseText(Program& program) {
    const std::size_t choice = program.Choose(std::size(kTexts) + 1);
    return choice < std::size(kTexts) ? TextOrNone(kTexts[choice]) : program.Text();
}

const double& ChooseNumber(Program& program) {
    return program.Pick(kNumbers);
}

std::uint64_t ChooseInteger(Program& program) {
    return program.Pick(kIntegers);
}

std::uint32_t ChooseLength(Program& program) {
    return program.Pick(kLengths);
}

}  // namespace orvell::fuzz
