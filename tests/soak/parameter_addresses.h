#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orvell::soak {

/// A parameter of the project.
struct ProjectParameter {
    std::string address;
    std::string valueText;  ///< comes back unchanged from a list file and from a CSV file
};

/// One call of the update cycle; `oldAddress` is null for a new parameter.
struct Declaration {
    const char* oldAddress;
    const char* newAddress;
};

/// What wanders from cycle to cycle; after so many cycles it begins anew.
inline constexpr std::uint32_t kVariantCount = 10;

/// The parameters of a project, spread over all kinds. A tenth of those that are declared are
/// residents: they have names, comments and values and are in the project's list between the
/// cycles. The others are visitors, which come and go within each cycle.
class ParameterAddresses {
  public:
    /// `declareCount`: the declarations of each outward update.
    explicit ParameterAddresses(std::uint32_t declareCount);

    /// The residents of all kinds, by kind.
    [[nodiscard]] const std::vector<std::vector<ProjectParameter>>& Residents() const {
        return residents_;
    }

    /// The update that changes the project: a tenth of the residents go, the others move to each
    /// other's places within their kind, and a part of the visitors come. In half of the variants
    /// in random order.
    void DeclareOutward(std::uint32_t variant, std::vector<Declaration>& declarations) const;

    /// The update that takes it all back: the visitors go, the residents return to their places,
    /// those that went as new ones.
    void DeclareHomeward(std::uint32_t variant, std::vector<Declaration>& declarations) const;

    /// Visitors that come in a variant, in the order of their addresses.
    [[nodiscard]] std::vector<const char*> VisitorsOf(std::uint32_t variant) const;

  private:
    std::uint32_t declareCount_;
    std::vector<std::vector<ProjectParameter>> residents_;
    std::vector<std::string> visitors_;  ///< a tenth more than come at a time
};

}  // namespace orvell::soak
