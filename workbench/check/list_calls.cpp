#include "check/list_calls.h"

namespace workbench::check {
namespace {

constexpr std::uint32_t kTextForm = 5;

constexpr std::string_view kKinds[] = {"E",       "A",      "B",         "UCHARPARA", "PW",
                                       "PL",      "PF",     "PT",        "TIMEPARA",  "DATEPARA",
                                       "TODPARA", "DTPARA", "OLEDTPARA", "INT64PARA", "DOUBLEPARA"};

}  // namespace

std::string ValueText(Bench& bench, std::string_view address) {
    const HostText place(bench, address, "address");
    const GuardedBlock buffer = bench.Block(64, "value buffer");
    const std::int32_t result = bench.Call("STDSIL_GetValue", [&] {
        return bench.Functions().GetValue(place.Get(), buffer.Data(), 64, kTextForm);
    });
    buffer.Data()[63] = 0;
    return result == 1 ? reinterpret_cast<const char*>(buffer.Data()) : "(none)";
}

std::int32_t SetWord(Bench& bench, std::string_view address, std::int32_t value,
                     std::string_view name, std::string_view comment) {
    const HostText place(bench, address, "address");
    const HostText nameText(bench, name, "name");
    const HostText commentText(bench, comment, "comment");
    return bench.Call("STDSIL_SetWordParaValue", [&] {
        return bench.Functions().SetWordParaValue(place.Get(), nameText.Get(), commentText.Get(),
                                                  value);
    });
}

std::string DescriptionText(Bench& bench, std::string_view address) {
    const HostText place(bench, address, "address");
    const GuardedBlock name = bench.Block(16, "name buffer");
    const GuardedBlock comment = bench.Block(31, "comment buffer");
    const std::int32_t result = bench.Call("STDSIL_GetSignalInfo", [&] {
        return bench.Functions().GetSignalInfo(place.Get(), reinterpret_cast<char*>(name.Data()),
                                               reinterpret_cast<char*>(comment.Data()));
    });
    if (result != 1) {
        return "(none)";
    }
    return std::string(reinterpret_cast<const char*>(name.Data())) + "|" +
           reinterpret_cast<const char*>(comment.Data());
}

std::string RandomAddress(Bench& bench) {
    RandomSource& random = bench.Random();
    switch (random.Below(6)) {
        case 0:
            return random.Text(20, "PWETL0123456789.#\xE4 \x01");
        case 1:
            return std::string(random.OneOf(kKinds)) + std::to_string(random.Word());
        case 2:
            return random.Text(300, "9");
        default:
            return std::string(random.OneOf(kKinds)) + std::to_string(random.Below(50));
    }
}

std::span<const std::string_view> AllKinds() {
    return kKinds;
}

}  // namespace workbench::check
