// Runs a fuzzing target once for every file of the folders named, in the order of their names, and
// once for an empty input. A failure ends the program; the last line tells the file.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(folder)) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

void Replay(const std::filesystem::path& file) {
    std::printf("%s\n", file.c_str());
    std::fflush(stdout);
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argumentCount, char** arguments) {
    std::size_t fileCount = 0;
    for (int i = 1; i < argumentCount; ++i) {
        for (const auto& file : FilesIn(arguments[i])) {
            Replay(file);
            ++fileCount;
        }
    }
    LLVMFuzzerTestOneInput(nullptr, 0);
    std::printf("%zu inputs replayed\n", fileCount);
    // A target without seeds has been mislaid.
    return fileCount == 0 ? 1 : 0;
}
