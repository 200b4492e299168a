#pragma once

#include <clocale>
#include <cstdint>
#include <locale>
#include <string>

namespace orvell::test {

// What a host may set for the whole process, each for as long as the object lives.

/// Decimal comma and grouped digits for the C++ library, and for the C library where the system
/// knows such a locale.
class GermanLocale {
  public:
    GermanLocale()
        : before_(std::locale::global(std::locale(std::locale(), new CommaPunctuation))) {
        static const char* const kName = NameOfGerman();
        if (kName != nullptr) {
            std::setlocale(LC_ALL, kName);
        }
    }
    ~GermanLocale() {
        std::setlocale(LC_ALL, "C");
        std::locale::global(before_);
    }
    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;

  private:
    class CommaPunctuation : public std::numpunct<char> {
      protected:
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    /// The name under which the system knows the locale, null when it does not.
    static const char* NameOfGerman() {
        for (const char* name : {"German_Germany.1252", "German", "de_DE.UTF-8", "de_DE"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) {
                return name;
            }
        }
        return nullptr;
    }

    std::locale before_;
};

/// The precision of the x87 unit set to 24 bits.
class SinglePrecision {
  public:
    SinglePrecision() {
        asm volatile("fnstcw %0" : "=m"(before_));
        const auto single = static_cast<std::uint16_t>(before_ & ~kPrecisionMask);
        asm volatile("fldcw %0" : : "m"(single));
    }
    ~SinglePrecision() { asm volatile("fldcw %0" : : "m"(before_)); }
    SinglePrecision(const SinglePrecision&) = delete;
    SinglePrecision& operator=(const SinglePrecision&) = delete;

  private:
    static constexpr std::uint16_t kPrecisionMask = 0x0300;
    std::uint16_t before_ = 0;
};

}  // namespace orvell::test
