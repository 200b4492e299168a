#include <cstdlib>
#include <cstring>

#include "failure.h"
#include "fake_xml_library.h"
#include "host/module.h"
#include "module_host.h"
#include "resources/built_in_strings.h"
#include "support/fake_libraries.h"
#include "support/fake_zelkor_tool.h"
#include "support/recorded_messages.h"

namespace orvell::soak {

namespace {

constexpr const char* kToolPath = "D:\\BIN\\ZELKORTOOL.DLL";
constexpr const char* kLanguagePath = "C:\\LANG\\ORVELLRES.DLL";
constexpr const char* kXmlPath = "XML.DLL";

double ORVELL_CALL XmlVersion() {
    return 2.01;
}

double ORVELL_CALL LanguageVersion() {
    return 2.0105;
}

/// Does with the record what the dialog does when a user makes the value a vector.
class VectorEditor final : public ui::ParameterEditor {
  public:
    bool Edit(DialogParameterRecord* record, const OnlineAccessRecord&,
              const ui::EditorServices&) override {
        constexpr std::uint32_t kCount = 3;
        const std::uint32_t length = record->length * kCount;
        void* longer = std::calloc(length, 1);
        std::memcpy(longer, record->bytes, record->length);
        std::free(record->bytes);
        record->bytes = longer;
        record->length = length;
        record->count = kCount;
        return true;
    }
};

test::FakeLoader theLoader;
test::RecordedMessages theMessages;
VectorEditor theEditor;
std::unique_ptr<host::Module> theModule;

std::unique_ptr<platform::StringSource> OpenStrings(void*) {
    return std::make_unique<resources::BuiltInStrings>();
}

std::string ModuleFileName(void*) {
    return "D:\\BIN\\ORVELL.DLL";
}

class NativeHost final : public ModuleHost {
  public:
    NativeHost() {
        test::FakeZelkorTool::Reset();
        theLoader.libraries[kToolPath] = test::FakeZelkorTool::AllSymbols();
        theLoader.libraries[kLanguagePath]["GetDLLVersion"] = test::Address(LanguageVersion);
        test::Symbols xml = test::FakeXmlLibrary::Functions();
        xml["GetDLLVersion"] = test::Address(XmlVersion);
        theLoader.libraries[kXmlPath] = xml;
        theModule =
            std::make_unique<host::Module>(host::SystemServices{.loader = theLoader,
                                                                .messageBoxes = theMessages,
                                                                .moduleFileName = ModuleFileName,
                                                                .openStrings = OpenStrings,
                                                                .editor = &theEditor});
        Require(theModule->app.InitInstance(), "the module does not start");
        slots.size = sizeof slots;
        GetStdParaFctns(&slots);
        list.size = sizeof list;
        GetParaMGMTFunc(&list);
        setName = STDSIL_SetName;
        setComment = STDSIL_SetComment;
        setCallbacks = SetZelkorExportFctns;
    }

    ~NativeHost() override {
        theModule->app.ExitInstance();
        theModule.reset();
    }

    std::int32_t EditAsVectorOfThree(DialogParameterRecord& record) override {
        return slots.EditStdParameter(&record, nullptr);
    }

    [[nodiscard]] bool EditsFast() const override { return true; }

    /// What the XML library complains about counts as a message.
    [[nodiscard]] std::string FirstMessage() const override {
        return theMessages.shown.empty() ? xmlLibrary_.Complaints()
                                         : theMessages.shown.front().text;
    }

  private:
    test::FakeXmlLibrary xmlLibrary_;
};

}  // namespace

std::unique_ptr<ModuleHost> LoadModule() {
    return std::make_unique<NativeHost>();
}

}  // namespace orvell::soak

orvell::host::Module& orvell::host::TheModule() {
    return *soak::theModule;
}
