#pragma once

#include <cstdint>
#include <string>

namespace orvell::platform {

/// Where the texts of a string table come from.
class StringSource {
  public:
    StringSource() = default;
    StringSource(const StringSource&) = delete;
    StringSource& operator=(const StringSource&) = delete;
    virtual ~StringSource() = default;

    /// The text with this number in the ANSI code page, empty when there is none.
    [[nodiscard]] virtual std::string Load(std::uint32_t number) const = 0;
};

/// The string resources of a loaded module; exists in the Windows builds only.
class ModuleStringSource : public StringSource {
  public:
    /// `module`: its instance handle (HINSTANCE), which must stay loaded while this object is used.
    explicit ModuleStringSource(void* module) : module_(module) {}

    [[nodiscard]] std::string Load(std::uint32_t number) const override;

  private:
    void* module_;
};

}  // namespace orvell::platform
