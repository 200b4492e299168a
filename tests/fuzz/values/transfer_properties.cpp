#include "fuzz/values/transfer_properties.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

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

/// How values of a type and width reach a host: the width's name in each family of its functions,
/// and the kind that goes with the bytes themselves.
struct HostRoute {
    BaseTypeCode baseType;
    std::size_t width;
    const char* entry;
    std::uint32_t kind;
};

constexpr std::size_t kAnyWidth = 0;

constexpr HostRoute kHostRoutes[] = {
    {BaseTypeCode::Int, 1, "8", 7},
    {BaseTypeCode::Int, 2, "16", 2},
    {BaseTypeCode::Int, 4, "32", 3},
    {BaseTypeCode::Int, 8, "64", 8},
    {BaseTypeCode::UInt, 1, "8", 7},
    {BaseTypeCode::UInt, 2, "16", 2},
    {BaseTypeCode::UInt, 4, "32", 3},
    {BaseTypeCode::UInt, 8, "64", 8},
    {BaseTypeCode::Float, 4, "Float", 4},
    {BaseTypeCode::Double, 8, "Double", 9},
    {BaseTypeCode::String, kAnyWidth, "Text", 5},
    {BaseTypeCode::Duration, 4, "32", 6},
    {BaseTypeCode::Time, 4, "32", 6},
    {BaseTypeCode::Date, 4, "32", 6},
    {BaseTypeCode::DateTime, 4, "32", 6},
    {BaseTypeCode::OleDateTime, 8, "Double", 10},
    {BaseTypeCode::Enumerated, 1, "8", 1},
    {BaseTypeCode::Enumerated, 2, "16", 2},
    {BaseTypeCode::Enumerated, 4, "32", 3},
};

const HostRoute& RouteOf(BaseTypeCode baseType, std::size_t width) {
    const auto* route =
        std::find_if(std::begin(kHostRoutes), std::end(kHostRoutes), [&](const HostRoute& known) {
            return known.baseType == baseType && (known.width == kAnyWidth || known.width == width);
        });
    Require(route != std::end(kHostRoutes), "there is a way for every type and width");
    return *route;
}

bool IsOneCall(const RecordingHost& host, const std::string& function, const Bytes& bytes,
               std::uint32_t kind = 0, const void* address = nullptr) {
    const RecordingHost::Call expected = {function, kFirst, kSecond, bytes, kind, address};
    return host.calls == std::vector{expected};
}

/// The transfers of one value.
class Transfer {
  public:
    Transfer(const values::ValueConverterSet& converters, const ConverterCase& testCase)
        : converters_(converters),
          type_(testCase.Type()),
          value_(testCase.Value(converters.GetSize(type_))),
          route_(RouteOf(type_.baseType, value_.size())) {}

    void CheckPutting() {
        const Bytes expected = HostValue(type_.baseType, value_);
        Require(Put(host_.Online()) && IsOneCall(host_, Function("Put"), expected),
                "the host gets the value");
        Require(PutAlt(host_.Online()) && IsOneCall(host_, Function("Alt"), expected),
                "the host gets the value online");
        Require(!Put(host_.Online(Function("Put"))) && host_.calls.empty() &&
                    !PutAlt(host_.Online(Function("Alt"))) && host_.calls.empty(),
                "without the function of the width there is no other");
    }

    void CheckPuttingRaw() {
        Bytes raw = value_;
        host_.calls.clear();
        Require(converters_.PutRawToHost(type_, kFirst, kSecond, raw, host_.Fill()) &&
                    IsOneCall(host_, "PutRaw", value_, route_.kind, raw.data()) && raw == value_,
                "the host gets the bytes themselves");
    }

    void CheckGetting() {
        host_.supply = value_;
        Bytes fetched(value_.size(), 0xCC);
        Require(Get(fetched, host_.Online()) && IsOneCall(host_, Function("Get"), {}) &&
                    fetched == StoredValue(type_.baseType, value_),
                "the host's value is stored");

        const Bytes before = fetched;
        host_.supply.assign(value_.size(), 0x5A);
        Require(!Get(fetched, host_.Online(Function("Get"))) && host_.calls.empty() &&
                    fetched == before,
                "without the function of the width there is no value");
        host_.answer = 0;
        Require(!Get(fetched, host_.Online()) && fetched == before,
                "a host that fails changes nothing");
    }

  private:
    [[nodiscard]] std::string Function(const std::string& family) const {
        return family + route_.entry;
    }

    bool Put(const OnlineAccessRecord& online) {
        host_.calls.clear();
        return converters_.PutToHost(type_, kFirst, kSecond, value_, online);
    }

    bool PutAlt(const OnlineAccessRecord& online) {
        host_.calls.clear();
        return converters_.PutToHostAlt(type_, kFirst, kSecond, value_, online);
    }

    bool Get(Bytes& fetched, const OnlineAccessRecord& online) {
        host_.calls.clear();
        return converters_.GetFromHost(type_, kFirst, kSecond, fetched, online);
    }

    const values::ValueConverterSet& converters_;
    values::TypeDescription type_;
    Bytes value_;
    const HostRoute& route_;
    RecordingHost host_;
};

}  // namespace

void CheckTransfer(const values::ValueConverterSet& converters, const ConverterCase& testCase) {
    Transfer transfer(converters, testCase);
    transfer.CheckPutting();
    transfer.CheckPuttingRaw();
    transfer.CheckGetting();
}

}  // namespace orvell::fuzz
