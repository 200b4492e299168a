#include "online_target.h"

#include <gtest/gtest.h>

namespace orvell::ui {

namespace {

constexpr DWORD kPatience = 20'000;  // ms

}  // namespace

OnlineTarget* OnlineTarget::current_ = nullptr;

OnlineTarget::OnlineTarget()
    : held_(CreateEventW(nullptr, FALSE, FALSE, nullptr)),
      release_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    current_ = this;
}

OnlineTarget::~OnlineTarget() {
    current_ = nullptr;
    CloseHandle(held_);
    CloseHandle(release_);
}

OnlineAccessRecord OnlineTarget::Functions() {
    OnlineAccessRecord functions{};
    functions.size = sizeof(functions);
    functions.alternative.Put16 = Put16;
    return functions;
}

std::vector<std::uint16_t> OnlineTarget::Values() const {
    std::vector<std::uint16_t> values;
    for (const Put& put : puts_) {
        values.push_back(put.value);
    }
    return values;
}

void OnlineTarget::HoldAt(std::uint32_t element) {
    holdAt_ = element;
    ResetEvent(release_);
}

void OnlineTarget::WaitUntilHeld() const {
    EXPECT_EQ(WaitForSingleObject(held_, kPatience), WAIT_OBJECT_0);
}

std::int32_t ORVELL_CALL OnlineTarget::Put16(std::uint32_t first, std::uint32_t second,
                                             std::uint16_t value) {
    return current_->OnPut({first, second, value, GetCurrentThreadId()});
}

std::int32_t OnlineTarget::OnPut(const Put& put) {
    if (put.first == holdAt_) {
        SetEvent(held_);
        EXPECT_EQ(WaitForSingleObject(release_, kPatience), WAIT_OBJECT_0);
    }
    if (meanwhile) {
        meanwhile();
    }
    if (put.first == failAt_) {
        return 0;
    }
    puts_.push_back(put);
    return 1;
}

}  // namespace orvell::ui
