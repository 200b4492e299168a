#include "cli/leaf_table.h"

#include "cli/table.h"

namespace workbench::cli {

std::string ShownPath(const std::string& path) {
    return path.empty() ? "(value)" : path;
}

std::string LeafTable(std::span<const Leaf> leaves) {
    Table table({Align::Left, Align::Left});
    for (const Leaf& leaf : leaves) {
        table.Add({ShownPath(leaf.path), leaf.text});
    }
    return table.Text();
}

}  // namespace workbench::cli
