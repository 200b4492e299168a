#include "value_work.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "failure.h"
#include "project_files.h"
#include "target_system.h"

namespace orvell::soak {

namespace {

constexpr std::uint32_t kCount = 2;  ///< elements of the vector that is worked on

std::string_view Bytes(const void* bytes, std::uint32_t length) {
    return {static_cast<const char*>(bytes), length};
}

class ValueWork {
  public:
    ValueWork(const ModuleHost& host, OutputHash& output) : slots_(host.slots), output_(output) {}

    void Run() {
        ReadAndShow();
        ChangeByTexts();
        TakeFromList();
        WriteBack();
        Fill();
        AskForTypes();
    }

  private:
    static ParameterRecord Record(void* bytes = nullptr, std::uint32_t length = 0) {
        ParameterRecord record{};
        record.size = sizeof record;
        record.identifier = kAllArea;
        record.count = kCount;
        record.bytes = bytes;
        record.length = length;
        return record;
    }

    void ReadAndShow() {
        ParameterRecord record = Record();
        std::uint32_t volatile cancel = 0;
        Require(slots_.ReadStdParameterOnline(&record, &online_, &cancel) == 1, "reading fails");
        Require(slots_.CheckStdParameter(&record) == 1, "a value that was read is not whole");
        output_.Add(Bytes(record.bytes, record.length));
        for (record.format = 0; record.format < 4; ++record.format) {
            char* text = slots_.GetStdParameterText(&record);
            output_.Add(text);
            slots_.FreeStdMemory(text);
        }
        record.format = 0;
        value_.assign(static_cast<const char*>(record.bytes), record.length);
        slots_.FreeStdParameter(&record);
    }

    /// Every second text of the value with its digits turned round.
    void ChangeByTexts() {
        ParameterRecord record = Record(value_.data(), static_cast<std::uint32_t>(value_.size()));
        NameListNode* list = slots_.GetStdParameterTextList(&record);
        std::uint32_t leaves = 0;
        for (const NameListNode* node = list; node != nullptr; node = node->next) {
            output_.Add(node->first);
            output_.Add(node->second);
            if (++leaves % 2 == 0) {
                Turn(node->second);
            }
        }
        Require(leaves == kAllLeafCount * kCount, "a value has too few or too many leaves");
        ParameterDescriptionRecord wanted = Description(kAllArea, kCount);
        wanted.texts = list;
        Resolve(wanted);
        slots_.FreeStdTextList(list);
    }

    /// Makes another number of a number; most other texts become such as do not fit.
    static void Turn(char* text) {
        if (text[0] == '1' || text[0] == '2') {
            text[0] = static_cast<char>('1' + '2' - text[0]);
        }
    }

    static ParameterDescriptionRecord Description(std::int32_t area, std::uint32_t count) {
        ParameterDescriptionRecord record{};
        record.size = sizeof record;
        record.identifier = area;
        record.count = count;
        return record;
    }

    /// Builds the value; what comes of it replaces the present one if it is as long.
    void Resolve(ParameterDescriptionRecord& wanted) {
        Require(slots_.ResolveStdParameter(&wanted) == 1, "a value cannot be built");
        const std::string_view bytes = Bytes(wanted.bytes, wanted.length);
        output_.Add(bytes);
        if (bytes.size() == value_.size()) {
            value_.assign(bytes);
        }
        slots_.FreeStdMemory(wanted.bytes);
    }

    void TakeFromList() {
        constexpr std::uint32_t kNumbers = 8;
        for (const char* address : {"PW1", "PL1", "OLEDTPARA1", "PT1", "E0.1"}) {
            ParameterDescriptionRecord wanted = Description(kWordArea, kNumbers);
            wanted.address = address;
            Resolve(wanted);
        }
        ParameterDescriptionRecord wanted = Description(kAllArea, kCount);
        wanted.address = "PF1";
        Resolve(wanted);
    }

    void WriteBack() {
        ParameterRecord record = Record(value_.data(), static_cast<std::uint32_t>(value_.size()));
        std::uint32_t volatile cancel = 0;
        TargetSystem::Clear();
        Require(slots_.WriteStdParameterOnline(&record, &online_, &cancel) == 1, "writing fails");
        output_.Add(TargetSystem::Written());
        TargetSystem::Clear();
        Require(slots_.ConvertStdParameter(&record, &online_) == 1, "converting fails");
        output_.Add(TargetSystem::Written());
    }

    void Fill() {
        FillRecord fill{sizeof fill, TargetSystem::Fill};
        ParameterRecord record = Record();
        Require(slots_.FillStdParameterValue(&record, &fill) == 1, "filling fails");
        Require(slots_.FillStdParameterValueInPlace(&record, &fill) == 1, "filling anew fails");
        output_.Add(Bytes(record.bytes, record.length));
        slots_.FreeStdParameter(&record);
    }

    void Add(TypeInformationRecord& record) {
        output_.Add(record.name);
        output_.Add(record.baseTypeName);
        output_.AddWord(record.storedSize);
        output_.AddWord(record.count);
        slots_.FreeStdTypeInfo(&record);
    }

    void AskForTypes() {
        for (const std::int32_t area : {kWordArea, kModeArea, kAllArea}) {
            output_.AddWord(slots_.GetStdStructSize(area));
            TypeInformationRecord type{};
            type.size = sizeof type;
            Require(slots_.GetStdTypeInfo(area, &type) == 1, "an area is unknown");
            Add(type);
            const bool isStructure = slots_.GetStdStructInfo(area, &type) == 1;
            Require(isStructure == (area == kAllArea), "an area is not what it was defined as");
            Add(type);
            AskForElements(area);
            AskForEnumerators(area);
        }
    }

    void AskForElements(std::int32_t area) {
        for (std::uint32_t index = 0;; ++index) {
            ElementRecord element{};
            element.size = sizeof element;
            element.index = index;
            TypeInformationRecord type{};
            type.size = sizeof type;
            if (slots_.GetStdStructMemberInfo(area, &element, &type) == 0) {
                return;
            }
            output_.Add(element.name);
            output_.AddWord(element.offset);
            slots_.FreeStdElementRecord(&element);
            Add(type);
        }
    }

    void AskForEnumerators(std::int32_t area) {
        for (std::uint32_t position = 0;; ++position) {
            TypeInformationRecord type{};
            type.size = sizeof type;
            if (slots_.GetStdEnumInfo(area, position, &type) == 0) {
                return;
            }
            Add(type);
        }
    }

    const StdParaFunctionTable& slots_;
    OutputHash& output_;
    OnlineAccessRecord online_ = TargetSystem::Functions();
    std::string value_;
};

}  // namespace

void WorkOnValues(const ModuleHost& host, OutputHash& output) {
    ValueWork(host, output).Run();
}

void EditValue(ModuleHost& host) {
    constexpr std::array<std::uint8_t, 6> kExpected{5, 0, 0, 0, 0, 0};
    DialogParameterRecord record{};
    record.size = sizeof record;
    record.mode = 1;
    record.identifier = kWordArea;
    record.count = 1;
    record.length = 2;
    record.bytes = std::malloc(record.length);
    std::memcpy(record.bytes, kExpected.data(), record.length);
    record.name = "Pump";
    record.format = 0x80;
    Require(host.EditAsVectorOfThree(record) == 1, "editing is not accepted");
    Require(record.count == 3 && record.length == kExpected.size() &&
                std::memcmp(record.bytes, kExpected.data(), kExpected.size()) == 0,
            "what was edited is not as the user wants it");
    host.slots.FreeStdMemory(record.bytes);
}

}  // namespace orvell::soak
