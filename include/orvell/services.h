/*
 * The libraries that a host brings and that Orvell binds by name: ZELKORTOOL.DLL and the XML access
 * library. Conventions as in orvell.h. Each of them, and the language resource library
 * ORVELLRES.DLL, exports GetDLLVersion: a version a.b.c.d as the double
 * a + b/100 + c/10000 + d/1000000.
 */
#ifndef ORVELL_SERVICES_H
#define ORVELL_SERVICES_H

#include "orvell.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef double(ORVELL_CALL* GetDLLVersionFunction)(void);

/* ---- ZELKORTOOL.DLL, 3.3.8.0 or later ----------------------------------------------------- */

/* instance: the module's instance handle (HINSTANCE) */
typedef void(ORVELL_CALL* SetBINPathFunction)(void* instance);
typedef uint32_t(ORVELL_CALL* GetZelkorLanguageFunction)(void);
typedef int32_t(ORVELL_CALL* GetZelkorLanguagePathFunction)(MStrBuf* path, uint32_t language);
typedef int32_t(ORVELL_CALL* GetPathToXMLAccessDLLFunction)(MStrBuf* path);
typedef void(ORVELL_CALL* DeleteMStrBufFunction)(MStrBuf* buffer);

/* ---- XML access library, 2.1.0.0 or later ------------------------------------------------- */

/* Handles are opaque; 0 means none. */
typedef uint32_t XmlDocumentHandle; /* goes back through XMLIF_Close */
typedef uint32_t XmlNodeHandle;     /* goes back through XMLIF_FreeHandle */

/*
 * The 26 functions in the library's order. All must be present; those typed void* are never called
 * by the module. MString results are valid when the function returns not 0, that of
 * XMLIF_GetLastError whenever its text is not null; the record goes back through XMLIF_FreeMString
 * in every case.
 */
typedef struct XmlAccessFunctions {
    XmlDocumentHandle(ORVELL_CALL* Create)(void);
    XmlDocumentHandle(ORVELL_CALL* Open)(const char* path);
    void* ParseText;
    int32_t(ORVELL_CALL* Save)(XmlDocumentHandle, const char* path); /* > 0: success */
    int32_t(ORVELL_CALL* Close)(XmlDocumentHandle);
    int32_t(ORVELL_CALL* GetLastError)(MString* text);
    void(ORVELL_CALL* FreeMString)(MString*);
    void(ORVELL_CALL* FreeHandle)(XmlNodeHandle);
    XmlNodeHandle(ORVELL_CALL* GetRootNode)(XmlDocumentHandle);
    XmlNodeHandle(ORVELL_CALL* AddRootNodeByName)(XmlDocumentHandle, const char* name);
    XmlNodeHandle(ORVELL_CALL* GetFirstChildNode)(XmlNodeHandle);
    XmlNodeHandle(ORVELL_CALL* GetNextNode)(XmlNodeHandle);
    XmlNodeHandle(ORVELL_CALL* GetChildNodeByName)(XmlNodeHandle, const char* name);
    XmlNodeHandle(ORVELL_CALL* AddChildNodeByName)(XmlNodeHandle, const char* name);
    void* InsertBeforeNode;
    void* RemoveNode;
    int32_t(ORVELL_CALL* GetNodeName)(XmlNodeHandle, MString* name);
    uint32_t(ORVELL_CALL* GetNumOfAttribs)(XmlNodeHandle);
    int32_t(ORVELL_CALL* GetNameOfAttrib)(XmlNodeHandle, uint32_t index, MString* name);
    int32_t(ORVELL_CALL* GetAttribValueAsString)(XmlNodeHandle, const char* name, MString* value);
    int32_t(ORVELL_CALL* GetAttribValueAsULONG)(XmlNodeHandle, const char* name, uint32_t* value);
    int32_t(ORVELL_CALL* SetStringValueAttrib)(XmlNodeHandle, const char* name, const char* value);
    void* SetULONGValueAttrib;
    void* RemoveAttrib;
    void* GetNodeText;
    void* SetNodeText;
} XmlAccessFunctions;

#ifdef __cplusplus
}
#endif

#endif /* ORVELL_SERVICES_H */
