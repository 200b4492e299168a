#include "check/module_under_test.h"

#include <algorithm>
#include <cstring>

namespace workbench::check {
namespace {

/// In the order of `Exports`.
constexpr const char* kNames[] = {
    "SetZelkorExportFctns",     "GetStdParaFctns",         "GetParaMGMTFunc",
    "STDSIL_GetSignalInfo",     "STDSIL_SetBitParaValue",  "STDSIL_SetWordParaValue",
    "STDSIL_SetFloatParaValue", "STDSIL_SetTextParaValue", "STDSIL_SetTXParaValue",
    "STDSIL_GetName",           "STDSIL_SetName",          "STDSIL_GetComment",
    "STDSIL_SetComment",        "STDSIL_GetValue",         "STDSIL_SetValue",
    "STDSIL_GetBitValue",       "STDSIL_GetWordValue",     "STDSIL_GetWordVector",
    "STDSIL_GetFloatValue",     "STDSIL_GetStringValue",   "STDSIL_SetTextValue",
    "STDSIL_GetTXValue",        "STDSIL_SetTXValue",
};

static_assert(sizeof(Exports) == std::size(kNames) * sizeof(FARPROC));

}  // namespace

const std::vector<std::string>& RequiredExports() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> sorted(std::begin(kNames), std::end(kNames));
        std::ranges::sort(sorted);
        return sorted;
    }();
    return names;
}

bool ModuleUnderTest::Load(const std::string& path, std::string& error) {
    library_.reset(LoadLibraryExA(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!library_) {
        error = path + " cannot be loaded (Windows error " + std::to_string(GetLastError()) +
                "). ZELKORTOOL.DLL and what it names must lie beside it.";
        return false;
    }
    return Resolve(error);
}

bool ModuleUnderTest::Resolve(std::string& error) {
    FARPROC functions[std::size(kNames)];
    for (std::size_t i = 0; i < std::size(kNames); ++i) {
        functions[i] = GetProcAddress(library_.get(), kNames[i]);
        if (functions[i] == nullptr) {
            error = "The module does not export " + std::string(kNames[i]) + ".";
            return false;
        }
    }
    std::memcpy(&exports_, functions, sizeof exports_);
    return true;
}

void ModuleUnderTest::TakeTables() {
    slots_ = {};
    slots_.size = sizeof slots_;
    exports_.GetStdParaFctns(&slots_);
    management_ = {};
    management_.size = sizeof management_;
    exports_.GetParaMGMTFunc(&management_);
}

void ModuleUnderTest::Unload() {
    library_.reset();
}

std::vector<std::string> ModuleUnderTest::ExportedNames() const {
    const auto* image = reinterpret_cast<const std::uint8_t*>(library_.get());
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(image + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& place =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* table =
        reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(image + place.VirtualAddress);
    const auto* names = reinterpret_cast<const DWORD*>(image + table->AddressOfNames);
    std::vector<std::string> result;
    for (DWORD i = 0; i < table->NumberOfNames; ++i) {
        result.emplace_back(reinterpret_cast<const char*>(image + names[i]));
    }
    std::ranges::sort(result);
    return result;
}

}  // namespace workbench::check
