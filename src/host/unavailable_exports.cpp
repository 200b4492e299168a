#include "orvell/orvell.h"

// The module keeps no parameter list yet: the exports exist, so that a host can bind them all, and
// answer with their failure value.

extern "C" {

int32_t ORVELL_CALL GetParaMGMTFunc(void*) {
    return 0;
}

int32_t ORVELL_CALL STDSIL_GetSignalInfo(const char*, char*, char*) {
    return 0;
}

int32_t ORVELL_CALL STDSIL_SetBitParaValue(const char*, const char*, const char*, int32_t) {
    return 0;
}

int32_t ORVELL_CALL STDSIL_SetWordParaValue(const char*, const char*, const char*, int32_t) {
    return 0;
}

int32_t ORVELL_CALL STDSIL_SetFloatParaValue(const char*, const char*, const char*, double) {
    return 0;
}

int32_t ORVELL_CALL STDSIL_SetTextParaValue(const char*, const char*, const char*, const char*) {
    return 0;
}

int32_t ORVELL_CALL STDSIL_SetTXParaValue(const char*, const char*, const char*, uint32_t) {
    return 0;
}

int32_t ORVELL_CALL STDSIL_GetName(const char*, char*, uint32_t) {
    return 0;
}
int32_t ORVELL_CALL STDSIL_SetName(const char*, const char*) {
    return 0;
}
int32_t ORVELL_CALL STDSIL_GetComment(const char*, char*, uint32_t) {
    return 0;
}
int32_t ORVELL_CALL STDSIL_SetComment(const char*, const char*) {
    return 0;
}
int32_t ORVELL_CALL STDSIL_GetValue(const char*, void*, uint32_t, uint32_t) {
    return 0;
}
int32_t ORVELL_CALL STDSIL_SetValue(const char*, void*, uint32_t, uint32_t) {
    return 0;
}
void ORVELL_CALL STDSIL_GetBitValue(const char*, uint16_t*) {}
void ORVELL_CALL STDSIL_GetWordValue(const char*, uint16_t*) {}
void ORVELL_CALL STDSIL_GetWordVector(const char*, uint16_t*, uint32_t, uint16_t*) {}
void ORVELL_CALL STDSIL_GetFloatValue(const char*, uint16_t*, double*) {}
void ORVELL_CALL STDSIL_GetStringValue(void*) {}
void ORVELL_CALL STDSIL_SetTextValue(void*) {}
void ORVELL_CALL STDSIL_GetTXValue(void*, uint16_t*) {}
void ORVELL_CALL STDSIL_SetTXValue(void*, uint16_t*) {}

}  // extern "C"
