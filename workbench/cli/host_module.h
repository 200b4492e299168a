#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
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

/// A value of a base type: its path in the whole value, as `Leaf` has it, and where it lies.
struct LeafPlace {
    std::string path;
    std::uint32_t element;
    std::uint32_t offset;  ///< bytes from the start of the element
};

/// What the dialog edits besides a value.
struct EditRequest {
    std::uint32_t mode = 0;              ///< as in DialogParameterRecord
    std::optional<std::uint8_t> format;  ///< none: the dialog does not offer formats
    std::uint32_t boxWidth = 0;
    std::string name;
    std::string extension;
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

    /// Where a value's leaves lie, in the order of `Leaves`. Empty without a value.
    [[nodiscard]] std::vector<LeafPlace> Places(std::uint32_t area, std::uint32_t count) const;

    // The target system is reached through `target`; a word that is not 0 cancels.

    /// Reads `value.count` values into `value.bytes`; false, with `value` unchanged, when it
    /// failed.
    [[nodiscard]] bool ReadOnline(Value& value, OnlineAccessRecord target,
                                  volatile std::uint32_t& cancel) const;
    [[nodiscard]] bool WriteOnline(const Value& value, OnlineAccessRecord target,
                                   volatile std::uint32_t& cancel) const;

    /// Opens the dialog on a value, also on none. True when the user has pressed OK; the value, its
    /// count and the request are then as in the dialog. `target`: null when there is none.
    [[nodiscard]] bool Edit(Value& value, EditRequest& request, OnlineAccessRecord* target) const;

    [[nodiscard]] HostParameterList& List() { return list_; }

  private:
    /// The module's own memory, freed by the module.
    using ModuleMemory = std::unique_ptr<void, decltype(StdParaFunctionTable::FreeStdMemory)>;

    [[nodiscard]] bool Bind();
    [[nodiscard]] ModuleMemory Allocate(const Value& value, std::uint32_t& length) const;

    LoadedLibrary library_;
    StdParaFunctionTable table_{};
    HostParameterList list_;
    std::uint32_t lastToken_ = 0;
};

}  // namespace workbench::cli
