#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "orvell/orvell.h"

namespace workbench::cli {

/// One step of an update cycle: where a parameter was and where it is now.
struct Declaration {
    std::string oldAddress;  ///< empty: the parameter is new
    std::string newAddress;
};

/// A parameter as the module's accessors give it.
struct ParameterView {
    std::string name;
    std::string comment;
    std::optional<std::string> value;  ///< nothing: undefined
};

/// What to set in a parameter; what is absent stays as it is.
struct ParameterChange {
    std::string value;
    std::optional<std::string> name;
    std::optional<std::string> comment;
};

/// The module's parameter list, driven through the management table and the accessors as a host
/// does it. The call token stays 0, so that every call is done.
class HostParameterList {
  public:
    /// False when the module lacks a function.
    [[nodiscard]] bool Bind(HMODULE library);

    // Paths as the module is to know and write them. Messages are the only answer.
    void Load(const std::string& project);
    void Save(const std::string& project);
    void Import(const std::string& project, const std::string& path);
    void ImportAnew(const std::string& project, const std::string& path);
    void Export(const std::string& project, const std::string& path);

    /// One whole update cycle: parameters that are not declared are dropped.
    void Update(std::span<const Declaration> declarations);

    [[nodiscard]] bool Has(const std::string& address) const;

    /// Nothing when there is no such parameter.
    [[nodiscard]] std::optional<ParameterView> Find(const std::string& address) const;

    /// Creates the parameter when it is missing. False when the module refuses the address.
    [[nodiscard]] bool Set(const std::string& address, const ParameterChange& change);

  private:
    [[nodiscard]] std::optional<std::string> ValueText(const std::string& address) const;

    ManagementTable table_{};
    decltype(&STDSIL_GetSignalInfo) getSignalInfo_ = nullptr;
    decltype(&STDSIL_SetName) setName_ = nullptr;
    decltype(&STDSIL_SetComment) setComment_ = nullptr;
};

}  // namespace workbench::cli
