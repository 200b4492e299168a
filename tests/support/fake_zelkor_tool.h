#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "orvell/services.h"
#include "support/fake_libraries.h"

namespace orvell::test {

/// A tool library whose answers a test sets and whose calls it sees.
struct FakeZelkorTool {
    static inline double version;
    static inline std::uint32_t language;
    static inline std::int32_t pathResult;  ///< of both path functions
    static inline const char* xmlPath;      ///< null: no text
    static inline const char* languageFolder;
    static inline std::vector<std::string> calls;
    static inline void* instance;
    static inline int lentBuffers;  ///< given out and not given back yet
    static inline bool bufferWasZero;
    static inline std::string throwing;  ///< the function that lets an exception out

    static void Reset() {
        version = 3.0308;
        language = 7;
        pathResult = 1;
        xmlPath = "XML.DLL";
        languageFolder = "C:\\LANG";
        calls.clear();
        instance = nullptr;
        lentBuffers = 0;
        bufferWasZero = true;
        throwing.clear();
    }

    /// All functions that the library exports.
    static Symbols AllSymbols() {
        Symbols symbols;
        for (const char* name :
             {"AppendMsgLine", "EmptyMsgWnd", "CloseMsgWnd", "GetTEMPPath",
              "GetPathToProjectZCDForInst", "GetPathToDDFForInst", "GetPathToLibDirFile"}) {
            symbols[name] = Address(NeverCalled);
        }
        symbols["SetBINPath"] = Address(SetBINPath);
        symbols["DeleteMStrBuf"] = Address(DeleteMStrBuf);
        symbols["GetZelkorLanguage"] = Address(GetZelkorLanguage);
        symbols["GetZelkorLanguagePath"] = Address(GetZelkorLanguagePath);
        symbols["GetPathToXMLAccessDLL"] = Address(GetPathToXMLAccessDLL);
        symbols["GetDLLVersion"] = Address(GetDLLVersion);
        return symbols;
    }

  private:
    static void ORVELL_CALL NeverCalled() { calls.emplace_back("unexpected call"); }
    static double ORVELL_CALL GetDLLVersion() {
        ThrowIfAsked("GetDLLVersion");
        return version;
    }

    /// Called last: what throws has done its work.
    static void ThrowIfAsked(std::string_view function) {
        if (function == throwing) {
            throw std::runtime_error("of the tool library's");
        }
    }

    static void ORVELL_CALL SetBINPath(void* handle) {
        calls.emplace_back("SetBINPath");
        instance = handle;
        ThrowIfAsked("SetBINPath");
    }

    static std::uint32_t ORVELL_CALL GetZelkorLanguage() {
        calls.emplace_back("GetZelkorLanguage");
        ThrowIfAsked("GetZelkorLanguage");
        return language;
    }

    static std::int32_t Lend(const char* function, MStrBuf* buffer, const char* text) {
        bufferWasZero = bufferWasZero && buffer->text == nullptr && buffer->reserved1 == 0 &&
                        buffer->reserved2 == 0;
        buffer->text = const_cast<char*>(text);
        ++lentBuffers;
        ThrowIfAsked(function);
        return pathResult;
    }

    static std::int32_t ORVELL_CALL GetPathToXMLAccessDLL(MStrBuf* buffer) {
        calls.emplace_back("GetPathToXMLAccessDLL");
        return Lend("GetPathToXMLAccessDLL", buffer, xmlPath);
    }

    static std::int32_t ORVELL_CALL GetZelkorLanguagePath(MStrBuf* buffer, std::uint32_t id) {
        calls.emplace_back("GetZelkorLanguagePath " + std::to_string(id));
        return Lend("GetZelkorLanguagePath", buffer, languageFolder);
    }

    static void ORVELL_CALL DeleteMStrBuf(MStrBuf* buffer) {
        calls.emplace_back("DeleteMStrBuf");
        buffer->text = nullptr;
        --lentBuffers;
        ThrowIfAsked("DeleteMStrBuf");
    }
};

}  // namespace orvell::test
