#include "management_fixture.h"

#include <array>

#include "paramlist/value_access.h"
#include "support/all_texts.h"

namespace orvell::host {

namespace {

std::unique_ptr<Module> currentModule;
std::vector<std::string> reportedLines;

std::unique_ptr<platform::StringSource> OpenStrings(void*) {
    return std::make_unique<resources::BuiltInStrings>();
}

std::string ModuleFileName(void*) {
    return "D:\\BIN\\ORVELL.DLL";
}

const resources::BuiltInStrings& BuiltIn() {
    static const resources::BuiltInStrings strings;
    return strings;
}

}  // namespace

Module& TheModule() {
    return *currentModule;
}

std::int32_t ORVELL_CALL ManagementTest::AppendLine(std::int32_t, const char* line, std::uint32_t,
                                                    std::int32_t) {
    if (onEntryAndReturn != nullptr) {
        onEntryAndReturn(true);
    }
    reportedLines.emplace_back(line);
    if (onEntryAndReturn != nullptr) {
        onEntryAndReturn(false);
    }
    return 1;
}

ManagementTest::ManagementTest() : reported(reportedLines) {
    const SystemServices services{loader,      messages, ModuleFileName,
                                  OpenStrings, registry, processes};
    currentModule = std::make_unique<Module>(services);
    currentModule->strings.UseSource(BuiltIn());
    reportedLines.clear();
    const HostExportTable callbacks{sizeof(callbacks), nullptr, AppendLine, nullptr, nullptr};
    currentModule->callbacks.Install(&callbacks);
}

ManagementTest::~ManagementTest() {
    currentModule.reset();
}

paramlist::ParameterList& ManagementTest::List() {
    return currentModule->parameters;
}

void ManagementTest::LoadAllTexts() {
    test::LoadAllTexts(currentModule->strings);
}

std::string ManagementTest::TextOf(const std::string& address) {
    std::array<char, 64> buffer{};
    const std::int32_t isGiven =
        management::GetValue(address.c_str(), buffer.data(), buffer.size(), 5);
    return isGiven != 0 ? buffer.data() : "none";
}

std::string ManagementTest::DescriptionOf(const std::string& address) {
    const auto description = paramlist::FindDescription(List(), address);
    return description ? std::string(description->name) + "|" + std::string(description->comment)
                       : "missing";
}

bool ManagementTest::Exists(const std::string& address) {
    return DescriptionOf(address) != "missing";
}

}  // namespace orvell::host
