// Opens, changes, saves and closes the same project over and over in one process, and writes down
// what the process holds after each cycle. Ends with 1 when a cycle puts out anything else than the
// cycles before.
//
// usage: soak FOLDER CYCLES DECLARES SAMPLE_EVERY DIALOG_EVERY
//   FOLDER        gets the project's files, samples.csv, and the output of the first and the last
//                 cycle in FIRST and LAST
//   DECLARES      declarations of each update, 300 at least
//   SAMPLE_EVERY  cycles between two samples
//   DIALOG_EVERY  cycles between two openings of the dialog, where there is one; in the first
//                 twentieth of the cycles it is opened more often, since it is the system's windows
//                 that take longest until they have all that they keep

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "failure.h"
#include "module_host.h"
#include "project_cycle.h"
#include "project_files.h"

namespace orvell::soak {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kWholeExportEvery = 41;  // shares no divisor with the number of variants

struct Arguments {
    const char* folder;
    std::uint32_t cycles;
    std::uint32_t declares;
    std::uint32_t sampleEvery;
    std::uint32_t dialogEvery;
};

class SampleFile {
  public:
    SampleFile() : file_("samples.csv") {}

    void Write(std::uint32_t cycle) {
        CountHoldings(holdings_);
        if (isFirst_) {
            file_ << "cycle,milliseconds";
            for (const Holding& holding : holdings_) {
                file_ << ',' << holding.name;
            }
            isFirst_ = false;
        }
        const auto passed = std::chrono::steady_clock::now() - start_;
        file_ << '\n'
              << cycle << ','
              << std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
        for (const Holding& holding : holdings_) {
            file_ << ',' << holding.amount;
        }
        file_.flush();
    }

    void End() { file_ << std::endl; }

  private:
    std::ofstream file_;
    std::vector<Holding> holdings_;
    bool isFirst_ = true;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// What earlier cycles have put out.
class Expectation {
  public:
    void Meet(std::uint32_t cycle, const CycleOutput& output) {
        const std::uint32_t variant = cycle % kVariantCount;
        Compare(cycle, files_, output.files, "the project's list or values");
        Compare(cycle, definitions_, output.definitions, "the project's definitions");
        Compare(cycle, wanders_[variant], output.wanders, "the updated list");
        if (output.whole != 0) {
            Compare(cycle, whole_[variant], output.whole, "the files of the updated list");
        }
    }

    [[nodiscard]] std::uint64_t Files() const { return files_; }

    [[nodiscard]] std::uint64_t Wandering() const { return OfAllVariants(wanders_); }

    [[nodiscard]] std::uint64_t WholeFiles() const { return OfAllVariants(whole_); }

  private:
    using Variants = std::array<std::uint64_t, kVariantCount>;

    static std::uint64_t OfAllVariants(const Variants& hashes) {
        OutputHash all;
        for (const std::uint64_t hash : hashes) {
            all.AddWord(hash);
        }
        return all.Value();
    }

    static void Compare(std::uint32_t cycle, std::uint64_t& expected, std::uint64_t found,
                        const char* what) {
        if (expected == 0) {
            expected = found;
        }
        Require(expected == found,
                "cycle " + std::to_string(cycle) + " puts out something else: " + what);
    }

    std::uint64_t files_ = 0;
    std::uint64_t definitions_ = 0;
    Variants wanders_{};
    Variants whole_{};
};

void KeepOutput(const char* folder) {
    fs::create_directory(folder);
    for (const char* name : {kProjectDefinitions, kProjectList, kExportedList, kExportedCsv}) {
        fs::copy_file(name, fs::path(folder) / name, fs::copy_options::overwrite_existing);
    }
}

void Soak(const Arguments& arguments) {
    fs::current_path(arguments.folder);
    const std::unique_ptr<ModuleHost> host = LoadModule();
    ProjectCycle project(*host, arguments.declares,
                         {arguments.cycles / 20, arguments.dialogEvery, kWholeExportEvery});
    Expectation expectation;
    SampleFile samples;
    for (std::uint32_t cycle = 0; cycle < arguments.cycles; ++cycle) {
        expectation.Meet(cycle, project.Run(cycle));
        const bool isLast = cycle + 1 == arguments.cycles;
        if (cycle == 0 || isLast) {
            KeepOutput(cycle == 0 ? "FIRST" : "LAST");
        }
        if ((cycle + 1) % arguments.sampleEvery == 0 || isLast) {
            samples.Write(cycle + 1);
        }
    }
    samples.End();
    std::printf("%u cycles, output %016llx %016llx %016llx\n", arguments.cycles,
                static_cast<unsigned long long>(expectation.Files()),
                static_cast<unsigned long long>(expectation.Wandering()),
                static_cast<unsigned long long>(expectation.WholeFiles()));
}

std::uint32_t Number(const char* text) {
    return static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

}  // namespace
}  // namespace orvell::soak

int main(int argumentCount, char** arguments) {
    using namespace orvell::soak;
    if (argumentCount != 6) {
        std::fputs("usage: soak FOLDER CYCLES DECLARES SAMPLE_EVERY DIALOG_EVERY\n", stderr);
        return 2;
    }
    try {
        Soak({arguments[1], Number(arguments[2]), Number(arguments[3]), Number(arguments[4]),
              Number(arguments[5])});
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "soak: %s\n", failure.what());
        return 1;
    }
}
