#include <array>

#include "fuzz/boundary/host_memory.h"
#include "fuzz/boundary/session.h"
#include "fuzz/boundary/vocabulary.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

using Texts = std::optional<std::string>;

constexpr std::size_t kSignalAddressBytes = 31;

std::uint16_t ChooseVectorLength(Program& program) {
    constexpr std::array<std::uint16_t, 8> kCounts = {1, 2, 0, 3, 4, 9, 40, 300};
    return program.Pick(kCounts);
}

/// The values' bytes one behind the other.
template <typename Values>
std::string BytesOfAll(const Values& values) {
    std::string bytes;
    for (const auto& value : values) {
        bytes += BytesOf(value);
    }
    return bytes;
}

void FillDoubles(Session& session, Program& program) {
    const Texts address = ChooseAddress(program);
    std::vector<double> values(ChooseVectorLength(program));
    for (std::size_t i = 0; i < std::min<std::size_t>(values.size(), 4); ++i) {
        values[i] = ChooseNumber(program);
    }
    if (program.Choose(8) == 7) {
        session.management.SetDoubleVector(HostText(address).Pointer(), nullptr, 0xFFFFFFFF);
        return;
    }
    HostMemory memory(BytesOfAll(values));
    session.management.SetDoubleVector(HostText(address).Pointer(), memory.As<double>(),
                                       static_cast<std::uint32_t>(values.size()));
    session.list.FillVector(OrEmpty(address), values, SetNumber);
}

/// What consecutive numbers give by `get(type, value)`, 0 in place of what there is not.
template <typename Number, typename Get>
std::string VectorAt(Session& session, const ModelAddress& address, std::uint32_t count,
                     const Get& get) {
    std::vector<Number> numbers;
    for (std::uint32_t index = 0; index < count; ++index) {
        const ModelEntry* const entry =
            session.list.EntryToRead(*address.kind, address.number + index);
        const auto number = entry != nullptr ? get(address.kind->type, entry->value) : std::nullopt;
        numbers.push_back(number.value_or(Number{0}));
    }
    return BytesOfAll(numbers);
}

/// Calls `call(address, destination, count)` and compares what it has written.
template <typename Number, typename Get, typename Call>
void GetVector(Session& session, Program& program, std::uint16_t count, const Get& get,
               const Call& call) {
    const Texts addressText = ChooseAddress(program);
    const ModelAddress address = session.list.Parse(OrEmpty(addressText));
    HostMemory destination(count * sizeof(Number));
    const std::string expected = address.kind != nullptr
                                     ? VectorAt<Number>(session, address, count, get)
                                     : destination.Bytes();
    HostMemory countMemory(BytesOf(count));
    HostText text(addressText);
    call(text.Pointer(), nullptr, countMemory.As<std::uint16_t>());
    call(text.Pointer(), destination.As<Number>(), nullptr);
    call(text.Pointer(), destination.As<Number>(), countMemory.As<std::uint16_t>());
    RequireSame(destination.Bytes(), expected, "consecutive values are given");
    RequireSame(countMemory.Bytes(), BytesOf(count), "a count is left alone");
}

void GetWords(Session& session, Program& program) {
    const std::uint16_t count = ChooseVectorLength(program);
    GetVector<std::uint16_t>(session, program, count, WordOf,
                             [](const char* address, std::uint16_t* words, std::uint16_t* number) {
                                 STDSIL_GetWordVector(address, words, 0xFFFFFFFF, number);
                             });
}

void GetWord(Session& session, Program& program) {
    const auto call = program.Decide() ? STDSIL_GetBitValue : STDSIL_GetWordValue;
    GetVector<std::uint16_t>(
        session, program, 1, WordOf,
        [call](const char* address, std::uint16_t* word, std::uint16_t* count) {
            call(address, count != nullptr ? word : nullptr);
        });
}

void GetDoubles(Session& session, Program& program) {
    const std::uint16_t count = ChooseVectorLength(program);
    GetVector<double>(session, program, count, NumberOf,
                      [](const char* address, double* numbers, std::uint16_t* number) {
                          STDSIL_GetFloatValue(address, number, numbers);
                      });
}

/// A signal of `size` bytes that begins with an address.
HostMemory MakeSignal(const Texts& address, std::size_t size) {
    HostMemory signal(size);
    signal.Put(0, (OrEmpty(address) + '\0').substr(0, kSignalAddressBytes));
    return signal;
}

/// The address as the module must understand it: a signal has room for no more.
std::string SignalAddress(const Texts& address) {
    return OrEmpty(address).substr(0, kSignalAddressBytes);
}

void SetSignalText(Session& session, Program& program) {
    const Texts address = ChooseAddress(program);
    const std::string text = OrEmpty(ChooseText(program));
    HostMemory signal = MakeSignal(address, kSignalAddressBytes + text.size() + 1);
    signal.Put(kSignalAddressBytes, text + '\0');
    STDSIL_SetTextValue(signal.Data());
    STDSIL_SetTextValue(nullptr);
    const ModelAddress parsed = session.list.Parse(SignalAddress(address));
    if (parsed.kind != nullptr) {
        if (ModelEntry* const entry = session.list.EntryToWrite(*parsed.kind, parsed.number)) {
            SetText(parsed.kind->type, entry->value, text);
        }
    }
}

void GetSignalText(Session& session, Program& program) {
    constexpr std::size_t kOffset = 35;
    constexpr std::size_t kBytes = 18;
    const Texts address = ChooseAddress(program);
    HostMemory signal = MakeSignal(address, kOffset + kBytes);
    std::string expected = signal.Bytes();
    const ModelAddress parsed = session.list.Parse(SignalAddress(address));
    if (parsed.kind != nullptr) {
        const ModelEntry* const entry = session.list.EntryToRead(*parsed.kind, parsed.number);
        std::string text =
            entry != nullptr ? TextOf(parsed.kind->type, entry->value).value_or("") : "";
        text.resize(kBytes - 1);
        text.resize(kBytes);
        expected.replace(kOffset, kBytes, text);
    }
    STDSIL_GetStringValue(signal.Data());
    STDSIL_GetStringValue(nullptr);
    RequireSame(signal.Bytes(), expected, "a signal takes the text and zeros behind it");
}

void FillSignal(Session& session, Program& program) {
    const Texts address = ChooseAddress(program);
    std::vector<std::uint32_t> values(ChooseVectorLength(program));
    for (std::size_t i = 0; i < std::min<std::size_t>(values.size(), 4); ++i) {
        values[i] = static_cast<std::uint32_t>(ChooseInteger(program));
    }
    const std::string bytes = BytesOfAll(values);
    HostMemory signal = MakeSignal(address, kSignalAddressBytes + bytes.size());
    signal.Put(kSignalAddressBytes, bytes);
    HostMemory count(BytesOf(static_cast<std::uint16_t>(values.size())));
    STDSIL_SetTXValue(signal.Data(), nullptr);
    STDSIL_SetTXValue(signal.Data(), count.As<std::uint16_t>());
    session.list.FillVector(SignalAddress(address), values, SetDword);
}

void GetSignalVector(Session& session, Program& program) {
    const Texts address = ChooseAddress(program);
    const std::uint16_t count = ChooseVectorLength(program);
    HostMemory signal = MakeSignal(address, kSignalAddressBytes + count * sizeof(std::uint32_t));
    std::string expected = signal.Bytes();
    const ModelAddress parsed = session.list.Parse(SignalAddress(address));
    if (parsed.kind != nullptr) {
        expected.replace(kSignalAddressBytes, std::string::npos,
                         VectorAt<std::uint32_t>(session, parsed, count, DwordOf));
    }
    HostMemory countMemory(BytesOf(count));
    STDSIL_GetTXValue(signal.Data(), nullptr);
    STDSIL_GetTXValue(signal.Data(), countMemory.As<std::uint16_t>());
    RequireSame(signal.Bytes(), expected, "a signal takes consecutive values");
}

constexpr std::array kVectorOperations = {
    Operation{'v', FillDoubles}, Operation{'G', GetWords},        Operation{'W', GetWord},
    Operation{'F', GetDoubles},  Operation{'k', SetSignalText},   Operation{'K', GetSignalText},
    Operation{'y', FillSignal},  Operation{'Y', GetSignalVector},
};

}  // namespace

std::span<const Operation> VectorOperations() {
    return kVectorOperations;
}

}  // namespace orvell::fuzz
