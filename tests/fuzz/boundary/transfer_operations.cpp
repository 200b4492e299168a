#include <array>

#include "fuzz/boundary/bad_host.h"
#include "fuzz/boundary/definition_model.h"
#include "fuzz/boundary/host_record.h"
#include "fuzz/boundary/session.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

/// Few elements, or more than any value has; also if a record that is too short cuts the count.
std::uint32_t ChooseElementCount(Program& program) {
    constexpr std::array<std::uint32_t, 8> kCounts = {1, 2, 0, 3, 40, 0xFF000001, 0x80000000, 4};
    return program.Pick(kCounts);
}

/// Bytes of which no two that lie near each other are the same.
std::string MixedBytes(std::size_t length) {
    std::string bytes;
    for (std::size_t i = 0; i < length; ++i) {
        bytes += static_cast<char>('A' + 29 * i);
    }
    return bytes;
}

/// A record of an area, with bytes that mostly suffice.
struct GivenValue {
    GivenValue(Session& session, Program& program)
        : identifier(ChooseArea(program)),
          count(ChooseElementCount(program)),
          bytes(MixedBytes(LengthFor(session, program))),
          record(program, {sizeof(ParameterRecord),
                           identifier,
                           count,
                           static_cast<std::uint32_t>(bytes.Bytes().size()),
                           program.Choose(8) == 7 ? nullptr : bytes.Data(),
                           7,
                           3,
                           {}}),
          understood(record.Understood()),
          area(session.AreaOf(understood.identifier)) {}

    [[nodiscard]] std::uint32_t Elements() const { return fuzz::Elements(understood.count); }

    /// The bytes of the value as the module sees them now.
    [[nodiscard]] std::optional<std::string> Given() {
        return understood.bytes == nullptr
                   ? std::nullopt
                   : std::optional(bytes.Bytes().substr(0, understood.length));
    }

    std::int32_t identifier;
    std::uint32_t count;
    HostMemory bytes;
    HostRecord<ParameterRecord> record;
    ParameterRecord understood;
    const ModelArea* area;

  private:
    [[nodiscard]] std::size_t LengthFor(Session& session, Program& program) const {
        const ModelArea* const wanted = session.AreaOf(identifier);
        const std::size_t whole =
            (wanted != nullptr ? wanted->size : 0) * std::min<std::size_t>(std::max(1U, count), 40);
        const std::uint32_t lack = program.Choose(5);
        return whole - std::min<std::size_t>(whole, lack == 4 ? whole : lack);
    }
};

/// Gives a value out by `call`, which must reach each leaf's function of this family or fail.
template <typename Call>
void GiveOut(Session& session, Program& program, const char* family, const Call& call) {
    GivenValue value(session, program);
    BadHost host(session, program);
    OnlineAccessRecord online = host.Online();
    const std::string before = value.record.Bytes() + value.bytes.Bytes();
    const Session::Transfer transfer(session);
    const std::int32_t result = call(value.record.Pointer(), online, host);
    const TransferCourse course =
        host.RequireCalled({value.area, value.Elements(), family, value.Given(), nullptr});
    Require(result == (course.isDone ? 1 : 0), "a value is given out whole or not at all");
    RequireSame(value.record.Bytes() + value.bytes.Bytes(), before, "a value given stays");
}

void Convert(Session& session, Program& program) {
    GiveOut(session, program, "Put",
            [&](ParameterRecord* record, OnlineAccessRecord& online, BadHost&) {
                return session.standard.ConvertStdParameter(record, &online);
            });
}

void WriteOnline(Session& session, Program& program) {
    GiveOut(session, program, "Alt",
            [&](ParameterRecord* record, OnlineAccessRecord& online, BadHost& host) {
                return session.standard.WriteStdParameterOnline(record, &online, host.Cancel());
            });
}

/// What the leaves get from the host's functions.
std::string Supplied(const ModelArea& area, std::uint32_t count, bool closesTexts) {
    std::string element(area.size, '\0');
    for (const ModelLeaf& leaf : area.leaves) {
        std::string bytes(kSupply.begin(), kSupply.begin() + leaf.type->width);
        if (closesTexts && std::string(leaf.type->functions) == "Text") {
            bytes.back() = '\0';
        }
        element.replace(leaf.offset, leaf.type->width, bytes);
    }
    std::string all;
    for (std::uint32_t i = 0; i < count && !element.empty(); ++i) {
        all += element;
    }
    return all;
}

/// Compares the new bytes and what else the record has, and gives it back.
void RequireFilled(Session& session, GivenValue& value, const std::string& before,
                   bool closesTexts) {
    const ParameterRecord actual = value.record.Understood();
    ParameterRecord expected = value.understood;
    expected.length = value.area->size * value.understood.count;
    expected.bytes = actual.bytes;
    Require(actual.bytes == nullptr || actual.bytes != value.understood.bytes, "bytes are new");
    std::string bytes = before;
    const std::string written = BytesOf(expected).substr(0, value.record.Size());
    bytes.replace(0, written.size(), written);
    bytes.replace(0, sizeof(std::uint32_t), BytesOf(value.record.Size()));
    RequireSame(value.record.Bytes(), bytes, "a filled record has new bytes and their length");
    if (value.record.Holds(16)) {
        RequireSame({static_cast<char*>(actual.bytes), expected.length},
                    Supplied(*value.area, value.understood.count, closesTexts),
                    "a value is filled with what the host has");
    }
    session.standard.FreeStdParameter(value.record.Pointer());
    RequireSame(value.record.Bytes(), value.record.With({}), "a released record is emptied");
}

/// Reads through the getters (slot 17) or lets the host fill the bytes (slot 19).
void FillNew(Session& session, Program& program, bool isOnline) {
    GivenValue value(session, program);
    BadHost host(session, program);
    OnlineAccessRecord online = host.Online();
    FillRecord fill = host.Fill();
    const std::string before = value.record.Bytes();
    const Session::Transfer transfer(session);
    ParameterRecord* const record = value.record.Pointer();
    const std::int32_t result =
        isOnline ? session.standard.ReadStdParameterOnline(record, &online, host.Cancel())
                 : session.standard.FillStdParameterValue(record, &fill);
    const std::uint64_t length =
        value.area != nullptr ? std::uint64_t{value.area->size} * value.understood.count : 0;
    constexpr std::uint64_t kLongest = 0x7FFFFFFF;
    const bool isPossible = value.area != nullptr && length <= kLongest;
    const bool isBegun = isPossible && length != 0;
    const TransferCourse course = host.RequireCalled(
        {isBegun ? value.area : nullptr, value.understood.count, isOnline ? "Get" : "Raw",
         std::string(isBegun ? static_cast<std::size_t>(length) : 0, '\0'), nullptr});
    if (!isPossible || (isBegun && !course.isDone)) {
        Require(result == (isBegun && isOnline ? -1 : 0), "what cannot be read gives nothing");
        RequireSame(value.record.Bytes(), before, "a record that could not be filled stays");
        return;
    }
    Require(result == 1, "what can be read is read");
    if (length == 0) {
        RequireSame(value.record.Bytes(), before, "a record without values stays");
    } else {
        RequireFilled(session, value, before, isOnline);
    }
}

/// The bytes of a value after the host's raw put has been called so.
std::string FilledBy(const TransferCourse& course, std::uint32_t size, std::string bytes) {
    for (const auto& call : course.calls) {
        bytes.replace(std::size_t{size} * call.first + call.second, call.bytes.size(),
                      std::string(kSupply.begin(), kSupply.begin() + call.bytes.size()));
    }
    return bytes;
}

void FillInPlace(Session& session, Program& program) {
    GivenValue value(session, program);
    BadHost host(session, program);
    FillRecord fill = host.Fill();
    const std::string before = value.record.Bytes();
    const std::string bytes = value.bytes.Bytes();
    const ModelTransfer inPlace{value.area, value.Elements(), "Raw", value.Given(),
                                value.bytes.Data()};
    const Session::Transfer transfer(session);
    const std::int32_t result =
        session.standard.FillStdParameterValueInPlace(value.record.Pointer(), &fill);
    const TransferCourse course = host.RequireCalled(inPlace);
    Require(result == (course.isDone ? 1 : 0), "a value is filled whole or not at all");
    RequireSame(value.record.Bytes(), before, "a record stays");
    const std::uint32_t size = value.area != nullptr ? value.area->size : 0;
    RequireSame(value.bytes.Bytes(), FilledBy(course, size, bytes),
                "the bytes hold what the host has put into them, and no more");
}

constexpr std::array kTransferOperations = {
    Operation{'p', Convert},
    Operation{'P', WriteOnline},
    Operation{'r', [](Session& session, Program& program) { FillNew(session, program, true); }},
    Operation{'R', [](Session& session, Program& program) { FillNew(session, program, false); }},
    Operation{'q', FillInPlace},
};

}  // namespace

std::span<const Operation> TransferOperations() {
    return kTransferOperations;
}

}  // namespace orvell::fuzz
