#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "check/checks.h"
#include "check/list_calls.h"

// The accessors of single parameters by address, and the value forms.

namespace workbench::check {
namespace {

constexpr std::uint32_t kMinimumLengths[] = {0, 1, 2, 4, 4, 1, 4, 1, 8, 8, 8};
constexpr std::uint32_t kFormEnd = std::size(kMinimumLengths);

std::uint32_t MinimumLength(std::uint32_t form) {
    return form < kFormEnd ? kMinimumLengths[form] : 0;
}

void SettersAndGetters(Bench& bench) {
    bench.BeginList();
    const Exports& functions = bench.Functions();
    const auto expectSet = [&](std::string_view name, std::int32_t result) {
        bench.Expect(result == 1, name);
    };
    expectSet("STDSIL_SetWordParaValue", SetWord(bench, "PW1", -5, "name", "comment"));
    expectSet("STDSIL_SetBitParaValue", bench.Call("STDSIL_SetBitParaValue", [&] {
        return functions.SetBitParaValue("E3.5", "name", nullptr, 0x10000);
    }));
    expectSet("STDSIL_SetFloatParaValue", bench.Call("STDSIL_SetFloatParaValue", [&] {
        return functions.SetFloatParaValue("PF1", nullptr, nullptr, 0.1);
    }));
    expectSet("STDSIL_SetTextParaValue", bench.Call("STDSIL_SetTextParaValue", [&] {
        return functions.SetTextParaValue("PT1", nullptr, nullptr, "a text");
    }));
    expectSet("STDSIL_SetTXParaValue", bench.Call("STDSIL_SetTXParaValue", [&] {
        return functions.SetTXParaValue("TIMEPARA1", nullptr, nullptr, 250);
    }));
    bench.Expect(ValueText(bench, "PW1") == "-5" && ValueText(bench, "E29") == "(none)" &&
                     ValueText(bench, "E3.5") == "1" && ValueText(bench, "PF1") == "0.1" &&
                     ValueText(bench, "PT1") == "a text" && ValueText(bench, "TIMEPARA1") == "250",
                 "what was set is read");
    bench.Expect(DescriptionText(bench, "PW1") == "name|comment", "so are name and comment");
}

/// Every accessor with null in place of every pointer.
void NullArguments(Bench& bench) {
    bench.BeginList();
    const Exports& f = bench.Functions();
    std::int32_t sum = 0;
    bench.Call("accessors with a null address", [&] {
        sum += f.GetSignalInfo(nullptr, nullptr, nullptr);
        sum += f.SetBitParaValue(nullptr, nullptr, nullptr, 1);
        sum += f.SetWordParaValue(nullptr, nullptr, nullptr, 1);
        sum += f.SetFloatParaValue(nullptr, nullptr, nullptr, 1);
        sum += f.SetTextParaValue(nullptr, nullptr, nullptr, nullptr);
        sum += f.SetTXParaValue(nullptr, nullptr, nullptr, 1);
        sum += f.GetName(nullptr, nullptr, 10) + f.SetName(nullptr, nullptr);
        sum += f.GetComment(nullptr, nullptr, 10) + f.SetComment(nullptr, nullptr);
        sum += f.GetValue(nullptr, nullptr, 10, 2) + f.SetValue(nullptr, nullptr, 10, 2);
    });
    bench.Expect(sum == 0, "a null address is refused");
    SetWord(bench, "PW1", 1, "name");
    std::uint16_t count = 1;
    bench.Call("accessors with a null buffer", [&] {
        sum += f.GetValue("PW1", nullptr, 2, 2) + f.SetValue("PW1", nullptr, 2, 2);
        f.GetBitValue("PW1", nullptr);
        f.GetWordValue("PW1", nullptr);
        f.GetWordVector("PW1", nullptr, 0, &count);
        f.GetWordVector("PW1", nullptr, 0, nullptr);
        f.GetFloatValue("PF1", &count, nullptr);
        f.GetFloatValue("PF1", nullptr, nullptr);
        f.GetBitValue(nullptr, &count);
        f.GetWordValue(nullptr, &count);
    });
    bench.Expect(sum == 0 && count == 1, "a null buffer is refused");
    const std::int32_t found = bench.Call("accessors with null buffers", [&] {
        return f.GetSignalInfo("PW1", nullptr, nullptr) + f.GetName("PW1", nullptr, 9) +
               f.GetComment("PW1", nullptr, 9) + f.SetName("PW1", nullptr) +
               f.SetComment("PW1", nullptr) + f.SetTextParaValue("PT1", nullptr, nullptr, nullptr);
    });
    bench.Expect(found == 6, "null texts are taken");
    bench.Expect(DescriptionText(bench, "PW1") == "|", "null empties a name");
}

/// All kinds, forms and lengths: nothing is touched when the buffer is too short, and no byte
/// behind the form's, texts excepted, in any case.
void FormsAndLengths(Bench& bench) {
    bench.BeginList();
    for (const std::string_view kind : AllKinds()) {
        const HostText address(bench, std::string(kind) + "1", "address");
        const HostText value(bench, "1", "value");
        bench.Call("SetValueFromText",
                   [&] { bench.Management().SetValueFromText(address.Get(), value.Get()); });
        for (std::uint32_t form = 0; form <= kFormEnd + 1; ++form) {
            const std::uint32_t minimum = MinimumLength(form);
            for (std::uint32_t length = 0; length <= 12; ++length) {
                const GuardedBlock buffer = bench.Block(length, "value buffer");
                const std::vector<std::uint8_t> before(buffer.Data(), buffer.Data() + length);
                const std::int32_t result = bench.Call("STDSIL_GetValue", [&] {
                    return bench.Functions().GetValue(address.Get(), buffer.Data(), length, form);
                });
                const bool isUsable = minimum != 0 && length >= minimum;
                const std::size_t touched = !isUsable ? 0 : form == 5 ? length : minimum;
                bench.Expect(isUsable ? result == 0 || result == 1 : result == 0,
                             "the result; form, length, result", {form, length, result});
                bench.Expect(std::equal(before.begin() + static_cast<std::ptrdiff_t>(touched),
                                        before.end(), buffer.Data() + touched),
                             "the rest of the buffer stays; form, length", {form, length});
                const std::int32_t set = bench.Call("STDSIL_SetValue", [&] {
                    return bench.Functions().SetValue(address.Get(), buffer.Data(), length, form);
                });
                bench.Expect(isUsable || set == 0, "setting; form, length, result",
                             {form, length, set});
            }
        }
    }
}

struct FormRow {
    std::string_view kind;
    std::uint32_t readable;  ///< a bit for each form
    std::uint32_t writable;
};

constexpr std::uint32_t Forms(std::initializer_list<std::uint32_t> forms) {
    std::uint32_t bits = 1U << 5;  // every kind takes and gives texts
    for (const std::uint32_t form : forms) {
        bits |= 1U << form;
    }
    return bits;
}

constexpr std::uint32_t kWords = Forms({1, 2, 7});
constexpr std::uint32_t kWordsAndDoubles = Forms({1, 2, 7, 3, 4, 9, 10});
constexpr std::uint32_t kDoubles = Forms({3, 4, 9, 10});
constexpr std::uint32_t kLongsAndDoubles = Forms({3, 4, 6, 9, 10});

constexpr FormRow kFormRows[] = {
    {"E", kWords, kWordsAndDoubles},
    {"UCHARPARA", kWords, kWordsAndDoubles},
    {"PW", kWords, kWordsAndDoubles},
    {"PL", kLongsAndDoubles, kLongsAndDoubles},
    {"TIMEPARA", kLongsAndDoubles, kLongsAndDoubles},
    {"DTPARA", kLongsAndDoubles, kLongsAndDoubles},
    {"PF", kDoubles, kDoubles},
    {"DOUBLEPARA", kDoubles, kDoubles},
    {"OLEDTPARA", kDoubles, kDoubles},
    {"INT64PARA", Forms({8}), Forms({8})},
    {"PT", Forms({}), Forms({})},
};

void FormsOfKinds(Bench& bench) {
    bench.BeginList();
    for (const FormRow& row : kFormRows) {
        const std::string address = std::string(row.kind) + "1";
        for (std::uint32_t form = 1; form < kFormEnd; ++form) {
            bench.Call("SetValueFromText",
                       [&] { bench.Management().SetValueFromText(address.c_str(), "1"); });
            std::uint8_t buffer[32] = {};
            const std::int32_t read = bench.Call("GetValue", [&] {
                return bench.Management().GetValue(address.c_str(), buffer, sizeof buffer, form);
            });
            const std::int32_t written = bench.Call("SetValue", [&] {
                return bench.Management().SetValue(address.c_str(), buffer, sizeof buffer, form);
            });
            bench.Expect(read == static_cast<int>(row.readable >> form & 1U),
                         "reading " + std::string(row.kind) + " in a form", {form, read});
            bench.Expect(written == static_cast<int>(row.writable >> form & 1U),
                         "writing " + std::string(row.kind) + " in a form", {form, written});
        }
    }
}

void NamesAndComments(Bench& bench) {
    bench.BeginList();
    const Exports& f = bench.Functions();
    bench.Expect(bench.Call("STDSIL_SetName", [&] { return f.SetName("PW1", "n"); }) == 0 &&
                     bench.Call("STDSIL_SetComment", [&] { return f.SetComment("PW1", "c"); }) == 0,
                 "no parameter, no name");
    bench.Expect(DescriptionText(bench, "PW1") == "(none)", "naming creates nothing");
    SetWord(bench, "PW1", 1);
    const HostText address(bench, "PW1", "address");
    for (std::uint32_t length = 0; length <= 40; ++length) {
        const HostText text(bench, std::string(length, 'x'), "name");
        bench.Call("STDSIL_SetName", [&] { return f.SetName(address.Get(), text.Get()); });
        bench.Call("STDSIL_SetComment", [&] { return f.SetComment(address.Get(), text.Get()); });
        const std::string expected =
            std::string(std::min(length, 15U), 'x') + "|" + std::string(std::min(length, 30U), 'x');
        bench.Expect(DescriptionText(bench, "PW1") == expected,
                     "names and comments are cut; length", {length});
        for (const auto get : {f.GetName, f.GetComment}) {
            const GuardedBlock buffer = bench.Block(length, "text buffer");
            const std::int32_t result = bench.Call("STDSIL_GetName or STDSIL_GetComment", [&] {
                return get(address.Get(), reinterpret_cast<char*>(buffer.Data()), length);
            });
            bench.Expect(result == 1 && (length == 0 || buffer.Data()[length - 1] == 0 ||
                                         std::ranges::count(buffer.Bytes(), 0) > 0),
                         "a closed text; size", {length});
        }
    }
}

/// Vectors are read and written as long as they are, from and to unaligned memory as well.
void Vectors(Bench& bench) {
    bench.BeginList();
    const Exports& f = bench.Functions();
    SetWord(bench, "PW1", 7);
    for (std::uint16_t count = 0; count <= 20; ++count) {
        const HostText words(bench, "PW1", "address");
        const GuardedBlock buffer = bench.Block(std::size_t{count} * 2, "words");
        const GuardedBlock countBlock = bench.Block(2, "count");
        std::memcpy(countBlock.Data(), &count, sizeof count);
        auto* countWord = reinterpret_cast<std::uint16_t*>(countBlock.Data());
        bench.Call("STDSIL_GetWordVector", [&] {
            f.GetWordVector(words.Get(), reinterpret_cast<std::uint16_t*>(buffer.Data()), 99,
                            countWord);
        });
        std::vector<std::uint8_t> expected(std::size_t{count} * 2, 0);
        if (count > 0) {
            expected[0] = 7;
        }
        bench.Expect(std::ranges::equal(buffer.Bytes(), expected),
                     "words, 0 for missing ones; count", {count});
        const GuardedBlock doubles = bench.Block(std::size_t{count} * 8, "doubles");
        bench.Call("STDSIL_GetFloatValue", [&] {
            f.GetFloatValue("PF1", countWord, reinterpret_cast<double*>(doubles.Data()));
        });
        bench.Expect(std::ranges::count(doubles.Bytes(), 0) == count * 8,
                     "doubles, 0 for missing ones", {count});
        bench.Expect(*countWord == count, "the count stays", {count});
    }
    const GuardedBlock word = bench.Block(2, "word");
    bench.Call("STDSIL_GetWordValue",
               [&] { f.GetWordValue("PW1", reinterpret_cast<std::uint16_t*>(word.Data())); });
    bench.Expect(word.Data()[0] == 7 && word.Data()[1] == 0, "a single word");
    bench.Call("STDSIL_GetBitValue",
               [&] { f.GetBitValue("XX1", reinterpret_cast<std::uint16_t*>(word.Data())); });
    bench.Expect(word.Data()[0] == 7, "an unknown kind touches nothing");
}

/// Any accessor with any address and value; afterwards the list must still work.
void RandomCalls(Bench& bench) {
    bench.BeginList();
    const Exports& f = bench.Functions();
    RandomSource& random = bench.Random();
    for (int round = 0; round < 1500; ++round) {
        const HostText address(bench, RandomAddress(bench), "address");
        const HostText text(bench, random.Text(50, "0123456789.,eE+-x \"%\xE4\xFF"), "text");
        const GuardedBlock buffer = bench.Block(random.Below(40), "buffer");
        random.Fill(buffer.Bytes());
        const auto length = static_cast<std::uint32_t>(buffer.Size());
        auto* bytes = reinterpret_cast<char*>(buffer.Data());
        const std::uint32_t choice = random.Below(11);
        const std::int32_t result = bench.Call("a random accessor", [&]() -> std::int32_t {
            switch (choice) {
                case 0:
                    return f.SetBitParaValue(address.Get(), text.Get(), text.Get(),
                                             static_cast<std::int32_t>(random.Word()));
                case 1:
                    return f.SetFloatParaValue(address.Get(), text.Get(), nullptr,
                                               random.Word() * 1e30 - 1e39);
                case 2:
                    return f.SetTextParaValue(address.Get(), nullptr, text.Get(), text.Get());
                case 3:
                    return f.SetTXParaValue(address.Get(), nullptr, nullptr, random.Word());
                case 4:
                    return f.GetName(address.Get(), bytes, length);
                case 5:
                    return f.GetComment(address.Get(), bytes, length);
                case 6:
                    return f.SetName(address.Get(), text.Get());
                case 7:
                    return f.SetComment(address.Get(), text.Get());
                case 8:
                    return f.SetValue(address.Get(), bytes, length, random.Below(12));
                default:
                    return f.GetValue(address.Get(), bytes, length, random.Below(12));
            }
        });
        bench.Expect(result == 0 || result == 1, "a truth value; accessor, result",
                     {choice, result});
    }
    SetWord(bench, "PW1", 5);
    bench.Expect(ValueText(bench, "PW1") == "5", "the list works as before");
}

void Balance(Bench& bench) {
    bench.BeginList();
    SetWord(bench, "PW1", 1, "name");
    bench.ExpectBalanced("accessors", [&] {
        SetWord(bench, "PW1", 2, "name", "comment");
        bench.Call("STDSIL_SetTextParaValue", [&] {
            return bench.Functions().SetTextParaValue(
                "PT1", nullptr, nullptr, "a text that is too long to lie in the entry itself");
        });
        (void)ValueText(bench, "PT1");
        (void)DescriptionText(bench, "PW1");
        SetWord(bench, "XX1", 2);
    });
}

constexpr Check kChecks[] = {
    {"accessors", "setters and getters meet", SettersAndGetters},
    {"accessors", "null in place of every pointer", NullArguments},
    {"accessors", "values in every form and buffers of every length", FormsAndLengths},
    {"accessors", "each kind takes and gives its forms only", FormsOfKinds},
    {"accessors", "names and comments of every length", NamesAndComments},
    {"accessors", "vectors of every length", Vectors},
    {"accessors", "random calls", RandomCalls},
    {"accessors", "nothing is left behind", Balance},
};

}  // namespace

std::span<const Check> AccessorChecks() {
    return kChecks;
}

}  // namespace workbench::check
