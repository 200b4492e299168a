// Operator new runs out of memory at every single allocation: nothing stays loaded, and no file of
// the user's is emptied.

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <new>
#include <optional>

#include "platform/byte_stream.h"
#include "platform/file_system.h"
#include "platform/library.h"

namespace {

/// How many allocations succeed before one fails; none: all do.
std::optional<std::size_t> allocationsLeft;

void* Allocate(std::size_t size) {
    if (allocationsLeft.has_value() && (*allocationsLeft)-- == 0) {
        allocationsLeft.reset();
        throw std::bad_alloc();
    }
    void* const block = std::malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

namespace orvell::platform {
namespace {

/// Runs `action` with 0, 1, 2, ... allocations until it needs no more; `check` after each that was
/// too few. Returns how many these were.
template <typename Action, typename Check>
std::size_t RunWithEveryShortage(const Action& action, const Check& check) {
    for (std::size_t allocations = 0;; ++allocations) {
        try {
            allocationsLeft = allocations;
            action();
            allocationsLeft.reset();
            return allocations;
        } catch (const std::bad_alloc&) {
            check();
        }
    }
}

class PlatformShortMemoryTest : public testing::Test {
  protected:
    PlatformShortMemoryTest() {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directory(folder);
        Write(source, "what is copied");
        Write(target, "what the user has");
    }
    ~PlatformShortMemoryTest() override { std::filesystem::remove_all(folder); }

    static void Write(const std::string& path, std::string_view bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string Read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() /
        ("orvell-platform-" + std::to_string(GetCurrentProcessId()));
    const std::string source = (folder / "source").string();
    const std::string target = (folder / "target").string();
};

TEST_F(PlatformShortMemoryTest, NoLibraryStaysLoaded) {
    const std::string path = "version.dll";
    ASSERT_EQ(GetModuleHandleA(path.c_str()), nullptr) << "nobody else needs it";
    std::unique_ptr<Library> library;
    EXPECT_GE(RunWithEveryShortage([&] { library = SystemLibraryLoader().Load(path); },
                                   [&] { EXPECT_EQ(GetModuleHandleA(path.c_str()), nullptr); }),
              1U);
    EXPECT_EQ(library->Handle(), GetModuleHandleA(path.c_str()));
    EXPECT_NE(library->Find("VerQueryValueA"), nullptr);
    library.reset();
    EXPECT_EQ(GetModuleHandleA(path.c_str()), nullptr);
    EXPECT_EQ(SystemLibraryLoader().Load(target + ".DLL"), nullptr);
}

TEST_F(PlatformShortMemoryTest, ACopyLeavesTheTargetWholeOrIsIt) {
    bool isCopied = false;
    EXPECT_GE(RunWithEveryShortage([&] { isCopied = CopyWholeFile(source, target); },
                                   [&] { EXPECT_EQ(Read(target), "what the user has"); }),
              1U);
    EXPECT_TRUE(isCopied);
    EXPECT_EQ(Read(target), "what is copied");
}

TEST_F(PlatformShortMemoryTest, AFileToWriteIsEmptiedWhenItsObjectIsThere) {
    std::unique_ptr<ByteSink> sink;
    EXPECT_GE(RunWithEveryShortage([&] { sink = OpenFileToWrite(target); },
                                   [&] {
                                       EXPECT_EQ(Read(target), "what the user has");
                                       EXPECT_TRUE(std::filesystem::remove(target)) << "still open";
                                       Write(target, "what the user has");
                                   }),
              1U);
    ASSERT_NE(sink, nullptr);
    EXPECT_TRUE(sink->Close());
    EXPECT_EQ(Read(target), "");
}

}  // namespace
}  // namespace orvell::platform
