#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvell::test {

/// An element, or a text or comment under the names "#text" and "#comment".
struct FakeNode {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    FakeNode* firstChild = nullptr;
    FakeNode* lastChild = nullptr;
    FakeNode* next = nullptr;

    /// The attribute's value, null when there is none.
    [[nodiscard]] const std::string* Attribute(std::string_view attributeName) const;
    void SetAttribute(std::string_view attributeName, std::string_view value);
};

/// A tree of nodes. Reading, writing and freeing it need no stack that grows with its depth.
class FakeDocument {
  public:
    FakeDocument() = default;
    FakeDocument(const FakeDocument&) = delete;
    FakeDocument& operator=(const FakeDocument&) = delete;

    /// Adds a node behind the children of `parent`; without a parent it becomes the root.
    FakeNode* Add(FakeNode* parent, std::string_view name);

    [[nodiscard]] FakeNode* Root() const { return root_; }

    /// Reads a file's text; the empty string on success, otherwise what is wrong.
    [[nodiscard]] std::string Read(std::string_view text);

    [[nodiscard]] std::string Write() const;

  private:
    std::deque<FakeNode> nodes_;
    FakeNode* root_ = nullptr;
};

}  // namespace orvell::test
