/*
 * The smallest host that does everything once: loads a project's definitions, reads a value from a
 * controller, shows it, writes it back, and keeps a parameter list.
 *
 *     c-host PROJECT LIST.CSV
 *
 * The program is linked with the module's import library; the module brings up its own libraries
 * when the program is loaded.
 */
#include <stdio.h>
#include <string.h>

#include "orvell/orvell.h"

enum { TEMPERATURE_CONTROLLER = 30 };

/* ---- The controller: a piece of memory that is reached by byte offsets ---------------------- */

static unsigned char controller[64];
static unsigned written; /* values */

static int32_t Store(uint32_t offset, const void* value, size_t size) {
    if (offset + size > sizeof controller) {
        return 0;
    }
    memcpy(controller + offset, value, size);
    ++written;
    return 1;
}

static int32_t Load(uint32_t offset, void* value, size_t size) {
    if (offset + size > sizeof controller) {
        return 0;
    }
    memcpy(value, controller + offset, size);
    return 1;
}

/* The first argument is the element of a vector; this controller has none. */
static int32_t ORVELL_CALL Put16(uint32_t element, uint32_t offset, uint16_t value) {
    (void)element;
    return Store(offset, &value, sizeof value);
}

static int32_t ORVELL_CALL Put32(uint32_t element, uint32_t offset, uint32_t value) {
    (void)element;
    return Store(offset, &value, sizeof value);
}

static int32_t ORVELL_CALL PutFloat(uint32_t element, uint32_t offset, float value) {
    (void)element;
    return Store(offset, &value, sizeof value);
}

static int32_t ORVELL_CALL Get16(uint32_t element, uint32_t offset, uint16_t* value) {
    (void)element;
    return Load(offset, value, sizeof *value);
}

static int32_t ORVELL_CALL Get32(uint32_t element, uint32_t offset, uint32_t* value) {
    (void)element;
    return Load(offset, value, sizeof *value);
}

static int32_t ORVELL_CALL GetFloat(uint32_t element, uint32_t offset, float* value) {
    (void)element;
    return Load(offset, value, sizeof *value);
}

/* The ways to the controller that a PID controller's values take; the others stay null. */
static OnlineAccessRecord Online(void) {
    OnlineAccessRecord online;
    memset(&online, 0, sizeof online);
    online.size = sizeof online;
    online.alternative.Put16 = Put16;
    online.alternative.Put32 = Put32;
    online.alternative.PutFloat = PutFloat;
    online.getters.Get16 = Get16;
    online.getters.Get32 = Get32;
    online.getters.GetFloat = GetFloat;
    return online;
}

/* ---- The message window -------------------------------------------------------------------- */

static int32_t ORVELL_CALL FindPage(const char* pageName) {
    (void)pageName;
    return 0;
}

static int32_t ORVELL_CALL AppendLine(int32_t page, const char* line, uint32_t colour,
                                      int32_t emphasis) {
    (void)page;
    (void)colour;
    (void)emphasis;
    printf("message: %s\n", line);
    return 1;
}

/* ---- Values --------------------------------------------------------------------------------- */

/* Reads the controller's value into a record, which is to be freed when this succeeds. */
static int Read(const StdParaFunctionTable* slots, OnlineAccessRecord* online,
                ParameterRecord* value) {
    memset(value, 0, sizeof *value);
    value->size = sizeof *value;
    value->identifier = TEMPERATURE_CONTROLLER;
    value->count = 1;
    value->attribute = 1; /* texts without quotation marks */
    return slots->ReadStdParameterOnline(value, online, NULL) == 1;
}

static void Show(const StdParaFunctionTable* slots, ParameterRecord* value) {
    char* text = slots->GetStdParameterText(value);
    printf("%u bytes: %s\n", (unsigned)value->length, text != NULL ? text : "(no text)");
    slots->FreeStdMemory(text);
}

/* Reads the controller's value, changes its first leaf, writes it back and reads it again. */
static int EditOnline(const StdParaFunctionTable* slots) {
    ParameterRecord value;
    OnlineAccessRecord online = Online();
    if (!Read(slots, &online, &value)) {
        return 0;
    }
    Show(slots, &value);
    *(unsigned char*)value.bytes = 1;
    const int32_t isWritten = slots->WriteStdParameterOnline(&value, &online, NULL);
    slots->FreeStdParameter(&value);
    printf("%u values written\n", written);
    if (!isWritten || !Read(slots, &online, &value)) {
        return 0;
    }
    Show(slots, &value);

    NameListNode* leaves = slots->GetStdParameterTextList(&value);
    for (const NameListNode* leaf = leaves; leaf != NULL; leaf = leaf->next) {
        printf("  %s = %s\n", leaf->first, leaf->second);
    }
    slots->FreeStdTextList(leaves);
    slots->FreeStdParameter(&value);
    return 1;
}

/* ---- The parameter list --------------------------------------------------------------------- */

/* Two parameters are in use, one of them moves, and the list goes out as CSV. */
static int KeepList(const ManagementTable* list, const char* project, const char* csvPath) {
    ConfigurationRecord record = {sizeof record, NULL, project};
    list->SetCallToken(0);   /* act at every call */
    list->LoadList(&record); /* the project's list file, if there is one */
    list->BeginUpdate();
    list->DeclareParameter(NULL, "PW1");
    list->DeclareParameter(NULL, "PF7");
    STDSIL_SetWordParaValue("PW1", "Drehzahl", "1/min", 1450);
    STDSIL_SetFloatParaValue("PF7", "Sollwert", "bar", 2.5);
    list->EndUpdate();

    list->BeginUpdate();
    list->DeclareParameter("PW1", "PW2");
    list->DeclareParameter("PF7", "PF7");
    list->EndUpdate();

    char name[16];
    uint16_t word = 0;
    STDSIL_GetName("PW2", name, sizeof name);
    STDSIL_GetWordValue("PW2", &word);
    printf("PW2 %s = %u\n", name, (unsigned)word);

    list->ExportList(&record, csvPath);
    list->ImportIntoList(&record, csvPath);
    return word == 1450;
}

int main(int argc, char** argv) {
    if (argc != 3) {
        fprintf(stderr, "usage: c-host PROJECT LIST.CSV\n");
        return 2;
    }
    StdParaFunctionTable slots = {.size = sizeof slots};
    ManagementTable list = {.size = sizeof list};
    HostExportTable callbacks = {sizeof callbacks, FindPage, AppendLine, NULL, NULL};
    if (!GetStdParaFctns(&slots) || !GetParaMGMTFunc(&list)) {
        return 1;
    }
    SetZelkorExportFctns(&callbacks);

    /* Requests carry a number that differs from that of the request before. */
    ConfigurationRecord project = {sizeof project, NULL, argv[1]};
    slots.LoadStdMemConfig(&project, 1);
    const int isDone = EditOnline(&slots) && KeepList(&list, argv[1], argv[2]);
    slots.CloseStdMemConfig(2);
    list.ClearList();
    return isDone ? 0 : 1;
}
