#include <cstddef>

#include "orvell/orvell.h"
#include "orvell/services.h"

// The layouts that hosts were built with, byte for byte.

static_assert(sizeof(void*) == 4, "the boundary is defined for 32-bit Windows only");

static_assert(sizeof(HostExportTable) == 20);
static_assert(sizeof(MStrBuf) == 12);
static_assert(sizeof(MString) == 12);
static_assert(sizeof(XmlAccessFunctions) == 26 * sizeof(void*));

static_assert(sizeof(ParameterRecord) == 28);
static_assert(offsetof(ParameterRecord, bytes) == 16);
static_assert(offsetof(ParameterRecord, attribute) == 20);
static_assert(offsetof(ParameterRecord, format) == 24);

static_assert(sizeof(DialogParameterRecord) == 52);
static_assert(offsetof(DialogParameterRecord, block) == 24);
static_assert(offsetof(DialogParameterRecord, bytes) == 32);
static_assert(offsetof(DialogParameterRecord, name) == 40);
static_assert(offsetof(DialogParameterRecord, format) == 48);

static_assert(sizeof(ConfigurationRecord) == 12);
static_assert(offsetof(ConfigurationRecord, path) == 8);

static_assert(sizeof(TypeInformationRecord) == 24);
static_assert(offsetof(TypeInformationRecord, name) == 8);
static_assert(offsetof(TypeInformationRecord, baseTypeName) == 16);

static_assert(sizeof(ElementRecord) == 28);
static_assert(offsetof(ElementRecord, typeName) == 8);

static_assert(sizeof(NameListNode) == 12);

static_assert(sizeof(ParameterDescriptionRecord) == 36);
static_assert(offsetof(ParameterDescriptionRecord, texts) == 28);
static_assert(offsetof(ParameterDescriptionRecord, address) == 32);

static_assert(sizeof(FillRecord) == 8);
static_assert(sizeof(OnlineAccessRecord) == 136);
static_assert(offsetof(OnlineAccessRecord, getters) == 32);
static_assert(offsetof(OnlineAccessRecord, alternative) == 60);
static_assert(offsetof(OnlineAccessRecord, reserved) == 88);

static_assert(sizeof(StdParaFunctionTable) == 104);
static_assert(offsetof(StdParaFunctionTable, GetStdEnumInfo) == 100);

static_assert(sizeof(ManagementTable) == 72);
static_assert(offsetof(ManagementTable, LoadList) == 4);
static_assert(offsetof(ManagementTable, SetCallToken) == 68);
