#include "message_page.h"

namespace orvell::soak {

namespace {

std::string lines;  // keeps its memory
bool areTaken = false;

std::int32_t ORVELL_CALL LookUp(const char*) {
    return 0;
}

std::int32_t ORVELL_CALL Append(std::int32_t, const char* line, std::uint32_t, std::int32_t) {
    if (areTaken) {
        lines.clear();
        areTaken = false;
    }
    lines.append(line).push_back('\n');
    return 1;
}

}  // namespace

void MessagePage::Install(ModuleHost& host) {
    HostExportTable table{sizeof table, LookUp, Append, nullptr, nullptr};
    host.setCallbacks(&table);
}

std::string_view MessagePage::TakeLines() {
    areTaken = true;
    return lines;
}

}  // namespace orvell::soak
