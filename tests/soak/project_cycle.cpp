#include "project_cycle.h"

#include <array>
#include <string>

#include "failure.h"
#include "message_page.h"
#include "project_files.h"
#include "value_work.h"

namespace orvell::soak {

namespace {

constexpr std::uint32_t kTextForm = 5;
constexpr std::uint32_t kEditEveryAtFirst = 5;
constexpr std::uint32_t kReadEvery = 4;
constexpr std::uint32_t kSpoilEvery = 3;
constexpr std::uint32_t kVisitorEvery = 64;

}  // namespace

ProjectCycle::ProjectCycle(ModuleHost& host, std::uint32_t declareCount, const CyclePlan& plan)
    : host_(host),
      plan_(plan),
      addresses_(declareCount),
      project_{sizeof project_, nullptr, kProject} {
    MessagePage::Install(host);
    CreateProject();
}

/// Each request of the host has a token of its own.
void ProjectCycle::Request() {
    host_.list.SetCallToken(++lastToken_);
}

void ProjectCycle::CreateProject() {
    WriteDefinitions();
    Request();
    host_.list.LoadList(&project_);
    std::uint32_t count = 0;
    for (const std::vector<ProjectParameter>& residents : addresses_.Residents()) {
        for (const auto& [address, valueText] : residents) {
            ++count;
            const std::string name = "Name " + std::to_string(count);
            const std::string comment = "Comment; \"" + std::to_string(count) + '"';
            host_.list.SetValueFromText(address.c_str(), valueText.c_str());
            Require(host_.setName(address.c_str(), name.c_str()) == 1 &&
                        host_.setComment(address.c_str(), comment.c_str()) == 1,
                    "a parameter cannot be made");
        }
    }
    Request();
    host_.list.SaveList(&project_);
    Request();
    host_.list.ClearList();
    RequireNoMessage();
}

CycleOutput ProjectCycle::Run(std::uint32_t number) {
    const std::uint32_t variant = number % kVariantCount;
    CycleOutput output{};
    OutputHash files;
    OutputHash definitions;
    Open();
    WorkOnValues(host_, files);
    if (Edits(number)) {
        EditValue(host_);
    }
    ReadParameters(files);
    Request();
    host_.list.ExportList(&project_, kBackupList);
    Update(variant, output, number % plan_.wholeExportEvery == 0);
    TakeThroughFiles(files);
    SaveAndClose(files, definitions);
    RequireNoMessage();
    output.files = files.Value();
    output.definitions = definitions.Value();
    return output;
}

bool ProjectCycle::Edits(std::uint32_t number) const {
    const std::uint32_t every = number < plan_.warmUp ? kEditEveryAtFirst : plan_.dialogEvery;
    return host_.EditsFast() || number % every == 0;
}

void ProjectCycle::Open() {
    host_.slots.LoadStdMemConfig(&project_, ++lastToken_);
    Request();
    host_.list.LoadList(&project_);
}

void ProjectCycle::ReadParameters(OutputHash& output) {
    std::array<char, 32> text{};
    std::uint32_t count = 0;
    for (const std::vector<ProjectParameter>& residents : addresses_.Residents()) {
        for (const auto& [address, valueText] : residents) {
            if (++count % kReadEvery != 0) {
                continue;
            }
            host_.list.GetName(address.c_str(), text.data(), text.size());
            output.Add(text.data());
            host_.list.GetComment(address.c_str(), text.data(), text.size());
            output.Add(text.data());
            std::array<char, 64> value{};
            Require(
                host_.list.GetValue(address.c_str(), value.data(), value.size(), kTextForm) == 1 &&
                    valueText == value.data(),
                "another value than was saved: " + address);
        }
    }
}

void ProjectCycle::Declare() {
    Request();
    host_.list.BeginUpdate();
    for (const auto& [oldAddress, newAddress] : declarations_) {
        host_.list.DeclareParameter(oldAddress, newAddress);
    }
    Request();
    host_.list.EndUpdate();
}

void ProjectCycle::Update(std::uint32_t variant, CycleOutput& output, bool withWholeFiles) {
    OutputHash wanders;
    addresses_.DeclareOutward(variant, declarations_);
    Declare();
    VisitVisitors(variant, wanders);
    for (const Declaration& declaration : declarations_) {
        std::array<char, 32> name{};
        if (declaration.oldAddress != nullptr) {
            host_.list.GetName(declaration.newAddress, name.data(), name.size());
            wanders.Add(name.data());
        }
    }
    output.wanders = wanders.Value();
    output.whole = withWholeFiles ? ExportWhole() : 0;
    addresses_.DeclareHomeward(variant, declarations_);
    Declare();
}

/// Gives some of the visitors names and values.
void ProjectCycle::VisitVisitors(std::uint32_t variant, OutputHash& output) {
    const std::vector<const char*> visitors = addresses_.VisitorsOf(variant);
    for (std::size_t i = variant; i < visitors.size(); i += kVisitorEvery) {
        host_.list.SetValueFromText(visitors[i], "1");
        Require(host_.setName(visitors[i], "Visitor") == 1, "a visitor is not there");
        std::array<char, 64> value{};
        host_.list.GetValue(visitors[i], value.data(), value.size(), kTextForm);
        output.Add(value.data());
    }
}

std::uint64_t ProjectCycle::ExportWhole() {
    OutputHash output;
    for (const char* path : {kWholeList, kWholeCsv}) {
        Request();
        host_.list.ExportList(&project_, path);
        Request();
        host_.list.ImportIntoList(&project_, path);
        AddFile(path, output);
    }
    output.Add(MessagePage::TakeLines());
    return output.Value();
}

/// Brings back what the updates have taken away, from the backup; then changes values and brings
/// them back from the CSV file; then builds the whole list anew from the list file.
void ProjectCycle::TakeThroughFiles(OutputHash& output) {
    Request();
    host_.list.ImportIntoList(&project_, kBackupList);
    Request();
    host_.list.ExportList(&project_, kExportedCsv);
    AddFile(kExportedCsv, output);
    Spoil();
    Request();
    host_.list.ImportIntoList(&project_, kExportedCsv);
    output.Add(MessagePage::TakeLines());
    Request();
    host_.list.ExportList(&project_, kExportedList);
    AddFile(kExportedList, output);
    Request();
    host_.list.ImportNewList(&project_, kExportedList);
}

void ProjectCycle::Spoil() {
    std::uint32_t count = 0;
    for (const std::vector<ProjectParameter>& residents : addresses_.Residents()) {
        for (const ProjectParameter& resident : residents) {
            if (++count % kSpoilEvery == 0) {
                host_.list.SetValueFromText(resident.address.c_str(), "2 and some longer text");
                host_.setName(resident.address.c_str(), "spoilt");
                host_.setComment(resident.address.c_str(), nullptr);
            }
        }
    }
}

void ProjectCycle::SaveAndClose(OutputHash& files, OutputHash& definitions) {
    host_.slots.ExportStdMemConfig(&project_, kDelivery, ++lastToken_);
    host_.slots.MergeStdMemConfig(&project_, kDelivery, ++lastToken_);
    host_.slots.SaveStdMemConfig(&project_, ++lastToken_);
    Request();
    host_.list.SaveList(&project_);
    AddFile(kProjectDefinitions, definitions);
    AddFile(kProjectList, files);
    Request();
    host_.list.ClearList();
    host_.slots.CloseStdMemConfig(++lastToken_);
}

void ProjectCycle::RequireNoMessage() const {
    const std::string message = host_.FirstMessage();
    Require(message.empty(), "the module says: " + message);
}

}  // namespace orvell::soak
