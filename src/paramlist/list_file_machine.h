#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "paramlist/list_file_record.h"
#include "paramlist/text_collector.h"

namespace orvell::paramlist {

/// Takes what a list file holds.
class ListFileRecords {
  public:
    ListFileRecords() = default;
    ListFileRecords(const ListFileRecords&) = delete;
    ListFileRecords& operator=(const ListFileRecords&) = delete;
    virtual ~ListFileRecords() = default;

    /// The record has blanks for at signs, but its value's first character as it is written. Its
    /// texts are valid during the call only.
    virtual void TakeOver(const ListFileRecord& record) = 0;
};

/// Recognises the records in the text of a list file, which comes in pieces of any size with single
/// LFs at the line ends. Costs time linear in the text and memory for the longest record.
class ListFileMachine {
  public:
    /// `records` must outlive the machine.
    explicit ListFileMachine(ListFileRecords& records) : records_(records) {}

    void Consume(std::string_view piece);

    /// The text is at its end; it may lie in the last line of a record. True when there was at
    /// least one record, or when the last line was ended and began no record.
    [[nodiscard]] bool Finish();

  private:
    enum Field : std::uint8_t { kKeyword, kNumber, kName, kValue, kComment, kFieldCount };

    void ChangeState(char character);
    void Collect(std::size_t field, std::string_view characters);
    [[nodiscard]] bool TakeWrittenRecord(const char*& position, const char* end);
    void TakeOverCollected();
    void TakeOver(const ListFileRecord& written);
    [[nodiscard]] std::string_view WithBlanks(Field field, std::string_view text);

    ListFileRecords& records_;
    std::uint8_t state_ = 0;
    std::array<TextCollector, kFieldCount> texts_;  ///< that of the number stays empty
    std::array<std::string, kFieldCount> textsWithBlanks_;
    std::uint32_t number_ = 0;
    bool hasRecord_ = false;
};

}  // namespace orvell::paramlist
