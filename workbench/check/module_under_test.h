#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "orvell/orvell.h"

namespace workbench::check {

/// The module's exports, by their names.
struct Exports {
    decltype(&::SetZelkorExportFctns) SetZelkorExportFctns;
    decltype(&::GetStdParaFctns) GetStdParaFctns;
    decltype(&::GetParaMGMTFunc) GetParaMGMTFunc;
    decltype(&::STDSIL_GetSignalInfo) GetSignalInfo;
    decltype(&::STDSIL_SetBitParaValue) SetBitParaValue;
    decltype(&::STDSIL_SetWordParaValue) SetWordParaValue;
    decltype(&::STDSIL_SetFloatParaValue) SetFloatParaValue;
    decltype(&::STDSIL_SetTextParaValue) SetTextParaValue;
    decltype(&::STDSIL_SetTXParaValue) SetTXParaValue;
    decltype(&::STDSIL_GetName) GetName;
    decltype(&::STDSIL_SetName) SetName;
    decltype(&::STDSIL_GetComment) GetComment;
    decltype(&::STDSIL_SetComment) SetComment;
    decltype(&::STDSIL_GetValue) GetValue;
    decltype(&::STDSIL_SetValue) SetValue;
    decltype(&::STDSIL_GetBitValue) GetBitValue;
    decltype(&::STDSIL_GetWordValue) GetWordValue;
    decltype(&::STDSIL_GetWordVector) GetWordVector;
    decltype(&::STDSIL_GetFloatValue) GetFloatValue;
    decltype(&::STDSIL_GetStringValue) GetStringValue;
    decltype(&::STDSIL_SetTextValue) SetTextValue;
    decltype(&::STDSIL_GetTXValue) GetTXValue;
    decltype(&::STDSIL_SetTXValue) SetTXValue;
};

/// Names of all functions that the module must export, in ascending order.
[[nodiscard]] const std::vector<std::string>& RequiredExports();

/// The loaded module with both its tables.
class ModuleUnderTest {
  public:
    /// False when it does not load or lacks an export; `error` says which.
    [[nodiscard]] bool Load(const std::string& path, std::string& error);

    /// Takes both tables from the module. They must be whole.
    void TakeTables();
    void Unload();

    [[nodiscard]] const Exports& Functions() const { return exports_; }
    [[nodiscard]] const StdParaFunctionTable& Slots() const { return slots_; }
    [[nodiscard]] const ManagementTable& Management() const { return management_; }

    /// The names in the image's export table, in ascending order.
    [[nodiscard]] std::vector<std::string> ExportedNames() const;

  private:
    [[nodiscard]] bool Resolve(std::string& error);

    struct Closer {
        using pointer = HMODULE;
        void operator()(HMODULE library) const { FreeLibrary(library); }
    };

    std::unique_ptr<HMODULE, Closer> library_;
    Exports exports_{};
    StdParaFunctionTable slots_{};
    ManagementTable management_{};
};

}  // namespace workbench::check
