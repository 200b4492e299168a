#include "values/value_converter.h"

#include <algorithm>

#include "platform/host_call.h"

namespace orvell::values {

bool ValueConverter::HasRoom(const TypeDescription& type, ConstValueBuffer buffer) const {
    return buffer.data() != nullptr && buffer.size() >= GetSize(type);
}

bool ValueConverter::ExportText(const TypeDescription& type, ConstValueBuffer buffer,
                                std::string& text) const {
    return ValueToText(type, buffer, text, DisplayFormat::Default, /*raw=*/true);
}

bool ValueConverter::ImportText(const TypeDescription& type, std::string_view text,
                                ValueBuffer buffer) const {
    return TextToValue(type, buffer, text, DisplayFormat::Default);
}

bool ValueConverter::PutToHost(const TypeDescription& type, std::uint32_t first,
                               std::uint32_t second, ConstValueBuffer buffer,
                               const OnlineAccessRecord& host) const {
    return HasRoom(type, buffer) &&
           PutValue(GetHostForm(type), first, second, buffer.first(GetSize(type)), host.setters);
}

bool ValueConverter::GetFromHost(const TypeDescription& type, std::uint32_t first,
                                 std::uint32_t second, ValueBuffer buffer,
                                 const OnlineAccessRecord& host) const {
    return HasRoom(type, buffer) && GetValue(GetHostForm(type).entry, first, second,
                                             buffer.first(GetSize(type)), host.getters);
}

bool ValueConverter::PutToHostAlt(const TypeDescription& type, std::uint32_t first,
                                  std::uint32_t second, ConstValueBuffer buffer,
                                  const OnlineAccessRecord& host) const {
    return HasRoom(type, buffer) && PutValue(GetHostForm(type), first, second,
                                             buffer.first(GetSize(type)), host.alternative);
}

bool ValueConverter::PutRawToHost(const TypeDescription& type, std::uint32_t first,
                                  std::uint32_t second, ValueBuffer buffer,
                                  const FillRecord& host) const {
    const std::size_t byteCount = std::min<std::size_t>(buffer.size(), GetSize(type));
    if (buffer.data() == nullptr || host.Put == nullptr) {
        return false;
    }
    void* const bytes = buffer.data();
    return platform::CallHost(host.Put, first, second, bytes, static_cast<std::uint32_t>(byteCount),
                              static_cast<std::uint32_t>(GetHostForm(type).kind)) != 0;
}

}  // namespace orvell::values
