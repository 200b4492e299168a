#include "host/boundary_text.h"
#include "host/guard.h"
#include "host/import_report.h"
#include "host/management_slots.h"
#include "host/module.h"
#include "host/sized_record.h"
#include "paramlist/editor_command.h"
#include "paramlist/project_list_paths.h"
#include "resources/checked_format.h"

namespace orvell::host {

using paramlist::ProjectList;
using resources::FormatText;
using resources::StringId;
using SaveOutcome = ProjectList::SaveOutcome;

namespace {

/// Reports an import's course in the host's message page.
class ReportedWarnings final : public paramlist::ImportWarnings {
  public:
    void Start(const std::string& path) override { report_.Start(path.c_str()); }

    void Warning(StringId message, std::uint32_t line,
                 std::optional<std::string_view> argument) override {
        report_.Warning(message, line, argument);
    }

    void End(std::int32_t warningCount) override { report_.End(warningCount); }

  private:
    ImportReport report_{TheModule().callbacks, TheModule().strings};
};

const std::string& Text(StringId id) {
    return TheModule().strings.Text(id);
}

platform::Message MessageFor(const ConfigurationRecord& record, std::string text) {
    return {.owner = record.owner,
            .text = std::move(text),
            .caption = Text(StringId::ErrorCaption),
            .symbol = platform::MessageSymbol::Error,
            .topMost = record.owner == nullptr};
}

void ShowError(const ConfigurationRecord& record, std::string text) {
    TheModule().messageBoxes.Show(MessageFor(record, std::move(text)));
}

bool Confirm(const ConfigurationRecord& record, std::string text) {
    platform::Message question = MessageFor(record, std::move(text));
    question.caption = Text(StringId::ProductName);
    question.symbol = platform::MessageSymbol::Question;
    return TheModule().messageBoxes.Ask(question);
}

void OfferToOpen(const ConfigurationRecord& record, const std::string& path) {
    const std::string command = paramlist::FindEditorCommand(TheModule().registry, path);
    if (command.empty() ||
        !Confirm(record, FormatText(Text(StringId::OpenInEditorQuestion), {command}))) {
        return;
    }
    if (!TheModule().processes.Start(paramlist::EditorCommandLine(command, path))) {
        ShowError(record, FormatText(Text(StringId::EditorStartFailed), {command}));
    }
}

void ReportSaveFailure(const ConfigurationRecord& record, SaveOutcome outcome) {
    if (outcome == SaveOutcome::PathUnknown) {
        ShowError(record, Text(StringId::ListSaveFailed));
        return;
    }
    const std::string path = paramlist::ListFilePath(TextOrEmpty(record.path));
    ShowError(record, FormatText(Text(StringId::FileSaveFailed), {path}));
}

/// Calls `operation(record)` with a copy of the host's record, unless the call is a repeated one.
template <typename Operation>
void OncePerToken(const ConfigurationRecord* hostRecord, const Operation& operation) noexcept {
    Guarded([&] {
        if (TheModule().callTokens.Admit()) {
            operation(ReadRecord(hostRecord));
        }
    });
}

using Import = bool (ProjectList::*)(const std::string&, paramlist::ImportWarnings&);

/// Short memory is a failure like any other: the user is told.
void ImportFile(const ConfigurationRecord* hostRecord, const char* path, Import import) noexcept {
    OncePerToken(hostRecord, [&](const ConfigurationRecord& record) {
        const bool isDone = Guarded<bool>(false, [&] {
            ReportedWarnings warnings;
            return (TheModule().projectList.*import)(std::string(TextOrEmpty(path)), warnings);
        });
        if (!isDone) {
            ShowError(record, Text(StringId::ListImportFailed));
        }
    });
}

bool ExportFile(const ConfigurationRecord& record, const char* path) {
    const bool isDone = Guarded<bool>(
        false, [&] { return TheModule().projectList.Export(std::string(TextOrEmpty(path))); });
    if (!isDone) {
        ShowError(record, Text(StringId::ListSaveFailed));
    }
    return isDone;
}

}  // namespace

namespace management {

void ORVELL_CALL LoadList(ConfigurationRecord* hostRecord) noexcept {
    OncePerToken(hostRecord, [](const ConfigurationRecord& record) {
        TheModule().projectList.Load(TextOrEmpty(record.path));
    });
}

void ORVELL_CALL SaveList(ConfigurationRecord* hostRecord) noexcept {
    OncePerToken(hostRecord, [](const ConfigurationRecord& record) {
        const auto outcome = Guarded<SaveOutcome>(SaveOutcome::FileNotWritten, [&] {
            return TheModule().projectList.Save(TextOrEmpty(record.path));
        });
        if (outcome != SaveOutcome::Done) {
            ReportSaveFailure(record, outcome);
        }
    });
}

void ORVELL_CALL ImportIntoList(ConfigurationRecord* hostRecord, const char* path) noexcept {
    ImportFile(hostRecord, path, &ProjectList::ImportIntoList);
}

void ORVELL_CALL ImportNewList(ConfigurationRecord* hostRecord, const char* path) noexcept {
    ImportFile(hostRecord, path, &ProjectList::ImportNewList);
}

void ORVELL_CALL ExportList(ConfigurationRecord* hostRecord, const char* path) noexcept {
    OncePerToken(hostRecord, [&](const ConfigurationRecord& record) { ExportFile(record, path); });
}

void ORVELL_CALL ExportAndOpenList(ConfigurationRecord* hostRecord, const char* path) noexcept {
    OncePerToken(hostRecord, [&](const ConfigurationRecord& record) {
        if (ExportFile(record, path)) {
            OfferToOpen(record, std::string(TextOrEmpty(path)));
        }
    });
}

}  // namespace management

}  // namespace orvell::host
