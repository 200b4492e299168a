#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "host/module.h"
#include "host/standard_parameter_slots.h"
#include "resources/built_in_strings.h"
#include "support/fake_libraries.h"
#include "support/recorded_messages.h"

namespace orvell::host {

constexpr std::int32_t kWord = 1;        ///< INT of 2 bytes
constexpr std::int32_t kPoint = 2;       ///< x: Word, y: Word[2]
constexpr std::int32_t kText = 3;        ///< STRING of 4 bytes
constexpr std::int32_t kLoop = 4;        ///< recursive
constexpr std::int32_t kUnresolved = 5;  ///< of a type that does not exist
constexpr std::int32_t kMode = 6;        ///< enumerators On (1) and Off (200) in a byte
constexpr std::int32_t kAll = 7;  ///< n: Point, lost: Nothing, f: FLOAT, o: OLE-DATE+TIME, m: Mode
constexpr std::int32_t kEmpty = 8;  ///< a structure without elements
constexpr std::int32_t kTime = 9;
constexpr std::int32_t kTwins = 10;  ///< x: Word, x: Word
constexpr std::int32_t kUnknown = 99;

/// A module of its own for each test, with the areas above.
class SlotsTest : public testing::Test {
  protected:
    SlotsTest();
    ~SlotsTest() override;

    static const SystemServices& TestServices();

    /// Puts another, empty module in its place.
    static void UseModule(const SystemServices& services);

    static ParameterRecord Record(std::int32_t id, void* bytes, std::uint32_t length,
                                  std::uint32_t count = 1) {
        return {sizeof(ParameterRecord), id, count, length, bytes, 0, 0, {}};
    }

    test::FakeLoader& loader;
    test::RecordedMessages& messages;
    std::uint8_t bytes[12] = {0xFF, 0xFF, 2, 0, 3, 0, 4, 0, 5, 0, 6, 0};
    std::uint8_t text[4] = {'a', 'b', 0, 0};
};

}  // namespace orvell::host
