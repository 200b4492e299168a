#include "cli/message_page.h"

#include <windows.h>

#include <string>

#include "cli/output.h"

namespace workbench::cli {
namespace {

constexpr std::int32_t kConsolePage = 0;

std::int32_t ORVELL_CALL LookUpPage(const char* /*pageName*/) {
    return kConsolePage;
}

std::int32_t ORVELL_CALL AppendToPage(std::int32_t page, const char* line, std::uint32_t color,
                                      std::int32_t emphasis) {
    if (page != kConsolePage || line == nullptr) {
        return 0;
    }
    // A console has a text colour of its own, which need not be the one of windows.
    if (color == GetSysColor(COLOR_WINDOWTEXT)) {
        Print(std::string(line) + "\n");
    } else {
        PrintColored(std::string(line) + "\n", color, emphasis != 0);
    }
    return 1;
}

}  // namespace

HostExportTable MessagePageCallbacks() {
    HostExportTable table{};
    table.size = sizeof table;
    table.MessagePageLookup = LookUpPage;
    table.MessagePageAppend = AppendToPage;
    return table;
}

}  // namespace workbench::cli
