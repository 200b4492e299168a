#pragma once

#include "orvell/orvell.h"

/// The functions of the parameter-management table. Arguments and results are those of the boundary
/// header. Each of them takes null arguments and lets no exception out.
namespace orvell::host::management {

// Files: the project's list file, imports and exports.
void ORVELL_CALL LoadList(ConfigurationRecord* record) noexcept;
void ORVELL_CALL SaveList(ConfigurationRecord* record) noexcept;
void ORVELL_CALL ImportIntoList(ConfigurationRecord* record, const char* path) noexcept;
void ORVELL_CALL ExportAndOpenList(ConfigurationRecord* record, const char* path) noexcept;
void ORVELL_CALL ImportNewList(ConfigurationRecord* record, const char* path) noexcept;
void ORVELL_CALL ExportList(ConfigurationRecord* record, const char* path) noexcept;

// The list as a whole: clearing it, and the update cycle.
void ORVELL_CALL ClearList() noexcept;
void ORVELL_CALL BeginUpdate() noexcept;
void ORVELL_CALL DeclareParameter(const char* oldAddress, const char* newAddress) noexcept;
void ORVELL_CALL EndUpdate() noexcept;

// Single parameters and vectors.
void ORVELL_CALL SetDoubleVector(const char* address, const double* values,
                                 uint32_t count) noexcept;
void ORVELL_CALL SetValueFromText(const char* address, const char* text) noexcept;
void ORVELL_CALL GetName(const char* address, char* buffer, uint32_t size) noexcept;
void ORVELL_CALL GetComment(const char* address, char* buffer, uint32_t size) noexcept;
int32_t ORVELL_CALL GetValue(const char* address, void* buffer, uint32_t length,
                             uint32_t form) noexcept;
int32_t ORVELL_CALL SetValue(const char* address, void* buffer, uint32_t length,
                             uint32_t form) noexcept;

// Tells repeated requests from new ones.
void ORVELL_CALL SetCallToken(uint32_t token) noexcept;

}  // namespace orvell::host::management

namespace orvell::host {

/// The whole table, freshly filled: handing it over empties it.
[[nodiscard]] ManagementTable MakeManagementTable();

}  // namespace orvell::host
