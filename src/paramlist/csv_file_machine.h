#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "paramlist/text_collector.h"

namespace orvell::paramlist {

/// What a CSV record says about the parameter that its first field names.
struct CsvFileRecord {
    std::string_view name;
    std::string_view value;  ///< both value columns, joined by a blank when the second has a text
    std::string_view comment;
};

/// Takes what a CSV file holds. Lines are counted from 1.
class CsvFileRecords {
  public:
    CsvFileRecords() = default;
    CsvFileRecords(const CsvFileRecords&) = delete;
    CsvFileRecords& operator=(const CsvFileRecords&) = delete;
    virtual ~CsvFileRecords() = default;

    /// A line's first field has ended; `text` is valid during the call only. True when the record
    /// is wanted; else the rest of its line is passed over.
    [[nodiscard]] virtual bool Open(std::string_view text, std::uint32_t line) = 0;

    /// The record last opened; its texts are valid during the call only.
    virtual void TakeOver(const CsvFileRecord& record, std::uint32_t line) = 0;

    /// The line breaks the rules of quoting, or ends too early.
    virtual void ReportLineFormat(std::uint32_t line) = 0;
};

/// Recognises the records in the text of a CSV file, which comes in pieces of any size with single
/// LFs at the line ends. Costs time linear in the text and memory for the longest record.
class CsvFileMachine {
  public:
    /// `records` must outlive the machine.
    explicit CsvFileMachine(CsvFileRecords& records) : records_(records) {}

    void Consume(std::string_view piece);

    /// The text is at its end; it may lie in the last line of a record.
    void Finish();

  private:
    enum Field : std::uint8_t { kFirst, kName, kValue, kSecondValue, kComment, kFieldCount };

    void Step(std::string_view character);
    void TakeOverRecord();
    void DropTexts();
    [[nodiscard]] TextCollector& FieldOf(std::uint8_t state);

    CsvFileRecords& records_;
    std::uint8_t state_ = 0;
    std::uint32_t line_ = 1;
    std::array<TextCollector, kFieldCount> fields_;
    std::string joinedValue_;
};

}  // namespace orvell::paramlist
