#include "check/bench.h"

#include "check/heap_blocks.h"

namespace workbench::check {

Bench::Bench(std::string modulePath, std::uint32_t seed)
    : modulePath_(std::move(modulePath)), random_(seed) {}

bool Bench::Reload() {
    std::string error;
    bool isLoaded = false;
    auto unload = [&] { module_.Unload(); };
    auto load = [&] { isLoaded = module_.Load(modulePath_, error); };
    auto takeTables = [&] { module_.TakeTables(); };
    std::string fault = trap_.Run(unload);
    fault += trap_.Run(load);
    if (isLoaded) {
        fault += trap_.Run(takeTables);
    }
    boxes_.TakeCount();
    if (!isLoaded || !fault.empty()) {
        Fail("The module cannot be loaded. " + error + fault);
    }
    return isLoaded && fault.empty();
}

void Bench::Run(void (*check)(Bench&), Edge edge, std::uint32_t seed) {
    edge_ = edge;
    random_ = RandomSource(seed);
    failureCount_ = 0;
    firstFailure_.clear();
    boxes_.TakeCount();
    auto run = [&] {
        try {
            check(*this);
        } catch (const CheckEnded&) {  // the reason has been remembered
        }
    };
    const std::string fault = trap_.Run(run);
    if (!fault.empty()) {
        Fail("the module's answer cannot be used: the checker " + fault);
        GuardedBlock::ForgetAll();
    }
}

std::string Bench::Failures() const {
    return failureCount_ < 2
               ? firstFailure_
               : firstFailure_ + " (and " + std::to_string(failureCount_ - 1) + " more)";
}

void Bench::Fail(const std::string& failure) {
    if (failureCount_++ == 0) {
        firstFailure_ = failure;
    }
}

void Bench::Expect(bool isMet, std::string_view what, std::initializer_list<std::int64_t> numbers) {
    if (isMet) {
        return;
    }
    std::string failure = "expected: " + std::string(what);
    std::string_view separator = " (";
    for (const std::int64_t number : numbers) {
        failure += std::string(separator) + std::to_string(number);
        separator = ", ";
    }
    Fail(numbers.size() == 0 ? failure : failure + ")");
}

void Bench::End(const std::string& failure) {
    Fail(failure);
    ResetFloatingPoint();
    throw CheckEnded();
}

void Bench::EndCall(std::string_view function, const std::string& fault) {
    const std::string name(function);
    if (!fault.empty()) {
        End(name + ": " + fault);
    }
    if (const GuardedBlock* block = GuardedBlock::FirstTrespassed()) {
        End(name + ": wrote beside the " + std::string(block->What()) + " of " +
            std::to_string(block->Size()) + " bytes");
    }
    if (ReadFloatingPointState() != usualState_) {
        Fail(name + ": left the floating-point units changed");
        ResetFloatingPoint();
    }
}

std::size_t Bench::CountBlocks() {
    return CountHeapBlocks();
}

void Bench::ExpectNoGrowth(std::string_view what, std::size_t before) {
    // The system's own libraries take and give back a block now and then.
    constexpr std::int64_t kTolerance = kRepetitions / 4;
    const auto growth =
        static_cast<std::int64_t>(CountBlocks()) - static_cast<std::int64_t>(before);
    Expect(growth < kTolerance && growth > -kTolerance,
           std::string(what) + " gives back what it takes; repetitions, blocks more",
           {kRepetitions, growth});
}

void Bench::LoadDefinitions() {
    const std::string path = project_.First();
    ConfigurationRecord record{sizeof record, nullptr, path.c_str()};
    Call("LoadStdMemConfig", [&] { Slots().LoadStdMemConfig(&record, NewToken()); });
    Expect(Slots().GetStdStructSize(kPointArea) == 6, "the project's definitions are loaded");
}

void Bench::BeginList() {
    ConfigurationRecord record{sizeof record, nullptr, nullptr};
    Call("SetCallToken", [&] { Management().SetCallToken(0); });
    Call("LoadList", [&] { Management().LoadList(&record); });
}

}  // namespace workbench::check
