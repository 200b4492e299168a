#include "fuzz/values/transfer_properties.h"

#include <algorithm>

#include "fuzz/require.h"
#include "unit/values/recording_host.h"

namespace orvell::fuzz {

using values::BaseTypeCode;
using values::RecordingHost;

namespace {

constexpr std::uint32_t kFirst = 0x89ABCDEF;
constexpr std::uint32_t kSecond = 0xFEDCBA98;

/// A value as the host sees it: a text up to its first NUL, with that.
Bytes HostValue(BaseTypeCode baseType, const Bytes& value) {
    if (baseType != BaseTypeCode::String) {
        return value;
    }
    Bytes text(value.begin(), std::find(value.begin(), value.end() - 1, 0));
    text.push_back(0);
    return text;
}

/// What a value that came from the host is stored as: a text with nothing but NULs behind it.
Bytes StoredValue(BaseTypeCode baseType, const Bytes& value) {
    Bytes stored = HostValue(baseType, value);
    stored.resize(value.size());
    return stored;
}

bool IsOneCallWith(const RecordingHost& host, const Bytes& bytes) {
    return host.calls.size() == 1 && host.calls[0].first == kFirst &&
           host.calls[0].second == kSecond && host.calls[0].bytes == bytes;
}

}  // namespace

void CheckTransfer(const values::ValueConverterSet& converters, const ConverterCase& testCase) {
    const values::TypeDescription type = testCase.Type();
    const Bytes value = testCase.Value(converters.GetSize(type));
    RecordingHost host;
    const OnlineAccessRecord online = host.Online();

    Require(converters.PutToHost(type, kFirst, kSecond, value, online) &&
                IsOneCallWith(host, HostValue(type.baseType, value)),
            "the host gets the value");
    host.calls.clear();
    Require(converters.PutToHostAlt(type, kFirst, kSecond, value, online) &&
                IsOneCallWith(host, HostValue(type.baseType, value)),
            "the host gets the value online");

    Bytes raw = value;
    host.calls.clear();
    Require(converters.PutRawToHost(type, kFirst, kSecond, raw, host.Fill()) &&
                IsOneCallWith(host, value) && host.calls[0].address == raw.data() && raw == value,
            "the host gets the bytes themselves");

    host.supply = value;
    host.calls.clear();
    Bytes fetched(value.size(), 0xCC);
    Require(converters.GetFromHost(type, kFirst, kSecond, fetched, online) &&
                IsOneCallWith(host, {}) && fetched == StoredValue(type.baseType, value),
            "the host's value is stored");

    host.answer = 0;
    const Bytes before = fetched;
    host.supply.assign(value.size(), 0x5A);
    Require(!converters.GetFromHost(type, kFirst, kSecond, fetched, online) && fetched == before,
            "a host that fails changes nothing");
}

}  // namespace orvell::fuzz
