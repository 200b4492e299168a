#pragma once

#include <functional>
#include <vector>

#include "platform/message_box.h"

namespace orvell::test {

/// Keeps the messages that would have been shown, and answers questions.
class RecordedMessages final : public platform::MessageBoxes {
  public:
    void Show(const platform::Message& message) override {
        shown.push_back(message);
        if (whileOpen) {
            whileOpen();
        }
    }

    bool Ask(const platform::Message& question) override {
        asked.push_back(question);
        return answer;
    }

    std::vector<platform::Message> shown;
    std::vector<platform::Message> asked;
    bool answer = false;              ///< true: Yes
    std::function<void()> whileOpen;  ///< what the host's message loop does meanwhile
};

}  // namespace orvell::test
