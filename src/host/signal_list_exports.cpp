#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "host/boundary_text.h"
#include "host/guard.h"
#include "host/management_slots.h"
#include "host/module.h"
#include "orvell/orvell.h"
#include "paramlist/value_access.h"

// The parameter list's accessors, as the host finds them among the exports.

namespace orvell::host {

using paramlist::Description;
using paramlist::ParameterEntry;
using paramlist::ParameterList;
using paramlist::ValueForm;

namespace {

// Layout of a signal in bytes. What follows the address is not aligned.
constexpr std::size_t kSignalAddressBytes = 31;
constexpr std::size_t kSignalValueOffset = 31;
constexpr std::size_t kSignalTextOffset = 35;
constexpr std::size_t kSignalTextBytes = 18;

ParameterList& SignalList() {
    return TheModule().parameters;
}

/// Runs the body of an accessor with a truth value as its result.
template <typename Body>
int32_t GuardedTruth(const Body& body) noexcept {
    return Guarded<int32_t>(0, [&] { return body() ? 1 : 0; });
}

std::string_view SignalAddress(const void* signal) {
    const auto* address = static_cast<const char*>(signal);
    return {address, std::find(address, address + kSignalAddressBytes, '\0')};
}

const char* SignalText(const void* signal) {
    return static_cast<const char*>(signal) + kSignalValueOffset;
}

std::uint16_t ReadCount(const std::uint16_t* count) {
    std::uint16_t value = 0;
    std::memcpy(&value, count, sizeof value);
    return value;
}

bool IsKnown(std::string_view address) {
    return SignalList().ParseAddress(address).kind != nullptr;
}

/// Copies a text of the entry's description; an empty one when there is no entry.
bool CopyDescription(const char* address, std::string_view Description::*text, char* buffer,
                     std::uint32_t size) {
    const auto description = paramlist::FindDescription(SignalList(), TextOrEmpty(address));
    CopyCut(description.value_or(Description()).*text, buffer, size);
    return description.has_value();
}

Description NewDescription(const char* name, const char* comment) {
    return {TextOrEmpty(name), TextOrEmpty(comment)};
}

void SetSignalVector(const void* signal, std::uint16_t count) {
    if (count == 0) {
        return;
    }
    std::vector<std::uint32_t> values(count);
    std::memcpy(values.data(), SignalText(signal), values.size() * sizeof(std::uint32_t));
    SignalList().FillVector(SignalAddress(signal), values);
}

void WriteSignalText(void* signal) {
    const std::string_view address = SignalAddress(signal);
    if (!IsKnown(address)) {
        return;
    }
    std::array<std::uint8_t, kSignalTextBytes> text{};
    paramlist::GetValue(SignalList(), address, text, ValueForm::Text);
    std::memcpy(static_cast<char*>(signal) + kSignalTextOffset, text.data(), text.size());
}

}  // namespace

}  // namespace orvell::host

using namespace orvell::host;
using namespace orvell;

extern "C" {

int32_t ORVELL_CALL STDSIL_GetSignalInfo(const char* address, char* name, char* comment) {
    return GuardedTruth([&] {
        CopyDescription(address, &Description::name, name, ParameterEntry::kMaximumNameLength + 1);
        return CopyDescription(address, &Description::comment, comment,
                               ParameterEntry::kMaximumCommentLength + 1);
    });
}

int32_t ORVELL_CALL STDSIL_SetBitParaValue(const char* address, const char* name,
                                           const char* comment, int32_t value) {
    return GuardedTruth([&] {
        return paramlist::SetFromWord(SignalList(), TextOrEmpty(address), value != 0 ? 1 : 0,
                                      NewDescription(name, comment));
    });
}

int32_t ORVELL_CALL STDSIL_SetWordParaValue(const char* address, const char* name,
                                            const char* comment, int32_t value) {
    return GuardedTruth([&] {
        return paramlist::SetFromWord(SignalList(), TextOrEmpty(address),
                                      static_cast<std::uint16_t>(value),
                                      NewDescription(name, comment));
    });
}

int32_t ORVELL_CALL STDSIL_SetFloatParaValue(const char* address, const char* name,
                                             const char* comment, double value) {
    return GuardedTruth([&] {
        return paramlist::SetFromDouble(SignalList(), TextOrEmpty(address), value,
                                        NewDescription(name, comment));
    });
}

int32_t ORVELL_CALL STDSIL_SetTextParaValue(const char* address, const char* name,
                                            const char* comment, const char* value) {
    return GuardedTruth([&] {
        return paramlist::SetFromText(SignalList(), TextOrEmpty(address), OptionalText(value),
                                      NewDescription(name, comment));
    });
}

int32_t ORVELL_CALL STDSIL_SetTXParaValue(const char* address, const char* name,
                                          const char* comment, uint32_t value) {
    return GuardedTruth([&] {
        return paramlist::SetFromDword(SignalList(), TextOrEmpty(address), value,
                                       NewDescription(name, comment));
    });
}

int32_t ORVELL_CALL STDSIL_GetName(const char* address, char* buffer, uint32_t size) {
    return GuardedTruth([&] { return CopyDescription(address, &Description::name, buffer, size); });
}

int32_t ORVELL_CALL STDSIL_SetName(const char* address, const char* name) {
    return GuardedTruth(
        [&] { return paramlist::SetName(SignalList(), TextOrEmpty(address), TextOrEmpty(name)); });
}

int32_t ORVELL_CALL STDSIL_GetComment(const char* address, char* buffer, uint32_t size) {
    return GuardedTruth(
        [&] { return CopyDescription(address, &Description::comment, buffer, size); });
}

int32_t ORVELL_CALL STDSIL_SetComment(const char* address, const char* comment) {
    return GuardedTruth([&] {
        return paramlist::SetComment(SignalList(), TextOrEmpty(address), TextOrEmpty(comment));
    });
}

int32_t ORVELL_CALL STDSIL_GetValue(const char* address, void* buffer, uint32_t length,
                                    uint32_t form) {
    return management::GetValue(address, buffer, length, form);
}

int32_t ORVELL_CALL STDSIL_SetValue(const char* address, void* buffer, uint32_t length,
                                    uint32_t form) {
    return management::SetValue(address, buffer, length, form);
}

void ORVELL_CALL STDSIL_GetBitValue(const char* address, uint16_t* value) {
    STDSIL_GetWordValue(address, value);
}

void ORVELL_CALL STDSIL_GetWordValue(const char* address, uint16_t* value) {
    std::uint16_t single = 1;
    STDSIL_GetWordVector(address, value, 0, &single);
}

void ORVELL_CALL STDSIL_GetWordVector(const char* address, uint16_t* values, uint32_t,
                                      uint16_t* count) {
    if (values != nullptr && count != nullptr) {
        Guarded([&] {
            paramlist::GetWords(SignalList(), TextOrEmpty(address), ReadCount(count), values);
        });
    }
}

void ORVELL_CALL STDSIL_GetFloatValue(const char* address, uint16_t* count, double* values) {
    if (values != nullptr && count != nullptr) {
        Guarded([&] {
            paramlist::GetDoubles(SignalList(), TextOrEmpty(address), ReadCount(count), values);
        });
    }
}

void ORVELL_CALL STDSIL_GetStringValue(void* signal) {
    if (signal != nullptr) {
        Guarded([&] { WriteSignalText(signal); });
    }
}

void ORVELL_CALL STDSIL_SetTextValue(void* signal) {
    if (signal != nullptr) {
        Guarded([&] {
            paramlist::SetFromText(SignalList(), SignalAddress(signal), SignalText(signal));
        });
    }
}

void ORVELL_CALL STDSIL_GetTXValue(void* signal, uint16_t* count) {
    if (signal != nullptr && count != nullptr) {
        Guarded([&] {
            paramlist::GetDwords(SignalList(), SignalAddress(signal), ReadCount(count),
                                 static_cast<char*>(signal) + kSignalValueOffset);
        });
    }
}

void ORVELL_CALL STDSIL_SetTXValue(void* signal, uint16_t* count) {
    if (signal != nullptr && count != nullptr) {
        Guarded([&] { SetSignalVector(signal, ReadCount(count)); });
    }
}

}  // extern "C"
