/*
 * ZELKORXML.DLL, the XML access library of the stand-in host, over MSXML 6 (part of Windows).
 *
 * Conventions as in orvell.h. Documents and nodes are handles; one that has gone back, or whose
 * document has been closed, is refused with 0. Nodes are elements: texts, comments and processing
 * instructions are passed over, but kept in the file. Names are exact and case-sensitive.
 *
 * Functions with an MString lend a text when they return 1; the record goes back through
 * XMLIF_FreeMString in every case. Functions that refuse their work leave a reason for
 * XMLIF_GetLastError; that a node or an attribute does not exist is an answer and leaves none.
 *
 * Files with a document type definition are refused, so that neither entities nor outside files
 * can reach a document.
 */
#ifndef WORKBENCH_XMLIF_H
#define WORKBENCH_XMLIF_H

#include "orvell/services.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Documents ---- */

XmlDocumentHandle ORVELL_CALL XMLIF_Create(void);
XmlDocumentHandle ORVELL_CALL XMLIF_Open(const char* path);
XmlDocumentHandle ORVELL_CALL XMLIF_ParseText(const char* text);

/* Writes the file in UTF-8, through a second file beside it, so that a failure leaves the file
 * that was there. 1: written. */
int32_t ORVELL_CALL XMLIF_Save(XmlDocumentHandle document, const char* path);
int32_t ORVELL_CALL XMLIF_Close(XmlDocumentHandle document);

/* "reason (line N, column M)" for a file that cannot be read, else the reason. */
int32_t ORVELL_CALL XMLIF_GetLastError(MString* text);
void ORVELL_CALL XMLIF_FreeMString(MString* text);

/* ---- Nodes ---- */

void ORVELL_CALL XMLIF_FreeHandle(XmlNodeHandle node);
XmlNodeHandle ORVELL_CALL XMLIF_GetRootNode(XmlDocumentHandle document);
XmlNodeHandle ORVELL_CALL XMLIF_AddRootNodeByName(XmlDocumentHandle document, const char* name);
XmlNodeHandle ORVELL_CALL XMLIF_GetFirstChildNode(XmlNodeHandle node);
XmlNodeHandle ORVELL_CALL XMLIF_GetNextNode(XmlNodeHandle node);
XmlNodeHandle ORVELL_CALL XMLIF_GetChildNodeByName(XmlNodeHandle node, const char* name);

/* New elements stand on a line of their own, indented below their parent. */
XmlNodeHandle ORVELL_CALL XMLIF_AddChildNodeByName(XmlNodeHandle node, const char* name);
XmlNodeHandle ORVELL_CALL XMLIF_InsertBeforeNode(XmlNodeHandle node, const char* name);

/* Takes the element out of its document; the handle still goes back through XMLIF_FreeHandle. */
int32_t ORVELL_CALL XMLIF_RemoveNode(XmlNodeHandle node);
int32_t ORVELL_CALL XMLIF_GetNodeName(XmlNodeHandle node, MString* name);

/* ---- Attributes, in the order in which they were set, and text ---- */

uint32_t ORVELL_CALL XMLIF_GetNumOfAttribs(XmlNodeHandle node);
int32_t ORVELL_CALL XMLIF_GetNameOfAttrib(XmlNodeHandle node, uint32_t index, MString* name);
int32_t ORVELL_CALL XMLIF_GetAttribValueAsString(XmlNodeHandle node, const char* name,
                                                 MString* value);

/* Decimal digits, blanks around them allowed, up to 4294967295; else 0 and the value is 0. */
int32_t ORVELL_CALL XMLIF_GetAttribValueAsULONG(XmlNodeHandle node, const char* name,
                                                uint32_t* value);
int32_t ORVELL_CALL XMLIF_SetStringValueAttrib(XmlNodeHandle node, const char* name,
                                               const char* value);
int32_t ORVELL_CALL XMLIF_SetULONGValueAttrib(XmlNodeHandle node, const char* name, uint32_t value);
int32_t ORVELL_CALL XMLIF_RemoveAttrib(XmlNodeHandle node, const char* name);

/* The text of an element with all that it holds; setting it replaces all that it holds. */
int32_t ORVELL_CALL XMLIF_GetNodeText(XmlNodeHandle node, MString* text);
int32_t ORVELL_CALL XMLIF_SetNodeText(XmlNodeHandle node, const char* text);

double ORVELL_CALL GetDLLVersion(void); /* 2.1.0.0 */

#ifdef __cplusplus
}
#endif

#endif /* WORKBENCH_XMLIF_H */
