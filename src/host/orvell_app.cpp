#include "host/orvell_app.h"

#include "host/version_rule.h"
#include "memstruct/config_files.h"

namespace orvell::host {

using resources::StringId;

bool OrvellApp::InitInstance() {
    const bool baseStarted = DllApplication::InitInstance();
    callbacks_.Install(nullptr);  // before the host can call in
    if (!baseStarted) {
        return false;
    }
    ownStrings_ = system_.openStrings(Instance());
    UseOwnResources();
    if (!BindZelkorTool() || !BindXmlAccess()) {
        return false;
    }
    ChooseLanguageResources();
    store_.SetDefaultPath(memstruct::DefaultStructFile(system_.moduleFileName(Instance())));
    return true;
}

bool OrvellApp::BindZelkorTool() {
    const std::string path = ZelkorToolPath(system_.moduleFileName(Instance()));
    return tool_.Bind(system_.loader, path, Instance()) &&
           kRequiredZelkorTool.IsMetBy(*tool_.BoundLibrary());
}

bool OrvellApp::BindXmlAccess() {
    return xml_.Bind(system_.loader, tool_.XmlAccessPath()) &&
           kRequiredXmlAccess.IsMetBy(*xml_.BoundLibrary());
}

void OrvellApp::ChooseLanguageResources() {
    if (LoadLanguageLibrary()) {
        languageStrings_ = system_.openStrings(languageLibrary_->Handle());
        SetResourceHandle(languageLibrary_->Handle());
        strings_.UseSource(*languageStrings_);
        return;
    }
    languageLibrary_.reset();
    system_.messageBoxes.Show({.owner = nullptr,
                               .text = strings_.Text(StringId::LanguageLibraryMissing),
                               .caption = strings_.Text(StringId::ProductName),
                               .symbol = platform::MessageSymbol::Exclamation,
                               .topMost = true});
}

bool OrvellApp::LoadLanguageLibrary() {
    const std::string path = tool_.LanguageLibraryPath();
    if (path.empty()) {
        return false;
    }
    languageLibrary_ = system_.loader.Load(path);
    return languageLibrary_ != nullptr && kRequiredLanguageLibrary.IsMetBy(*languageLibrary_);
}

void OrvellApp::UseOwnResources() {
    SetResourceHandle(Instance());
    if (ownStrings_ != nullptr) {
        strings_.UseSource(*ownStrings_);
    }
}

int OrvellApp::ExitInstance() {
    if (languageLibrary_ != nullptr) {
        UseOwnResources();
        languageStrings_.reset();
        languageLibrary_.reset();
    }
    xml_.Unbind();
    tool_.Unbind();
    return DllApplication::ExitInstance();
}

void OrvellApp::Abandon() {
    if (languageLibrary_ != nullptr) {
        languageLibrary_->Abandon();
    }
    xml_.Abandon();
    tool_.Abandon();
}

}  // namespace orvell::host
