#include <cstring>
#include <string>

#include "check/checks.h"
#include "check/list_calls.h"

// The management table's slots for the list as a whole and for the update cycle.

namespace workbench::check {
namespace {

void BeginUpdate(Bench& bench) {
    bench.Call("BeginUpdate", [&] { bench.Management().BeginUpdate(); });
}

void EndUpdate(Bench& bench) {
    bench.Call("EndUpdate", [&] { bench.Management().EndUpdate(); });
}

void ClearList(Bench& bench) {
    bench.Call("ClearList", [&] { bench.Management().ClearList(); });
}

void SetToken(Bench& bench, std::uint32_t token) {
    bench.Call("SetCallToken", [&] { bench.Management().SetCallToken(token); });
}

void Declare(Bench& bench, std::string_view oldAddress, std::string_view newAddress) {
    const HostText before(bench, oldAddress, "old address");
    const HostText now(bench, newAddress, "new address");
    bench.Call("DeclareParameter",
               [&] { bench.Management().DeclareParameter(before.Get(), now.Get()); });
}

/// Addresses change places, a new one comes, an undeclared one goes.
void UpdateCycle(Bench& bench) {
    bench.BeginList();
    SetWord(bench, "PW1", 1, "one");
    SetWord(bench, "PW2", 2, "two");
    SetWord(bench, "PW3", 3);
    BeginUpdate(bench);
    bench.Expect(ValueText(bench, "PW1") == "(none)", "undeclared values are not read");
    Declare(bench, "PW1", "PW2");
    Declare(bench, "PW2", "PW1");
    Declare(bench, "", "PW4");
    bench.Expect(SetWord(bench, "PW3", 9) == 0, "undeclared values are not written");
    bench.Expect(SetWord(bench, "PW4", 4) == 1, "declared values are written");
    EndUpdate(bench);
    bench.Expect(ValueText(bench, "PW1") == "2" && ValueText(bench, "PW2") == "1",
                 "the values have changed places");
    bench.Expect(DescriptionText(bench, "PW1") == "two|", "so have the names");
    bench.Expect(ValueText(bench, "PW4") == "4", "the new parameter is there");
    bench.Expect(DescriptionText(bench, "PW3") == "(none)", "the undeclared one is gone");
}

void Tokens(Bench& bench) {
    bench.BeginList();
    const std::uint32_t token = bench.NewToken();
    SetToken(bench, token);
    ClearList(bench);
    SetWord(bench, "PW1", 1);
    ClearList(bench);
    bench.Expect(ValueText(bench, "PW1") == "1", "the list is cleared once for a token");
    BeginUpdate(bench);
    EndUpdate(bench);
    bench.Expect(ValueText(bench, "PW1") == "1", "no parameter is dropped under the same token");
    SetToken(bench, bench.NewToken());
    ClearList(bench);
    bench.Expect(ValueText(bench, "PW1") == "(none)", "a new token counts");
    SetToken(bench, 0);
    SetWord(bench, "PW1", 1);
    ClearList(bench);
    SetWord(bench, "PW2", 2);
    ClearList(bench);
    bench.Expect(DescriptionText(bench, "PW2") == "(none)", "token 0 skips nothing");
}

/// The hand-over of the table forgets both tokens.
void HandOverForgetsTokens(Bench& bench) {
    bench.BeginList();
    SetToken(bench, bench.NewToken());
    ClearList(bench);
    ManagementTable table{};
    table.size = sizeof table;
    bench.Call("GetParaMGMTFunc", [&] { return bench.Functions().GetParaMGMTFunc(&table); });
    SetWord(bench, "PW1", 1);
    ClearList(bench);
    bench.Expect(ValueText(bench, "PW1") == "(none)", "after a hand-over nothing is skipped");
}

void Vectors(Bench& bench) {
    bench.BeginList();
    const auto fill = [&](std::string_view address, std::uint32_t count) {
        const HostText place(bench, address, "address");
        const GuardedBlock values = bench.Block(std::size_t{count} * sizeof(double), "doubles");
        const double value = 1.5;
        for (std::uint32_t i = 0; i < count; ++i) {
            std::memcpy(values.Data() + i * sizeof value, &value, sizeof value);
        }
        bench.Call("SetDoubleVector", [&] {
            bench.Management().SetDoubleVector(
                place.Get(), reinterpret_cast<const double*>(values.Data()), count);
        });
    };
    fill("PF1", 3);
    bench.Expect(ValueText(bench, "PF1") == "1.5" && ValueText(bench, "PF3") == "1.5" &&
                     ValueText(bench, "PF4") == "(none)",
                 "as many parameters as there are values");
    fill("PF9", 0);
    bench.Expect(DescriptionText(bench, "PF9") == "(none)", "nothing of no values");
    bench.Call("SetDoubleVector",
               [&] { bench.Management().SetDoubleVector("PF9", nullptr, 1000000000); });
    bench.Expect(DescriptionText(bench, "PF9") == "(none)", "nothing of null");
    for (int round = 0; round < 50; ++round) {
        fill(RandomAddress(bench), bench.Random().Below(40));
    }
}

/// Slots 8 to 10 with every buffer and every text.
void TextsAndBuffers(Bench& bench) {
    bench.BeginList();
    SetWord(bench, "PW1", 1, "fifteen letters", "thirty letters is what it holds");
    const HostText address(bench, "PW1", "address");
    const HostText missing(bench, "PW77", "address");
    for (std::uint32_t size = 0; size <= 40; ++size) {
        for (const auto slot : {bench.Management().GetName, bench.Management().GetComment}) {
            const GuardedBlock buffer = bench.Block(size, "text buffer");
            auto* text = reinterpret_cast<char*>(buffer.Data());
            bench.Call("GetName or GetComment", [&] { slot(address.Get(), text, size); });
            const std::string whole = slot == bench.Management().GetName
                                          ? "fifteen letters"
                                          : "thirty letters is what it hold";
            bench.Expect(size == 0 || whole.substr(0, size - 1) == text,
                         "the text as far as it fits", {size});
            bench.Call("GetName or GetComment", [&] { slot(missing.Get(), text, size); });
            bench.Expect(size == 0 || *text == '\0', "an empty text of a missing parameter",
                         {size});
        }
    }
    bench.Call("GetName", [&] { bench.Management().GetName(address.Get(), nullptr, 40); });
    bench.Call("GetComment", [&] { bench.Management().GetComment(nullptr, nullptr, 0); });
    bench.Call("SetValueFromText", [&] { bench.Management().SetValueFromText(nullptr, nullptr); });
    for (int round = 0; round < 300; ++round) {
        const HostText random(bench, RandomAddress(bench), "address");
        const HostText value(bench, bench.Random().Text(60, "0123456789.,eE+-\"; :\xE4\xFFundef"),
                             "value");
        bench.Call("SetValueFromText",
                   [&] { bench.Management().SetValueFromText(random.Get(), value.Get()); });
    }
}

void RandomUpdates(Bench& bench) {
    bench.BeginList();
    for (int round = 0; round < 400; ++round) {
        switch (bench.Random().Below(16)) {
            case 0:
                BeginUpdate(bench);
                break;
            case 1:
                EndUpdate(bench);
                break;
            case 2:
                ClearList(bench);
                break;
            case 3:
                SetToken(bench, bench.Random().Below(3));
                break;
            case 4:
                SetWord(bench, RandomAddress(bench), 1);
                break;
            default:
                Declare(bench, RandomAddress(bench), RandomAddress(bench));
        }
    }
    SetToken(bench, 0);
    bench.Call("DeclareParameter", [&] { bench.Management().DeclareParameter(nullptr, nullptr); });
    EndUpdate(bench);
    ClearList(bench);
    SetWord(bench, "PW1", 1);
    bench.Expect(ValueText(bench, "PW1") == "1", "the list works as before");
}

void Balance(Bench& bench) {
    bench.BeginList();
    bench.ExpectBalanced("an update", [&] {
        SetWord(bench, "PW1", 1);
        SetWord(bench, "PT1", 1);
        BeginUpdate(bench);
        Declare(bench, "PW1", "PW2");
        Declare(bench, "PT1", "PT9");
        EndUpdate(bench);
        ClearList(bench);
    });
}

constexpr Check kChecks[] = {
    {"management", "3 to 6 bring the list up to date", UpdateCycle},
    {"management", "3, 4, 6, 17 do their work once for each token", Tokens},
    {"management", "the hand-over of the table forgets the tokens", HandOverForgetsTokens},
    {"management", "7 SetDoubleVector reads no value too many", Vectors},
    {"management", "8 to 10 with buffers and texts of every length", TextsAndBuffers},
    {"management", "3 to 6, 17 in random order", RandomUpdates},
    {"management", "3 to 6 leave nothing behind", Balance},
};

}  // namespace

std::span<const Check> ManagementChecks() {
    return kChecks;
}

}  // namespace workbench::check
