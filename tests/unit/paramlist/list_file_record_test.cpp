// Records in the writer's own layout, which are read without the machine's states.

#include "paramlist/list_file_record.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "paramlist/list_file_machine.h"

namespace orvell::paramlist {
namespace {

const std::string kPlainRecord =
    " 0 PW           12 N : Soll@wert\n"
    "                   D : @-5\n"
    "                   C : %%\n";

/// The fields between bars and what is left behind the record, "none" when there is no record.
std::string Scanned(const std::string& text) {
    ListFileRecord record;
    const char* const end = text.data() + text.size();
    const char* const behind = ScanWrittenRecord(text.data(), end, record);
    if (behind == nullptr) {
        return "none";
    }
    return std::string(record.keyword) + '|' + std::to_string(record.number) + '|' +
           std::string(record.name) + '|' + std::string(record.value) + '|' +
           std::string(record.comment) + '|' + std::string(behind, end);
}

TEST(ScanWrittenRecord, FindsTheFieldsAsTheyAreWritten) {
    EXPECT_EQ(Scanned(kPlainRecord), "PW|12|Soll@wert|@-5|%%|");
    EXPECT_EQ(Scanned(kPlainRecord + kPlainRecord), "PW|12|Soll@wert|@-5|%%|" + kPlainRecord);
    EXPECT_EQ(Scanned(kPlainRecord.substr(1)), "PW|12|Soll@wert|@-5|%%|");
    EXPECT_EQ(Scanned(" 0 INT64PARAMETER 4294967297 N : n\n                   D : \xFF\r\n"
                      "                   C : a,b\n 2"),
              "INT64PARAMETER|1|n|\xFF\r|a,b| 2");
}

TEST(ScanWrittenRecord, LeavesEveryOtherLayoutToTheMachine) {
    for (std::size_t length = 0; length < kPlainRecord.size(); ++length) {
        EXPECT_EQ(Scanned(kPlainRecord.substr(0, length)), "none") << length;
    }
    for (std::size_t place = 0; place < kPlainRecord.size(); ++place) {
        std::string text = kPlainRecord;
        if (text[place] == ' ') {
            text[place] = '\t';
            EXPECT_EQ(Scanned(text), "none") << place;
        } else if (text[place] == '\n') {
            text[place] = ' ';
            EXPECT_EQ(Scanned(text), "none") << place;
        }
    }
    EXPECT_EQ(Scanned(" 1" + kPlainRecord.substr(2)), "none");
    EXPECT_EQ(Scanned("\n" + kPlainRecord), "none");
    EXPECT_EQ(Scanned(" 0 PW x12 N : n\n                   D : v\n                   C : c\n"),
              "none");
    EXPECT_EQ(Scanned(" 0 PW 12 N : \n                   D : v\n                   C : c\n"),
              "none");
}

class CountedRecords : public ListFileRecords {
  public:
    void TakeOver(const ListFileRecord& record) override {
        text += std::string(record.keyword) + '|' + std::to_string(record.number) + '|' +
                std::string(record.name) + '|' + std::string(record.value) + '|' +
                std::string(record.comment) + '\n';
        ++count;
    }

    std::string text;
    int count = 0;
};

/// The records in a text that comes in portions, and the machine's result.
struct Reading {
    std::string text;
    int count;
};

Reading Read(const std::string& text, std::size_t portion) {
    CountedRecords records;
    ListFileMachine machine(records);
    for (std::size_t start = 0; start < text.size(); start += portion) {
        machine.Consume(std::string_view(text).substr(start, portion));
    }
    records.text += machine.Finish() ? "good" : "bad";
    return {records.text, records.count};
}

/// Some records, a few of their characters exchanged, inserted or left out.
std::string DamagedRecords(std::mt19937& random) {
    constexpr std::string_view kCharacters = " \t\n\r@0123NDC:x\xFF";
    std::string text;
    for (int count = 0; count < 6; ++count) {
        text += kPlainRecord;
    }
    for (std::uint32_t damage = random() % 6; damage > 0; --damage) {
        const std::size_t place = random() % text.size();
        const char character = kCharacters[random() % kCharacters.size()];
        switch (random() % 3) {
            case 0:
                text[place] = character;
                break;
            case 1:
                text.insert(place, 1, character);
                break;
            default:
                text.erase(place, 1);
                break;
        }
    }
    return text;
}

TEST(ScanWrittenRecord, AgreesWithTheMachineOnDamagedRecords) {
    std::mt19937 random(1);
    int recordCount = 0;
    for (int round = 0; round < 3'000; ++round) {
        const std::string text = DamagedRecords(random);
        // Single characters never hold a whole record: all of them go through the states.
        const Reading byStates = Read(text, 1);
        ASSERT_EQ(Read(text, text.size()).text, byStates.text) << text;
        ASSERT_EQ(Read(text, 100).text, byStates.text) << text;
        recordCount += byStates.count;
    }
    EXPECT_GT(recordCount, 12'000) << "most records are to be found";
}

}  // namespace
}  // namespace orvell::paramlist
