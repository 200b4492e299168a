// Reads, merges and uses definitions that the XML library gives from generated files.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>

#include "fuzz/definitions/definition_texts.h"
#include "fuzz/definitions/merge_properties.h"
#include "fuzz/definitions/store_properties.h"
#include "fuzz/definitions/value_properties.h"
#include "fuzz/require.h"
#include "memstruct/definition_merge.h"
#include "memstruct/definition_reader.h"
#include "resources/built_in_strings.h"
#include "unit/memstruct/fake_xml_library.h"

namespace orvell::fuzz {
namespace {

constexpr const char* kDefinitions = "definitions.xml";
constexpr const char* kExported = "exported.xml";

class FixedClock final : public platform::LocalClock {
  public:
    [[nodiscard]] platform::CivilTime Now() const override { return {2024, 2, 29, 12, 0, 0}; }
};

/// Ends the program when the calls of the library since this object began are more than so many for
/// each tag of the files.
class BoundedCalls {
  public:
    BoundedCalls(const test::FakeXmlLibrary& library, std::size_t callsPerTag)
        : library_(library), before_(library.calls), callsPerTag_(callsPerTag) {}

    void Check(std::initializer_list<const std::string*> files) const {
        constexpr std::uint64_t kCallsForTheFile = 50;
        std::uint64_t tags = 0;
        for (const std::string* file : files) {
            tags += static_cast<std::uint64_t>(std::count(file->begin(), file->end(), '<'));
        }
        Require(library_.calls - before_ <= kCallsForTheFile + callsPerTag_ * tags,
                "the library is called linearly in the files");
    }

  private:
    const test::FakeXmlLibrary& library_;
    std::uint64_t before_;
    std::uint64_t callsPerTag_;
};

/// The library with both files, and a store.
class Definitions {
  public:
    explicit Definitions(const DefinitionTexts& texts) : texts_(texts) {
        loader_.libraries["XML.DLL"] = test::FakeXmlLibrary::Functions();
        Require(xml_.Bind(loader_, "XML.DLL"), "the library has all functions");
        library_.files = {{kDefinitions, texts.definitions}, {kExported, texts.exported}};
        library_.givesOtherNodes = texts.givesOtherNodes;
        library_.failingCall = texts.failingCall;
        library_.staysBroken = texts.staysBroken;
    }

    ~Definitions() {
        xml_.Unbind();
        Require(library_.Complaints().empty(), "all has been given back");
    }
    Definitions(const Definitions&) = delete;
    Definitions& operator=(const Definitions&) = delete;

    void Check() {
        Load();
        const bool merges = !texts_.exported.empty();
        if (library_.failingCall == 0) {
            const auto definitions = Parsed(texts_.definitions);
            const DefinitionModel model = ModelOf(*definitions);
            CheckStore(store_, model);
            CheckSomeValues(model);
            if (merges) {
                CheckMerging(*definitions);
            }
        } else if (merges) {
            Merge();
        }
    }

  private:
    static std::unique_ptr<test::FakeDocument> Parsed(const std::string& text) {
        auto document = std::make_unique<test::FakeDocument>();
        Require(document->Read(text).empty(), "files are well-formed");
        return document;
    }

    void Load() {
        const BoundedCalls calls(library_, 8);
        store_.Clear();
        store_.AddImplicitTypes();
        memstruct::XmlDocument document(xml_);
        static_cast<void>(document.Open(kDefinitions));
        memstruct::DefinitionReader(store_, Strings()).Read(document.Root());
        store_.ResolveReferences();
        calls.Check({&library_.files[kDefinitions]});
    }

    void CheckMerging(const test::FakeDocument& definitions) {
        Merge();
        const auto merged = Parsed(library_.files[kDefinitions]);
        Require(TreeText(*merged) == ExpectedMerge(*Parsed(texts_.exported), definitions),
                "what was missing has been added");
        Load();
        CheckStore(store_, ModelOf(*merged));
        Merge();
        Require(library_.files[kDefinitions] == merged->Write(), "merging twice changes nothing");
    }

    /// Merges the second file into the first.
    void Merge() {
        const std::string before = library_.files[kDefinitions];
        const BoundedCalls calls(library_, 16);
        memstruct::XmlDocument source(xml_);
        memstruct::XmlDocument destination(xml_);
        if (source.Open(kExported) && destination.Open(kDefinitions)) {
            memstruct::MergeDefinitions(source.Root(), destination.Root());
            static_cast<void>(destination.Save(kDefinitions));
        }
        calls.Check({&before, &texts_.exported});
    }

    void CheckSomeValues(const DefinitionModel& model) const {
        constexpr std::size_t kMostTypes = 8;
        constexpr std::size_t kMostBytes = 256;
        const auto bytes = texts_.value.first(std::min(texts_.value.size(), kMostBytes));
        const std::size_t typeCount = model.types.size();
        for (std::size_t i = 0; i < std::min(typeCount, kMostTypes); ++i) {
            const std::size_t type = (texts_.count + typeCount - 1 - i) % typeCount;
            CheckValues(store_, model, converters_, type, texts_.count, bytes);
        }
    }

    static const resources::StringTable& Strings() {
        static const resources::BuiltInStrings source;
        static const resources::StringTable strings(source);
        return strings;
    }

    const DefinitionTexts& texts_;
    test::FakeXmlLibrary library_;
    test::FakeLoader loader_;
    memstruct::XmlAccessBinding xml_{Strings()};
    FixedClock clock_;
    values::ValueConverterSet converters_{clock_};
    memstruct::MemoryStructureStore store_{Strings(), xml_, converters_};
};

}  // namespace
}  // namespace orvell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto texts = orvell::fuzz::DecodeDefinitions({data, size});
    orvell::fuzz::Definitions(texts).Check();
    return 0;
}
