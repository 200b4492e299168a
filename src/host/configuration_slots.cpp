#include "host/guard.h"
#include "host/module.h"
#include "host/sized_record.h"
#include "host/standard_parameter_slots.h"
#include "resources/checked_format.h"

namespace orvell::host {

using memstruct::ConfigOutcome;
using resources::StringId;

namespace {

std::string_view PathOf(const ConfigurationRecord& record) {
    return record.path == nullptr ? std::string_view() : std::string_view(record.path);
}

void ShowMessage(const ConfigurationRecord& record, const std::string& text) {
    Module& module = TheModule();
    module.messageBoxes.Show({.owner = record.owner,
                              .text = text,
                              .caption = module.strings.Text(StringId::ProductName),
                              .symbol = platform::MessageSymbol::None,
                              .topMost = record.owner == nullptr});
}

/// The operation's outcome; one that runs out of memory has failed.
template <typename Operation>
ConfigOutcome OutcomeOf(const Operation& operation) noexcept {
    return Guarded(ConfigOutcome::Failed, [&] { return operation(TheModule().configFiles); });
}

/// Runs `operation` unless the token has been acted on already. The token is remembered before the
/// outcome is reported: a message box lets the host's own messages through, and with them the same
/// request again. While a value is on its way to or from the host's functions, a request is not
/// acted on and does not use its token up: the types must stay.
template <typename Operation, typename Report>
void OncePerToken(std::uint32_t token, const Operation& operation, const Report& report) {
    Module& module = TheModule();
    if (token == module.configCallStamp || module.store.IsInUse()) {
        return;
    }
    const ConfigOutcome outcome = OutcomeOf(operation);
    module.configCallStamp = token;
    if (outcome != ConfigOutcome::Done) {
        report(outcome);
    }
}

void ReportLoadFailure(const ConfigurationRecord& record, ConfigOutcome outcome) {
    const Module& module = TheModule();
    const std::string reason = outcome == ConfigOutcome::PathUnknown
                                   ? module.strings.Text(StringId::ConfigPathUnknown)
                                   : module.xml.LastError();
    ShowMessage(record,
                resources::FormatText(module.strings.Text(StringId::ConfigLoadFailed), {reason}));
}

void ReportFailure(const ConfigurationRecord& record, StringId message) {
    ShowMessage(record, TheModule().strings.Text(message));
}

}  // namespace

namespace slots {

void ORVELL_CALL LoadStdMemConfig(ConfigurationRecord* hostRecord, uint32_t token) noexcept {
    Guarded([&] {
        const ConfigurationRecord record = ReadRecord(hostRecord);
        OncePerToken(
            token, [&](memstruct::ConfigFiles& files) { return files.Load(PathOf(record)); },
            [&](ConfigOutcome outcome) { ReportLoadFailure(record, outcome); });
    });
}

void ORVELL_CALL SaveStdMemConfig(ConfigurationRecord* hostRecord, uint32_t token) noexcept {
    Guarded([&] {
        const ConfigurationRecord record = ReadRecord(hostRecord);
        OncePerToken(
            token, [&](memstruct::ConfigFiles& files) { return files.Save(PathOf(record)); },
            [&](ConfigOutcome) { ReportFailure(record, StringId::ConfigSaveFailed); });
    });
}

void ORVELL_CALL CloseStdMemConfig(uint32_t token) noexcept {
    Guarded([&] {
        OncePerToken(
            token,
            [](memstruct::ConfigFiles& files) {
                files.Close();
                return ConfigOutcome::Done;
            },
            [](ConfigOutcome) {});
    });
}

void ORVELL_CALL ExportStdMemConfig(ConfigurationRecord* hostRecord, const char* directory,
                                    uint32_t token) noexcept {
    Guarded([&] {
        const ConfigurationRecord record = ReadRecord(hostRecord);
        OncePerToken(
            token,
            [&](memstruct::ConfigFiles& files) { return files.Export(PathOf(record), directory); },
            [&](ConfigOutcome) { ReportFailure(record, StringId::ConfigExportFailed); });
    });
}

void ORVELL_CALL MergeStdMemConfig(ConfigurationRecord* hostRecord, const char* directory,
                                   uint32_t token) noexcept {
    Guarded([&] {
        const ConfigurationRecord record = ReadRecord(hostRecord);
        OncePerToken(
            token,
            [&](memstruct::ConfigFiles& files) {
                files.Merge(PathOf(record), directory);
                return ConfigOutcome::Done;
            },
            [](ConfigOutcome) {});
    });
}

}  // namespace slots

}  // namespace orvell::host
