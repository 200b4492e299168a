#include "fake_xml_text.h"

#include <array>

namespace orvell::test {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

struct Entity {
    std::string_view escaped;
    char character;
};

constexpr std::array<Entity, 5> kEntities{
    {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        std::string_view replacement(&character, 1);
        for (const Entity& entity : kEntities) {
            if (entity.character == character) {
                replacement = entity.escaped;
            }
        }
        escaped += replacement;
    }
    return escaped;
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t next = text.find('&'); next != std::string_view::npos; next = text.find('&')) {
        plain += text.substr(0, next);
        text.remove_prefix(next);
        char character = '&';
        std::size_t length = 1;
        for (const Entity& entity : kEntities) {
            if (text.starts_with(entity.escaped)) {
                character = entity.character;
                length = entity.escaped.size();
            }
        }
        plain += character;
        text.remove_prefix(length);
    }
    return plain.append(text);
}

/// Reads elements, attributes, texts and comments; declarations are skipped.
class TextReader {
  public:
    TextReader(FakeDocument& document, std::string_view text) : document_(document), rest_(text) {}

    std::string Run() {
        while (error_.empty() && !rest_.empty()) {
            ReadText();
            ReadMarkup();
        }
        if (error_.empty() && (!open_.empty() || document_.Root() == nullptr)) {
            error_ = "unexpected end of file";
        }
        return error_;
    }

  private:
    void Fail(const char* reason) {
        error_ = reason;
        rest_ = {};
    }

    std::string_view Take(std::size_t length) {
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    std::string_view TakeUntilAnyOf(std::string_view characters) {
        return Take(rest_.find_first_of(characters));
    }

    void SkipBlanks() { Take(rest_.find_first_not_of(kBlanks)); }

    bool TakePrefix(std::string_view prefix) {
        const bool found = rest_.starts_with(prefix);
        if (found) {
            rest_.remove_prefix(prefix.size());
        }
        return found;
    }

    void SkipBehind(std::string_view end) {
        const std::size_t position = rest_.find(end);
        if (position == std::string_view::npos) {
            Fail("unexpected end of file");
        } else {
            rest_.remove_prefix(position + end.size());
        }
    }

    void ReadText() {
        const std::string_view text = Take(rest_.find('<'));
        if (text.find_first_not_of(kBlanks) == std::string_view::npos) {
            return;
        }
        if (open_.empty()) {
            Fail("text outside of the root");
        } else {
            document_.Add(open_.back(), "#text");
        }
    }

    void ReadMarkup() {
        if (rest_.empty()) {
            return;
        }
        if (TakePrefix("<!--")) {
            SkipBehind("-->");
            if (!open_.empty()) {
                document_.Add(open_.back(), "#comment");
            }
        } else if (TakePrefix("<?") || TakePrefix("<!")) {
            SkipBehind(">");
        } else if (TakePrefix("</")) {
            ReadEnd();
        } else {
            Take(1);
            ReadStart();
        }
    }

    void ReadEnd() {
        const std::string_view name = TakeUntilAnyOf(" \t\r\n>");
        SkipBlanks();
        if (open_.empty() || open_.back()->name != name || !TakePrefix(">")) {
            Fail("end tag without start tag");
        } else {
            open_.pop_back();
        }
    }

    void ReadStart() {
        const std::string_view name = TakeUntilAnyOf(" \t\r\n/>=<");
        if (name.empty() || (open_.empty() && document_.Root() != nullptr)) {
            Fail("unexpected start tag");
            return;
        }
        FakeNode* node = document_.Add(open_.empty() ? nullptr : open_.back(), name);
        for (SkipBlanks(); error_.empty(); SkipBlanks()) {
            if (TakePrefix("/>")) {
                return;
            }
            if (TakePrefix(">")) {
                open_.push_back(node);
                return;
            }
            ReadAttribute(*node);
        }
    }

    void ReadAttribute(FakeNode& node) {
        const std::string_view name = TakeUntilAnyOf(" \t\r\n=/<>");
        SkipBlanks();
        if (name.empty() || !TakePrefix("=")) {
            Fail("malformed attribute");
            return;
        }
        SkipBlanks();
        const std::string_view quote = Take(1);
        if (quote != "\"" && quote != "'") {
            Fail("malformed attribute");
            return;
        }
        const std::string_view value = TakeUntilAnyOf(quote);
        if (!TakePrefix(quote) || node.Attribute(name) != nullptr) {
            Fail("malformed attribute");
            return;
        }
        node.attributes.emplace_back(name, Unescaped(value));
    }

    FakeDocument& document_;
    std::string_view rest_;
    std::vector<FakeNode*> open_;
    std::string error_;
};

void WriteStart(const FakeNode& node, std::string& text) {
    text += '<' + node.name;
    for (const auto& [name, value] : node.attributes) {
        text += ' ' + name + "=\"" + Escaped(value) + '"';
    }
    text += node.firstChild == nullptr ? "/>" : ">";
}

}  // namespace

const std::string* FakeNode::Attribute(std::string_view attributeName) const {
    for (const auto& [name_, value] : attributes) {
        if (name_ == attributeName) {
            return &value;
        }
    }
    return nullptr;
}

void FakeNode::SetAttribute(std::string_view attributeName, std::string_view value) {
    for (auto& [name_, old] : attributes) {
        if (name_ == attributeName) {
            old = value;
            return;
        }
    }
    attributes.emplace_back(attributeName, value);
}

FakeNode* FakeDocument::Add(FakeNode* parent, std::string_view name) {
    FakeNode& node = nodes_.emplace_back();
    node.name = name;
    if (parent == nullptr) {
        root_ = &node;
        return &node;
    }
    (parent->lastChild == nullptr ? parent->firstChild : parent->lastChild->next) = &node;
    parent->lastChild = &node;
    return &node;
}

std::string FakeDocument::Read(std::string_view text) {
    return TextReader(*this, text).Run();
}

std::string FakeDocument::Write() const {
    std::string text = "<?xml version=\"1.0\"?>\n";
    std::vector<const FakeNode*> open;
    for (const FakeNode* node = root_; node != nullptr || !open.empty();) {
        if (node == nullptr) {
            text += "</" + open.back()->name + ">\n";
            node = open.back()->next;
            open.pop_back();
            continue;
        }
        if (node->name.front() != '#') {
            WriteStart(*node, text);
            if (node->firstChild != nullptr) {
                open.push_back(node);
                node = node->firstChild;
                continue;
            }
        }
        node = node->next;
    }
    return text;
}

}  // namespace orvell::test
