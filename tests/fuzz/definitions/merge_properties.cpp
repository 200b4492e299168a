#include "fuzz/definitions/merge_properties.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "fuzz/definitions/definition_model.h"

namespace orvell::fuzz {

using test::FakeDocument;
using test::FakeNode;

namespace {

using Key = std::optional<std::string>;

struct Kind {
    const char* list;
    const char* element;
    Key (*keyOf)(const FakeNode&);
};

Key NameOf(const FakeNode& type) {
    const std::string* name = type.Attribute("Name");
    return name == nullptr ? std::nullopt : Key(*name);
}

Key IdOf(const FakeNode& area) {
    const auto id = NumberOf(area, "ID");
    return id ? Key(std::to_string(*id)) : std::nullopt;
}

constexpr Kind kTypes = {"TypeList", "Type", NameOf};
constexpr Kind kAreas = {"MemoryList", "Memory", IdOf};

/// What is added to the destination's first list of a kind.
struct Addition {
    const Kind* kind;
    std::vector<Key> known;
    std::string text;
};

template <typename Visit>
void ForEachChild(const FakeNode& parent, std::string_view name, const Visit& visit) {
    for (const FakeNode* child = parent.firstChild; child != nullptr; child = child->next) {
        if (child->name == name) {
            visit(*child);
        }
    }
}

void AppendTree(std::string& text, const FakeNode& node);

void AppendStart(std::string& text, const FakeNode& node) {
    text += '<' + node.name;
    for (const auto& [name, value] : node.attributes) {
        text += ' ' + name + '=' + value;
    }
    text += '>';
}

void AppendChildren(std::string& text, const FakeNode& node) {
    for (const FakeNode* child = node.firstChild; child != nullptr; child = child->next) {
        AppendTree(text, *child);
    }
}

void AppendTree(std::string& text, const FakeNode& node) {
    if (!node.name.starts_with('#')) {
        AppendStart(text, node);
        AppendChildren(text, node);
        text += "</>";
    }
}

Addition KnownOf(const Kind& kind, const FakeNode& root) {
    Addition addition{&kind, {}, ""};
    ForEachChild(root, kind.list, [&](const FakeNode& list) {
        ForEachChild(list, kind.element, [&](const FakeNode& element) {
            addition.known.push_back(kind.keyOf(element));
        });
    });
    return addition;
}

void AddFrom(const FakeNode& list, Addition& addition) {
    ForEachChild(list, addition.kind->element, [&](const FakeNode& element) {
        const Key key = addition.kind->keyOf(element);
        auto& known = addition.known;
        if (key && std::find(known.begin(), known.end(), key) == known.end()) {
            known.push_back(key);
            AppendTree(addition.text, element);
        }
    });
}

}  // namespace

std::string ExpectedMerge(const FakeDocument& source, const FakeDocument& destination) {
    const FakeNode& root = *destination.Root();
    Addition types = KnownOf(kTypes, root);
    Addition areas = KnownOf(kAreas, root);
    std::vector<Addition*> inOrder;  // as they had something to add
    for (const FakeNode* list = source.Root()->firstChild; list != nullptr; list = list->next) {
        for (Addition* addition : {&types, &areas}) {
            if (list->name == addition->kind->list) {
                AddFrom(*list, *addition);
                if (!addition->text.empty() &&
                    std::find(inOrder.begin(), inOrder.end(), addition) == inOrder.end()) {
                    inOrder.push_back(addition);
                }
            }
        }
    }
    std::string text;
    AppendStart(text, root);
    for (const FakeNode* child = root.firstChild; child != nullptr; child = child->next) {
        if (child->name.starts_with('#')) {
            continue;
        }
        AppendStart(text, *child);
        AppendChildren(text, *child);
        const auto added = std::find_if(inOrder.begin(), inOrder.end(), [&](Addition* addition) {
            return child->name == addition->kind->list;
        });
        if (added != inOrder.end()) {
            text += (*added)->text;
            inOrder.erase(added);
        }
        text += "</>";
    }
    for (const Addition* addition : inOrder) {
        text.append("<").append(addition->kind->list).append(">");
        text.append(addition->text).append("</>");
    }
    return text + "</>";
}

std::string TreeText(const FakeDocument& document) {
    std::string text;
    AppendTree(text, *document.Root());
    return text;
}

}  // namespace orvell::fuzz
