#include "platform/file_system.h"

#include <filesystem>
#include <fstream>

namespace orvell::platform {

bool FileExists(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) &&
           std::ifstream(path, std::ios::binary).is_open();
}

bool CopyWholeFile(const std::string& source, const std::string& destination) {
    std::error_code error;
    if (std::filesystem::equivalent(source, destination, error)) {
        return false;  // there are no share modes here that would refuse it
    }
    return std::filesystem::copy_file(source, destination,
                                      std::filesystem::copy_options::overwrite_existing, error);
}

}  // namespace orvell::platform
