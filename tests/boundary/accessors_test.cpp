#include <gtest/gtest.h>

#include <vector>

#include "module_host.h"

namespace orvell::test {
namespace {

constexpr std::uint32_t kMinimumLengths[] = {0, 1, 2, 4, 4, 1, 4, 1, 8, 8, 8};

/// The accessors as a host binds them. Every buffer that they get ends at a page that must not be
/// touched.
class AccessorsTest : public testing::Test {
  protected:
    AccessorsTest() {
        stage.SetUpEverything();
        module = std::make_unique<LoadedModule>(stage);
        slots = module->Management();
        slots.LoadList(nullptr);
    }

    template <typename Function>
    Function* Bind(const char* name) const {
        return module->Export<Function*>(name);
    }

    static const char* Text(const GuardedBytes& bytes) {
        return reinterpret_cast<const char*>(bytes.Data());
    }

    static std::string Bytes(const GuardedBytes& bytes, std::size_t size) {
        return {reinterpret_cast<const char*>(bytes.Data()), size};
    }

    Stage stage;
    std::unique_ptr<LoadedModule> module;
    ManagementTable slots;
};

/// A text whose memory ends with its NUL.
class GuardedText : public GuardedBytes {
  public:
    explicit GuardedText(const std::string& text)
        : GuardedBytes(static_cast<std::uint32_t>(text.size() + 1)) {
        std::memcpy(Data(), text.c_str(), text.size() + 1);
    }

    [[nodiscard]] char* Get() const { return reinterpret_cast<char*>(Data()); }
};

TEST_F(AccessorsTest, SettersAndGettersMeet) {
    const GuardedText word("PW1");
    const GuardedText name("Name");
    const GuardedText comment("Remark");
    EXPECT_EQ(Bind<decltype(STDSIL_SetWordParaValue)>("STDSIL_SetWordParaValue")(
                  word.Get(), name.Get(), comment.Get(), -5),
              1);
    EXPECT_EQ(Bind<decltype(STDSIL_SetBitParaValue)>("STDSIL_SetBitParaValue")(
                  GuardedText("E3.5").Get(), name.Get(), comment.Get(), 2),
              1);
    EXPECT_EQ(Bind<decltype(STDSIL_SetFloatParaValue)>("STDSIL_SetFloatParaValue")(
                  GuardedText("PF1").Get(), nullptr, nullptr, 0.1),
              1);
    EXPECT_EQ(Bind<decltype(STDSIL_SetTextParaValue)>("STDSIL_SetTextParaValue")(
                  GuardedText("PT1").Get(), nullptr, nullptr, GuardedText("a text").Get()),
              1);
    EXPECT_EQ(Bind<decltype(STDSIL_SetTXParaValue)>("STDSIL_SetTXParaValue")(
                  GuardedText("TIMEPARA1").Get(), nullptr, nullptr, 250),
              1);

    const GuardedBytes nameBuffer(5);
    const GuardedBytes commentBuffer(7);
    EXPECT_EQ(Bind<decltype(STDSIL_GetSignalInfo)>("STDSIL_GetSignalInfo")(
                  word.Get(), reinterpret_cast<char*>(nameBuffer.Data()),
                  reinterpret_cast<char*>(commentBuffer.Data())),
              1);
    EXPECT_STREQ(Text(nameBuffer), "Name");
    EXPECT_STREQ(Text(commentBuffer), "Remark");

    const auto getValue = Bind<decltype(STDSIL_GetValue)>("STDSIL_GetValue");
    std::uint8_t truth = 0;
    EXPECT_EQ(getValue("E3.5", &truth, 1, 1), 1);
    EXPECT_EQ(truth, 255);
    double number = 0;
    EXPECT_EQ(getValue("PF1", &number, 8, 9), 1);
    EXPECT_EQ(number, 0.1);
    std::uint32_t dword = 0;
    EXPECT_EQ(getValue("TIMEPARA1", &dword, 4, 6), 1);
    EXPECT_EQ(dword, 250U);
    const GuardedBytes text(7);
    EXPECT_EQ(getValue("PT1", text.Data(), 7, 5), 1);
    EXPECT_STREQ(Text(text), "a text");
}

TEST_F(AccessorsTest, BuffersOfEveryLengthAreKept) {
    const auto getValue = Bind<decltype(STDSIL_GetValue)>("STDSIL_GetValue");
    const auto setValue = Bind<decltype(STDSIL_SetValue)>("STDSIL_SetValue");
    for (const char* address :
         {"E1", "UCHARPARA1", "PW1", "PL1", "INT64PARA1", "PF1", "DOUBLEPARA1", "PT1", "TIMEPARA1",
          "DATEPARA1", "TODPARA1", "DTPARA1", "OLEDTPARA1"}) {
        slots.SetValueFromText(address, "1");
        for (std::uint32_t form = 0; form <= 12; ++form) {
            const std::uint32_t minimum = form <= 10 ? kMinimumLengths[form] : 0;
            for (std::uint32_t length = 0; length <= 9; ++length) {
                const GuardedBytes buffer(length);
                const std::string before = Bytes(buffer, length);
                const std::int32_t isGiven = getValue(address, buffer.Data(), length, form);
                const bool isUsable = minimum != 0 && length >= minimum;
                EXPECT_TRUE(isUsable || isGiven == 0);
                EXPECT_EQ(Bytes(buffer, length) == before, !isUsable)
                    << address << " form " << form << " length " << length;
                if (!isUsable) {
                    EXPECT_EQ(setValue(address, buffer.Data(), length, form), 0);
                    char text[8] = "";
                    EXPECT_EQ(slots.GetValue(address, text, sizeof text, 5), 1);
                    EXPECT_STREQ(text, "1") << address << " form " << form;
                }
            }
            EXPECT_EQ(getValue(address, nullptr, 8, form), 0);
            EXPECT_EQ(setValue(address, nullptr, 8, form), 0);
        }
    }
}

TEST_F(AccessorsTest, ATextWithoutANulEndsWithItsBuffer) {
    const auto setValue = Bind<decltype(STDSIL_SetValue)>("STDSIL_SetValue");
    for (std::uint32_t length = 1; length <= 20; ++length) {
        const GuardedBytes buffer(length);
        std::memset(buffer.Data(), '7', length);
        EXPECT_EQ(setValue("PT1", buffer.Data(), length, 5), 1);
        char text[32] = "";
        EXPECT_EQ(slots.GetValue("PT1", text, sizeof text, 5), 1);
        EXPECT_EQ(text, std::string(length, '7'));
    }
}

TEST_F(AccessorsTest, NamesAndCommentsStayWithinTheirBuffers) {
    const std::string letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    slots.SetValueFromText("PW1", "1");
    EXPECT_EQ(Bind<decltype(STDSIL_SetName)>("STDSIL_SetName")("PW1", GuardedText(letters).Get()),
              1);
    EXPECT_EQ(
        Bind<decltype(STDSIL_SetComment)>("STDSIL_SetComment")("PW1", GuardedText(letters).Get()),
        1);
    const auto getName = Bind<decltype(STDSIL_GetName)>("STDSIL_GetName");
    const auto getComment = Bind<decltype(STDSIL_GetComment)>("STDSIL_GetComment");
    for (std::uint32_t size = 1; size <= 40; ++size) {
        const GuardedBytes name(size);
        const GuardedBytes comment(size);
        EXPECT_EQ(getName("PW1", reinterpret_cast<char*>(name.Data()), size), 1);
        EXPECT_EQ(getComment("PW1", reinterpret_cast<char*>(comment.Data()), size), 1);
        EXPECT_EQ(Text(name), letters.substr(0, std::min(size - 1, 15U))) << size;
        EXPECT_EQ(Text(comment), letters.substr(0, std::min(size - 1, 30U))) << size;
        slots.GetName("PW1", reinterpret_cast<char*>(name.Data()), size);
        slots.GetComment("PW1", reinterpret_cast<char*>(comment.Data()), size);
        EXPECT_EQ(Text(name), letters.substr(0, std::min(size - 1, 15U))) << size;
        EXPECT_EQ(Text(comment), letters.substr(0, std::min(size - 1, 30U))) << size;
    }
    const GuardedBytes none(0);
    EXPECT_EQ(getName("PW1", reinterpret_cast<char*>(none.Data()), 0), 1);
    EXPECT_EQ(getComment("PW1", reinterpret_cast<char*>(none.Data()), 0), 1);
    const GuardedBytes nameBuffer(16);
    const GuardedBytes commentBuffer(31);
    EXPECT_EQ(Bind<decltype(STDSIL_GetSignalInfo)>("STDSIL_GetSignalInfo")(
                  "PW1", reinterpret_cast<char*>(nameBuffer.Data()),
                  reinterpret_cast<char*>(commentBuffer.Data())),
              1);
    EXPECT_EQ(Text(nameBuffer), letters.substr(0, 15));
    EXPECT_EQ(Text(commentBuffer), letters.substr(0, 30));
}

TEST_F(AccessorsTest, VectorsStayWithinTheirBuffers) {
    const auto getWords = Bind<decltype(STDSIL_GetWordVector)>("STDSIL_GetWordVector");
    const auto getDoubles = Bind<decltype(STDSIL_GetFloatValue)>("STDSIL_GetFloatValue");
    slots.SetValueFromText("PW3", "3");
    slots.SetValueFromText("PF3", "3");
    for (std::uint16_t count = 0; count <= 5; ++count) {
        const GuardedBytes words(count * 2U);
        const GuardedBytes doubles(count * 8U);
        const GuardedBytes counted(2);
        std::memcpy(counted.Data(), &count, 2);
        auto* countWord = reinterpret_cast<std::uint16_t*>(counted.Data());
        getWords("PW1", reinterpret_cast<std::uint16_t*>(words.Data()), 99, countWord);
        getDoubles("PF1", countWord, reinterpret_cast<double*>(doubles.Data()));
        for (std::uint16_t index = 0; index < count; ++index) {
            std::uint16_t word = 9;
            double number = 9;
            std::memcpy(&word, words.Data() + index * 2U, 2);
            std::memcpy(&number, doubles.Data() + index * 8U, 8);
            EXPECT_EQ(word, index == 2 ? 3 : 0);
            EXPECT_EQ(number, index == 2 ? 3.0 : 0.0);
        }
        EXPECT_EQ(*countWord, count);
    }
    const GuardedBytes single(2);
    Bind<decltype(STDSIL_GetWordValue)>("STDSIL_GetWordValue")(
        "PW3", reinterpret_cast<std::uint16_t*>(single.Data()));
    EXPECT_EQ(Bytes(single, 2), std::string("\3\0", 2));
    Bind<decltype(STDSIL_GetBitValue)>("STDSIL_GetBitValue")(
        "E9.9", reinterpret_cast<std::uint16_t*>(single.Data()));
    EXPECT_EQ(Bytes(single, 2), std::string(2, '\0'));
}

// ---- signals: blocks of exactly the bytes that each function may touch -------------------------

TEST_F(AccessorsTest, ASignalsTextIsTheBlocksLast) {
    slots.SetValueFromText("PT1", "abcdefghijklmnopqrstuvwxyz");
    const GuardedBytes signal(53);
    std::memcpy(signal.Data(), "PT1", 4);
    const std::string before = Bytes(signal, 35);
    Bind<decltype(STDSIL_GetStringValue)>("STDSIL_GetStringValue")(signal.Data());
    EXPECT_EQ(Bytes(signal, 35), before);
    EXPECT_STREQ(Text(signal) + 35, "abcdefghijklmnopq");

    const GuardedBytes toSet(31 + 6);
    std::memcpy(toSet.Data(), "PT2", 4);
    std::memcpy(toSet.Data() + 31, "hello", 6);
    Bind<decltype(STDSIL_SetTextValue)>("STDSIL_SetTextValue")(toSet.Data());
    char text[8] = "";
    EXPECT_EQ(slots.GetValue("PT2", text, sizeof text, 5), 1);
    EXPECT_STREQ(text, "hello");
}

TEST_F(AccessorsTest, ASignalsNumbersReachToTheBlocksEnd) {
    const auto set = Bind<decltype(STDSIL_SetTXValue)>("STDSIL_SetTXValue");
    const auto get = Bind<decltype(STDSIL_GetTXValue)>("STDSIL_GetTXValue");
    for (std::uint16_t count = 0; count <= 9; ++count) {
        const GuardedBytes signal(31 + count * 4U);
        std::memcpy(signal.Data(), "PL1", 4);
        for (std::uint32_t index = 0; index < count; ++index) {
            const std::uint32_t value = 4000000000 + index;
            std::memcpy(signal.Data() + 31 + index * 4, &value, 4);
        }
        const std::string before = Bytes(signal, 31 + count * 4U);
        set(signal.Data(), &count);
        EXPECT_EQ(Bytes(signal, 31 + count * 4U), before);
        std::memset(signal.Data() + 31, 0xEE, count * 4U);
        get(signal.Data(), &count);
        EXPECT_EQ(Bytes(signal, 31 + count * 4U), before) << count;
        slots.ClearList();
        get(signal.Data(), &count);
        EXPECT_EQ(Bytes(signal, 31 + count * 4U),
                  before.substr(0, 31) + std::string(count * 4U, '\0'));
    }
}

TEST_F(AccessorsTest, UnknownParametersTouchNoSignal) {
    std::uint16_t count = 2;
    for (const char* address : {"XX1", "1", ""}) {
        const GuardedBytes signal(53);
        std::memcpy(signal.Data(), address, std::strlen(address) + 1);
        const std::string before = Bytes(signal, 53);
        Bind<decltype(STDSIL_GetStringValue)>("STDSIL_GetStringValue")(signal.Data());
        Bind<decltype(STDSIL_GetTXValue)>("STDSIL_GetTXValue")(signal.Data(), &count);
        Bind<decltype(STDSIL_SetTXValue)>("STDSIL_SetTXValue")(signal.Data(), &count);
        EXPECT_EQ(Bytes(signal, 53), before) << address;
    }
}

TEST_F(AccessorsTest, NullArgumentsAreHarmless) {
    std::uint16_t count = 1;
    std::uint16_t word = 7;
    double number = 7;
    char text[32] = "?";
    Bind<decltype(STDSIL_GetStringValue)>("STDSIL_GetStringValue")(nullptr);
    Bind<decltype(STDSIL_SetTextValue)>("STDSIL_SetTextValue")(nullptr);
    Bind<decltype(STDSIL_GetTXValue)>("STDSIL_GetTXValue")(nullptr, &count);
    Bind<decltype(STDSIL_SetTXValue)>("STDSIL_SetTXValue")(nullptr, &count);
    Bind<decltype(STDSIL_GetTXValue)>("STDSIL_GetTXValue")(text, nullptr);
    Bind<decltype(STDSIL_SetTXValue)>("STDSIL_SetTXValue")(text, nullptr);
    Bind<decltype(STDSIL_GetBitValue)>("STDSIL_GetBitValue")(nullptr, &word);
    Bind<decltype(STDSIL_GetBitValue)>("STDSIL_GetBitValue")("E1", nullptr);
    Bind<decltype(STDSIL_GetWordValue)>("STDSIL_GetWordValue")(nullptr, nullptr);
    Bind<decltype(STDSIL_GetWordVector)>("STDSIL_GetWordVector")(nullptr, &word, 0, &count);
    Bind<decltype(STDSIL_GetWordVector)>("STDSIL_GetWordVector")("PW1", nullptr, 0, &count);
    Bind<decltype(STDSIL_GetWordVector)>("STDSIL_GetWordVector")("PW1", &word, 0, nullptr);
    Bind<decltype(STDSIL_GetFloatValue)>("STDSIL_GetFloatValue")(nullptr, &count, &number);
    Bind<decltype(STDSIL_GetFloatValue)>("STDSIL_GetFloatValue")("PF1", nullptr, &number);
    Bind<decltype(STDSIL_GetFloatValue)>("STDSIL_GetFloatValue")("PF1", &count, nullptr);
    EXPECT_EQ(word, 7);
    EXPECT_EQ(number, 7.0);
    EXPECT_STREQ(text, "?");
    EXPECT_EQ(Bind<decltype(STDSIL_SetTextParaValue)>("STDSIL_SetTextParaValue")(nullptr, nullptr,
                                                                                 nullptr, nullptr),
              0);
    EXPECT_EQ(
        Bind<decltype(STDSIL_GetSignalInfo)>("STDSIL_GetSignalInfo")(nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(Bind<decltype(STDSIL_GetName)>("STDSIL_GetName")(nullptr, nullptr, 9), 0);
    EXPECT_EQ(Bind<decltype(STDSIL_SetName)>("STDSIL_SetName")(nullptr, nullptr), 0);
    EXPECT_EQ(Bind<decltype(STDSIL_GetValue)>("STDSIL_GetValue")(nullptr, nullptr, 9, 2), 0);
    EXPECT_EQ(Bind<decltype(STDSIL_SetValue)>("STDSIL_SetValue")(nullptr, nullptr, 9, 2), 0);
}

}  // namespace
}  // namespace orvell::test
