#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace workbench::check {

// The project that the checker brings along: its definitions, and what the module must make of
// them.

/// How a leaf's value travels; in the order of the setters and getters of OnlineAccessRecord.
enum class Carrier : std::uint32_t { Byte, Word, Long, Qword, Float, Double, Text };

struct LeafModel {
    std::string_view path;
    std::uint32_t offset;
    std::uint32_t width;
    Carrier carrier;
    std::uint32_t rawKind;  ///< as FillRecord::Put gets it
};

struct AreaModel {
    std::int32_t id;
    std::string_view typeName;
    std::uint32_t kind;  ///< as in TypeInformationRecord
    std::uint32_t size;  ///< of one element in bytes
    std::span<const LeafModel> leaves;
};

constexpr std::int32_t kWordArea = 1;
constexpr std::int32_t kPointArea = 2;
constexpr std::int32_t kLabelArea = 3;
constexpr std::int32_t kModeArea = 4;
constexpr std::int32_t kAllArea = 5;
constexpr std::int32_t kPartlyArea = 6;      ///< one of its elements has no known type
constexpr std::int32_t kLoopArea = 7;        ///< contains itself
constexpr std::int32_t kLostArea = 8;        ///< of a type that is not defined
constexpr std::int32_t kHugeArea = 9;        ///< nearly 4 GiB
constexpr std::int32_t kFarArea = -2;        ///< a word; 4294967294 in the file
constexpr std::int32_t kOtherArea = 11;      ///< a word, in the second project only
constexpr std::int32_t kDeliveredArea = 12;  ///< a word, in the definitions to be merged only

/// The areas with values.
[[nodiscard]] std::span<const AreaModel> Areas();

/// True for the areas of the first project, those without values included.
[[nodiscard]] bool IsArea(std::int32_t id);

/// A folder of its own below the system's one for temporary files; removed at the end.
class TestProject {
  public:
    TestProject();
    ~TestProject();
    TestProject(const TestProject&) = delete;
    TestProject& operator=(const TestProject&) = delete;

    /// Paths of the two projects; both have definitions.
    [[nodiscard]] std::string First() const { return Path("FIRST.PRJ"); }
    [[nodiscard]] std::string Second() const { return Path("SECOND.PRJ"); }

    [[nodiscard]] std::string Path(std::string_view name) const;

    void Write(std::string_view name, std::string_view content) const;

    /// A file's bytes; empty when there is none.
    [[nodiscard]] std::string Read(std::string_view name) const;
    void Remove(std::string_view name) const;

  private:
    std::string folder_;
};

}  // namespace workbench::check
