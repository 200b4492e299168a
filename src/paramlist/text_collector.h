#pragma once

#include <string>
#include <string_view>

namespace orvell::paramlist {

/// Collects a field's characters from the pieces of a text. What lies in one run within one piece
/// is not copied.
class TextCollector {
  public:
    TextCollector() = default;
    TextCollector(const TextCollector&) = delete;
    TextCollector& operator=(const TextCollector&) = delete;

    void Clear() { text_ = {}; }

    [[nodiscard]] bool IsEmpty() const { return text_.empty(); }

    /// Adds characters of the present piece.
    void Append(std::string_view run) {
        if (text_.empty()) {
            text_ = run;
        } else if (text_.data() + text_.size() == run.data()) {  // behind the copy lies its NUL
            text_ = {text_.data(), text_.size() + run.size()};
        } else {
            AppendToCopy(run);
        }
    }

    /// To be called before the present piece goes away.
    void Keep() {
        if (!text_.empty()) {
            AppendToCopy({});
        }
    }

    /// Valid until the text is changed or the piece goes away.
    [[nodiscard]] std::string_view View() const { return text_; }

  private:
    void AppendToCopy(std::string_view run) {
        if (text_.data() != copy_.data()) {
            copy_ = text_;
        }
        copy_ += run;
        text_ = copy_;
    }

    std::string_view text_;  ///< part of the present piece, or the whole copy
    std::string copy_;
};

}  // namespace orvell::paramlist
