#include "fuzz/boundary/session.h"

#include <algorithm>
#include <memory>

#include "fuzz/boundary/host_memory.h"
#include "fuzz/boundary/memory_files.h"
#include "fuzz/require.h"
#include "platform/byte_stream.h"
#include "resources/built_in_strings.h"

namespace orvell {
namespace {

std::unique_ptr<host::Module> currentModule;

std::unique_ptr<platform::StringSource> OpenStrings(void*) {
    return std::make_unique<resources::BuiltInStrings>();
}

std::string ModuleFileName(void*) {
    return "D:\\BIN\\ORVELL.DLL";
}

const resources::BuiltInStrings& Strings() {
    static const resources::BuiltInStrings strings;
    return strings;
}

}  // namespace

host::Module& host::TheModule() {
    return *currentModule;
}

namespace fuzz {
namespace {

/// Saves a document where files can be created.
std::int32_t ORVELL_CALL SaveInMemory(XmlDocumentHandle document, const char* path) {
    using SaveFunction = std::int32_t(ORVELL_CALL*)(XmlDocumentHandle, const char*);
    static const auto save =
        reinterpret_cast<SaveFunction>(test::FakeXmlLibrary::Functions().at("XMLIF_Save"));
    return platform::OpenFileToWrite(path) == nullptr ? 0 : save(document, path);
}

test::Symbols XmlFunctions() {
    test::Symbols functions = test::FakeXmlLibrary::Functions();
    functions["XMLIF_Save"] = test::Address(SaveInMemory);
    return functions;
}

/// What the list must give by ascending numbers, equal ones in the order of their insertion.
std::vector<ModelEntry> InOrder(const ModelKind& kind) {
    std::vector<ModelEntry> entries = kind.entries;
    std::stable_sort(
        entries.begin(), entries.end(),
        [](const ModelEntry& left, const ModelEntry& right) { return left.number < right.number; });
    return entries;
}

void CompareEntry(const paramlist::ParameterEntry& entry, ModelType type,
                  const ModelEntry& expected) {
    const auto bytes = entry.Value().Bytes();
    Require(entry.Number() == expected.number, "entries stand at the numbers expected");
    Require(entry.Flags() == (expected.isDeclared ? paramlist::kDeclaredMark : 0),
            "entries are declared as expected");
    Require(entry.Name() == expected.name, "entries have the names expected");
    Require(entry.Comment() == expected.comment, "entries have the comments expected");
    RequireSame({bytes.begin(), bytes.end()}, StoredBytes(type, expected.value),
                "entries have the values expected");
}

void CompareKind(const paramlist::ParameterKind& kind, const ModelKind& expected) {
    const std::vector<ModelEntry> entries = InOrder(expected);
    Require(kind.EntryCount() == entries.size(), "kinds have as many entries as expected");
    std::size_t index = 0;
    kind.VisitInOrder([&](const paramlist::ParameterEntry& entry) {
        CompareEntry(entry, expected.type, entries[index++]);
        return true;
    });
    Require(index == entries.size(), "all entries are visited");
}

}  // namespace

void RequireSame(const std::string& actual, const std::string& expected, const char* what) {
    Require(actual == expected, what);
}

Session::Session() {
    UseFiles(library.files);
    LoadModule();
    standard.size = sizeof standard;
    Require(GetStdParaFctns(&standard) == 1, "the standard-parameter table is given");
    management.size = sizeof management;
    Require(GetParaMGMTFunc(&management) == 1, "the management table is given");
}

Session::~Session() {
    currentModule.reset();
    Require(library.Complaints().empty(), "what the XML library lends is given back");
}

void Session::LoadModule() {
    currentModule =
        std::make_unique<host::Module>(host::SystemServices{.loader = loader,
                                                            .messageBoxes = messages,
                                                            .moduleFileName = ModuleFileName,
                                                            .openStrings = OpenStrings,
                                                            .editor = &editor});
    currentModule->strings.UseSource(Strings());
    currentModule->store.SetDefaultPath(kDefaultDefinitions);
    static const test::Symbols xmlFunctions = XmlFunctions();
    loader.libraries["XML.DLL"] = xmlFunctions;
    Require(currentModule->xml.Bind(loader, "XML.DLL"), "the XML library is bound");
}

std::uint32_t Session::ChooseConfigToken(Program& program) {
    switch (program.Choose(4)) {
        case 0:
            return ++newestConfigToken_;
        case 1:
            return configToken_;
        default:
            return program.Choose(4);
    }
}

bool Session::AdmitConfig(std::uint32_t token) {
    if (token == configToken_ || transfers_ != 0) {
        return false;
    }
    configToken_ = token;
    return true;
}

void Session::TakeManagementTable(std::uint32_t size) {
    HostMemory table(std::max<std::size_t>(size, sizeof size), HostMemory::Place::Aligned);
    table.Put(0, BytesOf(size));
    const std::int32_t result = GetParaMGMTFunc(table.Data());
    Require(result == (size != 0 ? 1 : 0), "tables are given unless they have no size");
    if (size != 0) {
        list.ForgetTokens();
    }
    HostMemory expected(std::max<std::size_t>(size, sizeof size));
    expected.Put(0, std::string(size, '\0'));
    expected.Put(0, BytesOf(management).substr(0, size));
    expected.Put(0, BytesOf(size));
    RequireSame(table.Bytes(), expected.Bytes(), "a table takes as many slots as fit");
}

void Session::CompareList() {
    const auto kinds = host::TheModule().parameters.Kinds();
    Require(kinds.size() == list.Kinds().size(), "there are as many kinds as expected");
    auto expected = list.Kinds().begin();
    for (const paramlist::ParameterKind& kind : kinds) {
        Require(kind.Keyword() == expected->first, "kinds stand in the order of their keywords");
        CompareKind(kind, expected->second);
        ++expected;
    }
}

void Session::ExpectMessage(const std::string& text) {
    Require(!messages.shown.empty() && messages.shown.front().text == text,
            "a message tells what has failed");
    ExpectMessages(1);
}

void Session::ExpectMessages(std::size_t count) {
    Require(messages.shown.size() == count, "as many messages are shown as expected");
    Require(messages.asked.empty(), "no question is asked");
    messages.shown.clear();
}

}  // namespace fuzz
}  // namespace orvell
