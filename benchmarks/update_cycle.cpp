#include "update_cycle.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

#include "measurement.h"

namespace orvell::benchmarks {
namespace {

using paramlist::kDeclaredMark;
using paramlist::ParameterKind;
using paramlist::ParameterList;

struct Declaration {
    ParameterKind* kind;
    std::uint32_t oldNumber;
    std::uint32_t newNumber;
};

std::vector<std::uint32_t> NumbersOf(const ParameterKind& kind) {
    std::vector<std::uint32_t> numbers;
    kind.VisitInOrder([&numbers](const paramlist::ParameterEntry& entry) {
        numbers.push_back(entry.Number());
        return true;
    });
    return numbers;
}

/// One declaration for each entry; `rearrange` changes a kind's numbers to the new ones.
template <typename Rearrange>
std::vector<Declaration> DeclareAll(ParameterList& list, const Rearrange& rearrange) {
    std::vector<Declaration> declarations;
    for (ParameterKind& kind : list.Kinds()) {
        const std::vector<std::uint32_t> oldNumbers = NumbersOf(kind);
        std::vector<std::uint32_t> newNumbers = oldNumbers;
        rearrange(newNumbers);
        for (std::size_t index = 0; index < oldNumbers.size(); ++index) {
            declarations.push_back({&kind, oldNumbers[index], newNumbers[index]});
        }
    }
    return declarations;
}

void MeasureCycle(ParameterList& list, std::string_view group, std::string_view name,
                  const std::vector<Declaration>& declarations) {
    const auto count = static_cast<double>(declarations.size());
    Measure({group, name, 0, count}, [&] {
        list.SetFlagsAll(kDeclaredMark, false);
        for (const auto& [kind, oldNumber, newNumber] : declarations) {
            kind->Declare(oldNumber, newNumber);
        }
        list.PurgeAll(kDeclaredMark);
    });
    std::size_t remaining = 0;
    for (const ParameterKind& kind : list.Kinds()) {
        remaining += kind.EntryCount();
    }
    Require(remaining == declarations.size(), "the update cycle loses or keeps entries");
}

}  // namespace

void MeasureUpdateCycles(ParameterList& list, std::string_view name) {
    std::mt19937 random(1);
    const auto stay = [](const auto&) {};
    const auto rotate = [](std::vector<std::uint32_t>& numbers) {
        if (!numbers.empty()) {
            std::ranges::rotate(numbers, numbers.begin() + 1);
        }
    };
    const auto mix = [&random](std::vector<std::uint32_t>& numbers) {
        std::ranges::shuffle(numbers, random);
    };

    std::vector<Declaration> declarations = DeclareAll(list, stay);
    MeasureCycle(list, "update-unchanged", name, declarations);
    std::ranges::shuffle(declarations, random);
    MeasureCycle(list, "update-unchanged-random", name, declarations);
    MeasureCycle(list, "update-moved", name, DeclareAll(list, rotate));
    declarations = DeclareAll(list, mix);
    std::ranges::shuffle(declarations, random);
    MeasureCycle(list, "update-moved-random", name, declarations);
}

}  // namespace orvell::benchmarks
