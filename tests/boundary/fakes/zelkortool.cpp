// A tool library that does what the environment variables FAKE_TOOL_... say: VERSION, LANGUAGE,
// XML_PATH and LANGUAGE_PATH (unset: the call fails). It keeps FAKE_TOOL_INSTANCE (what SetBINPath
// was given) and FAKE_TOOL_LENT (buffers not given back) up to date there.

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "orvell/services.h"

namespace {

std::string Setting(const char* name) {
    std::string value(MAX_PATH, '\0');
    value.resize(GetEnvironmentVariableA((std::string("FAKE_TOOL_") + name).c_str(), value.data(),
                                         MAX_PATH));
    return value;
}

void Keep(const char* name, std::uint32_t value) {
    SetEnvironmentVariableA((std::string("FAKE_TOOL_") + name).c_str(),
                            std::to_string(value).c_str());
}

void CountLent(int change) {
    Keep("LENT", static_cast<std::uint32_t>(std::atoi(Setting("LENT").c_str()) + change));
}

int32_t Lend(MStrBuf* buffer, const std::string& text) {
    CountLent(1);
    buffer->text = text.empty() ? nullptr : _strdup(text.c_str());
    return text.empty() ? 0 : 1;
}

}  // namespace

extern "C" {

void ORVELL_CALL AppendMsgLine() {}
void ORVELL_CALL EmptyMsgWnd() {}
void ORVELL_CALL CloseMsgWnd() {}
void ORVELL_CALL GetTEMPPath() {}
void ORVELL_CALL GetPathToProjectZCDForInst() {}
void ORVELL_CALL GetPathToDDFForInst() {}
void ORVELL_CALL GetPathToLibDirFile() {}

double ORVELL_CALL GetDLLVersion() {
    return std::atof(Setting("VERSION").c_str());
}

void ORVELL_CALL SetBINPath(void* instance) {
    Keep("INSTANCE", static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(instance)));
}

uint32_t ORVELL_CALL GetZelkorLanguage() {
    return static_cast<uint32_t>(std::atoi(Setting("LANGUAGE").c_str()));
}

int32_t ORVELL_CALL GetPathToXMLAccessDLL(MStrBuf* path) {
    return Lend(path, Setting("XML_PATH"));
}

int32_t ORVELL_CALL GetZelkorLanguagePath(MStrBuf* path, uint32_t) {
    return Lend(path, Setting("LANGUAGE_PATH"));
}

void ORVELL_CALL DeleteMStrBuf(MStrBuf* buffer) {
    CountLent(-1);
    std::free(buffer->text);
    buffer->text = nullptr;
}
}
