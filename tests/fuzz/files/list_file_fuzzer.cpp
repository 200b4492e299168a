// List files: the product's reader against the reference, and the way from a list into a file and
// back.
//
// The first byte tells what the others are: bit 0 set, a list to be written, a long one if the byte
// is "y"; else a file, which only changes existing entries if bit 1 is set. The second is the
// rhythm of the portions in which files come.

#include "fuzz/files/file_losses.h"
#include "fuzz/files/german_strings.h"
#include "fuzz/files/list_file_reference.h"
#include "fuzz/files/made_list.h"
#include "fuzz/files/portioned_source.h"
#include "fuzz/input.h"
#include "fuzz/require.h"
#include "paramlist/list_file_writer.h"
#include "unit/paramlist/byte_stream_fakes.h"

namespace orvell::fuzz {
namespace {

using paramlist::ListFileScope;
using paramlist::ParameterList;

bool Read(ParameterList& list, std::string_view bytes, std::uint32_t rhythm, ListFileScope scope) {
    PortionedSource source(bytes, rhythm);
    return ReadListFile(list, GermanStrings(), source, scope);
}

std::string Write(const ParameterList& list) {
    test::MemorySink sink;
    Require(WriteListFile(list, GermanStrings(), sink), "a sink that takes everything is enough");
    return std::move(sink.text);
}

/// Reads the file into `list`, and in portions into `other`, which has the same entries.
void ReadAsReferenceDoes(ParameterList& list, ParameterList& other, std::string_view bytes,
                         std::uint32_t rhythm, ListFileScope scope) {
    ReferenceList reference(PlainListOf(list));
    const bool expected = ReadListFileByReference(reference, bytes, scope);
    Require(Read(list, bytes, 0, scope) == expected, "reading succeeds as the reference does");
    RequireEqual(PlainListOf(list), reference.Entries(),
                 "the reader finds what the reference does");
    Require(Read(other, bytes, rhythm, scope) == expected, "portions do not change the result");
    RequireEqual(PlainListOf(other), reference.Entries(), "portions do not change the list");
}

/// What has been saved and loaded is the list but for the losses that are documented, and from then
/// on always the same.
void WriteAndReadTwice(const ParameterList& list, std::uint32_t rhythm) {
    const PlainList before = PlainListOf(list);
    const bool isCarried = HasNoneOf(before, list.ProjectName(), kForeignToListFile);
    const std::string written = Write(list);
    ParameterList& once = EmptyList(Place::ReadBack);
    ParameterList& inPortions = EmptyList(Place::ReadBackInPortions);
    ReadAsReferenceDoes(once, inPortions, written, rhythm, ListFileScope::AllEntries);
    const PlainList afterOnce = PlainListOf(once);
    if (isCarried) {
        RequireEqual(afterOnce, AfterListFile(before), "a list loses what is documented");
    }

    once.SetProjectName(list.ProjectName());
    const std::string writtenAgain = Write(once);
    Require(!isCarried || !IsListFileLasting(before) || writtenAgain == written,
            "what has been saved and loaded is saved as the same bytes");
    once.SetProjectName("");
    ParameterList& twice = EmptyList(Place::ReadBackAgain);
    Require(Read(twice, Write(once), rhythm, ListFileScope::AllEntries), "an export can be read");
    RequireEqual(PlainListOf(twice), AfterListFile(afterOnce), "what files carry stays");
}

void ReadFile(std::string_view bytes, std::uint32_t rhythm, ListFileScope scope) {
    ParameterList& list = EmptyList(Place::Start);
    ParameterList& other = EmptyList(Place::StartInPortions);
    if (scope == ListFileScope::ExistingEntries) {
        AddOldEntries(list);
        AddOldEntries(other);
    }
    const PlainList before = PlainListOf(list);
    ReadAsReferenceDoes(list, other, bytes, rhythm, scope);
    const PlainList after = PlainListOf(list);
    Require(HasNoneOf(after, "", kForeignToListFile), "files bring only what files can carry");
    ParameterList& changed = EmptyList(Place::Changed);
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
        ParameterList& list = EmptyList(Place::Start);
        MakeList(list, input);
        if (mode == 'y') {
            MakeLong(list);
        }
        WriteAndReadTwice(list, rhythm);
    } else {
        ReadFile(input.TakeRest(), rhythm,
                 (mode & 2) != 0 ? ListFileScope::ExistingEntries : ListFileScope::AllEntries);
    }
    return 0;
}
