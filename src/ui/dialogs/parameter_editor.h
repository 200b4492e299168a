#pragma once

#include "memstruct/memory_structure_store.h"
#include "orvell/orvell.h"
#include "platform/message_box.h"
#include "resources/string_table.h"
#include "values/value_converter_set.h"

namespace orvell::ui {

/// What editing a parameter needs of the module.
struct EditorServices {
    const memstruct::MemoryStructureStore& store;
    const values::ValueConverterSet& converters;
    const resources::StringTable& strings;
    platform::MessageBoxes& messageBoxes;
    void* instance;   ///< the module's own instance handle (HINSTANCE)
    void* resources;  ///< the loaded module from which dialogs and images are read first
};

/// Lets the user edit a parameter; the Windows build shows a dialog, tests answer themselves.
class ParameterEditor {
  public:
    ParameterEditor() = default;
    ParameterEditor(const ParameterEditor&) = delete;
    ParameterEditor& operator=(const ParameterEditor&) = delete;
    virtual ~ParameterEditor() = default;

    /// Returns when the user is done. True when the record has been changed as the user wants it;
    /// otherwise it is as it was. `record` may be null: there is nothing to edit then. Its value
    /// bytes come from malloc and may be replaced. `host`: where online values are written.
    [[nodiscard]] virtual bool Edit(DialogParameterRecord* record, const OnlineAccessRecord& host,
                                    const EditorServices& services) = 0;
};

}  // namespace orvell::ui
