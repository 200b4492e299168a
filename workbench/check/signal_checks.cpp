#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "check/checks.h"
#include "check/list_calls.h"

// The accessors that take a signal: a packed block that begins with the address.

namespace workbench::check {
namespace {

constexpr std::size_t kAddressBytes = 31;
constexpr std::size_t kValueOffset = 31;
constexpr std::size_t kTextOffset = 35;
constexpr std::size_t kTextBytes = 18;

/// A signal in guarded memory that ends with what the accessor may use.
class Signal {
  public:
    Signal(const Bench& bench, std::string_view address, std::size_t size)
        : block_(bench.Block(size, "signal")) {
        std::ranges::fill(block_.Bytes(), std::uint8_t{0x5A});
        std::copy_n(address.begin(), std::min(address.size(), kAddressBytes), block_.Data());
        if (address.size() < kAddressBytes) {
            block_.Data()[address.size()] = 0;
        }
        before_.assign(block_.Data(), block_.Data() + size);
    }

    [[nodiscard]] std::uint8_t* Data() const { return block_.Data(); }
    [[nodiscard]] const char* Text() const {
        return reinterpret_cast<const char*>(block_.Data() + kTextOffset);
    }

    void PutText(std::string_view text) {
        std::ranges::copy(text, block_.Data() + kValueOffset);
        block_.Data()[kValueOffset + text.size()] = 0;
    }

    [[nodiscard]] bool IsUnchangedBefore(std::size_t end) const {
        return std::equal(before_.begin(), before_.begin() + static_cast<std::ptrdiff_t>(end),
                          block_.Data());
    }

    [[nodiscard]] bool IsUnchanged() const { return IsUnchangedBefore(before_.size()); }

  private:
    GuardedBlock block_;
    std::vector<std::uint8_t> before_;
};

void TakeString(Bench& bench, const Signal& signal) {
    bench.Call("STDSIL_GetStringValue", [&] { bench.Functions().GetStringValue(signal.Data()); });
}

void Strings(Bench& bench) {
    bench.BeginList();
    for (const std::string& text :
         {std::string(), std::string("a"), std::string(17, 'b'), std::string(60, 'c')}) {
        Signal target(bench, "PT1", kValueOffset + text.size() + 1);
        target.PutText(text);
        bench.Call("STDSIL_SetTextValue", [&] { bench.Functions().SetTextValue(target.Data()); });
        const Signal source(bench, "PT1", kTextOffset + kTextBytes);
        TakeString(bench, source);
        bench.Expect(source.Text() == text.substr(0, kTextBytes - 1), "the text, cut to 17 bytes",
                     {static_cast<int>(text.size())});
        bench.Expect(source.IsUnchangedBefore(kTextOffset), "what lies before the text stays");
    }
    const Signal unknown(bench, "XX1", kTextOffset + kTextBytes);
    TakeString(bench, unknown);
    bench.Expect(unknown.IsUnchanged(), "an unknown kind touches nothing");
    const Signal missing(bench, "PT99", kTextOffset + kTextBytes);
    TakeString(bench, missing);
    bench.Expect(missing.Text()[0] == 0, "a missing parameter is an empty text");
}

void Vectors(Bench& bench) {
    bench.BeginList();
    for (std::uint16_t count = 0; count <= 12; ++count) {
        const GuardedBlock countBlock = bench.Block(sizeof count, "count");
        std::memcpy(countBlock.Data(), &count, sizeof count);
        auto* countWord = reinterpret_cast<std::uint16_t*>(countBlock.Data());
        const std::size_t size = kValueOffset + std::size_t{count} * 4;
        const Signal target(bench, "PL1", size);
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::uint32_t value = i + 1;
            std::memcpy(target.Data() + kValueOffset + i * 4, &value, sizeof value);
        }
        bench.Call("STDSIL_SetTXValue",
                   [&] { bench.Functions().SetTXValue(target.Data(), countWord); });
        const Signal source(bench, "PL1", size);
        bench.Call("STDSIL_GetTXValue",
                   [&] { bench.Functions().GetTXValue(source.Data(), countWord); });
        bench.Expect(std::memcmp(source.Data(), target.Data(), 4) == 0 &&
                         std::equal(source.Data() + kValueOffset, source.Data() + size,
                                    target.Data() + kValueOffset),
                     "what was set is read; count", {count});
        bench.Expect(source.IsUnchangedBefore(kValueOffset) && *countWord == count,
                     "address and count stay", {count});
    }
    bench.Expect(ValueText(bench, "PL12") == "12" && ValueText(bench, "PL13") == "(none)",
                 "as many parameters as there are values");
}

/// An address without a closing NUL ends before the value.
void LongAddresses(Bench& bench) {
    bench.BeginList();
    const std::string address = "PL" + std::string(27, '0') + "42";
    const std::uint16_t one = 1;
    const Signal target(bench, address, kValueOffset + 4);
    bench.Call("STDSIL_SetTXValue", [&] {
        bench.Functions().SetTXValue(target.Data(), const_cast<std::uint16_t*>(&one));
    });
    bench.Expect(ValueText(bench, "PL42") == std::to_string(0x5A5A5A5A),
                 "the address is 31 bytes long");
    for (int round = 0; round < 200; ++round) {
        const Signal random(bench, bench.Random().Text(40, "PTLWE0123456789.\xE4"),
                            kTextOffset + kTextBytes);
        TakeString(bench, random);
        bench.Expect(random.IsUnchangedBefore(kTextOffset), "the address stays");
    }
}

void NullArguments(Bench& bench) {
    bench.BeginList();
    std::uint16_t count = 1;
    const Signal signal(bench, "PL1", kTextOffset + kTextBytes);
    const Exports& f = bench.Functions();
    bench.Call("accessors with a null signal", [&] {
        f.GetStringValue(nullptr);
        f.SetTextValue(nullptr);
        f.GetTXValue(nullptr, &count);
        f.SetTXValue(nullptr, &count);
        f.GetTXValue(signal.Data(), nullptr);
        f.SetTXValue(signal.Data(), nullptr);
    });
    bench.Expect(signal.IsUnchanged() && count == 1, "null touches nothing");
    bench.Expect(DescriptionText(bench, "PL1") == "(none)", "null creates nothing");
}

constexpr Check kChecks[] = {
    {"signals", "GetStringValue, SetTextValue keep to their places", Strings},
    {"signals", "GetTXValue, SetTXValue with vectors of every length", Vectors},
    {"signals", "addresses of every length", LongAddresses},
    {"signals", "null in place of every pointer", NullArguments},
};

}  // namespace

std::span<const Check> SignalChecks() {
    return kChecks;
}

}  // namespace workbench::check
