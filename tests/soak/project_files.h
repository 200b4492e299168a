#pragma once

#include <cstdint>

#include "output_hash.h"

namespace orvell::soak {

// The project's files lie in the current folder. Their names are in upper case, as the module
// writes them; natively a backslash is a character of a name like any other.

inline constexpr const char* kProject = "PLANT.PRJ";
inline constexpr const char* kProjectList = "PLANT.SIL";
inline constexpr const char* kProjectDefinitions = "PLANT.STDMEMXML";
inline constexpr const char* kBackupList = "BACKUP.SIL";
inline constexpr const char* kExportedList = "EXPORT.SIL";
inline constexpr const char* kExportedCsv = "EXPORT.CSV";
inline constexpr const char* kWholeList = "WHOLE.SIL";
inline constexpr const char* kWholeCsv = "WHOLE.CSV";
inline constexpr const char* kDelivery =
    "DELIVERY";  ///< definitions are exported to and merged from

// Areas of the definitions.
inline constexpr std::int32_t kWordArea = 1;
inline constexpr std::int32_t kModeArea = 2;  ///< an enumeration
inline constexpr std::int32_t kAllArea = 3;   ///< a structure with a leaf of each base type

inline constexpr std::uint32_t kAllLeafCount = 19;

/// Definitions with a type of each base type.
void WriteDefinitions();

/// Adds a file's content; throws `Failure`.
void AddFile(const char* path, OutputHash& output);

}  // namespace orvell::soak
