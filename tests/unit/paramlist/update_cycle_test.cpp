#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "paramlist/parameter_kind.h"

namespace orvell::paramlist {
namespace {

struct ModelEntry {
    std::string name;
    std::string text;
    bool isDeclared = false;
};

/// What a kind does, said with an ordered multimap: equal numbers stay in the order of insertion.
class Model {
  public:
    using Entries = std::multimap<std::uint32_t, ModelEntry>;

    ModelEntry* FindMarked(std::uint32_t number, bool isSet) {
        const auto [begin, end] = entries.equal_range(number);
        for (auto entry = begin; entry != end; ++entry) {
            if (entry->second.isDeclared == isSet) {
                return &entry->second;
            }
        }
        return nullptr;
    }

    ModelEntry& Obtain(std::uint32_t number) {
        const auto found = entries.lower_bound(number);
        return found != entries.end() && found->first == number
                   ? found->second
                   : entries.insert({number, {}})->second;
    }

    bool Declare(std::uint32_t oldNumber, std::uint32_t newNumber) {
        if (newNumber == 0) {
            return false;
        }
        if (oldNumber == newNumber) {
            Obtain(newNumber).isDeclared = true;
            return true;
        }
        const ModelEntry* const source = FindMarked(oldNumber, false);
        ModelEntry entry = source != nullptr ? *source : ModelEntry();
        entry.isDeclared = true;
        entries.insert({newNumber, entry});
        return true;
    }

    void ClearMarks() {
        for (auto& [number, entry] : entries) {
            entry.isDeclared = false;
        }
    }

    void Purge() {
        std::erase_if(entries, [](const auto& item) { return !item.second.isDeclared; });
    }

    Entries entries;
};

class UpdateCycle : public testing::TestWithParam<std::uint32_t> {
  protected:
    /// Numbers below the limit; a small one makes many entries share a number.
    std::uint32_t AnyNumber() { return std::uniform_int_distribution(0U, GetParam())(random_); }

    void Write(std::uint32_t number) {
        const std::string name = "n" + std::to_string(++written_);
        const std::string text = name + std::string(written_ % 13, '.');
        ParameterEntry& entry = kind_.Obtain(number, false);
        entry.SetName(name);
        entry.Value().StoreText(text);
        model_.Obtain(number).name = name;
        model_.Obtain(number).text = text;
    }

    void Declare(std::uint32_t oldNumber, std::uint32_t newNumber) {
        ASSERT_EQ(kind_.Declare(oldNumber, newNumber), model_.Declare(oldNumber, newNumber));
    }

    void ExpectSameMarked(std::uint32_t number, bool isSet) {
        const ParameterEntry* const entry = kind_.FindMarked(number, kDeclaredMark, isSet);
        const ModelEntry* const expected = model_.FindMarked(number, isSet);
        ASSERT_EQ(entry != nullptr, expected != nullptr) << number;
        if (entry != nullptr) {
            ASSERT_EQ(entry->Number(), number);
            ASSERT_EQ(entry->Name(), expected->name);
            ASSERT_EQ((entry->Flags() & kDeclaredMark) != 0, isSet);
        }
    }

    void ExpectSameEntries() {
        const std::vector<const ParameterEntry*> entries = kind_.EntriesInOrder();
        ASSERT_EQ(entries.size(), model_.entries.size());
        ASSERT_EQ(kind_.EntryCount(), model_.entries.size());
        auto expected = model_.entries.begin();
        for (const ParameterEntry* entry : entries) {
            ASSERT_EQ(entry->Number(), expected->first);
            ASSERT_EQ(entry->Name(), expected->second.name);
            ASSERT_EQ(entry->Value().LoadText(), expected->second.text);
            ASSERT_EQ(entry->Flags(), expected->second.isDeclared ? kDeclaredMark : 0);
            ++expected;
        }
    }

    /// Declares parameters that stay, move, change places or come from nowhere.
    void DeclareSome(int count) {
        for (int step = 0; step < count; ++step) {
            const std::uint32_t number = AnyNumber();
            const std::uint32_t other = AnyNumber();
            switch (random_() % 5) {
                case 0:
                    Declare(number, number);
                    break;
                case 1:
                    Declare(0, number);
                    break;
                case 2:
                    Declare(number, other);
                    Declare(other, number);
                    break;
                default:
                    Declare(number, other);
                    break;
            }
            ExpectSameMarked(AnyNumber(), true);
            ExpectSameMarked(AnyNumber(), false);
        }
    }

    std::mt19937 random_{4711};
    std::uint32_t written_ = 0;
    ParameterKind kind_{"PT", ValueTypeCode::Text, nullptr};
    Model model_;
};

INSTANTIATE_TEST_SUITE_P(Limits, UpdateCycle, testing::Values(3, 40, 3000, 4294967295));

TEST_P(UpdateCycle, DoesWhatAnOrderedMultimapDoes) {
    for (int cycle = 0; cycle < 40; ++cycle) {
        for (int count = 0; count < 20; ++count) {
            Write(AnyNumber());
        }
        if (cycle % 8 != 7) {  // a host may forget to begin an update
            kind_.SetFlags(kDeclaredMark, false);
            model_.ClearMarks();
        }
        DeclareSome(60);
        ExpectSameEntries();
        if (cycle % 4 != 3) {  // or to end it
            kind_.Purge(kDeclaredMark);
            model_.Purge();
        }
        ExpectSameEntries();
        if (HasFatalFailure()) {
            return;
        }
    }
}

}  // namespace
}  // namespace orvell::paramlist
