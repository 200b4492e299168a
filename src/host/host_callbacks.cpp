#include "host/host_callbacks.h"

#include <algorithm>

#include "host/sized_record.h"
#include "platform/host_call.h"

namespace orvell::host {

void HostCallbacks::Install(const HostExportTable* table) {
    table_ = ReadRecord(table);
}

std::int32_t HostCallbacks::MessagePage(const std::string& name) const {
    constexpr std::int32_t kNoPage = -1;
    const std::int32_t page = table_.MessagePageLookup != nullptr
                                  ? platform::CallHost(table_.MessagePageLookup, name.c_str())
                                  : kNoPage;
    return std::max<std::int32_t>(page, 0);
}

std::int32_t HostCallbacks::AppendMessage(std::int32_t page, const std::string& line,
                                          std::uint32_t color, bool emphasis) const {
    if (table_.MessagePageAppend == nullptr) {
        return 0;
    }
    return platform::CallHost(table_.MessagePageAppend, page, line.c_str(), color,
                              emphasis ? 1 : 0);
}

}  // namespace orvell::host
