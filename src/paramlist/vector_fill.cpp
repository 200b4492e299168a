#include "paramlist/parameter_list.h"
#include "resources/checked_format.h"

namespace orvell::paramlist {
namespace {

/// Gives the elements of a vector names and comments, as far as they have none.
class VectorDescription {
  public:
    explicit VectorDescription(const std::string& commentFormat) : commentFormat_(commentFormat) {}

    /// `index` counts from 0.
    void Describe(ParameterEntry& entry, std::uint32_t index) {
        if (index == 0) {
            firstName_ = entry.Name();
        } else if (entry.Name().empty()) {
            entry.SetNameFromFile(firstName_);
        }
        if (entry.Comment().empty()) {
            comment_.clear();
            commentFormat_.AppendTo(comment_, std::array{resources::FormatArgument(index + 1)});
            entry.SetCommentFromFile(comment_);
        }
    }

  private:
    resources::CheckedFormat commentFormat_;
    std::string firstName_;
    std::string comment_;
};

}  // namespace

bool ParameterList::FillVector(std::string_view address, std::span<const double> values) {
    return FillVectorWith(address, values, &ValueTypeHandler::SetFromDouble);
}

bool ParameterList::FillVector(std::string_view address, std::span<const std::uint32_t> values) {
    return FillVectorWith(address, values, &ValueTypeHandler::SetFromDword);
}

template <typename Number>
bool ParameterList::FillVectorWith(std::string_view addressText, std::span<const Number> values,
                                   NumberSetter<Number> setter) {
    if (values.empty()) {
        return true;
    }
    const ParameterAddress address = ParseAddress(addressText);
    if (address.kind == nullptr) {
        return false;
    }
    VectorDescription description(strings_.Text(resources::StringId::VectorElementComment));
    bool isSet = false;
    for (std::size_t element = 0; element < values.size(); ++element) {
        const auto index = static_cast<std::uint32_t>(element);
        ParameterEntry* const entry = EntryToWrite(*address.kind, address.number + index);
        if (entry == nullptr) {
            continue;
        }
        isSet = SetNumber(*address.kind, entry->Value(), values[element], setter);
        if (values.size() > 1) {
            description.Describe(*entry, index);
        }
    }
    return isSet;
}

template <typename Number>
bool ParameterList::SetNumber(const ParameterKind& kind, ParameterValue& value, Number number,
                              NumberSetter<Number> setter) {
    if (kind.Handler() == nullptr) {
        value.Clear();
        return false;
    }
    return (kind.Handler()->*setter)(value, number);
}

}  // namespace orvell::paramlist
