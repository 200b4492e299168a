// A build of the module with one fault, for the test of the checker: passes everything on to the
// genuine module but spoils what the environment variable ORVELL_FAULT names.

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

#include "orvell/orvell.h"

// Where the exports of the same names lead to, in the order of the definition file.
extern "C" {
void* exportTargets[23];
}

namespace {

constexpr const char* kExportNames[] = {
    "SetZelkorExportFctns",     "GetStdParaFctns",         "GetParaMGMTFunc",
    "STDSIL_GetSignalInfo",     "STDSIL_SetBitParaValue",  "STDSIL_SetWordParaValue",
    "STDSIL_SetFloatParaValue", "STDSIL_SetTextParaValue", "STDSIL_SetTXParaValue",
    "STDSIL_GetName",           "STDSIL_SetName",          "STDSIL_GetComment",
    "STDSIL_SetComment",        "STDSIL_GetValue",         "STDSIL_SetValue",
    "STDSIL_GetBitValue",       "STDSIL_GetWordValue",     "STDSIL_GetWordVector",
    "STDSIL_GetFloatValue",     "STDSIL_GetStringValue",   "STDSIL_SetTextValue",
    "STDSIL_GetTXValue",        "STDSIL_SetTXValue",
};
static_assert(std::size(kExportNames) == std::size(exportTargets));

HMODULE genuineModule = nullptr;
StdParaFunctionTable genuine{};
ManagementTable genuineManagement{};

template <typename Function>
Function* Genuine(const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(genuineModule, name)));
}

// ---- The standard-parameter table
// ----------------------------------------------------------------

int32_t ORVELL_CALL ChangeCancelledRecord(DialogParameterRecord* record,
                                          OnlineAccessRecord* online) {
    const int32_t result = genuine.EditStdParameter(record, online);
    if (result == 0 && record != nullptr && record->size >= 8) {
        record->owner = nullptr;
        reinterpret_cast<uint8_t*>(record)[7] = 1;
    }
    return result;
}

void ORVELL_CALL CrashOnNull(ParameterRecord* record) {
    volatile const uint32_t size = record->size;
    static_cast<void>(size);
    genuine.FreeStdParameter(record);
}

void ORVELL_CALL KeepMemory(void*) {}

int32_t ORVELL_CALL ChangePrecision(ParameterRecord* record, OnlineAccessRecord* online) {
    const uint16_t singlePrecision = 0x007F;
    __asm__ volatile("fldcw %0" : : "m"(singlePrecision));
    return genuine.ConvertStdParameter(record, online);
}

void ORVELL_CALL IgnoreToken(ConfigurationRecord* record, uint32_t token) {
    genuine.CloseStdMemConfig(0x80000000 + token);
    genuine.LoadStdMemConfig(record, token);
}

NameListNode* ORVELL_CALL Abort(ParameterRecord*) {
    std::abort();
}

void ORVELL_CALL KeepFirstText(NameListNode* list) {
    if (list != nullptr) {
        list->first = nullptr;
    }
    genuine.FreeStdTextList(list);
}

int32_t ORVELL_CALL LeakWhenRefused(ParameterDescriptionRecord* record) {
    const int32_t result = genuine.ResolveStdParameter(record);
    if (result == 0) {
        if (auto* leaked = static_cast<volatile char*>(std::malloc(40))) {
            *leaked = 1;
        }
    }
    return result;
}

void ORVELL_CALL KeepPointers(ElementRecord* record) {
    if (record == nullptr || record->size < sizeof *record) {
        genuine.FreeStdElementRecord(record);
        return;
    }
    const ElementRecord before = *record;
    genuine.FreeStdElementRecord(record);
    record->name = before.name;
}

int32_t ORVELL_CALL IgnoreRecordSize(ParameterRecord* record, OnlineAccessRecord* online,
                                     volatile uint32_t* cancel) {
    const int32_t result = genuine.ReadStdParameterOnline(record, online, cancel);
    if (record != nullptr) {
        record->attribute = 0;
    }
    return result;
}

int32_t ORVELL_CALL IgnoreCancelling(ParameterRecord* record, OnlineAccessRecord* online,
                                     volatile uint32_t*) {
    return genuine.WriteStdParameterOnline(record, online, nullptr);
}

int32_t ORVELL_CALL ChangeRecordOnFailure(ParameterRecord* record, FillRecord* host) {
    const int32_t result = genuine.FillStdParameterValue(record, host);
    if (result == 0 && record != nullptr && record->size >= 16) {
        record->length = 0;
    }
    return result;
}

uint32_t ORVELL_CALL TellWrongSize(int32_t identifier) {
    const uint32_t size = genuine.GetStdStructSize(identifier);
    return size == 8 ? 7 : size;
}

int32_t ORVELL_CALL ReadBehindValue(ParameterRecord* record) {
    if (record != nullptr && record->size >= sizeof *record && record->bytes != nullptr) {
        volatile const uint8_t behind = static_cast<uint8_t*>(record->bytes)[record->length];
        static_cast<void>(behind);
    }
    return genuine.CheckStdParameter(record);
}

int32_t ORVELL_CALL LeaveGarbageInResult(ParameterRecord* record) {
    return genuine.CheckStdParameter(record) | 0x01000000;
}

int32_t ORVELL_CALL WriteBehindRecord(int32_t identifier, TypeInformationRecord* record) {
    const int32_t result = genuine.GetStdTypeInfo(identifier, record);
    if (record != nullptr && record->size >= sizeof(uint32_t)) {
        reinterpret_cast<uint8_t*>(record)[record->size] = 0;
    }
    return result;
}

int32_t ORVELL_CALL CountFromOne(int32_t identifier, uint32_t position,
                                 TypeInformationRecord* record) {
    return genuine.GetStdEnumInfo(identifier, position - 1, record);
}

// ---- The management table
// ------------------------------------------------------------------------

void ORVELL_CALL SaveNothing(ConfigurationRecord*) {}

void ORVELL_CALL IgnoreCallToken() {
    genuineManagement.SetCallToken(0);
    genuineManagement.ClearList();
}

void ORVELL_CALL DropNothing() {
    genuineManagement.BeginUpdate();
    genuineManagement.EndUpdate();
}

void ORVELL_CALL WriteBehindBuffer(const char* address, char* buffer, uint32_t size) {
    genuineManagement.GetName(address, buffer, size);
    if (buffer != nullptr) {
        buffer[size] = '\0';
    }
}

void ORVELL_CALL StaySilent(ConfigurationRecord* record, const char* path) {
    if (path != nullptr && std::strstr(path, "NOWHERE") == nullptr) {
        genuineManagement.ExportList(record, path);
    }
}

// ---- Exports
// -------------------------------------------------------------------------------------

int32_t ORVELL_CALL EmptyHostTable(HostExportTable* table) {
    const int32_t result = Genuine<decltype(SetZelkorExportFctns)>("SetZelkorExportFctns")(table);
    if (table != nullptr && table->size >= 8) {
        reinterpret_cast<uint8_t*>(table)[4] = 1;
    }
    return result;
}

int32_t ORVELL_CALL IgnoreTableSize(void* table) {
    if (table == nullptr) {
        return 0;
    }
    const uint32_t size = *static_cast<uint32_t*>(table);
    std::memcpy(table, &genuine, sizeof genuine);
    std::memcpy(table, &size, sizeof size);
    return 1;
}

int32_t ORVELL_CALL CreateByName(const char* address, const char* name) {
    genuineManagement.SetValueFromText(address, "0");
    return Genuine<decltype(STDSIL_SetName)>("STDSIL_SetName")(address, name);
}

int32_t ORVELL_CALL TouchShortBuffer(const char* address, void* buffer, uint32_t length,
                                     uint32_t form) {
    if (buffer != nullptr && length > 0) {
        *static_cast<uint8_t*>(buffer) = 0;
    }
    return genuineManagement.GetValue(address, buffer, length, form);
}

void ORVELL_CALL WriteOneTooMany(void* signal, uint16_t* count) {
    if (count != nullptr) {
        uint16_t more = static_cast<uint16_t>(*count + 1);
        Genuine<decltype(STDSIL_GetTXValue)>("STDSIL_GetTXValue")(signal, &more);
    }
}

// ---- The choice
// ----------------------------------------------------------------------------------

enum class Place { Standard, Management, Export };

struct Fault {
    std::string_view name;
    Place place;
    uint32_t index;  ///< slot, from 1; export, from 0
    void* function;
};

template <typename Function>
void* Address(Function* function) {
    return reinterpret_cast<void*>(function);
}

const Fault& ChosenFault() {
    static const Fault faults[] = {
        {"cancelled record changed", Place::Standard, 1, Address(ChangeCancelledRecord)},
        {"crash on null", Place::Standard, 2, Address(CrashOnNull)},
        {"text leaked", Place::Standard, 4, Address(KeepMemory)},
        {"precision changed", Place::Standard, 5, Address(ChangePrecision)},
        {"change token ignored", Place::Standard, 6, Address(IgnoreToken)},
        {"abort", Place::Standard, 11, Address(Abort)},
        {"node's text leaked", Place::Standard, 12, Address(KeepFirstText)},
        {"leak on failure", Place::Standard, 13, Address(LeakWhenRefused)},
        {"released record not emptied", Place::Standard, 15, Address(KeepPointers)},
        {"record size ignored", Place::Standard, 17, Address(IgnoreRecordSize)},
        {"cancelling ignored", Place::Standard, 18, Address(IgnoreCancelling)},
        {"record changed on failure", Place::Standard, 19, Address(ChangeRecordOnFailure)},
        {"wrong size", Place::Standard, 21, Address(TellWrongSize)},
        {"value read beyond its end", Place::Standard, 22, Address(ReadBehindValue)},
        {"garbage in the result", Place::Standard, 22, Address(LeaveGarbageInResult)},
        {"record written beyond its end", Place::Standard, 23, Address(WriteBehindRecord)},
        {"positions counted from 1", Place::Standard, 25, Address(CountFromOne)},
        {"nothing saved", Place::Management, 2, Address(SaveNothing)},
        {"call token ignored", Place::Management, 3, Address(IgnoreCallToken)},
        {"nothing dropped", Place::Management, 6, Address(DropNothing)},
        {"buffer written beyond its end", Place::Management, 9, Address(WriteBehindBuffer)},
        {"failure not reported", Place::Management, 14, Address(StaySilent)},
        {"host's table changed", Place::Export, 0, Address(EmptyHostTable)},
        {"table size ignored", Place::Export, 1, Address(IgnoreTableSize)},
        {"parameter created by its name", Place::Export, 10, Address(CreateByName)},
        {"short buffer touched", Place::Export, 13, Address(TouchShortBuffer)},
        {"vector written beyond its end", Place::Export, 21, Address(WriteOneTooMany)},
        {"none", Place::Standard, 0, nullptr},
    };
    const char* name = std::getenv("ORVELL_FAULT");
    const auto found = std::ranges::find(faults, name == nullptr ? "" : name, &Fault::name);
    if (found == std::end(faults)) {
        std::abort();  // a fault that is not there would let the checker pass
    }
    return *found;
}

/// Puts the fault into a table that the genuine module has filled.
void Spoil(Place place, void* table) {
    const Fault& fault = ChosenFault();
    const uint32_t size = *static_cast<uint32_t*>(table);
    const uint32_t offset = fault.index * static_cast<uint32_t>(sizeof(void*));
    if (fault.place == place && fault.function != nullptr && size >= offset + sizeof(void*)) {
        std::memcpy(static_cast<uint8_t*>(table) + offset, &fault.function, sizeof fault.function);
    }
}

int32_t ORVELL_CALL HandOverStandardTable(void* table) {
    const int32_t result = Genuine<decltype(GetStdParaFctns)>("GetStdParaFctns")(table);
    if (result != 0) {
        Spoil(Place::Standard, table);
    }
    return result;
}

int32_t ORVELL_CALL HandOverManagementTable(void* table) {
    const int32_t result = Genuine<decltype(GetParaMGMTFunc)>("GetParaMGMTFunc")(table);
    if (result != 0) {
        Spoil(Place::Management, table);
    }
    return result;
}

bool LoadGenuineModule(HINSTANCE ownModule) {
    char path[MAX_PATH];
    const DWORD length = GetModuleFileNameA(ownModule, path, MAX_PATH);
    const std::string_view own(path, length);
    const std::string genuinePath =
        std::string(own.substr(0, own.rfind('\\') + 1)) + ORVELL_GENUINE_MODULE;
    genuineModule = LoadLibraryExA(genuinePath.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    return genuineModule != nullptr;
}

void FillExports() {
    for (std::size_t i = 0; i < std::size(kExportNames); ++i) {
        exportTargets[i] = reinterpret_cast<void*>(GetProcAddress(genuineModule, kExportNames[i]));
    }
    exportTargets[1] = Address(HandOverStandardTable);
    exportTargets[2] = Address(HandOverManagementTable);
    if (ChosenFault().place == Place::Export) {
        exportTargets[ChosenFault().index] = ChosenFault().function;
    }
    genuine.size = sizeof genuine;
    Genuine<decltype(GetStdParaFctns)>("GetStdParaFctns")(&genuine);
    genuineManagement.size = sizeof genuineManagement;
    Genuine<decltype(GetParaMGMTFunc)>("GetParaMGMTFunc")(&genuineManagement);
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved) {
    if (reason == DLL_PROCESS_ATTACH) {
        if (!LoadGenuineModule(instance)) {
            return FALSE;
        }
        FillExports();
    } else if (reason == DLL_PROCESS_DETACH && reserved == nullptr && genuineModule != nullptr) {
        FreeLibrary(genuineModule);
    }
    return TRUE;
}

// Each export jumps to its target with the arguments as they are.
#define ORVELL_EXPORT(index)                                 \
    extern "C" __attribute__((naked)) void Export##index() { \
        __asm__("jmp *_exportTargets+" #index "*4");         \
    }

ORVELL_EXPORT(0)
ORVELL_EXPORT(1)
ORVELL_EXPORT(2)
ORVELL_EXPORT(3)
ORVELL_EXPORT(4)
ORVELL_EXPORT(5)
ORVELL_EXPORT(6)
ORVELL_EXPORT(7)
ORVELL_EXPORT(8)
ORVELL_EXPORT(9)
ORVELL_EXPORT(10)
ORVELL_EXPORT(11)
ORVELL_EXPORT(12)
ORVELL_EXPORT(13)
ORVELL_EXPORT(14)
ORVELL_EXPORT(15)
ORVELL_EXPORT(16)
ORVELL_EXPORT(17)
ORVELL_EXPORT(18)
ORVELL_EXPORT(19)
ORVELL_EXPORT(20)
ORVELL_EXPORT(21)
ORVELL_EXPORT(22)
