#include "host/standard_parameter_slots.h"

namespace orvell::host::slots {

namespace {

constexpr int32_t kFailure = 0;
constexpr int32_t kReadingFailed = -1;

}  // namespace

int32_t ORVELL_CALL EditStdParameter(DialogParameterRecord*, OnlineAccessRecord*) noexcept {
    return kFailure;
}

int32_t ORVELL_CALL ConvertStdParameter(ParameterRecord*, OnlineAccessRecord*) noexcept {
    return kFailure;
}

int32_t ORVELL_CALL ResolveStdParameter(ParameterDescriptionRecord*) noexcept {
    return kFailure;
}

int32_t ORVELL_CALL GetStdStructMemberInfo(int32_t, ElementRecord*,
                                           TypeInformationRecord*) noexcept {
    return kFailure;
}

int32_t ORVELL_CALL GetStdStructInfo(int32_t, TypeInformationRecord*) noexcept {
    return kFailure;
}

int32_t ORVELL_CALL ReadStdParameterOnline(ParameterRecord*, OnlineAccessRecord*,
                                           volatile uint32_t*) noexcept {
    return kReadingFailed;
}

int32_t ORVELL_CALL WriteStdParameterOnline(ParameterRecord*, OnlineAccessRecord*,
                                            volatile uint32_t*) noexcept {
    return kFailure;
}

int32_t ORVELL_CALL FillStdParameterValue(ParameterRecord*, FillRecord*) noexcept {
    return kFailure;
}

int32_t ORVELL_CALL FillStdParameterValueInPlace(ParameterRecord*, FillRecord*) noexcept {
    return kFailure;
}

int32_t ORVELL_CALL GetStdTypeInfo(int32_t, TypeInformationRecord*) noexcept {
    return kFailure;
}

int32_t ORVELL_CALL GetStdEnumInfo(int32_t, uint32_t, TypeInformationRecord*) noexcept {
    return kFailure;
}

}  // namespace orvell::host::slots
