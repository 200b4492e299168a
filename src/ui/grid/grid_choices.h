#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace orvell::ui {

/// What a combo cell offers, in this order. Texts are bytes of the ANSI code page.
class GridChoiceList {
  public:
    explicit GridChoiceList(std::vector<std::string> texts);
    GridChoiceList(const GridChoiceList&) = delete;
    GridChoiceList& operator=(const GridChoiceList&) = delete;

    [[nodiscard]] const std::vector<std::string>& Texts() const { return texts_; }

    /// In constant time: pasting asks once a line.
    [[nodiscard]] bool Contains(std::string_view text) const { return index_.contains(text); }

  private:
    std::vector<std::string> texts_;
    std::unordered_set<std::string_view> index_;  ///< into `texts_`
};

/// The cells of one type share one list. Null counts as an empty one.
using GridChoices = std::shared_ptr<const GridChoiceList>;

}  // namespace orvell::ui
