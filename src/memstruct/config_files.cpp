#include "memstruct/config_files.h"

#include "memstruct/definition_merge.h"
#include "memstruct/xml_document.h"
#include "platform/file_system.h"

namespace orvell::memstruct {

namespace {

/// Opens the file, or begins a new document with a root when that fails.
bool OpenOrCreate(XmlDocument& document, const std::string& path) {
    return document.Open(path) ||
           (document.Create() &&
            document.AddRoot(resources::StringId::ElementDefinitions).IsValid());
}

}  // namespace

ConfigOutcome ConfigFiles::Load(std::string_view projectPath) {
    try {
        const std::string projectFile = ProjectStructFile(projectPath);
        if (projectFile.empty()) {
            return ConfigOutcome::PathUnknown;
        }
        return store_.LoadStructFile(projectFile) ? ConfigOutcome::Done : ConfigOutcome::Failed;
    } catch (...) {
        Close();  // the definitions of the project before must not pass for this one's
        throw;
    }
}

ConfigOutcome ConfigFiles::Save(std::string_view projectPath) {
    const std::string& currentPath = store_.GetCurrentPath();
    if (currentPath.empty()) {
        return ConfigOutcome::Done;
    }
    const std::string projectFile = ProjectStructFile(projectPath);
    if (projectFile.empty()) {
        return ConfigOutcome::PathUnknown;
    }
    if (projectFile != currentPath && !platform::CopyWholeFile(currentPath, projectFile)) {
        return ConfigOutcome::Failed;
    }
    store_.SetCurrentPath(projectFile);
    return ConfigOutcome::Done;
}

void ConfigFiles::Close() {
    store_.Clear();
    store_.SetCurrentPath({});
}

ConfigOutcome ConfigFiles::Export(std::string_view projectPath, const char* directory) {
    const std::string projectFile = ProjectStructFile(projectPath);
    if (projectFile.empty()) {
        return ConfigOutcome::PathUnknown;
    }
    if (directory == nullptr) {
        return ConfigOutcome::Failed;
    }
    const std::string target = JoinPath(directory, FileNamePart(projectFile));
    return platform::CopyWholeFile(projectFile, target) ? ConfigOutcome::Done
                                                        : ConfigOutcome::Failed;
}

void ConfigFiles::Merge(std::string_view projectPath, const char* directory) {
    const std::string projectFile = ProjectStructFile(projectPath);
    if (directory == nullptr || projectFile.empty()) {
        return;
    }
    const std::string sourceFile = JoinPath(directory, FileNamePart(projectFile));
    if (!platform::FileExists(sourceFile)) {
        return;
    }
    Close();
    MergeFile(sourceFile, projectFile);
    // A merge reports nothing: whatever the project's file holds now is in use.
    static_cast<void>(store_.LoadStructFile(projectFile));
}

void ConfigFiles::MergeFile(const std::string& sourceFile, const std::string& projectFile) const {
    if (!platform::FileExists(projectFile)) {
        // Without a default file the project's file is begun below.
        static_cast<void>(platform::CopyWholeFile(store_.GetDefaultPath(), projectFile));
    }
    XmlDocument source(xml_);
    XmlDocument destination(xml_);
    if (!source.Open(sourceFile) || !OpenOrCreate(destination, projectFile)) {
        return;
    }
    MergeDefinitions(source.Root(), destination.Root());
    static_cast<void>(destination.Save(projectFile));
}

}  // namespace orvell::memstruct
