#include "paramlist/csv_file_reader.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <vector>

#include "paramlist/csv_file_address.h"
#include "paramlist/csv_file_machine.h"
#include "paramlist/text_kinds.h"
#include "paramlist/text_reader.h"
#include "paramlist/value_texts.h"
#include "paramlist/value_type_handler.h"
#include "values/characters.h"

namespace orvell::paramlist {

using resources::StringId;

namespace {

/// The texts that begin lines without a record.
std::vector<std::string_view> LoadHeaders(const resources::StringTable& strings) {
    std::vector<std::string_view> headers;
    for (const StringId id :
         {StringId::CsvVersionLine, StringId::CsvProjectLine, StringId::CsvColumnLine}) {
        headers.emplace_back(strings.Text(id));
    }
    for (std::uint32_t index = 0; index < kParameterKindCount; ++index) {
        headers.emplace_back(KindText(strings, StringId::CsvHeaderE, index));
    }
    return headers;
}

/// Between the opening of a record and its end nothing is reported, so that no pointer into the
/// list is kept while the host shows a warning.
class CsvFileImport : public CsvFileRecords {
  public:
    CsvFileImport(ParameterList& list, const resources::StringTable& strings,
                  ImportWarnings& warnings)
        : list_(list),
          texts_(LoadValueTexts(strings)),
          headers_(LoadHeaders(strings)),
          warnings_(warnings) {}

    [[nodiscard]] bool Open(std::string_view text, std::uint32_t line) override {
        const std::string_view addressText = WithoutBlanks(text);
        const CsvAddress address = SplitCsvAddress(addressText);
        if (kind_ == nullptr || kind_->Keyword() != address.keyword) {
            kind_ = list_.FindKind(address.keyword);
        }
        if (kind_ == nullptr) {
            if (!IsHeader(text)) {
                Warn(StringId::WarningUnknownKind, line, text);
            }
            return false;
        }
        const auto number = ReadCsvNumber(address.number, kind_->ValueType() == ValueTypeCode::Bit);
        if (!number) {
            Warn(StringId::WarningInvalidAddress, line, addressText);
            return false;
        }
        kind_->PrefetchBehind(*number);
        entry_ = kind_->Find(*number);
        if (entry_ == nullptr) {
            Warn(StringId::WarningNotDefined, line, addressText);
        }
        return entry_ != nullptr;
    }

    void TakeOver(const CsvFileRecord& record, std::uint32_t line) override {
        entry_->SetNameFromFile(record.name);
        entry_->SetCommentFromFile(record.comment);
        if (!SetValue(record.value)) {
            Warn(StringId::WarningInvalidValue, line, std::nullopt);
        }
    }

    void ReportLineFormat(std::uint32_t line) override {
        Warn(StringId::WarningLineFormat, line, std::nullopt);
    }

    [[nodiscard]] std::int32_t WarningCount() const { return warningCount_; }

  private:
    /// Valid until the next call, and as long as the text.
    [[nodiscard]] std::string_view WithoutBlanks(std::string_view text) {
        if (std::ranges::none_of(text, values::IsBlank)) {
            return text;
        }
        address_ = text;
        std::erase_if(address_, values::IsBlank);
        return address_;
    }

    /// A header line may be cut short anywhere.
    [[nodiscard]] bool IsHeader(std::string_view text) const {
        return std::ranges::any_of(
            headers_, [&](std::string_view header) { return header.starts_with(text); });
    }

    [[nodiscard]] bool SetValue(std::string_view text) const {
        if (kind_->Handler() == nullptr) {
            entry_->Value().Clear();
            return false;
        }
        return kind_->Handler()->SetFromCsvText(entry_->Value(), text, texts_);
    }

    void Warn(StringId message, std::uint32_t line, std::optional<std::string_view> argument) {
        if (warningCount_ < std::numeric_limits<std::int32_t>::max()) {
            ++warningCount_;
        }
        warnings_.Warning(message, line, argument);
        kind_ = nullptr;  // the host may have had the kinds built anew meanwhile
    }

    ParameterList& list_;
    const ValueTexts texts_;
    const std::vector<std::string_view> headers_;
    ImportWarnings& warnings_;
    std::int32_t warningCount_ = 0;
    std::string address_;
    ParameterKind* kind_ = nullptr;  ///< of the last address
    ParameterEntry* entry_ = nullptr;
};

}  // namespace

void ReadCsvFile(ParameterList& list, const resources::StringTable& strings,
                 platform::ByteSource& source, const std::string& path, ImportWarnings& warnings) {
    warnings.Start(path);
    CsvFileImport import(list, strings, warnings);
    CsvFileMachine machine(import);
    TextReader reader(source);
    for (std::string_view piece = reader.Next(); !piece.empty(); piece = reader.Next()) {
        machine.Consume(piece);
    }
    machine.Finish();
    warnings.End(import.WarningCount());
}

bool ReadCsvFile(ParameterList& list, const resources::StringTable& strings,
                 const std::string& path, ImportWarnings& warnings) {
    const auto source = platform::OpenFileToRead(path);
    if (source == nullptr) {
        return false;
    }
    ReadCsvFile(list, strings, *source, path, warnings);
    return true;
}

}  // namespace orvell::paramlist
