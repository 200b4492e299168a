#include <array>
#include <cstring>

#include "management_fixture.h"

namespace orvell::host {
namespace {

using namespace std::string_literals;

constexpr char kUntouched = '\xA5';
constexpr std::size_t kValueOffset = 31;
constexpr std::size_t kTextOffset = 35;

/// A signal's block of bytes; all behind the address is `kUntouched` at first.
class Signal {
  public:
    explicit Signal(const std::string& address) {
        std::memcpy(bytes, address.c_str(), address.size() + 1);
    }

    void Put(std::size_t offset, const void* data, std::size_t size) {
        std::memcpy(bytes + offset, data, size);
    }

    std::uint32_t Dword(std::size_t index) const {
        std::uint32_t dword = 0;
        std::memcpy(&dword, bytes + kValueOffset + index * sizeof dword, sizeof dword);
        return dword;
    }

    /// True when nothing but the bytes from `first` to before `last` differs from `before`.
    bool OnlyChangedWithin(const Signal& before, std::size_t first, std::size_t last) const {
        return std::memcmp(bytes, before.bytes, first) == 0 &&
               std::memcmp(bytes + last, before.bytes + last, sizeof bytes - last) == 0;
    }

    char bytes[80] = {};
};

Signal MakeSignal(const std::string& address) {
    Signal signal("");
    std::memset(signal.bytes, kUntouched, sizeof signal.bytes);
    std::memcpy(signal.bytes, address.c_str(), address.size() + 1);
    return signal;
}

class SignalListTest : public ManagementTest {
  protected:
    SignalListTest() { BuildKinds(); }

    static void Set(const char* address, const char* text) {
        management::SetValueFromText(address, text);
    }
};

TEST_F(SignalListTest, ValuesAreSetWithNameAndComment) {
    EXPECT_EQ(STDSIL_SetBitParaValue("E1.2", "n", "c", -7), 1);
    EXPECT_EQ(STDSIL_SetWordParaValue("PW1", "n", "c", -7), 1);
    EXPECT_EQ(STDSIL_SetFloatParaValue("PF1", "n", "c", -0.5), 1);
    EXPECT_EQ(STDSIL_SetTextParaValue("PT1", "n", "c", "text"), 1);
    EXPECT_EQ(STDSIL_SetTXParaValue("PL1", "n", "c", 4000000000), 1);
    EXPECT_EQ(TextOf("E1.2"), "1");
    EXPECT_EQ(TextOf("PW1"), "-7");
    EXPECT_EQ(TextOf("PF1"), "-0.5");
    EXPECT_EQ(TextOf("PT1"), "text");
    EXPECT_EQ(TextOf("PL1"), "-294967296");
    for (const char* address : {"E1.2", "PW1", "PF1", "PT1", "PL1"}) {
        EXPECT_EQ(DescriptionOf(address), "n|c") << address;
    }
}

TEST_F(SignalListTest, AbsentNamesAndCommentsEmptyTheirs) {
    EXPECT_EQ(STDSIL_SetWordParaValue("PW1", "name", "comment", 1), 1);
    EXPECT_EQ(STDSIL_SetWordParaValue("PW1", nullptr, nullptr, 2), 1);
    EXPECT_EQ(DescriptionOf("PW1"), "|");
    EXPECT_EQ(STDSIL_SetTextParaValue("PT1", "n", "c", "x"), 1);
    EXPECT_EQ(STDSIL_SetTextParaValue("PT1", "n", "c", nullptr), 1);
    EXPECT_EQ(TextOf("PT1"), "none");
}

TEST_F(SignalListTest, ABitIsTheTruthOfTheWholeValueAWordItsLowHalf) {
    EXPECT_EQ(STDSIL_SetBitParaValue("E1", nullptr, nullptr, 0x10000), 1);
    EXPECT_EQ(TextOf("E1"), "1");
    EXPECT_EQ(STDSIL_SetWordParaValue("E1", nullptr, nullptr, 0x10000), 1);
    EXPECT_EQ(TextOf("E1"), "0");
    EXPECT_EQ(STDSIL_SetBitParaValue("PW1", nullptr, nullptr, 300), 1);
    EXPECT_EQ(TextOf("PW1"), "1");
    EXPECT_EQ(STDSIL_SetWordParaValue("PW1", nullptr, nullptr, 0x12345), 1);
    EXPECT_EQ(TextOf("PW1"), "9029");
}

TEST_F(SignalListTest, ARefusedValueFailsButDescribesItsEntry) {
    EXPECT_EQ(STDSIL_SetWordParaValue("PL1", "n", "c", 1), 0);
    EXPECT_EQ(STDSIL_SetTXParaValue("PW1", "n", "c", 1), 0);
    EXPECT_EQ(STDSIL_SetFloatParaValue("PT1", "n", "c", 1), 0);
    for (const char* address : {"PL1", "PW1", "PT1"}) {
        EXPECT_EQ(TextOf(address), "none") << address;
        EXPECT_EQ(DescriptionOf(address), "n|c") << address;
    }
}

TEST_F(SignalListTest, UnknownKindsFailEverywhere) {
    for (const char* address : {"XX1", "", "1", "pw1", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(STDSIL_SetBitParaValue(address, "n", "c", 1), 0);
        EXPECT_EQ(STDSIL_SetWordParaValue(address, "n", "c", 1), 0);
        EXPECT_EQ(STDSIL_SetFloatParaValue(address, "n", "c", 1), 0);
        EXPECT_EQ(STDSIL_SetTextParaValue(address, "n", "c", "1"), 0);
        EXPECT_EQ(STDSIL_SetTXParaValue(address, "n", "c", 1), 0);
        EXPECT_EQ(STDSIL_SetName(address, "n"), 0);
        EXPECT_EQ(STDSIL_SetComment(address, "c"), 0);
        EXPECT_EQ(STDSIL_GetName(address, nullptr, 0), 0);
        EXPECT_EQ(STDSIL_GetComment(address, nullptr, 0), 0);
        EXPECT_EQ(STDSIL_GetSignalInfo(address, nullptr, nullptr), 0);
        std::uint16_t word = 7;
        std::uint16_t count = 1;
        double number = 7;
        STDSIL_GetBitValue(address, &word);
        STDSIL_GetWordValue(address, &word);
        STDSIL_GetWordVector(address, &word, 0, &count);
        STDSIL_GetFloatValue(address, &count, &number);
        EXPECT_EQ(word, 7);
        EXPECT_EQ(number, 7.0);
    }
    std::size_t entries = 0;
    for (const paramlist::ParameterKind& kind : List().Kinds()) {
        entries += kind.EntryCount();
    }
    EXPECT_EQ(entries, 0U);
}

TEST_F(SignalListTest, InfoIsCopiedWholeAndNoFurther) {
    const std::string letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    EXPECT_EQ(STDSIL_SetWordParaValue("PW1", letters.c_str(), letters.c_str(), 1), 1);
    std::string name(20, kUntouched);
    std::string comment(40, kUntouched);
    EXPECT_EQ(STDSIL_GetSignalInfo("PW1", name.data(), comment.data()), 1);
    EXPECT_EQ(name, letters.substr(0, 15) + '\0' + std::string(4, kUntouched));
    EXPECT_EQ(comment, letters.substr(0, 30) + '\0' + std::string(9, kUntouched));
    EXPECT_EQ(STDSIL_GetSignalInfo("PW1", nullptr, nullptr), 1);

    EXPECT_EQ(STDSIL_SetWordParaValue("PW1", "n", "", 1), 1);
    name.assign(20, kUntouched);
    comment.assign(40, kUntouched);
    EXPECT_EQ(STDSIL_GetSignalInfo("PW1", name.data(), comment.data()), 1);
    EXPECT_EQ(name, "n\0"s + std::string(18, kUntouched));
    EXPECT_EQ(comment, '\0' + std::string(39, kUntouched));
}

TEST_F(SignalListTest, UnknownParametersHaveEmptyTexts) {
    for (const char* address : {"PW1", "XX1", "", static_cast<const char*>(nullptr)}) {
        std::string name(4, kUntouched);
        std::string comment(4, kUntouched);
        EXPECT_EQ(STDSIL_GetSignalInfo(address, name.data(), comment.data()), 0);
        EXPECT_EQ(name, '\0' + std::string(3, kUntouched));
        EXPECT_EQ(comment, '\0' + std::string(3, kUntouched));
        name.assign(4, kUntouched);
        comment.assign(4, kUntouched);
        EXPECT_EQ(STDSIL_GetName(address, name.data(), 4), 0);
        EXPECT_EQ(STDSIL_GetComment(address, comment.data(), 4), 0);
        EXPECT_EQ(name, '\0' + std::string(3, kUntouched));
        EXPECT_EQ(comment, '\0' + std::string(3, kUntouched));
    }
}

TEST_F(SignalListTest, NamesAndCommentsAreReadAndSet) {
    EXPECT_EQ(STDSIL_SetName("PW1", "n"), 0);
    EXPECT_EQ(STDSIL_SetComment("PW1", "c"), 0);
    EXPECT_FALSE(Exists("PW1"));
    Set("PW1", "1");
    EXPECT_EQ(STDSIL_SetName("PW1", "Name"), 1);
    EXPECT_EQ(STDSIL_SetComment("PW1", "%%"), 1);
    for (std::uint32_t size = 0; size <= 8; ++size) {
        std::string name(8, kUntouched);
        std::string comment(8, kUntouched);
        EXPECT_EQ(STDSIL_GetName("PW1", name.data(), size), 1);
        EXPECT_EQ(STDSIL_GetComment("PW1", comment.data(), size), 1);
        const auto expected = [size](const std::string& text) {
            const std::string cut = size == 0 ? "" : text.substr(0, size - 1) + '\0';
            return cut + std::string(8 - cut.size(), kUntouched);
        };
        EXPECT_EQ(name, expected("Name")) << size;
        EXPECT_EQ(comment, expected("%%")) << size;
    }
    EXPECT_EQ(STDSIL_GetName("PW1", nullptr, 8), 1);
    EXPECT_EQ(STDSIL_SetName("PW1", nullptr), 1);
    EXPECT_EQ(STDSIL_SetComment("PW1", nullptr), 1);
    EXPECT_EQ(DescriptionOf("PW1"), "|");
}

TEST_F(SignalListTest, InAnUpdateValuesBelongToDeclaredParametersOnly) {
    EXPECT_EQ(STDSIL_SetWordParaValue("PW1", "n", "c", 5), 1);
    management::BeginUpdate();
    EXPECT_EQ(STDSIL_SetWordParaValue("PW1", "x", "y", 6), 0);
    EXPECT_EQ(STDSIL_SetWordParaValue("PW2", "x", "y", 6), 0);
    EXPECT_FALSE(Exists("PW2"));
    EXPECT_EQ(DescriptionOf("PW1"), "n|c");
    std::uint16_t word = 7;
    STDSIL_GetWordValue("PW1", &word);
    EXPECT_EQ(word, 0);
    EXPECT_EQ(STDSIL_GetValue("PW1", &word, 2, 2), 0);
    EXPECT_EQ(STDSIL_GetName("PW1", nullptr, 0), 1) << "descriptions do not ask for the mark";
    EXPECT_EQ(STDSIL_GetSignalInfo("PW1", nullptr, nullptr), 1);
    EXPECT_EQ(STDSIL_SetName("PW1", "m"), 1);
    EXPECT_EQ(STDSIL_SetComment("PW1", "d"), 1);
    management::DeclareParameter("PW1", "PW1");
    STDSIL_GetWordValue("PW1", &word);
    EXPECT_EQ(word, 5);
    EXPECT_EQ(DescriptionOf("PW1"), "m|d");
}

TEST_F(SignalListTest, FormsAreThoseOfTheTable) {
    const std::int16_t minus5 = -5;
    EXPECT_EQ(STDSIL_SetValue("PW1", const_cast<std::int16_t*>(&minus5), 2, 2), 1);
    std::array<std::uint8_t, 4> buffer = {1, 2, 3, 4};
    EXPECT_EQ(STDSIL_GetValue("PW1", buffer.data(), 1, 1), 1);
    EXPECT_EQ(buffer, (std::array<std::uint8_t, 4>{255, 2, 3, 4}));
    Set("PL1", "5");
    EXPECT_EQ(STDSIL_GetValue("PL1", buffer.data(), 3, 3), 0);
    EXPECT_EQ(buffer, (std::array<std::uint8_t, 4>{255, 2, 3, 4}));
    EXPECT_EQ(STDSIL_GetValue("PL1", buffer.data(), 4, 3), 1);
    EXPECT_EQ(buffer, (std::array<std::uint8_t, 4>{5, 0, 0, 0}));
}

TEST_F(SignalListTest, WordsAreReadSinglyAndInVectors) {
    Set("PW5", "-1");
    Set("PW7", "7");
    Set("E1.7", "1");
    Set("E2", "1");
    std::uint16_t word = 9;
    STDSIL_GetBitValue("E1.7", &word);
    EXPECT_EQ(word, 1);
    STDSIL_GetBitValue("PW7", &word);
    EXPECT_EQ(word, 7);
    STDSIL_GetWordValue("PW5", &word);
    EXPECT_EQ(word, 0xFFFF);
    STDSIL_GetWordValue("PW6", &word);
    EXPECT_EQ(word, 0);
    Set("PL1", "3");
    word = 9;
    STDSIL_GetWordValue("PL1", &word);
    EXPECT_EQ(word, 0) << "no word";

    std::array<std::uint16_t, 6> words{};
    words.fill(9);
    std::uint16_t count = 4;
    STDSIL_GetWordVector("PW5", words.data() + 1, 12345, &count);
    EXPECT_EQ(words, (std::array<std::uint16_t, 6>{9, 0xFFFF, 0, 7, 0, 9}));
    words.fill(9);
    STDSIL_GetWordVector("E1.6", words.data() + 1, 0, &count);
    EXPECT_EQ(words, (std::array<std::uint16_t, 6>{9, 0, 1, 1, 0, 9}));
    EXPECT_EQ(count, 4);
    EXPECT_FALSE(Exists("PW6"));
}

TEST_F(SignalListTest, DoublesAreReadInVectors) {
    Set("PF1", "0.25");
    std::array<double, 5> numbers = {9, 9, 9, 9, 9};
    std::uint16_t count = 3;
    STDSIL_GetFloatValue("PF0", &count, numbers.data() + 1);
    EXPECT_EQ(numbers, (std::array<double, 5>{9, 0, 0.25, 0, 9}));
    count = 0;
    STDSIL_GetFloatValue("PF1", &count, numbers.data());
    EXPECT_EQ(numbers[0], 9);
}

TEST_F(SignalListTest, CountsHaveSixteenBitsWithoutASign) {
    std::vector<std::uint16_t> words(0xFFFF + 1, 9);
    std::uint16_t count = 0xFFFF;
    STDSIL_GetWordVector("PW1", words.data(), 0, &count);
    EXPECT_EQ(words[0xFFFE], 0);
    EXPECT_EQ(words[0xFFFF], 9);
}

TEST_F(SignalListTest, AbsentArgumentsDoNothing) {
    Set("PW1", "1");
    std::uint16_t word = 9;
    std::uint16_t count = 1;
    double number = 9;
    STDSIL_GetBitValue("PW1", nullptr);
    STDSIL_GetWordValue("PW1", nullptr);
    STDSIL_GetWordVector("PW1", nullptr, 0, &count);
    STDSIL_GetWordVector("PW1", &word, 0, nullptr);
    STDSIL_GetFloatValue("PF1", nullptr, &number);
    STDSIL_GetFloatValue("PF1", &count, nullptr);
    STDSIL_GetStringValue(nullptr);
    STDSIL_SetTextValue(nullptr);
    STDSIL_GetTXValue(nullptr, &count);
    STDSIL_SetTXValue(nullptr, &count);
    Signal signal = MakeSignal("PL1");
    const Signal before = signal;
    STDSIL_GetTXValue(signal.bytes, nullptr);
    STDSIL_SetTXValue(signal.bytes, nullptr);
    EXPECT_TRUE(signal.OnlyChangedWithin(before, 0, 0));
    EXPECT_FALSE(Exists("PL1"));
    EXPECT_EQ(word, 9);
    EXPECT_EQ(number, 9.0);
}

// ---- signals -----------------------------------------------------------------------------------

TEST_F(SignalListTest, ASignalsTextHasEighteenBytes) {
    Set("PT1", "abc");
    Signal signal = MakeSignal("PT1");
    const Signal before = signal;
    STDSIL_GetStringValue(signal.bytes);
    EXPECT_EQ(std::string(signal.bytes + kTextOffset, 18), "abc" + std::string(15, '\0'));
    EXPECT_TRUE(signal.OnlyChangedWithin(before, kTextOffset, kTextOffset + 18));

    Set("PT1", "abcdefghijklmnopqrstuvwxyz");
    STDSIL_GetStringValue(signal.bytes);
    EXPECT_EQ(std::string(signal.bytes + kTextOffset, 18), "abcdefghijklmnopq\0"s);
    EXPECT_TRUE(signal.OnlyChangedWithin(before, kTextOffset, kTextOffset + 18));
}

TEST_F(SignalListTest, ASignalWithoutAValueHasAnEmptyText) {
    for (const char* address : {"PT2", "PW2"}) {
        Signal signal = MakeSignal(address);
        STDSIL_GetStringValue(signal.bytes);
        EXPECT_EQ(std::string(signal.bytes + kTextOffset, 18), std::string(18, '\0'));
    }
    Signal unknown = MakeSignal("XX1");
    const Signal before = unknown;
    STDSIL_GetStringValue(unknown.bytes);
    EXPECT_TRUE(unknown.OnlyChangedWithin(before, 0, 0));
}

TEST_F(SignalListTest, ASignalsTextIsSet) {
    Signal signal = MakeSignal("PT1");
    signal.Put(kValueOffset, "hello", 6);
    const Signal before = signal;
    STDSIL_SetTextValue(signal.bytes);
    EXPECT_EQ(TextOf("PT1"), "hello");
    EXPECT_EQ(DescriptionOf("PT1"), "|");
    EXPECT_TRUE(signal.OnlyChangedWithin(before, 0, 0));
}

TEST_F(SignalListTest, ASignalsAddressEndsBeforeItsValue) {
    // 31 characters without a NUL, right before the text.
    const std::string address = "PT" + std::string(28, '0') + "7";
    Signal signal("");
    std::memcpy(signal.bytes, address.data(), address.size());
    signal.Put(kValueOffset, "1", 2);
    STDSIL_SetTextValue(signal.bytes);
    EXPECT_EQ(TextOf("PT7"), "1");
}

TEST_F(SignalListTest, ASignalsNumbersAreRead) {
    Set("PL2", "-3");
    Set("PL3", "3");
    Signal signal = MakeSignal("PL1");
    const Signal before = signal;
    std::uint16_t count = 4;
    STDSIL_GetTXValue(signal.bytes, &count);
    EXPECT_EQ(signal.Dword(0), 0U);
    EXPECT_EQ(signal.Dword(1), 0xFFFFFFFD);
    EXPECT_EQ(signal.Dword(2), 3U);
    EXPECT_EQ(signal.Dword(3), 0U);
    EXPECT_TRUE(signal.OnlyChangedWithin(before, kValueOffset, kValueOffset + 16));
    Signal unknown = MakeSignal("XX1");
    const Signal unknownBefore = unknown;
    STDSIL_GetTXValue(unknown.bytes, &count);
    EXPECT_TRUE(unknown.OnlyChangedWithin(unknownBefore, 0, 0));
}

TEST_F(SignalListTest, ASignalsNumbersFillAVector) {
    EXPECT_EQ(STDSIL_SetTXParaValue("PL1", "Level", nullptr, 0), 1);
    Signal signal = MakeSignal("PL1");
    const std::array<std::uint32_t, 3> values = {1, 4000000000, 3};
    signal.Put(kValueOffset, values.data(), sizeof values);
    const Signal before = signal;
    std::uint16_t count = 3;
    STDSIL_SetTXValue(signal.bytes, &count);
    EXPECT_EQ(TextOf("PL1"), "1");
    EXPECT_EQ(TextOf("PL2"), "-294967296");
    EXPECT_EQ(TextOf("PL3"), "3");
    EXPECT_EQ(DescriptionOf("PL1"), "Level|Vektorelement 1");
    EXPECT_EQ(DescriptionOf("PL3"), "Level|Vektorelement 3");
    EXPECT_TRUE(signal.OnlyChangedWithin(before, 0, 0));
    count = 0;
    Signal none = MakeSignal("PL9");
    STDSIL_SetTXValue(none.bytes, &count);
    EXPECT_FALSE(Exists("PL9"));
}

}  // namespace
}  // namespace orvell::host
