#include "cli/host_module.h"

#include <cstddef>
#include <memory>

#include "cli/message_page.h"
#include "cli/parameter_record.h"
#include "common/module_path.h"

namespace workbench::cli {
namespace {

constexpr std::size_t kSlotCount = 25;
static_assert(sizeof(StdParaFunctionTable) == (1 + kSlotCount) * sizeof(void*));

ConfigurationRecord Configuration(const std::string& project) {
    return {sizeof(ConfigurationRecord), nullptr, project.c_str()};
}

std::string Copy(const char* text) {
    return text == nullptr ? std::string{} : std::string(text);
}

}  // namespace

bool HostModule::Load(std::string& error) {
    const std::string folder = FolderOfModule(nullptr);
    library_.reset(
        LoadLibraryExA((folder + "ORVELL.DLL").c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!library_) {
        error = "ORVELL.DLL cannot be loaded (Windows error " + std::to_string(GetLastError()) +
                "). It must lie in " + folder + " with ZELKORTOOL.DLL and ZELKORXML.DLL.";
        return false;
    }
    if (!Bind()) {
        error = "The ORVELL.DLL in " + folder + " does not have all functions; install it anew.";
        return false;
    }
    return true;
}

/// In a host's order: its callbacks first, then the tables.
bool HostModule::Bind() {
    decltype(&SetZelkorExportFctns) setCallbacks = nullptr;
    decltype(&GetStdParaFctns) getTable = nullptr;
    if (!ResolveFunction(library_.get(), "SetZelkorExportFctns", setCallbacks) ||
        !ResolveFunction(library_.get(), "GetStdParaFctns", getTable)) {
        return false;
    }
    HostExportTable callbacks = MessagePageCallbacks();
    table_.size = sizeof table_;
    return setCallbacks(&callbacks) != 0 && getTable(&table_) != 0 &&
           HasAllSlots<kSlotCount>(table_) && list_.Bind(library_.get());
}

void HostModule::LoadConfiguration(const std::string& project) {
    ConfigurationRecord record = Configuration(project);
    table_.LoadStdMemConfig(&record, ++lastToken_);
}

void HostModule::SaveConfiguration(const std::string& project) {
    ConfigurationRecord record = Configuration(project);
    table_.SaveStdMemConfig(&record, ++lastToken_);
}

void HostModule::ExportConfiguration(const std::string& project, const std::string& directory) {
    ConfigurationRecord record = Configuration(project);
    table_.ExportStdMemConfig(&record, directory.c_str(), ++lastToken_);
}

void HostModule::MergeConfiguration(const std::string& project, const std::string& directory) {
    ConfigurationRecord record = Configuration(project);
    table_.MergeStdMemConfig(&record, directory.c_str(), ++lastToken_);
}

std::uint32_t HostModule::AreaSize(std::uint32_t area) const {
    return table_.GetStdStructSize(static_cast<std::int32_t>(area));
}

bool HostModule::Fits(const Value& value) const {
    ParameterRecord record = Parameter(value);
    return table_.CheckStdParameter(&record) != 0;
}

std::optional<std::string> HostModule::Text(const Value& value) const {
    ParameterRecord record = Parameter(value);
    const std::unique_ptr<char, decltype(table_.FreeStdMemory)> text(
        table_.GetStdParameterText(&record), table_.FreeStdMemory);
    return text ? std::optional<std::string>(text.get()) : std::nullopt;
}

std::vector<Leaf> HostModule::Leaves(const Value& value) const {
    ParameterRecord record = Parameter(value);
    const std::unique_ptr<NameListNode, decltype(table_.FreeStdTextList)> list(
        table_.GetStdParameterTextList(&record), table_.FreeStdTextList);
    std::vector<Leaf> leaves;
    for (const NameListNode* node = list.get(); node != nullptr; node = node->next) {
        leaves.push_back({Copy(node->first), Copy(node->second)});
    }
    return leaves;
}

}  // namespace workbench::cli
