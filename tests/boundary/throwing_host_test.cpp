// A host of another compiler, whose functions throw: its exceptions are Windows' own, of which the
// module's compiler knows nothing.

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <utility>

#include "module_host.h"
#include "resources/dialog_ids.h"
#include "support/dialog_user.h"

namespace orvell::test {
namespace {

constexpr const char* kDefinitions =
    "Definitions\n"
    "\tTypeList\n"
    "\t\tType|Name=Word|BaseType=UINT|Size=2\n"
    "\t\tType|Name=Text|BaseType=STRING|Size=4\n"
    "\t\tType|Name=All|BaseType=Structured\n"
    "\t\t\tItem|Name=w|Type=Word|Dimension=3\n"
    "\t\t\tItem|Name=f|Type=FLOAT\n"
    "\t\t\tItem|Name=d|Type=DOUBLE\n"
    "\t\t\tItem|Name=t|Type=Text\n"
    "\tMemoryList\n"
    "\t\tMemory|ID=17|Type=Word\n"
    "\t\tMemory|ID=18|Type=All\n";

constexpr int kLeaves = 6;
constexpr std::size_t kBytes = 6 + 4 + 8 + 4;

/// A class of the host's with a text on the heap.
struct ThrownObject {
    char* text;
};

/// What the host's compiler tells of a class with every throw. Its destructor is a member function;
/// of one argument, this convention is theirs.
struct ThrownType {
    DWORD attributes;
    void(__fastcall* destroy)(ThrownObject* object);
    const void* compatibility;
    const void* bases;
};

int thrown = 0;
int destroyed = 0;
bool isIntact = true;  // every object, when it was destroyed

/// As the code of a throw expression of the compilers of Windows hosts does.
void Raise(const void* object, const void* type) {
    constexpr DWORD kCppException = 0xE06D7363;
    const ULONG_PTR parameters[] = {0x19930520, reinterpret_cast<ULONG_PTR>(object),
                                    reinterpret_cast<ULONG_PTR>(type)};
    RaiseException(kCppException, EXCEPTION_NONCONTINUABLE, 3, parameters);
}

void __fastcall Destroy(ThrownObject* object) {
    ++destroyed;
    isIntact = isIntact && std::strcmp(object->text, "of the host's") == 0;
    std::free(object->text);
}

void __fastcall DestroyAndThrow(ThrownObject* object) {
    Destroy(object);
    Raise(nullptr, nullptr);
}

constexpr ThrownType kPlainType{};
constexpr ThrownType kClassType{0, Destroy, nullptr, nullptr};
constexpr ThrownType kThrowingType{0, DestroyAndThrow, nullptr, nullptr};

void ThrowObject(const ThrownType& type) {
    ThrownObject object{strdup("of the host's")};
    ++thrown;
    Raise(&object, &type);
}

/// A number, objects with a destructor, and what was caught and is thrown on.
void Throw(int kind) {
    const int number = 7;
    switch (kind % 4) {
        case 0:
            return Raise(&number, &kPlainType);
        case 1:
            return ThrowObject(kClassType);
        case 2:
            return ThrowObject(kThrowingType);
        default:
            return Raise(nullptr, nullptr);
    }
}

int calls = 0;
int throwingCall = 0;

std::int32_t Call() {
    if (++calls == throwingCall) {
        Throw(throwingCall);
    }
    return 1;
}

template <typename Value>
std::int32_t ORVELL_CALL Put(std::uint32_t, std::uint32_t, Value) {
    return Call();
}

std::int32_t ORVELL_CALL GetText(std::uint32_t, std::uint32_t, char*, std::uint32_t) {
    return Call();
}

std::int32_t ORVELL_CALL PutRaw(std::uint32_t, std::uint32_t, void*, std::uint32_t, std::uint32_t) {
    return Call();
}

std::int32_t ORVELL_CALL LookUpPage(const char*) {
    return Call();
}

std::int32_t ORVELL_CALL Append(std::int32_t, const char*, std::uint32_t, std::int32_t) {
    return Call();
}

constexpr OnlineSetters kSetters{Put<std::uint8_t>,  Put<std::uint16_t>, Put<std::uint32_t>,
                                 Put<std::uint64_t>, Put<float>,         Put<double>,
                                 Put<const char*>};
constexpr OnlineGetters kGetters{Put<std::uint8_t*>,
                                 Put<std::uint16_t*>,
                                 Put<std::uint32_t*>,
                                 Put<std::uint64_t*>,
                                 Put<float*>,
                                 Put<double*>,
                                 GetText};

/// The first handler of structured exceptions on this thread: whoever links one in must take it
/// out.
void* FirstHandler() {
    void* first = nullptr;
    __asm__ volatile("movl %%fs:0, %0" : "=r"(first));
    return first;
}

class ThrowingForeignHostTest : public testing::Test {
  protected:
    ThrowingForeignHostTest() {
        stage.SetUpEverything();
        stage.Write("PLANT.STDMEMXML", kDefinitions);
        module = std::make_unique<LoadedModule>(stage);
        slots = module->Slots();
        LoadDefinitions(1);
        EXPECT_EQ(slots.GetStdStructSize(18), kBytes);
    }

    void LoadDefinitions(std::uint32_t token) const {
        const std::string project = stage.Path("plant.prj");
        ConfigurationRecord configuration{sizeof(configuration), nullptr, project.c_str()};
        slots.LoadStdMemConfig(&configuration, token);
    }

    /// Calls the slot while the host throws at its call 1, 2, 3, ...; checks that each of these
    /// gives `failure` and leaves nothing behind.
    template <typename Slot>
    void ExpectFailures(std::int32_t failure, const Slot& slot) {
        void* const handler = FirstHandler();
        for (throwingCall = 1; throwingCall <= kLeaves; ++throwingCall) {
            calls = 0;
            EXPECT_EQ(slot(), failure) << throwingCall;
            EXPECT_GE(calls, throwingCall);
            EXPECT_EQ(FirstHandler(), handler);
            EXPECT_EQ(record.bytes, bytes);
        }
        calls = 0;
        EXPECT_EQ(slot(), 1);
        EXPECT_EQ(calls, kLeaves);
        EXPECT_EQ(FirstHandler(), handler);
    }

    ~ThrowingForeignHostTest() override {
        EXPECT_GT(thrown, 0);
        EXPECT_EQ(std::exchange(destroyed, 0), std::exchange(thrown, 0));
        EXPECT_TRUE(isIntact);
        throwingCall = 0;
    }

    Stage stage;
    std::unique_ptr<LoadedModule> module;
    StdParaFunctionTable slots{};
    std::uint8_t bytes[kBytes] = {};
    ParameterRecord record{sizeof(record), 18, 1, kBytes, bytes, 0, 0, {}};
    OnlineAccessRecord online{sizeof(online), kSetters, kGetters, kSetters, {}};
    FillRecord fill{sizeof(fill), PutRaw};
};

TEST_F(ThrowingForeignHostTest, ACallThatThrowsHasFailed) {
    ExpectFailures(0, [this] { return slots.ConvertStdParameter(&record, &online); });
    ExpectFailures(0, [this] { return slots.WriteStdParameterOnline(&record, &online, nullptr); });
    ExpectFailures(0, [this] { return slots.FillStdParameterValueInPlace(&record, &fill); });
    ExpectFailures(-1, [this] { return slots.ReadStdParameterOnline(&record, &online, nullptr); });
    slots.FreeStdMemory(std::exchange(record.bytes, bytes));
    ExpectFailures(0, [this] { return slots.FillStdParameterValue(&record, &fill); });
    slots.FreeStdMemory(record.bytes);
}

TEST_F(ThrowingForeignHostTest, TheDefinitionsAreFreeAgain) {
    throwingCall = 1;
    calls = 0;
    EXPECT_EQ(slots.WriteStdParameterOnline(&record, &online, nullptr), 0);
    stage.Write("PLANT.STDMEMXML", "Definitions\n");
    LoadDefinitions(2);
    EXPECT_EQ(slots.GetStdStructSize(18), 0U) << "a definition in use would have stayed";
}

TEST_F(ThrowingForeignHostTest, AThrowOnTheWorkerThreadEndsTheTransferWithItsMessage) {
    for (const int failing : {1, 3}) {  // the first and the last
        auto* value = static_cast<std::uint8_t*>(std::malloc(6));
        std::memset(value, 0, 6);
        DialogParameterRecord edited{};
        edited.size = sizeof(edited);
        edited.identifier = 17;
        edited.count = 3;
        edited.mode = 3;
        edited.length = 6;
        edited.bytes = value;
        calls = 0;
        throwingCall = failing;
        std::int32_t result = -1;
        WorkDialogs([&] { result = slots.EditStdParameter(&edited, &online); },
                    [](const DialogUser& user) {
                        const HWND dialog = user.Dialog(ORVELL_VALUE_GRID);
                        user.Press(dialog, IDOK);
                        EXPECT_EQ(user.AnswerBox(), "The value cannot be written online.");
                        user.Press(dialog, IDOK);  // once more, and nothing throws
                    });
        EXPECT_EQ(result, 1);
        EXPECT_EQ(calls, failing + 3);
        slots.FreeStdMemory(edited.bytes);
    }
}

TEST_F(ThrowingForeignHostTest, AReportThatThrowsDoesNotEndTheImport) {
    HostExportTable callbacks{sizeof(callbacks), LookUpPage, Append, nullptr, nullptr};
    module->Export<decltype(&SetZelkorExportFctns)>("SetZelkorExportFctns")(&callbacks);
    const ManagementTable management = module->Management();
    management.LoadList(nullptr);
    const std::string path = stage.Write("LIST.CSV", "PW1;;1;;\nPW2;;2;;\n");
    constexpr int kReportCalls = 2 * 3;  // beginning, PW1 is not there, end; a page and a line each
    for (throwingCall = 1; throwingCall <= kReportCalls; ++throwingCall) {
        management.ClearList();
        management.SetValueFromText("PW2", "0");
        calls = 0;
        management.ImportIntoList(nullptr, path.c_str());
        EXPECT_EQ(calls, kReportCalls);
        char text[8] = "";
        EXPECT_EQ(management.GetValue("PW2", text, sizeof(text), 5), 1);
        EXPECT_STREQ(text, "2") << throwingCall;
    }
}

}  // namespace
}  // namespace orvell::test
