#include "host/management_slots.h"

#include <cstring>
#include <vector>

#include "host/boundary_text.h"
#include "host/guard.h"
#include "host/module.h"
#include "paramlist/value_access.h"

namespace orvell::host {

using paramlist::Description;
using paramlist::kDeclaredMark;
using paramlist::ParameterAddress;
using paramlist::ParameterList;
using paramlist::ValueForm;

namespace {

ParameterList& List() {
    return TheModule().parameters;
}

bool IsAdmitted() {
    return TheModule().callTokens.Admit();
}

void Declare(std::string_view oldText, std::string_view newText) {
    const ParameterAddress oldAddress = List().ParseAddress(oldText);
    const ParameterAddress newAddress = List().ParseAddress(newText);
    if (newAddress.kind == nullptr) {
        return;
    }
    const bool isSameKind = oldAddress.keyword == newAddress.keyword;
    newAddress.kind->Declare(isSameKind ? oldAddress.number : 0, newAddress.number);
}

Description DescriptionAt(const char* address) {
    return paramlist::FindDescription(List(), TextOrEmpty(address)).value_or(Description());
}

}  // namespace

namespace management {

void ORVELL_CALL ClearList() noexcept {
    Guarded([] {
        List().SetDeclaredOnly(false);
        if (IsAdmitted()) {
            TheModule().projectList.Clear();
        }
    });
}

void ORVELL_CALL BeginUpdate() noexcept {
    Guarded([] {
        List().SetDeclaredOnly(true);
        if (IsAdmitted()) {
            List().SetFlagsAll(kDeclaredMark, /*set=*/false);
        }
    });
}

void ORVELL_CALL DeclareParameter(const char* oldAddress, const char* newAddress) noexcept {
    Guarded([&] { Declare(TextOrEmpty(oldAddress), TextOrEmpty(newAddress)); });
}

void ORVELL_CALL EndUpdate() noexcept {
    Guarded([] {
        if (IsAdmitted()) {
            List().PurgeAll(kDeclaredMark);
        }
        List().SetDeclaredOnly(false);
    });
}

void ORVELL_CALL SetDoubleVector(const char* address, const double* values,
                                 uint32_t count) noexcept {
    Guarded([&] {
        if (values == nullptr || count == 0) {
            return;
        }
        std::vector<double> copy(count);  // the host's may lie at any address
        std::memcpy(copy.data(), values, copy.size() * sizeof(double));
        List().FillVector(TextOrEmpty(address), copy);
    });
}

void ORVELL_CALL SetValueFromText(const char* address, const char* text) noexcept {
    Guarded([&] { paramlist::SetFromText(List(), TextOrEmpty(address), OptionalText(text)); });
}

void ORVELL_CALL GetName(const char* address, char* buffer, uint32_t size) noexcept {
    Guarded([&] { CopyCut(DescriptionAt(address).name, buffer, size); });
}

void ORVELL_CALL GetComment(const char* address, char* buffer, uint32_t size) noexcept {
    Guarded([&] { CopyCut(DescriptionAt(address).comment, buffer, size); });
}

int32_t ORVELL_CALL GetValue(const char* address, void* buffer, uint32_t length,
                             uint32_t form) noexcept {
    return Guarded<int32_t>(0, [&] {
        const bool isGiven = paramlist::GetValue(List(), TextOrEmpty(address),
                                                 {static_cast<std::uint8_t*>(buffer), length},
                                                 static_cast<ValueForm>(form));
        return isGiven ? 1 : 0;
    });
}

int32_t ORVELL_CALL SetValue(const char* address, void* buffer, uint32_t length,
                             uint32_t form) noexcept {
    return Guarded<int32_t>(0, [&] {
        const bool isSet = paramlist::SetValue(List(), TextOrEmpty(address),
                                               {static_cast<const std::uint8_t*>(buffer), length},
                                               static_cast<ValueForm>(form));
        return isSet ? 1 : 0;
    });
}

void ORVELL_CALL SetCallToken(uint32_t token) noexcept {
    TheModule().callTokens.SetToken(token);
}

}  // namespace management

}  // namespace orvell::host
