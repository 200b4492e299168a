#include "slots_fixture.h"

namespace orvell::host {

using memstruct::StructItem;
using memstruct::TypeDef;
using values::BaseTypeCode;

namespace {

test::FakeLoader theLoader;
test::RecordedMessages theMessages;
std::unique_ptr<Module> currentModule;

const resources::BuiltInStrings& BuiltIn() {
    static const resources::BuiltInStrings strings;
    return strings;
}

TypeDef BasicType(const char* name, BaseTypeCode code, std::uint32_t size) {
    TypeDef type;
    type.name = name;
    type.baseType = code;
    type.size = size;
    return type;
}

TypeDef Enumeration(const char* name, std::vector<values::EnumItem> items) {
    TypeDef type = BasicType(name, BaseTypeCode::Enumerated, 1);
    type.enumItems = values::EnumItemList(std::move(items));
    return type;
}

StructItem Item(const char* name, const char* type, std::uint32_t dimension = 1) {
    StructItem item;
    item.name = name;
    item.typeName = type;
    item.dimension = dimension;
    return item;
}

TypeDef Structure(const char* name, std::vector<StructItem> items) {
    TypeDef type = BasicType(name, BaseTypeCode::Structured, 0);
    type.structItems = std::move(items);
    return type;
}

void Define(memstruct::MemoryStructureStore& store) {
    store.AddImplicitTypes();
    store.AddType(BasicType("Word", BaseTypeCode::Int, 2));
    store.AddType(BasicType("Text", BaseTypeCode::String, 4));
    store.AddType(BasicType("Ole", BaseTypeCode::OleDateTime, 0));
    store.AddType(Enumeration("Mode", {{"Off", 200}, {"On", 1}}));
    store.AddType(Structure("Point", {Item("x", "Word"), Item("y", "Word", 2)}));
    store.AddType(Structure("Loop", {Item("self", "Loop")}));
    store.AddType(Structure("All", {Item("n", "Point"), Item("lost", "Nothing"), Item("f", "FLOAT"),
                                    Item("o", "Ole"), Item("m", "Mode")}));
    store.AddType(Structure("Twins", {Item("x", "Word"), Item("x", "Word")}));
    store.AddType(Structure("Empty", {}));
    store.AddArea(kWord, "Word");
    store.AddArea(kPoint, "Point");
    store.AddArea(kText, "Text");
    store.AddArea(kLoop, "Loop");
    store.AddArea(kUnresolved, "Nothing");
    store.AddArea(kMode, "Mode");
    store.AddArea(kAll, "All");
    store.AddArea(kEmpty, "Empty");
    store.AddArea(kTime, "TIME");
    store.AddArea(kTwins, "Twins");
    store.ResolveReferences();
}

}  // namespace

Module& TheModule() {
    return *currentModule;
}

const SystemServices& SlotsTest::TestServices() {
    static const SystemServices services{theLoader, theMessages,
                                         [](void*) { return std::string("D:\\BIN\\ORVELL.DLL"); },
                                         [](void*) -> std::unique_ptr<platform::StringSource> {
                                             return std::make_unique<resources::BuiltInStrings>();
                                         }};
    return services;
}

void SlotsTest::UseModule(const SystemServices& services) {
    currentModule = std::make_unique<Module>(services);
    currentModule->strings.UseSource(BuiltIn());
}

SlotsTest::SlotsTest() : loader(theLoader), messages(theMessages) {
    UseModule(TestServices());
    messages.shown.clear();
    Define(currentModule->store);
}

SlotsTest::~SlotsTest() {
    currentModule.reset();
}

}  // namespace orvell::host
