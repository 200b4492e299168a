#include "module_host.h"

#include <fstream>
#include <iterator>

namespace orvell::test {

namespace fs = std::filesystem;

namespace {

constexpr std::uint32_t kPage = 4096;

/// Libraries of one name at one path would be taken for the loaded one: each stage is a new folder.
fs::path NewFolder() {
    static int count = 0;
    const fs::path folder =
        fs::temp_directory_path() /
        ("orvell-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count));
    fs::create_directories(folder);
    return folder;
}

}  // namespace

Stage::Stage() : folder_(NewFolder()) {}

Stage::~Stage() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

void Stage::SetUpEverything() {
    fs::copy_file(fs::path(ORVELL_BIN_FOLDER) / "ORVELL.DLL", folder_ / "ORVELL.DLL");
    PutFake("tool/ZELKORTOOL.DLL");
    PutFake("xml/FAKEXML.DLL");
    Set("FAKE_TOOL_VERSION", "3.0308");
    Set("FAKE_TOOL_LANGUAGE", "9");
    Set("FAKE_TOOL_LENT", "0");
    Set("FAKE_TOOL_XML_PATH", Path("FAKEXML.DLL"));
    Set("FAKE_TOOL_LANGUAGE_PATH", (fs::path(ORVELL_BIN_FOLDER) / "en").string());
    Set("FAKE_XML_VERSION", "2.01");
}

void Stage::PutFake(const std::string& folderAndName) {
    const fs::path source = fs::path(ORVELL_FAKES_FOLDER) / folderAndName;
    fs::copy_file(source, folder_ / source.filename(), fs::copy_options::overwrite_existing);
}

void Stage::Remove(const std::string& name) {
    fs::remove(folder_ / name);
}

std::string Stage::Write(const std::string& name, const std::string& content) {
    std::ofstream(folder_ / name, std::ios::binary) << content;
    return Path(name);
}

std::string Stage::Read(const std::string& name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool Stage::Has(const std::string& name) const {
    return fs::exists(folder_ / name);
}

std::string Stage::Path(const std::string& name) const {
    return (folder_ / name).string();
}

void Stage::Set(const char* variable, const std::string& value) {
    SetEnvironmentVariableA(variable, value.empty() ? nullptr : value.c_str());
}

std::string Stage::Get(const char* variable) {
    std::string value(MAX_PATH, '\0');
    value.resize(GetEnvironmentVariableA(variable, value.data(), MAX_PATH));
    return value;
}

LoadedModule::LoadedModule(const Stage& stage)
    : module_(LoadLibraryA(stage.Path("ORVELL.DLL").c_str())) {}

LoadedModule::~LoadedModule() {
    if (module_ != nullptr) {
        FreeLibrary(module_);
    }
}

StdParaFunctionTable LoadedModule::Slots() const {
    StdParaFunctionTable table{};
    table.size = sizeof(table);
    Export<decltype(&GetStdParaFctns)>("GetStdParaFctns")(&table);
    return table;
}

ManagementTable LoadedModule::Management() const {
    ManagementTable table{};
    table.size = sizeof(table);
    Export<decltype(&GetParaMGMTFunc)>("GetParaMGMTFunc")(&table);
    return table;
}

GuardedBytes::GuardedBytes(std::uint32_t size) {
    const std::uint32_t used = (size + kPage - 1) / kPage * kPage;
    pages_ = static_cast<unsigned char*>(
        VirtualAlloc(nullptr, used + kPage, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD before = 0;
    VirtualProtect(pages_ + used, kPage, PAGE_NOACCESS, &before);
    data_ = pages_ + used - size;
    std::memset(pages_, 0xCC, used);
}

std::int32_t OutstandingXmlHandles() {
    const HMODULE library = GetModuleHandleA("FAKEXML.DLL");
    const auto outstanding = reinterpret_cast<std::int32_t(ORVELL_CALL*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "FakeXmlOutstanding")));
    return outstanding == nullptr ? -1 : outstanding();
}

}  // namespace orvell::test
