#include "paramlist/csv_file_writer.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "paramlist/field_text.h"
#include "paramlist/text_kinds.h"
#include "paramlist/text_writer.h"
#include "paramlist/value_texts.h"
#include "paramlist/value_type_handler.h"
#include "resources/checked_format.h"

namespace orvell::paramlist {

using resources::CheckedFormat;
using resources::FormatArgument;
using resources::StringId;

namespace {

class CsvFileWriter {
  public:
    CsvFileWriter(const resources::StringTable& strings, platform::ByteSink& sink)
        : strings_(strings),
          recordFormat_(strings.Text(StringId::CsvRecord)),
          bitRecordFormat_(strings.Text(StringId::CsvBitRecord)),
          texts_(LoadValueTexts(strings)),
          writer_(sink) {}

    bool Write(const ParameterList& list) {
        WriteHeader(list.ProjectName()) && WriteKinds(list);
        return writer_.Finish();
    }

  private:
    bool WriteHeader(std::string_view projectName) {
        writer_.Text() += strings_.Text(StringId::CsvVersionLine);
        const FormatArgument arguments[] = {projectName};
        CheckedFormat(strings_.Text(StringId::CsvProjectLine)).AppendTo(writer_.Text(), arguments);
        return writer_.EndRecord();
    }

    bool WriteKinds(const ParameterList& list) {
        for (std::uint32_t index = 0; index < list.KindCount(); ++index) {
            const ParameterKind* const kind = KindAt(list, strings_, index);
            if (kind == nullptr || kind->IsEmpty()) {
                continue;
            }
            writer_.Text() += KindText(strings_, StringId::CsvHeaderE, index);
            writer_.Text() += strings_.Text(StringId::CsvColumnLine);
            if (!WriteEntries(*kind)) {
                return false;
            }
            writer_.Text() += '\n';
        }
        return true;
    }

    bool WriteEntries(const ParameterKind& kind) {
        return kind.VisitInOrder([&](const ParameterEntry& entry) {
            WriteEntry(kind, entry);
            return writer_.EndRecord();
        });
    }

    void WriteEntry(const ParameterKind& kind, const ParameterEntry& entry) {
        const ValueTypeHandler* const handler = kind.Handler();
        value_.clear();
        if (handler != nullptr) {
            handler->FormatCsvField(entry.Value(), texts_, value_);
        } else {
            value_ += ';';
        }
        const std::string_view name = QuotedInto(name_, entry.Name());
        const std::string_view comment = QuotedInto(comment_, entry.Comment());
        if (handler != nullptr && handler->IsBitAddressed()) {
            const FormatArgument arguments[] = {
                kind.Keyword(), entry.Number() / 8, entry.Number() % 8, name, value_, comment};
            bitRecordFormat_.AppendTo(writer_.Text(), arguments);
        } else {
            const FormatArgument arguments[] = {kind.Keyword(), entry.Number(), name, value_,
                                                comment};
            recordFormat_.AppendTo(writer_.Text(), arguments);
        }
    }

    template <std::size_t room>
    static std::string_view QuotedInto(std::array<char, room>& buffer, std::string_view text) {
        const char* const end = WriteQuoted(buffer.data(), text);
        return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
    }

    const resources::StringTable& strings_;
    const CheckedFormat recordFormat_;
    const CheckedFormat bitRecordFormat_;
    const ValueTexts texts_;
    TextWriter writer_;
    std::string value_;
    std::array<char, QuotedRoom(ParameterEntry::kMaximumNameLength)> name_;
    std::array<char, QuotedRoom(ParameterEntry::kMaximumCommentLength)> comment_;
};

}  // namespace

bool WriteCsvFile(const ParameterList& list, const resources::StringTable& strings,
                  platform::ByteSink& sink) {
    return CsvFileWriter(strings, sink).Write(list);
}

bool WriteCsvFile(const ParameterList& list, const resources::StringTable& strings,
                  const std::string& path) {
    const auto sink = path.empty() ? nullptr : platform::OpenFileToWrite(path);
    return sink != nullptr && WriteCsvFile(list, strings, *sink);
}

}  // namespace orvell::paramlist
