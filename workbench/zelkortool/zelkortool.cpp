#include "zelkortool/zelkortool.h"

#include <windows.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "common/lent_text.h"
#include "common/module_path.h"

namespace {

using workbench::FolderOfModule;
using workbench::LendText;
using workbench::OwnModule;

/// Module whose folder is the BIN folder; null: this library.
HMODULE binModule = nullptr;

struct Language {
    std::string_view code;  ///< of ZELKOR_LANGUAGE, and the folder's name
    std::uint32_t identifier;
};

constexpr std::array kLanguages{Language{"de", LANG_GERMAN}, Language{"en", LANG_ENGLISH}};

std::string FolderOf(void* instance) {
    auto* module = static_cast<HMODULE>(instance);
    std::string folder = module == nullptr ? std::string{} : FolderOfModule(module);
    return folder.empty() ? FolderOfModule(OwnModule()) : folder;
}

/// `makePath` yields the text, an empty one counts as failure. Nothing may leave through the
/// boundary but a result, so a lack of memory is one too.
template <typename MakePath>
std::int32_t LendPath(MStrBuf* path, const MakePath& makePath) noexcept {
    if (path == nullptr) {
        return 0;
    }
    *path = MStrBuf{};
    try {
        const std::string text = makePath();
        return !text.empty() && LendText(*path, text) ? 1 : 0;
    } catch (...) {
        return 0;
    }
}

std::string TemporaryFolder() {
    std::array<char, MAX_PATH + 1> path{};
    const DWORD length = GetTempPathA(static_cast<DWORD>(path.size()), path.data());
    return length < path.size() ? std::string(path.data(), length) : std::string{};
}

std::string LanguageFolder(std::uint32_t identifier) {
    for (const Language& language : kLanguages) {
        if (language.identifier == identifier) {
            return FolderOf(nullptr) + std::string(language.code) + "\\";
        }
    }
    return {};
}

}  // namespace

std::int32_t AppendMsgLine(const char* pageName, const char* line) {
    if (pageName == nullptr || line == nullptr) {
        return 0;
    }
    return std::fprintf(stderr, "%s: %s\n", pageName, line) >= 0 ? 1 : 0;
}

std::int32_t EmptyMsgWnd(const char* pageName) {
    return pageName != nullptr ? 1 : 0;
}

std::int32_t CloseMsgWnd(const char* pageName) {
    return pageName != nullptr ? 1 : 0;
}

void SetBINPath(void* instance) {
    binModule = static_cast<HMODULE>(instance);
}

void DeleteMStrBuf(MStrBuf* buffer) {
    workbench::TakeBackText(buffer);
}

std::int32_t GetTEMPPath(MStrBuf* path) {
    return LendPath(path, TemporaryFolder);
}

std::int32_t GetPathToXMLAccessDLL(MStrBuf* path) {
    return LendPath(path, [] { return FolderOf(nullptr) + "ZELKORXML.DLL"; });
}

std::int32_t GetPathToProjectZCDForInst(MStrBuf* path, void* instance) {
    return LendPath(path, [=] { return FolderOf(instance) + "ZCD\\"; });
}

std::int32_t GetPathToDDFForInst(MStrBuf* path, void* instance) {
    return LendPath(path, [=] { return FolderOf(instance) + "DDF\\"; });
}

std::int32_t GetPathToLibDirFile(MStrBuf* path, const char* fileName) {
    return LendPath(path, [=] {
        const bool named = fileName != nullptr && *fileName != '\0';
        return named ? FolderOf(binModule) + "LIB\\" + fileName : std::string{};
    });
}

std::uint32_t GetZelkorLanguage() {
    std::array<char, 16> code{};
    const DWORD length = GetEnvironmentVariableA("ZELKOR_LANGUAGE", code.data(), code.size());
    if (length == 0) {
        return LANG_GERMAN;
    }
    for (const Language& language : kLanguages) {
        if (length < code.size() && language.code == std::string_view(code.data(), length)) {
            return language.identifier;
        }
    }
    return 0;
}

std::int32_t GetZelkorLanguagePath(MStrBuf* path, std::uint32_t language) {
    return LendPath(path, [=] { return LanguageFolder(language); });
}

double GetDLLVersion() {
    return 3.0 + 3.0 / 100 + 8.0 / 10000;
}
