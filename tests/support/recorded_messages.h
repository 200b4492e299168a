#pragma once

#include <vector>

#include "platform/message_box.h"

namespace orvell::test {

/// Keeps the messages that would have been shown.
class RecordedMessages final : public platform::MessageBoxes {
  public:
    void Show(const platform::Message& message) override { shown.push_back(message); }

    std::vector<platform::Message> shown;
};

}  // namespace orvell::test
