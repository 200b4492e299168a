#include "exhaustive/host_environment.h"

#include "support/arithmetic_environment.h"

namespace orvell::exhaustive {

bool EnterHostEnvironment() {
    static const test::GermanLocale german;
    static const test::SinglePrecision single;
    return IsHostEnvironment();
}

bool IsHostEnvironment() {
    return test::PrintsDecimalComma() && test::LosesLowBits();
}

}  // namespace orvell::exhaustive
