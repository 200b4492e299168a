// Files that end anywhere: what lies before the cut is kept.

#include <algorithm>

#include "paramlist/csv_file_writer.h"
#include "paramlist/field_text.h"
#include "paramlist/list_file_reader.h"
#include "paramlist/list_file_writer.h"
#include "unit/paramlist/csv_import_fixture.h"

namespace orvell::paramlist {
namespace {

class CutFilesTest : public test::CsvImportFixture {
  protected:
    CutFilesTest() {
        Add("E3.5", "Taster links", "Taster \"Ein\"", "1");
        Add("PW12", "F\xFCllung", "", "-5");
        Add("PT7", "Text", "c;d", "\"Birnen\"; rot");
        Add("DTPARA1", "Zeitpunkt", "x", "1608791400");
        cut.BuildKinds();
    }

    static constexpr const char* kAddresses[] = {"E3.5", "PW12", "PT7", "DTPARA1"};

    /// How much of a CSV record lies before a cut.
    enum class Part {
        Nothing,  ///< no whole address
        Inside,
        UpToTheComment,  ///< the rest may be taken for a short comment
        Whole,
    };

    Part PartBefore(std::size_t size, const std::string& text, std::string_view address) {
        const std::size_t begin = text.find('\n' + std::string(address) + ';') + 1;
        const std::size_t end = text.find('\r', begin);
        const ParameterAddress parsed = list.ParseAddress(address);
        std::string comment;
        AppendQuoted(comment, parsed.kind->Find(parsed.number)->Comment());
        const std::size_t commentBegin = end - comment.size();
        if (size <= begin + address.size()) {
            return Part::Nothing;
        }
        // A CR that nothing follows is a character, and none may follow the closing mark.
        if (size < commentBegin || size == end + 1) {
            return Part::Inside;
        }
        if (size >= end) {
            return Part::Whole;
        }
        const std::string_view before = std::string_view(comment).substr(0, size - commentBegin);
        return std::count(before.begin(), before.end(), '"') % 2 == 0 ? Part::UpToTheComment
                                                                      : Part::Inside;
    }

    ParameterList cut{strings};
};

TEST_F(CutFilesTest, AListFileGivesTheRecordsBeforeTheCut) {
    test::MemorySink sink;
    ASSERT_TRUE(WriteListFile(list, strings, sink));
    const std::string& text = sink.text;
    std::vector<std::size_t> begins;         // of the records: behind the blank before their "0"
    std::vector<std::size_t> commentBegins;  // from their first character on nothing is missing
    std::vector<std::size_t> ends;
    for (std::size_t at = text.find(" 0 "); at != std::string::npos;
         at = text.find(" 0 ", at + 1)) {
        begins.push_back(at + 1);
        commentBegins.push_back(text.find("C : ", at) + 4);
        ends.push_back(text.find('\n', commentBegins.back()));
    }
    ASSERT_EQ(begins.size(), std::size(kAddresses));

    for (std::size_t size = 0; size <= text.size(); ++size) {
        cut.ClearAll();
        test::MemorySource bytes(text.substr(0, size), 7);
        const bool isRead = ReadListFile(cut, strings, bytes, ListFileScope::AllEntries);

        for (std::size_t index = 0; index < std::size(kAddresses); ++index) {
            const std::string expected = Entry(kAddresses[index]);
            const std::string found = Entry(cut, kAddresses[index]);
            if (size >= ends[index]) {
                EXPECT_EQ(found.substr(0, expected.size()), expected) << size;
            } else if (size > commentBegins[index]) {
                EXPECT_NE(found, "none") << size << ": the comment is cut";
            } else {
                EXPECT_EQ(found, "none") << size;
            }
        }
        const std::size_t lastLine = text.substr(0, size).rfind('\n') + 1;
        const bool isAtLineStart =
            text.find_first_not_of(' ', lastLine) >= size && size <= begins[0];
        EXPECT_EQ(isRead, isAtLineStart || size > commentBegins[0]) << size;
    }
}

TEST_F(CutFilesTest, ACsvFileGivesTheRecordsBeforeTheCut) {
    test::MemorySink sink;
    ASSERT_TRUE(WriteCsvFile(list, strings, sink));
    const std::string& text = sink.text;

    for (std::size_t size = 0; size <= text.size(); ++size) {
        cut.ClearAll();
        std::size_t warnings = 0;
        for (const char* const address : kAddresses) {
            const ParameterAddress parsed = cut.ParseAddress(address);
            parsed.kind->Obtain(parsed.number, false);
            const Part part = PartBefore(size, text, address);
            warnings += part == Part::Inside ? 1 : 0;
        }
        EXPECT_EQ(Read(cut, text.substr(0, size)).size(), warnings) << size;

        for (const char* const address : kAddresses) {
            const std::string found = Entry(cut, address);
            const std::string whole = Entry(address);
            switch (PartBefore(size, text, address)) {
                case Part::Nothing:
                case Part::Inside:
                    EXPECT_EQ(found, "|undefined|") << size;
                    break;
                case Part::UpToTheComment:
                    EXPECT_EQ(found.substr(0, whole.rfind('|') + 1),
                              whole.substr(0, whole.rfind('|') + 1))
                        << size;
                    EXPECT_TRUE(whole.starts_with(found)) << size << found;
                    break;
                case Part::Whole:
                    EXPECT_EQ(found, whole) << size;
                    break;
            }
        }
    }
}

}  // namespace
}  // namespace orvell::paramlist
