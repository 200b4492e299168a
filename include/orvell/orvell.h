/*
 * The boundary between Orvell and its host: records, callbacks, tables and exports.
 *
 * Everything here is plain C for 32-bit Windows. All functions use the C calling convention
 * (__cdecl) and undecorated names. Every record is packed to 4 bytes and all its words are
 * little-endian. A text is a pointer to a NUL-terminated string of bytes in the system's ANSI
 * code page. Truth values are 32-bit integers: 1 success, 0 failure.
 *
 * Size-prefixed records begin with their own size in bytes. The receiver reads
 * min(sender's size, own size) bytes; what is missing counts as zero, and nothing is ever written
 * beyond the size that a record declares.
 *
 * "Module-allocated" memory comes from the module and goes back through the release slot named
 * with it; the host never frees it itself.
 *
 * Threads: every function is called on the host's user-interface thread, unless said otherwise.
 */
#ifndef ORVELL_ORVELL_H
#define ORVELL_ORVELL_H

#include <stdint.h>

#if defined(_WIN32)
#define ORVELL_CALL __cdecl
#else
#define ORVELL_CALL
#endif

#ifdef __cplusplus
extern "C" {
#endif

#pragma pack(push, 4)

/* ---- The host's services ------------------------------------------------------------------ */

/* Callbacks that the host installs with SetZelkorExportFctns; an absent one is null. */
typedef struct HostExportTable {
    uint32_t size; /* 20 */
    /* Number (0 or more) of the message page with this name; negative when there is none. */
    int32_t(ORVELL_CALL* MessagePageLookup)(const char* pageName);
    /* Appends a line to a message page. colour: 0x00BBGGRR; emphasis: 0 or 1. */
    int32_t(ORVELL_CALL* MessagePageAppend)(int32_t page, const char* line, uint32_t colour,
                                            int32_t emphasis);
    void* reserved3; /* kept, never called */
    void* reserved4; /* kept, never called */
} HostExportTable;

/* A text that ZELKORTOOL.DLL lends; goes back through its DeleteMStrBuf. */
typedef struct MStrBuf {
    char* text;
    uint32_t reserved1; /* belongs to the tool library */
    uint32_t reserved2;
} MStrBuf;

/* A text that the XML access library lends; goes back through its XMLIF_FreeMString. */
typedef struct MString {
    char* text;
    uint32_t reserved1; /* belongs to the XML access library */
    uint32_t reserved2;
} MString;

/* ---- Records of the standard-parameter table ---------------------------------------------- */

/* A standard parameter's value. */
typedef struct ParameterRecord {
    uint32_t size;      /* 28 */
    int32_t identifier; /* of the memory area; compared as a bit pattern */
    uint32_t count;    /* elements; below 2: a single value (slots 17 and 19: 0 is nothing to do) */
    uint32_t length;   /* of the value in bytes; counts as 0 when bytes is null */
    void* bytes;       /* the value as the target stores it (little-endian, packed) */
    int32_t attribute; /* not 0: texts of STRING values are bare; 0: in quotation marks */
    uint8_t format;    /* low 4 bits: 0 default, 1 signed, 2 unsigned, 3 hexadecimal */
    uint8_t reserved[3];
} ParameterRecord;

/* What the parameter dialog edits. */
typedef struct DialogParameterRecord {
    uint32_t size;        /* 52 */
    void* owner;          /* window handle; null: no owner */
    uint32_t mode;        /* 1: offer the vector controls; 3: online */
    int32_t identifier;   /* of the memory area */
    uint32_t count;       /* vector length; below 2: a single value */
    uint32_t blockLength; /* bytes at block; 0 when block is null */
    void* block;          /* module-allocated; carried through untouched */
    uint32_t length;      /* of the value in bytes */
    void* bytes;          /* module-allocated value bytes */
    uint32_t boxWidth;
    const char* name;      /* shown as "name - extension" */
    const char* extension; /* shown only when not empty */
    uint8_t format;        /* bit 7: a format is given; low 4 bits: 0 to 3, others count as 0 */
    uint8_t reserved[3];
} DialogParameterRecord;

/* Names the project to the configuration slots and the management table. */
typedef struct ConfigurationRecord {
    uint32_t size;    /* 12 */
    void* owner;      /* window that owns the message boxes; null: none, boxes are top-most */
    const char* path; /* the project's file */
} ConfigurationRecord;

/* Describes a type. Both texts are module-allocated; released through slot 24. */
typedef struct TypeInformationRecord {
    uint32_t size;       /* 24 */
    uint32_t kind;       /* low 2 bits: 1 basic type, 2 enumerated, 3 structured */
    char* name;          /* the type's name (slot 25: the enumerator's) */
    uint32_t storedSize; /* bytes of one value */
    char* baseTypeName;  /* kind 1: name of the base type (slot 25: the type's name), else null */
    uint32_t count;      /* elements, enumerators or base-type code (slot 25: the value) */
} TypeInformationRecord;

/* Describes one element of a structured type. Both texts are module-allocated; slot 15. */
typedef struct ElementRecord {
    uint32_t size; /* 28 */
    char* name;
    char* typeName;
    uint32_t index;     /* in: the wanted element, from 0 in definition order */
    uint32_t dimension; /* consecutive values of the element's type */
    uint32_t offset;    /* bytes from the start of the structure */
    uint32_t width;     /* bytes of one value */
} ElementRecord;

/* Node of a name list; nodes and texts are module-allocated; released whole through slot 12. */
typedef struct NameListNode {
    char* first;
    char* second;
    struct NameListNode* next;
} NameListNode;

/* Describes a value to be gathered from texts or from the parameter list. */
typedef struct ParameterDescriptionRecord {
    uint32_t size; /* 36 */
    int32_t identifier;
    uint32_t count;
    uint32_t length;
    void* bytes;
    int32_t attribute;
    uint8_t format;
    uint8_t reserved[3];
    NameListNode* texts; /* (element path, text) pairs as slot 11 produces them */
    const char* address; /* first address in the parameter list, used when texts is null */
} ParameterDescriptionRecord;

/*
 * Kinds of FillRecord::Put: 1 enumerated byte, 2 word, 3 long, 4 float, 5 text,
 * 6 duration/time/date, 7 integer byte, 8 64-bit integer, 9 double, 10 OLE date.
 */
typedef struct FillRecord {
    uint32_t size; /* 8 */
    /* Takes or fills byteCount bytes of one leaf value; not 0: success. */
    int32_t(ORVELL_CALL* Put)(uint32_t first, uint32_t second, void* bytes, uint32_t byteCount,
                              uint32_t kind);
} FillRecord;

/* One family of setters; not 0: success. first: element index; second: byte offset in it. */
typedef struct OnlineSetters {
    int32_t(ORVELL_CALL* Put8)(uint32_t first, uint32_t second, uint8_t value);
    int32_t(ORVELL_CALL* Put16)(uint32_t first, uint32_t second, uint16_t value);
    int32_t(ORVELL_CALL* Put32)(uint32_t first, uint32_t second, uint32_t value);
    int32_t(ORVELL_CALL* Put64)(uint32_t first, uint32_t second, uint64_t value);
    int32_t(ORVELL_CALL* PutFloat)(uint32_t first, uint32_t second, float value);
    int32_t(ORVELL_CALL* PutDouble)(uint32_t first, uint32_t second, double value);
    int32_t(ORVELL_CALL* PutText)(uint32_t first, uint32_t second, const char* text);
} OnlineSetters;

/* The getters write through their pointer, which the module has zeroed; not 0: success. */
typedef struct OnlineGetters {
    int32_t(ORVELL_CALL* Get8)(uint32_t first, uint32_t second, uint8_t* value);
    int32_t(ORVELL_CALL* Get16)(uint32_t first, uint32_t second, uint16_t* value);
    int32_t(ORVELL_CALL* Get32)(uint32_t first, uint32_t second, uint32_t* value);
    int32_t(ORVELL_CALL* Get64)(uint32_t first, uint32_t second, uint64_t* value);
    int32_t(ORVELL_CALL* GetFloat)(uint32_t first, uint32_t second, float* value);
    int32_t(ORVELL_CALL* GetDouble)(uint32_t first, uint32_t second, double* value);
    /* size: bytes at buffer, the closing NUL included */
    int32_t(ORVELL_CALL* GetText)(uint32_t first, uint32_t second, char* buffer, uint32_t size);
} OnlineGetters;

/* The host's functions through which values reach the target system; absent ones are null. */
typedef struct OnlineAccessRecord {
    uint32_t size;             /* 136 */
    OnlineSetters setters;     /* words 1 to 7 */
    OnlineGetters getters;     /* words 8 to 14 */
    OnlineSetters alternative; /* words 15 to 21: the setters of online writing */
    uint32_t reserved[12];     /* words 22 to 33, never read */
} OnlineAccessRecord;

/* ---- The standard-parameter table --------------------------------------------------------- */

typedef struct StdParaFunctionTable {
    uint32_t size; /* 104 */
    /*  1 */ int32_t(ORVELL_CALL* EditStdParameter)(DialogParameterRecord*, OnlineAccessRecord*);
    /*  2 */ void(ORVELL_CALL* FreeStdParameter)(ParameterRecord*);
    /*  3 */ char*(ORVELL_CALL* GetStdParameterText)(ParameterRecord*);
    /*  4 */ void(ORVELL_CALL* FreeStdMemory)(void*);
    /*  5 */ int32_t(ORVELL_CALL* ConvertStdParameter)(ParameterRecord*, OnlineAccessRecord*);
    /*  6 */ void(ORVELL_CALL* LoadStdMemConfig)(ConfigurationRecord*, uint32_t token);
    /*  7 */ void(ORVELL_CALL* SaveStdMemConfig)(ConfigurationRecord*, uint32_t token);
    /*  8 */ void(ORVELL_CALL* CloseStdMemConfig)(uint32_t token);
    /*  9 */ void(ORVELL_CALL* ExportStdMemConfig)(ConfigurationRecord*, const char* directory,
                                                   uint32_t token);
    /* 10 */ void(ORVELL_CALL* MergeStdMemConfig)(ConfigurationRecord*, const char* directory,
                                                  uint32_t token);
    /* 11 */ NameListNode*(ORVELL_CALL* GetStdParameterTextList)(ParameterRecord*);
    /* 12 */ void(ORVELL_CALL* FreeStdTextList)(NameListNode*);
    /* 13 */ int32_t(ORVELL_CALL* ResolveStdParameter)(ParameterDescriptionRecord*);
    /* 14 */ int32_t(ORVELL_CALL* GetStdStructMemberInfo)(int32_t identifier, ElementRecord*,
                                                          TypeInformationRecord*);
    /* 15 */ void(ORVELL_CALL* FreeStdElementRecord)(ElementRecord*);
    /* 16 */ int32_t(ORVELL_CALL* GetStdStructInfo)(int32_t identifier, TypeInformationRecord*);
    /* 17 */ int32_t(ORVELL_CALL* ReadStdParameterOnline)(ParameterRecord*, OnlineAccessRecord*,
                                                          volatile uint32_t* cancel);
    /* 18 */ int32_t(ORVELL_CALL* WriteStdParameterOnline)(ParameterRecord*, OnlineAccessRecord*,
                                                           volatile uint32_t* cancel);
    /* 19 */ int32_t(ORVELL_CALL* FillStdParameterValue)(ParameterRecord*, FillRecord*);
    /* 20 */ int32_t(ORVELL_CALL* FillStdParameterValueInPlace)(ParameterRecord*, FillRecord*);
    /* 21 */ uint32_t(ORVELL_CALL* GetStdStructSize)(int32_t identifier);
    /* 22 */ int32_t(ORVELL_CALL* CheckStdParameter)(ParameterRecord*);
    /* 23 */ int32_t(ORVELL_CALL* GetStdTypeInfo)(int32_t identifier, TypeInformationRecord*);
    /* 24 */ void(ORVELL_CALL* FreeStdTypeInfo)(TypeInformationRecord*);
    /* 25 */ int32_t(ORVELL_CALL* GetStdEnumInfo)(int32_t identifier, uint32_t position,
                                                  TypeInformationRecord*);
} StdParaFunctionTable;

/* ---- The parameter-management table ------------------------------------------------------- */

/*
 * The project's parameter list as a whole, and single parameters by address (see the accessors
 * below).
 *
 *  1 empties the list and reads the project's list file, if there is one: the project's path with
 *    the extension "SIL"; 2 writes that file.
 *  4 begins an update: until slot 6 values are read and written in declared parameters only.
 *  5 moves a parameter to its new address and declares it; a new parameter has no old address.
 *  6 drops all parameters that have not been declared.
 *  7 to 10, 15 and 16 are accessors. The buffers of 9 and 10 have size bytes and get the text as
 *    far as it fits, with a closing NUL; an empty one when there is no such parameter.
 * 11 imports a file into the parameters that there are, 13 into an emptied list. With the extension
 *    "CSV" it is a CSV file, which never creates parameters, else a list file.
 * 14 exports the list to such a file; 12 also offers to open it in its registered editor.
 * 17 sets the call token. Slots 1 to 4, 6 and 11 to 14 do their work once per token, and at every
 *    call under token 0.
 *
 * Slots 2 and 11 to 14 report failures in a message box that the record's window owns.
 */
typedef struct ManagementTable {
    uint32_t size; /* 72 */
    /*  1 */ void(ORVELL_CALL* LoadList)(ConfigurationRecord*);
    /*  2 */ void(ORVELL_CALL* SaveList)(ConfigurationRecord*);
    /*  3 */ void(ORVELL_CALL* ClearList)(void);
    /*  4 */ void(ORVELL_CALL* BeginUpdate)(void);
    /*  5 */ void(ORVELL_CALL* DeclareParameter)(const char* oldAddress, const char* newAddress);
    /*  6 */ void(ORVELL_CALL* EndUpdate)(void);
    /*  7 */ void(ORVELL_CALL* SetDoubleVector)(const char* address, const double* values,
                                                uint32_t count);
    /*  8 */ void(ORVELL_CALL* SetValueFromText)(const char* address, const char* text);
    /*  9 */ void(ORVELL_CALL* GetName)(const char* address, char* buffer, uint32_t size);
    /* 10 */ void(ORVELL_CALL* GetComment)(const char* address, char* buffer, uint32_t size);
    /* 11 */ void(ORVELL_CALL* ImportIntoList)(ConfigurationRecord*, const char* path);
    /* 12 */ void(ORVELL_CALL* ExportAndOpenList)(ConfigurationRecord*, const char* path);
    /* 13 */ void(ORVELL_CALL* ImportNewList)(ConfigurationRecord*, const char* path);
    /* 14 */ void(ORVELL_CALL* ExportList)(ConfigurationRecord*, const char* path);
    /* 15 */ int32_t(ORVELL_CALL* GetValue)(const char* address, void* buffer, uint32_t length,
                                            uint32_t form);
    /* 16 */ int32_t(ORVELL_CALL* SetValue)(const char* address, void* buffer, uint32_t length,
                                            uint32_t form);
    /* 17 */ void(ORVELL_CALL* SetCallToken)(uint32_t token);
} ManagementTable;

#pragma pack(pop)

/* ---- Exports ------------------------------------------------------------------------------ */

/* Installs the host's callbacks; null empties the table. Returns 1. */
int32_t ORVELL_CALL SetZelkorExportFctns(HostExportTable* table);

/*
 * Fills the host's table (its first word says how many bytes it has) with the slots above.
 * Slots that do not fit are left out; words beyond the module's table are zeroed.
 * Returns 1, or 0 for a null table.
 */
int32_t ORVELL_CALL GetStdParaFctns(void* table);

/*
 * Fills the host's parameter-management table with as many bytes as its first word says, zeros
 * behind the module's table, and forgets the call tokens.
 * Returns 1, or 0 for a null table and for one whose first word is 0.
 */
int32_t ORVELL_CALL GetParaMGMTFunc(void* table);

/*
 * Accessors of the parameter list. An address is a text: a kind's keyword and a number ("PW12"),
 * for bit kinds byte.bit ("E3.5"; "E3" is "E3.0"). The functions with a result return 1 on success
 * and 0 on failure; none shows a message. Between the management table's slots 4 and 6 values are
 * read and written in declared parameters only; outside, writing a value creates the parameter.
 * Names take 15 bytes, comments 30; null empties them.
 *
 * form of GetValue and SetValue: how the value lies in the buffer, which must have at least this
 * many bytes. A parameter takes and gives only the forms that suit its kind.
 *
 *     1       truth value, 1 byte (255: true)    5   NUL-terminated text, as far as it fits
 *     2       16-bit word                        6   unsigned 32-bit integer
 *     3       signed 32-bit integer              7   byte
 *     4       float                              8   64-bit integer
 *     9, 10   double
 *
 * A null or too short buffer, an unknown form or an unknown kind of parameter touches nothing. When
 * a value cannot be read in a form, the form's bytes are zeroed.
 */
/* name: room for 16 bytes, comment: for 31, the NULs included; either may be null. */
int32_t ORVELL_CALL STDSIL_GetSignalInfo(const char* address, char* name, char* comment);
int32_t ORVELL_CALL STDSIL_SetBitParaValue(const char* address, const char* name,
                                           const char* comment, int32_t value);
int32_t ORVELL_CALL STDSIL_SetWordParaValue(const char* address, const char* name,
                                            const char* comment, int32_t value);
int32_t ORVELL_CALL STDSIL_SetFloatParaValue(const char* address, const char* name,
                                             const char* comment, double value);
int32_t ORVELL_CALL STDSIL_SetTextParaValue(const char* address, const char* name,
                                            const char* comment, const char* value);
int32_t ORVELL_CALL STDSIL_SetTXParaValue(const char* address, const char* name,
                                          const char* comment, uint32_t value);
int32_t ORVELL_CALL STDSIL_GetName(const char* address, char* buffer, uint32_t size);
int32_t ORVELL_CALL STDSIL_SetName(const char* address, const char* name);
int32_t ORVELL_CALL STDSIL_GetComment(const char* address, char* buffer, uint32_t size);
int32_t ORVELL_CALL STDSIL_SetComment(const char* address, const char* comment);
int32_t ORVELL_CALL STDSIL_GetValue(const char* address, void* buffer, uint32_t length,
                                    uint32_t form);
int32_t ORVELL_CALL STDSIL_SetValue(const char* address, void* buffer, uint32_t length,
                                    uint32_t form);

/*
 * The following write 0 in place of values that do not exist, and nothing when an argument is null
 * or the kind of parameter unknown. A count is the number of consecutive parameters from the
 * address on.
 */
void ORVELL_CALL STDSIL_GetBitValue(const char* address, uint16_t* value);
void ORVELL_CALL STDSIL_GetWordValue(const char* address, uint16_t* value);
void ORVELL_CALL STDSIL_GetWordVector(const char* address, uint16_t* values, uint32_t unused,
                                      uint16_t* count);
void ORVELL_CALL STDSIL_GetFloatValue(const char* address, uint16_t* count, double* values);

/*
 * A signal is a block of bytes that begins with the NUL-terminated address. At byte 31 lies the
 * text to set (SetTextValue) or an unaligned array of 32-bit values (GetTXValue, SetTXValue);
 * GetStringValue writes its text to the 18 bytes from byte 35 on, the closing NUL included.
 */
void ORVELL_CALL STDSIL_GetStringValue(void* signal);
void ORVELL_CALL STDSIL_SetTextValue(void* signal);
void ORVELL_CALL STDSIL_GetTXValue(void* signal, uint16_t* count);
void ORVELL_CALL STDSIL_SetTXValue(void* signal, uint16_t* count);

#ifdef __cplusplus
}
#endif

#endif /* ORVELL_ORVELL_H */
