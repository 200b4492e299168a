// exhaustive_check list DECIMALS
//     prints the names of the checks and their numbers of values.
// exhaustive_check run DECIMALS CHECK PART PARTS host|plain
//     runs one of several equal parts of a check, counted from 1, and prints how many values it
//     had, how many differences it found and how many milliseconds of processor time it took.
//     Differences go to the error output. "host" sets what a careless host may set.
// DECIMALS is the file that hard_decimals.py makes. The exit status is 1 for differences, 2 for a
// check that could not be run.

#include <time.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "exhaustive/check.h"
#include "exhaustive/counter_checks.h"
#include "exhaustive/double_checks.h"
#include "exhaustive/float_check.h"
#include "exhaustive/host_environment.h"
#include "exhaustive/integer_check.h"
#include "platform/local_clock.h"

namespace orvell::exhaustive {
namespace {

constexpr int kDifferent = 1;
constexpr int kNotRun = 2;

constexpr std::string_view kDecimalsName = "decimals";

struct Check {
    std::string_view name;
    std::uint64_t valueCount;
    std::function<void(Range, Differences&)> run;
    bool isOfProduct = true;  ///< else of the reference, which is checked in a plain environment
};

using ConverterCheck = void (*)(const values::ValueConverterSet&, Range, Differences&);

std::vector<Check> AllChecks(const values::ValueConverterSet& converters,
                             const std::vector<KnownDecimal>& decimals) {
    constexpr std::uint64_t kAll32Bits = std::uint64_t{1} << 32;
    const auto with = [&](ConverterCheck check) {
        return [check, &converters](Range values, Differences& differences) {
            check(converters, values, differences);
        };
    };
    return {
        {"reference", kReferenceCount, CheckReference, false},
        {"integers", kSmallIntegerCount, with(CheckIntegers)},
        {kDecimalsName, decimals.size(),
         [&](Range values, Differences& differences) {
             CheckKnownDecimals(converters, decimals, values, differences);
         }},
        {"time", kAll32Bits, with(CheckTimes)},
        {"date-day-first", kAll32Bits, with(CheckDatesDayFirst)},
        {"date-month-first", kAll32Bits, with(CheckDatesMonthFirst)},
        {"duration", kAll32Bits, with(CheckDurations)},
        {"float", kAll32Bits, with(CheckFloats)},
        {"date-time-day-first", kAll32Bits, with(CheckDateTimesDayFirst)},
        {"date-time-month-first", kAll32Bits, with(CheckDateTimesMonthFirst)},
        {"doubles", kRandomDoubleCount, with(CheckRandomDoubles)},
    };
}

Range PartOf(std::uint64_t valueCount, std::uint64_t part, std::uint64_t partCount) {
    return {valueCount * (part - 1) / partCount, valueCount * part / partCount};
}

int Fail(std::string_view reason) {
    std::fprintf(stderr, "exhaustive_check: %.*s\n", static_cast<int>(reason.size()),
                 reason.data());
    return kNotRun;
}

/// Processor time of this process.
std::int64_t ProcessorMilliseconds() {
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
}

int Run(const Check& check, Range values, bool isHost) {
    const bool isChanged = isHost && check.isOfProduct;
    if (isChanged && !EnterHostEnvironment()) {
        return Fail("the German locale cannot be set");
    }
    Differences differences;
    const std::int64_t start = ProcessorMilliseconds();
    check.run(values, differences);
    const std::int64_t elapsed = ProcessorMilliseconds() - start;
    if (isChanged && !IsHostEnvironment()) {
        return Fail("the environment has been set back");
    }
    std::printf("%llu %llu %lld\n", static_cast<unsigned long long>(values.end - values.first),
                static_cast<unsigned long long>(differences.Count()),
                static_cast<long long>(elapsed));
    return differences.Count() == 0 ? 0 : kDifferent;
}

int RunNamed(const std::vector<Check>& checks, std::span<char* const> arguments) {
    const std::string_view name = arguments[3];
    const std::uint64_t part = std::strtoul(arguments[4], nullptr, 10);
    const std::uint64_t partCount = std::strtoul(arguments[5], nullptr, 10);
    const std::string_view environment = arguments[6];
    if (part < 1 || part > partCount || (environment != "host" && environment != "plain")) {
        return Fail("wrong part or environment");
    }
    for (const Check& check : checks) {
        if (check.name == name) {
            return Run(check, PartOf(check.valueCount, part, partCount), environment == "host");
        }
    }
    return Fail("no such check");
}

int List(const std::vector<Check>& checks) {
    for (const Check& check : checks) {
        std::printf("%.*s %llu\n", static_cast<int>(check.name.size()), check.name.data(),
                    static_cast<unsigned long long>(check.valueCount));
    }
    return 0;
}

int Main(std::span<char* const> arguments) {
    constexpr std::size_t kListArguments = 3;
    constexpr std::size_t kRunArguments = 7;
    const std::string_view command = arguments.size() >= kListArguments ? arguments[1] : "";
    const bool isList = command == "list" && arguments.size() == kListArguments;
    const bool isRun = command == "run" && arguments.size() == kRunArguments;
    if (!isList && !isRun) {
        return Fail("wrong arguments");
    }
    const values::ValueConverterSet converters(platform::SystemLocalClock());
    const bool needsDecimals = isList || arguments[3] == kDecimalsName;
    const std::vector<KnownDecimal> decimals =
        needsDecimals ? LoadKnownDecimals(arguments[2]) : std::vector<KnownDecimal>();
    if (needsDecimals && decimals.empty()) {
        return Fail("there are no decimals");
    }
    const std::vector<Check> checks = AllChecks(converters, decimals);
    return isList ? List(checks) : RunNamed(checks, arguments);
}

}  // namespace
}  // namespace orvell::exhaustive

int main(int argumentCount, char** arguments) {
    return orvell::exhaustive::Main({arguments, static_cast<std::size_t>(argumentCount)});
}
