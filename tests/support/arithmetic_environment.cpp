#include "support/arithmetic_environment.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace orvell::test {
namespace {

constexpr std::uint16_t kPrecisionMask = 0x0300;  // of the x87 control word; 0: 24 bits

class CommaPunctuation : public std::numpunct<char> {
  protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Sets the locale of the C library, when it can be had.
void SetGermanForC() {
#if defined(_WIN32)
    std::setlocale(LC_ALL, "German_Germany.1252");
#else
    [[maybe_unused]] static const int isFolderSet = setenv("LOCPATH", ORVELL_LOCALE_FOLDER, 1);
    std::setlocale(LC_ALL, "de_DE.CP1252");
    // Keeps it loaded, so that setting it again and again reads no files.
    [[maybe_unused]] static const locale_t kept = duplocale(LC_GLOBAL_LOCALE);
#endif
}

}  // namespace

GermanLocale::GermanLocale()
    : before_(std::locale::global(std::locale(std::locale(), new CommaPunctuation))) {
    SetGermanForC();
}

GermanLocale::~GermanLocale() {
    std::setlocale(LC_ALL, "C");
    std::locale::global(before_);
}

bool PrintsDecimalComma() {
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    return std::string_view(text) == "1,5";
}

SinglePrecision::SinglePrecision() {
    asm volatile("fnstcw %0" : "=m"(before_));
    const auto single = static_cast<std::uint16_t>(before_ & ~kPrecisionMask);
    asm volatile("fldcw %0" : : "m"(single));
}

SinglePrecision::~SinglePrecision() {
    asm volatile("fldcw %0" : : "m"(before_));
}

/// 1 + 2^-40, added by the x87 unit.
bool LosesLowBits() {
    double sum = 0.0;
    const double small = 0x1p-40;
    asm volatile("fld1\n\tfaddl %1\n\tfstpl %0" : "=m"(sum) : "m"(small));
    return sum == 1.0;
}

}  // namespace orvell::test
