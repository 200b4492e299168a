#include "loaded_module.h"

#include <gtest/gtest.h>

#include <array>
#include <cctype>

namespace orvell::test {

std::string CaseName(const ModuleUnderTest& module) {
    std::string name = module.path;
    for (char& character : name) {
        if (std::isalnum(static_cast<unsigned char>(character)) == 0) {
            character = '_';
        }
    }
    return name;
}

void PrintTo(const ModuleUnderTest& module, std::ostream* out) {
    *out << module.path;
}

std::string BuiltFile(const char* path) {
    std::array<char, 1024> buffer{};
    const DWORD size =
        GetModuleFileNameA(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    const std::string program(buffer.data(), size);
    return program.substr(0, program.find_last_of('\\')) + "\\..\\bin\\" + path;
}

std::optional<std::wstring> LoadedModule::Text(UINT number) const {
    const wchar_t* text = nullptr;
    const int size = LoadStringW(handle_, number, reinterpret_cast<LPWSTR>(&text), 0);
    if (size <= 0) {
        return std::nullopt;
    }
    return std::wstring(text, static_cast<std::size_t>(size));
}

std::string ToCodePage(UINT codePage, const std::wstring& text) {
    std::string bytes(text.size(), '\0');
    BOOL isReplaced = FALSE;
    const int size = WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, text.data(),
                                         static_cast<int>(text.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, &isReplaced);
    EXPECT_EQ(static_cast<std::size_t>(size), bytes.size());
    EXPECT_FALSE(isReplaced);
    return bytes;
}

}  // namespace orvell::test
