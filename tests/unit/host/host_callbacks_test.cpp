#include "host/host_callbacks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvell::host {
namespace {

std::int32_t pageNumber;
std::vector<std::string> lookups;

std::int32_t ORVELL_CALL Lookup(const char* name) {
    lookups.emplace_back(name);
    return pageNumber;
}

std::int32_t ORVELL_CALL Append(std::int32_t page, const char*, std::uint32_t, std::int32_t) {
    return -page;
}

HostExportTable FullTable() {
    return {sizeof(HostExportTable), Lookup, Append, &pageNumber, &lookups};
}

TEST(HostCallbacks, StartEmptyWithTheirOwnSize) {
    const HostCallbacks callbacks;
    EXPECT_EQ(callbacks.Table().size, 20U);
    EXPECT_EQ(callbacks.MessagePage("Import"), 0);
    EXPECT_EQ(callbacks.AppendMessage(1, "line", 0, false), 0);
}

TEST(HostCallbacks, ShortTableInstallsWhatItHolds) {
    HostCallbacks callbacks;
    HostExportTable table = FullTable();
    callbacks.Install(&table);
    table.size = 8;
    callbacks.Install(&table);
    EXPECT_EQ(callbacks.Table().size, 20U);
    EXPECT_EQ(callbacks.Table().MessagePageLookup, Lookup);
    EXPECT_EQ(callbacks.Table().MessagePageAppend, nullptr);
    EXPECT_EQ(callbacks.Table().reserved3, nullptr);
    EXPECT_EQ(callbacks.Table().reserved4, nullptr);
}

TEST(HostCallbacks, HalfACallbackIsNone) {
    HostCallbacks callbacks;
    HostExportTable table = FullTable();
    table.size = 11;
    callbacks.Install(&table);
    EXPECT_EQ(callbacks.Table().MessagePageLookup, Lookup);
    EXPECT_EQ(callbacks.Table().MessagePageAppend, nullptr);
}

TEST(HostCallbacks, LongTableIsCutToTheKnownCallbacks) {
    struct LongTable {
        HostExportTable known = FullTable();
        std::uint32_t more[20] = {};
    } table;
    table.known.size = 100;
    HostCallbacks callbacks;
    callbacks.Install(&table.known);
    EXPECT_EQ(callbacks.Table().size, 20U);
    EXPECT_EQ(callbacks.Table().reserved4, &lookups);
    EXPECT_EQ(table.known.MessagePageLookup, Lookup) << "the host keeps its table";
}

TEST(HostCallbacks, NullEmptiesTheTable) {
    HostCallbacks callbacks;
    const HostExportTable table = FullTable();
    callbacks.Install(&table);
    callbacks.Install(nullptr);
    EXPECT_EQ(callbacks.Table().size, 20U);
    EXPECT_EQ(callbacks.Table().MessagePageLookup, nullptr);
}

TEST(HostCallbacks, UnknownPageIsTheFirst) {
    HostCallbacks callbacks;
    const HostExportTable table = FullTable();
    callbacks.Install(&table);
    pageNumber = 4;
    EXPECT_EQ(callbacks.MessagePage("Import"), 4);
    pageNumber = -1;
    EXPECT_EQ(callbacks.MessagePage("Import"), 0);
    EXPECT_EQ(callbacks.AppendMessage(4, "line", 0, false), -4) << "results pass unchanged";
}

}  // namespace
}  // namespace orvell::host
