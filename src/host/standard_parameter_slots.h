#pragma once

#include "orvell/orvell.h"

/// The functions of the standard-parameter table, by the room that does their work. Arguments,
/// results and ownership are those of the boundary header. Each of them takes null records (they
/// count as all zero) and lets no exception out.
namespace orvell::host::slots {

// Value slots: a value's text, leaves, size and check.
char* ORVELL_CALL GetStdParameterText(ParameterRecord* record) noexcept;
NameListNode* ORVELL_CALL GetStdParameterTextList(ParameterRecord* record) noexcept;
uint32_t ORVELL_CALL GetStdStructSize(int32_t identifier) noexcept;
int32_t ORVELL_CALL CheckStdParameter(ParameterRecord* record) noexcept;

// Release slots: what the module has allocated comes back.
void ORVELL_CALL FreeStdParameter(ParameterRecord* record) noexcept;
void ORVELL_CALL FreeStdMemory(void* memory) noexcept;
void ORVELL_CALL FreeStdTextList(NameListNode* list) noexcept;
void ORVELL_CALL FreeStdElementRecord(ElementRecord* record) noexcept;
void ORVELL_CALL FreeStdTypeInfo(TypeInformationRecord* record) noexcept;

// Configuration slots: one change token is shared by all five; a repeated token does nothing.
void ORVELL_CALL LoadStdMemConfig(ConfigurationRecord* record, uint32_t token) noexcept;
void ORVELL_CALL SaveStdMemConfig(ConfigurationRecord* record, uint32_t token) noexcept;
void ORVELL_CALL CloseStdMemConfig(uint32_t token) noexcept;
void ORVELL_CALL ExportStdMemConfig(ConfigurationRecord* record, const char* directory,
                                    uint32_t token) noexcept;
void ORVELL_CALL MergeStdMemConfig(ConfigurationRecord* record, const char* directory,
                                   uint32_t token) noexcept;

// Transfer slots: values to and from the host's functions. They run on the host's thread.
int32_t ORVELL_CALL ConvertStdParameter(ParameterRecord* record,
                                        OnlineAccessRecord* online) noexcept;
int32_t ORVELL_CALL ReadStdParameterOnline(ParameterRecord* record, OnlineAccessRecord* online,
                                           volatile uint32_t* cancel) noexcept;
int32_t ORVELL_CALL WriteStdParameterOnline(ParameterRecord* record, OnlineAccessRecord* online,
                                            volatile uint32_t* cancel) noexcept;
int32_t ORVELL_CALL FillStdParameterValue(ParameterRecord* record, FillRecord* host) noexcept;
int32_t ORVELL_CALL FillStdParameterValueInPlace(ParameterRecord* record,
                                                 FillRecord* host) noexcept;

// Builds a value from texts or from the parameter list.
int32_t ORVELL_CALL ResolveStdParameter(ParameterDescriptionRecord* record) noexcept;

// Type-information slots.
int32_t ORVELL_CALL GetStdStructMemberInfo(int32_t identifier, ElementRecord* element,
                                           TypeInformationRecord* record) noexcept;
int32_t ORVELL_CALL GetStdStructInfo(int32_t identifier, TypeInformationRecord* record) noexcept;
int32_t ORVELL_CALL GetStdTypeInfo(int32_t identifier, TypeInformationRecord* record) noexcept;
int32_t ORVELL_CALL GetStdEnumInfo(int32_t identifier, uint32_t position,
                                   TypeInformationRecord* record) noexcept;

// Lets the user edit a value; returns when the dialog has ended.
int32_t ORVELL_CALL EditStdParameter(DialogParameterRecord* record,
                                     OnlineAccessRecord* online) noexcept;

}  // namespace orvell::host::slots

namespace orvell::host {

/// The whole table, freshly filled: handing it over empties it.
[[nodiscard]] StdParaFunctionTable MakeStdParaFunctionTable();

}  // namespace orvell::host
