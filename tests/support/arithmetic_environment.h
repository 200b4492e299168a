#pragma once

#include <cstdint>
#include <locale>

namespace orvell::test {

// What a host may set for the whole process, each for as long as the object lives.

/// Decimal comma and grouped digits for the C library and the C++ library.
class GermanLocale {
  public:
    GermanLocale();
    ~GermanLocale();
    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;

  private:
    std::locale before_;
};

/// Whether the C library prints so: without it a locale shows nothing.
[[nodiscard]] bool PrintsDecimalComma();

/// The precision of the x87 unit set to 24 bits.
class SinglePrecision {
  public:
    SinglePrecision();
    ~SinglePrecision();
    SinglePrecision(const SinglePrecision&) = delete;
    SinglePrecision& operator=(const SinglePrecision&) = delete;

  private:
    std::uint16_t before_ = 0;
};

/// Whether the x87 unit calculates so.
[[nodiscard]] bool LosesLowBits();

}  // namespace orvell::test
