#include "boundary/xmlaccess/scratch_folder.h"

#include <windows.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace workbench_test {

ScratchFolder::ScratchFolder() {
    static int count = 0;
    std::array<char, MAX_PATH + 1> temporary{};
    GetTempPathA(static_cast<DWORD>(temporary.size()), temporary.data());
    folder_ = std::string(temporary.data()) + "xmlaccess_test_" +
              std::to_string(GetCurrentProcessId()) + "_" + std::to_string(++count) + "\\";
    CreateDirectoryA(folder_.c_str(), nullptr);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string ScratchFolder::Write(const std::string& file, const std::string& bytes) const {
    std::ofstream(Path(file), std::ios::binary) << bytes;
    return Path(file);
}

std::string ScratchFolder::Read(const std::string& file) const {
    std::ifstream stream(Path(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool ScratchFolder::Has(const std::string& file) const {
    return GetFileAttributesA(Path(file).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string LibraryFolder() {
    std::array<char, 1024> path{};
    GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::string program(path.data());
    return program.substr(0, program.rfind('\\') + 1) + "..\\bin\\";
}

}  // namespace workbench_test
