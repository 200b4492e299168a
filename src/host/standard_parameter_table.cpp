#include "host/standard_parameter_slots.h"

namespace orvell::host {

StdParaFunctionTable MakeStdParaFunctionTable() {
    return {
        .size = sizeof(StdParaFunctionTable),
        .EditStdParameter = slots::EditStdParameter,
        .FreeStdParameter = slots::FreeStdParameter,
        .GetStdParameterText = slots::GetStdParameterText,
        .FreeStdMemory = slots::FreeStdMemory,
        .ConvertStdParameter = slots::ConvertStdParameter,
        .LoadStdMemConfig = slots::LoadStdMemConfig,
        .SaveStdMemConfig = slots::SaveStdMemConfig,
        .CloseStdMemConfig = slots::CloseStdMemConfig,
        .ExportStdMemConfig = slots::ExportStdMemConfig,
        .MergeStdMemConfig = slots::MergeStdMemConfig,
        .GetStdParameterTextList = slots::GetStdParameterTextList,
        .FreeStdTextList = slots::FreeStdTextList,
        .ResolveStdParameter = slots::ResolveStdParameter,
        .GetStdStructMemberInfo = slots::GetStdStructMemberInfo,
        .FreeStdElementRecord = slots::FreeStdElementRecord,
        .GetStdStructInfo = slots::GetStdStructInfo,
        .ReadStdParameterOnline = slots::ReadStdParameterOnline,
        .WriteStdParameterOnline = slots::WriteStdParameterOnline,
        .FillStdParameterValue = slots::FillStdParameterValue,
        .FillStdParameterValueInPlace = slots::FillStdParameterValueInPlace,
        .GetStdStructSize = slots::GetStdStructSize,
        .CheckStdParameter = slots::CheckStdParameter,
        .GetStdTypeInfo = slots::GetStdTypeInfo,
        .FreeStdTypeInfo = slots::FreeStdTypeInfo,
        .GetStdEnumInfo = slots::GetStdEnumInfo,
    };
}

}  // namespace orvell::host
