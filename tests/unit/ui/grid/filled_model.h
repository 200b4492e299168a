#pragma once

#include <string>

#include "ui/grid/grid_model.h"

namespace orvell::test {

/// A heading and `rows` rows, "name 1" with the value "value 1" and so on.
inline ui::GridModel FilledModel(int rows) {
    ui::GridModel model;
    model.SetFixedRowCount(1);
    model.SetColumnCount(2);
    model.SetRowCount(1);
    for (int row = 1; row <= rows; ++row) {
        model.InsertRow("name " + std::to_string(row));
        model.SetItemText(row, 1, "value " + std::to_string(row));
    }
    return model;
}

}  // namespace orvell::test
