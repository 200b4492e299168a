#include "paramlist/list_file_reader.h"

#include <string_view>

#include "paramlist/list_file_machine.h"
#include "paramlist/text_reader.h"
#include "paramlist/value_texts.h"
#include "paramlist/value_type_handler.h"

namespace orvell::paramlist {
namespace {

class ListFileImport : public ListFileRecords {
  public:
    ListFileImport(ParameterList& list, const resources::StringTable& strings, ListFileScope scope)
        : list_(list), texts_(LoadValueTexts(strings)), scope_(scope) {}

    void TakeOver(const ListFileRecord& record) override {
        ParameterKind* const kind = KindOf(record.keyword);
        ParameterEntry* const entry = kind != nullptr ? EntryOf(*kind, record.number) : nullptr;
        if (entry == nullptr) {
            return;
        }
        entry->SetNameFromFile(record.name);
        entry->SetCommentFromFile(record.comment);
        if (kind->Handler() != nullptr) {
            kind->Handler()->SetFromListText(entry->Value(), record.value, texts_);
        } else {
            entry->Value().Clear();
        }
    }

  private:
    /// Usually that of the record before.
    [[nodiscard]] ParameterKind* KindOf(std::string_view keyword) {
        if (kind_ == nullptr || kind_->Keyword() != keyword) {
            kind_ = list_.FindKind(keyword);
        }
        return kind_;
    }

    [[nodiscard]] ParameterEntry* EntryOf(ParameterKind& kind, std::uint32_t number) const {
        kind.PrefetchBehind(number);
        return scope_ == ListFileScope::ExistingEntries ? kind.Find(number)
                                                        : &kind.Obtain(number, false);
    }

    ParameterList& list_;
    const ValueTexts texts_;
    const ListFileScope scope_;
    ParameterKind* kind_ = nullptr;
};

}  // namespace

bool ReadListFile(ParameterList& list, const resources::StringTable& strings,
                  platform::ByteSource& source, ListFileScope scope) {
    ListFileImport import(list, strings, scope);
    ListFileMachine machine(import);
    TextReader reader(source);
    for (std::string_view piece = reader.Next(); !piece.empty(); piece = reader.Next()) {
        machine.Consume(piece);
    }
    return machine.Finish();
}

bool ReadListFile(ParameterList& list, const resources::StringTable& strings,
                  const std::string& path, ListFileScope scope) {
    const auto source = platform::OpenFileToRead(path);
    return source != nullptr && ReadListFile(list, strings, *source, scope);
}

}  // namespace orvell::paramlist
