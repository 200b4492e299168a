#include <cstdlib>
#include <cstring>
#include <functional>

#include "slots_fixture.h"

namespace orvell::host {
namespace {

/// Edits as the test tells it.
class FakeEditor final : public ui::ParameterEditor {
  public:
    bool Edit(DialogParameterRecord* record, const OnlineAccessRecord& host,
              const ui::EditorServices& services) override {
        ++calls;
        online = host;
        resources = services.resources;
        return edit(record);
    }

    int calls = 0;
    OnlineAccessRecord online{};
    void* resources = nullptr;
    std::function<bool(DialogParameterRecord*)> edit = [](DialogParameterRecord*) { return false; };
};

std::int32_t ORVELL_CALL Put8(std::uint32_t, std::uint32_t, std::uint8_t) {
    return 1;
}

class EditSlotTest : public SlotsTest {
  protected:
    EditSlotTest() {
        SystemServices services = TestServices();
        services.editor = &editor;
        UseModule(services);
        record.size = sizeof(record);
        record.mode = 1;
        record.identifier = kWord;
        record.count = 1;
        record.blockLength = 4;
        record.block = std::malloc(4);
        record.length = 2;
        record.bytes = std::malloc(2);
        record.name = "Pump";
        record.extension = "Limit";
        record.format = 0x81;
    }

    ~EditSlotTest() override {
        std::free(record.block);
        std::free(record.bytes);
    }

    /// Gives the record's value a longer block, as the dialog does.
    static void Lengthen(DialogParameterRecord* edited) {
        std::free(edited->bytes);
        edited->bytes = std::malloc(6);
        std::memset(edited->bytes, 7, 6);
        edited->length = 6;
        edited->count = 3;
    }

    FakeEditor editor;
    DialogParameterRecord record{};
};

TEST_F(EditSlotTest, TheRecordIsTheModulesWhileTheUserEdits) {
    const DialogParameterRecord before = record;
    editor.edit = [&](DialogParameterRecord* edited) {
        EXPECT_EQ(std::memcmp(edited, &before, sizeof(before)), 0);
        DialogParameterRecord empty{};
        empty.size = sizeof(empty);
        EXPECT_EQ(std::memcmp(&record, &empty, sizeof(empty)), 0) << "moved, not copied";
        return false;
    };
    EXPECT_EQ(slots::EditStdParameter(&record, nullptr), 0);
    EXPECT_EQ(editor.calls, 1);
    EXPECT_EQ(std::memcmp(&record, &before, sizeof(before)), 0);
}

TEST_F(EditSlotTest, WhatIsAcceptedMovesBack) {
    const void* block = record.block;
    editor.edit = [](DialogParameterRecord* edited) {
        Lengthen(edited);
        edited->boxWidth = 20;
        edited->format = 0x83;
        return true;
    };
    EXPECT_EQ(slots::EditStdParameter(&record, nullptr), 1);
    EXPECT_EQ(record.size, sizeof(record));
    EXPECT_EQ(record.count, 3U);
    EXPECT_EQ(record.length, 6U);
    EXPECT_EQ(static_cast<std::uint8_t*>(record.bytes)[5], 7);
    EXPECT_EQ(record.boxWidth, 20U);
    EXPECT_EQ(record.format, 0x83);
    EXPECT_EQ(record.block, block) << "carried through";
    EXPECT_EQ(record.blockLength, 4U);
    EXPECT_STREQ(record.name, "Pump");
}

TEST_F(EditSlotTest, ShortRecordsGetWhatFitsAndNothingBehind) {
    for (std::uint32_t size = 4; size < sizeof(DialogParameterRecord); ++size) {
        DialogParameterRecord full = record;
        full.size = size;
        full.block = std::malloc(4);
        full.bytes = std::malloc(2);
        unsigned char memory[sizeof(full)];
        std::memset(memory, 0xCC, sizeof(memory));
        std::memcpy(memory, &full, size);
        unsigned char before[sizeof(memory)];
        std::memcpy(before, memory, sizeof(memory));
        auto* hostRecord = reinterpret_cast<DialogParameterRecord*>(memory);

        editor.edit = [&](DialogParameterRecord* edited) {
            EXPECT_EQ(edited->bytes, size >= 36 ? full.bytes : nullptr) << size;
            EXPECT_EQ(edited->block, size >= 28 ? full.block : nullptr) << size;
            EXPECT_EQ(edited->name, size >= 44 ? full.name : nullptr) << size;
            return false;
        };
        EXPECT_EQ(slots::EditStdParameter(hostRecord, nullptr), 0);
        EXPECT_EQ(std::memcmp(memory, before, sizeof(memory)), 0) << size;

        editor.edit = [](DialogParameterRecord* edited) {
            Lengthen(edited);
            return true;
        };
        EXPECT_EQ(slots::EditStdParameter(hostRecord, nullptr), 1);
        EXPECT_EQ(std::memcmp(memory + size, before + size, sizeof(memory) - size), 0) << size;
        EXPECT_EQ(hostRecord->size, size);
        if (size >= 20) {
            EXPECT_EQ(hostRecord->count, 3U) << size;
        }
        if (size >= 36) {
            std::free(hostRecord->bytes);
        } else {
            std::free(full.bytes);  // never reached the module, which freed its own
        }
        std::free(full.block);
    }
}

TEST_F(EditSlotTest, WithoutARecordTheEditorIsAskedAllTheSame) {
    editor.edit = [](DialogParameterRecord* edited) {
        EXPECT_EQ(edited, nullptr);
        return false;
    };
    EXPECT_EQ(slots::EditStdParameter(nullptr, nullptr), 0);
    EXPECT_EQ(editor.calls, 1);
}

TEST_F(EditSlotTest, TheEditorGetsTheHostsFunctionsAsFarAsTheyReach) {
    OnlineAccessRecord access{};
    access.size = sizeof(access);
    access.alternative.Put8 = Put8;
    access.alternative.Put16 = [](std::uint32_t, std::uint32_t, std::uint16_t) { return 1; };
    EXPECT_EQ(slots::EditStdParameter(&record, &access), 0);
    EXPECT_EQ(editor.online.alternative.Put8, Put8);
    access.size = offsetof(OnlineAccessRecord, alternative) + 6;
    EXPECT_EQ(slots::EditStdParameter(&record, &access), 0);
    EXPECT_EQ(editor.online.alternative.Put8, Put8);
    EXPECT_EQ(editor.online.alternative.Put16, nullptr) << "half a pointer";
    EXPECT_EQ(slots::EditStdParameter(&record, nullptr), 0);
    EXPECT_EQ(editor.online.alternative.Put8, nullptr);
}

TEST_F(EditSlotTest, AnExceptionGivesTheRecordBackUnchanged) {
    const DialogParameterRecord before = record;
    editor.edit = [](DialogParameterRecord*) -> bool { throw std::bad_alloc(); };
    EXPECT_EQ(slots::EditStdParameter(&record, nullptr), 0);
    EXPECT_EQ(std::memcmp(&record, &before, sizeof(before)), 0);
}

TEST_F(EditSlotTest, ModulesWithoutAnEditorRefuse) {
    UseModule(TestServices());
    const DialogParameterRecord before = record;
    EXPECT_EQ(slots::EditStdParameter(&record, nullptr), 0);
    EXPECT_EQ(std::memcmp(&record, &before, sizeof(before)), 0);
    EXPECT_EQ(editor.calls, 0);
}

}  // namespace
}  // namespace orvell::host
