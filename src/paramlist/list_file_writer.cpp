#include "paramlist/list_file_writer.h"

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

class ListFileWriter {
  public:
    ListFileWriter(const resources::StringTable& strings, platform::ByteSink& sink)
        : strings_(strings),
          recordFormat_(strings.Text(StringId::ListFileRecord)),
          texts_(LoadValueTexts(strings)),
          writer_(sink) {}

    bool Write(const ParameterList& list) {
        WriteHeader(list.ProjectName()) && WriteKinds(list);
        return writer_.Finish();
    }

  private:
    bool WriteHeader(std::string_view projectName) {
        const FormatArgument arguments[] = {projectName};
        CheckedFormat(strings_.Text(StringId::ListFileHeader)).AppendTo(writer_.Text(), arguments);
        return writer_.EndRecord();
    }

    bool WriteKinds(const ParameterList& list) {
        for (std::uint32_t index = 0; index < list.KindCount(); ++index) {
            writer_.Text() += KindText(strings_, StringId::ListHeaderE, index);
            const ParameterKind* const kind = KindAt(list, strings_, index);
            if (!writer_.EndRecord() || (kind != nullptr && !WriteEntries(*kind))) {
                return false;
            }
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
        value_.clear();
        if (kind.Handler() != nullptr) {
            kind.Handler()->FormatListText(entry.Value(), texts_, value_);
        } else {
            value_ += texts_.undefined;
        }
        const FormatArgument arguments[] = {kind.Keyword(), entry.Number(),
                                            FieldText(name_, entry.Name()), value_,
                                            FieldText(comment_, entry.Comment())};
        recordFormat_.AppendTo(writer_.Text(), arguments);
    }

    template <std::size_t room>
    static std::string_view FieldText(std::array<char, room>& buffer, std::string_view text) {
        if (text.empty()) {
            return ParameterEntry::kEmptyMark;
        }
        const char* const end = WriteWithoutBlanks(buffer.data(), text);
        return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
    }

    const resources::StringTable& strings_;
    const CheckedFormat recordFormat_;
    const ValueTexts texts_;
    TextWriter writer_;
    std::string value_;
    std::array<char, ParameterEntry::kMaximumNameLength> name_;
    std::array<char, ParameterEntry::kMaximumCommentLength> comment_;
};

}  // namespace

bool WriteListFile(const ParameterList& list, const resources::StringTable& strings,
                   platform::ByteSink& sink) {
    return ListFileWriter(strings, sink).Write(list);
}

bool WriteListFile(const ParameterList& list, const resources::StringTable& strings,
                   const std::string& path) {
    const auto sink = path.empty() ? nullptr : platform::OpenFileToWrite(path);
    return sink != nullptr && WriteListFile(list, strings, *sink);
}

}  // namespace orvell::paramlist
