#include "host/import_report.h"

#include "platform/system_color.h"
#include "resources/checked_format.h"

namespace orvell::host {

using resources::FormatText;
using resources::StringId;

namespace {

constexpr std::uint32_t kRed = 0x000000FF;

}  // namespace

std::int32_t ImportReport::FindPage() const {
    return callbacks_.MessagePage(strings_.Text(StringId::ImportPage));
}

std::int32_t ImportReport::Append(const std::string& line, std::uint32_t color,
                                  bool emphasis) const {
    return callbacks_.AppendMessage(FindPage(), line, color, emphasis);
}

std::int32_t ImportReport::Start(const char* fileName) const {
    const std::string& format = strings_.Text(StringId::ImportStart);
    if (format.empty()) {
        return 0;
    }
    const std::string line = fileName == nullptr ? std::string() : FormatText(format, {fileName});
    return Append(line, platform::WindowTextColor(), false);
}

std::int32_t ImportReport::Warning(StringId message, std::uint32_t line,
                                   std::optional<std::string_view> argument) const {
    std::string text = FormatText(strings_.Text(StringId::ImportWarning), {line});
    const std::string& messageText = strings_.Text(message);
    text += argument ? FormatText(messageText, {*argument}) : messageText;
    return Append(text, kRed, true);
}

std::int32_t ImportReport::End(std::int32_t warnings) const {
    const std::string line =
        warnings >= 1 ? FormatText(strings_.Text(StringId::ImportWarningCount), {warnings})
                      : strings_.Text(StringId::ImportNoWarnings);
    return Append(line, platform::WindowTextColor(), false);
}

}  // namespace orvell::host
