#include "cli/progress_display.h"

#include <chrono>
#include <cstdint>

#include "cli/output.h"

namespace workbench::cli {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr seconds kInterval{1};
constexpr std::uint64_t kBytesPerMegabyte = 1'000'000;
constexpr std::uint64_t kLargeFile = 10 * kBytesPerMegabyte;

/// The size that a file has at the moment, also while it is being written; 0 when there is none.
std::uint64_t FileSize(const std::string& path) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileA(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return 0;
    }
    LARGE_INTEGER size{};
    GetFileSizeEx(file, &size);
    CloseHandle(file);
    return static_cast<std::uint64_t>(size.QuadPart);
}

}  // namespace

ProgressDisplay::ProgressDisplay(std::string path) : path_(std::move(path)) {
    if (IsErrorConsole()) {
        thread_ = std::jthread([this](const std::stop_token& stop) { Run(stop); });
    }
}

void ProgressDisplay::Run(const std::stop_token& stop) {
    const auto start = steady_clock::now();
    std::unique_lock lock(mutex_);
    while (!ended_.wait_for(lock, stop, kInterval, [&] { return stop.stop_requested(); })) {
        const std::uint64_t size = FileSize(path_);
        if (size > kLargeFile) {
            const auto elapsed = std::chrono::duration_cast<seconds>(steady_clock::now() - start);
            PrintError(std::to_string(elapsed.count()) + " s, " + path_ + ": " +
                       std::to_string(size / kBytesPerMegabyte) + " MB");
        }
    }
}

}  // namespace workbench::cli
