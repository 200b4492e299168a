#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/library.h"
#include "cli/parameter_list.h"
#include "orvell/orvell.h"

namespace workbench::cli {

/// A value with what the module needs to know about it.
struct Value {
    std::uint32_t area = 0;
    std::uint32_t count = 1;
    std::vector<std::uint8_t> bytes;
    std::uint8_t format = 0;
    bool bare = false;
};

struct Leaf {
    std::string path;
    std::string text;
};

/// Orvell, loaded as a host loads it, with its memory going back where it came from.
class HostModule {
  public:
    /// Loads ORVELL.DLL from the program's folder. False, with `error` saying what to do, when it
    /// does not load or its function tables are incomplete. Gives the module the host's callbacks.
    [[nodiscard]] bool Load(std::string& error);

    // Every configuration call is a request of its own; messages are the only answer.
    void LoadConfiguration(const std::string& project);
    void SaveConfiguration(const std::string& project);
    void ExportConfiguration(const std::string& project, const std::string& directory);
    void MergeConfiguration(const std::string& project, const std::string& directory);

    /// Bytes of one value; 0 for an unknown area.
    [[nodiscard]] std::uint32_t AreaSize(std::uint32_t area) const;
    [[nodiscard]] bool Fits(const Value& value) const;

    /// Nothing when the module yields no text; an empty text counts as none.
    [[nodiscard]] std::optional<std::string> Text(const Value& value) const;

    /// Empty when the module refuses the value.
    [[nodiscard]] std::vector<Leaf> Leaves(const Value& value) const;

    [[nodiscard]] HostParameterList& List() { return list_; }

  private:
    [[nodiscard]] bool Bind();

    LoadedLibrary library_;
    StdParaFunctionTable table_{};
    HostParameterList list_;
    std::uint32_t lastToken_ = 0;
};

}  // namespace workbench::cli
