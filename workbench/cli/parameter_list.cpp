#include "cli/parameter_list.h"

#include <array>
#include <cstddef>
#include <cstring>

#include "cli/library.h"

namespace workbench::cli {
namespace {

constexpr std::size_t kSlotCount = 17;
static_assert(sizeof(ManagementTable) == (1 + kSlotCount) * sizeof(void*));

// With their closing zero bytes.
constexpr std::size_t kNameSize = 16;
constexpr std::size_t kCommentSize = 31;

constexpr std::uint32_t kTextForm = 5;
constexpr std::size_t kFirstTextSize = 256;

ConfigurationRecord Configuration(const std::string& project) {
    return {sizeof(ConfigurationRecord), nullptr, project.c_str()};
}

}  // namespace

bool HostParameterList::Bind(HMODULE library) {
    decltype(&GetParaMGMTFunc) getTable = nullptr;
    table_.size = sizeof table_;
    return ResolveFunction(library, "GetParaMGMTFunc", getTable) &&
           ResolveFunction(library, "STDSIL_GetSignalInfo", getSignalInfo_) &&
           ResolveFunction(library, "STDSIL_SetName", setName_) &&
           ResolveFunction(library, "STDSIL_SetComment", setComment_) && getTable(&table_) != 0 &&
           HasAllSlots<kSlotCount>(table_);
}

void HostParameterList::Load(const std::string& project) {
    ConfigurationRecord record = Configuration(project);
    table_.LoadList(&record);
}

void HostParameterList::Save(const std::string& project) {
    ConfigurationRecord record = Configuration(project);
    table_.SaveList(&record);
}

void HostParameterList::Import(const std::string& project, const std::string& path) {
    ConfigurationRecord record = Configuration(project);
    table_.ImportIntoList(&record, path.c_str());
}

void HostParameterList::ImportAnew(const std::string& project, const std::string& path) {
    ConfigurationRecord record = Configuration(project);
    table_.ImportNewList(&record, path.c_str());
}

void HostParameterList::Export(const std::string& project, const std::string& path) {
    ConfigurationRecord record = Configuration(project);
    table_.ExportList(&record, path.c_str());
}

void HostParameterList::Update(std::span<const Declaration> declarations) {
    table_.BeginUpdate();
    for (const Declaration& declaration : declarations) {
        table_.DeclareParameter(declaration.oldAddress.c_str(), declaration.newAddress.c_str());
    }
    table_.EndUpdate();
}

bool HostParameterList::Has(const std::string& address) const {
    return getSignalInfo_(address.c_str(), nullptr, nullptr) != 0;
}

std::optional<ParameterView> HostParameterList::Find(const std::string& address) const {
    std::array<char, kNameSize> name{};
    std::array<char, kCommentSize> comment{};
    if (getSignalInfo_(address.c_str(), name.data(), comment.data()) == 0) {
        return std::nullopt;
    }
    return ParameterView{name.data(), comment.data(), ValueText(address)};
}

bool HostParameterList::Set(const std::string& address, const ParameterChange& change) {
    std::string text = change.value;
    const auto size = static_cast<std::uint32_t>(text.size() + 1);
    const char* key = address.c_str();
    return table_.SetValue(key, text.data(), size, kTextForm) != 0 &&
           (!change.name || setName_(key, change.name->c_str()) != 0) &&
           (!change.comment || setComment_(key, change.comment->c_str()) != 0);
}

/// The module cuts a text to the buffer, so one that fills it is asked for again.
std::optional<std::string> HostParameterList::ValueText(const std::string& address) const {
    std::string text(kFirstTextSize, '\0');
    for (;;) {
        const auto size = static_cast<std::uint32_t>(text.size());
        if (table_.GetValue(address.c_str(), text.data(), size, kTextForm) == 0) {
            return std::nullopt;
        }
        const std::size_t length = std::strlen(text.c_str());
        if (length + 1 < text.size()) {
            text.resize(length);
            return text;
        }
        text.assign(2 * text.size(), '\0');
    }
}

}  // namespace workbench::cli
