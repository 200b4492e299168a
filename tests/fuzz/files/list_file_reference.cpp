#include "fuzz/files/list_file_reference.h"

#include <algorithm>

namespace orvell::fuzz {
namespace {

using paramlist::ListFileScope;
using paramlist::ParameterEntry;

class ListFileStates {
  public:
    ListFileStates(ReferenceList& list, ListFileScope scope) : list_(list), scope_(scope) {}

    void Read(char character) {
        if (character == ' ' || character == '\t') {
            OnWhiteSpace();
        } else if (character == '\n') {
            OnLineFeed();
        } else {
            OnOther(character);
        }
    }

    bool Finish() {
        if (state_ == 20 || state_ == 21) {
            TakeOver();
        }
        return hasRecord_ || state_ == 0;
    }

  private:
    /// Behind a word, and behind the "0" that begins a record; elsewhere it counts for nothing.
    void OnWhiteSpace() {
        switch (state_) {
            case 2:
            case 4:
            case 6:
            case 10:
            case 15:
            case 20:
                ++state_;
                break;
            default:
                break;
        }
    }

    /// Ends the first line, the second, the record; between lines it counts for nothing. Elsewhere
    /// the record is lost.
    void OnLineFeed() {
        switch (state_) {
            case 10:
            case 11:
                state_ = 12;
                break;
            case 15:
            case 16:
                state_ = 17;
                break;
            case 12:
            case 17:
                break;
            case 20:
            case 21:
                TakeOver();
                state_ = 0;
                break;
            default:
                state_ = 0;
                break;
        }
    }

    void OnOther(char character) {
        const bool isDigit = character >= '0' && character <= '9';
        switch (state_) {
            case 0:
                state_ = character == '0' ? 2 : 1;
                break;
            case 3:
                keyword_.clear();
                [[fallthrough]];
            case 4:
                keyword_ += character;
                state_ = 4;
                break;
            case 5:
                number_ = 0;
                [[fallthrough]];
            case 6:
                number_ = number_ * 10 + static_cast<std::uint32_t>(character - '0');
                state_ = isDigit ? 6 : 1;
                break;
            case 7:
                state_ = character == 'N' ? 8 : 1;
                break;
            case 12:
                state_ = character == 'D' ? 13 : 1;
                break;
            case 17:
                state_ = character == 'C' ? 18 : 1;
                break;
            case 8:
            case 13:
            case 18:
                state_ = character == ':' ? state_ + 1 : 1;
                break;
            case 9:
                name_.clear();
                [[fallthrough]];
            case 10:
                name_ += character == '@' ? ' ' : character;
                state_ = 10;
                break;
            case 14:
                value_ = character;
                state_ = 15;
                break;
            case 15:
                value_ += character == '@' ? ' ' : character;
                break;
            case 19:
                comment_.clear();
                [[fallthrough]];
            case 20:
                comment_ += character == '@' ? ' ' : character;
                state_ = 20;
                break;
            default:
                state_ = 1;
                break;
        }
    }

    void TakeOver() {
        hasRecord_ = true;
        if (HandlerOf(keyword_) == nullptr) {
            return;
        }
        PlainEntry* const entry = scope_ == ListFileScope::ExistingEntries
                                      ? list_.Find(keyword_, number_)
                                      : &list_.Obtain(keyword_, number_);
        if (entry != nullptr) {
            entry->name = TextFromFile(name_, ParameterEntry::kMaximumNameLength);
            entry->comment = TextFromFile(comment_, ParameterEntry::kMaximumCommentLength);
            SetFromListText(*entry, value_);
        }
    }

    ReferenceList& list_;
    const ListFileScope scope_;
    int state_ = 0;
    std::string keyword_;
    std::uint32_t number_ = 0;
    std::string name_;
    std::string value_;
    std::string comment_;
    bool hasRecord_ = false;
};

}  // namespace

bool ReadListFileByReference(ReferenceList& list, std::string_view bytes, ListFileScope scope) {
    ListFileStates reader(list, scope);
    for (const char character : InTextMode(bytes)) {
        reader.Read(character);
    }
    return reader.Finish();
}

}  // namespace orvell::fuzz
