// Files that are no files on a disk: slow ones, broken in the middle, and a device without room.

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <thread>

#include "message_watcher.h"
#include "module_host.h"

namespace orvell::test {
namespace {

constexpr int kParameters = 20;

/// A pipe that gives whoever reads it a text in small pieces and then breaks.
class SlowPipe {
  public:
    SlowPipe(const std::string& name, std::string text, std::size_t pieceBytes)
        : path_("\\\\.\\pipe\\orvell-" + std::to_string(GetCurrentProcessId()) + name),
          pipe_(CreateNamedPipeA(path_.c_str(), PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE | PIPE_WAIT, 1,
                                 4096, 0, 0, nullptr)),
          writing_([this, text = std::move(text), pieceBytes] {
              ConnectNamedPipe(pipe_, nullptr);
              for (std::size_t at = 0; at < text.size(); at += pieceBytes) {
                  const std::string piece = text.substr(at, pieceBytes);
                  DWORD written = 0;
                  WriteFile(pipe_, piece.data(), static_cast<DWORD>(piece.size()), &written,
                            nullptr);
              }
              FlushFileBuffers(pipe_);  // waits until all has been read
              DisconnectNamedPipe(pipe_);
          }) {
        EXPECT_NE(pipe_, INVALID_HANDLE_VALUE);
    }
    ~SlowPipe() {
        writing_.join();
        CloseHandle(pipe_);
    }
    SlowPipe(const SlowPipe&) = delete;
    SlowPipe& operator=(const SlowPipe&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }

  private:
    std::string path_;
    HANDLE pipe_;
    std::thread writing_;
};

class SlowFilesTest : public testing::Test {
  protected:
    SlowFilesTest() {
        stage.SetUpEverything();
        module = std::make_unique<LoadedModule>(stage);
        slots = module->Management();
        slots.LoadList(nullptr);
        for (int number = 1; number <= kParameters; ++number) {
            slots.SetValueFromText(Address(number).c_str(), "a text");
        }
        slots.ExportList(nullptr, stage.Path("LIST.SIL").c_str());
        file = stage.Read("LIST.SIL");
        EXPECT_GT(file.size(), 500U);
    }

    static std::string Address(int number) { return "PT" + std::to_string(number); }

    int CountParameters() const {
        int count = 0;
        for (int number = 1; number <= kParameters; ++number) {
            char text[16] = "";
            count += slots.GetValue(Address(number).c_str(), text, sizeof text, 5);
        }
        return count;
    }

    Stage stage;
    MessageWatcher watcher;
    std::unique_ptr<LoadedModule> module;
    ManagementTable slots{};
    std::string file;
};

TEST_F(SlowFilesTest, PiecesOfAnySizeGiveTheWholeList) {
    for (const std::size_t piece : {1U, 13U, 5000U}) {
        const SlowPipe pipe("whole" + std::to_string(piece), file, piece);
        slots.ImportNewList(nullptr, pipe.Path().c_str());
        EXPECT_EQ(CountParameters(), kParameters) << piece;
    }
    EXPECT_TRUE(watcher.Boxes().empty());
}

TEST_F(SlowFilesTest, AnInterruptedFileGivesWhatCameBefore) {
    int fewest = kParameters;
    for (const std::size_t size : {file.size() / 4, file.size() / 2, file.size() - 1}) {
        stage.Write("CUT.SIL", file.substr(0, size));
        slots.ImportNewList(nullptr, stage.Path("CUT.SIL").c_str());
        const int expected = CountParameters();
        const SlowPipe pipe("cut" + std::to_string(size), file.substr(0, size), 50);
        slots.ImportNewList(nullptr, pipe.Path().c_str());
        EXPECT_EQ(CountParameters(), expected) << size;
        fewest = std::min(fewest, expected);
    }
    EXPECT_LT(fewest, kParameters);
    EXPECT_TRUE(watcher.Boxes().empty()) << "a part is read as a file that was cut";
}

TEST_F(SlowFilesTest, AFullDeviceIsReported) {
    constexpr const char* kFull = "Z:\\dev\\full";
    const HANDLE device =
        CreateFileA(kFull, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(device, INVALID_HANDLE_VALUE) << "it can be opened, as a full disk can";
    CloseHandle(device);
    slots.ExportList(nullptr, kFull);
    ASSERT_EQ(watcher.Boxes().size(), 1U);
    EXPECT_EQ(watcher.Boxes()[0].text, "The parameter list could not be saved.");
    EXPECT_EQ(CountParameters(), kParameters);
}

}  // namespace
}  // namespace orvell::test
