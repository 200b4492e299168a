#include "parameter_addresses.h"

#include <array>
#include <random>
#include <utility>

namespace orvell::soak {

namespace {

/// How a parameter's value becomes a text.
enum class TextForm { Bit, Byte, Integer, Number, Text, Day, Clock, OleDate };

struct Kind {
    const char* keyword;
    TextForm form;
};

constexpr std::array<Kind, 15> kKinds{{{"E", TextForm::Bit},
                                       {"A", TextForm::Bit},
                                       {"B", TextForm::Bit},
                                       {"UCHARPARA", TextForm::Byte},
                                       {"PW", TextForm::Integer},
                                       {"PL", TextForm::Integer},
                                       {"INT64PARA", TextForm::Integer},
                                       {"PF", TextForm::Number},
                                       {"DOUBLEPARA", TextForm::Number},
                                       {"PT", TextForm::Text},
                                       {"TIMEPARA", TextForm::Integer},
                                       {"DATEPARA", TextForm::Day},
                                       {"TODPARA", TextForm::Clock},
                                       {"DTPARA", TextForm::Integer},
                                       {"OLEDTPARA", TextForm::OleDate}}};

constexpr std::uint32_t kNumbersPerResident = 10;
constexpr std::uint32_t kSecondsPerDay = 86'400;

std::string AddressText(const Kind& kind, std::uint32_t number) {
    constexpr std::uint32_t kBitsPerByte = 8;
    return kind.form == TextForm::Bit ? kind.keyword + std::to_string(number / kBitsPerByte) + '.' +
                                            std::to_string(number % kBitsPerByte)
                                      : kind.keyword + std::to_string(number);
}

std::string ValueText(const Kind& kind, std::uint32_t number) {
    constexpr std::array<const char*, 4> kFractions{"", ".5", ".25", ".125"};
    const std::string fraction = kFractions[number % kFractions.size()];
    switch (kind.form) {
        case TextForm::Bit:
            return number % 3 == 0 ? "1" : "0";
        case TextForm::Byte:
            return std::to_string(number % 256);
        case TextForm::Integer:
            return std::to_string(number * 7 % 32'000);
        case TextForm::Number:
            return '-' + std::to_string(number) + fraction;
        case TextForm::Text:
            return (number % 2 == 0 ? "Text \"" : "A longer text; of number \"") +
                   std::to_string(number) + '"';
        case TextForm::Day:
            return std::to_string(number % 40'000 * kSecondsPerDay);
        case TextForm::Clock:
            return std::to_string(number * 61 % kSecondsPerDay);
        case TextForm::OleDate:
            return std::to_string(30'000 + number) + fraction;
    }
    return {};
}

bool Goes(std::size_t resident, std::uint32_t variant) {
    return resident % kVariantCount == variant;
}

/// Calls `move(from, to)` for each resident that stays.
template <typename Move>
void VisitMoves(const std::vector<ProjectParameter>& residents, std::uint32_t variant,
                const Move& move) {
    std::vector<const char*> staying;
    for (std::size_t i = 0; i < residents.size(); ++i) {
        if (!Goes(i, variant)) {
            staying.push_back(residents[i].address.c_str());
        }
    }
    for (std::size_t i = 0; i < staying.size(); ++i) {
        move(staying[i], staying[(i + variant) % staying.size()]);
    }
}

/// The same for equal seeds, whatever the run-time library.
void Mix(std::vector<Declaration>& declarations, std::uint32_t seed) {
    std::mt19937 random(seed);
    for (std::size_t i = declarations.size(); i > 1; --i) {
        std::swap(declarations[i - 1], declarations[random() % i]);
    }
}

}  // namespace

ParameterAddresses::ParameterAddresses(std::uint32_t declareCount)
    : declareCount_(declareCount), residents_(kKinds.size()) {
    const std::uint32_t visitorCount = declareCount - declareCount / kNumbersPerResident;
    const std::size_t allVisitors = visitorCount + visitorCount / kVariantCount;
    for (std::uint32_t number = 1; visitors_.size() < allVisitors; ++number) {
        for (std::size_t i = 0; i < kKinds.size(); ++i) {
            std::string address = AddressText(kKinds[i], number);
            if (number % kNumbersPerResident == 1) {
                residents_[i].push_back({std::move(address), ValueText(kKinds[i], number)});
            } else {
                visitors_.push_back(std::move(address));
            }
        }
    }
}

std::vector<const char*> ParameterAddresses::VisitorsOf(std::uint32_t variant) const {
    std::size_t count = declareCount_;
    for (const std::vector<ProjectParameter>& residents : residents_) {
        for (std::size_t i = 0; i < residents.size(); ++i) {
            count -= Goes(i, variant) ? 0U : 1U;
        }
    }
    std::vector<const char*> visitors;
    visitors.reserve(count);
    const std::size_t first = visitors_.size() * variant / kVariantCount;
    for (std::size_t i = 0; i < count; ++i) {
        visitors.push_back(visitors_[(first + i) % visitors_.size()].c_str());
    }
    return visitors;
}

void ParameterAddresses::DeclareOutward(std::uint32_t variant,
                                        std::vector<Declaration>& declarations) const {
    declarations.clear();
    for (const std::vector<ProjectParameter>& residents : residents_) {
        VisitMoves(residents, variant, [&](const char* from, const char* to) {
            declarations.push_back({from, to});
        });
    }
    for (const char* visitor : VisitorsOf(variant)) {
        declarations.push_back({nullptr, visitor});
    }
    if (variant % 2 != 0) {
        Mix(declarations, variant);
    }
}

void ParameterAddresses::DeclareHomeward(std::uint32_t variant,
                                         std::vector<Declaration>& declarations) const {
    declarations.clear();
    for (const std::vector<ProjectParameter>& residents : residents_) {
        VisitMoves(residents, variant, [&](const char* from, const char* to) {
            declarations.push_back({to, from});
        });
        for (std::size_t i = 0; i < residents.size(); ++i) {
            if (Goes(i, variant)) {
                declarations.push_back({nullptr, residents[i].address.c_str()});
            }
        }
    }
    if (variant % 2 != 0) {
        Mix(declarations, variant);
    }
}

}  // namespace orvell::soak
