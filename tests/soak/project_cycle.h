#pragma once

#include <cstdint>
#include <vector>

#include "module_host.h"
#include "output_hash.h"
#include "parameter_addresses.h"

namespace orvell::soak {

/// How often what takes long is part of a cycle.
struct CyclePlan {
    std::uint32_t warmUp;            ///< cycles at the beginning, in which every fifth edits
    std::uint32_t dialogEvery;       ///< where editing is not fast; all others edit in each cycle
    std::uint32_t wholeExportEvery;  ///< files with all parameters, visitors included
};

/// What came out of a cycle, as hashes.
struct CycleOutput {
    std::uint64_t files;        ///< of values, the project's list and what was exported
    std::uint64_t definitions;  ///< of the project's definitions, which the host's library writes
    std::uint64_t wanders;      ///< of what depends on the variant
    std::uint64_t whole;        ///< of the files with all parameters; 0 when there were none
};

/// One project after the other, always the same: opens it, works on its values, takes the parameter
/// list through two updates, through files and back, saves and closes. At the end of each cycle the
/// project's files are as they were at its beginning.
class ProjectCycle {
  public:
    /// Makes the project's files in the current folder. `host` must outlive the object.
    ProjectCycle(ModuleHost& host, std::uint32_t declareCount, const CyclePlan& plan);

    /// The cycle with this number, from 0; throws `Failure`.
    [[nodiscard]] CycleOutput Run(std::uint32_t number);

  private:
    [[nodiscard]] bool Edits(std::uint32_t number) const;
    void CreateProject();
    void Request();
    void Open();
    void ReadParameters(OutputHash& output);
    void Update(std::uint32_t variant, CycleOutput& output, bool withWholeFiles);
    void Declare();
    void VisitVisitors(std::uint32_t variant, OutputHash& output);
    std::uint64_t ExportWhole();
    void TakeThroughFiles(OutputHash& output);
    void Spoil();
    void SaveAndClose(OutputHash& files, OutputHash& definitions);
    void RequireNoMessage() const;

    ModuleHost& host_;
    const CyclePlan plan_;
    const ParameterAddresses addresses_;
    ConfigurationRecord project_;
    std::uint32_t lastToken_ = 0;
    std::vector<Declaration> declarations_;  ///< keeps its memory
};

}  // namespace orvell::soak
