#include "ui/dialogs/parameter_form.h"

#include <algorithm>
#include <limits>

#include "resources/checked_format.h"
#include "ui/dialogs/type_survey.h"
#include "ui/dialogs/value_rows.h"
#include "ui/dialogs/vector_choice.h"

namespace orvell::ui {

using memstruct::MemoryArea;
using memstruct::TypeDef;
using resources::StringId;
using values::DisplayFormat;

namespace {

/// Why something cannot be edited: a message and the name that it tells.
struct Fault {
    StringId message;
    std::string name;
};

bool IsTooLarge(const TypeExtent& extent) {
    return extent.leaves > ParameterForm::kMaximumRows ||
           extent.bytes > std::numeric_limits<std::uint32_t>::max();
}

/// What keeps a vector of this type from being laid out. A type of too many values is as invalid as
/// one without base type: the same entry of its definition is wrong.
std::optional<Fault> FindFault(const TypeDef& type, std::uint32_t length) {
    if (type.baseType == values::BaseTypeCode::None) {
        return Fault{StringId::BaseTypeInvalid, type.name};
    }
    if (type.recursive) {
        return Fault{StringId::TypeRecursive, type.name};
    }
    const TypeSurvey survey(type);
    if (survey.UnusableType() != nullptr) {
        return Fault{StringId::BaseTypeInvalid, *survey.UnusableType()};
    }
    if (IsTooLarge(Repeat(survey.Extent(), length))) {
        return Fault{StringId::BaseTypeInvalid, type.name};
    }
    return std::nullopt;
}

std::optional<Fault> FindFault(std::uint32_t identifier, const MemoryArea* area,
                               std::uint32_t length) {
    if (area == nullptr) {
        return Fault{StringId::MemoryAreaNotFound, std::to_string(identifier)};
    }
    if (area->type == nullptr) {
        return Fault{StringId::TypeNotFound, area->typeName};
    }
    return FindFault(*area->type, length);
}

bool CanLayOut(const TypeDef* type, std::uint32_t length) {
    return type != nullptr && !FindFault(*type, length).has_value();
}

}  // namespace

ParameterForm::ParameterForm(DialogParameterRecord* record, const FormServices& services)
    : services_(services) {
    if (record != nullptr) {
        record_.emplace(*record);
        const values::ConstValueBuffer value = record_->Value();
        bytes_.assign(value.begin(), value.end());
    }
}

void ParameterForm::SetUpGrid(GridModel& grid) const {
    constexpr std::uint32_t kCentred =
        kGridTextCentred | kGridTextCentredVertically | kGridTextSingleLine;
    grid.SetColumnCount(2);
    grid.SetRowCount(1);
    grid.SetFixedRowCount(1);
    grid.SetItemText(kHeaderRow, kNameColumn, services_.strings.Text(StringId::ElementHeader));
    grid.SetItemText(kHeaderRow, kValueColumn, services_.strings.Text(StringId::ValueHeader));
    grid.SetItemFormat(kHeaderRow, kNameColumn, kCentred);
    grid.SetItemFormat(kHeaderRow, kValueColumn, kCentred);
}

bool ParameterForm::Open(GridModel& grid, std::string& message) {
    message.clear();
    if (!record_.has_value()) {
        return false;
    }
    const std::uint32_t identifier = record_->Identifier();
    const MemoryArea* area = services_.store.FindMemoryArea(identifier);
    vectorLength_ = VectorChoice(record_->VectorLength()).Length();
    if (const auto fault = FindFault(identifier, area, vectorLength_)) {
        message = resources::FormatText(services_.strings.Text(fault->message), {fault->name});
        return false;
    }
    areaName_ = record_->DisplayName();
    if (areaName_.empty()) {
        areaName_ = area->type->name;
    }
    formats_ = OfferFormats(area->type->baseType, record_->Format());
    WriteRows(grid, *area->type);
    return true;
}

const TypeDef* ParameterForm::Type() const {
    return record_.has_value() ? services_.store.TypeOfArea(record_->Identifier()) : nullptr;
}

bool ParameterForm::ChangeVectorLength(GridModel& grid, std::uint32_t length,
                                       DroppedElements dropped) {
    const TypeDef* type = Type();
    if (!CanLayOut(type, length)) {
        return false;
    }
    static_cast<void>(ReadRows(grid, dropped));  // a text without a value shows the last one again
    const auto size = static_cast<std::size_t>(ValueSize(length));
    bytes_.resize(std::max(bytes_.size(), size));
    vectorLength_ = length;
    WriteRows(grid, *type);
    return true;
}

void ParameterForm::ForgetDroppedElements() {
    const std::uint64_t shown = std::min<std::uint64_t>(ValueSize(vectorLength_), bytes_.size());
    std::fill(bytes_.begin() + static_cast<std::ptrdiff_t>(shown), bytes_.end(), std::uint8_t{0});
}

bool ParameterForm::ChangeFormat(GridModel& grid, DisplayFormat format) {
    const TypeDef* type = Type();
    if (!CanLayOut(type, vectorLength_)) {
        return false;
    }
    static_cast<void>(ReadRows(grid, DroppedElements::Forget));
    formats_.selected = format;
    WriteRows(grid, *type);
    return true;
}

void ParameterForm::NormalizeText(GridModel& grid, int row) const {
    ValueRows(services_.converters, grid).Normalize(row, formats_.selected);
}

void ParameterForm::ColourNames(GridModel& grid) const {
    ValueRows(services_.converters, grid).ColourNames();
}

bool ParameterForm::TakeBack(GridModel& grid) {
    return ReadRows(grid, DroppedElements::Forget);
}

bool ParameterForm::Store(std::uint32_t boxWidth) {
    return record_.has_value() && record_->Store({.vectorLength = vectorLength_,
                                                  .value = bytes_,
                                                  .boxWidth = boxWidth,
                                                  .format = formats_.selected});
}

/// The copy never gets shorter; behind the elements shown it is zero unless these are to come back.
bool ParameterForm::ReadRows(GridModel& grid, DroppedElements dropped) {
    const TypeDef* type = Type();
    const std::uint64_t size = ValueSize(vectorLength_);
    if (type == nullptr || size > std::numeric_limits<std::uint32_t>::max()) {
        return false;
    }
    const auto shown = static_cast<std::size_t>(size);
    std::vector<std::uint8_t> taken(std::max(shown, bytes_.size()));
    if (dropped == DroppedElements::Keep && bytes_.size() > shown) {
        std::copy(bytes_.begin() + static_cast<std::ptrdiff_t>(shown), bytes_.end(),
                  taken.begin() + static_cast<std::ptrdiff_t>(shown));
    }
    const bool allRead = ValueRows(services_.converters, grid)
                             .Read(*type, vectorLength_, values::ValueBuffer(taken).first(shown),
                                   bytes_, formats_.selected);
    bytes_ = std::move(taken);
    return allRead;
}

void ParameterForm::WriteRows(GridModel& grid, const TypeDef& type) {
    ValueRows(services_.converters, grid)
        .Write(type, vectorLength_, bytes_, formats_.selected,
               services_.strings.Text(StringId::ElementPrefix));
}

std::uint64_t ParameterForm::ValueSize(std::uint32_t length) const {
    return std::uint64_t{memstruct::MemoryStructureStore::StoredSize(Type())} * length;
}

}  // namespace orvell::ui
