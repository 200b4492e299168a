// CSV files: the product's reader against the reference, with all its warnings, and the way from a
// list into a file and back.
//
// The first byte tells what the others are: bit 0 set, a list to be written, a long one if the byte
// is "y" or "}"; else a file, which is read into some old entries. If bit 2 is set the month is
// first in dates. The second byte is the rhythm of the portions in which files come.

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

struct Manner {
    std::uint32_t rhythm;  ///< of the portions in which files come
    DateOrder order;
};

PlainWarnings Read(ParameterList& list, std::string_view bytes, const Manner& manner) {
    PortionedSource source(bytes, manner.rhythm);
    WarningNotes notes;
    ReadCsvFile(list, GermanStrings(manner.order), source, WarningNotes::kPath, notes);
    Require(notes.isEnded, "an import ends");
    return std::move(notes.warnings);
}

std::string Write(const ParameterList& list, DateOrder order) {
    test::MemorySink sink;
    Require(WriteCsvFile(list, GermanStrings(order), sink),
            "a sink that takes everything is enough");
    return std::move(sink.text);
}

/// Reads the file into `list`, and in portions into `other`, which has the same entries.
PlainWarnings ReadAsReferenceDoes(ParameterList& list, ParameterList& other, std::string_view bytes,
                                  const Manner& manner) {
    ReferenceList reference(PlainListOf(list));
    const PlainWarnings expected = ReadCsvFileByReference(reference, bytes);
    RequireEqual(Read(list, bytes, {0, manner.order}), expected,
                 "the reader warns as the reference does");
    RequireEqual(PlainListOf(list), reference.Entries(),
                 "the reader finds what the reference does");
    RequireEqual(Read(other, bytes, manner), expected, "portions do not change the warnings");
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
void WriteAndReadTwice(const ParameterList& list, const Manner& manner) {
    const PlainList before = PlainListOf(list);
    const bool isCarried = HasNoneOf(before, list.ProjectName(), kForeignToCsvFile);
    const std::string written = Write(list, manner.order);
    ParameterList& once = EmptyList(Place::ReadBack);
    AddOthers(once, before);
    ParameterList& inPortions = EmptyList(Place::ReadBackInPortions);
    AddOthers(inPortions, before);
    const PlainList others = PlainListOf(once);
    const PlainWarnings warnings = ReadAsReferenceDoes(once, inPortions, written, manner);
    if (!isCarried) {
        return;
    }
    const CsvOutcome expected = AfterCsvFile(before, others);
    RequireEqual(warnings, expected.warnings, "only what is rounded too large is refused");
    RequireEqual(PlainListOf(once), expected.list, "a list loses what is documented");

    once.SetProjectName(list.ProjectName());
    const std::string writtenAgain = Write(once, manner.order);
    Require(!IsCsvFileLasting(before) || writtenAgain == written,
            "what has been exported and imported is exported as the same bytes");
    ParameterList& twice = EmptyList(Place::ReadBackAgain);
    AddOthers(twice, before);
    Read(twice, writtenAgain, manner);
    RequireEqual(PlainListOf(twice), PlainListOf(once), "what files carry stays");
}

void ReadFile(std::string_view bytes, const Manner& manner) {
    ParameterList& list = EmptyList(Place::Start);
    ParameterList& other = EmptyList(Place::StartInPortions);
    AddOldEntries(list);
    AddOldEntries(other);
    const PlainList before = PlainListOf(list);
    ReadAsReferenceDoes(list, other, bytes, manner);
    const PlainList after = PlainListOf(list);
    Require(HasNoneOf(after, "", kForeignToCsvFile), "files bring only what files can carry");
    ParameterList& changed = EmptyList(Place::Changed);
    AddChanged(changed, after, before);
    WriteAndReadTwice(changed, manner);
}

}  // namespace
}  // namespace orvell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvell::fuzz;
    constexpr std::uint8_t kIsMonthFirst = 0x04;
    Input input({data, size});
    const std::uint8_t mode = input.TakeByte();
    const Manner manner = {input.TakeByte(), (mode & kIsMonthFirst) != 0 ? DateOrder::MonthFirst
                                                                         : DateOrder::DayFirst};
    if ((mode & 1) != 0) {
        ParameterList& list = EmptyList(Place::Start);
        MakeList(list, input);
        if (mode == 'y' || mode == '}') {
            MakeLong(list);
        }
        WriteAndReadTwice(list, manner);
    } else {
        ReadFile(input.TakeRest(), manner);
    }
    return 0;
}
