#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "orvell/orvell.h"

namespace orvell::soak {

/// The module as a host has it. Natively it is part of the program, with stand-ins for the host's
/// libraries and for the user; for Windows it is the built DLL, with the libraries beside it.
class ModuleHost {
  public:
    ModuleHost() = default;
    ModuleHost(const ModuleHost&) = delete;
    ModuleHost& operator=(const ModuleHost&) = delete;
    virtual ~ModuleHost() = default;

    /// Calls slot 1 while a user makes the value a vector of three elements and accepts. The slot's
    /// result.
    virtual std::int32_t EditAsVectorOfThree(DialogParameterRecord& record) = 0;

    /// False where editing takes so long that not every cycle can do it.
    [[nodiscard]] virtual bool EditsFast() const = 0;

    /// The text of the first message box so far; empty when there was none.
    [[nodiscard]] virtual std::string FirstMessage() const = 0;

    StdParaFunctionTable slots{};
    ManagementTable list{};
    decltype(&STDSIL_SetName) setName = nullptr;
    decltype(&STDSIL_SetComment) setComment = nullptr;
    decltype(&SetZelkorExportFctns) setCallbacks = nullptr;
};

/// Loads the module and takes its tables; throws `Failure`.
[[nodiscard]] std::unique_ptr<ModuleHost> LoadModule();

/// Something that the process holds.
struct Holding {
    const char* name;
    std::uint64_t amount;
};

/// What the process holds at the moment; each time the same things in the same order.
void CountHoldings(std::vector<Holding>& holdings);

}  // namespace orvell::soak
