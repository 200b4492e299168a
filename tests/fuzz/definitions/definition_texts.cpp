#include "fuzz/definitions/definition_texts.h"

#include <array>
#include <initializer_list>
#include <utility>
#include <vector>

#include "fuzz/input.h"

namespace orvell::fuzz {

namespace {

/// An attribute's name and its text, null for an attribute that is missing.
using Attribute = std::pair<const char*, const char*>;

/// Writes one file, with one level of lists below the root and anything below these.
class FileWriter {
  public:
    FileWriter() { Open("Definitions", {}); }

    void Open(const char* name, std::initializer_list<Attribute> attributes) {
        text_ += '<';
        text_ += name;
        for (const auto& [attribute, value] : attributes) {
            if (value != nullptr) {
                text_.append(" ").append(attribute).append("=\"").append(value).append("\"");
            }
        }
        text_ += '>';
        open_.push_back(name);
        ++elementCount_;
    }

    /// Goes back to where an element of the root's level, a list or a type is to be added.
    void CloseTo(std::size_t depth) {
        while (open_.size() > depth) {
            text_ += std::string("</") + open_.back() + '>';
            open_.pop_back();
        }
    }

    void OpenList(const char* name) {
        CloseTo(1);
        Open(name, {});
    }

    /// Goes back to the list of this name that is open, or begins one.
    void ToList(const char* name) {
        CloseTo(2);
        if (open_.size() < 2 || std::string_view(open_.back()) != name) {
            OpenList(name);
        }
    }

    void Append(const char* text) { text_ += text; }

    [[nodiscard]] std::string Close() {
        CloseTo(0);
        return std::move(text_);
    }

    [[nodiscard]] std::size_t ElementCount() const { return elementCount_; }

  private:
    std::string text_;
    std::vector<const char*> open_;
    std::size_t elementCount_ = 0;
};

constexpr std::size_t kMostElements = 250;

/// Few names, so that they meet; at the end those of types that need no definition.
constexpr std::array<const char*, 20> kNames = {
    "A", "B", "C",   "D",   "E",   "F",   "G",     "H",      "a",    "\xE4",
    "",  " ", " A ", "B\t", "A.B", "[0]", "FLOAT", "DOUBLE", "TIME", nullptr};

constexpr std::array<const char*, 16> kBaseTypes = {
    "Structured", "INT",  "UINT",   "FLOAT",     "DOUBLE",        "STRING",
    "DURATION",   "TIME", "DATE",   "DATE+TIME", "OLE-DATE+TIME", "Enumerated",
    "int",        "",     " UINT ", nullptr};

constexpr std::array<const char*, 24> kNumbers = {
    "0",   "1",     "2",          "3",          "4",          "5",
    "7",   "8",     "9",          "16",         "100",        "255",
    "256", "65536", "2147483648", "4294967295", "4294967296", "99999999999999999999",
    "-1",  "12x",   "",           " 1",         "0x10",       nullptr};

constexpr std::array<const char*, 6> kFormats = {"DD.MM.YYYY", "MM/DD/YYYY", "mm/dd/yyyy",
                                                 "YYYY",       "",           nullptr};

template <std::size_t size>
const char* Pick(const std::array<const char*, size>& texts, Input& input) {
    return texts[input.TakeByte() % size];
}

void AddType(FileWriter& file, Input& input) {
    file.ToList("TypeList");
    const char* const name = Pick(kNames, input);
    const char* const baseType = Pick(kBaseTypes, input);
    const char* const size = Pick(kNumbers, input);
    file.Open("Type", {{"Name", name},
                       {"BaseType", baseType},
                       {"Size", size},
                       {"Format", Pick(kFormats, input)}});
}

/// An element of a structure and an item of an enumeration at once; the type takes what it needs.
void AddItem(FileWriter& file, Input& input) {
    file.CloseTo(3);
    const char* const name = Pick(kNames, input);
    const char* const type = Pick(kNames, input);
    const char* const dimension = Pick(kNumbers, input);
    file.Open("Item", {{"Name", name},
                       {"Type", type},
                       {"Dimension", dimension},
                       {"Value", Pick(kNumbers, input)}});
}

void AddArea(FileWriter& file, Input& input) {
    file.ToList("MemoryList");
    const char* const id = Pick(kNumbers, input);
    file.Open("Memory", {{"ID", id}, {"Type", Pick(kNames, input)}});
}

/// Types in a row, each with up to three elements of the next one: a chain, a diamond that would be
/// walked for ever if every way through it were taken, or a ring when the last one is the first.
void AddRow(FileWriter& file, Input& input) {
    const unsigned length = input.TakeByte();
    const unsigned width = 1 + input.TakeByte() % 3;
    const char* const dimension = Pick(kNumbers, input);
    const char* const first = Pick(kNames, input);
    const char* const last = Pick(kNames, input);
    file.ToList("TypeList");
    for (unsigned index = 0; index < length && file.ElementCount() < kMostElements; ++index) {
        file.CloseTo(2);
        const std::string name = "Row" + std::to_string(index);
        const std::string next = "Row" + std::to_string(index + 1);
        file.Open("Type",
                  {{"Name", index == 0 ? first : name.c_str()}, {"BaseType", "Structured"}});
        for (unsigned item = 0; item < width; ++item) {
            file.CloseTo(3);
            file.Open("Item", {{"Name", kNames[item]},
                               {"Type", index + 1 == length ? last : next.c_str()},
                               {"Dimension", dimension}});
        }
    }
}

void AddDepth(FileWriter& file, Input& input) {
    const unsigned depth = 2 * input.TakeByte();
    for (unsigned level = 0; level < depth && file.ElementCount() < kMostElements; ++level) {
        file.Open("Item", {{"Name", "deep"}});
    }
}

void TakeStep(FileWriter& file, Input& input, std::uint8_t step) {
    constexpr std::array<const char*, 4> kLists = {"TypeList", "MemoryList", "typelist", "Type"};
    switch (step % 9) {
        case 0:
            return AddType(file, input);
        case 1:
        case 2:
            return AddItem(file, input);
        case 3:
            return AddArea(file, input);
        case 4:
            return file.OpenList(Pick(kLists, input));
        case 5:
            return AddRow(file, input);
        case 6:
            return AddDepth(file, input);
        case 7:
            return file.Append(input.TakeByte() % 2 == 0 ? "<!-- note -->" : "text");
        default:
            return file.CloseTo(1 + input.TakeByte() % 4);
    }
}

}  // namespace

DefinitionTexts DecodeDefinitions(std::span<const std::uint8_t> input) {
    constexpr std::uint8_t kNextFile = 0xFE;
    DefinitionTexts texts;
    Input rest(input);
    const std::uint8_t library = rest.TakeByte();
    texts.givesOtherNodes = (library & 1) != 0;
    texts.staysBroken = (library & 2) != 0;
    if (library >= 0x80) {
        texts.failingCall = 1U + rest.TakeByte() + (library & 0x7CU) * 0x40U;
    }
    texts.count = rest.TakeByte();

    FileWriter files[2];
    FileWriter* file = &files[0];
    while (!rest.IsEmpty() && file->ElementCount() < kMostElements) {
        const std::uint8_t step = rest.TakeByte();
        if (step == kEndOfSteps) {
            break;
        }
        if (step == kNextFile) {
            file = &files[1];
        } else {
            TakeStep(*file, rest, step);
        }
    }
    texts.definitions = files[0].Close();
    if (file == &files[1]) {
        texts.exported = files[1].Close();
    }
    const std::string_view value = rest.TakeRest();
    texts.value = input.last(value.size());
    return texts;
}

}  // namespace orvell::fuzz
