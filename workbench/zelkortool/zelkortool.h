/*
 * ZELKORTOOL.DLL of the stand-in host: paths, language, message window.
 *
 * Conventions as in orvell.h. Paths are those beside this library; folders end with a backslash.
 * Functions with an MStrBuf return 1 and lend a text, or return 0 and leave the record empty; the
 * record goes back through DeleteMStrBuf in either case.
 */
#ifndef WORKBENCH_ZELKORTOOL_H
#define WORKBENCH_ZELKORTOOL_H

#include "orvell/services.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The message window of a console host is its standard error: a line stays once it is printed. */
int32_t ORVELL_CALL AppendMsgLine(const char* pageName, const char* line);
int32_t ORVELL_CALL EmptyMsgWnd(const char* pageName);
int32_t ORVELL_CALL CloseMsgWnd(const char* pageName);

/* Makes the folder of this instance's file the host's BIN folder. Until then, and when the file's
 * name cannot be read, it is the folder of this library. */
void ORVELL_CALL SetBINPath(void* instance);
void ORVELL_CALL DeleteMStrBuf(MStrBuf* buffer);

int32_t ORVELL_CALL GetTEMPPath(MStrBuf* path);
int32_t ORVELL_CALL GetPathToXMLAccessDLL(MStrBuf* path);

/* Folders of the controller code and of the device descriptions below the folder of `instance`. */
int32_t ORVELL_CALL GetPathToProjectZCDForInst(MStrBuf* path, void* instance);
int32_t ORVELL_CALL GetPathToDDFForInst(MStrBuf* path, void* instance);

/* A file in the library folder below the BIN folder. */
int32_t ORVELL_CALL GetPathToLibDirFile(MStrBuf* path, const char* fileName);

/* From the environment variable ZELKOR_LANGUAGE: 7 for "de" or none, 9 for "en", else 0. The
 * numbers are the primary language identifiers of Windows. */
uint32_t ORVELL_CALL GetZelkorLanguage(void);
int32_t ORVELL_CALL GetZelkorLanguagePath(MStrBuf* path, uint32_t language);

double ORVELL_CALL GetDLLVersion(void); /* 3.3.8.0 */

#ifdef __cplusplus
}
#endif

#endif /* WORKBENCH_ZELKORTOOL_H */
