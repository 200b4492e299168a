#pragma once

#include <windows.h>

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace workbench::cli {

/// Shows on the standard error, when that is a console, that a file of more than 10 MB is being
/// read or written, for as long as the object lives: the time so far and the file's size, a line
/// every second. The module says nothing itself before it is done.
class ProgressDisplay {
  public:
    explicit ProgressDisplay(std::string path);

  private:
    void Run(const std::stop_token& stop);

    std::string path_;
    std::mutex mutex_;
    std::condition_variable_any ended_;
    std::jthread thread_;  // last: it uses the others
};

}  // namespace workbench::cli
