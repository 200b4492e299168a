// CSV files: the product's reader against the reference, with all its warnings, and the way from a
// list into a file and back.
//
// The first byte tells what the others are: bit 0 set, a list to be written; else a file, which is
// read into some old entries. The second is the rhythm of the portions in which files come.

#include "fuzz/files/csv_file_reference.h"
#include "fuzz/files/file_losses.h"
#include "fuzz/files/german_strings.h"
#include "fuzz/files/made_list.h"
#include "fuzz/files/portioned_source.h"
#include "fuzz/input.h"
#include "fuzz/require.h"
#include "paramlist/csv_file_reader.h"
#include "paramlist/csv_file_writer.h"
#include "unit/paramlist/byte_stream_fakes.h"

namespace orvell::fuzz {
namespace {

using paramlist::ParameterList;

class WarningNotes : public paramlist::ImportWarnings {
  public:
    void Start(const std::string& path) override {
        Require(path == kPath && !isStarted, "an import starts once, with its path");
        isStarted = true;
    }

    void Warning(resources::StringId message, std::uint32_t line,
                 std::optional<std::string_view> argument) override {
        Require(isStarted && !isEnded, "warnings come between start and end");
        const auto number = static_cast<std::uint32_t>(message);
        warnings.push_back(argument ? PlainWarning(number, line, *argument)
                                    : PlainWarning(number, line));
    }

    void End(std::int32_t warningCount) override {
        Require(static_cast<std::size_t>(warningCount) == warnings.size(), "warnings are counted");
        Require(isStarted && !isEnded, "an import ends once");
        isEnded = true;
    }

    static constexpr const char* kPath = "C:\\A.CSV";
    PlainWarnings warnings;
    bool isStarted = false;
    bool isEnded = false;
};

PlainWarnings Read(ParameterList& list, std::string_view bytes, std::uint32_t rhythm) {
    PortionedSource source(bytes, rhythm);
    WarningNotes notes;
    ReadCsvFile(list, GermanStrings(), source, WarningNotes::kPath, notes);
    Require(notes.isEnded, "an import ends");
    return std::move(notes.warnings);
}

std::string Write(const ParameterList& list) {
    test::MemorySink sink;
    Require(WriteCsvFile(list, GermanStrings(), sink), "a sink that takes everything is enough");
    return std::move(sink.text);
}

/// Reads the file into `list`, and in portions into `other`, which has the same entries.
PlainWarnings ReadAsReferenceDoes(ParameterList& list, ParameterList& other, std::string_view bytes,
                                  std::uint32_t rhythm) {
    ReferenceList reference(PlainListOf(list));
    const PlainWarnings expected = ReadCsvFileByReference(reference, bytes);
    RequireEqual(Read(list, bytes, 0), expected, "the reader warns as the reference does");
    RequireEqual(PlainListOf(list), reference.Entries(),
                 "the reader finds what the reference does");
    RequireEqual(Read(other, bytes, rhythm), expected, "portions do not change the warnings");
    RequireEqual(PlainListOf(other), reference.Entries(), "portions do not change the list");
    return expected;
}

/// Other entries of the same numbers, each once.
void AddOthers(ParameterList& list, const PlainList& entries) {
    for (const PlainEntry& plain : entries) {
        paramlist::ParameterKind& kind = *list.FindKind(plain.keyword);
        paramlist::ParameterEntry& entry = kind.Obtain(plain.number, false);
        entry.SetName("other");
        entry.SetComment("other");
        kind.Handler()->SetFromText(entry.Value(), "7");
    }
}

/// What has been exported and imported is the list but for the losses that are documented, and from
/// then on always the same.
void WriteAndReadTwice(const ParameterList& list, std::uint32_t rhythm) {
    const PlainList before = PlainListOf(list);
    const bool isCarried = HasNoneOf(before, list.ProjectName(), kForeignToCsvFile);
    const std::string written = Write(list);
    ParameterList& once = EmptyList(Place::Third);
    AddOthers(once, before);
    ParameterList& inPortions = EmptyList(Place::Fourth);
    AddOthers(inPortions, before);
    const PlainList others = PlainListOf(once);
    const PlainWarnings warnings = ReadAsReferenceDoes(once, inPortions, written, rhythm);
    if (!isCarried) {
        return;
    }
    const CsvOutcome expected = AfterCsvFile(before, others);
    RequireEqual(warnings, expected.warnings, "only what is rounded too large is refused");
    RequireEqual(PlainListOf(once), expected.list, "a list loses what is documented");

    once.SetProjectName(list.ProjectName());
    const std::string writtenAgain = Write(once);
    Require(!IsCsvFileLasting(before) || writtenAgain == written,
            "what has been exported and imported is exported as the same bytes");
    ParameterList& twice = EmptyList(Place::Fifth);
    AddOthers(twice, before);
    Read(twice, writtenAgain, rhythm);
    RequireEqual(PlainListOf(twice), PlainListOf(once), "what files carry stays");
}

void ReadFile(std::string_view bytes, std::uint32_t rhythm) {
    ParameterList& list = EmptyList(Place::First);
    ParameterList& other = EmptyList(Place::Second);
    AddOldEntries(list);
    AddOldEntries(other);
    const PlainList before = PlainListOf(list);
    ReadAsReferenceDoes(list, other, bytes, rhythm);
    const PlainList after = PlainListOf(list);
    Require(HasNoneOf(after, "", kForeignToCsvFile), "files bring only what files can carry");
    ParameterList& changed = EmptyList(Place::Second);
    AddChanged(changed, after, before);
    WriteAndReadTwice(changed, rhythm);
}

}  // namespace
}  // namespace orvell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvell::fuzz;
    Input input({data, size});
    const std::uint8_t mode = input.TakeByte();
    const std::uint8_t rhythm = input.TakeByte();
    if ((mode & 1) != 0) {
        ParameterList& list = EmptyList(Place::First);
        MakeList(list, input);
        WriteAndReadTwice(list, rhythm);
    } else {
        ReadFile(input.TakeRest(), rhythm);
    }
    return 0;
}
