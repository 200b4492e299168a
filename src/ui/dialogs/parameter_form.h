#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "memstruct/memory_structure_store.h"
#include "resources/string_table.h"
#include "ui/dialogs/dialog_record.h"
#include "ui/dialogs/format_choice.h"
#include "ui/grid/grid_model.h"

namespace orvell::ui {

/// What a form reads of the module.
struct FormServices {
    const memstruct::MemoryStructureStore& store;
    const values::ValueConverterSet& converters;
    const resources::StringTable& strings;
};

/// The parameter dialog without its window: the value being edited, how it is laid out in a grid
/// and how the record gets it back.
///
/// The grid's texts are the value; the form's own bytes are a copy that is brought up to date
/// before the layout changes and when the value is accepted. The definitions are looked up for each
/// operation: the host may replace them while the dialog is open.
class ParameterForm {
  public:
    /// A grid with more rows would be of no use to anybody, but could be asked for by a definition
    /// of one line.
    static constexpr std::uint32_t kMaximumRows = 1'000'000;

    /// `record` may be null and must outlive the form, as must all services.
    ParameterForm(DialogParameterRecord* record, const FormServices& services);

    /// Lays an empty grid out: two columns and the header.
    void SetUpGrid(GridModel& grid) const;

    /// Looks the memory area up and fills the grid with the record's value. Without a value:
    /// false, and the message to show; none without a record.
    [[nodiscard]] bool Open(GridModel& grid, std::string& message);

    /// The record, none when the dialog was opened without.
    [[nodiscard]] const std::optional<DialogRecord>& Record() const { return record_; }

    /// What the memory area is called: the record's names or, without these, its type's.
    [[nodiscard]] const std::string& AreaName() const { return areaName_; }

    [[nodiscard]] const FormatChoice& Formats() const { return formats_; }
    [[nodiscard]] std::uint32_t VectorLength() const { return vectorLength_; }

    /// What becomes of the elements that a shorter vector no longer shows.
    enum class DroppedElements {
        Forget,  ///< they are zero when the vector grows again
        Keep,    ///< they come back: the length is still being typed
    };

    /// Takes the values back and lays them out anew at another length. False, with everything as it
    /// was, when the vector cannot be laid out.
    [[nodiscard]] bool ChangeVectorLength(GridModel& grid, std::uint32_t length,
                                          DroppedElements dropped);

    /// The length is no longer being typed: forgets what was kept.
    void ForgetDroppedElements();

    /// Takes the values back and lays them out anew in another format. False, with everything as it
    /// was, when the value cannot be laid out any more.
    [[nodiscard]] bool ChangeFormat(GridModel& grid, values::DisplayFormat format);

    /// To be called when the user has changed a value's text.
    void NormalizeText(GridModel& grid, int row) const;

    /// Gives the names the system's present colours.
    void ColourNames(GridModel& grid) const;

    /// Takes the values back for good. False when one of them cannot be converted.
    [[nodiscard]] bool TakeBack(GridModel& grid);

    /// The value's type, null when the definitions do not hold it (any more).
    [[nodiscard]] const memstruct::TypeDef* Type() const;

    /// The value's bytes as of the last taking back.
    [[nodiscard]] values::ConstValueBuffer Value() const { return bytes_; }

    /// Writes everything into the record. False, with the record unchanged, when there is no
    /// memory.
    [[nodiscard]] bool Store(std::uint32_t boxWidth);

  private:
    [[nodiscard]] bool ReadRows(GridModel& grid, DroppedElements dropped);
    void WriteRows(GridModel& grid, const memstruct::TypeDef& type);
    [[nodiscard]] std::uint64_t ValueSize(std::uint32_t length) const;

    FormServices services_;
    std::optional<DialogRecord> record_;
    std::vector<std::uint8_t> bytes_;
    std::string areaName_;
    FormatChoice formats_;
    std::uint32_t vectorLength_ = 1;
};

}  // namespace orvell::ui
