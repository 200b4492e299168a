#include "ui/grid/grid_choices.h"

#include <utility>

namespace orvell::ui {

GridChoiceList::GridChoiceList(std::vector<std::string> texts)
    : texts_(std::move(texts)), index_(texts_.begin(), texts_.end()) {}

}  // namespace orvell::ui
